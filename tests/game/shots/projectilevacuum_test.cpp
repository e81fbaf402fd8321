#include "game/shots/projectilevacuum.h"

#include <gtest/gtest.h>

#include "game/shots/shotstage.h"

namespace ZOVEngine {
namespace {

using carapace_test::kLively;
using carapace_test::ShotOf;
using carapace_test::ShotStage;
using carapace_test::SolidUnitAt;
using carapace_test::ThingAt;
using carapace_test::UnitKind;

/// A sucking shot awake at (0, 0) beside a wall, its shooter far away, and bodies around it.
class SuckingShot : public ::testing::Test {
 protected:
  explicit SuckingShot(bool with_controller = false)
      : stage(
            {.kind = "ProjectileVacuum",
             .more = {ThingAt("wall", 30, 0, 40), SolidUnitAt(UnitKind::kEnemy, "unit", -120, 160),
                      ThingAt("crate", 0, -50, 20, {{"RigidBody", kLively}}),
                      ThingAt("far", 0, 200.1f, 20, {{"RigidBody", kLively}}),
                      ThingAt("spark", 0, 50, 20, {{"RigidBody", kLively}, {"Particle", "{}"}}),
                      ThingAt("eye", 0, 50, 20, {{"RigidBody", kLively}, {"Camera", "{}"}}),
                      ThingAt("off", 0, 50, 20, {{"RigidBody", kLively}}),
                      ShotOf("basic", "ProjectileDefault")},
             .with_controller = with_controller}) {
    stage.Of<Transform>("basic").SetWorldPosition(Vector3D(100, 0, 1));
    stage.Find("off")->SetActive(false);
    shot.Fire(Vector3D(0, 0, 1), Vector3D(1, 0, 0));
    stage.Douse();
  }
  void Hit() { EXPECT_FALSE(stage.Enter(shot, "shot", "wall").ignored); }

  ShotStage stage;
  ProjectileVacuum& shot = stage.Of<ProjectileVacuum>("shot");
};

class ControlledSuckingShot : public SuckingShot {
 protected:
  ControlledSuckingShot() : SuckingShot(true) {}
};

TEST_F(SuckingShot, HasItsDefaults) {
  EXPECT_EQ(shot.m_damage, 1);
  EXPECT_EQ(shot.m_aoe, 200.0f);
  EXPECT_EQ(shot.m_suction_force, 10.0f);
  EXPECT_EQ(shot.m_bodies, FetchTable<RigidBody>());
}

TEST_F(SuckingShot, DrawsBodiesWithTheSameForceAtAllDistancesUpToItsReach) {
  Hit();
  stage.ExpectForce("crate", 0, 1000);
  stage.ExpectForce("unit", 600, -800);  // exactly at the reach
  stage.ExpectForce("basic", -1000, 0);  // other shots are bodies like others
  EXPECT_EQ(stage.ForcesOn("far"), 0u);
}

TEST_F(SuckingShot, ItsReachAndItsPullAreItsFields) {
  shot.m_aoe = 60.0f;
  shot.m_suction_force = 4.0f;
  Hit();
  stage.ExpectForce("crate", 0, 400);
  EXPECT_EQ(stage.ForcesOn("unit"), 0u);
}

TEST_F(SuckingShot, PicturesTheCameraAndWhatIsOffAreLeftAlone) {
  Hit();
  for (const char* name : {"spark", "eye", "off"}) EXPECT_EQ(stage.ForcesOn(name), 0u) << name;
}

TEST_F(ControlledSuckingShot, EndsAtAnythingWithoutAWoundOrAShake) {
  Hit();
  EXPECT_EQ(stage.Of<Enemy>("unit").m_health, 5);
  EXPECT_FALSE(stage.IsWhite("unit"));
  EXPECT_EQ(stage.Shake(), 0.0f);
  EXPECT_TRUE(stage.AsksFor("shot", "push_hit.ogg"));
  EXPECT_FALSE(stage.shot->active);
  EXPECT_TRUE(stage.Sparks());
  EXPECT_TRUE(stage.Bursts());
  EXPECT_EQ(stage.Of<Light>("shot").m_diffuseStr, 100.0f);
}

TEST_F(SuckingShot, DrawsItsShooterToo) {
  stage.Of<Transform>("shooter").m_world_pos = Vector3D(-100, 0, 1);
  Hit();
  stage.ExpectForce("shooter", 1000, 0);
}

TEST_F(SuckingShot, FeelsNothingOfItsOwnPullInItsNextFlight) {
  Hit();
  shot.Fire(Vector3D(-200, 300, 1), Vector3D(0, 1, 0));
  stage.world.Step(3);
  EXPECT_EQ(stage.Of<Transform>("shot").m_world_pos.x, -200.0f);
  EXPECT_GT(stage.Of<Transform>("shot").m_world_pos.y, 300.0f);
}

TEST_F(SuckingShot, SpinsAndTurnsItsTrailWithItsFlight) {
  stage.Of<RigidBody>("shot").m_vel = Vector3D(0, 5, 0);
  shot.Update(0.1f);
  EXPECT_FLOAT_EQ(stage.Of<Transform>("shot").m_local_rotate, 10.0f);
  EXPECT_FLOAT_EQ(stage.PartOf<Transform>("bullet_trail").m_local_rotate, -90.0f);
  EXPECT_FLOAT_EQ(stage.PartOf<ParticleSystemC>("bullet_trail").m_start_rot[1], 0.0f);
}

}  // namespace
}  // namespace ZOVEngine
