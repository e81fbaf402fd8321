#pragma once

#include <cstddef>
#include <string>

#include "editor/levelrules.h"

namespace ZOVEngine {

class LevelEditor;

/// The rules that the open level breaks, the errors first; a click selects the object.
///
/// The level is checked after each gesture. The names of images and sounds are read again when
/// another level is opened.
class ProblemsPanel {
 public:
  /// Fills the window that the layout has begun.
  void Show(LevelEditor& editor);
  const LevelProblems& Problems() const { return m_problems; }

 private:
  void Refresh(LevelEditor& editor);

  KnownAssets m_known;
  LevelProblems m_problems;
  std::string m_level;
  std::size_t m_changes = static_cast<std::size_t>(-1);  ///< of the history as of the last check
};

}  // namespace ZOVEngine
