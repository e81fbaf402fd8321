#include "game/hazards/deathfield.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rttr/type>

#include <limits>
#include <string>
#include <vector>

#include "core/contactinfo.h"
#include "core/engine.h"
#include "game/units/enemy.h"
#include "game/units/player.h"
#include "objects/statec.h"
#include "physics/components/transform.h"
#include "support/reports.h"
#include "support/unitrecords.h"

namespace ZOVEngine {
namespace {

using carapace_test::HolderOf;
using carapace_test::KeysOf;
using carapace_test::OutputOf;
using carapace_test::ReadRecord;
using carapace_test::Record;
using carapace_test::RecordOf;
using carapace_test::ReportOf;
using carapace_test::SpriteRecord;
using carapace_test::TransformAt;
using carapace_test::UnitKind;
using carapace_test::UnitParts;
using carapace_test::UnitRecord;
using carapace_test::UnitStage;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

std::string Field(const std::string& name = "DeathField") {
  return Record(name, {{"Transform", TransformAt(5, 6)},
                       {"DeathField", R"({"m_damage": 3})"},
                       {"StateC", R"({"m_state": "default"})"}});
}

/// A field of 3 damage in a level with units and further objects.
class Aura {
 public:
  explicit Aura(const std::vector<std::string>& others = {}) : stage(Children(others), false) {}

  DeathField& It() { return stage.Of<DeathField>("DeathField"); }
  Transform& Place() { return stage.Of<Transform>("DeathField"); }
  int& PlayerHealth() { return stage.Of<Player>("player").m_health; }
  int& EnemyHealth() { return stage.Of<Enemy>("enemy").m_health; }

  UnitStage stage;

 private:
  static std::vector<std::string> Children(const std::vector<std::string>& others) {
    std::vector<std::string> children = {Field(), UnitRecord(UnitKind::kPlayer, "player"),
                                         UnitRecord(UnitKind::kEnemy, "enemy")};
    children.insert(children.end(), others.begin(), others.end());
    return children;
  }
};

TEST(DeathField, ItsDamageIsItsOnlyKey) {
  DeathField field(nullptr);
  EXPECT_EQ(field.m_damage, 10);
  EXPECT_EQ(OutputOf([&] { ReadRecord("{}", field); }), "Cant find Key: m_damage\n");
  EXPECT_EQ(field.m_damage, 10);
  ReadRecord(R"({"m_damage": 4})", field);
  EXPECT_EQ(field.m_damage, 4);
  EXPECT_THAT(KeysOf(RecordOf(field)), ElementsAre("m_damage"));
}

TEST(DeathField, TheInspectorShowsItsDamage) {
  const rttr::property damage =
      rttr::type::get_by_name("ZOVEngine::DeathField").get_property("m_damage");
  ASSERT_TRUE(damage.is_valid());
  EXPECT_EQ(damage.get_metadata("typeinfo").get_value<std::string>(), "int");
  EXPECT_EQ(damage.get_metadata("name").get_value<std::string>(), "Damage");
}

TEST(DeathField, TheFirstStepLoopsItsStateAndSwitchesNothingOn) {
  Aura aura;
  aura.stage.Find("DeathField")->SetActive(false);
  aura.It().Update(kStep);
  EXPECT_TRUE(aura.It().m_init);
  EXPECT_EQ(aura.stage.Of<StateC>("DeathField").m_state, "loop");
  EXPECT_FALSE(aura.stage.Find("DeathField")->active);
  EXPECT_FALSE(aura.It().m_active);
  aura.stage.Of<StateC>("DeathField").m_state = "default";
  aura.It().Update(kStep);
  EXPECT_EQ(aura.stage.Of<StateC>("DeathField").m_state, "default");
}

TEST(DeathField, FollowsTheFirstBossBesideIt) {
  Aura aura({SpriteRecord("Boss", 70, 80), SpriteRecord("Boss", 1, 2)});
  aura.stage.Of<Transform>("Boss").m_local_pos = Vector3D(900, 900, 1);
  aura.It().Update(kStep);
  EXPECT_EQ(aura.Place().m_local_pos, Vector3D(70, 80, 1)) << "where the boss is in the world";
  UnitStage::Derive();
  aura.It().Update(kStep);
  EXPECT_EQ(aura.Place().m_local_pos, Vector3D(900, 900, 1));
}

TEST(DeathField, WithoutABossItStaysAndTurns) {
  Aura aura({Record("group", {}, {SpriteRecord("Boss", 70, 80)})});
  for (int i = 0; i < 2; ++i) aura.It().Update(kStep);
  EXPECT_EQ(aura.Place().m_local_pos, Vector3D(5, 6, 1));
  EXPECT_FLOAT_EQ(aura.Place().m_local_rotate, 0.6f);
}

TEST(DeathField, TurnsWithABossToo) {
  Aura aura({SpriteRecord("Boss", 70, 80)});
  for (int i = 0; i < 3; ++i) aura.It().Update(kStep);
  EXPECT_FLOAT_EQ(aura.Place().m_local_rotate, 0.9f);
}

TEST(DeathField, WithoutAParentTheLevelIsReportedWrong) {
  UnitStage stage({}, false);
  OutputOf([&] { stage.world.LoadObjects(Field("lonely")); });
  EXPECT_THAT(ReportOf([&] { stage.Of<DeathField>("lonely").Update(kStep); }),
              HasSubstr("object \"lonely\": a DeathField needs a parent"));
}

TEST(DeathField, EnteringWoundsAPlayerUnit) {
  Aura aura;
  ContactInfo contact = aura.stage.Between("player", "DeathField");
  aura.It().OnCollisionEnter(&contact);
  EXPECT_TRUE(contact.ignored);
  EXPECT_EQ(aura.PlayerHealth(), 5);
  contact = aura.stage.Between("DeathField", "player");
  aura.It().OnCollisionEnter(&contact);
  EXPECT_EQ(aura.PlayerHealth(), 2);
  aura.It().OnCollisionEnter(&contact);
  EXPECT_EQ(aura.PlayerHealth(), -1) << "below zero too";
}

TEST(DeathField, EnemiesPassUnhurt) {
  Aura aura;
  ContactInfo contact = aura.stage.Between("enemy", "DeathField");
  aura.It().OnCollisionEnter(&contact);
  EXPECT_TRUE(contact.ignored);
  EXPECT_EQ(aura.EnemyHealth(), 8);
}

TEST(DeathField, StayingAndLeavingOnlyPass) {
  Aura aura;
  ContactInfo contact = aura.stage.Between("player", "DeathField");
  aura.It().OnCollisionStay(&contact);
  EXPECT_TRUE(contact.ignored);
  contact.ignored = false;
  aura.It().OnCollisionExit(&contact);
  EXPECT_TRUE(contact.ignored);
  EXPECT_EQ(aura.PlayerHealth(), 8);
}

TEST(DeathField, SwitchedOffObjectsOnlyPass) {
  for (const char* off : {"player", "DeathField"}) {
    Aura aura;
    aura.stage.Find(off)->active = false;
    ContactInfo contact = aura.stage.Between("player", "DeathField");
    aura.It().OnCollisionEnter(&contact);
    EXPECT_TRUE(contact.ignored) << off;
    EXPECT_EQ(aura.PlayerHealth(), 8) << off;
  }
}

/// A player unit of 8 health that lies in a field of 3 damage.
std::vector<std::string> FieldOverPlayer() {
  UnitParts parts;
  parts.without = {"unit_damaged", "Weapon0Projectile", "Weapon1Projectile"};
  return {Record("DeathField", {{"Transform", TransformAt(110, 50, 1, 40)},
                                {"ColliderHolder", HolderOf("Circle")},
                                {"DeathField", R"({"m_damage": 3})"}}),
          UnitRecord(UnitKind::kPlayer, "player", parts)};
}

TEST(DeathField, AUnitThatStaysInItIsWoundedOnce) {
  UnitStage stage(FieldOverPlayer(), false);
  const Vector3D before = stage.Of<Transform>("player").m_local_pos;
  for (int i = 0; i < 10; ++i) stage.world.Step();
  EXPECT_EQ(stage.Of<Player>("player").m_health, 5);
  EXPECT_EQ(stage.Of<Transform>("player").m_local_pos, before) << "and is not pushed out";
}

// A contact that began in the step before a pause is told to begin in every step of the pause.

TEST(DeathField, InAPauseNobodyIsHurt) {
  UnitStage stage(FieldOverPlayer(), false);
  stage.world.Step();
  ASSERT_EQ(stage.Of<Player>("player").m_health, 5);
  g_engine->paused = true;
  stage.world.Step(10);
  EXPECT_EQ(stage.Of<Player>("player").m_health, 5);
  g_engine->paused = false;
  stage.world.Step(10);
  EXPECT_EQ(stage.Of<Player>("player").m_health, 5);
}

/// Sets or clears the engine's pause in the course of a step, as a key does.
class PauseKey final : public UnpausedSystem {
  RTTR_ENABLE(UnpausedSystem)

