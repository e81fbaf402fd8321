#include "physics/quadtree.h"

#include <bit>

namespace ZOVEngine {

const std::array<std::uint8_t, QuadTree::kNodes> QuadTree::kLevels = [] {
  std::array<std::uint8_t, kNodes> levels{};
  for (int level = 0; level <= kMaxLevels; ++level) {
    for (std::size_t i = FirstNodeOfLevel(level); i < FirstNodeOfLevel(level + 1); ++i) {
      levels[i] = static_cast<std::uint8_t>(level);
    }
  }
  return levels;
}();

namespace {

/// The midlines and the half sizes of the node that is being looked at.
struct Cell {
  float min_x = QuadTree::kMinX;
  float min_y = QuadTree::kMinY;
  float width = QuadTree::kWidth;
  float height = QuadTree::kHeight;

  float MidX() const { return min_x + width * 0.5f; }
  float MidY() const { return min_y + height * 0.5f; }

  Cell Child(int child) const {
    Cell part{min_x, min_y, width * 0.5f, height * 0.5f};
    if (child == 1 || child == 2) part.min_x += part.width;
    if (child == 0 || child == 1) part.min_y += part.height;
    return part;
  }
};

/// The child that holds all of `b`: 0 low x and high y, 1 high x and high y, 2 high x and low y, 3
/// low x and low y, or -1 for bounds that straddle or touch a midline.
int ChildIndex(const Bounds& b, float mid_x, float mid_y) {
  const bool top = b.min_y > mid_y && b.max_y > mid_y;
  const bool bottom = b.max_y < mid_y;
  if (b.min_x < mid_x && b.max_x < mid_x) return top ? 0 : bottom ? 3 : -1;
  if (b.min_x > mid_x) return top ? 1 : bottom ? 2 : -1;
  return -1;
}

/// One axis of the field cut into the cells of the deepest level, whose borders are the midlines of
/// all nodes. All borders are exact floats.
struct Axis {
  static constexpr int kCells = 1 << QuadTree::kMaxLevels;
  float min, cell;

  float Border(int i) const { return min + cell * static_cast<float>(i); }

  /// The cell that `x` is in or next to; off by one at most.
  int Near(float x) const {
    const float at = (x - min) / cell;
    if (!(at > 0.0f)) return 0;
    return at < static_cast<float>(kCells) ? static_cast<int>(at) : kCells - 1;
  }

  /// How many inner borders are below `x`.
  int BordersBelow(float x) const {
    const int near = Near(x);
    return near + (near + 1 < kCells && Border(near + 1) < x) - (near > 0 && !(Border(near) < x));
  }

  /// How many inner borders are at `x` or below it.
  int BordersUpTo(float x) const {
    const int near = Near(x);
    return near + (near + 1 < kCells && Border(near + 1) <= x) - (near > 0 && !(Border(near) <= x));
  }
};

constexpr Axis kAxisX = {QuadTree::kMinX, QuadTree::kWidth / Axis::kCells};
constexpr Axis kAxisY = {QuadTree::kMinY, QuadTree::kHeight / Axis::kCells};

/// The bits of `x` with a zero before each.
unsigned Spread(unsigned x) {
  x = (x | (x << 4)) & 0x10F;
  x = (x | (x << 2)) & 0x133;
  return (x | (x << 1)) & 0x155;
}

/// The deepest node of bounds with the low corner below the high one, by the bits of the cells of
/// both corners: where they begin to differ, the bounds straddle a midline.
std::uint16_t DeepestOfRegular(const Bounds& b) {
  const auto low_x = static_cast<unsigned>(kAxisX.BordersBelow(b.min_x));
  const auto low_y = static_cast<unsigned>(kAxisY.BordersBelow(b.min_y));
  const auto high_x = static_cast<unsigned>(kAxisX.BordersUpTo(b.max_x));
  const auto high_y = static_cast<unsigned>(kAxisY.BordersUpTo(b.max_y));
  const auto undone = static_cast<int>(std::bit_width((low_x ^ high_x) | (low_y ^ high_y)));
  const unsigned lower_half = ~low_y & (Axis::kCells - 1);  // a bit for each level: the lower child
  const unsigned path = (Spread(lower_half) << 1) | Spread(low_x ^ lower_half);
  return static_cast<std::uint16_t>(FirstNodeOfLevel(QuadTree::kMaxLevels - undone) +
                                    (path >> (2 * undone)));
}

/// The deepest node of any bounds, level by level.
std::uint16_t DeepestByLevels(const Bounds& b) {
  Cell cell;
  std::uint16_t node = 0;
  for (int level = 0; level < QuadTree::kMaxLevels; ++level) {
    const int child = ChildIndex(b, cell.MidX(), cell.MidY());
    if (child < 0) break;
    cell = cell.Child(child);
    node = static_cast<std::uint16_t>(4 * node + 1 + child);
  }
  return node;
}

}  // namespace

std::uint16_t QuadTree::DeepestNode(const Bounds& bounds) {
  return bounds.IsRegular() ? DeepestOfRegular(bounds) : DeepestByLevels(bounds);
}

void QuadTree::Build(const std::vector<Bounds>& bounds) {
  m_nodes.clear();
  m_counts.fill(0);
  for (const Bounds& b : bounds) {
    m_nodes.push_back(DeepestNode(b));
    ++m_counts[m_nodes.back()];
  }
  Split();
  for (std::uint16_t& node : m_nodes) node = m_holders[node];
}

/// From the counts of the deepest nodes: which nodes split, and for each node that could be, which
/// existing one holds its objects.
void QuadTree::Split() {
  for (std::size_t node = kNodes - 1; node > 0; --node) m_counts[(node - 1) / 4] += m_counts[node];
  m_holders[0] = 0;
  m_split[0] = m_counts[0] > kMaxObjects;
  for (std::size_t node = 1; node < kNodes; ++node) {
    const std::size_t parent = (node - 1) / 4;
    m_holders[node] = m_split[parent] ? static_cast<std::uint16_t>(node) : m_holders[parent];
    m_split[node] = m_split[parent] && kLevels[node] < kMaxLevels && m_counts[node] > kMaxObjects;
  }
}

namespace {

using Visitor = std::function<void(const Vector3D& min, const Vector3D& max)>;

void VisitNode(const QuadTree& tree, std::uint16_t node, const Cell& cell, const Visitor& visit) {
  visit(Vector3D(cell.min_x, cell.min_y, 1.0f),
        Vector3D(cell.min_x + cell.width, cell.min_y + cell.height, 1.0f));
  if (!tree.HasChildren(node)) return;
  for (int child = 0; child < 4; ++child) {
    VisitNode(tree, static_cast<std::uint16_t>(4 * node + 1 + child), cell.Child(child), visit);
  }
}

}  // namespace

void QuadTree::ForEachNode(const Visitor& visit) const {
  VisitNode(*this, 0, Cell(), visit);
}

}  // namespace ZOVEngine
