#include "core/base/clock.h"

#include <gtest/gtest.h>

#include <limits>

namespace ZOVEngine {
namespace {

constexpr std::int64_t kSecond = 1'000'000'000;

TEST(Clock, ACounterAtOneGigahertzIsItself) {
  EXPECT_EQ(CounterToNanoseconds(123'456'789'012, kSecond), 123'456'789'012);
  EXPECT_EQ(CounterToNanoseconds(0, kSecond), 0);
}

TEST(Clock, TheRemainderIsScaledApartFromTheWholeSeconds) {
  EXPECT_EQ(CounterToNanoseconds(10'000'003, 10'000'000), kSecond + 300);
  EXPECT_EQ(CounterToNanoseconds(25, 10), 2 * kSecond + kSecond / 2);
  EXPECT_EQ(CounterToNanoseconds(2, 3), 666'666'666);
}

TEST(Clock, ASleepIsNotShorterThanAsked) {
  constexpr std::int64_t kSleep = 3'000'000;
  const std::int64_t start = NowNanoseconds();
  SleepNanoseconds(kSleep);
  EXPECT_GE(NowNanoseconds() - start, kSleep);
}

TEST(Clock, YearsOfUptimeDoNotOverflow) {
  constexpr std::int64_t kFrequency = 10'000'000;
  constexpr std::int64_t kSeconds = 290LL * 365 * 24 * 3600;
  const std::int64_t counter = kSeconds * kFrequency + kFrequency - 1;
  EXPECT_EQ(CounterToNanoseconds(counter, kFrequency), kSeconds * kSecond + 999'999'900);
  // The product of such a counter and a thousand million would not have fitted.
  EXPECT_GT(counter, std::numeric_limits<std::int64_t>::max() / kSecond);
}

TEST(Clock, ALargeFrequencyDoesNotOverflow) {
  constexpr std::int64_t kFrequency = 9'000'000'000;
  EXPECT_EQ(CounterToNanoseconds(5 * kFrequency + kFrequency / 2, kFrequency),
            5 * kSecond + kSecond / 2);
}

TEST(Clock, TheMachinesClockNeverGoesBack) {
  std::int64_t last = NowNanoseconds();
  for (int i = 0; i < 10000; ++i) {
    const std::int64_t now = NowNanoseconds();
    ASSERT_GE(now, last);
    last = now;
  }
}

}  // namespace
}  // namespace ZOVEngine
