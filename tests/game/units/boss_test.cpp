#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

#include "audio/audiosource.h"
#include "core/base/random.h"
#include "core/engine.h"
#include "game/turns/gamecontroller.h"
#include "game/units/enemy.h"
#include "objects/statec.h"
#include "physics/components/colliderholder.h"
#include "physics/components/rigidbody.h"
#include "physics/components/transform.h"
#include "render/components/animation.h"
#include "render/components/font.h"
#include "render/components/light.h"
#include "render/components/render.h"
#include "support/unitrecords.h"

namespace ZOVEngine {
namespace {

using carapace_test::AsksFor;
using carapace_test::ExpectNear;
using carapace_test::Hush;
using carapace_test::Record;
using carapace_test::ShotRecord;
using carapace_test::SpriteRecord;
using carapace_test::UnitKind;
using carapace_test::UnitParts;
using carapace_test::UnitRecord;
using carapace_test::UnitStage;
using ::testing::ElementsAre;
using ::testing::SizeIs;

constexpr float kWhite = 100000.0f;
constexpr const char* kShots[] = {"MiddleProj", "LeftProjPhase1", "RightProjPhase1",
                                  "LeftProjPhase2", "RightProjPhase2"};

UnitParts Whole() {
  UnitParts parts;
  parts.fields = R"({"m_health": 10, "m_max_health": 10, "m_boss": true})";
  return parts;
}

std::string Explosion(int number) {
  return std::string("DeathExplosion") + (number < 10 ? "0" : "") + std::to_string(number);
}

/// A boss of 10 health at (100, 50) that has spawned, in a level with a death field at alpha 0.
class BossFight {
 public:
  explicit BossFight(const UnitParts& parts = Whole(),
                     const std::vector<std::string>& level = {SpriteRecord("DeathField")})
      : stage(Children(parts, level)) {
    Boss().Update(0.0f);
    stage.Of<StateC>("Boss").m_state = "default";
    for (const char* shot : kShots) {
      if (GameObj* object = stage.world.Find(shot)) object->SetActive(false);
    }
    if (GameObj* field = stage.world.Find("DeathField")) {
      field->SetActive(false);
      field->GetComponent<Render>()->m_colour[3] = 0.0f;
    }
    Boss().m_target = stage.Find("target");
    SeedRand(1);
  }

  Enemy& Boss() { return stage.Of<Enemy>("Boss"); }
  Transform& Place() { return stage.Of<Transform>("Boss"); }
  RigidBody& Body() { return stage.Of<RigidBody>("Boss"); }
  GameObj* Child(const std::string& name) { return FirstChildNamed(stage.Find("Boss"), name); }
  float& AlphaOf(const std::string& object) { return stage.Of<Render>(object).m_colour[3]; }
  bool IsFired(const std::string& shot) { return stage.Find(shot)->active; }
  Vector3D DirectionOf(const std::string& shot) {
    const auto& forces = stage.Of<RigidBody>(shot).m_forces;
    EXPECT_THAT(forces, SizeIs(1)) << shot;
    return forces.at(0)->direction;
  }
  Vector3D PlaceOf(const std::string& object) {
    UnitStage::Derive();
    return stage.Of<Transform>(object).m_world_pos;
  }
  /// Updates without health until the five seconds are over: 20 steps.
  void DieForFiveSeconds() {
    Boss().m_health = 0;
    for (int i = 0; i < 20; ++i) Boss().Update(0.25f);
  }

  UnitStage stage;

