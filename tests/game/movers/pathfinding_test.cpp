#include "game/movers/pathfinding.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <rttr/type>

#include "game/movers/moverworld.h"
#include "physics/components/rigidbody.h"
#include "render/rendersystem.h"
#include "support/reports.h"

namespace ZOVEngine {
namespace {

using carapace_test::GridWorld;
using carapace_test::KeysOf;
using carapace_test::MoverRecord;
using carapace_test::PlacedAt;
using carapace_test::ReadRecord;
using carapace_test::Record;
using carapace_test::RecordOf;
using carapace_test::TransformOf;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

/// A seeker and its target on an empty map.
class PathfindingTest : public GridWorld, public ::testing::Test {
 protected:
  PathfindingTest() {
    world.LoadObjects(MoverRecord("seeker", "Pathfinding") + "," +
                      Record("goal", {{"Transform", PlacedAt(0, 0, 1)}}));
    Seeker().m_snappingDist = 5.0f;
    Seeker().m_speed = 400.0f;
    Seeker().m_max_time_move = 100.0f;
  }

  Pathfinding& Seeker() { return *world.Find("seeker")->GetComponent<Pathfinding>(); }
  RigidBody& Body() { return *world.Find("seeker")->GetComponent<RigidBody>(); }
  void Place(const char* name, const Vector3D& at) {
    TransformOf(world.Find(name)).SetLocalPosition(at);
    TransformOf(world.Find(name)).m_world_pos = at;
  }
  /// Searches a path and returns its points; empty if there is none.
  std::vector<Vector3D> FindPath(const Vector3D& from, const Vector3D& to) {
    Place("seeker", from);
    Place("goal", to);
    Seeker().SetTarget(world.Find("goal"));
    Seeker().Update(kStep);
    return Seeker().m_found ? Seeker().m_path : std::vector<Vector3D>();
  }
};

TEST_F(PathfindingTest, ANewOneHasItsDefaults) {
  const Pathfinding seeker(nullptr);
  EXPECT_EQ(seeker.m_curr_index, 0u);
  EXPECT_FALSE(seeker.m_found);
  EXPECT_FALSE(seeker.m_reached);
  EXPECT_TRUE(seeker.m_drawPath);
  EXPECT_EQ(seeker.m_target, nullptr);
  const Pathfinding other(nullptr, 1, 2, 3, 4);
  EXPECT_EQ(other.m_curr_move, 1.0f);
  EXPECT_EQ(other.m_max_time_move, 2.0f);
  EXPECT_EQ(other.m_speed, 3.0f);
  EXPECT_EQ(other.m_snappingDist, 4.0f);
}

TEST_F(PathfindingTest, ItsRecordComesBack) {
  Pathfinding seeker(nullptr);
  ReadRecord(R"({"m_curr_move": 1, "m_max_time_move": 2, "m_speed": 3, "m_snappingDist": 4,
                 "m_reached": true, "m_drawPath": false})",
             seeker);
  EXPECT_EQ(seeker.m_curr_move, 1.0f);
  EXPECT_EQ(seeker.m_max_time_move, 2.0f);
  EXPECT_EQ(seeker.m_speed, 3.0f);
  EXPECT_EQ(seeker.m_snappingDist, 4.0f);
  EXPECT_TRUE(seeker.m_reached);
  EXPECT_FALSE(seeker.m_drawPath);
  EXPECT_THAT(KeysOf(RecordOf(seeker)), ElementsAre("m_curr_move", "m_max_time_move", "m_speed",
                                                    "m_snappingDist", "m_reached", "m_drawPath"));
}

TEST_F(PathfindingTest, TheInspectorKnowsItsFields) {
  const rttr::type type = rttr::type::get_by_name("ZOVEngine::Pathfinding");
  const std::pair<const char*, const char*> labels[] = {
      {"m_curr_move", "Curr Mov"}, {"m_max_time_move", "Max Time"},
      {"m_speed", "Speed"},        {"m_snappingDist", "Snapping distance"},
      {"m_reached", "Reached"},    {"m_drawPath", "Draw"}};
  for (const auto& [name, label] : labels) {
    ASSERT_TRUE(type.get_property(name).is_valid()) << name;
    EXPECT_EQ(type.get_property(name).get_metadata("name").get_value<std::string>(), label);
  }
}

