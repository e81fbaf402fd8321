#include "game/movers/pathgrid.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "game/movers/moverworld.h"
#include "game/movers/pathfinding.h"
#include "platform/windowsystem.h"

namespace ZOVEngine {
namespace {

using carapace_test::GridWorld;
using carapace_test::MoverRecord;
using carapace_test::Record;
using carapace_test::TileAt;
using carapace_test::TransformOf;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class PathGridTest : public GridWorld, public ::testing::Test {};

TEST_F(PathGridTest, TheGridLivesAsLongAsItsLastUser) {
  world.LoadObjects(MoverRecord("seeker", "Pathfinding"));
  EXPECT_EQ(Grid().m_users, 1);
  EXPECT_EQ(Grid().m_cell_size, 60);
  Build();
  {
    const Pathfinding second(nullptr);
    const Pathfinding copy(second);
    EXPECT_EQ(Grid().m_users, 3);
  }
  EXPECT_TRUE(Grid().m_built);
  g_game_obj_factory->ClearObjects();
  EXPECT_EQ(Grid().m_users, 0);
  EXPECT_FALSE(Grid().m_built);
  EXPECT_THAT(Grid().m_nodes, IsEmpty());
}

TEST_F(PathGridTest, WorldPositionsHaveCellsFromTheTopLeft) {
  EXPECT_EQ(Grid().WorldToGrid({-640, 360, 1}), Vector3D(0, 0, 1));
  EXPECT_EQ(Grid().WorldToGrid({-581, 301, 1}), Vector3D(0, 0, 1));
  EXPECT_EQ(Grid().WorldToGrid({-580, 300, 1}), Vector3D(1, 1, 1));
  EXPECT_EQ(Grid().WorldToGrid({0, 0, 7}), Vector3D(10, 6, 1));
}

TEST_F(PathGridTest, HalfOfAnOddWindowSizeIsCutToAWholeNumber) {
  g_window_system->m_size = Vector3D(1281, 721, 1);
  EXPECT_EQ(Grid().WorldToGrid({-640, 360, 1}), Vector3D(0, 0, 1));
  EXPECT_EQ(Grid().WorldToGrid({-580.25f, 300.25f, 1}), Vector3D(0, 0, 1));
  EXPECT_EQ(Grid().WorldToGrid({-580, 300, 1}), Vector3D(1, 1, 1));
  EXPECT_TRUE(PathGrid::IsInWindow({640, -360, 1}));
  EXPECT_FALSE(PathGrid::IsInWindow({640.25f, 0, 1}));
  EXPECT_FALSE(PathGrid::IsInWindow({0, -360.25f, 1}));
  Build();
  EXPECT_EQ(Grid().m_nodes[0][0]->world_pos, Cell(0, 0));
}

TEST_F(PathGridTest, AGridCoversTheWindow) {
  Build();
  EXPECT_EQ(Grid().m_width, 22);
  EXPECT_EQ(Grid().m_height, 12);
  EXPECT_EQ(Grid().m_nodes[3][2]->world_pos, Cell(3, 2));
  EXPECT_EQ(Grid().m_nodes[3][2]->grid_pos, Vector3D(3, 2, 1));
  EXPECT_EQ(Grid().NodeAt(Cell(3, 2)), Grid().m_nodes[3][2].get());
  EXPECT_EQ(Grid().NodeAt({641, 0, 1}), nullptr);
  EXPECT_EQ(Grid().NodeAt({0, -361, 1}), nullptr);
  EXPECT_EQ(Grid().NodeAt({NAN, 0, 1}), nullptr);
}

TEST_F(PathGridTest, FreeCellsHaveEightNeighboursAndFewerAtTheEdges) {
  Build();
  EXPECT_THAT(Grid().m_nodes[5][5]->neighbours, SizeIs(8));
  EXPECT_THAT(Grid().m_nodes[0][5]->neighbours, SizeIs(5));
  EXPECT_THAT(Grid().m_nodes[0][0]->neighbours, SizeIs(3));
}

TEST_F(PathGridTest, ACellWithATileIsNobodysNeighbourAndIsNotPassedAcrossItsCorner) {
  Build({{5, 5}});
  EXPECT_THAT(Grid().m_nodes[4][5]->neighbours, SizeIs(5)) << "the tile, and past two corners";
  EXPECT_THAT(Grid().m_nodes[4][4]->neighbours, SizeIs(7));
  EXPECT_THAT(Grid().m_nodes[5][5]->neighbours, SizeIs(8)) << "who stands there gets out";
}

TEST_F(PathGridTest, ATileBlocksEveryCellThatItReachesInto) {
  world.LoadObjects(TileAt(Cell(5, 5).x + 1, Cell(5, 5).y));
  Grid().Build({world.Find("tile")});
  const auto is_free = [&](std::size_t x, std::size_t y) {
    const PathNode* below = Grid().m_nodes[x][y + 1].get();
    const auto& list = below->neighbours;
    return std::find(list.begin(), list.end(), Grid().m_nodes[x][y].get()) != list.end();
  };
  EXPECT_TRUE(is_free(4, 5));
  EXPECT_FALSE(is_free(5, 5));
  EXPECT_FALSE(is_free(6, 5));
  EXPECT_TRUE(is_free(7, 5));
}

TEST_F(PathGridTest, ATileWithoutAProperPlaceBlocksNothing) {
  world.LoadObjects(TileAt(Cell(5, 5).x, Cell(5, 5).y) + "," + Record("placeless", {}));
  TransformOf(world.Find("tile")).m_world_scale.x = NAN;
  Grid().Build({world.Find("tile"), world.Find("placeless")});
  EXPECT_THAT(Grid().m_nodes[4][5]->neighbours, SizeIs(8));
  EXPECT_THAT(Grid().m_nodes[6][5]->neighbours, SizeIs(8));
}

TEST_F(PathGridTest, TheHeuristicIsTheOctileDistance) {
  EXPECT_EQ(Heuristic({0, 0, 1}, {0, 0, 1}), 0.0f);
  EXPECT_EQ(Heuristic({0, 0, 1}, {5, 0, 1}), 5.0f);
  EXPECT_EQ(Heuristic({2, 7, 1}, {2, 3, 9}), 4.0f);
  EXPECT_EQ(Heuristic({1, 1, 1}, {4, 4, 1}), static_cast<float>(3 * std::sqrt(2.0)));
  EXPECT_EQ(Heuristic({0, 0, 1}, {3, 5, 1}), static_cast<float>(5 + 3 * std::sqrt(2.0) - 3));
}

}  // namespace
}  // namespace ZOVEngine
