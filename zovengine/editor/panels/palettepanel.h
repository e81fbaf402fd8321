#pragma once

namespace ZOVEngine {

class LevelEditor;

/// What can be put into a level: units, shots, hazards, lights and images, with thumbnails and a
/// search.
class PalettePanel {
 public:
  /// Fills the window that the layout has begun.
  void Show(LevelEditor& editor);
};

}  // namespace ZOVEngine
