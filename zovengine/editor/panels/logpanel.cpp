#include "editor/panels/logpanel.h"

#include <imgui.h>

#include <algorithm>

#include "editor/leveleditor.h"

namespace ZOVEngine {
namespace {

const ImVec4 kFaultLine(1.0f, 0.53f, 0.55f, 1.0f);

}  // namespace

bool LogPanel::HasNewFault(const LevelEditor& editor) const {
  const std::vector<EditorLog::Line>& lines = editor.log.Lines();
  return std::any_of(lines.begin() + static_cast<std::ptrdiff_t>(m_seen), lines.end(),
                     [](const EditorLog::Line& line) { return line.fault; });
}

void LogPanel::Show(LevelEditor& editor) {
  const std::vector<EditorLog::Line>& lines = editor.log.Lines();
  for (const EditorLog::Line& line : lines) {
    if (line.fault) ImGui::PushStyleColor(ImGuiCol_Text, kFaultLine);
    ImGui::TextWrapped("%s", line.text.c_str());
    if (line.fault) ImGui::PopStyleColor();
  }
  if (lines.size() != m_seen) ImGui::SetScrollHereY(1.0f);
  m_seen = lines.size();
}

}  // namespace ZOVEngine
