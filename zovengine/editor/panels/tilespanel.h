#pragma once

namespace ZOVEngine {

class LevelEditor;

/// The tile tools: which of the five is in hand, and which texture it paints.
class TilesPanel {
 public:
  /// Fills the window that the layout has begun.
  void Show(LevelEditor& editor);
};

}  // namespace ZOVEngine
