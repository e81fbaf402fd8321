#pragma once

namespace ZOVEngine {

class LevelEditor;

/// The images and sounds of the game, and where dropped files go.
class AssetsPanel {
 public:
  /// Fills the window that the layout has begun.
  void Show(LevelEditor& editor);
};

}  // namespace ZOVEngine
