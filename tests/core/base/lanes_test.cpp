#include "core/base/lanes.h"

#include <gtest/gtest.h>

#include <limits>

namespace ZOVEngine {
namespace {

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

TEST(Lanes, AVectorComesBackFromItsLanes) {
  const Lanes lanes = ToLanes(Vector3D(1, -2, 3));
  EXPECT_EQ(lanes[3], 0.0f);
  EXPECT_EQ(ToVector(lanes), Vector3D(1, -2, 3));
}

TEST(Lanes, LesserAndGreaterDecideLaneByLane) {
  const Lanes a = {1, 5, -3, 0};
  const Lanes b = {2, 4, -3, -1};
  const Lanes least = Lesser(a, b);
  const Lanes most = Greater(a, b);
  const float expected_least[] = {1, 4, -3, -1};
  const float expected_most[] = {2, 5, -3, 0};
  for (int k = 0; k < 4; ++k) {
    EXPECT_EQ(least[k], expected_least[k]) << k;
    EXPECT_EQ(most[k], expected_most[k]) << k;
  }
}

TEST(Lanes, WhatCannotBeComparedLeavesTheSecond) {
  const Lanes numbers = {1, 1, 1, 1};
  const Lanes nans = {kNaN, kNaN, kNaN, kNaN};
  EXPECT_EQ(Lesser(nans, numbers)[0], 1.0f);
  EXPECT_EQ(Greater(nans, numbers)[0], 1.0f);
  EXPECT_TRUE(std::isnan(Lesser(numbers, nans)[0]));
  EXPECT_TRUE(std::isnan(Greater(numbers, nans)[0]));
}

TEST(Lanes, AnyIsTrueForEachSingleLane) {
  EXPECT_FALSE(Any(LaneMask{}));
  for (int k = 0; k < 4; ++k) {
    LaneMask mask = {};
    mask[k] = -1;
    EXPECT_TRUE(Any(mask)) << k;
  }
}

TEST(Lanes, EachLaneRoundsAsASingleFloat) {
  const float values[] = {0.1f, 3.3333333f, 1e-30f, 16777217.0f};
  const Lanes lanes = {values[0], values[1], values[2], values[3]};
  const Lanes result = lanes * 0.7f + lanes / 3.0f;
  for (int k = 0; k < 4; ++k) {
    const float product = values[k] * 0.7f;
    const float quotient = values[k] / 3.0f;
    EXPECT_EQ(result[k], product + quotient) << k;
  }
}

}  // namespace
}  // namespace ZOVEngine
