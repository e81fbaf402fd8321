#pragma once

#include "jsonunserializer.h"

namespace ZOVEngine {

class GameObj;

/// True for an object whose Render has the tile flag.
bool IsTile(GameObj* object);

/// True for an object that gets a record of its own in the object file of its level.
///
/// Not saved there: an object with a parent, since it stands in its parent's record; tiles, by the
/// tile flag of their Render or by their name, and their colliders, which the level makes from its
/// tiles; the test particle and the editor's own camera.
bool IsLevelObject(GameObj* object);

/// Writes the object file of the level that is loaded: an object with the one key "GameObjFactory"
/// and the records of all objects for which IsLevelObject holds, in the factory's order.
void WriteLevelObjects(Writer& writer);

}  // namespace ZOVEngine
