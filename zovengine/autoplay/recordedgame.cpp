#include "autoplay/recordedgame.h"

#include <algorithm>
#include <iomanip>
#include <istream>
#include <ostream>
#include <sstream>
#include <string_view>
#include <utility>

#include "autoplay/levelrun.h"
#include "autoplay/statehash.h"

namespace ZOVEngine {
namespace {

constexpr std::string_view kInputKinds = "cdkb";
constexpr int kStepsBetweenHashes = 250;
constexpr int kLongestHold = 100000;  ///< a file with more is damaged (unit: steps)

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

void WriteHashes(std::ostream& out, char kind, const std::map<int, std::uint64_t>& hashes) {
  for (const auto& [step, hash] : hashes) {
    out << step << ' ' << kind << ' ' << std::hex << hash << std::dec << '\n';
  }
}

/// The seed is the last word of the line, the rest the level.
void ReadHead(const std::string& line, RecordedGame* game) {
  const std::size_t blank = line.rfind(' ');
  if (blank == std::string::npos) return;
  if (std::istringstream(line.substr(blank)) >> game->seed) game->level = line.substr(0, blank);
}

bool ReadInput(std::istream& line, int step, const std::string& kind, RecordedGame* game) {
  GameInput input;
  if (kind.size() != 1 || kInputKinds.find(kind) == std::string_view::npos) return false;
  input.kind = static_cast<GameInput::Kind>(kind.front());
  if (!(line >> input.a >> input.b)) return false;
  int steps = 1;
  if (input.kind == GameInput::Kind::kDirection) steps = std::exchange(input.b, 0);
  if (steps > kLongestHold) return false;
  for (int i = 0; i < steps; ++i) game->inputs[step + i].push_back(input);
  return true;
}

bool ReadHash(std::istream& line, int step, std::map<int, std::uint64_t>* hashes) {
  return static_cast<bool>(line >> std::hex >> (*hashes)[step]);
}

/// A line after the first.
bool ReadLine(const std::string& text, RecordedGame* game) {
  std::istringstream line(text);
  int step = 0;
  std::string kind;
  if (!(line >> step >> kind)) return false;
  if (kind == "h") return ReadHash(line, step, &game->hashes);
  if (kind == "p") return ReadHash(line, step, &game->places);
  if (kind != "end") return ReadInput(line, step, kind, game);
  game->steps = step;
  return static_cast<bool>(line >> game->outcome);
}

/// The hash that `hashes` has for a number of steps, if any, is this one.
bool Agree(const std::map<int, std::uint64_t>& hashes, int steps, std::uint64_t (*hash)()) {
  const auto recorded = hashes.find(steps);
  return recorded == hashes.end() || recorded->second == hash();
}

}  // namespace

RecordedGame RecordedGame::Play(const std::string& level, std::uint32_t seed, const Plan& plan) {
  RecordedGame game;
  game.level = level;
  game.seed = seed;
  const auto mark = [&game, &plan] {
    if (plan.marks == Marks::kStates) {
      game.hashes[game.steps] = HashState();
    } else {
      game.places[game.steps] = HashPlaces();
    }
  };
  AutoPlayer player(plan.style);
  while (game.steps < plan.most_steps && player.Rounds() < plan.most_rounds && player.Step()) {
    if (!player.Inputs().empty()) game.inputs[game.steps] = player.Inputs();
    if (++game.steps % kStepsBetweenHashes == 0) mark();
  }
  mark();
  game.outcome = player.Outcome();
  return game;
}

void RecordedGame::ApplyInputs(int step) const {
  const auto now = inputs.find(step);
  if (now == inputs.end()) return;
  for (const GameInput& input : now->second) Apply(input);
}

std::string RecordedGame::PlayAgain() const {
  for (int step = 0; step < steps; ++step) {
    ApplyInputs(step);
    StepEngine();
    if (!Agree(hashes, step + 1, HashState) || !Agree(places, step + 1, HashPlaces)) {
      return "another state after " + std::to_string(step + 1) + " steps";
    }
  }
  const std::string end = AutoPlayer().Outcome();
  return end == outcome ? "" : "it ended " + end + " instead of " + outcome;
}

void RecordedGame::Write(std::ostream& out) const {
  out << level << ' ' << seed << '\n';
  for (const auto& [step, now] : inputs) {
    for (const GameInput& input : now) WriteInput(out, *this, step, input);
  }
  WriteHashes(out, 'h', hashes);
  WriteHashes(out, 'p', places);
  out << steps << " end " << outcome << '\n';
}

RecordedGame RecordedGame::Read(std::istream& in) {
  RecordedGame game;
  std::string text;
  if (!std::getline(in, text)) return {};
  ReadHead(text, &game);
  while (std::getline(in, text)) {
    if (!ReadLine(text, &game)) return {};
  }
  return game.outcome.empty() ? RecordedGame() : game;
}

}  // namespace ZOVEngine
