#include "game/shots/shot.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rttr/type>

#include "core/engine.h"
#include "game/hazards/environmentdestructible.h"
#include "game/hazards/passablehazard.h"
#include "game/shots/projectilebounce.h"
#include "game/shots/projectiledefault.h"
#include "game/shots/projectileexplosion.h"
#include "game/shots/projectilepierce.h"
#include "game/shots/projectilepush.h"
#include "game/shots/projectileswap.h"
#include "game/shots/projectilevacuum.h"
#include "game/shots/shotstage.h"
#include "support/kinds.h"

namespace ZOVEngine {
namespace {

using carapace_test::KeysOf;
using carapace_test::KindsOf;
using carapace_test::kLively;
using carapace_test::NamesOfClasses;
using carapace_test::OutputOf;
using carapace_test::ReadRecord;
using carapace_test::Record;
using carapace_test::RecordOf;
using carapace_test::ShotOf;
using carapace_test::ShotParts;
using carapace_test::ShotStage;
using carapace_test::SolidUnitAt;
using carapace_test::ThingAt;
using carapace_test::TransformAt;
using carapace_test::UnitClass;
using carapace_test::UnitKind;
using ::testing::ElementsAreArray;

/// What is peculiar to a kind of shot. A kind without one does not link.
struct Nature {
  const char* name;
  WeaponLook look;
  std::vector<std::string> keys;
  std::vector<std::pair<const char*, const char*>> inspected;
  float max_range = 2000.0f;
  bool rebounds = false;  ///< a wall does not end it
  bool ends_at_unit = true;
  int damage = 1;            ///< of a direct hit
  int crack = 0;             ///< off a destructible thing that is told after the shot
  int crack_before = 0;      ///< off one that is told before the shot
  bool spares_boss = false;  ///< at the muzzle
  bool passes_own_kind = false;
  bool spins = false;
  bool late_muzzle = false;
  int hits_of_two = 1;         ///< units that it touches in one step
  bool hits_by_blast = false;  ///< a unit in reach, whatever it touches first
};

const std::vector<std::string> kWoundingKeys = {"m_max_range", "m_curr_range", "m_damage",
                                                "m_speed"};
const std::vector<std::pair<const char*, const char*>> kWoundingFields = {
    {"m_max_range", "Max Range"}, {"m_speed", "Speed"}, {"m_damage", "Damage"}};

template <class Shot>
Nature NatureOf();
template <>
Nature NatureOf<ProjectileDefault>() {
  return {.name = "ProjectileDefault",
          .look = {"BASIC", "Gun_Basic", "Sheet_Fire_Basic", "WeaponFloat_Basic", 2.32f},
          .keys = kWoundingKeys,
          .inspected = kWoundingFields,
          .rebounds = true,
          .crack = 1,
          .crack_before = 1,
          .spares_boss = true,
          .passes_own_kind = true};
}
template <>
Nature NatureOf<ProjectilePush>() {
  return {.name = "ProjectilePush",
          .look = {"PUSH", "Gun_Push", "Sheet_Fire_Push", "WeaponFloat_Push", 2.32f},
          .keys = kWoundingKeys,
          .inspected = kWoundingFields,
          .crack_before = 1};
}
template <>
Nature NatureOf<ProjectilePierce>() {
  return {.name = "ProjectilePierce",
          .look = {"PIERCE", "Gun_Pierce", "Sheet_Fire_Pierce", "WeaponFloat_Pierce", 3.104f},
          .keys = kWoundingKeys,
          .inspected = kWoundingFields,
          .ends_at_unit = false,
          .crack_before = 1,
          .late_muzzle = true,
          .hits_of_two = 2};
}
template <>
Nature NatureOf<ProjectileBounce>() {
  return {.name = "ProjectileBounce",
          .look = {"BOUNCE", "Gun_Bounce", "Sheet_Fire_Bounce", "WeaponFloat_Bounce", 3.104f},
          .keys = {"m_max_range", "m_curr_range", "m_speed", "m_min_damage", "m_max_damage"},
          .inspected = {{"m_max_range", "Max Range"},
                        {"m_speed", "Speed"},
                        {"m_min_damage", "Min Damage"},
                        {"m_max_damage", "Max Damage"}},
          .max_range = 3000.0f,
          .rebounds = true,
          .damage = 0};
}
template <>
Nature NatureOf<ProjectileSwap>() {
  return {.name = "ProjectileSwap",
          .look = {"SWAP", "Gun_Swap", "Sheet_Fire_Swap", "WeaponFloat_Swap", 2.32f},
          .keys = {"m_max_range", "m_curr_range", "m_speed"},
          .inspected = {{"m_max_range", "Max Range"}, {"m_speed", "Speed"}},
          .rebounds = true,
          .damage = 0,
          .spins = true,
          .hits_of_two = 0};
}
template <>
Nature NatureOf<ProjectileExplosion>() {
  return {
      .name = "ProjectileExplosion",
      .look = {"EXPLOSION", "Gun_Explode", "Sheet_Fire_Explosion", "WeaponFloat_Explosion", 3.813f},
      .keys = {"m_max_range", "m_curr_range", "m_damage", "m_speed", "m_aoe", "m_knockback"},
      .inspected = {{"m_max_range", "Max Range"},
                    {"m_speed", "Speed"},
                    {"m_damage", "Damage"},
                    {"m_aoe", ""},
                    {"m_knockback", "Knockback"}},
      .crack = 1,
      .crack_before = 1,
      .spares_boss = true,
      .passes_own_kind = true,
      .hits_of_two = 2,
      .hits_by_blast = true};
}
template <>
Nature NatureOf<ProjectileVacuum>() {
  return {
      .name = "ProjectileVacuum",
      .look = {"VACUUM", "Gun_Vacuum", "Sheet_Fire_Vacuum", "WeaponFloat_Vacuum", 3.104f},
      .keys = {"m_max_range", "m_curr_range", "m_damage", "m_speed", "m_aoe", "m_suction_force"},
      .inspected = {{"m_max_range", "Max Range"},
                    {"m_speed", "Speed"},
                    {"m_damage", "Damage"},
                    {"m_aoe", ""},
                    {"m_suction_force", "Suction Force"}},
      .damage = 0,
      .spins = true,
      .hits_of_two = 0};
}

/// What holds for every kind of shot, or differs by its nature alone.
template <class Shot>
class EveryShot : public ::testing::Test {
 protected:
  static ShotParts Parts(const std::vector<std::string>& more = {}) {
    return {.kind = NatureOf<Shot>().name, .more = more};
  }
  static Shot& Component(const ShotStage& stage) { return stage.Of<Shot>("shot"); }
  /// Fires from (-200, 0) to the right, where things stand at (0, 0).
  static void FireRight(const ShotStage& stage) {
    Component(stage).Fire(Vector3D(-200, 0, 1), Vector3D(1, 0, 0));
  }
  static Vector3D& Velocity(const ShotStage& stage) { return stage.Of<RigidBody>("shot").m_vel; }
  static float RightEdge(const ShotStage& stage) {
    return stage.Of<Transform>("shot").m_world_pos.x + 8.0f;
  }