TEST_F(PathfindingTest, InALevelNothingHappensWithoutAGrid) {
  Place("goal", Cell(5, 5));
  Seeker().SetTarget(world.Find("goal"));
  world.Step(3);
  EXPECT_FALSE(Seeker().m_found);
  EXPECT_THAT(Body().m_forces, IsEmpty());
  EXPECT_THAT(g_render_system->m_lines, IsEmpty());
}

// The search

TEST_F(PathfindingTest, AFreePathIsStraight) {
  Build();
  EXPECT_THAT(FindPath(Cell(2, 2), Cell(5, 2)), ElementsAre(Cell(3, 2), Cell(4, 2), Cell(5, 2)));
  EXPECT_THAT(FindPath(Cell(5, 5), Cell(3, 3)), ElementsAre(Cell(4, 4), Cell(3, 3)));
}

// A cell's cost is overwritten without a comparison, so a path may bend where it need not: a search
// that compares finds (1, 1), (2, 2), (3, 2), (4, 2). The order in the heap and that of the
// neighbours show in it too.
TEST_F(PathfindingTest, ThePathIsThatOfASearchThatDoesNotCompareCosts) {
  Build();
  EXPECT_THAT(FindPath(Cell(0, 0), Cell(4, 2)),
              ElementsAre(Cell(1, 0), Cell(1, 1), Cell(2, 1), Cell(3, 2), Cell(4, 2)));
}

TEST_F(PathfindingTest, BesideATileThePathIsThatOfTheSameSearch) {
  Build({{3, 2}});
  EXPECT_THAT(FindPath(Cell(0, 4), Cell(3, 1)),
              ElementsAre(Cell(1, 3), Cell(0, 3), Cell(1, 2), Cell(2, 1), Cell(3, 1)));
}

TEST_F(PathfindingTest, ThePathGoesRoundAWall) {
  Build({{4, 1}, {4, 2}, {4, 3}});
  const std::vector<Vector3D> path = FindPath(Cell(3, 2), Cell(5, 2));
  ASSERT_FALSE(path.empty());
  EXPECT_EQ(path.back(), Cell(5, 2));
  Vector3D at = Cell(3, 2);
  for (const Vector3D& next : path) {
    EXPECT_LE(std::abs(next.x - at.x), 60.0f);
    EXPECT_LE(std::abs(next.y - at.y), 60.0f);
    EXPECT_FALSE(next.x == Cell(4, 0).x && next.y <= Cell(4, 1).y && next.y >= Cell(4, 3).y);
    at = next;
  }
}

TEST_F(PathfindingTest, APathToTheOwnCellIsEmptyAndDone) {
  Build();
  FindPath(Cell(3, 3), Cell(3, 3) + Vector3D(20, 0, 0));
  EXPECT_TRUE(Seeker().m_found);
  EXPECT_THAT(Seeker().m_path, IsEmpty());
  Seeker().Update(kStep);
  EXPECT_TRUE(Seeker().m_reached);
  EXPECT_THAT(g_render_system->m_lines, IsEmpty());
}

TEST_F(PathfindingTest, ThePlaceInTheWorldCounts) {
  Build();
  Place("seeker", Cell(2, 2));
  Place("goal", Cell(4, 2));
  TransformOf(world.Find("seeker")).m_local_pos = Cell(9, 9);
  TransformOf(world.Find("goal")).m_local_pos = Cell(8, 8);
  Seeker().SetTarget(world.Find("goal"));
  Seeker().Update(kStep);
  EXPECT_THAT(Seeker().m_path, ElementsAre(Cell(3, 2), Cell(4, 2)));
}

TEST_F(PathfindingTest, AnUnreachableTargetIsSoughtAgainInEveryStep) {
  Build({{0, 1}, {1, 1}, {1, 0}});
  EXPECT_THAT(FindPath(Cell(1, 2), Cell(0, 0)), IsEmpty());
  EXPECT_FALSE(Seeker().m_found);
  EXPECT_THAT(Body().m_forces, IsEmpty());
  Grid().Build({});
  Seeker().Update(kStep);
  EXPECT_TRUE(Seeker().m_found);
}

