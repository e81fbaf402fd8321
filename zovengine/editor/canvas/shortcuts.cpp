#include "editor/canvas/shortcuts.h"

#include <imgui.h>

#include "editor/canvas/dragtool.h"
#include "editor/canvas/keys.h"
#include "editor/canvas/picking.h"
#include "editor/canvas/snapping.h"
#include "editor/editordata.h"
#include "editor/leveleditor.h"

namespace ZOVEngine {
namespace {

constexpr float kPlainTile = 60.0f;  ///< where the map has no size (unit: world units)

float TileSize() {
  const auto size = static_cast<float>(g_editor.m_tile_map.m_tile_size);
  return size > 0.0f ? size : kPlainTile;
}

}  // namespace

void Shortcuts::Run(LevelEditor& editor, const SceneIndex& index, const Vector3D& mouse) {
  const ImGuiIO& io = ImGui::GetIO();
  if (io.WantTextInput) return;
  if (io.KeyCtrl) {
    RunWithControl(editor, index, mouse);
    return;
  }
  if (IsPressed(CanvasKey::kDelete)) Delete(editor);
  if (IsPressed(CanvasKey::kEscape)) editor.selection.clear();
}

void Shortcuts::RunWithControl(LevelEditor& editor, const SceneIndex& index,
                               const Vector3D& mouse) {
  const bool shift = ImGui::GetIO().KeyShift;
  if (IsPressed(CanvasKey::kZ, true)) {
    shift ? editor.Redo() : editor.Undo();
  } else if (IsPressed(CanvasKey::kY, true)) {
    editor.Redo();
  } else if (IsPressed(CanvasKey::kS)) {
    editor.Save();
  } else if (IsPressed(CanvasKey::kA)) {
    editor.selection = PickAll(index);
  } else if (IsPressed(CanvasKey::kD) && !editor.selection.empty()) {
    editor.Do(editor.scene.Duplicate(editor.selection, TileSize(), 0.0f));
  } else {
    RunClipboard(editor, index, mouse);
    RunNudges(editor, index);
  }
}

void Shortcuts::RunClipboard(LevelEditor& editor, const SceneIndex& index, const Vector3D& mouse) {
  const bool cut = IsPressed(CanvasKey::kX);
  if (cut || IsPressed(CanvasKey::kC)) {
    m_clipboard.Copy(editor, index.SelectedTopmost(editor.selection));
  }
  if (cut) {
    Delete(editor);
  } else if (IsPressed(CanvasKey::kV)) {
    m_clipboard.Paste(editor, index, PresentGrid(editor).Position(mouse));
  }
}

void Shortcuts::RunNudges(LevelEditor& editor, const SceneIndex& index) {
  const float step = ImGui::GetIO().KeyShift ? 1.0f : TileSize() * 0.5f;
  const auto pressed = [](CanvasKey key) { return IsPressed(key, true) ? 1.0f : 0.0f; };
  const float x = pressed(CanvasKey::kRight) - pressed(CanvasKey::kLeft);
  const float y = pressed(CanvasKey::kUp) - pressed(CanvasKey::kDown);
  if (x == 0.0f && y == 0.0f) return;
  Nudge(editor, index.SelectedTopmost(editor.selection), x * step, y * step);
}

void Shortcuts::Delete(LevelEditor& editor) {
  if (!editor.selection.empty()) editor.Do(editor.scene.Delete(editor.selection));
}

}  // namespace ZOVEngine
