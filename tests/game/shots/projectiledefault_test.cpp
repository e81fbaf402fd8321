#include "game/shots/projectiledefault.h"

#include <gtest/gtest.h>

#include "game/shots/projectileexplosion.h"
#include "game/shots/shotstage.h"

namespace ZOVEngine {
namespace {

using carapace_test::ShotOf;
using carapace_test::ShotParts;
using carapace_test::ShotStage;
using carapace_test::SolidUnitAt;
using carapace_test::ThingAt;
using carapace_test::UnitKind;

/// A stage whose shot lies awake at (-200, 0), its sparks and sprite out.
ShotStage StageWith(const std::vector<std::string>& more, const ShotParts& parts = {}) {
  ShotParts whole = parts;
  whole.kind = "ProjectileDefault";
  whole.more = more;
  return ShotStage(whole);
}

ProjectileDefault& Awake(ShotStage& stage) {
  auto& shot = stage.Of<ProjectileDefault>("shot");
  shot.Fire(Vector3D(-200, 0, 1), Vector3D(1, 0, 0));
  stage.Douse();
  return shot;
}

ShotParts Controlled() {
  return {.with_controller = true};
}

TEST(ProjectileDefault, TheLightAtRestIsTheOneOfTheFirstStep) {
  ShotStage stage = StageWith({});
  EXPECT_EQ(stage.Of<ProjectileDefault>("shot").m_base_light, 100.0f);
}

TEST(ProjectileDefault, AHitFlashesFourfoldAndFadesInThirtySteps) {
  ShotStage stage = StageWith({ThingAt("wall", 0, 0, 40)});
  ProjectileDefault& shot = Awake(stage);
  stage.Enter(shot, "shot", "wall");
  auto& light = stage.Of<Light>("shot");
  EXPECT_EQ(light.m_diffuseStr, 400.0f);
  for (int i = 0; i < 29; ++i) shot.Update(0.0f);
  EXPECT_EQ(light.m_diffuseStr, 110.0f);
  shot.Update(0.0f);
  EXPECT_EQ(light.m_diffuseStr, 100.0f);
  light.m_diffuseStr = 50.0f;
  shot.Update(0.0f);
  EXPECT_EQ(light.m_diffuseStr, 100.0f) << "what is below rest comes up at once";
}

TEST(ProjectileDefault, TheFlashFadesWhileTheShotSleeps) {
  ShotStage stage = StageWith({});
  stage.Of<Light>("shot").m_diffuseStr = 400.0f;
  stage.world.Step(2);
  EXPECT_EQ(stage.Of<Light>("shot").m_diffuseStr, 380.0f);
}

TEST(ProjectileDefault, AUnitIsWoundedFlashesAndEndsTheShotWithTheSoundOfAHit) {
  for (const UnitKind kind : {UnitKind::kPlayer, UnitKind::kEnemy}) {
    ShotStage stage = StageWith({SolidUnitAt(kind, "unit", 0, 0)}, Controlled());
    ProjectileDefault& shot = Awake(stage);
    shot.m_damage = 7;
    EXPECT_FALSE(stage.Enter(shot, "unit", "shot").ignored) << "the push is felt";
    EXPECT_EQ(stage.Health("unit"), -2) << "below zero";
    EXPECT_TRUE(stage.IsWhite("unit"));
    EXPECT_EQ(stage.Shake(), 3.0f);
    EXPECT_TRUE(stage.AsksFor("shot", "default_hit.ogg"));
    EXPECT_TRUE(stage.AsksFor("shot", "bullet_bounce.ogg"));
    EXPECT_FALSE(stage.shot->active);
    EXPECT_TRUE(stage.Sparks());
    EXPECT_TRUE(stage.Bursts());
  }
}

TEST(ProjectileDefault, ItsOwnShooterIsAUnitLikeOthers) {
  ShotStage stage = StageWith({});
  stage.Enter(Awake(stage), "shooter", "shot");
  EXPECT_EQ(stage.Of<Player>("shooter").m_health, 4);
  EXPECT_FALSE(stage.shot->active);
}

TEST(ProjectileDefault, AWallMakesItSoundAndBurstAndDoesNotEndIt) {
  ShotStage stage = StageWith({ThingAt("wall", 0, 0, 40)}, Controlled());
  EXPECT_FALSE(stage.Enter(Awake(stage), "shot", "wall").ignored);
  EXPECT_TRUE(stage.shot->active);
  EXPECT_TRUE(stage.AsksFor("shot", "bullet_bounce.ogg"));
  EXPECT_FALSE(stage.AsksFor("shot", "default_hit.ogg"));
  EXPECT_TRUE(stage.Sparks());
  EXPECT_TRUE(stage.Bursts());
  EXPECT_EQ(stage.Shake(), 0.0f);
}

TEST(ProjectileDefault, ABounceIsSilentWhileAHitIsHeardAndAskedForAgain) {
  ShotStage stage = StageWith({ThingAt("wall", 0, 0, 40)});
  ProjectileDefault& shot = Awake(stage);
  auto& source = stage.Of<AudioSource>("shot");
  source.sounds["default_hit.ogg"].sound_type = "SFX";
  source.PlaySound("default_hit.ogg");
  stage.world.Step();
  ASSERT_TRUE(source.IsPlaying("default_hit.ogg"));
  source.PlaySound("default_hit.ogg");
  stage.Enter(shot, "shot", "wall");
  EXPECT_FALSE(stage.AsksFor("shot", "bullet_bounce.ogg"));
  source.sounds["default_hit.ogg"].start_play = false;
  stage.Enter(shot, "shot", "wall");
  EXPECT_TRUE(stage.AsksFor("shot", "bullet_bounce.ogg")) << "heard, but not asked for again";
}

TEST(ProjectileDefault, ABossIsSparedBelowAHundredUnitsAndStruckAfterwards) {
  for (const UnitKind kind : {UnitKind::kBoss, UnitKind::kEnemy}) {
    ShotStage stage = StageWith({}, {.shooter = kind});
    ProjectileDefault& shot = Awake(stage);
    const bool is_boss = stage.Of<Enemy>("shooter").m_boss;
    shot.m_curr_range = 99.9f;
    EXPECT_EQ(stage.Enter(shot, "shooter", "shot").ignored, is_boss);
    EXPECT_EQ(stage.Of<Enemy>("shooter").m_health, is_boss ? 5 : 4);
    if (!is_boss) continue;
    EXPECT_TRUE(stage.shot->active);
    shot.m_curr_range = 100.0f;
    EXPECT_FALSE(stage.Enter(shot, "shooter", "shot").ignored);
    EXPECT_EQ(stage.Of<Enemy>("shooter").m_health, 4);
    EXPECT_FALSE(stage.shot->active);
  }
}

TEST(ProjectileDefault, ABossStruckByTheReboundOfItsOwnShot) {
  ShotStage stage = StageWith({ThingAt("wall", 0, 0, 40)}, {.shooter = UnitKind::kBoss});
  stage.Of<ProjectileDefault>("shot").Fire(Vector3D(-295, 0, 1), Vector3D(1, 0, 0));
  ASSERT_TRUE(stage.StepUntil([&] { return !stage.shot->active; }));
  EXPECT_EQ(stage.Of<Enemy>("shooter").m_health, 4);
  EXPECT_GT(stage.Of<ProjectileDefault>("shot").m_curr_range, 400.0f);
}

TEST(ProjectileDefault, AnotherUnitNearABossIsStruck) {
  ShotStage stage =
      StageWith({SolidUnitAt(UnitKind::kPlayer, "unit", -200, 0)}, {.shooter = UnitKind::kBoss});
  EXPECT_FALSE(stage.Enter(Awake(stage), "unit", "shot").ignored);
  EXPECT_EQ(stage.Of<Player>("unit").m_health, 4);
}

TEST(ProjectileDefault, PassesThroughExplodingShotsInBothOrders) {
  ShotStage stage = StageWith({ShotOf("shell", "ProjectileExplosion")});
  ProjectileDefault& shot = Awake(stage);
  EXPECT_TRUE(stage.Enter(shot, "shot", "shell").ignored);
  EXPECT_TRUE(stage.Enter(shot, "shell", "shot").ignored);
  EXPECT_EQ(stage.Of<Light>("shot").m_diffuseStr, 100.0f) << "nothing was hit";
}

TEST(ProjectileDefault, TheEndOfTheLevelEndsTheFlight) {
  ShotStage stage = StageWith({}, Controlled());
  ProjectileDefault& shot = Awake(stage);
  auto& controller = stage.Of<GameController>("level");
  controller.m_state = TURN_PLAYER_MOVE;
  shot.Update(0.1f);
  EXPECT_TRUE(stage.shot->active);
  controller.m_state = TURN_LEVEL_END;
  shot.Update(0.1f);
  EXPECT_FALSE(stage.shot->active);
  EXPECT_EQ(stage.Of<Transform>("shot").m_local_pos, Vector3D(0, 0, 0));
}

TEST(ProjectileDefault, LeavesItsTrailAlone) {
  ShotStage stage = StageWith({});
  ProjectileDefault& shot = Awake(stage);
  stage.Of<RigidBody>("shot").m_vel = Vector3D(0, -5, 0);
  shot.Update(0.1f);
  EXPECT_EQ(stage.PartOf<Transform>("bullet_trail").m_local_rotate, 0.0f);
}

}  // namespace
}  // namespace ZOVEngine
