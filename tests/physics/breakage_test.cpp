#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>

#include "physics/physicsfixture.h"
#include "support/reports.h"

namespace ZOVEngine {
namespace {

using carapace_test::ContactListener;
using carapace_test::Mover;
using carapace_test::PhysicsFixture;
using carapace_test::ReportOf;
using ::testing::Contains;
using ::testing::HasSubstr;

/// Data that no editor makes: it must give some result without undefined behaviour, which the
/// sanitizers watch, and must not spoil the objects beside it.
class PhysicsBreakage : public PhysicsFixture {
 protected:
  /// Two circles that meet whatever stands beside them.
  void AddWitnesses() {
    left = Add({.name = "left", .at = Vector3D(300, 300, 1), .body = Mover(), .shape = "Circle"});
    right = Add({.name = "right", .at = Vector3D(301, 300, 1), .shape = "Circle"});
  }
  void ExpectWitnessesMeet() {
    LocalPosition(left) = Vector3D(300, 300, 1);
    ContactListener::calls.clear();
    world.Step();
    EXPECT_THAT(ContactListener::calls, Contains("left Stay"));
    EXPECT_EQ(LocalPosition(left), Vector3D(299, 300, 1)) << "pushed out by the depth of 1";
  }
  GameObj* AddOdd(const std::string& shape, const std::string& vertices = {}) {
    return Add({.name = "odd", .body = Mover(5, 5), .shape = shape, .vertices = vertices});
  }

  GameObj* left = nullptr;
  GameObj* right = nullptr;
};

TEST_F(PhysicsBreakage, PolygonsWithFewOrCollinearVertices) {
  AddWitnesses();
  for (const char* vertices :
       {"[]", "[[0, 0, 1]]", "[[0, 0, 1], [1, 0, 1]]", "[[0, 0, 1], [1, 0, 1], [2, 0, 1]]",
        "[[0, 0, 1], [0, 0, 1], [0, 0, 1]]", "[[3e38, 0, 1], [-3e38, 1, 1], [0, 3e38, 1]]"}) {
    for (const char* other : {"Box", "Circle"}) {
      AddOdd("Polygon", vertices);
      AddOdd(other);
    }
  }
  for (int i = 0; i < 5; ++i) ExpectWitnessesMeet();
}

TEST_F(PhysicsBreakage, PlacesAndAnglesThatAreNoNumbersOrTooLarge) {
  AddWitnesses();
  const float nan = std::numeric_limits<float>::quiet_NaN();
  const float infinite = std::numeric_limits<float>::infinity();
  for (const float value : {nan, infinite, -infinite, 3e38f, -3e38f, 0.0f, -10.0f, 1e-40f}) {
    for (const char* shape : {"Box", "Circle"}) {
      LocalPosition(AddOdd(shape)).x = value;
      LocalPosition(AddOdd(shape)).y = value;
      Of<Transform>(AddOdd(shape)).m_local_rotate = value;
    }
  }
  for (int i = 0; i < 5; ++i) ExpectWitnessesMeet();
}

TEST_F(PhysicsBreakage, SizesThatAreNoNumbersZeroOrNegative) {
  AddWitnesses();
  const float nan = std::numeric_limits<float>::quiet_NaN();
  for (const float value : {nan, 0.0f, -10.0f, 1e-40f}) {
    for (const char* shape : {"Box", "Circle"}) {
      Of<Transform>(AddOdd(shape)).m_local_scale.x = value;
      Of<Transform>(AddOdd(shape)).m_local_scale.y = value;
    }
  }
  for (int i = 0; i < 5; ++i) ExpectWitnessesMeet();
}

TEST_F(PhysicsBreakage, SizesBeyondTheWorldTouchEverybody) {
  AddWitnesses();
  for (const float value : {1e9f, 3e38f, std::numeric_limits<float>::infinity()}) {
    for (const char* shape : {"Box", "Circle"}) {
      Of<Transform>(AddOdd(shape)).m_local_scale = Vector3D(value, value, 1);
    }
  }
  world.Step(5);
  EXPECT_EQ(spy->messages, 5);
  EXPECT_EQ(LocalPosition(right), Vector3D(301, 300, 1)) << "what has no body stays";
}

TEST_F(PhysicsBreakage, VelocitiesForcesAndMassesThatAreNoNumbersOrTooLarge) {
  AddWitnesses();
  const float nan = std::numeric_limits<float>::quiet_NaN();
  for (const float value : {nan, 3e38f, -3e38f}) {
    GetBody(AddOdd("Circle")).m_vel.x = value;
    GetBody(AddOdd("Circle")).m_rot_vel = value;
    GetBody(AddOdd("Box")).m_inv_mass = value;
    GetBody(AddOdd("Box")).m_drag = value;
    GetBody(AddOdd("Box")).m_angular_drag = value;
    const std::uint32_t id = AddOdd("Circle")->id;
    world.Send(AddForceToObject(id, Vector3D(value, 1, 0), value, value));
    world.Send(AddTorqueToObject(id, value, 1.0f));
  }
  for (int i = 0; i < 5; ++i) ExpectWitnessesMeet();
}

TEST_F(PhysicsBreakage, AnActiveHolderWithoutAShapeEndsTheProgramWithItsName) {
  ColliderHolder& holder = Of<ColliderHolder>(AddOdd("Box"));
  holder.SetType("Capsule");
  EXPECT_THAT(ReportOf([&] { world.Step(); }),
              HasSubstr("object \"odd\": the collider is no \"Capsule\""));
  holder.m_active = false;
  EXPECT_EQ(ReportOf([&] { world.Step(); }), "");
}

TEST_F(PhysicsBreakage, AKindThatIsNotItsShapesEndsTheProgramWithItsName) {
  for (const auto& [shape, kind] : {std::pair{"Box", "Circle"}, std::pair{"Circle", "Polygon"}}) {
    Of<ColliderHolder>(AddOdd(shape)).m_collider_type = kind;
    EXPECT_THAT(ReportOf([&] { world.Step(); }),
                HasSubstr(std::string("object \"odd\": the collider is no \"") + kind + "\""));
    g_game_obj_factory->ClearObjects();
  }
}

TEST_F(PhysicsBreakage, ABoxWhoseVerticesWereTaken) {
  AddWitnesses();
  for (const std::size_t count : {0u, 1u, 2u, 3u}) {
    auto& box = dynamic_cast<PolygonCollider&>(*Of<ColliderHolder>(AddOdd("Box")).m_collider);
    box.SetLocalVertices(std::vector<Vector3D>(count, Vector3D(0, 0, 1)));
  }
  AddOdd("Box");
  ExpectWitnessesMeet();
}

}  // namespace
}  // namespace ZOVEngine
