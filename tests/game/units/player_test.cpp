#include "game/units/player.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "core/base/random.h"
#include "game/shots/projectilebounce.h"
#include "game/shots/projectiledefault.h"
#include "game/shots/projectileexplosion.h"
#include "game/shots/projectilepierce.h"
#include "game/shots/projectilepush.h"
#include "game/shots/projectileswap.h"
#include "game/shots/projectilevacuum.h"
#include "game/turns/gamecontroller.h"
#include "objects/statec.h"
#include "physics/components/rigidbody.h"
#include "physics/components/transform.h"
#include "render/components/font.h"
#include "render/components/particlesystemc.h"
#include "render/components/render.h"
#include "support/kinds.h"
#include "support/reports.h"
#include "support/unitrecords.h"

namespace ZOVEngine {
namespace {

using carapace_test::AsksFor;
using carapace_test::ExpectNear;
using carapace_test::KindsOf;
using carapace_test::NamesOfClasses;
using carapace_test::OutputOf;
using carapace_test::Record;
using carapace_test::SpriteRecord;
using carapace_test::UnitKind;
using carapace_test::UnitParts;
using carapace_test::UnitRecord;
using carapace_test::UnitStage;
using ::testing::SizeIs;

/// A player unit at (100, 50), of a size of 24 by 36, that has spawned.
class Driven {
 public:
  explicit Driven(const UnitParts& parts = {})
      : stage({UnitRecord(UnitKind::kPlayer, "unit", parts)}) {
    Unit().Update(0.0f);
    for (const char* shot : {"Weapon0Projectile", "Weapon1Projectile"}) {
      if (GameObj* object = FirstChildNamed(stage.Find("unit"), shot)) object->SetActive(false);
    }
    if (stage.Find("unit")->HasComponent<StateC>()) stage.Of<StateC>("unit").m_state = "default";
    SeedRand(1);
  }

  Player& Unit() { return stage.Of<Player>("unit"); }
  Transform& Place() { return stage.Of<Transform>("unit"); }
  GameObj* Shot(int weapon) { return stage.Find("Weapon" + std::to_string(weapon) + "Projectile"); }
  /// The force that launched a shot.
  const DirectionalForce& LaunchOf(int weapon) {
    const auto& forces = Shot(weapon)->GetComponent<RigidBody>()->m_forces;
    EXPECT_THAT(forces, SizeIs(1));
    return *forces.at(0);
  }
  /// Where a shot is in the world.
  Vector3D PlaceOfShot(int weapon) {
    UnitStage::Derive();
    return Shot(weapon)->GetComponent<Transform>()->m_world_pos;
  }
  std::string& StateOf(const std::string& child) {
    return stage.ChildOf<StateC>("unit", child).m_state;
  }
  bool& VisibleOf(const std::string& child) {
    return stage.ChildOf<Render>("unit", child).m_visible;
  }

