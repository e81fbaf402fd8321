#include "physics/quadtree.h"

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

}  // namespace

std::uint16_t QuadTree::ChildOf(std::uint16_t node, int child) {
  return static_cast<std::uint16_t>(4 * node + 1 + child);
}

std::uint16_t QuadTree::DeepestNode(const Bounds& bounds) {
  Cell cell;
  std::uint16_t node = 0;
  for (int level = 0; level < kMaxLevels; ++level) {
    const int child = ChildIndex(bounds, cell.MidX(), cell.MidY());
    if (child < 0) break;
    cell = cell.Child(child);
    node = ChildOf(node, child);
  }
  return node;
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
