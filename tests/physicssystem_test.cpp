#include "physicssystem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>
#include <utility>

#include "core/base/profile.h"
#include "core/engine.h"
#include "core/messages.h"
#include "physics/physicsfixture.h"
#include "support/reports.h"
#include "support/world.h"

namespace ZOVEngine {
namespace {

using carapace_test::ContactListener;
using carapace_test::Mover;
using carapace_test::PhysicsFixture;
using carapace_test::Record;
using carapace_test::TransformAt;
using carapace_test::World;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class PhysicsSystemTest : public ::testing::Test {
 protected:
  PhysicsSystemTest() {
    world.LoadObjects(Record("first", {}) + "," +
                      Record("thing", {{"Transform", TransformAt(3, 4, 1, 2, 30)}}));
    thing = world.Find("thing")->GetComponent<Transform>();
  }

  World world;
  Transform* thing = nullptr;
};

TEST_F(PhysicsSystemTest, RotateObjectAddsToTheLocalRotation) {
  world.Send(RotateObject(1, 45.0f));
  EXPECT_EQ(thing->m_local_rotate, 75.0f);
  EXPECT_EQ(thing->m_prev_rotate, 30.0f);
  EXPECT_EQ(thing->m_world_rotate, 0.0f) << "the world set follows at the next derivation";
}

TEST_F(PhysicsSystemTest, ScaleObjectAddsToTheLocalScale) {
  world.Send(ScaleObject(1, Vector3D(1, 2, 3)));
  EXPECT_EQ(thing->m_local_scale, Vector3D(3, 4, 4));
}

TEST_F(PhysicsSystemTest, OtherMessagesLeaveTheTransform) {
  world.Send(KeyUp(65));
  world.Send(MouseScroll(1));
  EXPECT_EQ(thing->m_local_rotate, 30.0f);
  EXPECT_EQ(thing->m_local_scale, Vector3D(2, 2, 1));
}

TEST_F(PhysicsSystemTest, AStepDerivesWorldTransformsPausedOrNot) {
  for (const bool paused : {false, true}) {
    thing->m_local_pos.x += 10.0f;
    if (paused) {
      g_physics_system->PausedUpdate(kStep);
    } else {
      g_physics_system->Update(kStep);
    }
    EXPECT_EQ(thing->m_world_pos, thing->m_local_pos);
  }
}

TEST_F(PhysicsSystemTest, TheElapsedTimeIsRecorded) {
  ProfileTable().erase("Physics");
  world.Step();
  ASSERT_EQ(ProfileTable().count("Physics"), 1u);
  EXPECT_TRUE(ProfileTable()["Physics"].isSystemTime);
}

// Motion

/// Sums of floats as the integration makes them.
float Times(int count, float value) {
  float sum = 0.0f;
  for (int i = 0; i < count; ++i) sum += value;
  return sum;
}

class MotionTest : public PhysicsFixture {
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
    return BodyOf(object);
  }

  static void Integrate(int steps = 1) {
    for (int i = 0; i < steps; ++i) g_physics_system->Update(kStep);
  }

