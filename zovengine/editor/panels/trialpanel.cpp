#include "editor/panels/trialpanel.h"

#include <imgui.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <string>

#include "editor/leveleditor.h"
#include "editor/leveltext.h"
#include "editor/testplay.h"

namespace ZOVEngine {
namespace {

namespace fs = std::filesystem;

constexpr int kMostSeeds = 200;
constexpr float kSeedsWidth = 110.0f;  // (unit: pixels)

std::string CopyFolder() {
  return (fs::temp_directory_path() / ("carapace-trial-" + std::to_string(getpid()))).string();
}

int MedianRounds(std::vector<int> rounds) {
  std::sort(rounds.begin(), rounds.end());
  return rounds.empty() ? 0 : rounds[rounds.size() / 2];
}

}  // namespace

TrialPanel::TrialPanel() = default;

TrialPanel::~TrialPanel() {
  std::error_code ignored;
  fs::remove_all(CopyFolder(), ignored);
}

void TrialPanel::Start(LevelEditor& editor) {
  const LevelProblems fatal = FatalProblems(editor.document);
  const std::string level = fatal.empty() ? WriteLevelCopy(editor, CopyFolder()) : "";
  if (level.empty()) {
    editor.log.Fault("The level cannot be tried: " +
                     (fatal.empty() ? "no room for its copy." : fatal.front().text + "."));
  } else {
    m_trial.Start(level, m_seeds);
  }
}

void TrialPanel::Show(LevelEditor& editor) {
  ImGui::TextDisabled("The automatic player plays the level as it stands now, in the background.");
  ImGui::SetNextItemWidth(kSeedsWidth);
  ImGui::InputInt("games", &m_seeds);
  m_seeds = std::clamp(m_seeds, 1, kMostSeeds);
  ImGui::SameLine();
  ImGui::BeginDisabled(!editor.IsOpen());
  if (m_trial.IsRunning()) {
    if (ImGui::Button("Stop")) m_trial.Stop();
  } else if (ImGui::Button("Is it winnable?")) {
    Start(editor);
  }
  ImGui::EndDisabled();
  ShowProgress(editor);
}

void TrialPanel::ShowProgress(LevelEditor& editor) {
  const Trial::Progress& progress = m_trial.GetProgress();
  if (progress.stage == Trial::Stage::kIdle && progress.games == 0) return;
  const float share =
      static_cast<float>(progress.games) / static_cast<float>(std::max(progress.seeds, 1));
  const std::string games =
      std::to_string(progress.games) + " of " + std::to_string(progress.seeds) + " games";
  ImGui::ProgressBar(share, ImVec2(-1.0f, 0.0f), games.c_str());
  ImGui::Text("won %d   lost %d   undecided after 60 rounds %d   rounds (median) %d", progress.won,
              progress.lost, progress.open, MedianRounds(progress.rounds));
  if (progress.stage == Trial::Stage::kFailed) {
    ImGui::TextWrapped("The games could not be played: %s", progress.message.c_str());
  }
  if (!progress.first_won_seed) return;
  ImGui::Text("The first game won has seed %d.", *progress.first_won_seed);
  ImGui::SameLine();
  if (ImGui::Button("Watch it")) editor.wants_replay = progress.replay_file;
}

}  // namespace ZOVEngine
