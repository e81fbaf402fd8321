#pragma once

#include <string>
#include <vector>

#include "core/base/vector3d.h"
#include "editor/canvas/sceneindex.h"

namespace ZOVEngine {

class LevelEditor;

/// Objects that were copied: the text of their records, and where they stood in the level.
///
/// Outlives the level that they came from. Empty until something is copied.
class Clipboard {
 public:
  /// Takes copies of the objects in place of what it held; without objects it keeps that. A level's
  /// own root is left out.
  void Copy(const LevelEditor& editor, const std::vector<const SceneEntry*>& objects);
  /// Adds the objects to the open level as one gesture, with their middle at `place`, and selects
  /// them. They become children of the level's root object, or roots if it has none.
  void Paste(LevelEditor& editor, const SceneIndex& index, const Vector3D& place) const;
  bool IsEmpty() const { return m_items.empty(); }

 private:
  struct Item {
    std::string name, record;
    Vector3D world;
  };
  std::vector<Item> m_items;
};

}  // namespace ZOVEngine
