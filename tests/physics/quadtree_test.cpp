#include "physics/quadtree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <memory>
#include <random>
#include <vector>

namespace ZOVEngine {
namespace {

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

Bounds QuadSquare(float x, float y, float half) {
  return {x - half, y - half, x + half, y + half};
}

/// A tree that is grown object by object, node by node.
struct GrownNode {
  int level = 0;
  std::uint16_t number = 0;
  float min_x = -960, min_y = -540, width = 1920, height = 1080;
  std::vector<std::size_t> objects;
  std::vector<std::unique_ptr<GrownNode>> children;

  int IndexOf(const Bounds& b) const {
    const float mid_x = min_x + width * 0.5f;
    const float mid_y = min_y + height * 0.5f;
    const bool top = b.min_y > mid_y && b.max_y > mid_y;
    const bool bottom = b.max_y < mid_y;
    if (b.min_x < mid_x && b.max_x < mid_x) {
      if (top) return 0;
      return bottom ? 3 : -1;
    }
    if (b.min_x > mid_x) {
      if (top) return 1;
      return bottom ? 2 : -1;
    }
    return -1;
  }

  void AddChildren() {
    const float w = width * 0.5f;
    const float h = height * 0.5f;
    const float corners[4][2] = {
        {min_x, min_y + h}, {min_x + w, min_y + h}, {min_x + w, min_y}, {min_x, min_y}};
    for (int i = 0; i < 4; ++i) {
      auto child = std::make_unique<GrownNode>();
      child->level = level + 1;
      child->number = static_cast<std::uint16_t>(4 * number + 1 + i);
      child->min_x = corners[i][0];
      child->min_y = corners[i][1];
      child->width = w;
      child->height = h;
      children.push_back(std::move(child));
    }
  }

  void Insert(const std::vector<Bounds>& bounds, std::size_t object) {
    const int index = IndexOf(bounds[object]);
    if (!children.empty() && index != -1) {
      children[static_cast<std::size_t>(index)]->Insert(bounds, object);
      return;
    }
    objects.push_back(object);
    if (objects.size() <= 10 || level >= 5) return;
    if (children.empty()) AddChildren();
    std::vector<std::size_t> staying;
    for (const std::size_t held : objects) {
      const int child = IndexOf(bounds[held]);
      if (child == -1) {
        staying.push_back(held);
      } else {
        children[static_cast<std::size_t>(child)]->Insert(bounds, held);
      }
    }
    objects = staying;
  }

