#include "game/units/enemy.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "core/base/random.h"
#include "game/turns/gamecontroller.h"
#include "game/units/player.h"
#include "objects/statec.h"
#include "physics/components/rigidbody.h"
#include "physics/components/transform.h"
#include "render/components/animation.h"
#include "render/components/render.h"
#include "support/reports.h"
#include "support/unitrecords.h"

namespace ZOVEngine {
namespace {

using carapace_test::AsksFor;
using carapace_test::ExpectNear;
using carapace_test::Hush;
using carapace_test::OutputOf;
using carapace_test::SpriteRecord;
using carapace_test::UnitKind;
using carapace_test::UnitParts;
using carapace_test::UnitRecord;
using carapace_test::UnitStage;
using ::testing::SizeIs;

/// An enemy at (100, 50) that has spawned and aims at a player, with two death fields in its level.
class Driver {
 public:
  explicit Driver(const UnitParts& parts = {}, bool with_controller = true)
      : stage({UnitRecord(UnitKind::kEnemy, "unit", parts), UnitRecord(UnitKind::kPlayer, "target"),
               SpriteRecord("DeathField"), SpriteRecord("DeathField")},
              with_controller) {
    Unit().Update(0.0f);
    if (stage.Find("unit")->HasComponent<StateC>()) stage.Of<StateC>("unit").m_state = "default";
    for (const char* shot : {"Weapon0Projectile", "Weapon1Projectile"}) {
      if (GameObj* object = FirstChildNamed(stage.Find("unit"), shot)) object->SetActive(false);
    }
    Unit().m_target = stage.Find("target");
    SeedRand(1);
  }

  Enemy& Unit() { return stage.Of<Enemy>("unit"); }
  Transform& Place() { return stage.Of<Transform>("unit"); }
  RigidBody& Body() { return stage.Of<RigidBody>("unit"); }
  GameObj* Level() { return stage.Find("level"); }
  GameObj* Shot(int weapon) {
    return FirstChildNamed(stage.Find("unit"), "Weapon" + std::to_string(weapon) + "Projectile");
  }
  const DirectionalForce& LaunchOf(int weapon) {
    const auto& forces = Shot(weapon)->GetComponent<RigidBody>()->m_forces;
    EXPECT_THAT(forces, SizeIs(1));
    return *forces.at(0);
  }
  Vector3D PlaceOfShot(int weapon) {
    UnitStage::Derive();
    return Shot(weapon)->GetComponent<Transform>()->m_world_pos;
  }
  std::string& StateOf(const std::string& child) {
    return stage.ChildOf<StateC>("unit", child).m_state;
  }
  /// Turns the body and starts a turn towards `aim` (unit: degrees).
  void TurnFrom(float rotation, float aim) {
    Place().m_local_rotate = rotation;
    Unit().m_aim_angle = aim;
    Unit().m_turning = true;
    Unit().Update(kStep);
  }

