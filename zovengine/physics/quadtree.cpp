#include "physics/quadtree.h"

#include <bit>

#include "core/base/lanes.h"

namespace ZOVEngine {

const std::array<std::uint8_t, QuadTree::kNodes> QuadTree::kLevels = [] {
  std::array<std::uint8_t, kNodes> levels{};
  for (int level = 0; level <= kMaxLevels; ++level) {
    for (std::size_t i = FirstNode(level); i < FirstNode(level + 1); ++i) {
      levels[i] = static_cast<std::uint8_t>(level);
    }
  }
  return levels;
}();

const std::array<QuadTree::Leaves, QuadTree::kNodes> QuadTree::kLeaves = [] {
  std::array<Leaves, kNodes> leaves{};
  for (std::size_t node = 0; node < kNodes; ++node) {
    const int below = 2 * (kMaxLevels - kLevels[node]);
    const std::size_t place = node - FirstNode(kLevels[node]);
    leaves[node] = {static_cast<std::uint16_t>(place << below),
                    static_cast<std::uint16_t>((place + 1) << below)};
  }
  return leaves;
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

/// The field cut into the cells of the deepest level, whose borders are the midlines of all nodes.
/// Lanes are both corners of bounds: low x, low y, high x, high y. All borders are exact floats.
constexpr int kCells = 1 << QuadTree::kMaxLevels;  ///< along each axis
constexpr float kCellWidth = QuadTree::kWidth / kCells;
constexpr float kCellHeight = QuadTree::kHeight / kCells;
constexpr Lanes kField = {QuadTree::kMinX, QuadTree::kMinY, QuadTree::kMinX, QuadTree::kMinY};
constexpr Lanes kCell = {kCellWidth, kCellHeight, kCellWidth, kCellHeight};
constexpr LaneMask kHighCorner = {0, 0, -1, -1};
/// Rounded up, so that a product of an offset with it is never in a cell too low.
constexpr float kUp = 1.00001f;
constexpr Lanes kPerCell = {kUp / kCellWidth, kUp / kCellHeight, kUp / kCellWidth,
                            kUp / kCellHeight};
constexpr Lanes kFirstBorder = {1, 1, 1, 1};
constexpr Lanes kLastBorder = {kCells - 1, kCells - 1, kCells - 1, kCells - 1};

/// The cells of both corners. That of the low corner is the number of inner borders below it, that
/// of the high one the number of inner borders below it or at it.
LaneMask CornerCells(const Bounds& b) {
  const Lanes corners = {b.min_x, b.min_y, b.max_x, b.max_y};
  const Lanes at = Lesser(kLastBorder, Greater(kFirstBorder, (corners - kField) * kPerCell));
  // The last border that the corner can be beyond, and whether it is.
  const LaneMask number = __builtin_convertvector(at, LaneMask);
  const Lanes border = kField + kCell * __builtin_convertvector(number, Lanes);
  const LaneMask beyond = (border < corners) | ((border == corners) & kHighCorner);
  return number - 1 - beyond;
}

/// The bits of a cell's number with a zero before each.
constexpr auto kSpread = [] {
  std::array<std::uint16_t, kCells> spread{};
  for (unsigned cell = 0; cell < kCells; ++cell) {
    for (unsigned bit = 0; bit < QuadTree::kMaxLevels; ++bit) {
      spread[cell] = static_cast<std::uint16_t>(spread[cell] | ((cell >> bit & 1) << (2 * bit)));
    }
  }
  return spread;
}();

/// The level at which bounds stop on their path down, by the bits in which the cells of their
/// corners differ: each level decides one bit of a cell number, and where the bits of both corners
/// differ, the bounds straddle a midline.
struct Stop {
  std::uint16_t first_node;  ///< of the last level that holds them
  std::uint16_t bits_left;   ///< of the path to the deepest level
};

constexpr auto kStops = [] {
  std::array<Stop, kCells> stops{};
  for (unsigned differing = 0; differing < kCells; ++differing) {
    const auto levels_left = static_cast<int>(std::bit_width(differing));
    stops[differing] = {FirstNode(QuadTree::kMaxLevels - levels_left),
                        static_cast<std::uint16_t>(2 * levels_left)};
  }
  return stops;
}();

/// The deepest node of bounds with the low corner below the high one.
std::uint16_t DeepestRegularNode(const Bounds& b) {
  const LaneMask cells = CornerCells(b);
  const auto low_x = static_cast<unsigned>(cells[0]);
  const auto low_y = static_cast<unsigned>(cells[1]);
  const auto high_x = static_cast<unsigned>(cells[2]);
  const auto high_y = static_cast<unsigned>(cells[3]);
  const Stop stop = kStops[(low_x ^ high_x) | (low_y ^ high_y)];
  const unsigned lower_half = ~low_y & (kCells - 1);  // a bit for each level: the lower child
  const unsigned path =
      (static_cast<unsigned>(kSpread[lower_half]) << 1) | kSpread[low_x ^ lower_half];
  return static_cast<std::uint16_t>(stop.first_node + (path >> stop.bits_left));
}

/// The deepest node of any bounds, level by level.
std::uint16_t DeepestNodeByLevels(const Bounds& b) {
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
  return bounds.IsRegular() ? DeepestRegularNode(bounds) : DeepestNodeByLevels(bounds);
}

void QuadTree::Build(const std::vector<Bounds>& bounds) {
  m_nodes.resize(bounds.size());
  m_counts.fill(0);
  for (std::size_t i = 0; i < bounds.size(); ++i) {
    m_nodes[i] = DeepestNode(bounds[i]);
    ++m_counts[m_nodes[i]];
  }
  Split();
  for (std::uint16_t& node : m_nodes) node = m_holders[node];
}

/// From the counts of the deepest nodes: which nodes split, and for each node that could be, which
/// existing one holds its objects.
void QuadTree::Split() {
  constexpr std::size_t kParents = FirstNode(kMaxLevels);
  for (std::size_t node = kParents; node-- > 0;) {
    const std::int32_t* const children = &m_counts[4 * node + 1];
    m_counts[node] += children[0] + children[1] + children[2] + children[3];
  }
  m_holders[0] = 0;
  m_split[0] = m_counts[0] > kMaxObjects;
  for (std::size_t node = 0; node < kParents; ++node) {
    const bool may_split = 4 * node + 1 < kParents;
    for (std::size_t child = 4 * node + 1; child <= 4 * node + 4; ++child) {
      m_holders[child] = m_split[node] ? static_cast<std::uint16_t>(child) : m_holders[node];
      m_split[child] = m_split[node] && may_split && m_counts[child] > kMaxObjects;
    }
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