 public:
  explicit PauseKey(bool pause) : m_pause(pause) {}
  void Init() override {}
  void Update(float) override { g_engine->paused = m_pause; }
  void SendMessage(Message*) override {}

 private:
  bool m_pause;
};

void StepWithPauseKey(UnitStage* stage, bool pause) {
  PauseKey key(pause);
  g_engine->systems.insert(g_engine->systems.begin(), &key);
  stage->world.Step();
  g_engine->systems.erase(g_engine->systems.begin());
}

TEST(DeathField, AUnitThatEntersInTheStepInWhichAPauseIsAskedForIsWounded) {
  UnitStage stage(FieldOverPlayer(), false);
  StepWithPauseKey(&stage, true);
  EXPECT_EQ(stage.Of<Player>("player").m_health, 5) << "the step still runs";
}

TEST(DeathField, TheStepInWhichAPauseIsEndedHurtsNobody) {
  UnitStage stage(FieldOverPlayer(), false);
  stage.world.Step();
  g_engine->paused = true;
  stage.world.Step();
  StepWithPauseKey(&stage, false);
  EXPECT_EQ(stage.Of<Player>("player").m_health, 5) << "the step still pauses";
}

TEST(DeathField, ABossWithoutAPlaceIsNotFollowed) {
  Aura aura({Record("Boss", {})});
  const Vector3D before = aura.Place().m_local_pos;
  aura.It().Update(kStep);
  EXPECT_EQ(aura.Place().m_local_pos, before);
  EXPECT_FLOAT_EQ(aura.Place().m_local_rotate, 0.3f);
}

TEST(DeathField, HealthStaysWithinItsRange) {
  Aura aura;
  aura.PlayerHealth() = std::numeric_limits<int>::min();
  ContactInfo contact = aura.stage.Between("player", "DeathField");
  aura.It().OnCollisionEnter(&contact);
  EXPECT_EQ(aura.PlayerHealth(), std::numeric_limits<int>::min());
}

}  // namespace
}  // namespace ZOVEngine
