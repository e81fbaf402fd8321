#include "core/base/prefetch.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace ZOVEngine {
namespace {

TEST(Prefetch, LeavesTheMemoryAsItIs) {
  int numbers[64] = {};
  for (int i = 0; i < 64; ++i) {
    numbers[i] = i;
    Prefetch(&numbers[i]);
  }
  for (int i = 0; i < 64; ++i) EXPECT_EQ(numbers[i], i);
}

TEST(PrefetchDeathTest, TakesAnAddressThatIsNotValid) {
  EXPECT_EXIT(
      {
        Prefetch(nullptr);
        std::_Exit(0);
      },
      ::testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace ZOVEngine