  GameObj* object = nullptr;
};

TEST_F(MotionTest, TheNewVelocityMovesTheBody) {
  RigidBody& body = Body(BodyRecord(2, 0));
  world.Send(AddForceToObject(0, Vector3D(3, 4, 0), 4.0f, 1.0f));
  Integrate();
  // The direction is not normalised: 12 / 2 and 16 / 2.
  EXPECT_EQ(body.m_accel, Vector3D(6, 8, 0));
  EXPECT_EQ(body.m_vel, Vector3D(6.0f * kStep, 8.0f * kStep, 0));
  EXPECT_EQ(PositionOf(object), Vector3D(6.0f * kStep * kStep, 8.0f * kStep * kStep, 1));
}

TEST_F(MotionTest, ForcesAddUp) {
  RigidBody& body = Body(BodyRecord(1, 0));
  world.Send(AddForceToObject(0, Vector3D(1, 0, 0), 10.0f, 1.0f));
  world.Send(AddForceToObject(0, Vector3D(0, 2, 3), 10.0f, 1.0f));
  Integrate();
  EXPECT_EQ(body.m_accel, Vector3D(10, 20, 30));
}

TEST_F(MotionTest, WithoutForcesNothingPullsABody) {
  RigidBody& body = Body(Mover(60, -30));
  Integrate(3);
  EXPECT_EQ(body.m_vel, Vector3D(60, -30, 0));
  EXPECT_EQ(body.m_accel, Vector3D(0, 0, 0));
  EXPECT_FLOAT_EQ(PositionOf(object).x, 3.0f);
  EXPECT_FLOAT_EQ(PositionOf(object).y, -1.5f);
}

TEST_F(MotionTest, ABodyWithoutMassFeelsNoForceButKeepsItsVelocity) {
  RigidBody& body = Body(BodyRecord(0, 0));
  body.m_vel = Vector3D(60, 0, 0);
  world.Send(AddForceToObject(0, Vector3D(0, 1, 0), 1000.0f, 1.0f));
  world.Send(AddTorqueToObject(0, 1000.0f, 1.0f));
  Integrate();
  EXPECT_EQ(body.m_accel, Vector3D(0, 0, 0));
  EXPECT_EQ(body.m_rot_vel, 0.0f);
  EXPECT_EQ(body.m_vel, Vector3D(60, 0, 0));
  EXPECT_FLOAT_EQ(PositionOf(object).x, 1.0f);
}

TEST_F(MotionTest, WhatWasBeforeTheStepIsKept) {
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

TEST_F(MotionTest, WorldTransformsAreDerivedBeforeAndAfterTheMotion) {
  Body(Mover(60, 0));
  GameObj* other = Add({.name = "other", .at = Vector3D(9, 0, 1), .holder_active = false});
  g_physics_system->current.push_back(ContactPair{0, 1, ContactInfo{}});
  g_physics_system->current.swap(g_physics_system->previous);
  PositionOf(object) = Vector3D(100, 0, 1);
  Vector3D during;
  ContactListener::hook = [&](const std::string&, ContactInfo*) {
    during = Of<Transform>(object).m_world_pos;
  };
  Integrate();
  EXPECT_EQ(during, Vector3D(100, 0, 1)) << "in the callback that ends a contact";
  EXPECT_EQ(Of<Transform>(object).m_world_pos, PositionOf(object));
  EXPECT_FLOAT_EQ(Of<Transform>(object).m_world_pos.x, 101.0f);
  EXPECT_EQ(PositionOf(other), Vector3D(9, 0, 1));
}

TEST_F(MotionTest, DragShrinksTheVelocityAfterTheForce) {
  RigidBody& body = Body(BodyRecord(1, 0, 30));
  body.m_vel = Vector3D(10, -6, 2);
  world.Send(AddForceToObject(0, Vector3D(1, 0, 0), 120.0f, 1.0f));
  Integrate();
  EXPECT_FLOAT_EQ(body.m_vel.x, 6.0f) << "(10 + 2) x (1 - 0.5)";
  EXPECT_FLOAT_EQ(body.m_vel.y, -3.0f);
  EXPECT_FLOAT_EQ(body.m_vel.z, 1.0f);
}

TEST_F(MotionTest, ADragOf60IsTheLimitAt61VelocityAndForceAreDropped) {
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
  EXPECT_EQ(PositionOf(object), Vector3D(0, 0, 1));
}

TEST_F(MotionTest, TorquesTurnABody) {
  RigidBody& body = Body(BodyRecord(1, 4));
  world.Send(AddTorqueToObject(0, 8.0f, 1.0f));
  world.Send(AddTorqueToObject(0, 40.0f, 1.0f));
  Integrate();
  EXPECT_EQ(body.m_rot_accel, 12.0f);
  EXPECT_EQ(body.m_rot_vel, kStep * 12.0f);
  EXPECT_EQ(Of<Transform>(object).m_local_rotate, kStep * (kStep * 12.0f));
}

TEST_F(MotionTest, AngularDragTakesItsShareAfterTheTorque) {
  RigidBody& body = Body(BodyRecord(1, 1, 0, 30));
  body.m_rot_vel = 10.0f;
  world.Send(AddTorqueToObject(0, 120.0f, 1.0f));
  Integrate();
  EXPECT_FLOAT_EQ(body.m_rot_vel, 6.0f) << "12 less its half";
  EXPECT_FLOAT_EQ(Of<Transform>(object).m_local_rotate, 0.1f);
}

TEST_F(MotionTest, AnAngularDragOf61StopsTheTurning) {
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

TEST_F(MotionTest, AngularDragThatWouldTurnTheBodyBackStopsIt) {
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

TEST_F(MotionTest, AForceOfATenthSecondActsInFiveStepsAndIsGoneInTheSeventh) {
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

TEST_F(MotionTest, AForceWithoutDurationNeverActs) {
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

TEST_F(MotionTest, AForceOfExactlyOneStepNeverActs) {
  RigidBody& body = Body(BodyRecord(1, 1));
  world.Send(AddForceToObject(0, Vector3D(1, 0, 0), 60.0f, kStep));
  Integrate();
  EXPECT_EQ(body.m_vel, Vector3D(0, 0, 0));
}

TEST_F(MotionTest, AForceThatIsSwitchedOffIsRemovedWithoutGrowingOlder) {
  RigidBody& body = Body(BodyRecord(1, 1));
  world.Send(AddForceToObject(0, Vector3D(1, 0, 0), 60.0f, 5.0f));
  const std::shared_ptr<DirectionalForce> force = body.m_forces[0];
  force->active = false;
  Integrate();
  EXPECT_EQ(force->age, 0.0f);
  EXPECT_EQ(body.m_forces.size(), 0u);
  EXPECT_EQ(body.m_vel.x, 0.0f);
}

TEST_F(MotionTest, AMessageAppendsANewForce) {
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

TEST_F(MotionTest, AnInactiveBodyIsNotMovedAndItsForcesDoNotAge) {
  RigidBody& body = Body(Mover(60, 0));
  body.m_active = false;
  world.Send(AddForceToObject(0, Vector3D(1, 0, 0), 60.0f, 0.1f));
  Integrate(10);
  EXPECT_EQ(PositionOf(object), Vector3D(0, 0, 1));
  ASSERT_EQ(body.m_forces.size(), 1u);
  EXPECT_EQ(body.m_forces[0]->age, 0.0f);
}

TEST_F(MotionTest, WhileTheObjectIsInactiveItsBodyMovesAllTheSame) {
  Body(Mover(60, 0));
  object->active = false;
  Integrate();
  EXPECT_FLOAT_EQ(PositionOf(object).x, 1.0f);
}

TEST_F(MotionTest, APauseMovesOnlyTheBodiesThatAreLetMove) {
  GameObj* still = Add({.name = "still", .body = Mover(60, 0), .holder_active = false});
  GameObj* free = Add({.name = "free", .body = Mover(60, 0), .holder_active = false});
  GameObj* off = Add({.name = "off", .body = Mover(60, 0), .holder_active = false});
  free->movesWhilePaused = off->movesWhilePaused = true;
  BodyOf(off).m_active = false;
  world.Send(AddForceToObject(0, Vector3D(1, 0, 0), 60.0f, 5.0f));
  g_engine->paused = true;
  world.Step();
  EXPECT_EQ(PositionOf(still).x, 0.0f);
  EXPECT_EQ(BodyOf(still).m_forces[0]->age, 0.0f);
  EXPECT_FLOAT_EQ(PositionOf(free).x, 1.0f);
  EXPECT_EQ(PositionOf(off).x, 0.0f);
}

TEST_F(MotionTest, APausedStepIsTimedToo) {
  ProfileTable().erase("Physics");
  g_physics_system->PausedUpdate(kStep);
  EXPECT_EQ(ProfileTable().count("Physics"), 1u);
}

// Contacts

/// Two objects at (-1, 0) and (1, 0) and contacts between them that are made by hand. The normal
/// points from B to A.
class ResolutionTest : public PhysicsFixture {
 protected:
  void Make(const std::string& body_a, const std::string& body_b) {
    a = Add({.name = "a", .at = Vector3D(-1, 0, 1), .body = body_a, .shape = "Circle"});
    b = Add({.name = "b", .at = Vector3D(1, 0, 1), .body = body_b, .shape = "Circle"});
    g_physics_system->UpdateWorldTransforms();
    for (GameObj* object : {a, b}) {
      Of<ColliderHolder>(object).m_collider->UpdateCollider(Of<Transform>(object));
    }
  }
  void MakeMovers() { Make(Mover(10, 0), Mover(-6, 0)); }

  /// Between the centres, so that nothing is turned.
  static ContactInfo Contact(float penetration = 0.0f,
                             const std::vector<Vector3D>& points = {Vector3D(0, 0, 1)}) {
    ContactInfo contact;
    contact.collided = true;
    contact.objectA = 0;
    contact.objectB = 1;
    contact.normal = Vector3D(-1, 0, 0);
    contact.penetration = penetration;
    for (const Vector3D& point : points) contact.contactPoints.push_back(point);
    return contact;
  }

  void Resolve(const ContactInfo& contact) {
    CollidedObjects message;
    message.contacts.push_back(contact);
    world.Send(message);
  }

  /// As if the step before had found this pair.
  static void SetPrevious(std::uint32_t one, std::uint32_t other) {
    g_physics_system->previous.clear();
    g_physics_system->previous.push_back(ContactPair{one, other, Contact()});
  }

  static std::vector<std::string>& Calls() { return ContactListener::calls; }

  GameObj* a = nullptr;
  GameObj* b = nullptr;
};

TEST_F(ResolutionTest, TheSmallerRestitutionBouncesTwoBodies) {
  MakeMovers();
  BodyOf(a).m_rest = 0.5f;
  BodyOf(b).m_rest = 1.0f;
  Resolve(Contact());
  // They approach at 16; j = 1.5 x 16 / 2 = 12.
  EXPECT_EQ(BodyOf(a).m_vel, Vector3D(-2, 0, 0));
  EXPECT_EQ(BodyOf(b).m_vel, Vector3D(6, 0, 0));
}

TEST_F(ResolutionTest, AHeavyBodyGivesWayLess) {
  MakeMovers();
  BodyOf(b).m_inv_mass = 0.25f;
  Resolve(Contact());
  // j = 16 / 1.25 = 12.8.
  EXPECT_FLOAT_EQ(BodyOf(a).m_vel.x, -2.8f);
  EXPECT_FLOAT_EQ(BodyOf(b).m_vel.x, -2.8f);
}

TEST_F(ResolutionTest, TheRecordHoldsTheVelocitiesAtThePoint) {
  MakeMovers();
  BodyOf(a).m_rot_vel = 180.0f;
  BodyOf(b).m_rot_vel = -90.0f;
  BodyOf(a).m_vel = Vector3D(10, 1, 7);
  BodyOf(b).m_vel = Vector3D(-6, 2, 3);
  Resolve(Contact(0, {Vector3D(2, 3, 50)}));
  ASSERT_EQ(g_physics_system->current.size(), 1u);
  const ContactInfo& contact = g_physics_system->current[0].contact;
  // rA = (3, 3), rB = (1, 3), wA = pi, wB = -pi / 2.
  const float pi = 3.1415927f;
  EXPECT_FLOAT_EQ(contact.relativeVelocity.x, (10 - pi * 3) - (-6 + pi / 2 * 3));
  EXPECT_FLOAT_EQ(contact.relativeVelocity.y, (1 + pi * 3) - (2 - pi / 2 * 1));
  EXPECT_FLOAT_EQ(contact.relativeVelocity.z, 4.0f);
  EXPECT_FLOAT_EQ(contact.normalVelocity, -contact.relativeVelocity.x);
}

TEST_F(ResolutionTest, AnImpulseBesideTheCentreTurnsABodyWithoutChangingUnits) {
  Make(Mover(10, 0), Mover());
  BodyOf(a).m_inv_inertia = 0.25f;
  BodyOf(b).m_inv_mass = 0.0f;
  BodyOf(b).m_inv_inertia = 1.0f;
  Resolve(Contact(0, {Vector3D(1, 2, 1)}));
  // rA = (2, 2), rB = (0, 2): cA = cB = 2; j = 10 / (1 + 4 x 0.25 + 4 x 1) = 5 / 3.
  const float j = 5.0f / 3.0f;
  EXPECT_FLOAT_EQ(BodyOf(a).m_vel.x, 10 - j);
  EXPECT_FLOAT_EQ(BodyOf(a).m_rot_vel, 2 * j * 0.25f);
  EXPECT_FLOAT_EQ(BodyOf(b).m_rot_vel, -2 * j);
  EXPECT_EQ(BodyOf(b).m_vel.x, 0.0f);
}

TEST_F(ResolutionTest, AnImpulseAlongYTurnsByTheArmInX) {
  Make(Mover(0, -8), Mover());
  BodyOf(a).m_inv_inertia = 1.0f;
  ContactInfo contact = Contact(0, {Vector3D(0, 0, 1)});
  contact.normal = Vector3D(0, 1, 0);
  Resolve(contact);
  // rA = (1, 0), cA = 1; B does not turn: j = 8 / (1 + 1 + 1).
  EXPECT_FLOAT_EQ(BodyOf(a).m_vel.y, -8 + 8.0f / 3);
  EXPECT_FLOAT_EQ(BodyOf(b).m_vel.y, -8.0f / 3);
  EXPECT_FLOAT_EQ(BodyOf(a).m_rot_vel, 8.0f / 3);
}

TEST_F(ResolutionTest, AnImpulseClearsTheVelocityInDepth) {
  MakeMovers();
  BodyOf(a).m_vel.z = BodyOf(b).m_vel.z = 5.0f;
  Resolve(Contact());
  EXPECT_EQ(BodyOf(a).m_vel.z, 0.0f);
  EXPECT_EQ(BodyOf(b).m_vel.z, 0.0f);
}

TEST_F(ResolutionTest, BodiesThatPartOrRestGetNoImpulseButAreMovedApart) {
  Make(Mover(-10, 0), Mover(-10, 0));
  BodyOf(a).m_vel.z = 5.0f;
  for (const float away : {0.0f, 4.0f}) {
    BodyOf(b).m_vel.x = -10.0f + away;
    PositionOf(a) = Vector3D(-1, 0, 1);
    Resolve(Contact(2));
    EXPECT_EQ(BodyOf(a).m_vel, Vector3D(-10, 0, 5)) << away;
    EXPECT_EQ(BodyOf(b).m_vel.x, -10.0f + away);
    EXPECT_EQ(PositionOf(a), Vector3D(-2, 0, 1)) << away;
  }
  EXPECT_THAT(Calls(), Contains("a Stay"));
}

TEST_F(ResolutionTest, ThePenetrationIsSharedByInverseMass) {
  MakeMovers();
  BodyOf(b).m_inv_mass = 0.25f;
  Resolve(Contact(5));
  // q = 5 / 1.25.
  EXPECT_EQ(PositionOf(a), Vector3D(-5, 0, 1));
  EXPECT_EQ(PositionOf(b), Vector3D(2, 0, 1));
  EXPECT_EQ(Of<Transform>(a).m_prev_pos, Vector3D(-5, 0, 1));
  EXPECT_EQ(Of<Transform>(b).m_prev_pos, Vector3D(2, 0, 1));
}

TEST_F(ResolutionTest, AMassOf0LeavesAllTheWayToTheOther) {
  Make(R"({"m_mass": 0, "m_inertia": 0})", Mover(-6, 0));
  EXPECT_EQ(BodyOf(a).m_inv_mass, 0.0f);
  Resolve(Contact(5));
  EXPECT_EQ(PositionOf(a), Vector3D(-1, 0, 1));
  EXPECT_EQ(PositionOf(b), Vector3D(6, 0, 1));
  EXPECT_EQ(BodyOf(a).m_vel, Vector3D(0, 0, 0));
  EXPECT_EQ(BodyOf(b).m_vel, Vector3D(0, 0, 0));
}

TEST_F(ResolutionTest, ANegativePenetrationMovesNobodyOfTwo) {
  MakeMovers();
  Resolve(Contact(-5));
  EXPECT_EQ(PositionOf(a), Vector3D(-1, 0, 1));
  EXPECT_EQ(PositionOf(b), Vector3D(1, 0, 1));
}

TEST_F(ResolutionTest, TwoBodiesWithoutMassEndNowhere) {
  Make(Mover(), Mover());
  BodyOf(a).m_inv_mass = BodyOf(b).m_inv_mass = 0.0f;
  Resolve(Contact(5));
  EXPECT_TRUE(std::isnan(PositionOf(a).x)) << "an infinite share times an inverse mass of 0";
  EXPECT_TRUE(std::isnan(PositionOf(b).x));
}

TEST_F(ResolutionTest, ANormalInDepthMovesTheBodiesInDepth) {
  MakeMovers();
  ContactInfo contact = Contact(2);
  contact.normal = Vector3D(0, 0, -1);
  Resolve(contact);
  EXPECT_EQ(PositionOf(a).z, 0.0f);
  EXPECT_EQ(PositionOf(b).z, 2.0f);
}

TEST_F(ResolutionTest, AContactWithoutPointsIsASensor) {
  MakeMovers();
  Resolve(Contact(5, {}));
  EXPECT_THAT(Calls(), IsEmpty());
  EXPECT_EQ(g_physics_system->current.size(), 0u);
  EXPECT_EQ(BodyOf(a).m_vel, Vector3D(10, 0, 0));
  EXPECT_EQ(PositionOf(a), Vector3D(-1, 0, 1));
  EXPECT_EQ(PositionOf(b), Vector3D(1, 0, 1));
}

TEST_F(ResolutionTest, ANewPairIsToldOfStayBeforeEnter) {
  MakeMovers();
  Resolve(Contact());
  EXPECT_THAT(Calls(), ElementsAre("a Stay", "b Stay", "a Enter", "b Enter"));
}

TEST_F(ResolutionTest, APairOfTheStepBeforeIsNotEnteredAgainWhicheverSideIsA) {
  for (const bool swapped : {false, true}) {
    MakeMovers();
    SetPrevious(swapped ? 1 : 0, swapped ? 0 : 1);
    Calls().clear();
    Resolve(Contact());
    EXPECT_THAT(Calls(), ElementsAre("a Stay", "b Stay"));
    g_game_obj_factory->ClearObjects();
  }
}

TEST_F(ResolutionTest, APairThatSharesOneObjectOnlyIsNew) {
  MakeMovers();
  for (const auto& [one, other] : {std::pair{0u, 7u}, std::pair{7u, 1u}, std::pair{0u, 0u}}) {
    SetPrevious(one, other);
    Calls().clear();
    Resolve(Contact());
    EXPECT_THAT(Calls(), ElementsAre("a Stay", "b Stay", "a Enter", "b Enter"));
  }
}

TEST_F(ResolutionTest, TwoPointsGiveTwoImpulsesTwoRoundsOfCallsAndOneCorrection) {
  MakeMovers();
  BodyOf(a).m_rest = BodyOf(b).m_rest = 0.0f;
  BodyOf(a).m_inv_inertia = BodyOf(b).m_inv_inertia = 0.25f;
  Resolve(Contact(4, {Vector3D(0, 2, 1), Vector3D(0, -2, 1)}));
  EXPECT_THAT(Calls(), ElementsAre("a Stay", "b Stay", "a Enter", "b Enter", "a Stay", "b Stay",
                                   "a Enter", "b Enter"));
  ASSERT_EQ(g_physics_system->current.size(), 2u);
  EXPECT_EQ(g_physics_system->current[0].objectA, 0u);
  EXPECT_EQ(g_physics_system->current[0].objectB, 1u);
  // First point: cA = cB = 2, j = 16 / 4 = 4, and the spins are 2 and -2 degrees per second.
  EXPECT_EQ(g_physics_system->current[0].contact.normalVelocity, -16.0f);
  // Second point: each side turns towards the other at its lower arm of 2.
  const float spin = 2.0f * 3.1415927f / 180.0f;
  const float approach = (6 + spin * 2) - (-2 - spin * 2);
  EXPECT_FLOAT_EQ(g_physics_system->current[1].contact.normalVelocity, -approach);
  EXPECT_FLOAT_EQ(BodyOf(a).m_vel.x, 6 - approach / 4);
  EXPECT_EQ(PositionOf(a), Vector3D(-3, 0, 1)) << "4 is shared once";
  EXPECT_EQ(PositionOf(b), Vector3D(3, 0, 1));
}

TEST_F(ResolutionTest, ACallbackLetsTheContactPassThrough) {
  for (const char* call : {"a Stay", "b Stay", "a Enter", "b Enter"}) {
    MakeMovers();
    ContactListener::hook = [call](const std::string& name, ContactInfo* contact) {
      if (name == call) contact->ignored = true;
    };
    Resolve(Contact(5));
    EXPECT_EQ(BodyOf(a).m_vel, Vector3D(10, 0, 0)) << call;
    EXPECT_EQ(BodyOf(b).m_vel, Vector3D(-6, 0, 0)) << call;
    EXPECT_EQ(PositionOf(a), Vector3D(-1, 0, 1)) << call;
    EXPECT_EQ(g_physics_system->current.size(), 1u) << call;
    ContactListener::hook = nullptr;
    g_game_obj_factory->ClearObjects();
  }
}

TEST_F(ResolutionTest, AnIgnoredContactStillCallsForItsSecondPoint) {
  MakeMovers();
  ContactListener::hook = [](const std::string&, ContactInfo* contact) { contact->ignored = true; };
  Resolve(Contact(5, {Vector3D(0, 0, 1), Vector3D(0, 0, 1)}));
  EXPECT_EQ(Calls().size(), 8u);
  ASSERT_EQ(g_physics_system->current.size(), 2u);
  EXPECT_FALSE(g_physics_system->current[0].contact.ignored) << "copied before the callbacks";
  EXPECT_TRUE(g_physics_system->current[1].contact.ignored);
}

TEST_F(ResolutionTest, ACallbackMayStopABodyBeforeItsImpulse) {
  MakeMovers();
  ContactListener::hook = [this](const std::string& name, ContactInfo*) {
    if (name == "a Stay") BodyOf(a).m_vel = Vector3D();
  };
  Resolve(Contact());
  EXPECT_EQ(BodyOf(a).m_vel.x, -8.0f) << "0 and the impulse of the approach that was measured";
}

TEST_F(ResolutionTest, ContactsAreResolvedInTheirOrder) {
  MakeMovers();
  CollidedObjects message;
  message.contacts.push_back(Contact());
  message.contacts.push_back(Contact());
  std::swap(message.contacts[1].objectA, message.contacts[1].objectB);
  message.contacts[1].normal = Vector3D(1, 0, 0);
  world.Send(message);
  EXPECT_THAT(Calls(), ElementsAre("a Stay", "b Stay", "a Enter", "b Enter", "b Stay", "a Stay",
                                   "b Enter", "a Enter"));
  EXPECT_EQ(g_physics_system->current[1].contact.normalVelocity, 0.0f) << "the first has met it";
}

TEST_F(ResolutionTest, ANormalThatIsNoNumberEndsTheProgram) {
  MakeMovers();
  for (const int axis : {0, 1}) {
    ContactInfo contact = Contact();
    contact.normal.v[axis] = std::numeric_limits<float>::quiet_NaN();
    EXPECT_THAT(carapace_test::ReportOf([&] { Resolve(contact); }),
                HasSubstr("Collision Normal is NAN (physicssystem.cpp, Line 291)"));
  }
}

TEST_F(ResolutionTest, AnInactiveBodyCountsAsABody) {
  MakeMovers();
  BodyOf(b).m_active = false;
  Resolve(Contact(4));
  EXPECT_EQ(BodyOf(a).m_vel.x, 2.0f);
  EXPECT_EQ(PositionOf(b), Vector3D(3, 0, 1));
}

// One body

TEST_F(ResolutionTest, TheOnlyBodyTakesAllOfTheContact) {
  Make(Mover(10, 3), "");
  BodyOf(a).m_rest = 0.5f;
  Resolve(Contact(2));
  EXPECT_EQ(BodyOf(a).m_vel, Vector3D(-5, 3, 0));
  EXPECT_EQ(PositionOf(a), Vector3D(-3, 0, 1));
  EXPECT_EQ(Of<Transform>(a).m_prev_pos, Vector3D(-3, 0, 1));
  EXPECT_EQ(PositionOf(b), Vector3D(1, 0, 1));
}

TEST_F(ResolutionTest, TheOnlyBodyIsTurnedByItsArm) {
  Make(Mover(10, 0), "");
  BodyOf(a).m_inv_mass = 0.5f;
  BodyOf(a).m_inv_inertia = 0.125f;
  BodyOf(a).m_rot_vel = 180.0f;
  Resolve(Contact(0, {Vector3D(0, 2, 1)}));
  // r = (1, 2), u = -(10 - pi x 2), c = 2: j = -u / (0.5 + 4 x 0.125) = -u.
  const float j = 10 - 3.1415927f * 2;
  EXPECT_FLOAT_EQ(BodyOf(a).m_vel.x, 10 - j * 0.5f);
  EXPECT_FLOAT_EQ(BodyOf(a).m_rot_vel, 180 + 2 * j * 0.125f);
}

TEST_F(ResolutionTest, ABodyThatIsBIsPushedOutButNotBouncedByItsApproach) {
  Make("", Mover(-6, 0));
  Resolve(Contact(2));
  EXPECT_EQ(BodyOf(b).m_vel, Vector3D(-6, 0, 0)) << "the normal is not turned for B";
  EXPECT_EQ(PositionOf(b), Vector3D(3, 0, 1));
  EXPECT_EQ(Of<Transform>(b).m_prev_pos, Vector3D(3, 0, 1));
  EXPECT_EQ(PositionOf(a), Vector3D(-1, 0, 1));
}

TEST_F(ResolutionTest, ABodyThatIsBIsReflectedWhenItLeaves) {
  Make("", Mover(6, 0));
  BodyOf(b).m_rest = 1.0f;
  Resolve(Contact(2));
  EXPECT_EQ(BodyOf(b).m_vel, Vector3D(-6, 0, 0));
}

TEST_F(ResolutionTest, OneBodyLeavesTheContactsVelocitiesAlone) {
  Make(Mover(10, 0), "");
  ContactInfo contact = Contact();
  contact.relativeVelocity = Vector3D(1, 2, 3);
  contact.normalVelocity = 4.0f;
  Resolve(contact);
  ASSERT_EQ(g_physics_system->current.size(), 1u);
  EXPECT_EQ(g_physics_system->current[0].contact.relativeVelocity, Vector3D(1, 2, 3));
  EXPECT_EQ(g_physics_system->current[0].contact.normalVelocity, 4.0f);
}

TEST_F(ResolutionTest, TheSideWithTheBodyIsToldFirst) {
  Make("", Mover(-6, 0));
  Resolve(Contact());
  EXPECT_THAT(Calls(), ElementsAre("b Stay", "a Stay", "b Enter", "a Enter"));
  EXPECT_EQ(g_physics_system->current[0].objectA, 0u) << "the record keeps the sides";
  EXPECT_EQ(g_physics_system->current[0].objectB, 1u);
  Calls().clear();
  SetPrevious(1, 0);
  Resolve(Contact());
  EXPECT_THAT(Calls(), ElementsAre("b Stay", "a Stay"));
}

TEST_F(ResolutionTest, TheOnlyBodyMovesByThePenetrationWhateverItsMassAndSign) {
  Make(Mover(-1, 0), "");
  BodyOf(a).m_inv_mass = 0.0f;
  Resolve(Contact(2));
  EXPECT_EQ(PositionOf(a), Vector3D(-3, 0, 1));
  Resolve(Contact(-5));
  EXPECT_EQ(PositionOf(a), Vector3D(2, 0, 1)) << "a negative one is not held at 0";
}

TEST_F(ResolutionTest, ASensorWithOneBodyDoesNothing) {
  Make(Mover(10, 0), "");
  Resolve(Contact(5, {}));
  EXPECT_THAT(Calls(), IsEmpty());
  EXPECT_EQ(g_physics_system->current.size(), 0u);
  EXPECT_EQ(PositionOf(a), Vector3D(-1, 0, 1));
}

TEST_F(ResolutionTest, ACallbackLetsTheOnlyBodyPassThrough) {
  Make(Mover(10, 0), "");
  ContactListener::hook = [](const std::string& name, ContactInfo* contact) {
    if (name == "b Enter") contact->ignored = true;
  };
  Resolve(Contact(5));
  EXPECT_EQ(BodyOf(a).m_vel, Vector3D(10, 0, 0));
  EXPECT_EQ(PositionOf(a), Vector3D(-1, 0, 1));
}

TEST_F(ResolutionTest, TwoPointsPushTheOnlyBodyOnce) {
  Make(Mover(10, 0), "");
  Resolve(Contact(5, {Vector3D(0, 0, 1), Vector3D(0, 0, 1)}));
  EXPECT_EQ(PositionOf(a), Vector3D(-6, 0, 1));
  EXPECT_EQ(g_physics_system->current.size(), 2u);
  EXPECT_EQ(BodyOf(a).m_vel.x, 0.0f);
}

TEST_F(ResolutionTest, WithOneBodyANormalThatIsNoNumberIsNotReported) {
  Make(Mover(10, 0), "");
  ContactInfo contact = Contact();
  contact.normal.x = std::numeric_limits<float>::quiet_NaN();
  EXPECT_EQ(carapace_test::ReportOf([&] { Resolve(contact); }), "");
  EXPECT_TRUE(std::isnan(PositionOf(a).x));
}

TEST_F(ResolutionTest, WithoutABodyNothingHappens) {
  Make("", "");
  Resolve(Contact(5));
  EXPECT_THAT(Calls(), IsEmpty());
  EXPECT_EQ(g_physics_system->current.size(), 0u);
  EXPECT_EQ(PositionOf(a), Vector3D(-1, 0, 1));
}

// Contacts over several steps

class ContactStepsTest : public PhysicsFixture {
 protected:
  /// The calls of the next step.
  std::vector<std::string> Step() {
    ContactListener::calls.clear();
    world.Step();
    return ContactListener::calls;
  }
};

TEST_F(ContactStepsTest, AContactBeginsLastsAndEnds) {
  GameObj* mover =
      Add({.name = "m", .size = Vector3D(4, 4, 1), .body = Mover(), .shape = "Circle"});
  Add({.name = "w", .at = Vector3D(3, 0, 1), .size = Vector3D(4, 4, 1), .shape = "Circle"});
  const auto hold = [mover] { PositionOf(mover) = Vector3D(0, 0, 1); };
  EXPECT_THAT(Step(), ElementsAre("m Stay", "w Stay", "m Enter", "w Enter"));
  hold();
  EXPECT_THAT(Step(), ElementsAre("m Stay", "w Stay"));
  PositionOf(mover) = Vector3D(-100, 0, 1);
  EXPECT_THAT(Step(), IsEmpty()) << "this step finds no contact";
  EXPECT_THAT(Step(), ElementsAre("m Exit", "w Exit")) << "and this one tells of it";
  EXPECT_THAT(Step(), IsEmpty());
  hold();
  EXPECT_THAT(Step(), ElementsAre("m Stay", "w Stay", "m Enter", "w Enter"));
}

TEST_F(ContactStepsTest, AContactOfTwoPointsEndsTwiceWithItsOldRecord) {
  GameObj* mover = Add({.name = "m", .body = Mover()});
  Add({.name = "w", .at = Vector3D(1.5f, 0, 1)});
  Step();
  ASSERT_EQ(g_physics_system->current.size(), 2u);
  PositionOf(mover) = Vector3D(-100, 0, 1);
  Step();
  std::vector<float> depths;
  ContactListener::hook = [&](const std::string&, ContactInfo* contact) {
    depths.push_back(contact->penetration);
  };
  EXPECT_THAT(Step(), ElementsAre("m Exit", "w Exit", "m Exit", "w Exit"));
  EXPECT_THAT(depths, ElementsAre(0.5f, 0.5f, 0.5f, 0.5f));
}

TEST_F(ContactStepsTest, ExitGoesToAFirstEvenWhenTheBodyIsB) {
  Add({.name = "w", .at = Vector3D(3, 0, 1), .size = Vector3D(4, 4, 1), .shape = "Circle"});
  GameObj* mover =
      Add({.name = "m", .size = Vector3D(4, 4, 1), .body = Mover(), .shape = "Circle"});
  EXPECT_THAT(Step(), ElementsAre("m Stay", "w Stay", "m Enter", "w Enter"));
  PositionOf(mover) = Vector3D(-100, 0, 1);
  Step();
  EXPECT_THAT(Step(), ElementsAre("w Exit", "m Exit"));
}

TEST_F(ContactStepsTest, APairThatSwapsItsSidesLasts) {
  // Whoever stands deeper in the tree is A: ten bystanders split the root, and then the small one
  // does, until it straddles a midline of the field.
  Add({.name = "w", .at = Vector3D(0, 500, 1), .size = Vector3D(8, 8, 1), .shape = "Circle"});
  GameObj* mover = Add({.name = "m",
                        .at = Vector3D(3.5f, 500, 1),
                        .size = Vector3D(4, 4, 1),
                        .body = Mover(),
                        .shape = "Circle"});
  for (int i = 0; i < 10; ++i) {
    Add({.name = "x", .at = Vector3D(-900.0f + 20.0f * static_cast<float>(i), -500, 1)});
  }
  Step();
  ASSERT_THAT(Pairs(), ElementsAre("m-w"));
  PositionOf(mover) = Vector3D(1, 500, 1);
  EXPECT_THAT(Step(), ElementsAre("m Stay", "w Stay")) << "no Exit, and no Enter";
  EXPECT_THAT(Pairs(), ElementsAre("w-m"));
}

TEST_F(ContactStepsTest, DeactivatingTheHolderEndsTheContact) {
  GameObj* mover =
      Add({.name = "m", .size = Vector3D(4, 4, 1), .body = Mover(), .shape = "Circle"});
  Add({.name = "w", .at = Vector3D(3, 0, 1), .size = Vector3D(4, 4, 1), .shape = "Circle"});
  Step();
  Of<ColliderHolder>(mover).m_active = false;
  EXPECT_THAT(Step(), IsEmpty());
  EXPECT_THAT(Step(), ElementsAre("m Exit", "w Exit"));
}

TEST_F(ContactStepsTest, WhilePausedAContactBeginsAnewInEveryStep) {
  GameObj* mover = Add({.name = "m", .body = Mover()});
  GameObj* wall = Add({.name = "w", .at = Vector3D(1.5f, 0, 1), .shape = "Circle"});
  g_engine->paused = true;
  for (std::size_t step = 1; step <= 3; ++step) {
    PositionOf(mover) = Vector3D(0, 0, 1);
    EXPECT_THAT(Step(), ElementsAre("m Stay", "w Stay", "m Enter", "w Enter")) << step;
    EXPECT_EQ(g_physics_system->current.size(), step) << "the lists are not rotated";
    EXPECT_EQ(g_physics_system->previous.size(), 0u);
  }
  Of<ColliderHolder>(wall).m_active = false;
  EXPECT_THAT(Step(), IsEmpty());
  EXPECT_THAT(Step(), IsEmpty()) << "nothing ends in a pause";
  g_engine->paused = false;
  EXPECT_THAT(Step(), IsEmpty()) << "the pause's contacts become the step before";
  EXPECT_EQ(Step().size(), 6u) << "and each of its records ends";
}

TEST_F(ContactStepsTest, APairThatWasThereBeforeThePauseIsNotEnteredAgain) {
  GameObj* mover = Add({.name = "m", .body = Mover()});
  Add({.name = "w", .at = Vector3D(1.5f, 0, 1), .shape = "Circle"});
  Step();
  PositionOf(mover) = Vector3D(0, 0, 1);
  Step();
  g_engine->paused = true;
  PositionOf(mover) = Vector3D(0, 0, 1);
  EXPECT_THAT(Step(), ElementsAre("m Stay", "w Stay"));
}

TEST_F(ContactStepsTest, ClearingTheObjectsForgetsTheirContacts) {
  Add({.name = "m", .size = Vector3D(4, 4, 1), .body = Mover(), .shape = "Circle"});
  Add({.name = "w", .at = Vector3D(3, 0, 1), .size = Vector3D(40, 40, 1), .shape = "Circle"});
  Step();
  Step();
  g_game_obj_factory->ClearObjects();
  EXPECT_EQ(g_physics_system->current.size(), 0u);
  EXPECT_EQ(g_physics_system->previous.size(), 0u);
  EXPECT_THAT(Step(), IsEmpty());
}

TEST_F(ContactStepsTest, ACallbackMayAddForcesAndSwitchOff) {
  GameObj* mover =
      Add({.name = "m", .size = Vector3D(4, 4, 1), .body = Mover(), .shape = "Circle"});
  GameObj* wall =
      Add({.name = "w", .at = Vector3D(3, 0, 1), .size = Vector3D(4, 4, 1), .shape = "Circle"});
  ContactListener::hook = [&](const std::string& call, ContactInfo*) {
    if (call != "m Enter") return;
    world.Send(AddForceToObject(mover->id, Vector3D(0, 1, 0), 60.0f, 5.0f));
    wall->SetActive(false);
  };
  Step();
  EXPECT_EQ(BodyOf(mover).m_forces.size(), 1u);
  EXPECT_FALSE(Of<ColliderHolder>(wall).m_active);
  Step();
  EXPECT_EQ(BodyOf(mover).m_vel.y, 60.0f * kStep);
}

}  // namespace
}  // namespace ZOVEngine
