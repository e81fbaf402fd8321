#include "editor/canvas/pointer.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "editor/canvas/keys.h"
#include "editor/canvas/picking.h"
#include "editor/canvas/snapping.h"
#include "editor/editordata.h"
#include "editor/leveleditor.h"
#include "gameobj.h"

namespace ZOVEngine {
namespace {

constexpr float kStill = 4.0f;  ///< a mouse that moved less has not moved (unit: pixels)
constexpr ImU32 kPointerAmber = IM_COL32(255, 201, 77, 255),
                kPointerPale = IM_COL32(255, 226, 160, 230);
constexpr ImU32 kWhite = IM_COL32(242, 245, 255, 170);
constexpr ImU32 kBoxLine = IM_COL32(96, 190, 255, 255), kBoxFill = IM_COL32(96, 190, 255, 40);
constexpr float kMeasureOffset = 18.0f;  ///< of the measure from the mouse (unit: pixels)

bool IsNear(const ImVec2& a, const ImVec2& b) {
  return std::hypot(a.x - b.x, a.y - b.y) <= kStill;
}

bool IsCancelled() {
  return ImGui::GetIO().MouseDown[1] || IsPressed(CanvasKey::kEscape);
}

std::vector<const SceneEntry*> Draggable(const LevelEditor& editor, const SceneIndex& index) {
  std::vector<const SceneEntry*> objects = index.SelectedTopmost(editor.selection);
  std::erase_if(objects, [](const SceneEntry* entry) { return entry->transform == nullptr; });
  return objects;
}

void Toggle(Selection* selection, const ObjectPath& path) {
  if (std::erase(*selection, path) == 0) selection->push_back(path);
}

/// Makes `path` the last of the selection, whose fields the inspector shows.
void MakePrimary(Selection* selection, const ObjectPath& path) {
  std::erase(*selection, path);
  selection->push_back(path);
}

void OutlineObject(const SceneEntry& entry, CanvasPainter& painter, ImU32 colour, float width) {
  if (entry.transform == nullptr) return;
  const auto corners = FindBounds(entry, painter.View().UnitsPerPixel()).Corners();
  painter.Outline(corners.data(), corners.size(), colour, width);
}

}  // namespace

void Pointer::Drop() {
  m_drag.Cancel();
  m_press = Press::kNone;
  m_lit = Handle::kNone;
  m_hovered.clear();
}

void Pointer::Update(LevelEditor& editor, const SceneIndex& index, const CanvasView& view,
                     bool free) {
  const ImGuiIO& io = ImGui::GetIO();
  if (ImGui::IsMousePosValid()) m_mouse = view.ToWorld(io.MousePos);
  const bool idle = m_press == Press::kNone && !free;
  if (idle || (m_press != Press::kNone && IsCancelled())) {
    Drop();
  } else if (m_press != Press::kNone && io.MouseDown[0]) {
    Hold(editor, index);
  } else if (m_press != Press::kNone) {
    Release(editor, index, view);
  } else {
    Hover(editor, index, view);
    if (ImGui::IsMouseClicked(0)) PressButton(editor, index, view);
  }
}

void Pointer::Hover(const LevelEditor& editor, const SceneIndex& index, const CanvasView& view) {
  m_lit = Handles(Draggable(editor, index), g_editor.m_edit_mode, view).At(m_mouse);
  m_hovered.clear();
  if (m_lit != Handle::kNone) return;
  const PickDepth depth = ImGui::GetIO().KeyAlt ? PickDepth::kPart : PickDepth::kUnit;
  const auto targets = PickAt(index, editor.selection, m_mouse, view.UnitsPerPixel(), depth);
  if (!targets.empty()) m_hovered = targets.front()->path;
}

void Pointer::PressButton(LevelEditor& editor, const SceneIndex& index, const CanvasView& view) {
  m_press_pixel = ImGui::GetIO().MousePos;
  m_press_point = m_mouse;
  m_pressed.clear();
  m_was_selected = false;
  const bool selects = ImGui::GetIO().KeyShift || ImGui::IsMouseDoubleClicked(0);
  if (m_lit != Handle::kNone && !selects) {
    m_press = Press::kObject;
    m_pressed = editor.Primary();
    BeginDrag(editor, index, m_lit);
  } else {
    PressObject(editor, index, view);
  }
}

void Pointer::PressObject(LevelEditor& editor, const SceneIndex& index, const CanvasView& view) {
  const bool part = ImGui::GetIO().KeyAlt || ImGui::IsMouseDoubleClicked(0);
  const auto targets = PickAt(index, editor.selection, m_mouse, view.UnitsPerPixel(),
                              part ? PickDepth::kPart : PickDepth::kUnit);
  if (targets.empty()) {
    m_press = Press::kBox;
    return;
  }
  m_pressed = targets.front()->path;
  if (ImGui::GetIO().KeyShift) {
    Toggle(&editor.selection, m_pressed);
    return;
  }
  m_press = Press::kObject;
  if (!part && HoldSelected(editor, index, view)) {
    MakePrimary(&editor.selection, m_pressed);
  } else {
    editor.selection = {m_pressed};
    m_last_click = m_press_pixel;
  }
}

bool Pointer::HoldSelected(const LevelEditor& editor, const SceneIndex& index,
                           const CanvasView& view) {
  for (const PickDepth depth : {PickDepth::kUnit, PickDepth::kPart}) {
    for (const SceneEntry* entry :
         PickAt(index, editor.selection, m_mouse, view.UnitsPerPixel(), depth)) {
      if (!editor.IsSelected(entry->path)) continue;
      m_pressed = entry->path;
      m_was_selected = true;
      return true;
    }
  }
  return false;
}

void Pointer::BeginDrag(const LevelEditor& editor, const SceneIndex& index, Handle handle) {
  m_drag.Begin(Draggable(editor, index), handle, g_editor.m_edit_mode, m_press_point, m_pressed);
}

void Pointer::Hold(const LevelEditor& editor, const SceneIndex& index) {
  if (m_press != Press::kObject) return;
  if (!m_drag.IsOpen() && !IsNear(m_press_pixel, ImGui::GetIO().MousePos)) {
    BeginDrag(editor, index, Handle::kBody);
  }
  m_drag.Update(m_mouse, PresentGrid(editor));
}

void Pointer::Release(LevelEditor& editor, const SceneIndex& index, const CanvasView& view) {
  if (m_press == Press::kBox) {
    SelectInBox(editor, index, view);
  } else if (m_drag.IsOpen()) {
    m_drag.Update(m_mouse, PresentGrid(editor));
    m_drag.End(editor);
  } else if (m_was_selected) {
    SelectBelow(editor, index, view);
  }
  m_press = Press::kNone;
}

void Pointer::SelectBelow(LevelEditor& editor, const SceneIndex& index, const CanvasView& view) {
  const auto targets =
      PickAt(index, editor.selection, m_press_point, view.UnitsPerPixel(), PickDepth::kUnit);
  if (targets.empty()) return;
  const bool again = IsNear(m_last_click, m_press_pixel);
  const SceneEntry* next = again ? PickBelow(targets, editor.Primary()) : targets.front();
  editor.selection = {next->path};
  m_last_click = m_press_pixel;
}

void Pointer::SelectInBox(LevelEditor& editor, const SceneIndex& index, const CanvasView& view) {
  // Control with a double click is the patrol paths', which need the selection.
  const bool add = ImGui::GetIO().KeyShift || ImGui::GetIO().KeyCtrl;
  if (!add) editor.selection.clear();
  if (IsNear(m_press_pixel, ImGui::GetIO().MousePos)) return;
  for (const ObjectPath& path : PickInBox(index, m_press_point, m_mouse, view.UnitsPerPixel())) {
    if (!editor.IsSelected(path)) editor.selection.push_back(path);
  }
}

void Pointer::Draw(const LevelEditor& editor, const SceneIndex& index,
                   CanvasPainter& painter) const {
  const SceneEntry* hovered = m_press == Press::kNone ? index.Find(m_hovered) : nullptr;
  if (hovered != nullptr) OutlineObject(*hovered, painter, kWhite, 1.0f);
  const std::vector<const SceneEntry*> selected = index.Selected(editor.selection);
  for (const SceneEntry* entry : selected) {
    const bool primary = entry == selected.back();
    OutlineObject(*entry, painter, primary ? kPointerAmber : kPointerPale, primary ? 2.0f : 1.0f);
  }
  const Handle lit = m_drag.IsOpen() ? m_drag.Held() : m_lit;
  Handles(Draggable(editor, index), g_editor.m_edit_mode, painter.View()).Draw(painter, lit);
  if (m_press == Press::kBox) DrawBox(painter);
  if (m_drag.IsOpen()) DrawMeasure(painter);
}

void Pointer::DrawBox(CanvasPainter& painter) const {
  const Vector3D corners[] = {m_press_point, Vector3D(m_mouse.x, m_press_point.y, 0.0f), m_mouse,
                              Vector3D(m_press_point.x, m_mouse.y, 0.0f)};
  painter.Fill(corners, std::size(corners), kBoxFill);
  painter.Outline(corners, std::size(corners), kBoxLine, 1.0f);
}

void Pointer::DrawMeasure(CanvasPainter& painter) const {
  const float offset = kMeasureOffset * painter.View().UnitsPerPixel();
  painter.Text(m_mouse + Vector3D(offset, offset, 0.0f), kPointerAmber, m_drag.Measure().c_str());
}

}  // namespace ZOVEngine
