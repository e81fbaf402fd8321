#include "game/units/aicomp.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "core/engine.h"
#include "game/units/enemy.h"
#include "physics/components/rigidbody.h"
#include "physics/components/transform.h"
#include "physicssystem.h"
#include "support/unitrecords.h"

namespace ZOVEngine {
namespace {

using carapace_test::BodyRecord;
using carapace_test::Record;
using carapace_test::TransformAt;
using carapace_test::UnitStage;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

std::string Path(const std::string& waypoints) {
  return R"({"m_health": 1, "m_waypoints": )" + waypoints + "}";
}

/// An enemy at (10, 20) with a path and a mover.
class Walker {
 public:
  explicit Walker(const std::string& waypoints)
      : stage({BodyRecord("unit", 10, 20, {{"Enemy", Path(waypoints)}, {"AIComp", "{}"}})}) {
    Mover().Update(kStep);
  }

  AIComp& Mover() { return stage.Of<AIComp>("unit"); }
  Enemy& Unit() { return stage.Of<Enemy>("unit"); }
  Transform& Place() { return stage.Of<Transform>("unit"); }
  RigidBody& Body() { return stage.Of<RigidBody>("unit"); }
  void Move() { Mover().MoveAlongWaypoints(); }

  UnitStage stage;
};

TEST(AIComp, APushGoesStraightToTheWaypoint) {
  Walker walker("[[40, 60, 1]]");
  walker.Unit().m_move_speed = 30.0f;
  walker.Unit().m_moved = true;
  walker.Move();
  ASSERT_THAT(walker.Body().m_forces, SizeIs(1));
  const DirectionalForce& force = *walker.Body().m_forces[0];
  EXPECT_FLOAT_EQ(force.direction.x, 0.6f);
  EXPECT_FLOAT_EQ(force.direction.y, 0.8f);
  EXPECT_EQ(force.magnitude, 3000.0f);
  EXPECT_EQ(force.lifetime, 1.0f);
  EXPECT_EQ(walker.Unit().m_move_timer, kStep);
  EXPECT_FALSE(walker.Unit().m_moved);
  EXPECT_EQ(walker.Unit().m_waypoint_index, 0u);
}

TEST(AIComp, AWaypointWithinTheSnapRangeIsReached) {
  Walker walker("[[13, 24, 1], [90, 20, 1]]");
  walker.Unit().m_snap_range = 5.5f;
  walker.Unit().m_move_timer = 0.0005f;
  walker.Body().m_vel = walker.Body().m_prev_vel = Vector3D(1, 2, 0);
  walker.Unit().m_moved = true;
  walker.Move();
  EXPECT_EQ(walker.Place().m_world_pos, Vector3D(13, 24, 1));
  EXPECT_EQ(walker.Body().m_vel, Vector3D());
  EXPECT_EQ(walker.Body().m_prev_vel, Vector3D());
  EXPECT_EQ(walker.Unit().m_move_timer, 0.0f);
  EXPECT_EQ(walker.Unit().m_waypoint_index, 1u);
  EXPECT_FALSE(walker.Unit().m_moved) << "goes on to the next at the next rest";
  EXPECT_THAT(walker.Body().m_forces, IsEmpty());
}

TEST(AIComp, AWaypointExactlyAtTheSnapRangeIsNotReached) {
  Walker walker("[[13, 24, 1], [90, 20, 1]]");
  walker.Unit().m_snap_range = 5.0f;
  walker.Move();
  EXPECT_EQ(walker.Unit().m_waypoint_index, 0u);
  EXPECT_THAT(walker.Body().m_forces, SizeIs(1));
}

TEST(AIComp, TheDistanceCountsTheDepth) {
  Walker walker("[[10, 20, 21], [90, 20, 1]]");
  walker.Move();
  EXPECT_EQ(walker.Unit().m_waypoint_index, 0u);
  ASSERT_THAT(walker.Body().m_forces, SizeIs(1));
  EXPECT_EQ(walker.Body().m_forces[0]->direction, Vector3D(0, 0, 1));
}

TEST(AIComp, TheWayIsThatOfTheWorldPosition) {
  Walker walker("[[40, 60, 1]]");
  walker.Place().m_local_pos = Vector3D(500, 500, 1);
  walker.Move();
  ASSERT_THAT(walker.Body().m_forces, SizeIs(1));
  EXPECT_FLOAT_EQ(walker.Body().m_forces[0]->direction.x, 0.6f);
  EXPECT_FLOAT_EQ(walker.Body().m_forces[0]->direction.y, 0.8f);
}

TEST(AIComp, ArrivalEndsTheMoveWithALimitOfZeroOrLess) {
  for (const float limit : {0.0f, -1.0f}) {
    Walker walker("[[10, 20, 1], [90, 20, 1]]");
    walker.Unit().m_move_limit = limit;
    walker.Move();
    EXPECT_TRUE(walker.Unit().m_moved);
    EXPECT_EQ(walker.Unit().m_waypoint_index, 1u);
  }
}

TEST(AIComp, TheMoveIsOverWhereverTheUnitStandsWhenItsTimeIsUp) {
  Walker walker("[[400, 20, 1]]");
  walker.Unit().m_move_timer = walker.Unit().m_move_limit;
  walker.Body().m_vel = walker.Body().m_prev_vel = Vector3D(1, 2, 0);
  walker.Move();
  EXPECT_TRUE(walker.Unit().m_moved);
  EXPECT_EQ(walker.Unit().m_move_timer, 0.0f);
  EXPECT_EQ(walker.Body().m_vel, Vector3D());
  EXPECT_EQ(walker.Body().m_prev_vel, Vector3D());
  EXPECT_THAT(walker.Body().m_forces, IsEmpty());
  EXPECT_EQ(walker.Place().m_world_pos, Vector3D(10, 20, 1));
  EXPECT_EQ(walker.Unit().m_waypoint_index, 0u);
}

TEST(AIComp, TheLimitCountsPushes) {
  // Three steps of a sixtieth of a second sum up to a float just above a twentieth.
  for (const auto& [limit, pushes] :
       {std::pair(0.0f, 0u), std::pair(0.001f, 1u), std::pair(0.02f, 2u), std::pair(0.05f, 3u)}) {
    Walker walker("[[400, 20, 1]]");
    walker.Unit().m_move_limit = limit;
    for (unsigned i = 0; i < pushes; ++i) {
      walker.Move();
      EXPECT_FALSE(walker.Unit().m_moved) << limit << ", push " << i;
    }
    walker.Move();
    EXPECT_TRUE(walker.Unit().m_moved) << limit;
    EXPECT_THAT(walker.Body().m_forces, SizeIs(pushes)) << limit;
  }
}

TEST(AIComp, TheTimerRunsByTheStoredStep) {
  Walker walker("[[400, 20, 1]]");
  walker.Mover().Update(0.25f);
  walker.Unit().m_move_limit = 10.0f;
  walker.Move();
  walker.Move();
  EXPECT_EQ(walker.Unit().m_move_timer, 0.5f);
}

TEST(AIComp, AtTheEndOfItsPathItWalksBack) {
  Walker walker("[[40, 20, 1], [70, 20, 1], [10, 20, 1]]");
  walker.Unit().m_waypoint_index = 2;
  walker.Move();
  EXPECT_EQ(walker.Unit().m_waypoint_index, 0u);
  EXPECT_THAT(walker.Unit().m_waypoints,
              ElementsAre(Vector3D(10, 20, 1), Vector3D(70, 20, 1), Vector3D(40, 20, 1)));
  walker.Move();
  EXPECT_EQ(walker.Unit().m_waypoint_index, 1u) << "it stands on the first of the way back";
  walker.Move();
  ASSERT_THAT(walker.Body().m_forces, SizeIs(1));
  EXPECT_EQ(walker.Body().m_forces[0]->direction, Vector3D(1, 0, 0));
}

TEST(AIComp, APathOfOneWaypointNeverEndsAMoveOnIt) {
  Walker walker("[[10, 20, 1]]");
  for (int i = 0; i < 20; ++i) {
    walker.Move();
    EXPECT_EQ(walker.Unit().m_waypoint_index, 0u);
    EXPECT_FALSE(walker.Unit().m_moved);
  }
  EXPECT_THAT(walker.Unit().m_waypoints, ElementsAre(Vector3D(10, 20, 1)));
}

TEST(AIComp, OnItsWaypointWithoutASnapRangeThePushHasNoDirection) {
  Walker walker("[[10, 20, 1]]");
  walker.Unit().m_snap_range = 0.0f;
  walker.Move();
  ASSERT_THAT(walker.Body().m_forces, SizeIs(1));
  EXPECT_EQ(walker.Body().m_forces[0]->direction, Vector3D());
}

TEST(AIComp, WithoutAPathNothingIsDecided) {
  for (const bool moved : {false, true}) {
    Walker walker("[]");
    walker.Unit().m_moved = moved;
    walker.Move();
    EXPECT_EQ(walker.Unit().m_moved, moved);
    EXPECT_THAT(walker.Body().m_forces, IsEmpty());
  }
}

TEST(AIComp, ASuspendedPathIsNotWalked) {
  Walker walker("[[10, 20, 1], [70, 20, 1]]");
  walker.Unit().m_waypoints_off = true;
  walker.Unit().m_moved = true;
  walker.Move();
  EXPECT_TRUE(walker.Unit().m_moved);
  EXPECT_EQ(walker.Unit().m_waypoint_index, 0u);
}

TEST(AIComp, WithoutAPlaceOrABodyItStaysAsItIs) {
  const std::string fields = Path("[[10, 20, 1]]");
  UnitStage stage(
      {Record("bodiless", {{"Transform", TransformAt(0, 0)}, {"Enemy", fields}, {"AIComp", "{}"}}),
       Record("nowhere", {{"RigidBody", "{}"}, {"Enemy", fields}, {"AIComp", "{}"}})});
  for (const char* name : {"bodiless", "nowhere"}) {
    stage.Of<Enemy>(name).m_move_timer = 1.0f;
    stage.Of<AIComp>(name).MoveAlongWaypoints();
    EXPECT_FALSE(stage.Of<Enemy>(name).m_moved) << name;
    EXPECT_EQ(stage.Of<Enemy>(name).m_move_timer, 1.0f) << name;
  }
}

TEST(AIComp, APushDrivesTheUnitAlongItsPath) {
  Walker walker("[[400, 20, 1]]");
  walker.Move();
  for (int i = 0; i < 30; ++i) g_physics_system->Update(kStep);
  EXPECT_GT(walker.Place().m_world_pos.x, 20.0f);
  EXPECT_EQ(walker.Place().m_world_pos.y, 20.0f);
}

}  // namespace
}  // namespace ZOVEngine
