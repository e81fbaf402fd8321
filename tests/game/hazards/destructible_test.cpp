#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rttr/type>

#include <limits>
#include <string>
#include <vector>

#include "core/contactinfo.h"
#include "core/engine.h"
#include "game/hazards/environmentdestructible.h"
#include "game/shots/projectilebounce.h"
#include "game/shots/projectiledefault.h"
#include "game/shots/projectilepierce.h"
#include "game/shots/projectilepush.h"
#include "objects/statec.h"
#include "render/components/animation.h"
#include "support/kinds.h"
#include "support/reports.h"
#include "support/unitrecords.h"

namespace ZOVEngine {
namespace {

using carapace_test::Components;
using carapace_test::KeysOf;
using carapace_test::KindsOf;
using carapace_test::NamesOfClasses;
using carapace_test::OutputOf;
using carapace_test::ReadRecord;
using carapace_test::Record;
using carapace_test::RecordOf;
using carapace_test::ShotRecord;
using carapace_test::SpriteRecord;
using carapace_test::UnitStage;
using ::testing::ElementsAre;

const Components kSheets = {{"StateC", R"({"m_state": "default"})"}, {"Animation", "{}"}};

/// A destructible of 3 health with a child, and a shot of each kind.
class Crate {
 public:
  explicit Crate(const Components& more = kSheets, int health = 3)
      : stage(Children(more, health), false) {
    stage.Of<ProjectileDefault>("ProjectileDefault").m_damage = 1;
    stage.Of<ProjectilePierce>("ProjectilePierce").m_damage = 2;
    stage.Of<ProjectilePush>("ProjectilePush").m_damage = 1;
  }

  EnvironmentDestructible& It() { return stage.Of<EnvironmentDestructible>("crate"); }
  std::string& Loop() { return stage.Of<Animation>("crate").m_loop; }
  void Hit(const std::string& a, const std::string& b) {
    ContactInfo contact = stage.Between(a, b);
    It().OnCollisionEnter(&contact);
    EXPECT_FALSE(contact.ignored);
  }
  /// The health that a hit by the shot takes, which is the same on either side.
  int DamageBy(const std::string& shot) {
    const int before = It().m_health;
    Hit("crate", shot);
    const int damage = before - It().m_health;
    Hit(shot, "crate");
    EXPECT_EQ(It().m_health, before - 2 * damage);
    It().m_health = before;
    return damage;
  }

  UnitStage stage;