  const Nature nature = NatureOf<Shot>();
};

using Kinds = KindsOf<Shot>;
TYPED_TEST_SUITE(EveryShot, Kinds);

// Data

TYPED_TEST(EveryShot, HasItsRangeAndSpeedByDefault) {
  const TypeParam shot(nullptr);
  EXPECT_EQ(shot.m_max_range, this->nature.max_range);
  EXPECT_EQ(shot.m_curr_range, 0.0f);
  EXPECT_EQ(shot.m_speed, 1000.0f);
  EXPECT_FALSE(shot.m_init);
}

TYPED_TEST(EveryShot, WritesItsKeysInTheirOrderAndReadsThemBack) {
  TypeParam shot(nullptr);
  std::string values;
  for (const std::string& key : this->nature.keys) {
    values += (values.empty() ? "\"" : ", \"") + key + "\": " + std::to_string(values.size() + 2);
  }
  OutputOf([&] { ReadRecord("{" + values + "}", shot); });
  const std::string record = RecordOf(shot);
  EXPECT_THAT(KeysOf(record), ElementsAreArray(this->nature.keys));
  TypeParam copy(nullptr);
  EXPECT_EQ(OutputOf([&] { ReadRecord(record, copy); }), "");
  EXPECT_EQ(RecordOf(copy), record);
  EXPECT_NE(RecordOf(copy), RecordOf(*std::make_unique<TypeParam>(nullptr)));
}

TYPED_TEST(EveryShot, EachKeyGoesToItsOwnField) {
  TypeParam shot(nullptr);
  OutputOf([&] {
    ReadRecord(
        R"({"m_max_range": 11, "m_curr_range": 12, "m_speed": 13, "m_damage": 14, "m_aoe": 15,
                 "m_knockback": 16, "m_suction_force": 17, "m_min_damage": 18,
                 "m_max_damage": 19})",
        shot);
  });
  EXPECT_EQ(shot.m_max_range, 11.0f);
  EXPECT_EQ(shot.m_curr_range, 12.0f);
  EXPECT_EQ(shot.m_speed, 13.0f);
  if constexpr (requires { shot.m_damage; }) {
    EXPECT_EQ(shot.m_damage, 14);
  }
  if constexpr (requires { shot.m_aoe; }) {
    EXPECT_EQ(shot.m_aoe, 15.0f);
  }
  if constexpr (requires { shot.m_knockback; }) {
    EXPECT_EQ(shot.m_knockback, 16.0f);
  }
  if constexpr (requires { shot.m_suction_force; }) {
    EXPECT_EQ(shot.m_suction_force, 17.0f);
  }
  if constexpr (requires { shot.m_min_damage; }) {
    EXPECT_EQ(shot.m_min_damage, 18);
    EXPECT_EQ(shot.m_max_damage, 19);
  }
}

TYPED_TEST(EveryShot, AMissingKeyPrintsItsLineAndKeepsTheDefault) {
  TypeParam shot(nullptr);
  std::string lines;
  for (const std::string& key : this->nature.keys) lines += "Cant find Key: " + key + "\n";
  EXPECT_EQ(OutputOf([&] { ReadRecord("{}", shot); }), lines);
  EXPECT_EQ(RecordOf(shot), RecordOf(*std::make_unique<TypeParam>(nullptr)));
}

