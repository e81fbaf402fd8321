#pragma once

namespace ZOVEngine {

class LevelEditor;

/// Whether the level can be won: games of the automatic player in the background.
class TrialPanel {
 public:
  /// Fills the window that the layout has begun.
  void Show(LevelEditor& editor);
};

}  // namespace ZOVEngine
