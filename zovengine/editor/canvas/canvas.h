#pragma once

#include "editor/canvas/overlays.h"
#include "editor/canvas/patroltool.h"
#include "editor/canvas/pointer.h"
#include "editor/canvas/sceneindex.h"
#include "editor/canvas/shortcuts.h"

namespace ZOVEngine {

class LevelEditor;

/// The picture of the level as a place to work in: picks, moves, turns and scales objects with the
/// mouse, and draws over the picture what helps to.
///
/// Holds the tools and hands each frame's mouse and keys to the one whose they are. While a panel
/// has the mouse, or a text field the keyboard, only a drag that goes on is followed.
class Canvas {
 public:
  /// Handles the mouse and the keys of this frame and draws over the picture; before the panels.
  void Show(LevelEditor& editor);
  /// The right button is held down after it took back a drag.
  bool TakesRightButton() const { return m_cancelled; }

 private:
  void HandleMouse(LevelEditor& editor, const CanvasView& view);
  void HandleKeys(LevelEditor& editor, const CanvasView& view);
  void Draw(LevelEditor& editor, const CanvasView& view);
  /// Takes back what the mouse has begun.
  void Drop();
  bool IsBusy() const { return m_pointer.IsBusy() || m_patrols.IsBusy(); }

  SceneIndex m_index;
  Pointer m_pointer;
  PatrolTool m_patrols;
  Overlays m_overlays;
  Shortcuts m_shortcuts;
  bool m_cancelled = false;  ///< by the right button, which is still held
};

}  // namespace ZOVEngine