  UnitStage stage;
};

TEST(Enemy, TheFirstStepLeavesItsMoveAlone) {
  UnitStage stage({UnitRecord(UnitKind::kEnemy, "unit")});
  stage.Of<Enemy>("unit").m_moved = true;
  stage.Of<Enemy>("unit").Update(0.0f);
  EXPECT_TRUE(stage.Of<Enemy>("unit").m_moved);
}

TEST(Enemy, DestroyPrintsItsLine) {
  Enemy enemy(nullptr);
  EXPECT_EQ(OutputOf([&] { enemy.Destroy(); }), "Enemy Destroy\n");
}

TEST(Enemy, APierceShotStaysPendingAndShowsNoMuzzle) {
  Driver enemy({.weapons = {"ProjectilePierce", ""}});
  enemy.Unit().Fire();
  for (int i = 0; i < 3; ++i) enemy.Unit().Update(0.2f);
  EXPECT_TRUE(enemy.Unit().m_pierce_pending);
  EXPECT_EQ(enemy.StateOf("pierce_fire"), "default");
}

// Firing

TEST(Enemy, FiresAlongItsBodyWhateverItsTargetAndAim) {
  Driver enemy;
  enemy.Place().m_local_rotate = 30.0f;
  enemy.Place().m_world_rotate = -90.0f;
  enemy.Unit().m_aim_angle = 45.0f;
  enemy.Unit().Fire();
  EXPECT_TRUE(enemy.Shot(0)->active);
  EXPECT_FALSE(enemy.Shot(1)->active);
  ExpectNear(enemy.LaunchOf(0).direction, 1.0f, 0.0f);
}

TEST(Enemy, TheMuzzleIsAsFarAsItsFirstBarrelIsLong) {
  // The barrels are 1.5 and 2 times as long as the unit of 36.
  {
    Driver whole;
    whole.Unit().Fire();
    ExpectNear(whole.PlaceOfShot(0), 100.0f, 50.0f + 54.0f / 1.2f);
  }
  Driver second_only({.without = {"Weapon0Barrel"}});
  second_only.Unit().Fire();
  ExpectNear(second_only.PlaceOfShot(0), 100.0f, 50.0f + 72.0f / 1.2f);
}

TEST(Enemy, WithoutABarrelTheMuzzleIsTheOrigin) {
  Driver enemy({.without = {"Weapon0Barrel", "Weapon1Barrel"}});
  enemy.Unit().Fire();
  ExpectNear(enemy.PlaceOfShot(0), 0.0f, 0.0f);
  ExpectNear(enemy.LaunchOf(0).direction, 0.0f, 1.0f);
}

TEST(Enemy, FiresTheWeaponThatTheLevelChose) {
  Driver enemy;
  enemy.Unit().m_selected_first_weapon = false;
  enemy.Unit().Fire();
  EXPECT_FALSE(enemy.Shot(0)->active);
  EXPECT_TRUE(enemy.Shot(1)->active);
  EXPECT_TRUE(enemy.Unit().m_pierce_pending);
}

TEST(Enemy, ALaterShotOfAnotherKindLeavesThePierceFlag) {
  Driver enemy({.weapons = {"ProjectilePierce", "ProjectileDefault"}});
  enemy.Unit().Fire();
  enemy.Unit().m_selected_first_weapon = false;
  enemy.Unit().Fire();
  EXPECT_TRUE(enemy.Unit().m_pierce_pending);
}

TEST(Enemy, FiringSetsItsFlagAndShowsTheMuzzleFireWithItsSound) {
  Driver enemy;
  enemy.stage.ChildOf<Render>("unit", "unit_fire").m_visible = false;
  enemy.Unit().Fire();
  EXPECT_TRUE(enemy.Unit().m_fired);
  EXPECT_EQ(enemy.StateOf("unit_fire"), "once");
  EXPECT_TRUE(enemy.stage.ChildOf<Render>("unit", "unit_fire").m_visible);
  EXPECT_TRUE(AsksFor(enemy.stage.Find("unit"), "unit_fire.ogg"));
  EXPECT_FALSE(enemy.Unit().m_pierce_pending);
}

TEST(Enemy, WithoutATargetItDoesNotFire) {
  Driver enemy;
  enemy.Unit().m_target = nullptr;
  enemy.Unit().Fire();
  EXPECT_FALSE(enemy.Unit().m_fired);
  EXPECT_FALSE(enemy.Shot(0)->active);
  EXPECT_EQ(enemy.StateOf("unit_fire"), "default");
  EXPECT_FALSE(AsksFor(enemy.stage.Find("unit"), "unit_fire.ogg"));
}

TEST(Enemy, ATargetThatHasDiedSinceIsFiredAtAlongTheOldLine) {
  Driver enemy;
  enemy.stage.Of<Player>("target").m_alive = false;
  enemy.stage.Of<Transform>("target").m_world_pos = Vector3D(-900, -900, 1);
  enemy.stage.Find("target")->SetActive(false);
  enemy.Unit().Fire();
  EXPECT_TRUE(enemy.Unit().m_fired);
  EXPECT_TRUE(enemy.Shot(0)->active);
  ExpectNear(enemy.LaunchOf(0).direction, 0.0f, 1.0f);
}

TEST(Enemy, ACommonEnemyFiresEvenWithoutHealth) {
  Driver enemy;
  enemy.Unit().m_health = 0;
  enemy.Unit().Fire();
  EXPECT_TRUE(enemy.Unit().m_fired);
}

TEST(Enemy, WithoutAWeaponOrASourceItHasFiredAllTheSame) {
  Driver enemy({.without = {"Weapon0Projectile", "AudioSource", "unit_fire"}});
  enemy.Unit().Fire();
  EXPECT_TRUE(enemy.Unit().m_fired);
  EXPECT_FALSE(enemy.Shot(1)->active);
}

// Turning

TEST(Enemy, TurnsTowardsItsAimByItsOwnSpeed) {
  Driver enemy;
  enemy.TurnFrom(-180.0f, -100.0f);
  EXPECT_EQ(enemy.Body().m_rot_vel, 360.0f);
  EXPECT_TRUE(enemy.Unit().m_turning);
  EXPECT_TRUE(AsksFor(enemy.Level(), "tank_move.ogg"));
  enemy.TurnFrom(-20.0f, -100.0f);
  EXPECT_EQ(enemy.Body().m_rot_vel, -360.0f);
}

TEST(Enemy, ThreeDegreesAreArrival) {
  for (const float off : {-3.0f, 0.0f, 3.0f}) {
    Driver enemy;
    enemy.Body().m_rot_vel = 360.0f;
    enemy.Body().m_rot_accel = 5.0f;
    enemy.TurnFrom(-100.0f + off, -100.0f);
    EXPECT_FALSE(enemy.Unit().m_turning);
    EXPECT_EQ(enemy.Body().m_rot_vel, 0.0f);
    EXPECT_EQ(enemy.Body().m_rot_accel, 0.0f);
    EXPECT_EQ(enemy.Place().m_local_rotate, -100.0f);
    EXPECT_FALSE(AsksFor(enemy.Level(), "tank_move.ogg"));
  }
  for (const float off : {-3.1f, 3.1f}) {
    Driver enemy;
    enemy.TurnFrom(-100.0f + off, -100.0f);
    EXPECT_TRUE(enemy.Unit().m_turning);
    EXPECT_EQ(enemy.Place().m_local_rotate, -100.0f + off);
  }
}

TEST(Enemy, AnAimFromZeroToNinetyIsTakenAWholeTurnLower) {
  struct Case {
    float aim;
    float stored;
  };
  for (const Case& c : {Case{0.0f, -360.0f}, Case{45.0f, -315.0f}, Case{90.0f, -270.0f},
                        Case{-1.0f, -1.0f}, Case{91.0f, 91.0f}}) {
    Driver enemy;
    enemy.TurnFrom(-180.0f, c.aim);
    EXPECT_EQ(enemy.Unit().m_aim_angle, c.stored);
    EXPECT_EQ(enemy.Body().m_rot_vel, c.stored < -180.0f ? -360.0f : 360.0f);
  }
}

TEST(Enemy, WithoutATurnTheAimIsNotTouched) {
  Driver enemy;
  enemy.Unit().m_aim_angle = 45.0f;
  enemy.Place().m_local_rotate = -180.0f;
  enemy.Unit().Update(kStep);
  EXPECT_EQ(enemy.Unit().m_aim_angle, 45.0f);
  EXPECT_EQ(enemy.Body().m_rot_vel, 0.0f);
}

TEST(Enemy, ATurnOfSixDegreesAStepNeverMissesItsWindow) {
  for (int offset = 0; offset < 60; ++offset) {
    Driver enemy;
    enemy.Place().m_local_rotate = -200.0f - 0.1f * static_cast<float>(offset);
    enemy.Unit().m_aim_angle = -100.0f;
    enemy.Unit().m_turning = true;
    int steps = 0;
    while (enemy.Unit().m_turning && steps < 60) {
      enemy.Unit().Update(kStep);
      enemy.Place().m_local_rotate += enemy.Body().m_rot_vel * kStep;
      ++steps;
    }
    EXPECT_LE(steps, 19) << offset;
    EXPECT_EQ(enemy.Place().m_local_rotate, -100.0f);
  }
}

TEST(Enemy, TurnsInSilenceWithoutAController) {
  Driver enemy({}, false);
  enemy.TurnFrom(-180.0f, -100.0f);
  EXPECT_EQ(enemy.Body().m_rot_vel, 360.0f);
  EXPECT_FALSE(AsksFor(enemy.Level(), "tank_move.ogg"));
}

TEST(Enemy, ASpawningEnemyDoesNotTurn) {
  Driver enemy;
  enemy.stage.Of<StateC>("unit").m_state = "spawn";
  enemy.TurnFrom(-180.0f, -100.0f);
  EXPECT_EQ(enemy.Body().m_rot_vel, 0.0f);
}

// Death

TEST(Enemy, OneThatIsDeadFromTheStartDoesNothing) {
  UnitStage stage({UnitRecord(UnitKind::kEnemy, "unit"), UnitRecord(UnitKind::kPlayer, "target")});
  auto& enemy = stage.Of<Enemy>("unit");
  enemy.m_alive = false;
  stage.Of<StateC>("unit").m_state = "none";
  enemy.Update(kStep);
  EXPECT_FALSE(enemy.m_init);
  EXPECT_EQ(stage.Of<StateC>("unit").m_state, "none");
  enemy.m_alive = true;
  enemy.Update(kStep);
  EXPECT_TRUE(enemy.m_init);
  EXPECT_EQ(stage.Of<StateC>("unit").m_state, "spawn");
}

TEST(Enemy, ItsDeathPutsOutEveryDeathFieldOfTheLevel) {
  Driver enemy;
  enemy.Unit().m_health = 0;
  enemy.Unit().Update(kStep);
  EXPECT_FALSE(enemy.Unit().m_alive);
  int fields = 0;
  for (const GameObj* child : enemy.Level()->children) {
    if (child->name != "DeathField") continue;
    EXPECT_FALSE(child->active);
    ++fields;
  }
  EXPECT_EQ(fields, 2);
}

TEST(Enemy, DiesWithoutAControllerAndThenLeavesTheFieldsAlone) {
  Driver enemy({}, false);
  enemy.Unit().m_health = -1;
  enemy.Unit().Update(kStep);
  EXPECT_FALSE(enemy.Unit().m_alive);
  EXPECT_TRUE(enemy.stage.Find("DeathField")->active);
}

TEST(Enemy, ACommonEnemyHasNoSecondPhase) {
  Driver enemy;
  enemy.Unit().m_health = 1;
  enemy.Unit().Update(kStep);
  EXPECT_FALSE(enemy.Unit().m_phase_two);
  EXPECT_TRUE(enemy.Unit().m_selected_first_weapon);
}

}  // namespace
}  // namespace ZOVEngine
