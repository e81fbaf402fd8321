#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "core/base/lanes.h"
#include "physics/quadtree.h"

namespace ZOVEngine {

/// Two entries of a list of bounds that overlap, the lower index first.
struct OverlapPair {
  std::uint32_t first;
  std::uint32_t second;
};

/// Finds all overlapping pairs of a list of bounds with a uniform grid.
///
/// An object is small if its extent is at most twice the mean one. The largest small extent is the
/// side of a cell, so a small object, filed by its low corner, can overlap only those in the cells
/// around its own. A large object is compared with all objects in the cells that it covers, and one
/// with irregular bounds with all objects. The grid has one empty row and one empty column more
/// than the field needs, so that every cell has neighbours. The order of the pairs has no meaning.
/// Memory is kept between calls.
class OverlapFinder {
 public:
  /// All pairs with Bounds::Overlaps; each pair once. They stay until the next call.
  std::span<const OverlapPair> Find(const std::vector<Bounds>& bounds);

 private:
  /// Bounds as max x, max y, -min x, -min y. Two bounds are apart if a lane of one is below the
  /// lane of the other's Near().
  struct Reach {
    Reach() : far{} {}
    explicit Reach(const Bounds& b) : far{b.max_x, b.max_y, -b.min_x, -b.min_y} {}
    /// The ends that face those of another: min x, min y, -max x, -max y.
    Lanes Near() const { return -__builtin_shufflevector(far, far, 2, 3, 0, 1); }

    Lanes far;
  };
  /// A small object in the order of its cell.
  struct Filed {
    Reach reach;
    std::uint32_t index;
    std::uint32_t cell;
  };

  /// The cells of the field. Loops use a copy, so that the compiler can keep it in registers.
  struct Grid {
    int Column(float x) const;
    int Row(float y) const;
    /// The number of a cell. The one empty column serves both sides: it also precedes the next row.
    std::uint32_t Cell(int row, int column) const {
      return static_cast<std::uint32_t>(row * (columns + 1) + column);
    }

    float side = 1.0f;  ///< of a cell (unit: world units)
    float per_unit = 1.0f;
    int columns = 1;  ///< without the empty one
    int rows = 1;     ///< without the empty one
  };

  void ChooseGrid(const std::vector<Bounds>& bounds);
  void CountCells(const std::vector<Bounds>& bounds);
  void File(const std::vector<Bounds>& bounds);
  void MatchNeighbours();
  void MatchLarge(const std::vector<Bounds>& bounds);
  void MatchIrregular(const std::vector<Bounds>& bounds);
  OverlapPair* MatchRange(const Lanes& near, std::uint32_t index, std::uint32_t from,
                          std::uint32_t to, OverlapPair* out) const;
  /// Makes room for `more` pairs and returns the place of the first.
  OverlapPair* RoomFor(std::size_t more) {
    if (m_pairs.size() < m_count + more) Grow(more);
    return m_pairs.data() + m_count;
  }
  void Grow(std::size_t more);
  /// Counts the pairs up to `end`, which are stored.
  void EndAt(const OverlapPair* end) { m_count = static_cast<std::size_t>(end - m_pairs.data()); }
  void Add(std::uint32_t a, std::uint32_t b);

  Grid m_grid;
  std::vector<std::uint32_t> m_starts;  ///< of each cell in m_filed, and the end
  std::vector<std::uint32_t> m_cells;   ///< of each object, or kNotFiled
  std::vector<std::uint32_t> m_large, m_irregular;
  std::vector<Filed> m_filed;
  std::vector<OverlapPair> m_pairs;  ///< the first m_count are in use
  std::size_t m_count = 0;
};

}  // namespace ZOVEngine
