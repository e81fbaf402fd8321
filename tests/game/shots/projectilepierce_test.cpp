#include "game/shots/projectilepierce.h"

#include <gtest/gtest.h>

#include "core/engine.h"
#include "game/shots/shotstage.h"

namespace ZOVEngine {
namespace {

using carapace_test::ShotOf;
using carapace_test::ShotParts;
using carapace_test::ShotStage;
using carapace_test::SolidUnitAt;
using carapace_test::ThingAt;
using carapace_test::UnitKind;

/// A piercing shot awake at (-200, 0), units, a wall and zones.
class PiercingShot : public ::testing::Test {
 protected:
  explicit PiercingShot(bool with_controller = false)
      : stage({.kind = "ProjectilePierce",
               .more = {SolidUnitAt(UnitKind::kEnemy, "unit", -100, 0),
                        SolidUnitAt(UnitKind::kPlayer, "next", 0, 0), ThingAt("wall", 100, 0, 40),
                        ThingAt("rough", 0, 300, 40, {{"EnvironmentRough", "{}"}}),
                        ThingAt("damage", 0, 300, 40, {{"EnvironmentDamage", "{}"}}),
                        ThingAt("field", 0, 300, 40, {{"DeathField", "{}"}})},
               .with_controller = with_controller}) {
    shot.Fire(Vector3D(-200, 0, 1), Vector3D(1, 0, 0));
    stage.Douse();
  }
  bool Stays(const std::string& other) {
    ContactInfo contact = stage.Between(other, "shot");
    shot.OnCollisionStay(&contact);
    return contact.ignored;
  }
  void HearHit() {
    auto& source = stage.Of<AudioSource>("shot");
    source.sounds["default_hit.ogg"].sound_type = "SFX";
    source.PlaySound("default_hit.ogg");
    stage.world.Step();
    ASSERT_TRUE(source.IsPlaying("default_hit.ogg"));
  }