TEST_F(PathfindingTest, OutsideTheWindowThereIsNoPath) {
  Build();
  EXPECT_THAT(FindPath({641, 0, 1}, Cell(5, 5)), IsEmpty());
  EXPECT_THAT(FindPath(Cell(5, 5), {0, 361, 1}), IsEmpty());
  EXPECT_FALSE(Seeker().m_found);
}

TEST_F(PathfindingTest, TheEdgesBelongToTheWindowAndMayHaveNoCell) {
  Build();
  EXPECT_TRUE(PathGrid::IsInWindow({-640, 360, 1}));
  EXPECT_TRUE(PathGrid::IsInWindow({640, -360, 1}));
  EXPECT_EQ(Grid().NodeAt({640, 0, 1}), Grid().m_nodes[21][6].get());
  // 720 is a multiple of the cells' size: below the last row there is none.
  EXPECT_EQ(Grid().NodeAt({0, -360, 1}), nullptr);
  EXPECT_THAT(FindPath(Cell(5, 5), {0, -360, 1}), IsEmpty());
}

TEST_F(PathfindingTest, WithoutATargetOrSwitchedOffItDoesNotSearch) {
  Build();
  Seeker().Update(kStep);
  EXPECT_FALSE(Seeker().m_found);
  Seeker().m_active = false;
  EXPECT_THAT(FindPath(Cell(2, 2), Cell(5, 2)), IsEmpty());
}

TEST_F(PathfindingTest, ATargetWithoutAPlaceIsNotSought) {
  Build();
  world.LoadObjects(Record("idea", {}));
  Seeker().SetTarget(world.Find("idea"));
  Seeker().Update(kStep);
  EXPECT_FALSE(Seeker().m_found);
}

TEST_F(PathfindingTest, ANewSearchBeginsAtItsFirstPoint) {
  Build();
  FindPath(Cell(2, 2), Cell(4, 2));
  Place("seeker", Cell(3, 2));
  Seeker().Update(kStep);
  ASSERT_EQ(Seeker().m_curr_index, 1u);
  EXPECT_THAT(FindPath(Cell(3, 2), Cell(6, 2)), SizeIs(3));
  EXPECT_EQ(Seeker().m_curr_index, 0u);
}

TEST_F(PathfindingTest, TheFirstStepForgetsTargetAndPath) {
  Seeker().m_target = world.Find("goal");
  Seeker().m_found = true;
  ASSERT_FALSE(Seeker().m_init);
  Seeker().Update(kStep);
  EXPECT_EQ(Seeker().m_target, nullptr);
  EXPECT_FALSE(Seeker().m_found);
}

TEST_F(PathfindingTest, ASearchLeavesItsCostsInTheCells) {
  Build();
  FindPath(Cell(2, 2), Cell(4, 2));
  const PathNode& start = *Grid().m_nodes[2][2];
  EXPECT_EQ(start.g, 0.0f);
  EXPECT_EQ(start.h, 2.0f);
  EXPECT_EQ(start.f, 0.0f);
  const PathNode& next = *Grid().m_nodes[3][2];
  EXPECT_EQ(next.g, 1.0f);
  EXPECT_EQ(next.f, 2.0f);
  EXPECT_EQ(next.parent, &start);
  EXPECT_EQ(Grid().m_nodes[20][10]->g, std::numeric_limits<float>::max());
}

TEST_F(PathfindingTest, TheGoalsOwnCostIsTheEstimateUntilItIsMet) {
  Build({{0, 1}, {1, 1}, {1, 0}});
  FindPath(Cell(4, 0), Cell(0, 0));
  EXPECT_EQ(Grid().m_nodes[0][0]->g, 4.0f);
  EXPECT_EQ(Grid().m_nodes[0][0]->h, std::numeric_limits<float>::max());
}

// Following

TEST_F(PathfindingTest, APushGoesTowardsTheNextPoint) {
  Build();
  FindPath(Cell(2, 2), Cell(4, 2));
  EXPECT_THAT(Body().m_forces, IsEmpty()) << "not in the step of the search";
  Seeker().Update(kStep);
  ASSERT_THAT(Body().m_forces, SizeIs(1));
  EXPECT_EQ(Body().m_forces[0]->direction, Vector3D(1, 0, 0));
  EXPECT_EQ(Body().m_forces[0]->magnitude, 400.0f);
  EXPECT_EQ(Body().m_forces[0]->lifetime, 0.1f);
  EXPECT_EQ(Seeker().m_curr_move, kStep);
}