  void Compare(const QuadTree& tree) const {
    EXPECT_EQ(tree.HasChildren(number), !children.empty()) << "node " << number;
    EXPECT_TRUE(std::is_sorted(objects.begin(), objects.end()));
    for (const std::size_t object : objects) EXPECT_EQ(tree.Node(object), number);
    for (const auto& child : children) child->Compare(tree);
  }
};

void ExpectGrown(const std::vector<Bounds>& bounds) {
  QuadTree tree;
  tree.Build(bounds);
  GrownNode root;
  for (std::size_t i = 0; i < bounds.size(); ++i) root.Insert(bounds, i);
  root.Compare(tree);
}

TEST(QuadTree, TenObjectsDoNotSplitANode) {
  QuadTree tree;
  tree.Build(std::vector<Bounds>(10, QuadSquare(100, 100, 5)));
  EXPECT_FALSE(tree.HasChildren(0));
  EXPECT_EQ(tree.Node(9), 0);
}

TEST(QuadTree, ElevenObjectsSplitANode) {
  std::vector<Bounds> bounds(10, QuadSquare(-100, 100, 5));
  bounds.push_back(QuadSquare(100, 100, 5));
  QuadTree tree;
  tree.Build(bounds);
  EXPECT_TRUE(tree.HasChildren(0));
  EXPECT_EQ(tree.Node(0), 1) << "low x, high y";
  EXPECT_EQ(tree.Node(10), 2) << "high x, high y";
  EXPECT_FALSE(tree.HasChildren(1)) << "ten went there";
}

TEST(QuadTree, TheLowerChildrenFollowFromTheRight) {
  std::vector<Bounds> bounds(9, QuadSquare(0, 0, 5));
  bounds.push_back(QuadSquare(100, -100, 5));
  bounds.push_back(QuadSquare(-100, -100, 5));
  QuadTree tree;
  tree.Build(bounds);
  EXPECT_EQ(tree.Node(9), 3) << "high x, low y";
  EXPECT_EQ(tree.Node(10), 4) << "low x, low y";
}

TEST(QuadTree, StraddlersSplitANodeAndStayInIt) {
  QuadTree tree;
  tree.Build(std::vector<Bounds>(11, QuadSquare(0, 100, 5)));
  EXPECT_TRUE(tree.HasChildren(0));
  EXPECT_EQ(tree.Node(10), 0);
}

TEST(QuadTree, NodesOfLevelFiveNeverSplit) {
  QuadTree tree;
  tree.Build(std::vector<Bounds>(500, QuadSquare(-950, 530, 1)));
  EXPECT_EQ(QuadTree::Level(tree.Node(0)), 5);
  EXPECT_FALSE(tree.HasChildren(tree.Node(0)));
}

TEST(QuadTree, IrregularBoundsThatTouchAMidlineStayAboveToo) {
  EXPECT_EQ(QuadTree::DeepestNode({300, 0, 200, 100}), 0);
  EXPECT_EQ(QuadTree::DeepestNode({0, 200, 100, 100}), 0);
  EXPECT_EQ(QuadTree::DeepestNode({300, -100, 200, 0}), 0);
  EXPECT_EQ(QuadTree::DeepestNode({-100, 100, 0, 50}), 0);
  EXPECT_NE(QuadTree::DeepestNode({300, 10, 200, 100}), 0);
}

TEST(QuadTree, AnObjectThatTouchesAMidlineStaysAbove) {
  std::vector<Bounds> bounds(11, QuadSquare(300, 300, 5));
  bounds.push_back({-10, 10, 0, 20});  // ends on the vertical midline
  bounds.push_back({0, 10, 10, 20});   // begins on it
  bounds.push_back({10, 0, 20, 10});   // begins on the horizontal one
  bounds.push_back({10, -10, 20, 0});  // ends on it
  bounds.push_back({10, 0.001f, 20, 10});
  QuadTree tree;
  tree.Build(bounds);
  for (const std::size_t i : {11u, 12u, 13u, 14u}) EXPECT_EQ(tree.Node(i), 0) << i;
  EXPECT_NE(tree.Node(15), 0) << "wholly above the midline";
}

TEST(QuadTree, OneGrownObjectByObjectIsTheSame) {
  std::mt19937 random(3);
  for (int scene = 0; scene < 300; ++scene) {
    const int count = 1 + static_cast<int>(random() % 250);
    const float field = scene % 3 == 0 ? 1200.0f : scene % 3 == 1 ? 200.0f : 30.0f;
    std::vector<Bounds> bounds;
    for (int i = 0; i < count; ++i) {
      // Whole numbers, so that some end on midlines, which all are multiples of 3.75.
      const auto whole = [&](float reach) {
        return std::floor(static_cast<float>(random() % 20001) / 10000.0f * reach - reach);
      };
      const float x = whole(field) * 1.25f;
      const float y = whole(field) * 1.25f;
      const float w = std::abs(whole(random() % 5 == 0 ? 100.0f : 8.0f));
      bounds.push_back({x, y, x + w, y + w});
    }
    ExpectGrown(bounds);
  }
}

TEST(QuadTree, BoundsThatAreNoneGoThroughTheSameComparisons) {
  std::vector<Bounds> bounds(12, QuadSquare(500, -200, 3));
  bounds.push_back({kNaN, 0, 1, 1});
  bounds.push_back({10, 10, kNaN, 20});
  bounds.push_back({20, 20, 10, 10});
  bounds.push_back({-10, 20, -20, -5});
  bounds.push_back({-kInfinity, -kInfinity, kInfinity, kInfinity});
  bounds.push_back({1e30f, 1e30f, 2e30f, 2e30f});
  bounds.push_back({-5000, -5000, -4000, -4000});
  ExpectGrown(bounds);
}

TEST(QuadTree, PathsLeadFromANodeToTheRoot) {
  EXPECT_TRUE(QuadTree::IsOnPath(0, 0));
  EXPECT_TRUE(QuadTree::IsOnPath(0, 1364));
  EXPECT_TRUE(QuadTree::IsOnPath(2, 4 * 2 + 1));
  EXPECT_FALSE(QuadTree::IsOnPath(4 * 2 + 1, 2)) << "only upwards";
  EXPECT_FALSE(QuadTree::IsOnPath(1, 2)) << "a neighbour";
  EXPECT_FALSE(QuadTree::IsOnPath(1, 4 * 2 + 1));
}

TEST(QuadTree, VisitsParentsBeforeTheirChildren) {
  QuadTree tree;
  tree.Build(std::vector<Bounds>(11, QuadSquare(0, 0, 5)));
  std::vector<Vector3D> corners;
  tree.ForEachNode([&](const Vector3D& min, const Vector3D& max) {
    corners.push_back(min);
    corners.push_back(max);
  });
  ASSERT_EQ(corners.size(), 10u);
  EXPECT_EQ(corners[0], Vector3D(-960, -540, 1));
  EXPECT_EQ(corners[1], Vector3D(960, 540, 1));
  EXPECT_EQ(corners[2], Vector3D(-960, 0, 1)) << "low x, high y";
  EXPECT_EQ(corners[3], Vector3D(0, 540, 1));
}

}  // namespace
}  // namespace ZOVEngine
