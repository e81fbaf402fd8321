#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "core/base/vector3d.h"

namespace ZOVEngine {

class GameObj;

/// One cell of the grid, with the values of the last search.
struct PathNode {
  float g = 0.0f;                     ///< length of the path from the start (unit: cells)
  float h = 0.0f;                     ///< estimate of the rest (unit: cells)
  float f = 0.0f;                     ///< the sum, by which the search goes
  std::vector<PathNode*> neighbours;  ///< cells that a path may go to from here
  Vector3D grid_pos;                  ///< column, row, 1
  Vector3D world_pos;                 ///< of its centre, z 1 (unit: world units)
  PathNode* parent = nullptr;
  bool closed = false;  ///< a search has expanded it
};

/// The grid of square cells over the window that all searches share.
///
/// Cells are numbered from the top left of the window. The grid belongs to the Pathfinding
/// components together: it counts them, and the destructor of the last one empties it. No level
/// builds it by itself: call Build with the tiles that block paths before the first search.
class PathGrid {
 public:
  /// The only grid of the program.
  static PathGrid& Shared();

  /// Makes the cells anew for the window's present size. A cell that a tile overlaps is no cell's
  /// neighbour; free cells have eight neighbours, but never across the corner of a blocked one.
  /// Tiles without a Transform block nothing. Positions are the tiles' world positions.
  void Build(const std::vector<GameObj*>& tiles);
  /// Deletes the cells.
  void Clear();

  /// The cell of a world position as column, row, 1. Meaningful within the window only.
  Vector3D WorldToGrid(const Vector3D& position) const;
  /// The cell at a world position, or null where there is none.
  PathNode* NodeAt(const Vector3D& position) const;
  /// True for a position within the window, edges included.
  static bool IsInWindow(const Vector3D& position);

  /// The cells by [column][row].
  std::vector<std::vector<std::unique_ptr<PathNode>>> m_nodes;
  std::int32_t m_width = 0;      ///< (unit: cells)
  std::int32_t m_height = 0;     ///< (unit: cells)
  std::int32_t m_cell_size = 0;  ///< side of a cell (unit: world units)
  bool m_built = false;
  std::int32_t m_users = 0;  ///< Pathfinding components that are alive

 private:
  PathGrid() = default;
  void MakeNodes();
  void Connect(const std::vector<std::vector<bool>>& blocked);
  std::vector<std::vector<bool>> BlockedBy(const std::vector<GameObj*>& tiles) const;
};

/// Keeps the shared grid alive and its cell size set. A copy counts as one more user.
class PathGridUse {
 public:
  PathGridUse();
  PathGridUse(const PathGridUse&) : PathGridUse() {}
  PathGridUse& operator=(const PathGridUse&) = default;
  ~PathGridUse();
};

/// The octile distance of two cells: the length of the shortest path in steps along the axes and
/// the diagonals (unit: cells).
float Heuristic(const Vector3D& a, const Vector3D& b);

}  // namespace ZOVEngine
