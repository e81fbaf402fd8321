#include "game/shots/projectilepush.h"

#include <gtest/gtest.h>

#include "game/shots/shotstage.h"

namespace ZOVEngine {
namespace {

using carapace_test::ShotStage;
using carapace_test::SolidUnitAt;
using carapace_test::ThingAt;
using carapace_test::UnitKind;

/// A pushing shot awake at (-200, 0), a unit and a wall.
class PushingShot : public ::testing::Test {
 protected:
  explicit PushingShot(bool with_controller = false)
      : stage({.kind = "ProjectilePush",
               .more = {SolidUnitAt(UnitKind::kEnemy, "unit", 0, 0), ThingAt("wall", 0, 300, 40)},
               .with_controller = with_controller}) {
    shot.Fire(Vector3D(-200, 0, 1), Vector3D(1, 0, 0));
    stage.Douse();
  }
  void ExpectBang() {
    EXPECT_TRUE(stage.AsksFor("shot", "push_hit.ogg"));
    EXPECT_FALSE(stage.shot->active);
    EXPECT_TRUE(stage.Sparks());
    EXPECT_TRUE(stage.Bursts());
    EXPECT_EQ(stage.Of<Light>("shot").m_diffuseStr, 100.0f);
  }

  ShotStage stage;
  ProjectilePush& shot = stage.Of<ProjectilePush>("shot");
};

class ControlledPushingShot : public PushingShot {
 protected:
  ControlledPushingShot() : PushingShot(true) {}
};

TEST_F(ControlledPushingShot, AUnitIsWoundedWithABigShake) {
  shot.m_damage = 2;
  EXPECT_FALSE(stage.Enter(shot, "unit", "shot").ignored);
  EXPECT_EQ(stage.Of<Enemy>("unit").m_health, 3);
  EXPECT_TRUE(stage.IsWhite("unit"));
  EXPECT_EQ(stage.Shake(), 6.0f);
  ExpectBang();
}

TEST_F(ControlledPushingShot, AWallEndsItAlikeWithoutAWound) {
  EXPECT_FALSE(stage.Enter(shot, "shot", "wall").ignored);
  EXPECT_EQ(stage.Shake(), 6.0f);
  ExpectBang();
  EXPECT_EQ(stage.Of<Enemy>("unit").m_health, 5);
}

TEST_F(PushingShot, TheUnitTakesTheImpulseOfTheShot) {
  ASSERT_TRUE(stage.StepUntil([&] { return !stage.shot->active; }));
  EXPECT_NEAR(stage.Of<RigidBody>("unit").m_vel.x, 833.3f, 0.5f) << "equal masses, no loss";
}

TEST_F(PushingShot, TurnsItsTrailWithItsFlight) {
  stage.Of<RigidBody>("shot").m_vel = Vector3D(5, 0, 0);
  shot.Update(0.1f);
  EXPECT_FLOAT_EQ(stage.PartOf<Transform>("bullet_trail").m_local_rotate, -180.0f);
  EXPECT_FLOAT_EQ(stage.PartOf<Transform>("bullet_trail").m_prev_rotate, -180.0f);
  EXPECT_FLOAT_EQ(stage.PartOf<ParticleSystemC>("bullet_trail").m_start_rot[0], -90.0f);
  EXPECT_FLOAT_EQ(stage.PartOf<ParticleSystemC>("bullet_trail").m_start_rot[1], -90.0f);
}

TEST_F(ControlledPushingShot, TheEndOfTheLevelDoesNotEndTheFlight) {
  stage.Of<GameController>("level").m_state = TURN_LEVEL_END;
  shot.Update(0.1f);
  EXPECT_TRUE(stage.shot->active);
}

}  // namespace
}  // namespace ZOVEngine
