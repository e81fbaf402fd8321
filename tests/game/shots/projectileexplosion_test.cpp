#include "game/shots/projectileexplosion.h"

#include <gtest/gtest.h>

#include "game/hazards/environmentdestructible.h"
#include "game/shots/projectiledefault.h"
#include "game/shots/projectilevacuum.h"
#include "game/shots/shotstage.h"

namespace ZOVEngine {
namespace {

using carapace_test::kLively;
using carapace_test::Record;
using carapace_test::ShotOf;
using carapace_test::ShotParts;
using carapace_test::ShotStage;
using carapace_test::SolidUnitAt;
using carapace_test::ThingAt;
using carapace_test::TransformAt;
using carapace_test::UnitKind;

/// An exploding shot at (0, 0) beside a wall, with what else a test brings.
ShotStage WallStageWith(const std::vector<std::string>& more, const ShotParts& parts = {}) {
  ShotParts whole = parts;
  whole.kind = "ProjectileExplosion";
  whole.more = more;
  whole.more.push_back(ThingAt("wall", 30, 0, 40));
  return ShotStage(whole);
}

ProjectileExplosion& AwakeExplosion(ShotStage& stage) {
  auto& shot = stage.Of<ProjectileExplosion>("shot");
  shot.Fire(Vector3D(0, 0, 1), Vector3D(1, 0, 0));
  stage.Douse();
  return shot;
}

void Burst(ShotStage& stage) {
  EXPECT_FALSE(stage.Enter(AwakeExplosion(stage), "shot", "wall").ignored);
}

std::string CrateAt(const std::string& name, float x, float y,
                    const carapace_test::Components& more = {}) {
  carapace_test::Components components = {{"RigidBody", kLively}};
  components.insert(components.end(), more.begin(), more.end());
  return ThingAt(name, x, y, 20, components);
}

TEST(ProjectileExplosion, HasItsDefaults) {
  const ProjectileExplosion shot(nullptr);
  EXPECT_EQ(shot.m_damage, 1);
  EXPECT_EQ(shot.m_aoe, 200.0f);
  EXPECT_EQ(shot.m_knockback, 10.0f);
}

TEST(ProjectileExplosion, FetchesItsTablesInTheFirstStep) {
  ShotStage stage = WallStageWith({});
  EXPECT_EQ(stage.Of<ProjectileExplosion>("shot").m_bodies, FetchTable<RigidBody>());
  EXPECT_EQ(stage.Of<ProjectileExplosion>("shot").m_destructibles,
            FetchTable<EnvironmentDestructible>());
}

TEST(ProjectileExplosion, BurstsAtAWallWithABigShake) {
  ShotStage stage = WallStageWith({}, {.with_controller = true});
  Burst(stage);
  EXPECT_EQ(stage.Shake(), 6.0f);
  EXPECT_TRUE(stage.AsksFor("shot", "push_hit.ogg"));
  EXPECT_FALSE(stage.shot->active);
  EXPECT_TRUE(stage.Sparks());
  EXPECT_TRUE(stage.Bursts());
  EXPECT_EQ(stage.PartOf<Transform>("bullet_trail").m_local_pos, Vector3D());
}

TEST(ProjectileExplosion, DestructibleThingsInReachAreWorn) {
  ShotStage stage =
      WallStageWith({ThingAt("near", 0, 150, 20, {{"EnvironmentDestructible", "{}"}}),
                     ThingAt("rim", 0, -200, 20, {{"EnvironmentDestructible", "{}"}}),
                     ThingAt("far", 0, 201, 20, {{"EnvironmentDestructible", "{}"}})});
  stage.Of<ProjectileExplosion>("shot").m_damage = 2;
  Burst(stage);
  EXPECT_EQ(stage.Of<EnvironmentDestructible>("near").m_health, 1);
  EXPECT_EQ(stage.Of<EnvironmentDestructible>("rim").m_health, 1) << "exactly at the reach";
  EXPECT_EQ(stage.Of<EnvironmentDestructible>("far").m_health, 3);
}

TEST(ProjectileExplosion, DepthCountsInTheDistance) {
  ShotStage stage = WallStageWith({CrateAt("deep", 0, 150), CrateAt("flat", 0, -150)});
  stage.Of<Transform>("deep").m_world_pos.z = 151.0f;
  Burst(stage);
  EXPECT_EQ(stage.ForcesOn("deep"), 0u);
  EXPECT_EQ(stage.ForcesOn("flat"), 1u);
}

TEST(ProjectileExplosion, DepthCountsForDestructibleThingsToo) {
  ShotStage stage =
      WallStageWith({ThingAt("deep", 0, 150, 20, {{"EnvironmentDestructible", "{}"}})});
  stage.Of<Transform>("deep").m_world_pos.z = 151.0f;
  Burst(stage);
  EXPECT_EQ(stage.Of<EnvironmentDestructible>("deep").m_health, 3);
}

TEST(ProjectileExplosion, WhatHasNoPlaceIsOutOfItsReach) {
  ShotStage stage = WallStageWith({Record("idea", {{"EnvironmentDestructible", "{}"}}),
                                   Record("force", {{"RigidBody", kLively}})});
  Burst(stage);
  EXPECT_EQ(stage.Of<EnvironmentDestructible>("idea").m_health, 3);
  EXPECT_EQ(stage.ForcesOn("force"), 0u);
}

TEST(ProjectileExplosion, TheBlastIsTheSameAtAllDistancesUpToItsReach) {
  ShotStage stage = WallStageWith(
      {CrateAt("near", 0, 20), CrateAt("rim", -120, 160), CrateAt("far", 0, -200.1f)});
  Burst(stage);
  stage.ExpectForce("near", 0, 1000);
  stage.ExpectForce("rim", -600, 800);  // exactly at the reach
  EXPECT_EQ(stage.ForcesOn("far"), 0u);
}

TEST(ProjectileExplosion, TheBlastGrowsWithItsKnockback) {
  ShotStage stage = WallStageWith({CrateAt("near", 0, 20)});
  stage.Of<ProjectileExplosion>("shot").m_knockback = 25.0f;
  Burst(stage);
  stage.ExpectForce("near", 0, 2500);
}

TEST(ProjectileExplosion, ItsReachHoldsForThingsAndBodiesAlike) {
  ShotStage stage =
      WallStageWith({ThingAt("thing", 0, 150, 20, {{"EnvironmentDestructible", "{}"}}),
                     CrateAt("crate", 0, -150)});
  stage.Of<ProjectileExplosion>("shot").m_aoe = 100.0f;
  Burst(stage);
  EXPECT_EQ(stage.Of<EnvironmentDestructible>("thing").m_health, 3);
  EXPECT_EQ(stage.ForcesOn("crate"), 0u);
}

TEST(ProjectileExplosion, UnitsInReachAreWoundedWhiteAndBlownAway) {
  ShotStage stage = WallStageWith({SolidUnitAt(UnitKind::kPlayer, "friend", 0, 100),
                                   SolidUnitAt(UnitKind::kEnemy, "foe", 0, -100),
                                   SolidUnitAt(UnitKind::kEnemy, "watcher", 0, 300)});
  stage.Of<ProjectileExplosion>("shot").m_damage = 3;
  Burst(stage);
  EXPECT_EQ(stage.Of<Player>("friend").m_health, 2);
  EXPECT_EQ(stage.Of<Enemy>("foe").m_health, 2);
  EXPECT_TRUE(stage.IsWhite("friend"));
  EXPECT_TRUE(stage.IsWhite("foe"));
  stage.ExpectForce("foe", 0, -1000);
  EXPECT_EQ(stage.Of<Enemy>("watcher").m_health, 5);
  EXPECT_FALSE(stage.IsWhite("watcher"));
}

TEST(ProjectileExplosion, AUnitThatIsHitIsWoundedByTheBlastAlone) {
  {
    ShotStage stage = WallStageWith({SolidUnitAt(UnitKind::kEnemy, "unit", 28, 0)});
    stage.Enter(AwakeExplosion(stage), "unit", "shot");
    EXPECT_EQ(stage.Of<Enemy>("unit").m_health, 4);
  }
  ShotStage large = WallStageWith({SolidUnitAt(UnitKind::kEnemy, "unit", 28, 0)});
  large.Of<ProjectileExplosion>("shot").m_aoe = 27.0f;
  large.Enter(AwakeExplosion(large), "unit", "shot");
  EXPECT_EQ(large.Of<Enemy>("unit").m_health, 5) << "its middle is out of reach";
}

TEST(ProjectileExplosion, AtTheShootersFeetItWoundsAndPushesTheShooter) {
  ShotStage stage = WallStageWith({ThingAt("post", -200, 0, 40)});
  auto& shot = stage.Of<ProjectileExplosion>("shot");
  shot.Fire(Vector3D(-260, 0, 1), Vector3D(1, 0, 0));
  ASSERT_TRUE(stage.StepUntil([&] { return !stage.shot->active; }));
  EXPECT_EQ(stage.Of<Player>("shooter").m_health, 4);
  stage.world.Step(10);
  EXPECT_LT(stage.Of<RigidBody>("shooter").m_vel.x, -80.0f);
}

TEST(ProjectileExplosion, ABossIsSparedByItsShellAtAnyRangeButNotByTheBlast) {
  ShotStage stage = WallStageWith({ThingAt("post", -200, 0, 40)}, {.shooter = UnitKind::kBoss});
  auto& shot = stage.Of<ProjectileExplosion>("shot");
  shot.Fire(Vector3D(-260, 0, 1), Vector3D(1, 0, 0));
  shot.m_curr_range = 1000.0f;
  EXPECT_TRUE(stage.Enter(shot, "shooter", "shot").ignored);
  EXPECT_TRUE(stage.shot->active);
  EXPECT_EQ(stage.Of<Enemy>("shooter").m_health, 5);
  EXPECT_FALSE(stage.Enter(shot, "shot", "post").ignored);
  EXPECT_EQ(stage.Of<Enemy>("shooter").m_health, 4);
}

TEST(ProjectileExplosion, PicturesTheCameraAndBasicOrExplodingShotsAreNotBlown) {
  ShotStage stage = WallStageWith(
      {CrateAt("spark", 0, 50, {{"Particle", "{}"}}), CrateAt("eye", 0, 60, {{"Camera", "{}"}}),
       ShotOf("basic", "ProjectileDefault"), ShotOf("shell", "ProjectileExplosion"),
       ShotOf("sucker", "ProjectileVacuum")});
  stage.Of<Transform>("sucker").SetWorldPosition(Vector3D(0, 70, 1));
  for (const char* name : {"basic", "shell"}) {
    stage.Of<Transform>(name).SetWorldPosition(Vector3D(0, 70, 1));
  }
  Burst(stage);
  for (const char* name : {"spark", "eye", "basic", "shell"}) {
    EXPECT_EQ(stage.ForcesOn(name), 0u) << name;
  }
  stage.ExpectForce("sucker", 0, 1000);  // a body like others
  EXPECT_EQ(stage.ForcesOn("shot"), 1u) << "its launch alone";
}

TEST(ProjectileExplosion, BodiesThatAreOffGatherNoForces) {
  ShotStage stage =
      WallStageWith({CrateAt("off", 0, 50), SolidUnitAt(UnitKind::kEnemy, "gone", 0, -50)});
  stage.Find("off")->SetActive(false);
  stage.Find("gone")->SetActive(false);
  Burst(stage);
  EXPECT_EQ(stage.ForcesOn("off"), 0u);
  EXPECT_EQ(stage.ForcesOn("gone"), 0u);
  EXPECT_EQ(stage.Of<Enemy>("gone").m_health, 4) << "wounded all the same";
}

TEST(ProjectileExplosion, ABodyInTheVeryPlaceOfTheShotIsNotBlownToNowhere) {
  ShotStage stage = WallStageWith({SolidUnitAt(UnitKind::kEnemy, "unit", 0, 0)});
  Burst(stage);
  EXPECT_EQ(stage.ForcesOn("unit"), 0u);
  EXPECT_EQ(stage.Of<Enemy>("unit").m_health, 4);
}

TEST(ProjectileExplosion, PassesThroughBasicShotsInBothOrders) {
  ShotStage stage = WallStageWith({ShotOf("basic", "ProjectileDefault")});
  ProjectileExplosion& shot = AwakeExplosion(stage);
  EXPECT_TRUE(stage.Enter(shot, "shot", "basic").ignored);
  EXPECT_TRUE(stage.Enter(shot, "basic", "shot").ignored);
  EXPECT_TRUE(stage.shot->active);
}

TEST(ProjectileExplosion, DragsItsTrailBehind) {
  ShotStage stage = WallStageWith({});
  ProjectileExplosion& shot = AwakeExplosion(stage);
  stage.Of<RigidBody>("shot").m_vel = Vector3D(0, 50, 0);
  shot.Update(0.1f);
  const auto& trail = stage.PartOf<Transform>("bullet_trail");
  EXPECT_EQ(trail.m_local_pos, Vector3D(0, -2.1f, 0));
  EXPECT_FLOAT_EQ(trail.m_local_rotate, -90.0f);
  EXPECT_FLOAT_EQ(trail.m_prev_rotate, -90.0f);
  EXPECT_EQ(stage.PartOf<ParticleSystemC>("bullet_trail").m_start_rot[1], 0.0f);
  shot.m_curr_range = shot.m_max_range;
  shot.Update(0.1f);
  EXPECT_FALSE(stage.shot->active);
  EXPECT_EQ(trail.m_local_pos, Vector3D());
}

TEST(ProjectileExplosion, HasNoFlashOfItsLight) {
  ShotStage stage = WallStageWith({});
  Burst(stage);
  EXPECT_EQ(stage.Of<Light>("shot").m_diffuseStr, 100.0f);
}

}  // namespace
}  // namespace ZOVEngine
