#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "render/frame.h"
#include "render/gl/gllights.h"

namespace ZOVEngine {

/// The box of a quad that is not turned.
WorldBox Bounds(const Placement& upright);

/// The order in which the planner takes a frame's commands: their own, but for tiles.
///
/// Tiles are lit upright quads of one size that follow each other and lie on one lattice, so that
/// two of them share a cell or do not overlap. They are sorted by the number of lights that reach
/// them, which leaves every pixel as it is: those of one cell are reached by the same lights and
/// keep their order.
class TileOrder {
 public:
  /// Makes the order for `commands`, in which the first `ground` stay the first; `lights` are those
  /// of the lit program.
  void Build(const std::vector<DrawCommand>& commands, std::size_t ground,
             const LightField& lights);

  /// Positions of the commands.
  const std::vector<std::uint32_t>& Order() const { return m_order; }

 private:
  void SortTiles(const std::vector<DrawCommand>& commands, std::size_t first, std::size_t end,
                 const LightField& lights);
  void Sort(const std::vector<DrawCommand>& commands, std::size_t first, std::size_t end,
            const LightField& lights);

  std::vector<std::uint32_t> m_order;
  std::vector<LightClass> m_classes;  ///< by position
};

}  // namespace ZOVEngine
