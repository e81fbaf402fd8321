#pragma once

namespace ZOVEngine {

class LevelEditor;

/// The picture of the level as a place to work in: picks, moves, turns and scales objects with the
/// mouse, and draws over the picture what helps to.
class Canvas {
 public:
  /// Handles the mouse and the keys of this frame and draws over the picture; before the panels.
  void Show(LevelEditor& editor);
};

}  // namespace ZOVEngine
