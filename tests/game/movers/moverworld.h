#pragma once

#include <string>
#include <utility>
#include <vector>

#include "game/levels/tileworld.h"
#include "game/movers/pathgrid.h"

namespace carapace_test {

/// A body at the origin that carries a mover.
inline std::string MoverRecord(const std::string& name, const std::string& component) {
  return Record(name, {{"Transform", PlacedAt(0, 0, 1)},
                       {"RigidBody", R"({"m_mass": 1, "m_drag": 1})"},
                       {component, "{}"}});
}

/// A world with a window of 1280 by 720, on which the grid has 22 by 12 cells.
class GridWorld {
 public:
  ZOVEngine::PathGrid& Grid() const { return ZOVEngine::PathGrid::Shared(); }
  /// The centre of a cell.
  static ZOVEngine::Vector3D Cell(int x, int y) {
    return ZOVEngine::Vector3D(static_cast<float>(x * 60 + 30 - 640),
                               static_cast<float>(360 - y * 60 - 30), 1);
  }
  /// Builds the grid with a tile in each of these cells.
  void Build(const std::vector<std::pair<int, int>>& blocked = {}) {
    std::vector<ZOVEngine::GameObj*> tiles;
    for (const auto& [x, y] : blocked) {
      world.LoadObjects(TileAt(Cell(x, y).x, Cell(x, y).y));
      tiles.push_back(ZOVEngine::g_game_obj_factory->m_objects.back());
    }
    Grid().Build(tiles);
  }

  World world;
};

}  // namespace carapace_test
