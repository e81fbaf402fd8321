#include "physicssystem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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
using carapace_test::Record;
using carapace_test::TransformAt;
using carapace_test::World;
using ::testing::ElementsAre;
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
  const auto hold = [mover] { LocalPosition(mover) = Vector3D(0, 0, 1); };
  EXPECT_THAT(Step(), ElementsAre("m Stay", "w Stay", "m Enter", "w Enter"));
  hold();
  EXPECT_THAT(Step(), ElementsAre("m Stay", "w Stay"));
  LocalPosition(mover) = Vector3D(-100, 0, 1);
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
  LocalPosition(mover) = Vector3D(-100, 0, 1);
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
  LocalPosition(mover) = Vector3D(-100, 0, 1);
  Step();
  EXPECT_THAT(Step(), ElementsAre("w Exit", "m Exit"));
}

TEST_F(ContactStepsTest, APairThatSwapsItsSidesLasts) {
  // The shape deeper in the tree is A: ten bystanders split the root, and then the small one
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
  LocalPosition(mover) = Vector3D(1, 500, 1);
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
    LocalPosition(mover) = Vector3D(0, 0, 1);
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
  LocalPosition(mover) = Vector3D(0, 0, 1);
  Step();
  g_engine->paused = true;
  LocalPosition(mover) = Vector3D(0, 0, 1);
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
  EXPECT_EQ(GetBody(mover).m_forces.size(), 1u);
  EXPECT_FALSE(Of<ColliderHolder>(wall).m_active);
  Step();
  EXPECT_EQ(GetBody(mover).m_vel.y, 60.0f * kStep);
}

TEST_F(ContactStepsTest, TwoContactsAtOncePassAnImpulseOnInTheirOrder) {
  const Vector3D size(4, 4, 1);
  GameObj* left = Add({.name = "l",
                       .at = Vector3D(-3, 0, 1),
                       .size = size,
                       .body = Mover(2, 0),
                       .shape = "Circle"});
  GameObj* middle = Add({.name = "m", .size = size, .body = Mover(), .shape = "Circle"});
  GameObj* right =
      Add({.name = "r", .at = Vector3D(3, 0, 1), .size = size, .body = Mover(), .shape = "Circle"});
  EXPECT_THAT(Step(), ElementsAre("l Stay", "m Stay", "l Enter", "m Enter",  //
                                  "m Stay", "r Stay", "m Enter", "r Enter"));
  EXPECT_THAT(Pairs(), ElementsAre("l-m", "m-r"));
  EXPECT_EQ(GetBody(left).m_vel, Vector3D(1, 0, 0)) << "half of it goes to the middle";
  EXPECT_EQ(GetBody(middle).m_vel, Vector3D(0.5f, 0, 0)) << "and half of that to the right";
  EXPECT_EQ(GetBody(right).m_vel, Vector3D(0.5f, 0, 0));
}

TEST_F(ContactStepsTest, ABodyPressedAgainstAWallStaysInContactAndInItsPlace) {
  const Vector3D size(4, 4, 1);
  GameObj* mover = Add(
      {.name = "m", .at = Vector3D(-4, 0, 1), .size = size, .body = Mover(), .shape = "Circle"});
  Add({.name = "w", .size = size, .shape = "Circle"});
  world.Send(AddForceToObject(mover->id, Vector3D(1, 0, 0), 60.0f, 5.0f));
  EXPECT_THAT(Step(), ElementsAre("m Stay", "w Stay", "m Enter", "w Enter"));
  for (int step = 2; step <= 60; ++step) {
    ASSERT_THAT(Step(), ElementsAre("m Stay", "w Stay")) << step;
    ASSERT_EQ(GetBody(mover).m_vel.x, 0.0f) << step;
    ASSERT_NEAR(LocalPosition(mover).x, -4.0f, 1e-4f) << step;
  }
}

TEST_F(ContactStepsTest, ABodyThatIsSwitchedOffTakesImpulsesButMovesByContactsAlone) {
  const Vector3D size(4, 4, 1);
  GameObj* mover = Add({.name = "m",
                        .at = Vector3D(-3, 0, 1),
                        .size = size,
                        .body = Mover(2, 0),
                        .shape = "Circle"});
  GameObj* off = Add({.name = "o", .size = size, .body = Mover(), .shape = "Circle"});
  GetBody(off).m_active = false;
  Step();
  EXPECT_EQ(GetBody(off).m_vel, Vector3D(1, 0, 0));
  const float pushed = LocalPosition(off).x;
  EXPECT_GT(pushed, 0.5f) << "half of the penetration";
  LocalPosition(mover) = Vector3D(-100, 0, 1);
  Step();
  EXPECT_EQ(LocalPosition(off).x, pushed);
  GetBody(off).m_active = true;
  Step();
  EXPECT_EQ(LocalPosition(off).x, pushed + 1.0f * kStep);
}

TEST_F(ContactStepsTest, CirclesOfOneCentreTouchWithoutPushingEachOther) {
  const Vector3D size(4, 4, 1);
  GameObj* one = Add({.name = "a", .size = size, .body = Mover(2, 0), .shape = "Circle"});
  GameObj* other = Add({.name = "b", .size = size, .body = Mover(2, 0), .shape = "Circle"});
  EXPECT_THAT(Step(), ElementsAre("a Stay", "b Stay", "a Enter", "b Enter"));
  EXPECT_EQ(spy->contacts[0].normal, Vector3D());
  for (GameObj* object : {one, other}) {
    EXPECT_EQ(GetBody(object).m_vel, Vector3D(2, 0, 0));
    EXPECT_EQ(LocalPosition(object), Vector3D(2.0f * kStep, 0, 1));
  }
}

TEST(PhysicsSystemOrder, AFactoryThatOutlivesItLeavesItAlone) {
  auto factory = std::make_unique<GameObjFactory>();
  auto physics = std::make_unique<PhysicsSystem>();
  physics->current.push_back({});
  physics.reset();
  // Of memory that was given back the sanitizer tells.
  factory.reset();
  EXPECT_EQ(g_physics_system, nullptr);
}

TEST(PhysicsSystemOrder, TheFactorysObjectsTakeTheirContactsWithThem) {
  GameObjFactory factory;
  PhysicsSystem physics;
  physics.current.push_back({});
  physics.previous.push_back({});
  factory.ClearObjects();
  EXPECT_EQ(physics.current.size() + physics.previous.size(), 0u);
}

}  // namespace
}  // namespace ZOVEngine
