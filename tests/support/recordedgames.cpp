#include "support/recordedgames.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "support/levelgame.h"

namespace carapace_test {

using ZOVEngine::RecordedGame;

RecordedGame RecordGame(const std::string& level, std::uint32_t seed,
                        const RecordedGame::Plan& plan) {
  const LevelGame running(level, seed);
  return RecordedGame::Play(level, seed, plan);
}

std::string PlayAgain(const RecordedGame& game) {
  const LevelGame running(game.level, game.seed);
  return game.PlayAgain();
}

std::vector<std::string> RecordedGameFiles() {
  std::vector<std::string> files;
  const std::filesystem::path folder =
      std::filesystem::path(CARAPACE_SOURCE_DIR) / "tests/game/games";
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    files.push_back(entry.path().string());
  }
  std::sort(files.begin(), files.end());
  return files;
}

RecordedGame ReadGame(const std::string& file) {
  std::ifstream in(file);
  return RecordedGame::Read(in);
}

}  // namespace carapace_test