TYPED_TEST(EveryShot, TheInspectorKnowsItsSettings) {
  const rttr::type type = rttr::type::get_by_name(std::string("ZOVEngine::") + this->nature.name);
  ASSERT_TRUE(type.is_valid());
  EXPECT_EQ(type.get_metadata("componentname").get_value<std::string>(), this->nature.name);
  for (const auto& [field, label] : this->nature.inspected) {
    const rttr::property property = type.get_property(field);
    ASSERT_TRUE(property.is_valid()) << field;
    EXPECT_TRUE(property.get_metadata("is_inspect").to_bool());
    EXPECT_EQ(property.get_metadata("name").get_value<std::string>(), label);
    const bool whole = std::string(field).find("damage") != std::string::npos;
    EXPECT_EQ(property.get_metadata("typeinfo").get_value<std::string>(), whole ? "int" : "float");
  }
  EXPECT_FALSE(type.get_property("m_curr_range").is_valid());
}

TYPED_TEST(EveryShot, TheInspectorChangesTheFieldThatItNames) {
  const rttr::type type = rttr::type::get_by_name(std::string("ZOVEngine::") + this->nature.name);
  for (const auto& [field, label] : this->nature.inspected) {
    TypeParam shot(nullptr);
    const bool whole = std::string(field).find("damage") != std::string::npos;
    const rttr::variant value = whole ? rttr::variant(77) : rttr::variant(77.0f);
    ASSERT_TRUE(type.get_property(field).set_value(shot, value)) << label;
    EXPECT_NE(RecordOf(shot).find("\"" + std::string(field) + "\": 77"), std::string::npos)
        << field;
  }
}

TYPED_TEST(EveryShot, ItsLabelNamesIt) {
  const TypeParam shot(nullptr);
  EXPECT_STREQ(shot.Look().name, this->nature.look.name);
  EXPECT_STREQ(shot.Look().gun, this->nature.look.gun);
  EXPECT_STREQ(shot.Look().flash, this->nature.look.flash);
  EXPECT_STREQ(shot.Look().label, this->nature.look.label);
  EXPECT_EQ(shot.Look().label_width, this->nature.look.label_width);
  EXPECT_EQ(shot.Look().label_height, 1.104f);
  EXPECT_EQ(shot.HasLateMuzzleEffect(), this->nature.late_muzzle);
}

// Sleep and flight

TYPED_TEST(EveryShot, TheFirstStepPutsItToSleep) {
  const ShotStage stage(this->Parts());
  EXPECT_TRUE(this->Component(stage).m_init);
  EXPECT_FALSE(stage.shot->active);
  EXPECT_FALSE(this->Component(stage).m_active);
  EXPECT_FALSE(stage.Of<RigidBody>("shot").m_active);
  EXPECT_FALSE(stage.Of<Render>("shot").m_visible);
  EXPECT_FALSE(stage.Find("bullet_hit")->active);
}

TYPED_TEST(EveryShot, ASleepingShotStaysWhereItIs) {
  ShotStage stage(this->Parts());
  stage.world.Step(3);
  EXPECT_FALSE(stage.shot->active);
  EXPECT_EQ(stage.Of<Transform>("shot").m_local_rotate, 0.0f);
  EXPECT_EQ(this->Component(stage).m_curr_range, 0.0f);
}

TYPED_TEST(EveryShot, FireWakesItWithItsChildrenAtTheMuzzle) {
  const ShotStage stage(this->Parts());
  this->FireRight(stage);
  EXPECT_TRUE(stage.shot->active);
  EXPECT_TRUE(this->Component(stage).m_active);
  EXPECT_TRUE(stage.Of<Render>("shot").m_visible);
  EXPECT_TRUE(stage.Find("bullet_trail")->active);
  EXPECT_TRUE(stage.PartOf<Render>("bullet_hit").m_visible);
  EXPECT_EQ(stage.Of<Transform>("shot").m_world_pos, Vector3D(-200, 0, 1));
  EXPECT_EQ(stage.Of<Transform>("shot").m_local_pos, Vector3D(100, 0, 1));
}

TYPED_TEST(EveryShot, FireForgetsTheLastFlight) {
  const ShotStage stage(this->Parts());
  auto& body = stage.Of<RigidBody>("shot");
  body.m_prev_vel = body.m_vel = body.m_accel = Vector3D(1, 2, 3);
  body.m_rot_vel = 4.0f;
  body.m_forces.push_back(std::make_shared<DirectionalForce>());
  body.m_torques.push_back(std::make_shared<RotationalForce>());
  auto& transform = stage.Of<Transform>("shot");
  transform.m_local_rotate = transform.m_prev_rotate = 5.0f;
  this->Component(stage).m_curr_range = 6.0f;
  this->FireRight(stage);
  EXPECT_EQ(body.m_prev_vel, Vector3D());
  EXPECT_EQ(body.m_vel, Vector3D());
  EXPECT_EQ(body.m_accel, Vector3D());
  EXPECT_EQ(body.m_rot_vel, 0.0f);
  EXPECT_EQ(body.m_forces.size(), 1u) << "the launch";
  EXPECT_TRUE(body.m_torques.empty());
  EXPECT_EQ(transform.m_local_rotate, 0.0f);
  EXPECT_EQ(transform.m_prev_rotate, 0.0f);
  EXPECT_EQ(this->Component(stage).m_curr_range, 0.0f);
}

