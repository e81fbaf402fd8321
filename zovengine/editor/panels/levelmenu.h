#pragma once

#include <functional>
#include <string>
#include <vector>

#include "editor/leveleditor.h"

namespace ZOVEngine {

/// The menu above the panels: levels, undo, views, and the dialogs that they open.
///
/// Whatever would lose unsaved work asks first. At the start it offers the work that an editor
/// which ended has left.
class LevelMenu {
 public:
  /// Shows the bar and a dialog that is open; returns the bar's height (unit: pixels).
  float Show(LevelEditor& editor);

 private:
  void ShowLevelMenu(LevelEditor& editor);
  void ShowOpenMenu(LevelEditor& editor);
  void OfferLevels(LevelEditor& editor, const std::vector<std::string>& names);
  void ShowEditMenu(LevelEditor& editor);
  void ShowViewMenu(LevelEditor& editor);
  void ShowState(LevelEditor& editor);
  void ShowNewDialog(LevelEditor& editor);
  void ShowUnsavedDialog(LevelEditor& editor);
  void ShowRecoveryDialog(LevelEditor& editor);
  /// Does `action` now, or after the author has said what becomes of unsaved work.
  void Leave(LevelEditor& editor, std::function<void()> action);

  NewLevel m_new;
  LevelNames m_names;               ///< as of the opening of the menu
  std::string m_dialog;             ///< the title of the one to open
  std::function<void()> m_pending;  ///< waits for the answer about unsaved work
  std::vector<std::string> m_recoverable;
  int m_frames = 0;  ///< that were shown, until the work of an earlier editor was offered
};

}  // namespace ZOVEngine
