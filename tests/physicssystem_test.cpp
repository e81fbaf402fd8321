#include "physicssystem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/engine.h"
#include "core/messages.h"
#include "core/profile.h"
#include "support/world.h"

namespace ZOVEngine {
namespace {

using carapace_test::Record;
using carapace_test::TransformAt;
using carapace_test::World;

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

}  // namespace
}  // namespace ZOVEngine