TYPED_TEST(EveryShot, TheLaunchIsTenTimesTheSpeedForATenthOfASecond) {
  const ShotStage stage(this->Parts());
  this->Component(stage).m_speed = 300.0f;
  this->Component(stage).Fire(Vector3D(-200, 0, 1), Vector3D(0, 2, 0));
  const DirectionalForce& force = *stage.Of<RigidBody>("shot").m_forces.at(0);
  EXPECT_EQ(force.direction, Vector3D(0, 2, 0)) << "as it was given";
  EXPECT_EQ(force.magnitude, 3000.0f);
  EXPECT_EQ(force.lifetime, 0.1f);
}

TYPED_TEST(EveryShot, LeavesAtFiveSixthsOfItsSpeed) {
  ShotStage stage(this->Parts());
  this->FireRight(stage);
  stage.world.Step(8);
  EXPECT_NEAR(this->Velocity(stage).x, 833.3f, 0.2f);
  EXPECT_EQ(this->Velocity(stage).y, 0.0f);
}

TYPED_TEST(EveryShot, WithoutADirectionItLiesAtTheMuzzle) {
  ShotStage stage(this->Parts());
  this->Component(stage).Fire(Vector3D(-200, 0, 1), Vector3D());
  stage.world.Step(10);
  EXPECT_TRUE(stage.shot->active);
  EXPECT_EQ(this->Component(stage).m_curr_range, 0.0f);
  EXPECT_EQ(stage.Of<Transform>("shot").m_world_pos.x, -200.0f);
}

TYPED_TEST(EveryShot, FliesPointAheadOrSpins) {
  ShotStage stage(this->Parts());
  this->FireRight(stage);
  this->Velocity(stage) = Vector3D(3, 3, 0);
  auto& transform = stage.Of<Transform>("shot");
  this->Component(stage).Update(1.0f);
  EXPECT_FLOAT_EQ(transform.m_local_rotate, this->nature.spins ? 10.0f : -45.0f);
  EXPECT_FLOAT_EQ(transform.m_prev_rotate, this->nature.spins ? 0.0f : -45.0f);
  this->Component(stage).Update(0.001f);
  EXPECT_FLOAT_EQ(transform.m_local_rotate, this->nature.spins ? 20.0f : -45.0f)
      << "whatever the length of a step";
}

TYPED_TEST(EveryShot, TheRangeRunsWithTheSpeedAndEndsTheFlight) {
  ShotStage stage(this->Parts());
  this->FireRight(stage);
  TypeParam& shot = this->Component(stage);
  this->Velocity(stage) = Vector3D(30, 40, 0);
  shot.m_max_range = 60.0f;
  shot.Update(0.5f);
  EXPECT_FLOAT_EQ(shot.m_curr_range, 25.0f);
  shot.Update(0.5f);
  shot.Update(0.5f);
  EXPECT_FLOAT_EQ(shot.m_curr_range, 75.0f) << "the last step may go beyond";
  EXPECT_TRUE(stage.shot->active);
  stage.Of<Transform>("shot").SetLocalPosition(Vector3D(1, 2, 3));
  shot.Update(0.5f);
  EXPECT_FALSE(stage.shot->active);
  EXPECT_FALSE(stage.Find("bullet_trail")->active);
  EXPECT_EQ(shot.m_curr_range, 0.0f);
  EXPECT_EQ(stage.Of<Transform>("shot").m_local_pos, Vector3D(0, 0, 0));
  EXPECT_EQ(stage.Of<Transform>("shot").m_prev_pos, Vector3D(0, 0, 0));
}

TYPED_TEST(EveryShot, AtExactlyItsRangeTheNextStepEndsIt) {
  ShotStage stage(this->Parts());
  this->FireRight(stage);
  this->Component(stage).m_curr_range = this->Component(stage).m_max_range;
  this->Component(stage).Update(1.0f / 60.0f);
  EXPECT_FALSE(stage.shot->active);
}

TYPED_TEST(EveryShot, AHitLeavesTheRangeUntilTheNextFire) {
  ShotStage stage(this->Parts());
  this->FireRight(stage);
  this->Component(stage).m_curr_range = 7.0f;
  stage.shot->SetActive(false);
  stage.world.Step();
  EXPECT_EQ(this->Component(stage).m_curr_range, 7.0f);
  this->FireRight(stage);
  EXPECT_EQ(this->Component(stage).m_curr_range, 0.0f);
}

TYPED_TEST(EveryShot, OnlyBasicAndPiercingShotsEndWithTheLevel) {
  ShotParts parts = this->Parts();
  parts.with_controller = true;
  ShotStage stage(parts);
  this->FireRight(stage);
  stage.Of<GameController>("level").m_state = TURN_LEVEL_END;
  this->Component(stage).Update(0.1f);
  const bool ends =
      std::is_same_v<TypeParam, ProjectileDefault> || std::is_same_v<TypeParam, ProjectilePierce>;
  EXPECT_EQ(stage.shot->active, !ends);
}

TYPED_TEST(EveryShot, WithoutABodyItCanBeFiredButNotStepped) {
  ShotStage stage(this->Parts());
  const std::string kind = this->nature.name;
  OutputOf([&] {
    stage.world.LoadObjects(Record("bare", {{"Transform", TransformAt(0, 0)}, {kind, "{}"}}));
  });
  stage.Bind("bare");
  auto& bare = stage.Of<TypeParam>("bare");
  EXPECT_NO_THROW(bare.Fire(Vector3D(9, 8, 1), Vector3D(1, 0, 0)));
  EXPECT_EQ(stage.Of<Transform>("bare").m_local_pos, Vector3D(9, 8, 1));
  EXPECT_THROW(bare.Update(0.1f), std::out_of_range);
}

