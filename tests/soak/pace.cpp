#include "pace.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <iostream>
#include <vector>

#include "autoplay/autoplayer.h"
#include "autoplay/levelrun.h"
#include "autoplay/quiet.h"
#include "core/engine.h"
#include "support/gamewatch.h"
#include "support/levelgame.h"
#include "support/randomplayer.h"

namespace carapace_test {

using ZOVEngine::AutoPlayer;
using ZOVEngine::FindTurnController;
using ZOVEngine::Quiet;

namespace {

constexpr int kMostRounds = 60;     ///< of a game for the table
constexpr int kMostSteps = 400000;  ///< bounds a game whose rounds are very long
constexpr int kStandstill = 3600;   ///< a minute
constexpr float kStepsASecond = 60.0f;

/// Many games of one level.
struct Pace {
  int won = 0;
  std::vector<int> rounds;
  std::vector<int> enemy_phases;
  std::vector<int> waits;
};

int Median(std::vector<int>* values) {
  if (values->empty()) return 0;
  const auto middle = values->begin() + static_cast<std::ptrdiff_t>(values->size() / 2);
  std::nth_element(values->begin(), middle, values->end());
  return *middle;
}

int Most(const std::vector<int>& values) {
  return values.empty() ? 0 : *std::max_element(values.begin(), values.end());
}

void Append(const std::vector<int>& from, std::vector<int>* to) {
  to->insert(to->end(), from.begin(), from.end());
}

void PlayForPace(const std::string& level, std::uint32_t seed, Pace* pace) {
  const Quiet quiet;
  LevelGame game(level, seed);
  AutoPlayer player;
  GameWatch watch;
  while (player.Rounds() < kMostRounds && player.Step()) watch.Look(*FindTurnController());
  pace->won += player.HasWon() ? 1 : 0;
  pace->rounds.push_back(player.Rounds());
  Append(watch.EnemyPhases(), &pace->enemy_phases);
  Append(watch.Waits(), &pace->waits);
}

/// How a game ended.
struct Ending {
  bool over = false;
  std::string standstill;  ///< where its turns stand still; empty if they do not
};

Ending Follow(const std::function<bool()>& step, int rounds) {
  GameWatch watch;
  for (int steps = 0; steps < kMostSteps; ++steps) {
    const bool over = !step();
    const ZOVEngine::GameController& controller = *FindTurnController();
    if (over || controller.m_round >= rounds) return {over, ""};
    watch.Look(controller, ZOVEngine::g_engine->paused);
    if (watch.StandsStill() >= kStandstill) return {false, watch.Place()};
  }
  return {false, ""};
}

constexpr const char* kPlayers[] = {"automatic", "skipping", "random"};

Ending PlayToEnd(const std::string& level, std::uint32_t seed, std::size_t kind, int rounds) {
  const Quiet quiet;
  LevelGame game(level, seed);
  if (kind == 2) {
    RandomPlayer player(&game.world, seed);
    return Follow([&] { return player.Step(); }, rounds);
  }
  AutoPlayer player(kind == 0 ? AutoPlayer::Style::kFight : AutoPlayer::Style::kSkip);
  return Follow([&] { return player.Step(); }, rounds);
}

/// The games of one kind of player. True if none stands still.
bool CheckEndings(const std::string& level, std::size_t kind, int games, int rounds) {
  int over = 0;
  bool good = true;
  for (int seed = 1; seed <= games; ++seed) {
    const Ending ending = PlayToEnd(level, static_cast<std::uint32_t>(seed), kind, rounds);
    over += ending.over ? 1 : 0;
    if (ending.standstill.empty()) continue;
    std::cout << "FAILED: " << level << ", " << kPlayers[kind] << " player, seed " << seed
              << ": stands still in " << ending.standstill << '\n';
    good = false;
  }
  std::cout << level << ", " << kPlayers[kind] << " player: " << over << " of " << games
            << " games over within " << rounds << " rounds\n";
  return good;
}

}  // namespace

void PrintPaceHead() {
  std::cout << "| level | won | rounds, median | most | enemy phase, median s | most | wait after "
               "a turn, median s | most |\n|---|---|---|---|---|---|---|---|\n";
}

int PrintPace(const std::string& level, int games) {
  Pace pace;
  for (int seed = 1; seed <= games; ++seed) {
    PlayForPace(level, static_cast<std::uint32_t>(seed), &pace);
  }
  char row[160];
  std::snprintf(row, sizeof(row), "| %s | %d of %d | %d | %d | %.1f | %.1f | %.1f | %.1f |\n",
                level.c_str(), pace.won, games, Median(&pace.rounds), Most(pace.rounds),
                static_cast<double>(Median(&pace.enemy_phases)) / kStepsASecond,
                static_cast<double>(Most(pace.enemy_phases)) / kStepsASecond,
                static_cast<double>(Median(&pace.waits)) / kStepsASecond,
                static_cast<double>(Most(pace.waits)) / kStepsASecond);
  std::cout << row << std::flush;
  return pace.won;
}

bool CheckEndings(const std::string& level, int games, int rounds) {
  bool good = true;
  for (std::size_t kind = 0; kind < std::size(kPlayers); ++kind) {
    good = CheckEndings(level, kind, games, rounds) && good;
  }
  return good;
}

}  // namespace carapace_test
