#include "editor/canvas/canvas.h"

#include <imgui.h>

#include "editor/editordata.h"
#include "editor/editorview.h"
#include "editor/leveleditor.h"

namespace ZOVEngine {

void Canvas::Show(LevelEditor& editor) {
  if (!editor.IsOpen() || g_editor.m_editor_camera == nullptr) {
    Drop();
    return;
  }
  if (m_index.Refresh(editor.document)) Drop();
  const CanvasView view;
  // The key that takes a drag back means the drag alone.
  const bool busy = IsBusy();
  HandleMouse(editor, view);
  m_cancelled = ImGui::GetIO().MouseDown[1] && (m_cancelled || (busy && !IsBusy()));
  if (!busy && !IsBusy()) HandleKeys(editor, view);
  if (m_index.Refresh(editor.document)) Drop();
  Draw(editor, view);
}

void Canvas::Drop() {
  m_pointer.Drop();
  m_patrols.Drop();
}

void Canvas::HandleMouse(LevelEditor& editor, const CanvasView& view) {
  const bool free = !ImGui::GetIO().WantCaptureMouse && MouseInViewport();
  if (editor.tiles_in_hand) {
    Drop();
    return;
  }
  const bool taken = !m_pointer.HasPress() && m_patrols.Update(editor, view, free);
  m_pointer.Update(editor, m_index, view, free && !taken);
}

void Canvas::HandleKeys(LevelEditor& editor, const CanvasView& view) {
  if (m_patrols.RunDelete(editor)) return;
  m_shortcuts.Run(editor, m_index, view.ToWorld(ImGui::GetIO().MousePos));
}

void Canvas::Draw(LevelEditor& editor, const CanvasView& view) {
  {
    CanvasPainter helps(view, CanvasPainter::kOverlayVertices);
    m_overlays.Draw(editor, m_index, helps);
    if (editor.overlays.patrols) m_patrols.Draw(helps);
  }
  CanvasPainter tools(view, CanvasPainter::kToolVertices);
  m_pointer.Draw(editor, m_index, tools);
}

}  // namespace ZOVEngine
