#pragma once

namespace ZOVEngine {

class LevelEditor;

/// The gestures of the session; a click goes back or forth to one.
class HistoryPanel {
 public:
  /// Fills the window that the layout has begun.
  void Show(LevelEditor& editor);
};

}  // namespace ZOVEngine