TYPED_TEST(EveryShot, WithoutLightSoundAndChildrenItFliesAndHits) {
  ShotStage stage(this->Parts({ThingAt("wall", 0, 0, 40)}));
  const std::string kind = this->nature.name;
  OutputOf([&] {
    stage.world.LoadObjects(Record("bare", {{"Transform", TransformAt(0, 0)},
                                            {"RigidBody", kLively},
                                            {"ColliderHolder", carapace_test::HolderOf("Circle")},
                                            {kind, "{}"}}));
  });
  stage.Bind("bare");
  auto& bare = stage.Of<TypeParam>("bare");
  bare.Fire(Vector3D(-200, 0, 1), Vector3D(1, 0, 0));
  bare.Update(0.1f);
  EXPECT_FALSE(stage.Enter(bare, "bare", "wall").ignored);
  EXPECT_EQ(stage.Find("bare")->active, this->nature.rebounds);
}

// In a pause contacts are resolved while no shot is stepped.
TYPED_TEST(EveryShot, AContactBeforeItsFirstStepIsAContactLikeOthers) {
  ShotStage stage(this->Parts({ShotOf("fresh", this->nature.name), ThingAt("wall", 0, 0, 40)}));
  auto& fresh = stage.Of<TypeParam>("fresh");
  ASSERT_FALSE(fresh.m_init);
  EXPECT_FALSE(stage.Enter(fresh, "fresh", "wall").ignored);
  EXPECT_EQ(stage.Find("fresh")->active, this->nature.rebounds);
}

// What it meets

TYPED_TEST(EveryShot, FliesThroughEveryHazardThatLetsThingsPass) {
  for (const std::string& zone : NamesOfClasses(KindsOf<PassableHazard>())) {
    ShotStage stage(this->Parts({ThingAt("zone", 0, 0, 40, {{zone, "{}"}})}));
    this->FireRight(stage);
    ASSERT_TRUE(stage.StepUntil([&] { return this->RightEdge(stage) > 60.0f; })) << zone;
    EXPECT_TRUE(stage.shot->active) << zone;
    EXPECT_NEAR(this->Velocity(stage).x, 833.3f, 0.2f) << zone;
    EXPECT_EQ(this->Velocity(stage).y, 0.0f) << zone;
    EXPECT_NEAR(this->Component(stage).m_curr_range,
                stage.Of<Transform>("shot").m_world_pos.x + 200.0f - 14.0f, 14.0f)
        << "the range of the step before, in " << zone;
    EXPECT_EQ(stage.Of<Light>("shot").m_diffuseStr, 100.0f) << zone;
  }
}

TYPED_TEST(EveryShot, AContactWithAZoneOrWithWhatIsOffIsIgnored) {
  std::vector<std::string> others = NamesOfClasses(KindsOf<PassableHazard>());
  std::vector<std::string> things;
  for (const std::string& zone : others) things.push_back(ThingAt(zone, 0, 0, 40, {{zone, "{}"}}));
  things.push_back(SolidUnitAt(UnitKind::kEnemy, "unit", 0, 0));
  ShotStage stage(this->Parts(things));
  this->FireRight(stage);
  stage.Douse();
  stage.Find("unit")->SetActive(false);
  others.push_back("unit");
  for (const std::string& other : others) {
    EXPECT_TRUE(stage.Enter(this->Component(stage), "shot", other).ignored) << other;
    EXPECT_TRUE(stage.Enter(this->Component(stage), other, "shot").ignored) << other;
  }
  EXPECT_TRUE(stage.shot->active);
  EXPECT_FALSE(stage.Sparks());
  EXPECT_FALSE(stage.Bursts());
  EXPECT_EQ(stage.Of<Enemy>("unit").m_health, 5);
}

TYPED_TEST(EveryShot, ASleepingShotHitsNothing) {
  ShotStage stage(this->Parts({SolidUnitAt(UnitKind::kEnemy, "unit", 0, 0)}));
  EXPECT_TRUE(stage.Enter(this->Component(stage), "unit", "shot").ignored);
  EXPECT_EQ(stage.Of<Enemy>("unit").m_health, 5);
}

TYPED_TEST(EveryShot, ABlackHoleSwallowsIt) {
  ShotStage stage(this->Parts({ThingAt("hole", 0, 0, 40, {{"EnvironmentBlackhole", "{}"}})}));
  this->FireRight(stage);
  ASSERT_TRUE(stage.StepUntil([&] { return !stage.shot->active; }));
  EXPECT_LT(stage.Of<Transform>("shot").m_world_pos.x, 0.0f) << "at its rim";
}

TYPED_TEST(EveryShot, ABlackHoleIsHitBeforeItSwallows) {
  ShotStage stage(this->Parts({ThingAt("hole", 0, 0, 40, {{"EnvironmentBlackhole", "{}"}})}));
  for (const bool shot_first : {true, false}) {
    this->FireRight(stage);
    stage.Douse();
    const char* a = shot_first ? "shot" : "hole";
    const char* b = shot_first ? "hole" : "shot";
    EXPECT_FALSE(stage.Enter(this->Component(stage), a, b).ignored);
    EXPECT_TRUE(stage.Bursts());
  }
}

