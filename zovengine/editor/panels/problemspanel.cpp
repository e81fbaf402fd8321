#include "editor/panels/problemspanel.h"

#include <imgui.h>

#include <algorithm>

#include "editor/editordata.h"
#include "editor/leveleditor.h"
#include "editor/leveltext.h"

namespace ZOVEngine {
namespace {

const ImVec4 kError(1.0f, 0.53f, 0.55f, 1.0f);
const ImVec4 kWarning(1.0f, 0.79f, 0.3f, 1.0f);
const ImVec4 kGood(0.18f, 0.9f, 0.65f, 1.0f);

bool IsError(const LevelProblem& problem) {
  return problem.severity == LevelSeverity::kError;
}

/// A line; true if it was clicked.
bool ShowProblem(const LevelProblem& problem, std::size_t number) {
  ImGui::PushID(static_cast<int>(number));
  ImGui::TextColored(IsError(problem) ? kError : kWarning,
                     IsError(problem) ? "error  " : "warning");
  ImGui::SameLine();
  const bool clicked = ImGui::Selectable(problem.text.c_str());
  if (ImGui::IsItemHovered()) {
    ImGui::SetTooltip("%s\n(rule %s)", problem.text.c_str(), problem.rule);
  }
  ImGui::PopID();
  return clicked;
}

}  // namespace

void ProblemsPanel::Refresh(LevelEditor& editor) {
  if (m_level != g_editor.m_level_name) {
    m_level = g_editor.m_level_name;
    m_known = ReadKnownAssets();
    m_changes = static_cast<std::size_t>(-1);
  }
  if (m_changes == editor.history.Changes()) return;
  m_changes = editor.history.Changes();
  m_problems = CheckLevel(OpenLevelText(editor), m_known);
  std::stable_partition(m_problems.begin(), m_problems.end(), IsError);
}

void ProblemsPanel::Show(LevelEditor& editor) {
  if (!editor.IsOpen()) return;
  Refresh(editor);
  if (m_problems.empty()) ImGui::TextColored(kGood, "The level keeps all rules.");
  for (std::size_t i = 0; i < m_problems.size(); ++i) {
    const LevelProblem& problem = m_problems[i];
    if (ShowProblem(problem, i) && problem.file == LevelFile::kObjects &&
        editor.document.Has(problem.address)) {
      editor.selection = {problem.address};
    }
  }
}

}  // namespace ZOVEngine
