#pragma once

namespace ZOVEngine {

class LevelEditor;

/// The menu above the panels: levels, undo, views, and the dialogs that they open.
class LevelMenu {
 public:
  /// Shows the bar; returns its height (unit: pixels).
  float Show(LevelEditor& editor);
};

}  // namespace ZOVEngine
