#include "editor/panels/historypanel.h"

#include <imgui.h>

#include <string>

#include "editor/leveleditor.h"

namespace ZOVEngine {
namespace {

/// A line of the list: the state after `position` gestures. True if it was clicked.
bool ShowState(const LevelEditor& editor, std::size_t position) {
  const History& history = editor.history;
  const std::string label = position == 0 ? "Opened" : history.Label(position - 1);
  const bool undone = position > history.Position();
  if (undone) ImGui::PushStyleColor(ImGuiCol_Text, ImGui::GetColorU32(ImGuiCol_TextDisabled));
  const std::string line = label + "##" + std::to_string(position);
  const bool clicked = ImGui::Selectable(line.c_str(), position == history.Position());
  if (undone) ImGui::PopStyleColor();
  return clicked;
}

}  // namespace

void HistoryPanel::Show(LevelEditor& editor) {
  if (!editor.IsOpen()) return;
  std::size_t wanted = editor.history.Position();
  ImGuiListClipper clipper;
  clipper.Begin(static_cast<int>(editor.history.Size()) + 1);
  while (clipper.Step()) {
    for (int i = clipper.DisplayStart; i < clipper.DisplayEnd; ++i) {
      if (ShowState(editor, static_cast<std::size_t>(i))) wanted = static_cast<std::size_t>(i);
    }
  }
  if (wanted != editor.history.Position()) editor.GoTo(wanted);
}

}  // namespace ZOVEngine