  UnitStage stage;
};

TEST(Player, TheFirstStepClearsItsTurn) {
  UnitStage stage({UnitRecord(UnitKind::kPlayer, "unit")});
  stage.Of<Player>("unit").m_acted = true;
  stage.Of<Player>("unit").Update(0.0f);
  EXPECT_FALSE(stage.Of<Player>("unit").m_acted);
  stage.Of<Player>("unit").m_acted = true;
  stage.Of<Player>("unit").Update(0.0f);
  EXPECT_TRUE(stage.Of<Player>("unit").m_acted) << "and no later one does";
}

TEST(Player, DestroyPrintsItsLine) {
  Player player(nullptr);
  EXPECT_EQ(OutputOf([&] { player.Destroy(); }), "Player Destroy\n");
}

TEST(Player, WithoutASelectionItFlashesSmokesAndShowsItsHealth) {
  Driven unit;
  ASSERT_EQ(unit.stage.Of<GameController>("level").m_selected, nullptr);
  unit.stage.Of<Render>("unit").m_colour[0] = 3.0f;
  unit.Unit().Update(0.02f);
  EXPECT_EQ(unit.stage.Of<Render>("unit").m_colour[0], 1.0f);
  EXPECT_TRUE(unit.stage.ChildOf<ParticleSystemC>("unit", "unit_damaged").m_emitting);
  EXPECT_EQ(unit.stage.ChildOf<Font>("unit", "hp_font").m_text, "8");
}

// Aiming

TEST(Player, AimingTurnsTheBodyToTheMouseAtOnce) {
  Driven unit;
  struct Case {
    Vector3D mouse;
    float angle;
  };
  for (const Case& c : {Case{Vector3D(100, 150, 1), 0.0f}, Case{Vector3D(200, 50, 1), -90.0f},
                        Case{Vector3D(0, 50, 1), 90.0f}, Case{Vector3D(100, -50, 1), -180.0f},
                        Case{Vector3D(0, -50, 1), -225.0f}}) {
    unit.Unit().AimAt(c.mouse);
    EXPECT_NEAR(unit.Place().m_local_rotate, c.angle, 1e-3f);
    EXPECT_EQ(unit.Place().m_prev_rotate, unit.Place().m_local_rotate);
  }
}

TEST(Player, AimingGoesByTheLocalPosition) {
  Driven unit;
  unit.Place().m_world_pos = Vector3D(1000, 1000, 1);
  unit.Unit().AimAt(Vector3D(200, 50, 1));
  EXPECT_NEAR(unit.Place().m_local_rotate, -90.0f, 1e-3f);
}

// Firing

TEST(Player, FiresTheWeaponInHandFromItsMuzzleTowardsTheMouse) {
  Driven unit;
  unit.Unit().Fire(Vector3D(130, 90, 1));
  EXPECT_TRUE(unit.Shot(0)->active);
  EXPECT_FALSE(unit.Shot(1)->active);
  ExpectNear(unit.LaunchOf(0).direction, 0.6f, 0.8f);
  // The muzzle is 36 / 1.2 away.
  ExpectNear(unit.PlaceOfShot(0), 118.0f, 74.0f);
}

TEST(Player, TheMuzzleIsAsFarAsTheUnitIsHighInTheWorld) {
  Driven unit;
  unit.Place().m_local_scale.y = 12.0f;
  unit.Place().m_world_scale = Vector3D(10, 60, 1);
  unit.stage.ChildOf<Transform>("unit", "Weapon0Barrel").m_world_scale.y = 24.0f;
  unit.Unit().Fire(Vector3D(130, 90, 1));
  // 60 / 1.2 along (0.6, 0.8). What the shot itself derives from its unit does not count here.
  EXPECT_EQ(unit.Shot(0)->GetComponent<Transform>()->m_world_pos, Vector3D(130, 90, 1));
}

TEST(Player, FiresTheSecondWeaponWhenThatIsInHand) {
  Driven unit;
  unit.Unit().m_selected_first_weapon = false;
  unit.Unit().Fire(Vector3D(100, 0, 1));
  EXPECT_FALSE(unit.Shot(0)->active);
  EXPECT_TRUE(unit.Shot(1)->active);
  ExpectNear(unit.LaunchOf(1).direction, 0.0f, -1.0f);
}

TEST(Player, AShotGoesByTheWorldPosition) {
  Driven unit;
  unit.Place().m_local_pos = Vector3D(500, 500, 1);
  unit.Unit().Fire(Vector3D(200, 50, 1));
  ExpectNear(unit.LaunchOf(0).direction, 1.0f, 0.0f);
}

TEST(Player, AMouseOnTheUnitLaunchesTheShotWithoutAForce) {
  Driven unit;
  unit.Unit().Fire(Vector3D(100, 50, 7));
  EXPECT_TRUE(unit.Shot(0)->active);
  EXPECT_EQ(unit.LaunchOf(0).direction, Vector3D());
  ExpectNear(unit.PlaceOfShot(0), 100.0f, 50.0f);
}

TEST(Player, WithoutABarrelTheMuzzleIsTheOrigin) {
  Driven unit({.without = {"Weapon0Barrel", "Weapon1Barrel"}});
  unit.Unit().Fire(Vector3D(200, 50, 1));
  ExpectNear(unit.PlaceOfShot(0), 0.0f, 0.0f);
  ExpectNear(unit.LaunchOf(0).direction, 1.0f, 0.0f);
}

TEST(Player, EitherBarrelMakesAMuzzle) {
  for (const char* missing : {"Weapon0Barrel", "Weapon1Barrel"}) {
    Driven unit({.without = {missing}});
    unit.Unit().Fire(Vector3D(200, 50, 1));
    ExpectNear(unit.PlaceOfShot(0), 130.0f, 50.0f);
  }
}

TEST(Player, EveryKindOfShotIsFired) {
  for (const std::string& kind : NamesOfClasses(KindsOf<Shot>())) {
    Driven unit({.weapons = {kind, ""}});
    unit.Unit().Fire(Vector3D(100, 150, 1));
    EXPECT_TRUE(unit.Shot(0)->active) << kind;
    ExpectNear(unit.LaunchOf(0).direction, 0.0f, 1.0f);
    EXPECT_EQ(unit.Unit().m_pierce_pending, kind == "ProjectilePierce") << kind;
  }
}

/// Gives `shot` a second kind and returns the speed of the one that was fired last: each firing
/// takes the forces of the one before.
template <class Earlier, class Later>
bool FiresInOrder() {
  Driven unit({.weapons = {"", ""}});
  GameObj* shot = unit.Shot(0);
  shot->AddComponent<Later>();
  shot->AddComponent<Earlier>();
  shot->GetComponent<Earlier>()->m_speed = 3.0f;
  shot->GetComponent<Later>()->m_speed = 5.0f;
  unit.Unit().Fire(Vector3D(100, 150, 1));
  return unit.LaunchOf(0).magnitude == 5.0f * 10.0f;
}

TEST(Player, SeveralKindsInOneShotAreFiredInTheirOrder) {
  EXPECT_TRUE((FiresInOrder<ProjectileDefault, ProjectilePush>()));
  EXPECT_TRUE((FiresInOrder<ProjectilePush, ProjectileSwap>()));
  EXPECT_TRUE((FiresInOrder<ProjectileSwap, ProjectileBounce>()));
  EXPECT_TRUE((FiresInOrder<ProjectileBounce, ProjectileExplosion>()));
  EXPECT_TRUE((FiresInOrder<ProjectileExplosion, ProjectileVacuum>()));
  EXPECT_TRUE((FiresInOrder<ProjectileVacuum, ProjectilePierce>()));
}

TEST(Player, FiringShowsTheMuzzleFireWithItsSound) {
  Driven unit({.more = {SpriteRecord("unit_fire")}});
  unit.VisibleOf("unit_fire") = false;
  unit.Unit().Fire(Vector3D(200, 50, 1));
  EXPECT_EQ(unit.StateOf("unit_fire"), "once");
  EXPECT_TRUE(unit.VisibleOf("unit_fire"));
  EXPECT_EQ(unit.stage.Find("unit")->children.back()->GetComponent<StateC>()->m_state, "once")
      << "each child of the name";
  EXPECT_EQ(unit.StateOf("pierce_fire"), "default");
  EXPECT_TRUE(AsksFor(unit.stage.Find("unit"), "unit_fire.ogg"));
}

TEST(Player, AMuzzleFireWithoutAnAnimationStaysAsItIs) {
  Driven unit({.without = {"unit_fire"},
               .more = {Record("unit_fire", {{"Transform", "{}"},
                                             {"Render", R"({"m_visible": false})"},
                                             {"iModel", "{}"},
                                             {"StateC", R"({"m_state": "default"})"}})}});
  unit.Unit().Fire(Vector3D(200, 50, 1));
  EXPECT_EQ(unit.StateOf("unit_fire"), "default");
  EXPECT_FALSE(unit.VisibleOf("unit_fire"));
}

TEST(Player, AMuzzleFireWithoutAStateIsShownAllTheSame) {
  Driven unit({.without = {"unit_fire"},
               .more = {Record("unit_fire", {{"Transform", "{}"},
                                             {"Render", R"({"m_visible": false})"},
                                             {"iModel", "{}"},
                                             {"Animation", "{}"}})}});
  unit.Unit().Fire(Vector3D(200, 50, 1));
  EXPECT_TRUE(unit.VisibleOf("unit_fire"));
}

TEST(Player, WithoutAWeaponOrASourceFiringOnlyShowsTheMuzzleFire) {
  Driven unit({.without = {"Weapon0Projectile", "AudioSource"}});
  unit.Unit().Fire(Vector3D(200, 50, 1));
  EXPECT_FALSE(unit.Shot(1)->active);
  EXPECT_EQ(unit.StateOf("unit_fire"), "once");
  EXPECT_FALSE(unit.Unit().m_pierce_pending);
}

TEST(Player, ThereIsNeitherAmmunitionNorCoolDown) {
  Driven unit;
  unit.Unit().Fire(Vector3D(200, 50, 1));
  unit.Shot(0)->SetActive(false);
  unit.Unit().Fire(Vector3D(100, 150, 1));
  EXPECT_TRUE(unit.Shot(0)->active);
  ExpectNear(unit.LaunchOf(0).direction, 0.0f, 1.0f);
}

// The muzzle of a pierce shot

TEST(Player, APierceShotShowsItsMuzzleAFifthOfASecondLater) {
  Driven unit({.weapons = {"ProjectilePierce", ""}, .more = {SpriteRecord("pierce_fire")}});
  unit.VisibleOf("pierce_fire") = false;
  unit.Unit().Fire(Vector3D(200, 50, 1));
  unit.Unit().Update(0.125f);
  EXPECT_EQ(unit.Unit().m_pierce_timer, 0.125f);
  EXPECT_EQ(unit.StateOf("pierce_fire"), "default");
  unit.Unit().Update(0.125f);
  EXPECT_EQ(unit.StateOf("pierce_fire"), "once");
  EXPECT_TRUE(unit.VisibleOf("pierce_fire"));
  EXPECT_EQ(unit.stage.Find("unit")->children.back()->GetComponent<StateC>()->m_state, "once")
      << "each child of the name";
  EXPECT_FALSE(unit.Unit().m_pierce_pending);
  EXPECT_EQ(unit.Unit().m_pierce_timer, 0.0f);
}

TEST(Player, ExactlyAFifthOfASecondIsEnough) {
  Driven unit;
  unit.Unit().m_pierce_pending = true;
  unit.Unit().Update(0.2f);
  EXPECT_EQ(unit.StateOf("pierce_fire"), "once");
}

TEST(Player, OtherShotsShowNoPierceMuzzle) {
  Driven unit;
  unit.Unit().Fire(Vector3D(200, 50, 1));
  unit.Unit().m_pierce_timer = 0.15f;
  for (int i = 0; i < 4; ++i) unit.Unit().Update(0.1f);
  EXPECT_EQ(unit.StateOf("pierce_fire"), "default");
  EXPECT_EQ(unit.Unit().m_pierce_timer, 0.0f);
}

TEST(Player, ALaterShotOfAnotherKindLeavesThePierceMuzzleWaiting) {
  Driven unit({.weapons = {"ProjectilePierce", "ProjectileDefault"}});
  unit.Unit().Fire(Vector3D(200, 50, 1));
  unit.Unit().m_selected_first_weapon = false;
  unit.Unit().Fire(Vector3D(200, 50, 1));
  EXPECT_TRUE(unit.Unit().m_pierce_pending);
}

TEST(Player, ADeathPutsOutNoDeathField) {
  UnitStage stage({UnitRecord(UnitKind::kPlayer, "unit"), SpriteRecord("DeathField")});
  stage.Of<Player>("unit").Update(0.0f);
  stage.Of<StateC>("unit").m_state = "default";
  stage.Of<Player>("unit").m_health = 0;
  stage.Of<Player>("unit").Update(0.02f);
  EXPECT_FALSE(stage.Of<Player>("unit").m_alive);
  EXPECT_TRUE(stage.Find("DeathField")->active);
}

}  // namespace
}  // namespace ZOVEngine
