// Runs levels for a long time without a window. Fails when the memory grows, and when states are
// not what they must be.
//   carapace_soak LEVEL [STEPS]      the automatic player plays; a level that is over is restarted
//   carapace_soak states             Level00 after a minute of itself, and all recorded games
//   carapace_soak pace [GAMES] [LEVEL]
//                                    the table of docs/levels.md: wins and times of the levels to
//                                    win
//   carapace_soak endings LEVEL [GAMES [ROUNDS]]
//                                    three kinds of player: no game's turns may stand still
// 60 steps are a second of game time.
#include <malloc.h>

#include <cstdlib>
#include <iostream>
#include <string>

#include "autoplay/autoplayer.h"
#include "autoplay/quiet.h"
#include "core/base/random.h"
#include "core/messages.h"
#include "game/level00hash.h"
#include "game/level00world.h"
#include "pace.h"
#include "platform/virtualkeys.h"
#include "support/recordedgames.h"

#if defined(__SANITIZE_ADDRESS__)
#define CARAPACE_ASAN 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define CARAPACE_ASAN 1
#endif
#endif
#if defined(CARAPACE_ASAN)
// Of the sanitizer's runtime; not every compiler's package has the header.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

namespace {

using namespace carapace_test;
using ZOVEngine::AutoPlayer;
using ZOVEngine::Quiet;

constexpr std::uint32_t kSeed = 11;
constexpr int kStepsOfAGame = 20000;        ///< then it is restarted, decided or not
constexpr int kShownEnd = 120;              ///< steps of a level that is over
constexpr int kWarmGames = 3;               ///< after which memory must not grow
constexpr std::size_t kGrowth = 32 * 1024;  ///< allowed, for lists that were never as long before

std::size_t BytesInUse() {
#if defined(CARAPACE_ASAN)
  return __sanitizer_get_current_allocated_bytes();
#else
  const struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
#endif
}

/// The result of a run.
struct Report {
  int games = 0;
  int won = 0;
  int lost = 0;
  std::size_t warm = 0;  ///< bytes in use at the start of the game after the warm-up
  std::size_t most = 0;  ///< at the start of a later one
  int most_outside = 0;  ///< bodies outside the walls at one time
};

void LookAtStart(int game, Report* report) {
  const std::size_t bytes = BytesInUse();
  if (game <= kWarmGames) report->warm = report->most = bytes;
  report->most = std::max(report->most, bytes);
}

/// One game, up to some time after its end, or `most` steps of it. Returns the steps.
int PlayOnce(World* world, int most, Report* report) {
  AutoPlayer player;
  int steps = 0;
  while (steps < most && player.Step()) {
    ++steps;
    report->most_outside = std::max(report->most_outside, Level00World::CountOutside());
  }
  report->won += player.HasWon() ? 1 : 0;
  report->lost += player.HasLost() ? 1 : 0;
  const int rest = std::min(most - steps, kShownEnd);
  world->Step(rest);
  return steps + rest;
}

/// Leaves the level and enters it again, with random numbers of its own.
void Restart(World* world, int game) {
  world->Send(ZOVEngine::KeyUp(ZOVEngine::kVkSpace));
  world->Step();
  world->mixer.streams.clear();  // it remembers all that were ever played
  world->Step();
  ZOVEngine::SeedRand(kSeed + static_cast<std::uint32_t>(game));
}

Report Play(const std::string& level, int steps) {
  const Quiet quiet;
  Report report;
  LevelGame game(level, kSeed);
  while (steps > 0) {
    LookAtStart(++report.games, &report);
    steps -= PlayOnce(&game.world, std::min(steps, kStepsOfAGame), &report);
    Restart(&game.world, report.games);
  }
  return report;
}

bool Soak(const std::string& level, int steps) {
  const Report report = Play(level, steps);
  std::cout << level << ": " << steps << " steps, " << report.games << " games, " << report.won
            << " won, " << report.lost << " lost\nmemory at the start of a game: " << report.warm
            << " bytes warm, then at most " << report.most << "\nbodies outside the walls: at most "
            << report.most_outside << '\n';
  if (report.most <= report.warm + kGrowth) return true;
  std::cout << "FAILED: the memory grew\n";
  return false;
}

std::uint64_t Level00AfterAMinute() {
  const Quiet quiet;
  Level00World level;
  level.world.Step(kLevel00HashSteps);
  return level.world.Hash();
}

std::string ReplayFile(const std::string& file) {
  const Quiet quiet;
  return PlayAgain(ReadGame(file));
}

bool CompareStates() {
  const std::uint64_t hash = Level00AfterAMinute();
  bool good = hash == kLevel00Hash;
  std::cout << "Level00 after " << kLevel00HashSteps << " steps: 0x" << std::hex << hash << std::dec
            << '\n';
  if (!good) std::cout << "FAILED: it should be 0x" << std::hex << kLevel00Hash << '\n';
  for (const std::string& file : RecordedGameFiles()) {
    const std::string difference = ReplayFile(file);
    if (difference.empty()) continue;
    std::cout << "FAILED: " << file << ": " << difference << '\n';
    good = false;
  }
  std::cout << std::dec << RecordedGameFiles().size() << " recorded games replayed\n";
  return good;
}

/// The table of one level, or of all that are to be won. The latter fails when one is never won, or
/// when one is won less often than a later one.
bool ComparePace(int games, const std::string& one) {
  PrintPaceHead();
  if (!one.empty()) return PrintPace(one, games) > 0;
  bool good = true;
  int before = games;
  for (const char* level : {"Level01", "Level02", "Level03", "Level04"}) {
    const int won = PrintPace(level, games);
    good = good && won > 0 && won <= before;
    before = won;
  }
  if (!good) std::cout << "FAILED: a level is never won, or less often than a later one\n";
  return good;
}

int NumberAt(int argc, char** argv, int index, int otherwise) {
  return argc > index ? std::atoi(argv[index]) : otherwise;
}

bool Run(const std::string& what, int argc, char** argv) {
  constexpr int kSteps = 12000;
  constexpr int kGames = 20;
  constexpr int kRounds = 60;
  if (what == "states") return CompareStates();
  if (what == "pace") return ComparePace(NumberAt(argc, argv, 2, kGames), argc > 3 ? argv[3] : "");
  if (what != "endings") return Soak(what, NumberAt(argc, argv, 2, kSteps));
  return argc > 2 &&
         CheckEndings(argv[2], NumberAt(argc, argv, 3, kGames), NumberAt(argc, argv, 4, kRounds));
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::cerr
        << "usage: carapace_soak LEVEL [STEPS] | states | pace [GAMES] [LEVEL] | endings LEVEL "
           "[GAMES [ROUNDS]]\n";
    return 2;
  }
  return Run(argv[1], argc, argv) ? 0 : 1;
}
