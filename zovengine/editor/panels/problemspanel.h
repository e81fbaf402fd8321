#pragma once

namespace ZOVEngine {

class LevelEditor;

/// The rules that the open level breaks; a click leads to the object.
class ProblemsPanel {
 public:
  /// Fills the window that the layout has begun.
  void Show(LevelEditor& editor);
};

}  // namespace ZOVEngine
