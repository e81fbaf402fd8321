#include "game/shots/projectilebounce.h"

#include <gtest/gtest.h>

#include "game/hazards/environmentdestructible.h"
#include "game/shots/shotstage.h"

namespace ZOVEngine {
namespace {

using carapace_test::ShotParts;
using carapace_test::ShotStage;
using carapace_test::SolidUnitAt;
using carapace_test::ThingAt;
using carapace_test::UnitKind;

/// A bouncing shot awake at (-200, 0), a wall and a unit.
class BouncingShot : public ::testing::Test {
 protected:
  explicit BouncingShot(bool with_controller = false)
      : stage({.kind = "ProjectileBounce",
               .more = {ThingAt("wall", 0, 0, 40), SolidUnitAt(UnitKind::kEnemy, "unit", 200, 0)},
               .with_controller = with_controller}) {
    Fire();
  }
  void Fire() {
    shot.Fire(Vector3D(-200, 0, 1), Vector3D(1, 0, 0));
    stage.Douse();
  }
  void Bounce() {
    stage.Of<AudioSource>("shot").sounds.clear();
    EXPECT_FALSE(stage.Enter(shot, "shot", "wall").ignored);
  }

  ShotStage stage;
  ProjectileBounce& shot = stage.Of<ProjectileBounce>("shot");
};

class ControlledBouncingShot : public BouncingShot {
 protected:
  ControlledBouncingShot() : BouncingShot(true) {}
};

TEST_F(BouncingShot, HasItsDefaults) {
  EXPECT_EQ(shot.m_min_damage, 0);
  EXPECT_EQ(shot.m_max_damage, 3);
}

TEST_F(BouncingShot, EachBounceArmsItUpToItsMostAndItsSoundFollows) {
  EXPECT_EQ(shot.m_curr_damage, 0);
  const char* sounds[] = {"bullet_bounce1.ogg", "bullet_bounce2.ogg", "bullet_bounce3.ogg",
                          "bullet_bounce3.ogg", "bullet_bounce3.ogg"};
  for (int i = 0; i < 5; ++i) {
    Bounce();
    EXPECT_EQ(shot.m_curr_damage, std::min(i + 1, 3));
    for (const char* sound : {sounds[0], sounds[1], sounds[2]}) {
      EXPECT_EQ(stage.AsksFor("shot", sound), sound == sounds[i]) << sound << " at " << i;
    }
    EXPECT_TRUE(stage.shot->active);
  }
}

TEST_F(BouncingShot, ItsMostIsTheCeiling) {
  shot.m_max_damage = 1;
  Bounce();
  Bounce();
  EXPECT_EQ(shot.m_curr_damage, 1);
  EXPECT_TRUE(stage.AsksFor("shot", "bullet_bounce1.ogg"));
}

TEST_F(BouncingShot, ABounceSparksAndBursts) {
  Bounce();
  EXPECT_TRUE(stage.Sparks());
  EXPECT_TRUE(stage.Bursts());
}

TEST_F(BouncingShot, ADirectHitByDefaultDoesNoDamageAndEndsIt) {
  stage.Enter(shot, "unit", "shot");
  EXPECT_EQ(stage.Of<Enemy>("unit").m_health, 5);
  EXPECT_TRUE(stage.IsWhite("unit"));
  EXPECT_FALSE(stage.shot->active);
}

TEST_F(BouncingShot, AHitAfterBouncesDoesTheirDamage) {
  Bounce();
  Bounce();
  stage.Enter(shot, "shot", "unit");
  EXPECT_EQ(stage.Of<Enemy>("unit").m_health, 3);
  EXPECT_EQ(shot.m_curr_damage, 2) << "a hit does not arm it";
}

TEST_F(ControlledBouncingShot, AHitShakesSoundsAndSparksAndDoesNotBurst) {
  Bounce();
  stage.Douse();
  stage.Of<AudioSource>("shot").sounds.clear();
  stage.Of<Light>("shot").m_diffuseStr = 300.0f;
  EXPECT_FALSE(stage.Enter(shot, "shot", "unit").ignored);
  EXPECT_EQ(stage.Shake(), 3.0f);
  EXPECT_TRUE(stage.AsksFor("shot", "default_hit.ogg"));
  EXPECT_FALSE(stage.AsksFor("shot", "bullet_bounce1.ogg"));
  EXPECT_EQ(stage.Of<Light>("shot").m_diffuseStr, 100.0f);
  EXPECT_TRUE(stage.Sparks());
  EXPECT_FALSE(stage.Bursts());
}

TEST_F(BouncingShot, FireDisarmsItToItsLeast) {
  Bounce();
  shot.m_min_damage = 2;
  Fire();
  EXPECT_EQ(shot.m_curr_damage, 2);
}

TEST_F(BouncingShot, ALeastAboveTheMostIsNotRaised) {
  shot.m_min_damage = 7;
  Fire();
  Bounce();
  EXPECT_EQ(shot.m_curr_damage, 7);
}

TEST_F(BouncingShot, ShinesByItsDamageEvenAsleep) {
  shot.m_curr_damage = 2;
  shot.Update(0.0f);
  EXPECT_EQ(stage.Of<Light>("shot").m_diffuseStr, 500.0f);
  stage.shot->SetActive(false);
  shot.m_curr_damage = 1;
  shot.Update(0.0f);
  EXPECT_EQ(stage.Of<Light>("shot").m_diffuseStr, 300.0f);
}

TEST_F(BouncingShot, ABounceIsSilentWhileAHitIsHeardAndAskedForAgain) {
  auto& source = stage.Of<AudioSource>("shot");
  source.sounds["default_hit.ogg"].sound_type = "SFX";
  source.PlaySound("default_hit.ogg");
  stage.world.Step();
  ASSERT_TRUE(source.IsPlaying("default_hit.ogg"));
  source.PlaySound("default_hit.ogg");
  stage.Enter(shot, "shot", "wall");
  EXPECT_FALSE(stage.AsksFor("shot", "bullet_bounce1.ogg"));
  EXPECT_EQ(shot.m_curr_damage, 1);
  EXPECT_TRUE(stage.Bursts());
}

TEST_F(BouncingShot, TurnsItsTrailWithItsFlight) {
  stage.Of<RigidBody>("shot").m_vel = Vector3D(0, 5, 0);
  shot.Update(0.1f);
  EXPECT_FLOAT_EQ(stage.PartOf<Transform>("bullet_trail").m_local_rotate, -90.0f);
  EXPECT_FLOAT_EQ(stage.PartOf<Transform>("bullet_trail").m_prev_rotate, -90.0f);
  EXPECT_FLOAT_EQ(stage.PartOf<ParticleSystemC>("bullet_trail").m_start_rot[0], 0.0f);
  EXPECT_FLOAT_EQ(stage.PartOf<ParticleSystemC>("bullet_trail").m_start_rot[1], 0.0f);
}

TEST(ProjectileBounce, AReflectedShotWoundsTheUnitBehindItsShooter) {
  ShotStage stage(
      {.kind = "ProjectileBounce",
       .more = {ThingAt("wall", 0, 0, 40), SolidUnitAt(UnitKind::kEnemy, "unit", -450, 0)}});
  // Off the wall and back over the shooter, who has left meanwhile.
  stage.Of<ProjectileBounce>("shot").Fire(Vector3D(-200, 0, 1), Vector3D(1, 0, 0));
  ASSERT_TRUE(stage.StepUntil([&] { return stage.Of<RigidBody>("shot").m_vel.x < 0.0f; }));
  stage.Of<Transform>("shooter").SetLocalPosition(Vector3D(-300, 400, 1));
  stage.Of<Transform>("shot").SetWorldPosition(Vector3D(-200, 0, 1));
  ASSERT_TRUE(stage.StepUntil([&] { return !stage.shot->active; }));
  EXPECT_EQ(stage.Of<Enemy>("unit").m_health, 4);
}

TEST(ProjectileBounce, ADestructibleThingLosesOneLessThanTheShotHasAfterTheBounce) {
  for (int damage = 0; damage <= 3; ++damage) {
    ShotStage stage({.kind = "ProjectileBounce",
                     .more = {ThingAt("thing", 0, 0, 40, {{"EnvironmentDestructible", "{}"}})}});
    auto& shot = stage.Of<ProjectileBounce>("shot");
    shot.Fire(Vector3D(-200, 0, 1), Vector3D(1, 0, 0));
    shot.m_curr_damage = damage;
    ASSERT_TRUE(stage.StepUntil([&] { return stage.Of<RigidBody>("shot").m_vel.x < 0.0f; }));
    EXPECT_EQ(stage.Of<EnvironmentDestructible>("thing").m_health, 3 + 1 - std::min(damage + 1, 3));
  }
}

// In a pause the contact of a rebound is told to begin in each step.
TEST(ProjectileBounce, APauseInTheStepOfAReboundNeitherArmsNorRepeatsTheSound) {
  ShotStage stage({.kind = "ProjectileBounce", .more = {ThingAt("wall", 0, 0, 40)}});
  auto& shot = stage.Of<ProjectileBounce>("shot");
  auto& sounds = stage.Of<AudioSource>("shot").sounds;
  shot.Fire(Vector3D(-100, 0, 1), Vector3D(1, 0, 0));
  ASSERT_TRUE(stage.StepUntil([&] { return shot.m_curr_damage == 1; }));
  sounds.clear();
  g_engine->paused = true;
  stage.world.Step(10);
  EXPECT_EQ(shot.m_curr_damage, 1);
  EXPECT_TRUE(sounds.empty()) << "no rebound is heard in a pause";
  g_engine->paused = false;
  stage.world.Step(10);
  EXPECT_EQ(shot.m_curr_damage, 1);
}

}  // namespace
}  // namespace ZOVEngine
