#include "editor/canvas/canvas.h"

#include <imgui.h>

#include "editor/editordata.h"
#include "editor/editorview.h"
#include "editor/leveleditor.h"

namespace ZOVEngine {

void Canvas::Show(LevelEditor& editor) {
  if (!editor.IsOpen() || g_editor.m_editor_camera == nullptr) {
    m_pointer.Drop();
    return;
  }
  if (m_index.Refresh(editor.document)) m_pointer.Drop();
  const CanvasView view;
  // The key that takes a drag back means the drag alone.
  const bool busy = m_pointer.IsBusy();
  HandleMouse(editor, view);
  if (!busy && !m_pointer.IsBusy()) HandleKeys(editor, view);
  if (m_index.Refresh(editor.document)) m_pointer.Drop();
  Draw(editor, view);
}

void Canvas::HandleMouse(LevelEditor& editor, const CanvasView& view) {
  const bool free = !ImGui::GetIO().WantCaptureMouse && MouseInViewport();
  if (editor.tiles_in_hand) {
    m_pointer.Drop();
    return;
  }
  m_pointer.Update(editor, m_index, view, free);
}

void Canvas::HandleKeys(LevelEditor& editor, const CanvasView& view) {
  m_shortcuts.Run(editor, m_index, view.ToWorld(ImGui::GetIO().MousePos));
}

void Canvas::Draw(LevelEditor& editor, const CanvasView& view) const {
  CanvasPainter painter(view);
  m_pointer.Draw(editor, m_index, painter);
}

}  // namespace ZOVEngine
