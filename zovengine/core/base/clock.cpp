#include "core/base/clock.h"

#include <chrono>
#include <thread>

namespace ZOVEngine {

std::int64_t CounterToNanoseconds(std::int64_t counter, std::int64_t frequency) {
  constexpr std::int64_t kNanosecondsPerSecond = 1'000'000'000;
  const std::int64_t seconds = counter / frequency;
  const std::int64_t rest = counter % frequency;
  return seconds * kNanosecondsPerSecond + rest * kNanosecondsPerSecond / frequency;
}

std::int64_t NowNanoseconds() {
  using Steady = std::chrono::steady_clock;
  static_assert(Steady::period::num == 1);
  return CounterToNanoseconds(Steady::now().time_since_epoch().count(), Steady::period::den);
}

void SleepNanoseconds(std::int64_t nanoseconds) {
  std::this_thread::sleep_for(std::chrono::nanoseconds(nanoseconds));
}

}  // namespace ZOVEngine
