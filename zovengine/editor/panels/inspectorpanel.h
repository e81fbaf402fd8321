#pragma once

namespace ZOVEngine {

class LevelEditor;

/// The fields of the object that was selected last, and its components, to add and remove.
class InspectorPanel {
 public:
  /// Fills the window that the layout has begun.
  void Show(LevelEditor& editor);
};

}  // namespace ZOVEngine
