// Runs levels for a long time without a window. Fails when the memory grows, and when states are
// not what they must be.
//   carapace_soak LEVEL [STEPS]      the automatic player plays; a level that is over is restarted
//   carapace_soak states             Level00 after a minute of itself, and all recorded games
// 60 steps are a second of game time.
#include <malloc.h>

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string>

#include "core/base/random.h"
#include "core/messages.h"
#include "game/level00hash.h"
#include "game/level00world.h"
#include "platform/virtualkeys.h"
#include "support/autoplayer.h"
#include "support/recordedgame.h"

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

/// Takes away what the engine prints, for its life.
class Quiet {
 public:
  Quiet() : m_before(std::cout.rdbuf(nullptr)) {}
  ~Quiet() { std::cout.rdbuf(m_before); }
  Quiet(const Quiet&) = delete;
  Quiet& operator=(const Quiet&) = delete;

 private:
  std::streambuf* m_before;
};

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
  AutoPlayer player(world);
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
  std::ifstream in(file);
  return RecordedGame::Read(in).Replay();
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

}  // namespace

int main(int argc, char** argv) {
  const std::string what = argc > 1 ? argv[1] : "";
  constexpr int kShort = 12000;
  const int steps = argc > 2 ? std::atoi(argv[2]) : kShort;
  if (what.empty() || steps <= 0) {
    std::cerr << "usage: carapace_soak LEVEL [STEPS] | carapace_soak states\n";
    return 2;
  }
  return (what == "states" ? CompareStates() : Soak(what, steps)) ? 0 : 1;
}