TEST_F(PathfindingTest, PointsArePassedOneAStepAndPastTheLastIsTheArrival) {
  Build();
  FindPath(Cell(2, 2), Cell(4, 2));
  Place("seeker", Cell(3, 2));
  Seeker().Update(kStep);
  EXPECT_EQ(Seeker().m_curr_index, 1u);
  Place("seeker", Cell(4, 2));
  Seeker().Update(kStep);
  EXPECT_EQ(Seeker().m_curr_index, 2u);
  EXPECT_FALSE(Seeker().m_reached);
  Seeker().m_curr_move = 1.0f;
  Seeker().Update(kStep);
  EXPECT_TRUE(Seeker().m_reached);
  EXPECT_EQ(Seeker().m_curr_move, 0.0f);
  EXPECT_EQ(Seeker().m_curr_index, 2u);
  EXPECT_THAT(Body().m_forces, IsEmpty());
}

TEST_F(PathfindingTest, ExactlyAtTheArrivalDistanceAPointIsNotPassed) {
  Build();
  FindPath(Cell(2, 2), Cell(4, 2));
  Seeker().m_snappingDist = 60.0f;
  Seeker().Update(kStep);
  EXPECT_EQ(Seeker().m_curr_index, 0u);
  EXPECT_THAT(Body().m_forces, SizeIs(1));
}

TEST_F(PathfindingTest, WhenTheTimeIsOverTheTargetCountsAsReached) {
  Build();
  FindPath(Cell(2, 2), Cell(4, 2));
  Seeker().m_curr_move = 100.0f;
  Seeker().Update(kStep);
  EXPECT_TRUE(Seeker().m_reached);
  EXPECT_EQ(Seeker().m_curr_move, 0.0f);
  EXPECT_THAT(Body().m_forces, IsEmpty());
}

TEST_F(PathfindingTest, TheSeekerGetsToItsTarget) {
  Build({{10, 2}, {10, 3}, {10, 4}});
  FindPath(Cell(8, 3), Cell(12, 3));
  Seeker().m_snappingDist = 20.0f;
  Seeker().m_speed = 100.0f;
  for (int i = 0; i < 3000 && !Seeker().m_reached; ++i) world.Step();
  EXPECT_TRUE(Seeker().m_reached);
  EXPECT_EQ(Seeker().m_curr_index, Seeker().m_path.size());
}

TEST_F(PathfindingTest, ThePathIsDrawnFromTheSeekerOn) {
  Build();
  FindPath(Cell(2, 2), Cell(4, 2));
  Seeker().Update(kStep);
  ASSERT_THAT(g_render_system->m_lines, SizeIs(2));
  const LineRecord& first = g_render_system->m_lines[0];
  EXPECT_EQ(first.start, Cell(2, 2));
  EXPECT_EQ(first.end, Cell(3, 2));
  EXPECT_EQ(first.width, 1.0f);
  EXPECT_EQ(first.colour, (Colour{255.0f, 255.0f, 255.0f, 1.0f}));
  const LineRecord& second = g_render_system->m_lines[1];
  EXPECT_EQ(second.start, Vector3D(Cell(3, 2).x, Cell(3, 2).y, 2));
  EXPECT_EQ(second.end, Vector3D(Cell(4, 2).x, Cell(4, 2).y, 2));
  g_render_system->m_lines.clear();
  Seeker().m_drawPath = false;
  Seeker().Update(kStep);
  EXPECT_THAT(g_render_system->m_lines, IsEmpty());
}

TEST_F(PathfindingTest, APathOfOnePointIsNotDrawn) {
  Build();
  FindPath(Cell(2, 2), Cell(3, 2));
  Seeker().Update(kStep);
  EXPECT_THAT(Body().m_forces, SizeIs(1));
  EXPECT_THAT(g_render_system->m_lines, IsEmpty());
}

}  // namespace
}  // namespace ZOVEngine