 private:
  static std::vector<std::string> Children(const UnitParts& parts,
                                           const std::vector<std::string>& level) {
    std::vector<std::string> children = {UnitRecord(UnitKind::kBoss, "Boss", parts),
                                         UnitRecord(UnitKind::kPlayer, "target")};
    children.insert(children.end(), level.begin(), level.end());
    return children;
  }
};

// The first step

TEST(Boss, StartsInItsFirstShieldAlone) {
  UnitStage stage({UnitRecord(UnitKind::kBoss, "Boss", Whole())});
  stage.Find("ShieldPhase1")->SetActive(false);
  stage.Of<Enemy>("Boss").Update(0.0f);
  EXPECT_TRUE(stage.Find("ShieldPhase1")->active);
  EXPECT_FALSE(stage.Find("ShieldPhase2")->active);
  EXPECT_EQ(stage.Of<Render>("ShieldPhase2").m_colour[3], 0.0f);
  for (int i = 0; i <= 10; ++i) {
    EXPECT_FALSE(stage.Find(Explosion(i))->active) << i;
    EXPECT_EQ(stage.Of<StateC>(Explosion(i)).m_state, "default") << i;
  }
}

TEST(Boss, ACommonEnemyLeavesShieldsAndExplosionsAlone) {
  UnitParts parts;
  parts.fields = R"({"m_health": 10, "m_max_health": 10, "m_boss": false})";
  UnitStage stage({UnitRecord(UnitKind::kBoss, "unit", parts)});
  stage.Of<Enemy>("unit").Update(0.0f);
  EXPECT_TRUE(stage.Find("ShieldPhase2")->active);
  EXPECT_TRUE(stage.Find("DeathExplosion00")->active);
  EXPECT_EQ(stage.Of<StateC>("DeathExplosion00").m_state, "once");
}

// The second phase

TEST(Boss, EntersItsSecondPhaseAtHalfHealth) {
  BossFight fight;
  fight.Boss().m_health = 6;
  fight.Boss().Update(kStep);
  EXPECT_FALSE(fight.Boss().m_phase_two);
  EXPECT_TRUE(fight.Boss().m_selected_first_weapon);
  fight.Boss().m_health = 5;
  fight.Boss().Update(kStep);
  EXPECT_TRUE(fight.Boss().m_phase_two);
  EXPECT_TRUE(fight.Boss().m_phase_change);
  EXPECT_FALSE(fight.Boss().m_phase_ready);
  EXPECT_FALSE(fight.Boss().m_selected_first_weapon);
  EXPECT_TRUE(fight.stage.Find("ShieldPhase2")->active);
  EXPECT_TRUE(fight.stage.Find("DeathField")->active);
}

TEST(Boss, HalfOfAnOddMaximumIsRoundedDown) {
  BossFight fight;
  fight.Boss().m_max_health = 5;
  fight.Boss().m_health = 3;
  fight.Boss().Update(kStep);
  EXPECT_FALSE(fight.Boss().m_phase_two);
  fight.Boss().m_health = 2;
  fight.Boss().Update(kStep);
  EXPECT_TRUE(fight.Boss().m_phase_two);
}

TEST(Boss, BelowHalfHealthItWaitsUntilAllBodiesAreAtRest) {
  BossFight fight;
  fight.Boss().m_health = 1;
  auto& shot = fight.stage.Of<RigidBody>("target");
  shot.m_vel.x = 50.0f;
  fight.Boss().Update(kStep);
  EXPECT_FALSE(fight.Boss().m_phase_two);
  EXPECT_FALSE(fight.stage.Find("ShieldPhase2")->active);
  shot.m_vel.x = 0.0f;
  fight.Boss().Update(kStep);
  EXPECT_TRUE(fight.Boss().m_phase_two);
}

TEST(Boss, WhileItSpawnsItDoesNotEnterItsSecondPhase) {
  BossFight fight;
  fight.Boss().m_health = 5;
  fight.stage.Of<StateC>("Boss").m_state = "spawn";
  fight.Boss().Update(kStep);
  EXPECT_FALSE(fight.Boss().m_phase_two);
  EXPECT_FALSE(fight.stage.Find("DeathField")->active);
  fight.stage.Of<StateC>("Boss").m_state = "default";
  fight.Boss().Update(kStep);
  EXPECT_TRUE(fight.Boss().m_phase_two);
}

TEST(Boss, EntersItsSecondPhaseOnce) {
  BossFight fight;
  fight.Boss().m_health = 4;
  fight.Boss().Update(kStep);
  fight.Boss().m_selected_first_weapon = true;
  fight.stage.Find("DeathField")->SetActive(false);
  fight.Boss().Update(kStep);
  EXPECT_TRUE(fight.Boss().m_selected_first_weapon);
  EXPECT_FALSE(fight.stage.Find("DeathField")->active);
}

TEST(Boss, ItsSecondPhaseShowsTheSecondBarrelInTheSameStep) {
  BossFight fight;
  fight.Boss().m_health = 4;
  fight.Boss().Update(kStep);
  EXPECT_FALSE(fight.stage.ChildOf<Render>("Boss", "Weapon0Barrel").m_visible);
  EXPECT_TRUE(fight.stage.ChildOf<Render>("Boss", "Weapon1Barrel").m_visible);
}

TEST(Boss, ShieldAndFieldFadeInByTwoASecond) {
  BossFight fight;
  fight.Boss().m_health = 4;
  fight.AlphaOf("DeathField") = 0.25f;
  fight.Boss().Update(0.25f);
  EXPECT_EQ(fight.AlphaOf("DeathField"), 0.75f) << "from the very step on";
  EXPECT_EQ(fight.AlphaOf("ShieldPhase2"), 0.5f);
  fight.Boss().Update(0.25f);
  EXPECT_EQ(fight.AlphaOf("DeathField"), 1.25f);
  EXPECT_EQ(fight.AlphaOf("ShieldPhase2"), 1.0f);
  EXPECT_FALSE(fight.Boss().m_phase_ready);
  fight.Boss().Update(0.25f);
  EXPECT_EQ(fight.AlphaOf("DeathField"), 1.0f);
  EXPECT_EQ(fight.AlphaOf("ShieldPhase2"), 1.0f);
  EXPECT_TRUE(fight.Boss().m_phase_ready);
}

TEST(Boss, BothMustBeThereBeforeThePhaseIsReady) {
  BossFight fight;
  fight.Boss().m_health = 4;
  fight.AlphaOf("DeathField") = 1.0f;
  fight.Boss().Update(0.25f);
  EXPECT_FALSE(fight.Boss().m_phase_ready) << "the shield";
  fight.AlphaOf("ShieldPhase2") = 1.0f;
  fight.AlphaOf("DeathField") = 0.0f;
  fight.Boss().Update(0.25f);
  EXPECT_FALSE(fight.Boss().m_phase_ready) << "the field";
}

TEST(Boss, AFadedPhaseLeavesTheAlphasAlone) {
  BossFight fight;
  fight.Boss().m_health = 4;
  for (int i = 0; i < 3; ++i) fight.Boss().Update(0.5f);
  ASSERT_TRUE(fight.Boss().m_phase_ready);
  fight.AlphaOf("ShieldPhase2") = 0.25f;
  fight.Boss().Update(0.5f);
  EXPECT_EQ(fight.AlphaOf("ShieldPhase2"), 0.25f);
}

TEST(Boss, WithoutShieldAndFieldThePhaseIsReadyAtOnce) {
  UnitParts parts = Whole();
  parts.without = {"ShieldPhase1", "ShieldPhase2"};
  BossFight fight(parts, {});
  fight.Boss().m_health = 4;
  fight.Boss().Update(kStep);
  EXPECT_TRUE(fight.Boss().m_phase_ready);
}

TEST(Boss, AShieldWithoutAPictureHoldsNoPhaseUp) {
  UnitParts parts = Whole();
  parts.without = {"ShieldPhase2"};
  parts.more = {Record("ShieldPhase2", {})};
  BossFight fight(parts, {});
  fight.Boss().m_health = 4;
  fight.Boss().Update(kStep);
  EXPECT_TRUE(fight.Boss().m_phase_ready);
}

TEST(Boss, AFirstFieldThatIsThereHoldsTheOthersBack) {
  BossFight fight(Whole(), {SpriteRecord("DeathField"), SpriteRecord("DeathField")});
  Render& second = *fight.stage.Find("level")->children.back()->GetComponent<Render>();
  fight.Boss().m_health = 4;
  fight.AlphaOf("DeathField") = 1.0f;
  second.m_colour[3] = 0.25f;
  fight.Boss().Update(0.25f);
  EXPECT_EQ(second.m_colour[3], 0.25f);
  fight.AlphaOf("DeathField") = 0.0f;
  fight.Boss().Update(0.25f);
  EXPECT_EQ(second.m_colour[3], 0.75f);
}

TEST(Boss, WithoutAControllerThereIsNoSecondPhase) {
  UnitStage stage({UnitRecord(UnitKind::kBoss, "Boss", Whole())}, false);
  auto& boss = stage.Of<Enemy>("Boss");
  boss.Update(0.0f);
  stage.Of<StateC>("Boss").m_state = "default";
  boss.m_health = 1;
  boss.Update(kStep);
  EXPECT_FALSE(boss.m_phase_two);
  boss.m_phase_change = true;
  boss.Update(0.25f);
  EXPECT_EQ(stage.Of<Render>("ShieldPhase2").m_colour[3], 0.5f) << "a fade that has begun goes on";
}

TEST(Boss, TurnsMoreSlowlyThanOthers) {
  BossFight fight;
  fight.Place().m_local_rotate = -180.0f;
  fight.Boss().m_aim_angle = -100.0f;
  fight.Boss().m_turning = true;
  fight.Boss().Update(kStep);
  EXPECT_EQ(fight.Body().m_rot_vel, 100.0f);
  fight.Place().m_local_rotate = -20.0f;
  fight.Boss().Update(kStep);
  EXPECT_EQ(fight.Body().m_rot_vel, -100.0f);
}

// Firing

TEST(Boss, FiresThreeShotsOfItsFirstPhase) {
  BossFight fight;
  fight.Boss().Fire();
  EXPECT_TRUE(fight.IsFired("MiddleProj"));
  EXPECT_TRUE(fight.IsFired("LeftProjPhase1"));
  EXPECT_TRUE(fight.IsFired("RightProjPhase1"));
  EXPECT_FALSE(fight.IsFired("LeftProjPhase2"));
  EXPECT_FALSE(fight.IsFired("RightProjPhase2"));
  ExpectNear(fight.DirectionOf("MiddleProj"), 0.0f, 1.0f);
  ExpectNear(fight.DirectionOf("LeftProjPhase1"), std::sin(0.25f), std::cos(0.25f));
  ExpectNear(fight.DirectionOf("RightProjPhase1"), -std::sin(0.25f), std::cos(0.25f));
  EXPECT_TRUE(fight.Boss().m_fired);
  EXPECT_TRUE(AsksFor(fight.stage.Find("Boss"), "unit_fire.ogg"));
  EXPECT_EQ(fight.stage.ChildOf<StateC>("Boss", "unit_fire").m_state, "once");
}

TEST(Boss, FiresThreeOthersInItsSecondPhase) {
  BossFight fight;
  fight.Boss().m_phase_two = true;
  fight.Place().m_world_rotate = -90.0f;
  fight.Boss().Fire();
  EXPECT_TRUE(fight.IsFired("MiddleProj"));
  EXPECT_FALSE(fight.IsFired("LeftProjPhase1"));
  EXPECT_FALSE(fight.IsFired("RightProjPhase1"));
  ExpectNear(fight.DirectionOf("MiddleProj"), 1.0f, 0.0f);
  ExpectNear(fight.DirectionOf("LeftProjPhase2"), std::cos(0.25f), -std::sin(0.25f));
  ExpectNear(fight.DirectionOf("RightProjPhase2"), std::cos(0.25f), std::sin(0.25f));
}

TEST(Boss, EachPhaseHasAMuzzleFlashOfItsOwn) {
  BossFight fight;
  auto& fire = fight.stage.ChildOf<Animation>("Boss", "unit_fire");
  fire.m_once = "Sheet_Unit_Fire_Violet";
  fight.Boss().Fire();
  EXPECT_STREQ(fire.m_once_instead, "Sheet_Fire_BossPhase1");
  fight.Boss().m_phase_two = true;
  fight.Boss().Fire();
  EXPECT_STREQ(fire.m_once_instead, "Sheet_Fire_BossPhase2");
}

TEST(Boss, ItsMuzzleIsAWholeBarrelAway) {
  BossFight fight;
  fight.Boss().Fire();
  for (const char* shot : {"MiddleProj", "LeftProjPhase1", "RightProjPhase1"}) {
    ExpectNear(fight.PlaceOf(shot), 100.0f, 104.0f);
  }
}

TEST(Boss, NeverFiresItsWeapons) {
  BossFight fight;
  for (const char* weapon : {"Weapon0Projectile", "Weapon1Projectile"}) {
    fight.Child(weapon)->SetActive(false);
  }
  fight.Boss().m_selected_first_weapon = false;
  fight.Boss().Fire();
  EXPECT_FALSE(fight.Child("Weapon0Projectile")->active);
  EXPECT_FALSE(fight.Child("Weapon1Projectile")->active);
  EXPECT_FALSE(fight.Boss().m_pierce_pending);
}

TEST(Boss, AShotOfAnotherKindIsNotFired) {
  UnitParts parts = Whole();
  parts.without = {"LeftProjPhase1"};
  parts.more = {carapace_test::ShotRecord("LeftProjPhase1", "ProjectileExplosion")};
  BossFight fight(parts);
  fight.Boss().Fire();
  EXPECT_FALSE(fight.IsFired("LeftProjPhase1"));
  EXPECT_TRUE(fight.IsFired("RightProjPhase1"));
}

TEST(Boss, AShotOfAnotherKindIsNotFiredInTheSecondPhaseEither) {
  UnitParts parts = Whole();
  parts.without = {"LeftProjPhase2", "MiddleProj"};
  parts.more = {ShotRecord("LeftProjPhase2", "ProjectileDefault"),
                ShotRecord("MiddleProj", "ProjectileDefault")};
  BossFight fight(parts);
  fight.Boss().m_phase_two = true;
  fight.Boss().Fire();
  EXPECT_FALSE(fight.IsFired("LeftProjPhase2"));
  EXPECT_FALSE(fight.IsFired("MiddleProj"));
  EXPECT_TRUE(fight.IsFired("RightProjPhase2"));
}

TEST(Boss, AnAbsentShotIsNotMissed) {
  for (const char* absent : kShots) {
    UnitParts parts = Whole();
    parts.without = {absent};
    BossFight fight(parts);
    fight.Boss().Fire();
    fight.Boss().m_phase_two = true;
    fight.Boss().Fire();
    for (const char* shot : kShots) {
      if (std::string(shot) != absent) {
        EXPECT_TRUE(fight.IsFired(shot)) << shot;
      }
    }
  }
}

TEST(Boss, WithoutHealthOrTargetItDoesNotFire) {
  BossFight fight;
  fight.Boss().m_health = 0;
  fight.Boss().Fire();
  fight.Boss().m_health = 10;
  fight.Boss().m_target = nullptr;
  fight.Boss().Fire();
  EXPECT_FALSE(fight.Boss().m_fired);
  EXPECT_FALSE(fight.IsFired("MiddleProj"));
}

TEST(Boss, FiresWithItsLastPointOfHealth) {
  BossFight fight;
  fight.Boss().m_health = 1;
  fight.Boss().Fire();
  EXPECT_TRUE(fight.Boss().m_fired);
}

// Death

TEST(Boss, TakesFiveSecondsToDie) {
  BossFight fight;
  fight.DieForFiveSeconds();
  EXPECT_EQ(fight.Boss().m_death_timer, 5.0f);
  EXPECT_TRUE(fight.Boss().m_death_done);
  EXPECT_TRUE(fight.Boss().m_alive);
  EXPECT_TRUE(fight.Boss().m_dying);
  EXPECT_EQ(fight.stage.Of<StateC>("Boss").m_state, "default");
  fight.Boss().Update(0.25f);
  EXPECT_FALSE(fight.Boss().m_alive);
  EXPECT_EQ(fight.stage.Of<StateC>("Boss").m_state, "death");
  EXPECT_EQ(fight.Boss().m_death_timer, 5.0f);
}

TEST(Boss, TheFirstStepOfItsDeathStopsItFromTakingPart) {
  BossFight fight;
  fight.stage.Find("DeathField")->SetActive(true);
  fight.Boss().m_health = -4;
  fight.Boss().Update(0.25f);
  EXPECT_TRUE(fight.Boss().m_dying);
  EXPECT_FALSE(fight.Boss().m_death_done);
  EXPECT_FALSE(fight.stage.Of<ColliderHolder>("Boss").m_active);
  EXPECT_FALSE(fight.stage.Find("DeathField")->active);
  for (const char* name : {"ShieldPhase1", "ShieldPhase2", "ui_selected"}) {
    EXPECT_FALSE(fight.stage.ChildOf<Render>("Boss", name).m_visible) << name;
  }
  EXPECT_EQ(fight.stage.ChildOf<Font>("Boss", "hp_font").m_text, "");
  EXPECT_EQ(fight.stage.ChildOf<Transform>("Boss", "ui_hp_frame_filled").m_local_scale.x, 0.0f);
  EXPECT_TRUE(fight.stage.ChildOf<Render>("Boss", "Weapon1Barrel").m_visible) << "not yet hidden";
  EXPECT_EQ(fight.Place().m_local_scale.x, 24.0f);
}

TEST(Boss, KilledOutrightItEntersItsSecondPhaseAndTheFieldIsOutInTheSameStep) {
  BossFight fight;
  fight.Boss().m_health = 0;
  fight.Boss().Update(kStep);
  EXPECT_TRUE(fight.Boss().m_phase_two);
  EXPECT_TRUE(fight.Boss().m_dying);
  EXPECT_TRUE(fight.stage.Find("ShieldPhase2")->active);
  EXPECT_FALSE(fight.stage.Of<Render>("ShieldPhase2").m_visible);
  EXPECT_FALSE(fight.stage.Find("DeathField")->active);
}

TEST(Boss, TheFramesOfItsBarShrinkAtEachStepOfItsDeath) {
  BossFight fight;
  fight.Boss().m_health = 0;
  const Vector3D& frame = fight.stage.ChildOf<Transform>("Boss", "ui_hp_frame").m_local_scale;
  const Vector3D& empty = fight.stage.ChildOf<Transform>("Boss", "ui_hp_frame_empty").m_local_scale;
  for (int i = 1; i <= 3; ++i) {
    fight.Boss().Update(kStep);
    EXPECT_FLOAT_EQ(frame.x, 3.0f / std::pow(3.0f, static_cast<float>(i)));
    EXPECT_EQ(empty.x, frame.x);
  }
}

TEST(Boss, ADyingBossShines) {
  UnitParts parts = Whole();
  parts.components = {{"Light", "{}"}};
  BossFight fight(parts);
  fight.Boss().m_health = 0;
  fight.stage.Of<Light>("Boss").m_diffuseStr = 10.0f;
  fight.Boss().Update(0.25f);
  fight.Boss().Update(0.25f);
  EXPECT_EQ(fight.stage.Of<Light>("Boss").m_diffuseStr, 60.0f);
}

TEST(Boss, ADyingBossTurnsOnToItsAim) {
  BossFight fight;
  fight.Boss().m_health = 0;
  fight.Boss().m_turning = true;
  fight.Boss().m_aim_angle = -90.0f;
  fight.Boss().Update(kStep);
  EXPECT_TRUE(fight.Boss().m_dying);
  EXPECT_EQ(fight.Body().m_rot_vel, -100.0f);
  fight.Place().m_local_rotate = -88.0f;
  fight.Boss().Update(kStep);
  EXPECT_FALSE(fight.Boss().m_turning);
  EXPECT_EQ(fight.Body().m_rot_vel, 0.0f);
  EXPECT_EQ(fight.Place().m_local_rotate, -90.0f);
}

/// Ends the process: 0 if the first step of a boss's death is white.
[[noreturn]] void DieForOneStep() {
  BossFight fight;
  fight.Boss().m_health = 0;
  fight.Boss().Update(kStep);
  std::_Exit(fight.stage.Of<Render>("Boss").m_colour[0] == kWhite ? 0 : 1);
}

TEST(BossDeathTest, TheFirstStepOfTheFirstDeathInAProgramIsWhite) {
  // The strobe's count is the program's, so a process of its own looks.
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(DieForOneStep(), ::testing::ExitedWithCode(0), "");
}

TEST(Boss, ADyingBossStrobesEveryFifthStep) {
  BossFight fight;
  fight.Boss().m_health = 0;
  std::vector<int> flashes;
  for (int i = 0; i < 15; ++i) {
    fight.Boss().Update(kStep);
    const float red = fight.stage.Of<Render>("Boss").m_colour[0];
    EXPECT_TRUE(red == kWhite || red == 1.0f);
    for (const char* barrel : {"Weapon0Barrel", "Weapon1Barrel"}) {
      EXPECT_EQ(fight.stage.ChildOf<Render>("Boss", barrel).m_colour[1], red);
    }
    if (red == kWhite) flashes.push_back(i);
  }
  ASSERT_THAT(flashes, SizeIs(3));
  EXPECT_EQ(flashes[1] - flashes[0], 5);
  EXPECT_EQ(flashes[2] - flashes[1], 5);
}

TEST(Boss, TwoDyingBossesStrobeByOneCount) {
  UnitStage stage(
      {UnitRecord(UnitKind::kBoss, "one", Whole()), UnitRecord(UnitKind::kBoss, "two", Whole())});
  std::vector<std::string> names = {"one", "two"};
  for (const std::string& name : names) {
    stage.Of<Enemy>(name).Update(0.0f);
    stage.Of<StateC>(name).m_state = "default";
    stage.Of<Enemy>(name).m_health = 0;
  }
  std::vector<int> flashes;
  for (int i = 0; i < 20; ++i) {
    const std::string& name = names[static_cast<std::size_t>(i % 2)];
    stage.Of<Enemy>(name).Update(kStep);
    if (stage.Of<Render>(name).m_colour[0] == kWhite) flashes.push_back(i);
  }
  ASSERT_THAT(flashes, SizeIs(4));
  for (std::size_t i = 1; i < 4; ++i) EXPECT_EQ(flashes[i] - flashes[i - 1], 5);
}

TEST(Boss, ExplosionsFollowEachOtherByThreeTenthsOfASecond) {
  BossFight fight;
  fight.Boss().m_health = 0;
  for (int i = 0; i <= 10; ++i) {
    GameObj* explosion = fight.stage.Find(Explosion(i));
    if (i > 0) {
      fight.Boss().m_death_timer = 0.3f * static_cast<float>(i) - 0.01f;
      fight.Boss().Update(0.0f);
      EXPECT_FALSE(explosion->active) << i;
    }
    fight.Boss().m_death_timer = 0.3f * static_cast<float>(i);
    fight.Boss().Update(0.0f);
    EXPECT_TRUE(explosion->active) << i;
    EXPECT_EQ(explosion->GetComponent<StateC>()->m_state, "loop") << i;
    EXPECT_TRUE(AsksFor(explosion, "unit_death.ogg")) << i;
  }
}

TEST(Boss, AnExplosionThatLoopsIsNotStartedAgain) {
  BossFight fight;
  fight.Boss().m_health = 0;
  fight.Boss().Update(0.1f);
  GameObj* explosion = fight.stage.Find("DeathExplosion00");
  Hush(explosion);
  explosion->SetActive(false);
  fight.Boss().Update(0.1f);
  EXPECT_FALSE(explosion->active);
  EXPECT_FALSE(AsksFor(explosion, "unit_death.ogg"));
}

TEST(Boss, AnExplosionThatIsHeardIsNotAskedForAgain) {
  BossFight fight;
  GameObj* explosion = fight.stage.Find("DeathExplosion00");
  auto* source = explosion->GetComponent<AudioSource>();
  source->PlaySound("unit_death.ogg");
  g_engine->systems.back()->Update(kStep);
  ASSERT_TRUE(source->IsPlaying("unit_death.ogg"));
  fight.Boss().m_health = 0;
  fight.Boss().Update(0.1f);
  EXPECT_EQ(explosion->GetComponent<StateC>()->m_state, "loop");
  EXPECT_FALSE(AsksFor(explosion, "unit_death.ogg"));
}

TEST(Boss, AfterFiveSecondsTheExplosionsAreOver) {
  BossFight fight;
  fight.DieForFiveSeconds();
  for (int i = 0; i <= 10; ++i) {
    GameObj* explosion = fight.stage.Find(Explosion(i));
    EXPECT_FALSE(explosion->active) << i;
    EXPECT_TRUE(explosion->GetComponent<AudioSource>()->sounds["unit_death.ogg"].stop_request) << i;
  }
}

TEST(Boss, TheLastStepShowsTheDeathSheet) {
  BossFight fight;
  fight.DieForFiveSeconds();
  ASSERT_FALSE(AsksFor(fight.stage.Find("Boss"), "unit_death.ogg"));
  fight.stage.Of<Render>("Boss").m_colour = {kWhite, kWhite, kWhite, 1.0f};
  fight.Boss().Update(0.25f);
  EXPECT_THAT(fight.stage.Of<Render>("Boss").m_colour, ElementsAre(1.0f, 1.0f, 1.0f, 1.0f));
  EXPECT_EQ(fight.Place().m_local_scale, Vector3D(72.0f, 108.0f, 3.0f));
  EXPECT_TRUE(AsksFor(fight.stage.Find("Boss"), "unit_death.ogg"));
  for (const char* barrel : {"Weapon0Barrel", "Weapon1Barrel"}) {
    EXPECT_FALSE(fight.stage.ChildOf<Render>("Boss", barrel).m_visible);
  }
}

TEST(Boss, TheLastStepKeepsTheHitsOfItsShellsInSize) {
  BossFight fight;
  fight.DieForFiveSeconds();
  fight.Boss().Update(0.25f);
  for (const char* shot : kShots) {
    const bool shell = std::string(shot).find("Phase1") == std::string::npos;
    GameObj* hit = FirstChildNamed(fight.stage.Find(shot), "bullet_hit");
    EXPECT_EQ(hit->GetComponent<Transform>()->m_local_scale.x, shell ? 0.33f : 1.0f) << shot;
  }
  EXPECT_EQ(fight.stage.ChildOf<Transform>("Boss", "electricvfx").m_local_scale.x, 1.0f);
}

TEST(Boss, DiesWithoutShieldsExplosionsAndFields) {
  UnitParts parts = Whole();
  parts.without = {"ShieldPhase1", "ShieldPhase2", "ColliderHolder", "AudioSource"};
  for (int i = 0; i <= 10; ++i) parts.without.push_back(Explosion(i));
  BossFight fight(parts, {});
  fight.DieForFiveSeconds();
  fight.Boss().Update(0.25f);
  EXPECT_FALSE(fight.Boss().m_alive);
}

TEST(Boss, AnExplosionWithoutItsComponentsIsNoFault) {
  UnitParts parts = Whole();
  parts.without = {"DeathExplosion03", "DeathExplosion04"};
  parts.more = {Record("DeathExplosion03", {}), Record("DeathExplosion04", {{"StateC", "{}"}})};
  BossFight fight(parts);
  fight.DieForFiveSeconds();
  fight.Boss().Update(0.25f);
  EXPECT_FALSE(fight.Boss().m_alive);
  EXPECT_FALSE(fight.stage.Find("DeathExplosion03")->active);
}

}  // namespace
}  // namespace ZOVEngine