TYPED_TEST(EveryShot, AWallThrowsItBackOrEndsIt) {
  ShotStage stage(this->Parts({ThingAt("wall", 0, 0, 40)}));
  this->FireRight(stage);
  ASSERT_TRUE(stage.StepUntil([&] { return !stage.shot->active || this->Velocity(stage).x < 0; }));
  EXPECT_EQ(stage.shot->active, this->nature.rebounds);
  EXPECT_EQ(stage.Sparks(), (!std::is_same_v<TypeParam, ProjectilePierce>));
  EXPECT_TRUE(stage.Bursts());
  if (!this->nature.rebounds) return;
  stage.world.Step(5);
  EXPECT_NEAR(this->Velocity(stage).x, -833.3f, 0.2f);
  EXPECT_TRUE(stage.shot->active);
}

TYPED_TEST(EveryShot, AUnitTakesTheDamageOfADirectHit) {
  for (const UnitKind kind : {UnitKind::kPlayer, UnitKind::kEnemy}) {
    ShotStage stage(this->Parts({SolidUnitAt(kind, "unit", 0, 0)}));
    this->FireRight(stage);
    ASSERT_TRUE(stage.StepUntil([&] {
      return !stage.shot->active || stage.IsWhite("unit") || this->RightEdge(stage) > 60.0f;
    }));
    EXPECT_EQ(stage.shot->active, !this->nature.ends_at_unit) << UnitClass(kind);
    EXPECT_EQ(stage.Health("unit"), 5 - this->nature.damage) << UnitClass(kind);
    stage.world.Step(30);
    EXPECT_EQ(stage.Health("unit"), 5 - this->nature.damage) << "once, for a " << UnitClass(kind);
  }
}

TYPED_TEST(EveryShot, ADestructibleThingCracksAfterTheShotWasTold) {
  ShotStage stage(this->Parts({ThingAt("thing", 0, 0, 40, {{"EnvironmentDestructible", "{}"}})}));
  this->FireRight(stage);
  ASSERT_TRUE(stage.StepUntil([&] { return !stage.shot->active || this->Velocity(stage).x < 0; }));
  // A shot that ends at the thing is off by the time that the thing is told.
  EXPECT_EQ(stage.Of<EnvironmentDestructible>("thing").m_health, 3 - this->nature.crack);
}

TYPED_TEST(EveryShot, ADestructibleThingThatIsToldFirstCracks) {
  ShotStage stage(this->Parts({ThingAt("thing", 0, 0, 40, {{"EnvironmentDestructible", "{}"}})}));
  auto& thing = stage.Of<EnvironmentDestructible>("thing");
  thing.Update(0.0f);
  this->FireRight(stage);
  stage.Of<Transform>("shot").SetWorldPosition(Vector3D(-28, 0, 1));
  stage.Enter(thing, "thing", "shot");
  stage.Enter(this->Component(stage), "thing", "shot");
  EXPECT_EQ(thing.m_health, 3 - this->nature.crack_before);
}

TYPED_TEST(EveryShot, InAPauseADestructibleThingKeepsItsHealth) {
  ShotStage stage(this->Parts({ThingAt("thing", 0, 0, 40, {{"EnvironmentDestructible", "{}"}})}));
  this->FireRight(stage);
  ASSERT_TRUE(stage.StepUntil([&] { return !stage.shot->active || this->Velocity(stage).x < 0; }));
  g_engine->paused = true;
  stage.world.Step(10);
  EXPECT_EQ(stage.Of<EnvironmentDestructible>("thing").m_health, 3 - this->nature.crack);
}

/// The number of units in the flash of a hit.
int WhiteUnits(const ShotStage& stage, std::initializer_list<const char*> names) {
  int white = 0;
  for (const char* name : names) white += stage.IsWhite(name) ? 1 : 0;
  return white;
}

// Two things lie above and below the line of flight, so that the shot touches both in one step.

TYPED_TEST(EveryShot, OfTwoUnitsInOneStepItHitsTheFirstOrBoth) {
  ShotStage stage(this->Parts({SolidUnitAt(UnitKind::kEnemy, "upper", 0, 22),
                               SolidUnitAt(UnitKind::kPlayer, "lower", 0, -22)}));
  this->FireRight(stage);
  ASSERT_TRUE(stage.StepUntil([&] {
    return !stage.shot->active || WhiteUnits(stage, {"upper", "lower"}) > 0;
  }));
  EXPECT_EQ(WhiteUnits(stage, {"upper", "lower"}), this->nature.hits_of_two);
  stage.world.Step(20);
  EXPECT_EQ(stage.Health("upper") + stage.Health("lower"),
            10 - this->nature.hits_of_two * this->nature.damage);
}

