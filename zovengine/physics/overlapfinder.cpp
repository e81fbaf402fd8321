#include "physics/overlapfinder.h"

#include <algorithm>
#include <cmath>

namespace ZOVEngine {
namespace {

constexpr float kSmallPerMean = 2.0f;  ///< the largest small extent to the mean one
constexpr float kSmallestCell = 8.0f;  ///< bounds the number of cells (unit: world units)
/// Makes cells a little wider than the objects in them, so that rounding cannot put two that touch
/// two cells apart.
constexpr float kSlack = 1.001f;

float ExtentOf(const Bounds& b) {
  return std::max(b.max_x - b.min_x, b.max_y - b.min_y);
}

/// The cell of a coordinate, those outside the grid counted to its border.
int CellOf(float offset, float per_unit, int count) {
  const float cell = offset * per_unit;
  if (!(cell >= 1.0f)) return 0;
  return cell < static_cast<float>(count) ? static_cast<int>(cell) : count - 1;
}

}  // namespace

std::span<const OverlapPair> OverlapFinder::Find(const std::vector<Bounds>& bounds) {
  m_count = 0;
  ChooseCells(bounds);
  File(bounds);
  MatchNeighbours();
  MatchLarge(bounds);
  MatchIrregular(bounds);
  return {m_pairs.data(), m_count};
}

void OverlapFinder::ChooseCells(const std::vector<Bounds>& bounds) {
  // No object counts for more than the field, so that one of infinite size leaves the grid of use.
  float sum = 0.0f;
  for (const Bounds& b : bounds) {
    const float extent = b.IsRegular() ? ExtentOf(b) : 0.0f;
    sum += extent < QuadTree::kWidth ? extent : QuadTree::kWidth;
  }
  const float mean = bounds.empty() ? 0.0f : sum / static_cast<float>(bounds.size());
  m_cell = kSmallestCell;
  for (const Bounds& b : bounds) {
    const float extent = ExtentOf(b);
    if (extent <= mean * kSmallPerMean && extent > m_cell) m_cell = extent;
  }
  m_per_unit = 1.0f / (m_cell * kSlack);
  m_columns = static_cast<int>(QuadTree::kWidth * m_per_unit) + 1;
  m_rows = static_cast<int>(QuadTree::kHeight * m_per_unit) + 1;
}

int OverlapFinder::Column(float x) const {
  return CellOf(x - QuadTree::kMinX, m_per_unit, m_columns);
}

int OverlapFinder::Row(float y) const {
  return CellOf(y - QuadTree::kMinY, m_per_unit, m_rows);
}

/// Sorts the small objects by cell; counting sort keeps their order within a cell.
void OverlapFinder::File(const std::vector<Bounds>& bounds) {
  m_small.clear();
  m_large.clear();
  m_irregular.clear();
  m_cells.clear();
  m_starts.assign(static_cast<std::size_t>(m_columns) * static_cast<std::size_t>(m_rows) + 1, 0);
  for (std::uint32_t i = 0; i < bounds.size(); ++i) {
    const Bounds& b = bounds[i];
    if (!b.IsRegular()) {
      m_irregular.push_back(i);
    } else if (!(ExtentOf(b) <= m_cell)) {
      m_large.push_back(i);
    } else {
      m_small.push_back(i);
      m_cells.push_back(static_cast<std::uint32_t>(Row(b.min_y) * m_columns + Column(b.min_x)));
      ++m_starts[m_cells.back()];
    }
  }
  for (std::size_t cell = 1; cell < m_starts.size(); ++cell) m_starts[cell] += m_starts[cell - 1];
  m_filed.resize(m_small.size());
  // Filled from behind, each cell's end moves down to its start.
  for (std::size_t k = m_small.size(); k-- > 0;) {
    m_filed[--m_starts[m_cells[k]]] = {bounds[m_small[k]], m_small[k], m_cells[k]};
  }
}

/// Makes room for `more` pairs.
void OverlapFinder::Reserve(std::size_t more) {
  if (m_pairs.size() < m_count + more) m_pairs.resize(2 * m_pairs.size() + more);
}

void OverlapFinder::Add(std::uint32_t a, std::uint32_t b) {
  Reserve(1);
  m_pairs[m_count++] = {std::min(a, b), std::max(a, b)};
}

void OverlapFinder::MatchRange(const Bounds& bounds, std::uint32_t index, std::uint32_t from,
                               std::uint32_t to) {
  if (from >= to) return;
  Reserve(to - from);
  for (std::uint32_t k = from; k < to; ++k) {
    // Stored in any case and counted if it is a pair: no branch that would be guessed wrong.
    const std::uint32_t other = m_filed[k].index;
    m_pairs[m_count] = {std::min(index, other), std::max(index, other)};
    m_count += bounds.Overlaps(m_filed[k].bounds) ? 1 : 0;
  }
}

/// Each small object against those behind it in its cell and the next of the row, and those in the
/// three cells around in the next row: cells of a row stand side by side in memory.
void OverlapFinder::MatchNeighbours() {
  const auto columns = static_cast<std::uint32_t>(m_columns);
  const auto cells = static_cast<std::uint32_t>(m_starts.size() - 1);
  for (std::uint32_t k = 0; k < m_filed.size(); ++k) {
    const Filed filed = m_filed[k];
    const std::uint32_t column = filed.cell % columns;
    const std::uint32_t right = column + 1 < columns ? 1 : 0;
    const std::uint32_t left = column > 0 ? 1 : 0;
    MatchRange(filed.bounds, filed.index, k + 1, m_starts[filed.cell + right + 1]);
    if (filed.cell + columns >= cells) continue;
    const std::uint32_t below = filed.cell + columns;
    MatchRange(filed.bounds, filed.index, m_starts[below - left], m_starts[below + right + 1]);
  }
}

void OverlapFinder::MatchLarge(const std::vector<Bounds>& bounds) {
  for (std::size_t i = 0; i < m_large.size(); ++i) {
    const Bounds& b = bounds[m_large[i]];
    // A small object that reaches into these bounds has its low corner at most one cell before.
    const int last_row = Row(b.max_y);
    const int first_column = std::max(Column(b.min_x) - 1, 0);
    const int last_column = Column(b.max_x);
    for (int row = std::max(Row(b.min_y) - 1, 0); row <= last_row; ++row) {
      const std::size_t line = static_cast<std::size_t>(row) * static_cast<std::size_t>(m_columns);
      MatchRange(b, m_large[i], m_starts[line + static_cast<std::size_t>(first_column)],
                 m_starts[line + static_cast<std::size_t>(last_column) + 1]);
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
