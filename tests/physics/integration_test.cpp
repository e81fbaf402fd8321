#include "physics/integration.h"

#include <gtest/gtest.h>

#include <sstream>

#include "core/base/profile.h"
#include "core/engine.h"
#include "core/messages.h"
#include "physics/physicsfixture.h"
#include "support/world.h"

namespace ZOVEngine {
namespace {

using carapace_test::ContactListener;
using carapace_test::Mover;
using carapace_test::PhysicsFixture;

/// Sums of floats as the integration makes them.
float Times(int count, float value) {
  float sum = 0.0f;
  for (int i = 0; i < count; ++i) sum += value;
  return sum;
}

class IntegrationTest : public PhysicsFixture {
 protected:
  /// A record of a body at rest with the given fields changed.
  static std::string BodyRecord(float mass, float inertia, float drag = 0.0f,
                                float angular_drag = 0.0f) {
    std::ostringstream out;
    out << R"({"m_vel": [0, 0, 0], "m_accel": [0, 0, 0], "m_mass": )" << mass
        << ", \"m_inertia\": " << inertia
        << R"(, "m_sleeper_vel": [0, 0, 0], "m_sleeper_rot_vel": 0, "m_drag": )" << drag
        << ", \"m_angular_drag\": " << angular_drag << ", \"m_rest\": 0}";
    return out.str();
  }

  /// The only object, without a shape to meet anything.
  RigidBody& Body(const std::string& record) {
    object = Add({.name = "body", .body = record, .holder_active = false});
    return GetBody(object);
  }

  static void Integrate(int steps = 1) {
    for (int i = 0; i < steps; ++i) g_physics_system->Update(kStep);
  }

