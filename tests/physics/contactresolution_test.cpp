#include "physics/contactresolution.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>
#include <utility>

#include "core/messages.h"
#include "physics/physicsfixture.h"
#include "support/reports.h"
#include "support/world.h"

namespace ZOVEngine {
namespace {

using carapace_test::ContactListener;
using carapace_test::Mover;
using carapace_test::PhysicsFixture;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

/// Two objects at (-1, 0) and (1, 0) and contacts between them that are made by hand. The normal
/// points from B to A.
class ContactResolutionTest : public PhysicsFixture {
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

  /// An object without a collider, and without a body if `body` is empty.
  GameObj* AddBare(const std::string& name, const std::string& body) {
    std::vector<std::pair<std::string, std::string>> parts = {
        {"Transform", carapace_test::TransformAt(0, 0)}};
    if (!body.empty()) parts.emplace_back("RigidBody", body);
    world.LoadObjects(carapace_test::Record(name, parts));
    return world.Find(name);
  }

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

TEST_F(ContactResolutionTest, TheSmallerRestitutionBouncesTwoBodies) {
  MakeMovers();
  GetBody(a).m_rest = 0.5f;
  GetBody(b).m_rest = 1.0f;
  Resolve(Contact());
  // They approach at 16; j = 1.5 x 16 / 2 = 12.
  EXPECT_EQ(GetBody(a).m_vel, Vector3D(-2, 0, 0));
  EXPECT_EQ(GetBody(b).m_vel, Vector3D(6, 0, 0));
}

TEST_F(ContactResolutionTest, AHeavyBodyGivesWayLess) {
  MakeMovers();
  GetBody(b).m_inv_mass = 0.25f;
  Resolve(Contact());
  // j = 16 / 1.25 = 12.8.
  EXPECT_FLOAT_EQ(GetBody(a).m_vel.x, -2.8f);
  EXPECT_FLOAT_EQ(GetBody(b).m_vel.x, -2.8f);
}

TEST_F(ContactResolutionTest, TheRecordHoldsTheVelocitiesAtThePoint) {
  MakeMovers();
  GetBody(a).m_rot_vel = 180.0f;
  GetBody(b).m_rot_vel = -90.0f;
  GetBody(a).m_vel = Vector3D(10, 1, 7);
  GetBody(b).m_vel = Vector3D(-6, 2, 3);
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

TEST_F(ContactResolutionTest, AnImpulseBesideTheCentreTurnsABodyWithoutChangingUnits) {
  Make(Mover(10, 0), Mover());
  GetBody(a).m_inv_inertia = 0.25f;
  GetBody(b).m_inv_mass = 0.0f;
  GetBody(b).m_inv_inertia = 1.0f;
  Resolve(Contact(0, {Vector3D(1, 2, 1)}));
  // rA = (2, 2), rB = (0, 2): cA = cB = 2; j = 10 / (1 + 4 x 0.25 + 4 x 1) = 5 / 3.
  const float j = 5.0f / 3.0f;
  EXPECT_FLOAT_EQ(GetBody(a).m_vel.x, 10 - j);
  EXPECT_FLOAT_EQ(GetBody(a).m_rot_vel, 2 * j * 0.25f);
  EXPECT_FLOAT_EQ(GetBody(b).m_rot_vel, -2 * j);
  EXPECT_EQ(GetBody(b).m_vel.x, 0.0f);
}

TEST_F(ContactResolutionTest, AnImpulseAlongYTurnsByTheArmInX) {
  Make(Mover(0, -8), Mover());
  GetBody(a).m_inv_inertia = 1.0f;
  ContactInfo contact = Contact(0, {Vector3D(0, 0, 1)});
  contact.normal = Vector3D(0, 1, 0);
  Resolve(contact);
  // rA = (1, 0), cA = 1; B does not turn: j = 8 / (1 + 1 + 1).
  EXPECT_FLOAT_EQ(GetBody(a).m_vel.y, -8 + 8.0f / 3);
  EXPECT_FLOAT_EQ(GetBody(b).m_vel.y, -8.0f / 3);
  EXPECT_FLOAT_EQ(GetBody(a).m_rot_vel, 8.0f / 3);
}

TEST_F(ContactResolutionTest, AnImpulseClearsTheVelocityInDepth) {
  MakeMovers();
  GetBody(a).m_vel.z = GetBody(b).m_vel.z = 5.0f;
  Resolve(Contact());
  EXPECT_EQ(GetBody(a).m_vel.z, 0.0f);
  EXPECT_EQ(GetBody(b).m_vel.z, 0.0f);
}

TEST_F(ContactResolutionTest, BodiesThatPartOrRestGetNoImpulseButAreMovedApart) {
  Make(Mover(-10, 0), Mover(-10, 0));
  GetBody(a).m_vel.z = 5.0f;
  for (const float away : {0.0f, 4.0f}) {
    GetBody(b).m_vel.x = -10.0f + away;
    LocalPosition(a) = Vector3D(-1, 0, 1);
    Resolve(Contact(2));
    EXPECT_EQ(GetBody(a).m_vel, Vector3D(-10, 0, 5)) << away;
    EXPECT_EQ(GetBody(b).m_vel.x, -10.0f + away);
    EXPECT_EQ(LocalPosition(a), Vector3D(-2, 0, 1)) << away;
  }
  EXPECT_THAT(Calls(), Contains("a Stay"));
}

TEST_F(ContactResolutionTest, ThePenetrationIsSharedByInverseMass) {
  MakeMovers();
  GetBody(b).m_inv_mass = 0.25f;
  Resolve(Contact(5));
  // q = 5 / 1.25.
  EXPECT_EQ(LocalPosition(a), Vector3D(-5, 0, 1));
  EXPECT_EQ(LocalPosition(b), Vector3D(2, 0, 1));
  EXPECT_EQ(Of<Transform>(a).m_prev_pos, Vector3D(-5, 0, 1));
  EXPECT_EQ(Of<Transform>(b).m_prev_pos, Vector3D(2, 0, 1));
}

TEST_F(ContactResolutionTest, AMassOf0LeavesAllTheWayToTheOther) {
  Make(R"({"m_mass": 0, "m_inertia": 0})", Mover(-6, 0));
  EXPECT_EQ(GetBody(a).m_inv_mass, 0.0f);
  Resolve(Contact(5));
  EXPECT_EQ(LocalPosition(a), Vector3D(-1, 0, 1));
  EXPECT_EQ(LocalPosition(b), Vector3D(6, 0, 1));
  EXPECT_EQ(GetBody(a).m_vel, Vector3D(0, 0, 0));
  EXPECT_EQ(GetBody(b).m_vel, Vector3D(0, 0, 0));
}

TEST_F(ContactResolutionTest, ANegativePenetrationMovesNeitherBody) {
  MakeMovers();
  Resolve(Contact(-5));
  EXPECT_EQ(LocalPosition(a), Vector3D(-1, 0, 1));
  EXPECT_EQ(LocalPosition(b), Vector3D(1, 0, 1));
}

TEST_F(ContactResolutionTest, TwoBodiesWithoutMassEndNowhere) {
  Make(Mover(), Mover());
  GetBody(a).m_inv_mass = GetBody(b).m_inv_mass = 0.0f;
  Resolve(Contact(5));
  EXPECT_TRUE(std::isnan(LocalPosition(a).x)) << "an infinite share times an inverse mass of 0";
  EXPECT_TRUE(std::isnan(LocalPosition(b).x));
}

TEST_F(ContactResolutionTest, ANormalInDepthMovesTheBodiesInDepth) {
  MakeMovers();
  ContactInfo contact = Contact(2);
  contact.normal = Vector3D(0, 0, -1);
  Resolve(contact);
  EXPECT_EQ(LocalPosition(a).z, 0.0f);
  EXPECT_EQ(LocalPosition(b).z, 2.0f);
}

TEST_F(ContactResolutionTest, AContactWithoutPointsIsASensor) {
  MakeMovers();
  Resolve(Contact(5, {}));
  EXPECT_THAT(Calls(), IsEmpty());
  EXPECT_EQ(g_physics_system->current.size(), 0u);
  EXPECT_EQ(GetBody(a).m_vel, Vector3D(10, 0, 0));
  EXPECT_EQ(LocalPosition(a), Vector3D(-1, 0, 1));
  EXPECT_EQ(LocalPosition(b), Vector3D(1, 0, 1));
}

TEST_F(ContactResolutionTest, ANewPairIsToldOfStayBeforeEnter) {
  MakeMovers();
  Resolve(Contact());
  EXPECT_THAT(Calls(), ElementsAre("a Stay", "b Stay", "a Enter", "b Enter"));
}

TEST_F(ContactResolutionTest, APairOfTheStepBeforeIsNotEnteredAgainWhicheverSideIsA) {
  for (const bool swapped : {false, true}) {
    MakeMovers();
    SetPrevious(swapped ? 1 : 0, swapped ? 0 : 1);
    Calls().clear();
    Resolve(Contact());
    EXPECT_THAT(Calls(), ElementsAre("a Stay", "b Stay"));
    g_game_obj_factory->ClearObjects();
  }
}

TEST_F(ContactResolutionTest, APairThatSharesOneObjectOnlyIsNew) {
  MakeMovers();
  for (const auto& [one, other] : {std::pair{0u, 7u}, std::pair{7u, 1u}, std::pair{0u, 0u}}) {
    SetPrevious(one, other);
    Calls().clear();
    Resolve(Contact());
    EXPECT_THAT(Calls(), ElementsAre("a Stay", "b Stay", "a Enter", "b Enter"));
  }
}

TEST_F(ContactResolutionTest, TwoPointsGiveTwoImpulsesTwoRoundsOfCallsAndOneCorrection) {
  MakeMovers();
  GetBody(a).m_rest = GetBody(b).m_rest = 0.0f;
  GetBody(a).m_inv_inertia = GetBody(b).m_inv_inertia = 0.25f;
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
  EXPECT_FLOAT_EQ(GetBody(a).m_vel.x, 6 - approach / 4);
  EXPECT_EQ(LocalPosition(a), Vector3D(-3, 0, 1)) << "4 is shared once";
  EXPECT_EQ(LocalPosition(b), Vector3D(3, 0, 1));
}

TEST_F(ContactResolutionTest, ACallbackLetsTheContactPassThrough) {
  for (const char* call : {"a Stay", "b Stay", "a Enter", "b Enter"}) {
    MakeMovers();
    ContactListener::hook = [call](const std::string& name, ContactInfo* contact) {
      if (name == call) contact->ignored = true;
    };
    Resolve(Contact(5));
    EXPECT_EQ(GetBody(a).m_vel, Vector3D(10, 0, 0)) << call;
    EXPECT_EQ(GetBody(b).m_vel, Vector3D(-6, 0, 0)) << call;
    EXPECT_EQ(LocalPosition(a), Vector3D(-1, 0, 1)) << call;
    EXPECT_EQ(g_physics_system->current.size(), 1u) << call;
    ContactListener::hook = nullptr;
    g_game_obj_factory->ClearObjects();
  }
}

TEST_F(ContactResolutionTest, AnIgnoredContactStillCallsForItsSecondPoint) {
  MakeMovers();
  ContactListener::hook = [](const std::string&, ContactInfo* contact) { contact->ignored = true; };
  Resolve(Contact(5, {Vector3D(0, 0, 1), Vector3D(0, 0, 1)}));
  EXPECT_EQ(Calls().size(), 8u);
  ASSERT_EQ(g_physics_system->current.size(), 2u);
  EXPECT_FALSE(g_physics_system->current[0].contact.ignored) << "copied before the callbacks";
  EXPECT_TRUE(g_physics_system->current[1].contact.ignored);
}

TEST_F(ContactResolutionTest, ACallbackMayStopABodyBeforeItsImpulse) {
  MakeMovers();
  ContactListener::hook = [this](const std::string& name, ContactInfo*) {
    if (name == "a Stay") GetBody(a).m_vel = Vector3D();
  };
  Resolve(Contact());
  EXPECT_EQ(GetBody(a).m_vel.x, -8.0f) << "0 and the impulse of the approach that was measured";
}

TEST_F(ContactResolutionTest, ContactsAreResolvedInTheirOrder) {
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

TEST_F(ContactResolutionTest, ANormalThatIsNoNumberEndsTheProgram) {
  MakeMovers();
  for (const int axis : {0, 1}) {
    ContactInfo contact = Contact();
    contact.normal.v[axis] = std::numeric_limits<float>::quiet_NaN();
    EXPECT_THAT(carapace_test::ReportOf([&] { Resolve(contact); }),
                HasSubstr("Collision Normal is NAN (physicssystem.cpp, Line 291)"));
  }
}

TEST_F(ContactResolutionTest, AnInactiveBodyCountsAsABody) {
  MakeMovers();
  GetBody(b).m_active = false;
  Resolve(Contact(4));
  EXPECT_EQ(GetBody(a).m_vel.x, 2.0f);
  EXPECT_EQ(LocalPosition(b), Vector3D(3, 0, 1));
}

// One body

TEST_F(ContactResolutionTest, TheOnlyBodyTakesAllOfTheContact) {
  Make(Mover(10, 3), "");
  GetBody(a).m_rest = 0.5f;
  Resolve(Contact(2));
  EXPECT_EQ(GetBody(a).m_vel, Vector3D(-5, 3, 0));
  EXPECT_EQ(LocalPosition(a), Vector3D(-3, 0, 1));
  EXPECT_EQ(Of<Transform>(a).m_prev_pos, Vector3D(-3, 0, 1));
  EXPECT_EQ(LocalPosition(b), Vector3D(1, 0, 1));
}

TEST_F(ContactResolutionTest, TheOnlyBodyIsTurnedByItsArm) {
  Make(Mover(10, 0), "");
  GetBody(a).m_inv_mass = 0.5f;
  GetBody(a).m_inv_inertia = 0.125f;
  GetBody(a).m_rot_vel = 180.0f;
  Resolve(Contact(0, {Vector3D(0, 2, 1)}));
  // r = (1, 2), u = -(10 - pi x 2), c = 2: j = -u / (0.5 + 4 x 0.125) = -u.
  const float j = 10 - 3.1415927f * 2;
  EXPECT_FLOAT_EQ(GetBody(a).m_vel.x, 10 - j * 0.5f);
  EXPECT_FLOAT_EQ(GetBody(a).m_rot_vel, 180 + 2 * j * 0.125f);
}

TEST_F(ContactResolutionTest, ABodyThatIsBIsPushedOutButNotBouncedByItsApproach) {
  Make("", Mover(-6, 0));
  Resolve(Contact(2));
  EXPECT_EQ(GetBody(b).m_vel, Vector3D(-6, 0, 0)) << "the normal is not turned for B";
  EXPECT_EQ(LocalPosition(b), Vector3D(3, 0, 1));
  EXPECT_EQ(Of<Transform>(b).m_prev_pos, Vector3D(3, 0, 1));
  EXPECT_EQ(LocalPosition(a), Vector3D(-1, 0, 1));
}

TEST_F(ContactResolutionTest, ABodyThatIsBIsReflectedWhenItLeaves) {
  Make("", Mover(6, 0));
  GetBody(b).m_rest = 1.0f;
  Resolve(Contact(2));
  EXPECT_EQ(GetBody(b).m_vel, Vector3D(-6, 0, 0));
}

TEST_F(ContactResolutionTest, OneBodyLeavesTheContactsVelocitiesAlone) {
  Make(Mover(10, 0), "");
  ContactInfo contact = Contact();
  contact.relativeVelocity = Vector3D(1, 2, 3);
  contact.normalVelocity = 4.0f;
  Resolve(contact);
  ASSERT_EQ(g_physics_system->current.size(), 1u);
  EXPECT_EQ(g_physics_system->current[0].contact.relativeVelocity, Vector3D(1, 2, 3));
  EXPECT_EQ(g_physics_system->current[0].contact.normalVelocity, 4.0f);
}

TEST_F(ContactResolutionTest, TheSideWithTheBodyIsToldFirst) {
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

TEST_F(ContactResolutionTest, TheOnlyBodyMovesByThePenetrationWhateverItsMassAndSign) {
  Make(Mover(-1, 0), "");
  GetBody(a).m_inv_mass = 0.0f;
  Resolve(Contact(2));
  EXPECT_EQ(LocalPosition(a), Vector3D(-3, 0, 1));
  Resolve(Contact(-5));
  EXPECT_EQ(LocalPosition(a), Vector3D(2, 0, 1)) << "a negative one is not held at 0";
}

TEST_F(ContactResolutionTest, ASensorWithOneBodyDoesNothing) {
  Make(Mover(10, 0), "");
  Resolve(Contact(5, {}));
  EXPECT_THAT(Calls(), IsEmpty());
  EXPECT_EQ(g_physics_system->current.size(), 0u);
  EXPECT_EQ(LocalPosition(a), Vector3D(-1, 0, 1));
}

TEST_F(ContactResolutionTest, ACallbackLetsTheOnlyBodyPassThrough) {
  Make(Mover(10, 0), "");
  ContactListener::hook = [](const std::string& name, ContactInfo* contact) {
    if (name == "b Enter") contact->ignored = true;
  };
  Resolve(Contact(5));
  EXPECT_EQ(GetBody(a).m_vel, Vector3D(10, 0, 0));
  EXPECT_EQ(LocalPosition(a), Vector3D(-1, 0, 1));
}

TEST_F(ContactResolutionTest, TwoPointsPushTheOnlyBodyOnce) {
  Make(Mover(10, 0), "");
  Resolve(Contact(5, {Vector3D(0, 0, 1), Vector3D(0, 0, 1)}));
  EXPECT_EQ(LocalPosition(a), Vector3D(-6, 0, 1));
  EXPECT_EQ(g_physics_system->current.size(), 2u);
  EXPECT_EQ(GetBody(a).m_vel.x, 0.0f);
}

TEST_F(ContactResolutionTest, WithOneBodyANormalThatIsNoNumberIsNotReported) {
  Make(Mover(10, 0), "");
  ContactInfo contact = Contact();
  contact.normal.x = std::numeric_limits<float>::quiet_NaN();
  EXPECT_EQ(carapace_test::ReportOf([&] { Resolve(contact); }), "");
  EXPECT_TRUE(std::isnan(LocalPosition(a).x));
}

TEST_F(ContactResolutionTest, WithoutABodyNothingHappens) {
  Make("", "");
  Resolve(Contact(5));
  EXPECT_THAT(Calls(), IsEmpty());
  EXPECT_EQ(g_physics_system->current.size(), 0u);
  EXPECT_EQ(LocalPosition(a), Vector3D(-1, 0, 1));
}

TEST_F(ContactResolutionTest, ASideWithoutABodyNeedsNoCollider) {
  a = Add({.name = "a", .at = Vector3D(-1, 0, 1), .body = Mover(10, 0), .shape = "Circle"});
  b = AddBare("b", "");
  g_physics_system->UpdateWorldTransforms();
  Of<ColliderHolder>(a).m_collider->UpdateCollider(Of<Transform>(a));
  Resolve(Contact(5));
  EXPECT_EQ(GetBody(a).m_vel.x, 0.0f);
  EXPECT_EQ(LocalPosition(a), Vector3D(-6, 0, 1));
}

TEST_F(ContactResolutionTest, WithoutBodiesNobodyNeedsACollider) {
  a = AddBare("a", "");
  b = AddBare("b", "");
  Resolve(Contact(5));
  EXPECT_EQ(g_physics_system->current.size(), 0u);
}

TEST_F(ContactResolutionTest, ABodyWithoutAColliderFailsAsItsTableDoes) {
  a = AddBare("a", Mover(10, 0));
  b = Add({.name = "b", .shape = "Circle"});
  EXPECT_THROW(Resolve(Contact(5)), std::out_of_range);
}

}  // namespace
}  // namespace ZOVEngine
