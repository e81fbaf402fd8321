#include "physics/overlapfinder.h"

#include <algorithm>
#include <cmath>

namespace ZOVEngine {
namespace {

constexpr float kSmallPerMean = 2.0f;  ///< the largest small extent to the mean one
constexpr float kSmallestCell = 8.0f;  ///< bounds the number of cells (unit: world units)
/// Makes cells slightly wider than the largest small object, so that rounding cannot put two
/// touching objects two cells apart.
constexpr float kSlack = 1.001f;

constexpr std::uint32_t kNotFiled = ~std::uint32_t{0};  ///< the cell of an object that is not small

float Extent(const Bounds& b) {
  return std::max(b.max_x - b.min_x, b.max_y - b.min_y);
}

/// The cell of a coordinate, those outside the grid counted to its border.
int NearestCell(float offset, float per_unit, int count) {
  const float cell = offset * per_unit;
  const float last = static_cast<float>(count - 1);
  const float not_below = cell > 0.0f ? cell : 0.0f;
  return static_cast<int>(not_below < last ? not_below : last);
}

}  // namespace

std::span<const OverlapPair> OverlapFinder::Find(const std::vector<Bounds>& bounds) {
  m_count = 0;
  ChooseGrid(bounds);
  CountCells(bounds);
  File(bounds);
  MatchNeighbours();
  MatchLarge(bounds);
  MatchIrregular(bounds);
  return {m_pairs.data(), m_count};
}

void OverlapFinder::ChooseGrid(const std::vector<Bounds>& bounds) {
  // No object counts for more than the field, so that one of infinite size does not spoil the grid.
  float sum = 0.0f;
  for (const Bounds& b : bounds) {
    const float extent = b.IsRegular() ? Extent(b) : 0.0f;
    sum += extent < QuadTree::kWidth ? extent : QuadTree::kWidth;
  }
  const float mean = bounds.empty() ? 0.0f : sum / static_cast<float>(bounds.size());
  const float largest_small = mean * kSmallPerMean;
  float side = kSmallestCell;
  for (const Bounds& b : bounds) {
    const float extent = Extent(b);
    if (extent <= largest_small && extent > side) side = extent;
  }
  m_grid.side = side;
  m_grid.per_unit = 1.0f / (side * kSlack);
  m_grid.columns = static_cast<int>(QuadTree::kWidth * m_grid.per_unit) + 1;
  m_grid.rows = static_cast<int>(QuadTree::kHeight * m_grid.per_unit) + 1;
}

int OverlapFinder::Grid::Column(float x) const {
  return NearestCell(x - QuadTree::kMinX, per_unit, columns);
}

int OverlapFinder::Grid::Row(float y) const {
  return NearestCell(y - QuadTree::kMinY, per_unit, rows);
}

/// Finds the cell of each small object and counts the objects of each cell.
void OverlapFinder::CountCells(const std::vector<Bounds>& bounds) {
  const Grid grid = m_grid;
  m_large.clear();
  m_irregular.clear();
  m_cells.resize(bounds.size());
  m_starts.assign(grid.Cell(grid.rows + 1, 1), 0);
  for (std::uint32_t i = 0; i < bounds.size(); ++i) {
    const Bounds b = bounds[i];
    std::uint32_t cell = kNotFiled;
    if (!b.IsRegular()) {
      m_irregular.push_back(i);
    } else if (!(Extent(b) <= grid.side)) {
      m_large.push_back(i);
    } else {
      cell = grid.Cell(grid.Row(b.min_y), grid.Column(b.min_x));
      ++m_starts[cell];
    }
    m_cells[i] = cell;
  }
}

/// Sorts the small objects by cell, a counting sort.
void OverlapFinder::File(const std::vector<Bounds>& bounds) {
  std::uint32_t end = 0;
  for (std::uint32_t& start : m_starts) start = end += start;
  m_filed.resize(end);
  // Each cell's end moves down to its start.
  for (std::uint32_t i = 0; i < bounds.size(); ++i) {
    const std::uint32_t cell = m_cells[i];
    if (cell != kNotFiled) m_filed[--m_starts[cell]] = {Reach(bounds[i]), i, cell};
  }
}

void OverlapFinder::Grow(std::size_t more) {
  m_pairs.resize(2 * m_pairs.size() + more);
}

void OverlapFinder::Add(std::uint32_t a, std::uint32_t b) {
  *RoomFor(1) = {std::min(a, b), std::max(a, b)};
  ++m_count;
}

/// Stores at `out` the pairs of an object with the small ones from `from` up to `to` that overlap
/// it, and returns the end. There is room for all of them.
OverlapPair* OverlapFinder::MatchRange(const Lanes& near, std::uint32_t index, std::uint32_t from,
                                       std::uint32_t to, OverlapPair* out) const {
  for (std::uint32_t k = from; k < to; ++k) {
    // No branch to mispredict: every pair is stored and only an overlapping one counted, and the
    // higher index is what the lower one leaves of their sum.
    const Filed& filed = m_filed[k];
    const std::uint32_t lower = std::min(index, filed.index);
    *out = {lower, index + filed.index - lower};
    out += Any(filed.reach.far < near) ? 0 : 1;
  }
  return out;
}

/// Each small object against those behind it in its cell and the next of the row, and those in the
/// three cells around in the next row: cells of a row stand side by side in memory.
void OverlapFinder::MatchNeighbours() {
  const std::uint32_t next_row = m_grid.Cell(1, 0);
  const auto count = static_cast<std::uint32_t>(m_filed.size());
  for (std::uint32_t k = 0; k < count; ++k) {
    const Filed& filed = m_filed[k];
    const Lanes near = filed.reach.Near();
    const std::uint32_t* const here = &m_starts[filed.cell];
    const std::uint32_t* const below = here + next_row;
    OverlapPair* out = RoomFor(here[2] - (k + 1) + below[2] - below[-1]);
    out = MatchRange(near, filed.index, k + 1, here[2], out);
    out = MatchRange(near, filed.index, below[-1], below[2], out);
    EndAt(out);
  }
}

void OverlapFinder::MatchLarge(const std::vector<Bounds>& bounds) {
  for (std::size_t i = 0; i < m_large.size(); ++i) {
    const Bounds& b = bounds[m_large[i]];
    const Lanes near = Reach(b).Near();
    // A small object that reaches into these bounds has its low corner at most one cell before.
    const int last_row = m_grid.Row(b.max_y);
    const int first_column = std::max(m_grid.Column(b.min_x) - 1, 0);
    const int last_column = m_grid.Column(b.max_x);
    for (int row = std::max(m_grid.Row(b.min_y) - 1, 0); row <= last_row; ++row) {
      const std::uint32_t from = m_starts[m_grid.Cell(row, first_column)];
      const std::uint32_t to = m_starts[m_grid.Cell(row, last_column + 1)];
      EndAt(MatchRange(near, m_large[i], from, to, RoomFor(to - from)));
    }
    for (std::size_t k = i + 1; k < m_large.size(); ++k) {
      if (b.Overlaps(bounds[m_large[k]])) Add(m_large[i], m_large[k]);
    }
  }
}

void OverlapFinder::MatchIrregular(const std::vector<Bounds>& bounds) {
  for (const std::uint32_t i : m_irregular) {
    for (std::uint32_t other = 0; other < bounds.size(); ++other) {
      // Two irregular ones meet once: from the lower index.
      if (other == i || (other < i && !bounds[other].IsRegular())) continue;
      if (bounds[i].Overlaps(bounds[other])) Add(i, other);
    }
  }
}

}  // namespace ZOVEngine
