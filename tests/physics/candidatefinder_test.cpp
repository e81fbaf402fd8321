#include "physics/candidatefinder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace ZOVEngine {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

Bounds Square(float x, float y, float half) {
  return {x - half, y - half, x + half, y + half};
}

struct Entry {
  Bounds bounds;
  std::int32_t mask = 1;
  bool has_body = true;
};

/// The candidates of a step over `entries`, as "A-B".
std::vector<std::string> Names(CandidateFinder* finder, const std::vector<Entry>& entries) {
  finder->Clear();
  for (const Entry& entry : entries) finder->Add(entry.bounds, entry.mask, entry.has_body);
  finder->BuildTree();
  std::vector<std::string> names;
  for (const Candidate& candidate : finder->Find()) {
    EXPECT_LT(candidate.pair, finder->PairCount());
    names.push_back(std::to_string(candidate.a) + "-" + std::to_string(candidate.b));
  }
  return names;
}

std::vector<std::string> Names(const std::vector<Entry>& entries) {
  CandidateFinder finder;
  return Names(&finder, entries);
}

/// Ten shapes that split the root and are apart from each other and from all others.
std::vector<Entry> Crowd() {
  std::vector<Entry> crowd;
  for (int i = 0; i < 10; ++i) {
    crowd.push_back({Square(-900.0f + 40.0f * static_cast<float>(i), -500, 5)});
  }
  return crowd;
}

TEST(CandidateFinder, TwoShapesOfOneNodeAreDueFromBothSides) {
  EXPECT_THAT(Names({{Square(0, 0, 5)}, {Square(3, 0, 5)}}), ElementsAre("0-1", "1-0"));
}

TEST(CandidateFinder, BothSidesOfAPairHaveItsNumber) {
  CandidateFinder finder;
  Names(&finder, {{Square(0, 0, 5)}, {Square(3, 0, 5)}, {Square(500, 0, 5)}, {Square(503, 0, 5)}});
  const auto candidates = finder.Find();
  ASSERT_EQ(candidates.size(), 4u);
  EXPECT_EQ(finder.PairCount(), 2u);
  EXPECT_EQ(candidates[0].pair, candidates[1].pair);
  EXPECT_EQ(candidates[2].pair, candidates[3].pair);
  EXPECT_NE(candidates[0].pair, candidates[2].pair);
}

TEST(CandidateFinder, OfTwoNodesAboveEachOtherTheDeeperShapeIsA) {
  std::vector<Entry> entries = Crowd();
  entries.push_back({Square(0, 0, 50)});    // 10, across both midlines of the root
  entries.push_back({Square(45, 45, 10)});  // 11, in a child
  EXPECT_THAT(Names(entries), ElementsAre("11-10"));
}

TEST(CandidateFinder, ADeeperNodeGoesFirstAndThenTheOrderOfAddition) {
  std::vector<Entry> entries = Crowd();
  entries.push_back({Square(0, 0, 60)});    // 10, at the root
  entries.push_back({Square(40, 40, 10)});  // 11, in a child
  entries.push_back({Square(45, 40, 10)});  // 12, there too
  entries.push_back({Square(0, 20, 60)});   // 13, at the root
  EXPECT_THAT(Names(entries),
              ElementsAre("10-13", "11-12", "11-10", "11-13", "12-11", "12-10", "12-13", "13-10"));
}

TEST(CandidateFinder, WhatCannotTouchIsLeftOut) {
  EXPECT_THAT(Names({{Square(0, 0, 5)}, {Square(11, 0, 5)}}), IsEmpty()) << "apart";
  EXPECT_THAT(Names({{Square(0, 0, 5), 1}, {Square(3, 0, 5), 2}}), IsEmpty()) << "by their masks";
  EXPECT_THAT(Names({{Square(0, 0, 5), 1, false}, {Square(3, 0, 5), 1, false}}), IsEmpty())
      << "without a body";
}

TEST(CandidateFinder, OneCommonBitAndOneBodyAreEnough) {
  EXPECT_THAT(Names({{Square(0, 0, 5), 6, false}, {Square(3, 0, 5), 3, true}}),
              ElementsAre("0-1", "1-0"));
}

TEST(CandidateFinder, ANewStepForgetsTheOneBefore) {
  CandidateFinder finder;
  Names(&finder, {{Square(0, 0, 5)}, {Square(3, 0, 5)}});
  EXPECT_THAT(Names(&finder, {{Square(0, 0, 5)}}), IsEmpty());
  EXPECT_EQ(finder.PairCount(), 0u);
}

TEST(CandidateFinder, EverMeetLooksAtNodesAndBodiesAlone) {
  CandidateFinder finder;
  std::vector<Entry> entries = Crowd();
  entries.push_back({Square(0, 0, 5), 0, false});      // 10, at the root
  entries.push_back({Square(900, 500, 5), 0, true});   // 11, in the child of high x and high y
  entries.push_back({Square(-900, 500, 5), 1, true});  // 12, in that of low x and high y
  entries.push_back({Square(0, 100, 5), 1, false});    // 13, at the root
  Names(&finder, entries);
  EXPECT_TRUE(finder.EverMeet(10, 11));
  EXPECT_TRUE(finder.EverMeet(11, 10));
  EXPECT_FALSE(finder.EverMeet(11, 12)) << "in neighbouring nodes";
  EXPECT_FALSE(finder.EverMeet(10, 13)) << "without a body";
}

/// What walking the tree for each shape finds, with the list of a node in the order of addition.
std::vector<std::string> WalkedNames(const std::vector<Entry>& entries, const QuadTree& tree) {
  std::vector<std::string> names;
  for (std::size_t a = 0; a < entries.size(); ++a) {
    for (int level = QuadTree::Level(tree.Node(a)); level >= 0; --level) {
      for (std::size_t b = 0; b < entries.size(); ++b) {
        const std::uint16_t node = tree.Node(b);
        if (b == a || QuadTree::Level(node) != level) continue;
        if (!QuadTree::IsOnPath(node, tree.Node(a))) continue;
        if (!entries[a].has_body && !entries[b].has_body) continue;
        if ((entries[a].mask & entries[b].mask) == 0) continue;
        if (!entries[a].bounds.Overlaps(entries[b].bounds)) continue;
        names.push_back(std::to_string(a) + "-" + std::to_string(b));
      }
    }
  }
  return names;
}

TEST(CandidateFinder, RandomShapesComeInTheOrderOfTheWalk) {
  std::mt19937 random(5);
  const auto between = [&](float low, float high) {
    return low + (high - low) * static_cast<float>(random() % 10001) / 10000.0f;
  };
  CandidateFinder finder;
  std::size_t candidates = 0;
  for (int scene = 0; scene < 60; ++scene) {
    std::vector<Entry> entries;
    const float reach = scene % 2 == 0 ? 120.0f : 900.0f;
    const int count = 2 + static_cast<int>(random() % 150);
    for (int i = 0; i < count; ++i) {
      const float half = random() % 20 == 0 ? 200.0f : between(2, 20);
      entries.push_back({Square(between(-reach, reach), between(-reach, reach), half),
                         static_cast<std::int32_t>(random() % 4), random() % 3 != 0});
    }
    const std::vector<std::string> names = Names(&finder, entries);
    candidates += names.size();
    ASSERT_EQ(names, WalkedNames(entries, finder.Tree())) << "scene " << scene;
  }
  EXPECT_GT(candidates, 1000u);
}

}  // namespace
}  // namespace ZOVEngine