 private:
  static std::vector<std::string> Children(const Components& more, int health) {
    Components components = {
        {"EnvironmentDestructible", R"({"m_health": )" + std::to_string(health) + "}"}};
    components.insert(components.end(), more.begin(), more.end());
    std::vector<std::string> children = {Record("crate", components, {SpriteRecord("splinter")})};
    for (const std::string& kind : NamesOfClasses(KindsOf<Shot>())) {
      children.push_back(ShotRecord(kind, kind));
    }
    return children;
  }
};

TEST(EnvironmentDestructible, ANewOneHasItsDefaults) {
  const EnvironmentDestructible crate(nullptr);
  EXPECT_EQ(crate.m_health, 3);
  EXPECT_EQ(crate.m_initial_health, 3);
}

TEST(EnvironmentDestructible, ItsHealthIsItsOnlyKey) {
  EnvironmentDestructible crate(nullptr);
  ReadRecord(R"({"m_health": 7, "m_initial_health": 9})", crate);
  EXPECT_EQ(crate.m_health, 7);
  EXPECT_EQ(crate.m_initial_health, 3);
  EXPECT_THAT(KeysOf(RecordOf(crate)), ElementsAre("m_health"));
  EXPECT_EQ(OutputOf([&] { ReadRecord("{}", crate); }), "Cant find Key: m_health\n");
  EXPECT_EQ(crate.m_health, 7);
}

TEST(EnvironmentDestructible, TheInspectorShowsItsHealth) {
  const rttr::type type = rttr::type::get_by_name("ZOVEngine::EnvironmentDestructible");
  const rttr::property health = type.get_property("m_health");
  ASSERT_TRUE(health.is_valid());
  EXPECT_EQ(health.get_metadata("typeinfo").get_value<std::string>(), "int");
  EXPECT_EQ(health.get_metadata("name").get_value<std::string>(), "Health");
  EXPECT_FALSE(type.get_property("m_initial_health").is_valid());
}

TEST(EnvironmentDestructible, TheFirstStepShowsItWhole) {
  Crate crate(kSheets, 5);
  crate.stage.Find("crate")->SetActive(false);
  crate.It().Update(kStep);
  EXPECT_TRUE(crate.It().m_init);
  EXPECT_TRUE(crate.It().m_active);
  EXPECT_TRUE(crate.stage.Find("crate")->active);
  EXPECT_TRUE(crate.stage.Find("splinter")->active);
  EXPECT_EQ(crate.It().m_initial_health, 5);
  EXPECT_EQ(crate.stage.Of<StateC>("crate").m_state, "loop");
  EXPECT_EQ(crate.Loop(), "Sheet_Env_DestructibleA");
  crate.It().Update(kStep);
  EXPECT_EQ(crate.Loop(), "Sheet_Env_DestructibleA");
}

TEST(EnvironmentDestructible, CracksFromTheFirstDamageOnAndIsGoneWithoutHealth) {
  Crate crate;
  crate.It().Update(kStep);
  crate.Hit("ProjectileDefault", "crate");
  EXPECT_EQ(crate.It().m_health, 2);
  crate.It().Update(kStep);
  EXPECT_EQ(crate.Loop(), "Sheet_Env_DestructibleB");
  EXPECT_TRUE(crate.stage.Find("crate")->active);
  crate.Hit("ProjectileDefault", "crate");
  crate.Hit("ProjectileDefault", "crate");
  EXPECT_EQ(crate.It().m_health, 0);
  EXPECT_TRUE(crate.stage.Find("crate")->active) << "until its own step";
  crate.It().Update(kStep);
  EXPECT_FALSE(crate.stage.Find("crate")->active);
  EXPECT_FALSE(crate.stage.Find("splinter")->active);
  EXPECT_FALSE(crate.It().m_active);
}

TEST(EnvironmentDestructible, IsGoneBelowZeroTooAndForGood) {
  Crate crate({}, 1);
  crate.It().Update(kStep);
  crate.Hit("crate", "ProjectilePierce");
  EXPECT_EQ(crate.It().m_health, -1);
  for (int i = 0; i < 3; ++i) crate.It().Update(kStep);
  EXPECT_FALSE(crate.stage.Find("crate")->active);
}

TEST(EnvironmentDestructible, WithoutHealthAtTheStartItIsGoneAtOnce) {
  Crate crate(kSheets, 0);
  crate.It().Update(kStep);
  EXPECT_FALSE(crate.stage.Find("crate")->active);
  EXPECT_FALSE(crate.It().m_active);
}

TEST(EnvironmentDestructible, WithoutAStateItDoesNotCrack) {
  Crate crate(Components{{"Animation", "{}"}});
  crate.It().Update(kStep);
  EXPECT_EQ(crate.Loop(), "Sheet_Env_DestructibleA");
  crate.It().m_health = 1;
  crate.It().Update(kStep);
  EXPECT_EQ(crate.Loop(), "Sheet_Env_DestructibleA");
}

TEST(EnvironmentDestructible, WithoutAnAnimationItOnlyLoopsItsState) {
  Crate crate(Components{{"StateC", "{}"}});
  crate.It().Update(kStep);
  crate.It().m_health = 1;
  crate.It().Update(kStep);
  EXPECT_EQ(crate.stage.Of<StateC>("crate").m_state, "loop");
}

TEST(EnvironmentDestructible, PlainPiercingAndPushingShotsTakeTheirDamage) {
  Crate crate;
  crate.stage.Of<ProjectileDefault>("ProjectileDefault").m_damage = 4;
  crate.stage.Of<ProjectilePierce>("ProjectilePierce").m_damage = 5;
  crate.stage.Of<ProjectilePush>("ProjectilePush").m_damage = 6;
  EXPECT_EQ(crate.DamageBy("ProjectileDefault"), 4);
  EXPECT_EQ(crate.DamageBy("ProjectilePierce"), 5);
  EXPECT_EQ(crate.DamageBy("ProjectilePush"), 6);
}

TEST(EnvironmentDestructible, OtherShotsTakeNothingByTouch) {
  Crate crate;
  EXPECT_EQ(crate.DamageBy("ProjectileSwap"), 0);
  EXPECT_EQ(crate.DamageBy("ProjectileVacuum"), 0);
  EXPECT_EQ(crate.DamageBy("ProjectileExplosion"), 0);
}

TEST(EnvironmentDestructible, ABounceTakesOneLessThanItsDamage) {
  Crate crate;
  auto& bounce = crate.stage.Of<ProjectileBounce>("ProjectileBounce");
  for (const auto& [current, taken] :
       {std::pair(0, 0), std::pair(1, 0), std::pair(2, 1), std::pair(5, 4)}) {
    bounce.m_curr_damage = current;
    EXPECT_EQ(crate.DamageBy("ProjectileBounce"), taken) << current;
  }
}

TEST(EnvironmentDestructible, HealthStaysWithinItsRange) {
  constexpr int kLeast = std::numeric_limits<int>::min();
  Crate crate;
  for (const char* shot : {"ProjectileDefault", "ProjectilePierce", "ProjectilePush"}) {
    crate.It().m_health = kLeast;
    crate.Hit("crate", shot);
    EXPECT_EQ(crate.It().m_health, kLeast) << shot;
  }
}

TEST(EnvironmentDestructible, ABounceNeverHeals) {
  constexpr int kLeast = std::numeric_limits<int>::min();
  Crate crate;
  for (const int damage : {1, 2, 5}) {
    crate.stage.Of<ProjectileBounce>("ProjectileBounce").m_curr_damage = damage;
    crate.It().m_health = kLeast;
    crate.Hit("crate", "ProjectileBounce");
    EXPECT_EQ(crate.It().m_health, kLeast) << damage;
  }
}

TEST(EnvironmentDestructible, ABounceOfNoDamageShieldsFromItsOtherKinds) {
  Crate crate;
  GameObj* shot = crate.stage.Find("ProjectileBounce");
  shot->AddComponent<ProjectileDefault>();
  shot->GetComponent<ProjectileDefault>()->m_damage = 2;
  shot->GetComponent<ProjectileBounce>()->m_curr_damage = 0;
  EXPECT_EQ(crate.DamageBy("ProjectileBounce"), 0);
  shot->GetComponent<ProjectileBounce>()->m_curr_damage = 2;
  EXPECT_EQ(crate.DamageBy("ProjectileBounce"), 3);
}

TEST(EnvironmentDestructible, SwitchedOffObjectsDoNothing) {
  for (const char* off : {"crate", "ProjectileDefault"}) {
    Crate crate;
    crate.stage.Find(off)->active = false;
    EXPECT_EQ(crate.DamageBy("ProjectileDefault"), 0) << off;
  }
}

}  // namespace
}  // namespace ZOVEngine