  ShotStage stage;
  ProjectilePierce& shot = stage.Of<ProjectilePierce>("shot");
};

class ControlledPiercingShot : public PiercingShot {
 protected:
  ControlledPiercingShot() : PiercingShot(true) {}
  GameController& controller = stage.Of<GameController>("level");
};

TEST_F(PiercingShot, AUnitIsWoundedAndDoesNotStopIt) {
  EXPECT_TRUE(stage.Enter(shot, "unit", "shot").ignored);
  EXPECT_EQ(stage.Of<Enemy>("unit").m_health, 4);
  EXPECT_TRUE(stage.IsWhite("unit"));
  EXPECT_EQ(stage.Of<Light>("shot").m_diffuseStr, 400.0f);
  EXPECT_TRUE(stage.AsksFor("shot", "default_hit.ogg"));
  EXPECT_FALSE(stage.AsksFor("shot", "bullet_bounce.ogg"));
  EXPECT_TRUE(stage.Sparks());
  EXPECT_FALSE(stage.Bursts());
  EXPECT_TRUE(stage.shot->active);
}

TEST_F(PiercingShot, WoundsByItsDamage) {
  shot.m_damage = 3;
  stage.Enter(shot, "shot", "unit");
  EXPECT_EQ(stage.Of<Enemy>("unit").m_health, 2);
}

TEST_F(PiercingShot, WoundsEachUnitOnceOnItsWayToTheWall) {
  const auto& body = stage.Of<RigidBody>("shot");
  ASSERT_TRUE(stage.StepUntil([&] { return stage.Of<Player>("next").m_health < 5; }));
  EXPECT_NEAR(body.m_vel.x, 833.3f, 0.2f) << "not slowed by the first";
  EXPECT_EQ(stage.Of<Transform>("unit").m_local_pos, Vector3D(-100, 0, 1)) << "nor does it push";
  ASSERT_TRUE(stage.StepUntil([&] { return !stage.shot->active; }));
  EXPECT_EQ(stage.Of<Enemy>("unit").m_health, 4);
  EXPECT_EQ(stage.Of<Player>("next").m_health, 4);
}

TEST_F(PiercingShot, AWallEndsItWithASoundAndABurst) {
  EXPECT_FALSE(stage.Enter(shot, "shot", "wall").ignored);
  EXPECT_FALSE(stage.shot->active);
  EXPECT_EQ(stage.Of<Light>("shot").m_diffuseStr, 400.0f);
  EXPECT_TRUE(stage.AsksFor("shot", "bullet_bounce.ogg"));
  EXPECT_FALSE(stage.AsksFor("shot", "default_hit.ogg"));
  EXPECT_FALSE(stage.Sparks());
  EXPECT_TRUE(stage.Bursts());
}

TEST_F(PiercingShot, NeitherSoundStartsWhileAHitIsHeard) {
  HearHit();
  stage.Enter(shot, "unit", "shot");
  EXPECT_FALSE(stage.AsksFor("shot", "default_hit.ogg"));
  stage.Enter(shot, "shot", "wall");
  EXPECT_FALSE(stage.AsksFor("shot", "bullet_bounce.ogg"));
  EXPECT_TRUE(stage.Bursts());
}

TEST_F(PiercingShot, ALastingContactIsIgnoredWithUnitsZonesAndWhatIsOff) {
  EXPECT_TRUE(Stays("unit"));
  EXPECT_TRUE(Stays("next"));
  EXPECT_TRUE(Stays("rough"));
  EXPECT_TRUE(Stays("damage"));
  EXPECT_FALSE(Stays("field")) << "it sees to that itself";
  EXPECT_FALSE(Stays("wall"));
  stage.Find("wall")->SetActive(false);
  EXPECT_TRUE(Stays("wall"));
}

TEST_F(PiercingShot, ALastingContactIsIgnoredWhicheverSideItIs) {
  for (const char* other : {"unit", "rough", "damage"}) {
    ContactInfo contact = stage.Between("shot", other);
    shot.OnCollisionStay(&contact);
    EXPECT_TRUE(contact.ignored) << other;
  }
}

TEST_F(PiercingShot, AWoundedButLivingShooterKeepsIt) {
  stage.Of<Player>("shooter").m_health = 1;
  shot.Update(0.1f);
  EXPECT_TRUE(stage.shot->active);
}

TEST_F(PiercingShot, TheDeathOfItsShooterEndsItBeforeAnythingElse) {
  stage.Of<Player>("shooter").m_health = 0;
  stage.Of<Light>("shot").m_diffuseStr = 400.0f;
  shot.m_curr_range = 50.0f;
  shot.Update(0.1f);
  EXPECT_FALSE(stage.shot->active);
  EXPECT_EQ(shot.m_curr_range, 0.0f);
  EXPECT_EQ(stage.Of<Transform>("shot").m_local_pos, Vector3D(0, 0, 0));
  EXPECT_EQ(stage.Of<Light>("shot").m_diffuseStr, 400.0f);
}

TEST_F(ControlledPiercingShot, AHitShakesALittleAndAWallNotAtAll) {
  controller.m_players = {stage.Find("next")};
  stage.Enter(shot, "shot", "wall");
  EXPECT_EQ(stage.Shake(), 0.0f);
  stage.shot->SetActive(true);
  stage.Enter(shot, "shot", "unit");
  EXPECT_EQ(stage.Shake(), 3.0f);
}

TEST_F(ControlledPiercingShot, AHitEndsItOnceAllPlayersAreDead) {
  controller.m_players = {stage.Find("next")};
  stage.Enter(shot, "shot", "unit");
  EXPECT_TRUE(stage.shot->active);
  EXPECT_EQ(controller.m_ui_state, "ui_default");
  stage.Of<Player>("next").m_alive = false;
  stage.Enter(shot, "shot", "unit");
  EXPECT_FALSE(stage.shot->active);
  EXPECT_EQ(controller.m_ui_state, "ui_level_end");
}

TEST_F(ControlledPiercingShot, TheEndOfTheLevelEndsTheFlight) {
  controller.m_state = TURN_LEVEL_END;
  shot.Update(0.1f);
  EXPECT_FALSE(stage.shot->active);
}

TEST_F(ControlledPiercingShot, TheEndOfTheLevelCallsItBack) {
  controller.m_state = TURN_LEVEL_END;
  shot.m_curr_range = 50.0f;
  shot.Update(0.1f);
  EXPECT_EQ(shot.m_curr_range, 0.0f);
  EXPECT_EQ(stage.Of<Transform>("shot").m_local_pos, Vector3D(0, 0, 0));
}

TEST_F(PiercingShot, TheFlashFades) {
  stage.Enter(shot, "shot", "unit");
  shot.Update(0.0f);
  EXPECT_EQ(stage.Of<Light>("shot").m_diffuseStr, 390.0f);
}

TEST_F(PiercingShot, TurnsWithItsFlightAndLeavesItsTrailAlone) {
  stage.Of<RigidBody>("shot").m_vel = Vector3D(0, -5, 0);
  shot.Update(0.1f);
  EXPECT_FLOAT_EQ(stage.Of<Transform>("shot").m_local_rotate, -180.0f);
  EXPECT_EQ(stage.PartOf<Transform>("bullet_trail").m_local_rotate, 0.0f);
  EXPECT_EQ(stage.PartOf<ParticleSystemC>("bullet_trail").m_start_rot[0], 0.0f);
}

// A contact that began in the step before a pause is told to begin in every step of the pause.
TEST_F(PiercingShot, InAPauseItWoundsNobody) {
  ASSERT_TRUE(stage.StepUntil([this] { return stage.IsWhite("unit"); }));
  ASSERT_EQ(stage.Of<Enemy>("unit").m_health, 4);
  g_engine->paused = true;
  stage.world.Step(10);
  EXPECT_EQ(stage.Of<Enemy>("unit").m_health, 4);
  g_engine->paused = false;
  stage.world.Step(10);
  EXPECT_EQ(stage.Of<Enemy>("unit").m_health, 4);
}

TEST(ProjectilePierce, DiesWithAnEnemyToo) {
  ShotStage stage({.kind = "ProjectilePierce", .shooter = UnitKind::kEnemy});
  auto& shot = stage.Of<ProjectilePierce>("shot");
  shot.Fire(Vector3D(-200, 0, 1), Vector3D(1, 0, 0));
  shot.Update(0.1f);
  EXPECT_TRUE(stage.shot->active);
  stage.Of<Enemy>("shooter").m_health = -2;
  shot.Update(0.1f);
  EXPECT_FALSE(stage.shot->active);
}

TEST(ProjectilePierce, UnderAParentThatIsNoUnitNobodysDeathEndsIt) {
  ShotStage stage({.kind = "ProjectilePierce", .more = {ShotOf("loose", "ProjectilePierce")}});
  stage.Bind("loose");
  auto& loose = stage.Of<ProjectilePierce>("loose");
  loose.Fire(Vector3D(-200, 0, 1), Vector3D(1, 0, 0));
  stage.Of<Player>("shooter").m_health = 0;
  loose.Update(0.1f);
  EXPECT_TRUE(stage.Find("loose")->active);
}

}  // namespace
}  // namespace ZOVEngine
