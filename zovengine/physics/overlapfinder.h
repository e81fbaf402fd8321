#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "physics/quadtree.h"

namespace ZOVEngine {

/// Two entries of a list of bounds that overlap, the lower index first.
struct OverlapPair {
  std::uint32_t first;
  std::uint32_t second;
};

/// Finds all overlapping pairs of a list of bounds with a uniform grid.
///
/// Small is what has at most twice the mean extent; the side of a cell is the largest extent of
/// these, so that a small object, filed by its low corner, meets only those in the cells around it.
/// What is larger looks through all cells that it covers; irregular bounds are compared with all.
/// The order of the pairs says nothing. Memory is kept between calls.
class OverlapFinder {
 public:
  /// All pairs with Bounds::Overlaps; each pair once. They stay until the next call.
  std::span<const OverlapPair> Find(const std::vector<Bounds>& bounds);

 private:
  /// A small object in the order of its cell.
  struct Filed {
    Bounds bounds;
    std::uint32_t index;
    std::uint32_t cell;
  };

  void ChooseCells(const std::vector<Bounds>& bounds);
  void File(const std::vector<Bounds>& bounds);
  void MatchNeighbours();
  void MatchLarge(const std::vector<Bounds>& bounds);
  void MatchIrregular(const std::vector<Bounds>& bounds);
  void MatchRange(const Bounds& bounds, std::uint32_t index, std::uint32_t from, std::uint32_t to);
  void Reserve(std::size_t more);
  void Add(std::uint32_t a, std::uint32_t b);
  int Column(float x) const;
  int Row(float y) const;

  float m_cell = 1.0f;  ///< side of a cell (unit: world units)
  float m_per_unit = 1.0f;
  int m_columns = 1;
  int m_rows = 1;
  std::vector<std::uint32_t> m_starts;  ///< of each cell in m_filed, and the end
  std::vector<std::uint32_t> m_cells;   ///< of each small object
  std::vector<std::uint32_t> m_small, m_large, m_irregular;
  std::vector<Filed> m_filed;
  std::vector<OverlapPair> m_pairs;  ///< the first m_count are in use
  std::size_t m_count = 0;
};

}  // namespace ZOVEngine