TYPED_TEST(EveryShot, AUnitBesideAWallIsHitUnlessTheWallEndsTheShotFirst) {
  for (const bool unit_first : {true, false}) {
    const std::string unit = SolidUnitAt(UnitKind::kEnemy, "unit", 0, 22);
    const std::string wall = ThingAt("wall", 0, -22, 40);
    ShotStage stage(this->Parts({unit_first ? unit : wall, unit_first ? wall : unit}));
    this->FireRight(stage);
    ASSERT_TRUE(stage.StepUntil([&] {
      return !stage.shot->active || stage.IsWhite("unit") || this->Velocity(stage).x < 0;
    }));
    const bool in_time = unit_first || this->nature.rebounds || this->nature.hits_by_blast;
    EXPECT_EQ(stage.IsWhite("unit"), this->nature.hits_of_two > 0 && in_time) << unit_first;
    EXPECT_FALSE(stage.shot->active) << "the wall or the unit has ended it";
  }
}

TYPED_TEST(EveryShot, AUnitBesideAHoleIsHitUnlessTheHoleSwallowsTheShotFirst) {
  const std::string unit = SolidUnitAt(UnitKind::kEnemy, "unit", 0, 22);
  const std::string hole =
      ThingAt("hole", 0, -22, 40, {{"EnvironmentBlackhole", R"({"m_suction_range": 0})"}});
  for (const bool unit_first : {true, false}) {
    ShotStage stage(this->Parts({unit_first ? unit : hole, unit_first ? hole : unit}));
    this->FireRight(stage);
    ASSERT_TRUE(stage.StepUntil([&] { return !stage.shot->active; }));
    EXPECT_EQ(stage.IsWhite("unit"),
              this->nature.hits_of_two > 0 && (unit_first || this->nature.hits_by_blast))
        << unit_first;
    EXPECT_GT(stage.Health("unit"), 0) << "the hole has the shot, not the unit";
  }
}

TYPED_TEST(EveryShot, TwoWallsInOneStepThrowItBackOrTheFirstEndsIt) {
  ShotStage stage(this->Parts({ThingAt("upper", 0, 15, 40), ThingAt("lower", 0, -15, 40)}));
  this->FireRight(stage);
  ASSERT_TRUE(stage.StepUntil([&] { return !stage.shot->active || this->Velocity(stage).x < 0; }));
  EXPECT_EQ(stage.shot->active, this->nature.rebounds);
  if constexpr (requires { this->Component(stage).m_curr_damage; }) {
    EXPECT_EQ(this->Component(stage).m_curr_damage, 2) << "each wall arms it";
  }
  if (!this->nature.rebounds) return;
  stage.world.Step(5);
  EXPECT_NEAR(this->Velocity(stage).x, -833.3f, 0.2f) << "the second does not undo the first";
}

TYPED_TEST(EveryShot, ABossAtTheMuzzleIsSparedOrHit) {
  ShotParts parts = this->Parts();
  parts.shooter = UnitKind::kBoss;
  ShotStage stage(parts);
  TypeParam& shot = this->Component(stage);
  shot.Fire(Vector3D(-295, 0, 1), Vector3D(1, 0, 0));
  stage.world.Step(2);
  EXPECT_EQ(stage.shot->active, this->nature.spares_boss || !this->nature.ends_at_unit);
  EXPECT_EQ(stage.Of<Enemy>("shooter").m_health,
            5 - (this->nature.spares_boss ? 0 : this->nature.damage));
  stage.world.Step(20);
  EXPECT_EQ(stage.shot->active, this->nature.spares_boss || !this->nature.ends_at_unit);
  EXPECT_EQ(stage.Of<Enemy>("shooter").m_health,
            5 - (this->nature.spares_boss ? 0 : this->nature.damage));
}

TYPED_TEST(EveryShot, ACommonShooterAtTheMuzzleIsHit) {
  ShotParts parts = this->Parts();
  parts.shooter = UnitKind::kEnemy;
  ShotStage stage(parts);
  this->Component(stage).Fire(Vector3D(-295, 0, 1), Vector3D(1, 0, 0));
  stage.world.Step();
  EXPECT_EQ(stage.shot->active, !this->nature.ends_at_unit);
  EXPECT_EQ(stage.Of<Enemy>("shooter").m_health, 5 - this->nature.damage);
}

TYPED_TEST(EveryShot, TwoOfAKindPassOrTheFirstToBeToldHitsTheOther) {
  ShotStage stage(this->Parts(
      {SolidUnitAt(UnitKind::kEnemy, "other", 300, 0, {ShotOf("second", this->nature.name)})}));
  stage.Bind("second");
  this->FireRight(stage);
  auto& second = stage.Of<TypeParam>("second");
  second.Fire(Vector3D(200, 0, 1), Vector3D(-1, 0, 0));
  stage.world.Step(25);
  const bool passed = this->Velocity(stage).x > 800.0f && this->RightEdge(stage) > 50.0f;
  EXPECT_EQ(stage.shot->active && passed, this->nature.passes_own_kind);
  const bool bounces = std::is_same_v<TypeParam, ProjectileBounce>;
  EXPECT_EQ(stage.shot->active, this->nature.passes_own_kind || bounces);
  EXPECT_TRUE(stage.Find("second")->active) << "the first is off when the second is told";
}

