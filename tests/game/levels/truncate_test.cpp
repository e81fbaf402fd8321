#include "game/levels/truncate.h"

#include <gtest/gtest.h>

#include <cmath>

namespace ZOVEngine {
namespace {

TEST(Truncate, FractionsAreCutTowardsZero) {
  EXPECT_EQ(Truncate(2.9f), 2);
  EXPECT_EQ(Truncate(-2.9f), -2);
  EXPECT_EQ(Truncate(0.9f), 0);
  EXPECT_EQ(Truncate(-0.9f), 0);
}

TEST(Truncate, WhatNoInt32HoldsIsItsLowestValue) {
  constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();
  EXPECT_EQ(Truncate(2147483648.0f), kLowest);
  EXPECT_EQ(Truncate(-2147483904.0f), kLowest);
  EXPECT_EQ(Truncate(INFINITY), kLowest);
  EXPECT_EQ(Truncate(NAN), kLowest);
  EXPECT_EQ(Truncate(2147483520.0f), 2147483520);
  EXPECT_EQ(Truncate(-2147483648.0f), kLowest);
}

}  // namespace
}  // namespace ZOVEngine
