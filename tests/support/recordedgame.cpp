#include "support/recordedgame.h"

#include <algorithm>
#include <filesystem>
#include <iomanip>
#include <istream>
#include <ostream>
#include <sstream>
#include <utility>

#include "support/levelgame.h"

namespace carapace_test {

namespace {

constexpr int kStepsBetweenHashes = 250;

std::string OutcomeOf(const AutoPlayer& player) {
  if (player.HasLost()) return "lost";
  return player.HasWon() ? "won" : "open";
}

/// How many steps on end, from `step` on, this direction is held, up to the first that was counted
/// already.
int HeldFrom(const RecordedGame& game, int step, const GameInput& direction) {
  int count = 0;
  for (;; ++count) {
    const auto at = game.inputs.find(step + count);
    if (at == game.inputs.end()) return count;
    if (std::find(at->second.begin(), at->second.end(), direction) == at->second.end()) {
      return count;
    }
  }
}

void WriteInput(std::ostream& out, const RecordedGame& game, int step, const GameInput& input) {
  int b = input.b;
  if (input.kind == GameInput::Kind::kDirection) {
    const auto before = game.inputs.find(step - 1);
    const bool counted =
        before != game.inputs.end() &&
        std::find(before->second.begin(), before->second.end(), input) != before->second.end();
    if (counted) return;
    b = HeldFrom(game, step, input);
  }
  out << step << ' ' << static_cast<char>(input.kind) << ' ' << input.a << ' ' << b << '\n';
}

void ReadInput(std::istream& line, int step, char kind, RecordedGame* game) {
  GameInput input;
  input.kind = static_cast<GameInput::Kind>(kind);
  line >> input.a >> input.b;
  int steps = 1;
  if (input.kind == GameInput::Kind::kDirection) steps = std::exchange(input.b, 0);
  for (int i = 0; i < steps; ++i) game->inputs[step + i].push_back(input);
}

}  // namespace

RecordedGame RecordedGame::Play(const std::string& level, std::uint32_t seed,
                                AutoPlayer::Style style, int most_steps) {
  RecordedGame game;
  game.level = level;
  game.seed = seed;
  LevelGame running(level, seed);
  AutoPlayer player(&running.world, style);
  while (game.steps < most_steps && player.Step()) {
    if (!player.Inputs().empty()) game.inputs[game.steps] = player.Inputs();
    ++game.steps;
    if (game.steps % kStepsBetweenHashes == 0) game.hashes[game.steps] = running.world.Hash();
  }
  game.hashes[game.steps] = running.world.Hash();
  game.outcome = OutcomeOf(player);
  return game;
}

std::string RecordedGame::Replay() const {
  LevelGame running(level, seed);
  for (int step = 0; step < steps; ++step) {
    if (const auto now = inputs.find(step); now != inputs.end()) {
      for (const GameInput& input : now->second) Apply(input, &running.world);
    }
    running.world.Step();
    const auto hash = hashes.find(step + 1);
    if (hash != hashes.end() && running.world.Hash() != hash->second) {
      return "another state after " + std::to_string(step + 1) + " steps";
    }
  }
  const std::string end = OutcomeOf(AutoPlayer(&running.world));
  return end == outcome ? "" : "it ended " + end + " instead of " + outcome;
}

void RecordedGame::Write(std::ostream& out) const {
  out << level << ' ' << seed << '\n';
  for (const auto& [step, now] : inputs) {
    for (const GameInput& input : now) WriteInput(out, *this, step, input);
  }
  for (const auto& [step, hash] : hashes) {
    out << step << " h " << std::hex << hash << std::dec << '\n';
  }
  out << steps << " end " << outcome << '\n';
}

RecordedGame RecordedGame::Read(std::istream& in) {
  RecordedGame game;
  std::string text;
  if (!std::getline(in, text)) return {};
  std::istringstream(text) >> game.level >> game.seed;
  while (std::getline(in, text)) {
    std::istringstream line(text);
    int step = 0;
    std::string kind;
    if (!(line >> step >> kind)) return {};
    if (kind == "h") {
      line >> std::hex >> game.hashes[step];
    } else if (kind == "end") {
      game.steps = step;
      line >> game.outcome;
    } else {
      ReadInput(line, step, kind.front(), &game);
    }
  }
  return game;
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

}  // namespace carapace_test
