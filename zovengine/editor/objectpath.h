#pragma once

#include <cstdint>
#include <vector>

namespace ZOVEngine {

class GameObj;

/// Where an object stands in the open level: the place of its root among the level's roots, then
/// the place in each list of children on the way down. Empty names no object.
///
/// Pointers and ids do not outlive a rebuild of the scene; paths do, as long as no object before
/// them comes or goes.
using ObjectPath = std::vector<std::uint32_t>;

/// The objects that have a record of their own in the level's object file, in its order.
std::vector<GameObj*> LevelRoots();
/// The object at `path`, or null.
GameObj* ObjectAt(const ObjectPath& path);
/// The path of `object`; empty for null, for a tile and for an object that is not saved.
ObjectPath PathTo(GameObj* object);
/// True if `path` is `ancestor` or leads through it.
bool IsWithin(const ObjectPath& path, const ObjectPath& ancestor);
/// An object of the level with its path.
struct PlacedObject {
  GameObj* object = nullptr;
  ObjectPath path;
};
/// All objects of the level, parents before children, in the order of the file.
std::vector<PlacedObject> LevelObjects();

}  // namespace ZOVEngine
