#include "game/movers/leg.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/engine.h"
#include "game/movers/moverworld.h"
#include "physics/components/rigidbody.h"

namespace ZOVEngine {
namespace {

using carapace_test::MoverRecord;
using carapace_test::TransformOf;
using carapace_test::World;
using ::testing::IsEmpty;
using ::testing::SizeIs;

/// An object at the origin that moves at 9 units a second, and the leg that it is on.
class LegTest : public ::testing::Test {
 protected:
  LegTest() {
    world.LoadObjects(MoverRecord("mover", "Waypoint"));
    Body().m_vel = Body().m_prev_vel = Vector3D(9, 0, 0);
  }

  GameObj* Mover() { return world.Find("mover"); }
  RigidBody& Body() { return *Mover()->GetComponent<RigidBody>(); }
  LegStep Follow() { return FollowLeg(Mover(), leg, kStep, &time); }

  World world;
  Leg leg = {Vector3D(3, 4, 1), 5.5f, 2.0f, 700.0f, 0.25f};
  float time = 1.0f;
};

TEST_F(LegTest, WithinTheSnapRangeTheObjectArrivesAndStops) {
  EXPECT_EQ(Follow(), LegStep::kArrived);
  EXPECT_EQ(TransformOf(Mover()).m_world_pos, Vector3D(3, 4, 1));
  EXPECT_EQ(TransformOf(Mover()).m_local_pos, Vector3D(0, 0, 1)) << "the next derivation goes back";
  EXPECT_EQ(Body().m_vel, Vector3D());
  EXPECT_EQ(Body().m_prev_vel, Vector3D());
  EXPECT_EQ(time, 0.0f);
  EXPECT_THAT(Body().m_forces, IsEmpty());
}

TEST_F(LegTest, AnArrivalComesBeforeTheEndOfTheTime) {
  time = 3.0f;
  EXPECT_EQ(Follow(), LegStep::kArrived);
}

TEST_F(LegTest, ExactlyAtTheSnapRangeTheObjectIsPushedOn) {
  leg.snap_range = 5.0f;
  EXPECT_EQ(Follow(), LegStep::kPushed);
  ASSERT_THAT(Body().m_forces, SizeIs(1));
  EXPECT_FLOAT_EQ(Body().m_forces[0]->direction.x, 0.6f);
  EXPECT_FLOAT_EQ(Body().m_forces[0]->direction.y, 0.8f);
  EXPECT_EQ(Body().m_forces[0]->magnitude, 700.0f);
  EXPECT_EQ(Body().m_forces[0]->lifetime, 0.25f);
  EXPECT_EQ(time, 1.0f + kStep);
  EXPECT_EQ(Body().m_vel, Vector3D(9, 0, 0));
}

TEST_F(LegTest, AtItsLimitTheTimeIsOverAndTheObjectDrifts) {
  leg.snap_range = 1.0f;
  time = 2.0f;
  EXPECT_EQ(Follow(), LegStep::kOutOfTime);
  EXPECT_EQ(time, 0.0f);
  EXPECT_THAT(Body().m_forces, IsEmpty());
  EXPECT_EQ(Body().m_vel, Vector3D(9, 0, 0));
}

TEST_F(LegTest, DistanceAndDirectionAreThoseOfTheWorldPosition) {
  TransformOf(Mover()).m_local_pos = Vector3D(500, 500, 1);
  EXPECT_EQ(Follow(), LegStep::kArrived);
}

TEST_F(LegTest, HaltTakesTheVelocityAndLeavesTheForces) {
  PushAlong(*Mover(), Vector3D(0, 2, 0), 1.0f, 1.0f);
  Halt(Mover());
  EXPECT_EQ(Body().m_vel, Vector3D());
  EXPECT_EQ(Body().m_prev_vel, Vector3D());
  EXPECT_THAT(Body().m_forces, SizeIs(1));
}

TEST_F(LegTest, APushAlongNoOffsetHasNoDirection) {
  PushAlong(*Mover(), Vector3D(), 1.0f, 1.0f);
  ASSERT_THAT(Body().m_forces, SizeIs(1));
  EXPECT_EQ(Body().m_forces[0]->direction, Vector3D());
}

}  // namespace
}  // namespace ZOVEngine