  GameObj* object = nullptr;
};

TEST_F(IntegrationTest, TheNewVelocityMovesTheBody) {
  RigidBody& body = Body(BodyRecord(2, 0));
  world.Send(AddForceToObject(0, Vector3D(3, 4, 0), 4.0f, 1.0f));
  Integrate();
  // The direction is not normalised: 12 / 2 and 16 / 2.
  EXPECT_EQ(body.m_accel, Vector3D(6, 8, 0));
  EXPECT_EQ(body.m_vel, Vector3D(6.0f * kStep, 8.0f * kStep, 0));
  EXPECT_EQ(LocalPosition(object), Vector3D(6.0f * kStep * kStep, 8.0f * kStep * kStep, 1));
}

TEST_F(IntegrationTest, ForcesAddUp) {
  RigidBody& body = Body(BodyRecord(1, 0));
  world.Send(AddForceToObject(0, Vector3D(1, 0, 0), 10.0f, 1.0f));
  world.Send(AddForceToObject(0, Vector3D(0, 2, 3), 10.0f, 1.0f));
  Integrate();
  EXPECT_EQ(body.m_accel, Vector3D(10, 20, 30));
}

TEST_F(IntegrationTest, WithoutForcesNothingPullsABody) {
  RigidBody& body = Body(Mover(60, -30));
  Integrate(3);
  EXPECT_EQ(body.m_vel, Vector3D(60, -30, 0));
  EXPECT_EQ(body.m_accel, Vector3D(0, 0, 0));
  EXPECT_FLOAT_EQ(LocalPosition(object).x, 3.0f);
  EXPECT_FLOAT_EQ(LocalPosition(object).y, -1.5f);
}

TEST_F(IntegrationTest, ABodyWithoutMassFeelsNoForceButKeepsItsVelocity) {
  RigidBody& body = Body(BodyRecord(0, 0));
  body.m_vel = Vector3D(60, 0, 0);
  world.Send(AddForceToObject(0, Vector3D(0, 1, 0), 1000.0f, 1.0f));
  world.Send(AddTorqueToObject(0, 1000.0f, 1.0f));
  Integrate();
  EXPECT_EQ(body.m_accel, Vector3D(0, 0, 0));
  EXPECT_EQ(body.m_rot_vel, 0.0f);
  EXPECT_EQ(body.m_vel, Vector3D(60, 0, 0));
  EXPECT_FLOAT_EQ(LocalPosition(object).x, 1.0f);
}

TEST_F(IntegrationTest, WhatWasBeforeTheStepIsKept) {
  RigidBody& body = Body(BodyRecord(1, 0));
  Transform& transform = Of<Transform>(object);
  body.m_vel = Vector3D(60, 0, 0);
  body.m_rot_vel = 60.0f;
  transform.m_local_pos = Vector3D(5, 6, 1);
  transform.m_local_rotate = 7.0f;
  world.Send(AddForceToObject(0, Vector3D(1, 0, 0), 60.0f, 1.0f));
  Integrate();
  EXPECT_EQ(transform.m_prev_pos, Vector3D(5, 6, 1));
  EXPECT_EQ(transform.m_prev_rotate, 7.0f);
  EXPECT_EQ(body.m_prev_vel, Vector3D(60, 0, 0));
  EXPECT_FLOAT_EQ(body.m_vel.x, 61.0f);
  EXPECT_FLOAT_EQ(transform.m_local_rotate, 8.0f);
}

TEST_F(IntegrationTest, WorldTransformsAreDerivedBeforeAndAfterTheMotion) {
  Body(Mover(60, 0));
  GameObj* other = Add({.name = "other", .at = Vector3D(9, 0, 1), .holder_active = false});
  g_physics_system->current.push_back(ContactPair{0, 1, ContactInfo{}});
  g_physics_system->current.swap(g_physics_system->previous);
  LocalPosition(object) = Vector3D(100, 0, 1);
  Vector3D during;
  ContactListener::hook = [&](const std::string&, ContactInfo*) {
    during = Of<Transform>(object).m_world_pos;
  };
  Integrate();
  EXPECT_EQ(during, Vector3D(100, 0, 1)) << "in the callback that ends a contact";
  EXPECT_EQ(Of<Transform>(object).m_world_pos, LocalPosition(object));
  EXPECT_FLOAT_EQ(Of<Transform>(object).m_world_pos.x, 101.0f);
  EXPECT_EQ(LocalPosition(other), Vector3D(9, 0, 1));
}

TEST_F(IntegrationTest, DragShrinksTheVelocityAfterTheForce) {
  RigidBody& body = Body(BodyRecord(1, 0, 30));
  body.m_vel = Vector3D(10, -6, 2);
  world.Send(AddForceToObject(0, Vector3D(1, 0, 0), 120.0f, 1.0f));
  Integrate();
  EXPECT_FLOAT_EQ(body.m_vel.x, 6.0f) << "(10 + 2) x (1 - 0.5)";
  EXPECT_FLOAT_EQ(body.m_vel.y, -3.0f);
  EXPECT_FLOAT_EQ(body.m_vel.z, 1.0f);
}

TEST_F(IntegrationTest, ADragOf60IsTheLimitAt61VelocityAndForceAreDropped) {
  RigidBody& at_limit = Body(BodyRecord(1, 0, 60));
  RigidBody& beyond = Body(BodyRecord(1, 0, 61));
  for (const std::uint32_t id : {0u, 1u}) {
    world.Send(AddForceToObject(id, Vector3D(1, 0, 0), 120.0f, 1.0f));
  }
  at_limit.m_vel = beyond.m_vel = Vector3D(10, 10, 0);
  Integrate();
  EXPECT_EQ(at_limit.m_accel, Vector3D(120, 0, 0));
  EXPECT_NEAR(at_limit.m_vel.x, 0.0f, 1e-5f);
  EXPECT_NEAR(at_limit.m_vel.y, 0.0f, 1e-5f);
  EXPECT_EQ(beyond.m_accel, Vector3D(0, 0, 0));
  EXPECT_EQ(beyond.m_vel, Vector3D(0, 0, 0));
  EXPECT_EQ(LocalPosition(object), Vector3D(0, 0, 1));
}

TEST_F(IntegrationTest, TorquesTurnABody) {
  RigidBody& body = Body(BodyRecord(1, 4));
  world.Send(AddTorqueToObject(0, 8.0f, 1.0f));
  world.Send(AddTorqueToObject(0, 40.0f, 1.0f));
  Integrate();
  EXPECT_EQ(body.m_rot_accel, 12.0f);
  EXPECT_EQ(body.m_rot_vel, kStep * 12.0f);
  EXPECT_EQ(Of<Transform>(object).m_local_rotate, kStep * (kStep * 12.0f));
}

TEST_F(IntegrationTest, AngularDragTakesItsShareAfterTheTorque) {
  RigidBody& body = Body(BodyRecord(1, 1, 0, 30));
  body.m_rot_vel = 10.0f;
  world.Send(AddTorqueToObject(0, 120.0f, 1.0f));
  Integrate();
  EXPECT_FLOAT_EQ(body.m_rot_vel, 6.0f) << "12 less its half";
  EXPECT_FLOAT_EQ(Of<Transform>(object).m_local_rotate, 0.1f);
}

TEST_F(IntegrationTest, AnAngularDragOf61StopsTheTurning) {
  RigidBody& at_limit = Body(BodyRecord(1, 1, 0, 60));
  RigidBody& beyond = Body(BodyRecord(1, 1, 0, 61));
  for (const std::uint32_t id : {0u, 1u}) world.Send(AddTorqueToObject(id, 120.0f, 1.0f));
  at_limit.m_rot_vel = beyond.m_rot_vel = -10.0f;
  Integrate();
  EXPECT_NEAR(at_limit.m_rot_vel, 0.0f, 1e-5f);
  EXPECT_EQ(beyond.m_rot_accel, 0.0f);
  EXPECT_EQ(beyond.m_rot_vel, 0.0f);
  EXPECT_EQ(Of<Transform>(object).m_local_rotate, 0.0f);
}

TEST_F(IntegrationTest, AngularDragThatWouldTurnTheBodyBackStopsIt) {
  // dt x drag rounds to 1, but the product by way of the velocity may round to more than the
  // velocity itself.
  RigidBody& body = Body(BodyRecord(1, 1, 0, 60));
  int stopped = 0;
  for (int i = 1; i <= 50; ++i) {
    const float velocity = static_cast<float>(i) * 1.1f;
    body.m_rot_vel = velocity;
    Integrate();
    if (velocity * kStep * 60.0f > velocity) {
      ++stopped;
      EXPECT_EQ(body.m_rot_vel, 0.0f) << velocity;
    } else {
      EXPECT_EQ(body.m_rot_vel, velocity - velocity * kStep * 60.0f) << velocity;
    }
  }
  EXPECT_GT(stopped, 0);
}

TEST_F(IntegrationTest, AForceOfATenthSecondActsInFiveStepsAndIsGoneInTheSeventh) {
  RigidBody& body = Body(BodyRecord(1, 1));
  world.Send(AddForceToObject(0, Vector3D(1, 0, 0), 60.0f, 0.1f));
  world.Send(AddTorqueToObject(0, 60.0f, 0.1f));
  for (int step = 1; step <= 5; ++step) {
    Integrate();
    EXPECT_EQ(body.m_vel.x, Times(step, 60.0f * kStep)) << step;
    EXPECT_EQ(body.m_rot_vel, Times(step, kStep * 60.0f)) << step;
    EXPECT_TRUE(body.m_forces[0]->active);
    EXPECT_EQ(body.m_forces[0]->age, Times(step, kStep));
  }
  Integrate();
  EXPECT_EQ(body.m_vel.x, Times(5, 60.0f * kStep));
  EXPECT_EQ(body.m_accel.x, 0.0f);
  EXPECT_EQ(body.m_rot_vel, Times(5, kStep * 60.0f));
  ASSERT_EQ(body.m_forces.size(), 1u);
  EXPECT_FALSE(body.m_forces[0]->active);
  ASSERT_EQ(body.m_torques.size(), 1u);
  EXPECT_FALSE(body.m_torques[0]->active);
  Integrate();
  EXPECT_EQ(body.m_forces.size(), 0u);
  EXPECT_EQ(body.m_torques.size(), 0u);
}

TEST_F(IntegrationTest, AForceWithoutDurationNeverActs) {
  RigidBody& body = Body(BodyRecord(1, 1));
  world.Send(AddForceToObject(0, Vector3D(1, 0, 0), 60.0f, 0.0f));
  world.Send(AddTorqueToObject(0, 60.0f, 0.0f));
  Integrate();
  EXPECT_EQ(body.m_vel, Vector3D(0, 0, 0));
  EXPECT_EQ(body.m_rot_vel, 0.0f);
  ASSERT_EQ(body.m_forces.size(), 1u);
  EXPECT_FALSE(body.m_forces[0]->active);
  Integrate();
  EXPECT_EQ(body.m_forces.size(), 0u);
}

TEST_F(IntegrationTest, AForceOfExactlyOneStepNeverActs) {
  RigidBody& body = Body(BodyRecord(1, 1));
  world.Send(AddForceToObject(0, Vector3D(1, 0, 0), 60.0f, kStep));
  Integrate();
  EXPECT_EQ(body.m_vel, Vector3D(0, 0, 0));
}

TEST_F(IntegrationTest, AForceThatIsSwitchedOffIsRemovedWithoutGrowingOlder) {
  RigidBody& body = Body(BodyRecord(1, 1));
  world.Send(AddForceToObject(0, Vector3D(1, 0, 0), 60.0f, 5.0f));
  const std::shared_ptr<DirectionalForce> force = body.m_forces[0];
  force->active = false;
  Integrate();
  EXPECT_EQ(force->age, 0.0f);
  EXPECT_EQ(body.m_forces.size(), 0u);
  EXPECT_EQ(body.m_vel.x, 0.0f);
}

TEST_F(IntegrationTest, AMessageAppendsANewForce) {
  RigidBody& body = Body(BodyRecord(1, 1));
  world.Send(AddForceToObject(0, Vector3D(1, 2, 3), 4.0f, 5.0f));
  world.Send(AddForceToObject(0, Vector3D(6, 0, 0), 7.0f, 8.0f));
  world.Send(AddTorqueToObject(0, 9.0f, 10.0f));
  ASSERT_EQ(body.m_forces.size(), 2u);
  const DirectionalForce& force = *body.m_forces[0];
  EXPECT_EQ(force.direction, Vector3D(1, 2, 3));
  EXPECT_EQ(force.magnitude, 4.0f);
  EXPECT_EQ(force.lifetime, 5.0f);
  EXPECT_EQ(force.age, 0.0f);
  EXPECT_TRUE(force.active);
  EXPECT_EQ(body.m_forces[1]->magnitude, 7.0f);
  ASSERT_EQ(body.m_torques.size(), 1u);
  EXPECT_EQ(body.m_torques[0]->torque, 9.0f);
  EXPECT_EQ(body.m_torques[0]->lifetime, 10.0f);
  EXPECT_EQ(body.m_vel, Vector3D(0, 0, 0)) << "nothing happens before the next step";
}

TEST_F(IntegrationTest, AnInactiveBodyIsNotMovedAndItsForcesDoNotAge) {
  RigidBody& body = Body(Mover(60, 0));
  body.m_active = false;
  world.Send(AddForceToObject(0, Vector3D(1, 0, 0), 60.0f, 0.1f));
  Integrate(10);
  EXPECT_EQ(LocalPosition(object), Vector3D(0, 0, 1));
  ASSERT_EQ(body.m_forces.size(), 1u);
  EXPECT_EQ(body.m_forces[0]->age, 0.0f);
}

TEST_F(IntegrationTest, WhileTheObjectIsInactiveItsBodyMovesAllTheSame) {
  Body(Mover(60, 0));
  object->active = false;
  Integrate();
  EXPECT_FLOAT_EQ(LocalPosition(object).x, 1.0f);
}

TEST_F(IntegrationTest, APauseMovesOnlyTheBodiesThatAreLetMove) {
  GameObj* still = Add({.name = "still", .body = Mover(60, 0), .holder_active = false});
  GameObj* free = Add({.name = "free", .body = Mover(60, 0), .holder_active = false});
  GameObj* off = Add({.name = "off", .body = Mover(60, 0), .holder_active = false});
  free->movesWhilePaused = off->movesWhilePaused = true;
  GetBody(off).m_active = false;
  world.Send(AddForceToObject(0, Vector3D(1, 0, 0), 60.0f, 5.0f));
  g_engine->paused = true;
  world.Step();
  EXPECT_EQ(LocalPosition(still).x, 0.0f);
  EXPECT_EQ(GetBody(still).m_forces[0]->age, 0.0f);
  EXPECT_FLOAT_EQ(LocalPosition(free).x, 1.0f);
  EXPECT_EQ(LocalPosition(off).x, 0.0f);
}

TEST_F(IntegrationTest, APausedStepIsTimedToo) {
  ProfileTable().erase("Physics");
  g_physics_system->PausedUpdate(kStep);
  EXPECT_EQ(ProfileTable().count("Physics"), 1u);
}

TEST_F(IntegrationTest, ASlowBodyNeverSleeps) {
  RigidBody& body = Body(Mover(0.25f, 0));
  body.m_sleeper_vel = Vector3D(100, 100, 0);
  body.m_sleeper_rot_vel = 100.0f;
  Integrate(600);
  EXPECT_EQ(body.m_vel.x, 0.25f);
  EXPECT_NEAR(LocalPosition(object).x, 2.5f, 1e-3f) << "ten seconds of its speed";
}

}  // namespace
}  // namespace ZOVEngine
