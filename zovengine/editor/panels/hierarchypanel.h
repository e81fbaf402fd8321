#pragma once

namespace ZOVEngine {

class LevelEditor;

/// The tree of the level's objects: select, search, rename, move in the tree, duplicate, delete.
class HierarchyPanel {
 public:
  /// Fills the window that the layout has begun.
  void Show(LevelEditor& editor);
};

}  // namespace ZOVEngine
