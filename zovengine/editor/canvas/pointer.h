#pragma once

#include <imgui.h>

#include <vector>

#include "editor/canvas/canvasview.h"
#include "editor/canvas/dragtool.h"
#include "editor/canvas/painter.h"
#include "editor/canvas/sceneindex.h"

namespace ZOVEngine {

class LevelEditor;

/// The left mouse button on the objects of the level: clicks select, drags change the selected
/// objects or draw a box that selects.
///
/// A press takes hold of a handle, of a selected object, or of the topmost one, which it selects; a
/// second click on the same place selects the one below. A double click, or Alt, goes down to the
/// part under the mouse; Shift adds and removes. A press counts as a drag once the mouse has gone a
/// few pixels. Escape and the right button take a drag back.
class Pointer {
 public:
  /// Follows the mouse for one frame. `free` says that no panel has the mouse and that it is in the
  /// picture; a drag goes on without that.
  void Update(LevelEditor& editor, const SceneIndex& index, const CanvasView& view, bool free);
  /// Takes back a drag, and forgets a press: the scene is another, or another tool has the mouse.
  void Drop();
  /// Outlines the selection and what the mouse is over, and draws handles and box.
  void Draw(const LevelEditor& editor, const SceneIndex& index, CanvasPainter& painter) const;

  /// A drag goes on, or a box.
  bool IsBusy() const { return m_drag.IsOpen() || m_press == Press::kBox; }
  /// The button is held, and what it pressed is the pointer's.
  bool HasPress() const { return m_press != Press::kNone; }

 private:
  /// What the held button is for.
  enum class Press { kNone, kObject, kBox };

  void Hold(const LevelEditor& editor, const SceneIndex& index);
  void Release(LevelEditor& editor, const SceneIndex& index, const CanvasView& view);
  void PressButton(LevelEditor& editor, const SceneIndex& index, const CanvasView& view);
  void PressObject(LevelEditor& editor, const SceneIndex& index, const CanvasView& view);
  /// Takes hold of a selected object under the mouse; false if there is none.
  bool HoldSelected(const LevelEditor& editor, const SceneIndex& index, const CanvasView& view);
  void SelectBelow(LevelEditor& editor, const SceneIndex& index, const CanvasView& view);
  void SelectInBox(LevelEditor& editor, const SceneIndex& index, const CanvasView& view);
  void BeginDrag(const LevelEditor& editor, const SceneIndex& index, Handle handle);
  void DrawBox(CanvasPainter& painter) const;
  void DrawMeasure(CanvasPainter& painter) const;
  void Hover(const LevelEditor& editor, const SceneIndex& index, const CanvasView& view);

  DragTool m_drag;
  Press m_press = Press::kNone;
  ImVec2 m_press_pixel;
  Vector3D m_press_point;                   ///< in the level
  ObjectPath m_pressed;                     ///< the object under the press
  bool m_was_selected = false;              ///< the press found its object selected
  ImVec2 m_last_click{-1000.0f, -1000.0f};  ///< where an object was selected (unit: pixels)
  Vector3D m_mouse;                         ///< in the level
  Handle m_lit = Handle::kNone;
  ObjectPath m_hovered;
};

}  // namespace ZOVEngine
