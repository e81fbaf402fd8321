#include "game/movers/waypoint.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "game/movers/moverworld.h"
#include "physics/components/rigidbody.h"
#include "render/rendersystem.h"
#include "support/reports.h"

namespace ZOVEngine {
namespace {

using carapace_test::KeysOf;
using carapace_test::MoverRecord;
using carapace_test::PlacedAt;
using carapace_test::ReadRecord;
using carapace_test::Record;
using carapace_test::RecordOf;
using carapace_test::TransformOf;
using carapace_test::World;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

/// A mover at the origin, with a path, and its single steps.
class WaypointTest : public ::testing::Test {
 protected:
  WaypointTest() {
    world.LoadObjects(MoverRecord("mover", "Waypoint"));
    Mover().m_snappingDist = 5.0f;
    Mover().m_speed = 400.0f;
    Mover().m_limit = 100.0f;
  }

  Waypoint& Mover() { return *world.Find("mover")->GetComponent<Waypoint>(); }
  RigidBody& Body() { return *world.Find("mover")->GetComponent<RigidBody>(); }
  Transform& Place() { return TransformOf(world.Find("mover")); }

  World world;
};

TEST_F(WaypointTest, ANewOneStandsStill) {
  const Waypoint mover(nullptr);
  EXPECT_FALSE(mover.m_draw);
  EXPECT_FALSE(mover.m_reached);
  EXPECT_EQ(mover.m_lastIndex, 0u);
  EXPECT_EQ(mover.m_limit, 0.0f);
  EXPECT_THAT(mover.m_path, IsEmpty());
}

TEST_F(WaypointTest, ItsRecordComesBack) {
  Waypoint mover(nullptr);
  ReadRecord(R"({"m_draw": true, "m_reached": true, "m_lastIndex": 1, "m_snappingDist": 2,
                 "m_speed": 3, "m_path": [[1, 2, 3], [4, 5, 6]], "m_limit": 4,
                 "m_curr_movement": 5})",
             mover);
  EXPECT_TRUE(mover.m_draw);
  EXPECT_TRUE(mover.m_reached);
  EXPECT_EQ(mover.m_lastIndex, 1u);
  EXPECT_EQ(mover.m_snappingDist, 2.0f);
  EXPECT_EQ(mover.m_speed, 3.0f);
  EXPECT_THAT(mover.m_path, ElementsAre(Vector3D(1, 2, 3), Vector3D(4, 5, 6)));
  EXPECT_EQ(mover.m_limit, 4.0f);
  EXPECT_EQ(mover.m_curr_movement, 5.0f);
  EXPECT_THAT(KeysOf(RecordOf(mover)),
              ElementsAre("m_draw", "m_reached", "m_lastIndex", "m_snappingDist", "m_speed",
                          "m_path", "m_limit", "m_curr_movement"));
}

TEST_F(WaypointTest, APushGoesTowardsTheNextPoint) {
  Mover().m_path = {{0, 0, 1}, {0, 90, 1}};
  Mover().Update(kStep);
  ASSERT_THAT(Body().m_forces, SizeIs(1));
  EXPECT_EQ(Body().m_forces[0]->direction, Vector3D(0, 1, 0));
  EXPECT_EQ(Body().m_forces[0]->magnitude, 400.0f);
  EXPECT_EQ(Body().m_forces[0]->lifetime, 0.1f);
  EXPECT_EQ(Mover().m_curr_movement, kStep);
  EXPECT_FALSE(Mover().m_reached);
}

TEST_F(WaypointTest, ThePlaceInTheWorldCounts) {
  Mover().m_path = {{0, 0, 1}, {4, 90, 1}, {100, 0, 1}};
  Place().m_world_pos = Vector3D(0, 90, 1);
  Mover().Update(kStep);
  EXPECT_EQ(Mover().m_lastIndex, 1u);
}

TEST_F(WaypointTest, DepthCountsAsDistance) {
  Mover().m_path = {{0, 0, 1}, {0, 0, 7}, {100, 0, 1}};
  Mover().Update(kStep);
  EXPECT_EQ(Mover().m_lastIndex, 0u);
  ASSERT_THAT(Body().m_forces, SizeIs(1));
  EXPECT_EQ(Body().m_forces[0]->direction, Vector3D(0, 0, 1));
}

TEST_F(WaypointTest, NearAPointTheMoverIsThereAndStops) {
  Mover().m_path = {{0, 0, 1}, {4, 0, 1}, {100, 0, 1}};
  Body().m_vel = Body().m_prev_vel = Vector3D(9, 0, 0);
  Mover().m_curr_movement = 3.0f;
  Mover().Update(kStep);
  EXPECT_EQ(Place().m_world_pos, Vector3D(4, 0, 1));
  EXPECT_EQ(Body().m_vel, Vector3D());
  EXPECT_EQ(Body().m_prev_vel, Vector3D());
  EXPECT_EQ(Mover().m_curr_movement, 0.0f);
  EXPECT_EQ(Mover().m_lastIndex, 1u);
  EXPECT_TRUE(Mover().m_reached);
  EXPECT_THAT(Body().m_forces, IsEmpty());
}

TEST_F(WaypointTest, ExactlyAtTheArrivalDistanceItIsNotThere) {
  Mover().m_path = {{0, 0, 1}, {5, 0, 1}, {100, 0, 1}};
  Mover().Update(kStep);
  EXPECT_EQ(Mover().m_lastIndex, 0u);
  EXPECT_THAT(Body().m_forces, SizeIs(1));
}

