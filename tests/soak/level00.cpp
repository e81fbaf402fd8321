// Runs the training range for a long time without a window, and fails when its memory grows.
//   carapace_soak [STEPS]      60 steps are a second of game time; an hour is 216000
// Also compares the state after a minute with the one it must have.
#include <malloc.h>

#include <cstdlib>
#include <iostream>
#include <sstream>

#include "game/level00hash.h"
#include "game/level00world.h"

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

using carapace_test::Level00World;

constexpr int kShortest = carapace_test::kLevel00HashSteps;
constexpr int kWarmUp = 1800;   // (unit: steps)
constexpr int kLookEvery = 60;  // (unit: steps)
// Allowed after the warm-up (unit: bytes): sparks that have never flown before, of which there are
// so and so many in the pool, get their lists of forces at their first flight.
constexpr std::size_t kGrowth = 32 * 1024;

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

/// What was seen on the way.
struct Report {
  std::uint64_t hash = 0;  ///< after kLevel00HashSteps
  std::size_t warm = 0;    ///< bytes in use after the warm-up
  std::size_t last = 0;    ///< bytes in use at the end
  std::size_t most = 0;    ///< after the warm-up
  int most_outside = 0;    ///< bodies outside the walls at one time
  int outside = 0;         ///< at the end
};

void Look(const Level00World& level, int step, Report* report) {
  if (step == carapace_test::kLevel00HashSteps) report->hash = level.world.Hash();
  if (step % kLookEvery != 0) return;
  report->outside = Level00World::CountOutside();
  report->most_outside = std::max(report->most_outside, report->outside);
  report->last = BytesInUse();
  if (step <= kWarmUp) report->warm = report->most = report->last;
  report->most = std::max(report->most, report->last);
}

Report Run(int steps) {
  const Quiet quiet;
  Report report;
  Level00World level;
  for (int step = 1; step <= steps; ++step) {
    level.world.Step();
    Look(level, step, &report);
  }
  return report;
}

}  // namespace

int main(int argc, char** argv) {
  const int steps = argc > 1 ? std::max(std::atoi(argv[1]), kShortest) : kShortest;
  const Report report = Run(steps);
  std::cout << steps << " steps; state after " << carapace_test::kLevel00HashSteps << ": 0x"
            << std::hex << report.hash << std::dec << "\nmemory: " << report.warm
            << " bytes warm, at most " << report.most << ", " << report.last
            << " at the end\nbodies outside the walls: " << report.outside << ", at most "
            << report.most_outside << '\n';
  bool good = true;
  if (report.most > report.warm + kGrowth) {
    std::cout << "FAILED: the memory grew\n";
    good = false;
  }
  if (report.hash != carapace_test::kLevel00Hash) {
    std::cout << "FAILED: the state should be 0x" << std::hex << carapace_test::kLevel00Hash
              << '\n';
    good = false;
  }
  return good ? 0 : 1;
}
