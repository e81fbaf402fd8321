#pragma once

#include <string>

namespace ZOVEngine {

class GameObj;
class LevelDocument;

/// What the objects of a built scene are for.
enum class SceneUse {
  kEdit,  ///< to be looked at: no controller starts its level, no sound plays, nothing collides
  kSave,  ///< to be written to files at once, just as the document has them
};

/// The text of the tiles in the factory's order, erased ones, which are switched off, included.
std::string TilesText();

/// Makes the scene anew: destroys all objects, makes those of the document, those of `tiles`, which
/// is text of TilesText, and a camera of the editor where it was. Pointers and ids of before are
/// void; world transforms are derived.
///
/// Text that the loader refuses ends the program, so what comes from a file is checked before.
void BuildScene(const LevelDocument& document, const std::string& tiles,
                SceneUse use = SceneUse::kEdit);

/// The fields of one component of `object` as text, or with an empty name those of the object
/// itself: "name" and "active". Empty if it has no such component.
std::string LiveFields(GameObj* object, const std::string& component);
/// Sets those fields from text of LiveFields. An object without that component stays as it is.
void SetLiveFields(GameObj* object, const std::string& component, const std::string& text);

}  // namespace ZOVEngine
