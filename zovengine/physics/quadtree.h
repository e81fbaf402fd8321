#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <vector>

#include "core/base/vector3d.h"

namespace ZOVEngine {

/// The bounds of a shape in the plane (unit: world units).
struct Bounds {
  float min_x, min_y, max_x, max_y;

  /// False if the low corner is above the high one or a coordinate is not a number.
  bool IsRegular() const { return min_x <= max_x && min_y <= max_y; }
  /// True unless the two are strictly apart in x or y: touching bounds overlap, and so do bounds
  /// with coordinates that are not numbers.
  bool Overlaps(const Bounds& b) const {
    // Without branches: a processor could not predict them for neighbours.
    const bool apart_x = (b.max_x < min_x) | (max_x < b.min_x);
    const bool apart_y = (b.max_y < min_y) | (max_y < b.min_y);
    return !(apart_x | apart_y);
  }
};

/// The number of nodes above a level of a full tree of fours, which is the level's first node.
constexpr std::uint16_t FirstNode(int level) {
  return static_cast<std::uint16_t>(((1 << (2 * level)) - 1) / 3);
}

/// The tree over the visible field that decides which pairs of shapes are tested, in which order,
/// and which shape of a pair is A.
///
/// A node of more than kMaxObjects objects splits into four, down to level kMaxLevels; an object
/// that straddles a midline stays where it straddles. Objects outside the field go through the same
/// comparisons. A node splits as soon as one object too many has entered it, and keeps its objects
/// in the order of insertion; so counting the objects of each node gives the same tree as inserting
/// them one by one. Every possible node has a number: the root 0, then level by level, children of
/// one node side by side.
class QuadTree {
 public:
  static constexpr int kMaxLevels = 5;    ///< nodes at this level never split
  static constexpr int kMaxObjects = 10;  ///< of a node that has not split
  static constexpr float kMinX = -960.0f, kMinY = -540.0f;
  static constexpr float kWidth = 1920.0f, kHeight = 1080.0f;

  /// Builds the tree over all `bounds`.
  void Build(const std::vector<Bounds>& bounds);

  /// The node in which `bounds` would stand if all nodes had children.
  static std::uint16_t DeepestNode(const Bounds& bounds);
  /// The node that holds object `i` of the last Build.
  std::uint16_t Node(std::size_t i) const { return m_nodes[i]; }
  /// The level of a node, the root's being 0.
  static int Level(std::uint16_t node) { return kLevels[node]; }
  /// True if `upper` is `node` itself or on its path to the root.
  static bool IsOnPath(std::uint16_t upper, std::uint16_t node) {
    // Without branches: a processor could not predict them for neighbours.
    const Leaves above = kLeaves[upper];
    const Leaves below = kLeaves[node];
    return (above.first <= below.first) & (below.end <= above.end);
  }
  bool HasChildren(std::uint16_t node) const { return m_split[node]; }

  /// Calls `visit` with the corners of every node, each parent before its children.
  void ForEachNode(
      const std::function<void(const Vector3D& min, const Vector3D& max)>& visit) const;

 private:
  static constexpr std::size_t kNodes = FirstNode(kMaxLevels + 1);
  /// The range of nodes of the deepest level below a node, counted from that level's first.
  struct Leaves {
    std::uint16_t first, end;
  };
  static const std::array<std::uint8_t, kNodes> kLevels;
  static const std::array<Leaves, kNodes> kLeaves;

  void Split();

  std::vector<std::uint16_t> m_nodes;
  std::array<std::int32_t, kNodes> m_counts{};  ///< objects in a node or below it
  std::array<bool, kNodes> m_split{};
  std::array<std::uint16_t, kNodes>
      m_holders{};  ///< for each possible node: the existing one that holds its objects
};

}  // namespace ZOVEngine