TYPED_TEST(EveryShot, AShotOfEachKindInTheWayIsPassedHitOrSwapped) {
  const auto is_light = [](const std::string& kind) {
    return kind == "ProjectileDefault" || kind == "ProjectileExplosion";
  };
  for (const std::string& other : NamesOfClasses(Kinds())) {
    ShotStage stage(
        this->Parts({SolidUnitAt(UnitKind::kEnemy, "other", 300, 0, {ShotOf("second", other)})}));
    const bool passes = is_light(this->nature.name) && is_light(other);
    const bool swaps = std::is_same_v<TypeParam, ProjectileSwap>;
    for (const bool shot_first : {true, false}) {
      this->FireRight(stage);
      stage.Find("second")->SetActive(true);
      const char* a = shot_first ? "shot" : "second";
      const char* b = shot_first ? "second" : "shot";
      EXPECT_EQ(stage.Enter(this->Component(stage), a, b).ignored, passes || swaps) << other;
      EXPECT_TRUE(stage.Find("second")->active) << "what it does is its own business";
    }
  }
}

TYPED_TEST(EveryShot, OnlyAPiercingShotDiesWithItsShooter) {
  ShotStage stage(this->Parts());
  this->FireRight(stage);
  stage.world.Step(3);
  stage.Of<Player>("shooter").m_health = 0;
  stage.world.Step(3);
  EXPECT_EQ(stage.shot->active, (!std::is_same_v<TypeParam, ProjectilePierce>));
}

// Shots that pass through others

/// Sends the shot of a stage slowly along x, without the force of its launch.
template <class T>
void Drift(const ShotStage& stage, const std::string& name, const Vector3D& from, float speed) {
  stage.Of<T>(name).Fire(from, Vector3D());
  stage.Of<RigidBody>(name).m_forces.clear();
  stage.Of<RigidBody>(name).m_vel = Vector3D(speed, 0, 0);
}

/// Has a First and a Second drift through each other, which takes some 15 steps.
template <class First, class Second>
void ExpectToPassSlowly() {
  const std::string second = NatureOf<Second>().name;
  ShotStage stage(
      {.kind = NatureOf<First>().name,
       .more = {SolidUnitAt(UnitKind::kEnemy, "other", 300, 0, {ShotOf("second", second)})}});
  stage.Bind("second");
  Drift<First>(stage, "shot", Vector3D(-20, 0, 1), 60.0f);
  Drift<Second>(stage, "second", Vector3D(20, 4, 1), -60.0f);
  stage.world.Step(40);
  EXPECT_EQ(stage.Of<RigidBody>("shot").m_vel, Vector3D(60, 0, 0)) << second;
  EXPECT_EQ(stage.Of<RigidBody>("second").m_vel, Vector3D(-60, 0, 0)) << second;
  EXPECT_NEAR(stage.Of<Transform>("shot").m_world_pos.x, 20.0f, 0.01f) << second;
  EXPECT_NEAR(stage.Of<Transform>("shot").m_world_pos.y, 0.0f, 0.01f) << second;
  EXPECT_NEAR(stage.Of<Transform>("second").m_world_pos.y, 4.0f, 0.01f) << second;
}

TEST(PassingShots, KeepTheirLinesHoweverLongTheyTouch) {
  ExpectToPassSlowly<ProjectileDefault, ProjectileDefault>();
  ExpectToPassSlowly<ProjectileDefault, ProjectileExplosion>();
  ExpectToPassSlowly<ProjectileExplosion, ProjectileDefault>();
  ExpectToPassSlowly<ProjectileExplosion, ProjectileExplosion>();
}

template <class Shot>
void ExpectToLeaveBossSlowly() {
  ShotStage stage({.kind = NatureOf<Shot>().name, .shooter = UnitKind::kBoss});
  Drift<Shot>(stage, "shot", Vector3D(-290, 3, 1), 60.0f);
  stage.world.Step(40);
  EXPECT_EQ(stage.Of<RigidBody>("shooter").m_vel, Vector3D(0, 0, 0)) << NatureOf<Shot>().name;
  EXPECT_EQ(stage.Of<Transform>("shooter").m_local_pos, Vector3D(-300, 0, 1));
  EXPECT_EQ(stage.Of<RigidBody>("shot").m_vel, Vector3D(60, 0, 0));
  EXPECT_NEAR(stage.Of<Transform>("shot").m_world_pos.x, -250.0f, 0.01f);
}

TEST(PassingShots, ABossIsNotPushedByItsOwnShotHoweverSlow) {
  ExpectToLeaveBossSlowly<ProjectileDefault>();
  ExpectToLeaveBossSlowly<ProjectileExplosion>();
}

template <class Shot>
bool StaysIgnored(const ShotStage& stage, const std::string& other) {
  ContactInfo contact = stage.Between(other, "shot");
  stage.Of<Shot>("shot").OnCollisionStay(&contact);
  return contact.ignored;
}

TEST(PassingShots, ALastingContactWithAnythingElseIsFelt) {
  const std::vector<std::string> more = {ThingAt("wall", 0, 0, 40),
                                         SolidUnitAt(UnitKind::kEnemy, "unit", 0, 100)};
  const ShotStage stage({.kind = "ProjectileDefault", .more = more});
  Drift<ProjectileDefault>(stage, "shot", Vector3D(-200, 0, 1), 60.0f);
  for (const char* other : {"wall", "unit"}) {
    EXPECT_FALSE(StaysIgnored<ProjectileDefault>(stage, other)) << other;
  }
  EXPECT_EQ(stage.Health("unit"), 5) << "a lasting contact is no hit";
  stage.Find("wall")->SetActive(false);
  EXPECT_TRUE(StaysIgnored<ProjectileDefault>(stage, "wall"));
}

}  // namespace
}  // namespace ZOVEngine
