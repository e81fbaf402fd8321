#pragma once

#include <cstddef>

namespace ZOVEngine {

class LevelEditor;

/// What the editor has told the author.
class LogPanel {
 public:
  /// Fills the window that the layout has begun.
  void Show(LevelEditor& editor);
  /// True if the author was told of a fault since the panel was shown last.
  bool HasNewFault(const LevelEditor& editor) const;

 private:
  std::size_t m_seen = 0;  ///< lines as of the last frame in which it was shown
};

}  // namespace ZOVEngine
