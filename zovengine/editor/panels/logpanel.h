#pragma once

namespace ZOVEngine {

class LevelEditor;

/// What the editor has told the author.
class LogPanel {
 public:
  /// Fills the window that the layout has begun.
  void Show(LevelEditor& editor);
};

}  // namespace ZOVEngine