TEST_F(WaypointTest, AtTheLastPointThePathIsTurnedRound) {
  Mover().m_path = {{0, 0, 1}, {4, 0, 1}};
  Mover().Update(kStep);
  EXPECT_THAT(Mover().m_path, ElementsAre(Vector3D(4, 0, 1), Vector3D(0, 0, 1)));
  EXPECT_EQ(Mover().m_lastIndex, 0u);
}

TEST_F(WaypointTest, AtTheEndOfThePathItStops) {
  Mover().m_path = {{0, 0, 1}, {90, 0, 1}};
  Mover().m_lastIndex = 1;
  Body().m_vel = Vector3D(9, 0, 0);
  Mover().Update(kStep);
  EXPECT_EQ(Body().m_vel, Vector3D());
  EXPECT_EQ(Mover().m_lastIndex, 0u);
}

TEST_F(WaypointTest, BetweenTwoPointsItGoesForEver) {
  Mover().m_path = {{0, 0, 1}, {40, 0, 1}};
  int turns = 0;
  float goal = 40.0f;
  for (int i = 0; i < 2000; ++i) {
    world.Step();
    if (Mover().m_path[1].x == goal) continue;
    EXPECT_NEAR(Place().m_local_pos.x, goal, 10.0f);
    goal = Mover().m_path[1].x;
    ++turns;
  }
  EXPECT_GT(turns, 5);
}

TEST_F(WaypointTest, ALegThatTakesTooLongIsGivenUpForAStep) {
  Mover().m_path = {{0, 0, 1}, {90, 0, 1}};
  Mover().m_limit = 1.0f;
  Mover().m_curr_movement = 1.0f;
  Mover().Update(kStep);
  EXPECT_TRUE(Mover().m_reached);
  EXPECT_EQ(Mover().m_curr_movement, 0.0f);
  EXPECT_EQ(Mover().m_lastIndex, 0u);
  EXPECT_THAT(Body().m_forces, IsEmpty());
  Mover().Update(kStep);
  EXPECT_THAT(Body().m_forces, SizeIs(1));
}

TEST_F(WaypointTest, WithoutTimeNothingMoves) {
  Mover().m_path = {{0, 0, 1}, {90, 0, 1}};
  Mover().m_limit = 0.0f;
  for (int i = 0; i < 10; ++i) {
    Mover().m_reached = false;
    Mover().Update(kStep);
    EXPECT_TRUE(Mover().m_reached);
  }
  EXPECT_THAT(Body().m_forces, IsEmpty());
}

TEST_F(WaypointTest, AnEmptyPathIsReachedAndOnePointIsNone) {
  Mover().Update(kStep);
  EXPECT_TRUE(Mover().m_reached);
  Mover().m_reached = false;
  Mover().m_path = {{0, 0, 1}};
  Mover().Update(kStep);
  EXPECT_FALSE(Mover().m_reached);
  EXPECT_THAT(Body().m_forces, IsEmpty());
}

TEST_F(WaypointTest, AnInactiveOneOrOneWithoutABodyIsNotMoved) {
  Mover().m_path = {{0, 0, 1}, {90, 0, 1}};
  Mover().m_active = false;
  Mover().Update(kStep);
  EXPECT_THAT(Body().m_forces, IsEmpty());
  world.LoadObjects(Record("ghost", {{"Transform", PlacedAt(0, 0)}, {"Waypoint", "{}"}}));
  Waypoint& ghost = *world.Find("ghost")->GetComponent<Waypoint>();
  ghost.Update(kStep);
  EXPECT_FALSE(ghost.m_reached);
}

TEST_F(WaypointTest, OneWithoutAPlaceIsNotMoved) {
  world.LoadObjects(Record("placeless", {{"RigidBody", "{}"}, {"Waypoint", "{}"}}));
  Waypoint& placeless = *world.Find("placeless")->GetComponent<Waypoint>();
  placeless.m_path = {{0, 0, 1}, {90, 0, 1}};
  placeless.Update(kStep);
  EXPECT_FALSE(placeless.m_reached);
  EXPECT_THAT(world.Find("placeless")->GetComponent<RigidBody>()->m_forces, IsEmpty());
}

TEST_F(WaypointTest, AnIndexPastThePathIsItsEnd) {
  Mover().m_path = {{0, 0, 1}, {90, 0, 1}};
  Mover().m_lastIndex = 4000000000u;
  Mover().Update(kStep);
  EXPECT_EQ(Mover().m_lastIndex, 0u);
  EXPECT_THAT(Mover().m_path, ElementsAre(Vector3D(90, 0, 1), Vector3D(0, 0, 1)));
}

TEST_F(WaypointTest, ThePathIsDrawnIfItIsToBeSeen) {
  Mover().m_path = {{0, 0, 1}, {90, 0, 1}, {90, 90, 1}};
  Mover().Update(kStep);
  EXPECT_THAT(g_render_system->m_lines, IsEmpty());
  Mover().m_draw = true;
  Mover().m_active = false;
  Mover().Update(kStep);
  ASSERT_THAT(g_render_system->m_lines, SizeIs(2)) << "the object's flag decides";
  const LineRecord& line = g_render_system->m_lines[1];
  EXPECT_EQ(line.start, Vector3D(90, 0, 1));
  EXPECT_EQ(line.end, Vector3D(90, 90, 1));
  EXPECT_EQ(line.width, 1.0f);
  EXPECT_EQ(line.colour, (Colour{255.0f, 255.0f, 255.0f, 1.0f}));
  g_render_system->m_lines.clear();
  world.Find("mover")->active = false;
  Mover().Update(kStep);
  EXPECT_THAT(g_render_system->m_lines, IsEmpty());
}

}  // namespace
}  // namespace ZOVEngine
