#include "physics/overlapfinder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <set>
#include <utility>
#include <vector>

namespace ZOVEngine {
namespace {

using PairSet = std::set<std::pair<std::uint32_t, std::uint32_t>>;

/// Every pair against every other.
PairSet AllPairs(const std::vector<Bounds>& bounds) {
  PairSet pairs;
  for (std::uint32_t i = 0; i < bounds.size(); ++i) {
    for (std::uint32_t k = i + 1; k < bounds.size(); ++k) {
      if (bounds[i].Overlaps(bounds[k])) pairs.insert({i, k});
    }
  }
  return pairs;
}

void ExpectAllPairs(OverlapFinder* finder, const std::vector<Bounds>& bounds) {
  PairSet found;
  for (const OverlapPair& pair : finder->Find(bounds)) {
    EXPECT_LT(pair.first, pair.second);
    EXPECT_TRUE(found.insert({pair.first, pair.second}).second) << "a pair twice";
  }
  EXPECT_EQ(found, AllPairs(bounds));
}

class Scenes {
 public:
  float Between(float low, float high) {
    return low + (high - low) * static_cast<float>(m_random() % 100001) / 100000.0f;
  }
  Bounds Box(float reach_x, float reach_y, float largest) {
    const float x = Between(-reach_x, reach_x);
    const float y = Between(-reach_y, reach_y);
    return {x, y, x + Between(0, largest), y + Between(0, largest)};
  }
  /// Several ranges of sizes and places, some of them outside the field.
  std::vector<Bounds> Scene(int number) {
    std::vector<Bounds> bounds;
    const int count = 2 + static_cast<int>(m_random() % 200);
    for (int i = 0; i < count; ++i) {
      const bool big = number % 4 != 0 && i % 17 == 0;
      bounds.push_back(
          Box(number % 2 ? 960.0f : 2500.0f, number % 3 ? 540.0f : 40.0f, big ? 900.0f : 20.0f));
    }
    return bounds;
  }

 private:
  std::mt19937 m_random{11};
};

TEST(OverlapFinder, NothingOverlapsInAnEmptyList) {
  OverlapFinder finder;
  EXPECT_TRUE(finder.Find({}).empty());
}

TEST(OverlapFinder, TouchingBoundsAreAPair) {
  OverlapFinder finder;
  ExpectAllPairs(&finder, {{0, 0, 10, 10}, {10, 10, 20, 20}, {20.001f, 0, 30, 30}});
  EXPECT_EQ(finder.Find(std::vector<Bounds>{{0, 0, 10, 10}, {10, 10, 20, 20}}).size(), 1u);
}

TEST(OverlapFinder, FindsWhatComparingAllWithAllFinds) {
  Scenes scenes;
  OverlapFinder finder;
  for (int number = 0; number < 200; ++number) ExpectAllPairs(&finder, scenes.Scene(number));
}

TEST(OverlapFinder, EqualBoxesSideBySideTouchAcrossCells) {
  std::vector<Bounds> bounds;
  for (int row = 0; row < 12; ++row) {
    for (int column = 0; column < 12; ++column) {
      const float x = 8.1f * static_cast<float>(column) - 50.0f;
      const float y = 8.1f * static_cast<float>(row) - 50.0f;
      bounds.push_back({x, y, 8.1f * static_cast<float>(column + 1) - 50.0f,
                        8.1f * static_cast<float>(row + 1) - 50.0f});
    }
  }
  OverlapFinder finder;
  ExpectAllPairs(&finder, bounds);
}

TEST(OverlapFinder, BoundsThatAreNoneArePairedByTheSameComparison) {
  const float nan = std::numeric_limits<float>::quiet_NaN();
  const float infinity = std::numeric_limits<float>::infinity();
  Scenes scenes;
  std::vector<Bounds> bounds = scenes.Scene(1);
  bounds.push_back({nan, 0, 10, 10});
  bounds.push_back({nan, nan, nan, nan});
  bounds.push_back({10, 10, -10, -10});
  bounds.push_back({-infinity, -infinity, infinity, infinity});
  bounds.push_back({1e38f, 1e38f, infinity, infinity});
  bounds.push_back({-3e38f, -3e38f, 3e38f, 3e38f});
  OverlapFinder finder;
  ExpectAllPairs(&finder, bounds);
}

}  // namespace
}  // namespace ZOVEngine
