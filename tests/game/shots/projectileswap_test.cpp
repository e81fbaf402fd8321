#include "game/shots/projectileswap.h"

#include <gtest/gtest.h>

#include "game/hazards/environmentblackhole.h"
#include "game/shots/shotstage.h"

namespace ZOVEngine {
namespace {

using carapace_test::kLively;
using carapace_test::Record;
using carapace_test::ShotOf;
using carapace_test::ShotStage;
using carapace_test::SolidUnitAt;
using carapace_test::ThingAt;
using carapace_test::TransformAt;
using carapace_test::UnitKind;

const Vector3D kShooterPlace(-300, 0, 1);

/// A swapping shot awake at (-200, 0), whose shooter has its turn.
class SwappingShot : public ::testing::Test {
 protected:
  SwappingShot() {
    stage.Of<GameController>("level").m_selected = stage.Find("shooter");
    shot.Fire(Vector3D(-200, 0, 1), Vector3D(1, 0, 0));
    stage.Douse();
  }
  const Vector3D& PlaceOf(const std::string& name) { return stage.Of<Transform>(name).m_local_pos; }
  const Vector3D& LastPlaceOf(const std::string& name) {
    return stage.Of<Transform>(name).m_prev_pos;
  }

  ShotStage stage{
      {.kind = "ProjectileSwap",
       .more = {SolidUnitAt(UnitKind::kEnemy, "foe", 0, 50),
                SolidUnitAt(UnitKind::kPlayer, "friend", 0, -50),
                ThingAt("crate", 90, 80, 20, {{"RigidBody", kLively}}), ThingAt("wall", 100, 0, 40),
                Record("ghost", {{"Transform", TransformAt(7, 7)}, {"RigidBody", kLively}}),
                ThingAt("hole", 0, 200, 40, {{"EnvironmentBlackhole", "{}"}})},
       .with_controller = true}};
  ProjectileSwap& shot = stage.Of<ProjectileSwap>("shot");
};

TEST_F(SwappingShot, TheUnitOnTurnTradesPlacesWithAUnit) {
  for (const char* name : {"foe", "friend"}) {
    const Vector3D theirs = PlaceOf(name);
    const Vector3D ours = PlaceOf("shooter");
    stage.shot->SetActive(true);
    EXPECT_TRUE(stage.Enter(shot, name, "shot").ignored);
    EXPECT_EQ(PlaceOf("shooter"), theirs);
    EXPECT_EQ(LastPlaceOf("shooter"), theirs);
    EXPECT_EQ(PlaceOf(name), ours);
    EXPECT_EQ(LastPlaceOf(name), ours);
    EXPECT_FALSE(stage.shot->active);
    EXPECT_EQ(stage.Health(name), 5);
    EXPECT_FALSE(stage.IsWhite(name));
  }
}

TEST_F(SwappingShot, BothSpawnAnewWithTheirSound) {
  stage.Enter(shot, "shot", "foe");
  for (const char* name : {"foe", "shooter"}) {
    EXPECT_EQ(stage.Of<StateC>(name).m_state, "spawn") << name;
    EXPECT_TRUE(stage.AsksFor(name, "unit_spawn.ogg")) << name;
  }
}

TEST_F(SwappingShot, TheDeadAreMovedButDoNotStandUp) {
  stage.Of<Enemy>("foe").m_alive = false;
  stage.Of<StateC>("foe").m_state = "death";
  stage.Enter(shot, "shot", "foe");
  EXPECT_EQ(stage.Of<StateC>("foe").m_state, "death");
  EXPECT_EQ(PlaceOf("foe"), kShooterPlace);
  EXPECT_EQ(stage.Of<StateC>("shooter").m_state, "spawn") << "it lives";
}

TEST_F(SwappingShot, AUnitThatDiedInItsTurnDoesNotStandUpEither) {
  stage.Of<Player>("shooter").m_alive = false;
  stage.Of<StateC>("shooter").m_state = "death";
  stage.Enter(shot, "shot", "foe");
  EXPECT_EQ(stage.Of<StateC>("shooter").m_state, "death");
  EXPECT_EQ(PlaceOf("foe"), kShooterPlace);
  EXPECT_EQ(stage.Of<StateC>("foe").m_state, "spawn");
}

TEST_F(SwappingShot, InAHoleItEndsAndNobodyMoves) {
  auto& hole = stage.Of<EnvironmentBlackhole>("hole");
  for (const bool shot_first : {true, false}) {
    stage.shot->SetActive(true);
    if (shot_first) EXPECT_FALSE(stage.Enter(shot, "shot", "hole").ignored);
    EXPECT_FALSE(stage.Enter(hole, "shot", "hole").ignored);
    EXPECT_FALSE(stage.shot->active);
    if (!shot_first) EXPECT_TRUE(stage.Enter(shot, "shot", "hole").ignored) << "it is gone";
    EXPECT_EQ(PlaceOf("shooter"), kShooterPlace);
    EXPECT_EQ(PlaceOf("hole"), Vector3D(0, 200, 1));
    EXPECT_EQ(stage.Of<StateC>("shooter").m_state, "default");
  }
}

TEST_F(SwappingShot, AHoleThatDriftsTradesPlacesAndSwallowsNothing) {
  stage.Find("hole")->AddComponent<RigidBody>();
  EXPECT_TRUE(stage.Enter(shot, "shot", "hole").ignored);
  stage.Enter(stage.Of<EnvironmentBlackhole>("hole"), "shot", "hole");
  EXPECT_EQ(PlaceOf("shooter"), Vector3D(0, 200, 1));
  EXPECT_EQ(PlaceOf("hole"), kShooterPlace);
  EXPECT_EQ(stage.Health("shooter"), 5) << "they have not touched";
}

TEST_F(SwappingShot, ALooseBodyWithoutSoundAndStateTradesPlacesToo) {
  EXPECT_TRUE(stage.Enter(shot, "shot", "crate").ignored);
  EXPECT_EQ(PlaceOf("shooter"), Vector3D(90, 80, 1));
  EXPECT_EQ(PlaceOf("crate"), kShooterPlace);
}

TEST_F(SwappingShot, AWallLeavesTheUnitsWhereTheyAreAndDoesNotEndIt) {
  EXPECT_FALSE(stage.Enter(shot, "shot", "wall").ignored);
  EXPECT_TRUE(stage.shot->active);
  EXPECT_EQ(PlaceOf("shooter"), kShooterPlace);
  EXPECT_EQ(PlaceOf("wall"), Vector3D(100, 0, 1));
  EXPECT_EQ(stage.Of<StateC>("shooter").m_state, "default");
}

TEST_F(SwappingShot, ABodyWithoutACollisionShapeIsNoTarget) {
  EXPECT_FALSE(stage.Enter(shot, "shot", "ghost").ignored);
  EXPECT_EQ(PlaceOf("ghost"), Vector3D(7, 7, 1));
}

TEST_F(SwappingShot, WhateverIsHitFlashesSoundsSparksAndBursts) {
  stage.Enter(shot, "shot", "wall");
  EXPECT_EQ(stage.Of<Light>("shot").m_diffuseStr, 400.0f);
  EXPECT_TRUE(stage.AsksFor("shot", "bullet_bounce.ogg"));
  EXPECT_TRUE(stage.Sparks());
  EXPECT_TRUE(stage.Bursts());
  EXPECT_EQ(stage.Shake(), 0.0f);
  shot.Update(0.0f);
  EXPECT_EQ(stage.Of<Light>("shot").m_diffuseStr, 390.0f);
}

TEST_F(SwappingShot, HittingItsOwnShooterChangesNoPlace) {
  EXPECT_TRUE(stage.Enter(shot, "shooter", "shot").ignored);
  EXPECT_EQ(PlaceOf("shooter"), kShooterPlace);
  EXPECT_FALSE(stage.shot->active);
}

TEST_F(SwappingShot, TheUnitOnTurnNeedNotBeTheShooter) {
  stage.Of<GameController>("level").m_selected = stage.Find("friend");
  stage.Enter(shot, "shot", "foe");
  EXPECT_EQ(PlaceOf("friend"), Vector3D(0, 50, 1));
  EXPECT_EQ(PlaceOf("foe"), Vector3D(0, -50, 1));
  EXPECT_EQ(PlaceOf("shooter"), kShooterPlace);
}

TEST_F(SwappingShot, WithoutAUnitOnTurnItEndsAndNobodyMoves) {
  stage.Of<GameController>("level").m_selected = nullptr;
  EXPECT_TRUE(stage.Enter(shot, "shot", "foe").ignored);
  EXPECT_EQ(PlaceOf("foe"), Vector3D(0, 50, 1));
  EXPECT_FALSE(stage.shot->active);
}

TEST_F(SwappingShot, SpinsAndTurnsItsTrailWithItsFlight) {
  stage.Of<RigidBody>("shot").m_vel = Vector3D(-5, 0, 0);
  shot.Update(0.1f);
  EXPECT_FLOAT_EQ(stage.Of<Transform>("shot").m_local_rotate, 10.0f);
  EXPECT_FLOAT_EQ(stage.PartOf<Transform>("bullet_trail").m_local_rotate, 0.0f);
  EXPECT_FLOAT_EQ(stage.PartOf<ParticleSystemC>("bullet_trail").m_start_rot[0], 90.0f);
  EXPECT_FLOAT_EQ(stage.PartOf<ParticleSystemC>("bullet_trail").m_start_rot[1], 90.0f);
}

TEST(ProjectileSwap, FliesOnFromAWallUntilItsRangeIsOut) {
  ShotStage stage({.kind = "ProjectileSwap", .more = {ThingAt("wall", 0, 0, 40)}});
  auto& shot = stage.Of<ProjectileSwap>("shot");
  shot.m_max_range = 250.0f;
  shot.Fire(Vector3D(-200, 0, 1), Vector3D(1, 0, 0));
  ASSERT_TRUE(stage.StepUntil([&] { return stage.Of<RigidBody>("shot").m_vel.x < 0.0f; }));
  EXPECT_TRUE(stage.shot->active);
  ASSERT_TRUE(stage.StepUntil([&] { return !stage.shot->active; }));
  EXPECT_EQ(stage.Of<Transform>("shot").m_local_pos, Vector3D(0, 0, 0)) << "called back";
  EXPECT_EQ(stage.Of<Transform>("shooter").m_local_pos, kShooterPlace);
}

TEST(ProjectileSwap, OfTwoSwappingShotsTheOtherIsTheTarget) {
  for (const bool shot_first : {true, false}) {
    ShotStage stage({.kind = "ProjectileSwap",
                     .more = {SolidUnitAt(UnitKind::kEnemy, "other", 300, 0,
                                          {ShotOf("second", "ProjectileSwap")})},
                     .with_controller = true});
    stage.Bind("second");
    stage.Of<GameController>("level").m_selected = stage.Find("shooter");
    auto& shot = stage.Of<ProjectileSwap>("shot");
    shot.Fire(Vector3D(-200, 0, 1), Vector3D(1, 0, 0));
    stage.Of<ProjectileSwap>("second").Fire(Vector3D(200, 0, 1), Vector3D(-1, 0, 0));
    const Vector3D theirs = stage.Of<Transform>("second").m_local_pos;
    const char* a = shot_first ? "shot" : "second";
    const char* b = shot_first ? "second" : "shot";
    EXPECT_TRUE(stage.Enter(shot, a, b).ignored);
    EXPECT_EQ(stage.Of<Transform>("shooter").m_local_pos, theirs);
    EXPECT_EQ(stage.Of<Transform>("second").m_local_pos, kShooterPlace);
    EXPECT_FALSE(stage.shot->active);
    EXPECT_TRUE(stage.Find("second")->active);
  }
}

}  // namespace
}  // namespace ZOVEngine
