#pragma once

#include <cstddef>

namespace ZOVEngine {

class LevelEditor;

/// What the editor has told the author.
class LogPanel {
 public:
  /// Fills the window that the layout has begun.
  void Show(LevelEditor& editor);

 private:
  std::size_t m_seen = 0;  ///< lines as of the last frame
};

}  // namespace ZOVEngine
