#include "editor/shell/editorlayout.h"

#include <imgui.h>

#include <algorithm>

#include "editor/editordata.h"
#include "editor/editorview.h"
#include "editor/leveleditor.h"

namespace ZOVEngine {
namespace {

constexpr float kLeftWidth = 250.0f;    // (unit: pixels)
constexpr float kRightWidth = 390.0f;   // (unit: pixels)
constexpr float kBottomLeast = 280.0f;  // height of the lower panels in a small window

/// True for a rectangle of the window that covers no part of the picture of the level.
bool IsBesidePicture(float left, float top, float width, float height) {
  const Vector3D middle = WorldToWindow(EditorCameraPosition());
  const float half_width = static_cast<float>(kPictureWidth) / 2.0f;
  const float half_height = static_cast<float>(kPictureHeight) / 2.0f;
  return left + width <= middle.x - half_width || left >= middle.x + half_width ||
         top + height <= middle.y - half_height || top >= middle.y + half_height;
}

/// Begins a panel at a fixed place; it can be folded, not moved. The window beside the picture has
/// the colour of panels already.
bool BeginPanel(const char* title, float left, float top, float width, float height) {
  constexpr ImGuiWindowFlags kFlags = ImGuiWindowFlags_NoMove | ImGuiWindowFlags_NoResize;
  ImGui::SetNextWindowPos(ImVec2(left, top));
  ImGui::SetNextWindowSize(ImVec2(width, height));
  if (IsBesidePicture(left, top, width, height)) ImGui::SetNextWindowBgAlpha(0.0f);
  return ImGui::Begin(title, nullptr, kFlags);
}

const ImVec4 kFaultTitle(1.0f, 0.53f, 0.55f, 1.0f);

/// A tab of the present tab bar with one panel in it.
template <class Panel>
void Tab(const char* title, Panel& panel, LevelEditor& editor, bool alarmed = false) {
  if (alarmed) ImGui::PushStyleColor(ImGuiCol_Text, kFaultTitle);
  const bool shown = ImGui::BeginTabItem(title);
  if (alarmed) ImGui::PopStyleColor();
  if (!shown) return;
  ImGui::BeginChild(title);
  panel.Show(editor);
  ImGui::EndChild();
  ImGui::EndTabItem();
}

float BottomHeight(float top) {
  const float display = ImGui::GetIO().DisplaySize.y;
  return std::max(kBottomLeast, display - top - static_cast<float>(kPictureHeight));
}

}  // namespace

EditorLayout::EditorLayout(LevelEditor& editor) : m_brush(&editor.tiles) {}

void EditorLayout::Show(LevelEditor& editor) {
  const float top = m_menu.Show(editor);
  g_editor.m_viewport_offset_y = top;
  m_canvas.Show(editor);
  if (editor.IsOpen() && editor.tiles_in_hand) m_brush.Show(editor);
  ShowLeft(editor, top);
  ShowRight(editor, top);
  ShowBottom(editor, top);
  m_trial.Poll();
}

void EditorLayout::ShowLeft(LevelEditor& editor, float top) {
  const float height = ImGui::GetIO().DisplaySize.y - top - BottomHeight(top);
  if (BeginPanel("Objects", 0.0f, top, kLeftWidth, height)) m_hierarchy.Show(editor);
  ImGui::End();
}

void EditorLayout::ShowRight(LevelEditor& editor, float top) {
  const ImVec2 display = ImGui::GetIO().DisplaySize;
  if (BeginPanel("Inspector", display.x - kRightWidth, top, kRightWidth, display.y - top)) {
    m_inspector.Show(editor);
  }
  ImGui::End();
}

void EditorLayout::ShowBottom(LevelEditor& editor, float top) {
  editor.tiles_in_hand = false;  // unless the tab of the tiles is shown
  const ImVec2 display = ImGui::GetIO().DisplaySize;
  const float height = BottomHeight(top);
  const float width = (display.x - kRightWidth) / 2.0f;
  if (BeginPanel("Build", 0.0f, display.y - height, width, height) &&
      ImGui::BeginTabBar("build tabs")) {
    Tab("Palette", m_palette, editor);
    Tab("Tiles", m_tiles, editor);
    Tab("Assets", m_assets, editor);
    ImGui::EndTabBar();
  }
  ImGui::End();
  if (BeginPanel("Check", width, display.y - height, width, height) &&
      ImGui::BeginTabBar("check tabs")) {
    Tab("Problems", m_problems, editor);
    Tab("History", m_history, editor);
    Tab("Log", m_log, editor, m_log.HasNewFault(editor));
    Tab("Winnable?", m_trial, editor);
    ImGui::EndTabBar();
  }
  ImGui::End();
}

}  // namespace ZOVEngine
