#pragma once

#include "editor/canvas/canvas.h"
#include "editor/canvas/tilebrush.h"
#include "editor/panels/assetspanel.h"
#include "editor/panels/hierarchypanel.h"
#include "editor/panels/historypanel.h"
#include "editor/panels/inspectorpanel.h"
#include "editor/panels/levelmenu.h"
#include "editor/panels/logpanel.h"
#include "editor/panels/palettepanel.h"
#include "editor/panels/problemspanel.h"
#include "editor/panels/tilespanel.h"
#include "editor/panels/trialpanel.h"

namespace ZOVEngine {

class LevelEditor;

/// Where the panels stand around the picture of the level, and the menu above them.
///
/// Made for 1920 by 1080 pixels, where nothing covers the picture. In a smaller window the panels
/// lie over it, and each can be folded to its title.
class EditorLayout {
 public:
  explicit EditorLayout(LevelEditor& editor);
  /// Shows everything; between ImGui's NewFrame and Render.
  void Show(LevelEditor& editor);
  /// The right button is held down after it took back a drag, and moves no view.
  bool TakesRightButton() const { return m_canvas.TakesRightButton(); }

 private:
  void ShowLeft(LevelEditor& editor, float top);
  void ShowRight(LevelEditor& editor, float top);
  void ShowBottom(LevelEditor& editor, float top);

  LevelMenu m_menu;
  Canvas m_canvas;
  TileBrush m_brush;
  HierarchyPanel m_hierarchy;
  InspectorPanel m_inspector;
  PalettePanel m_palette;
  TilesPanel m_tiles;
  AssetsPanel m_assets;
  ProblemsPanel m_problems;
  LogPanel m_log;
  HistoryPanel m_history;
  TrialPanel m_trial;
};

}  // namespace ZOVEngine
