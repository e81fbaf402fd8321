#include "game/units/unit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

#include "core/base/random.h"
#include "game/componentkinds.h"
#include "game/shots/shot.h"
#include "game/turns/gamecontroller.h"
#include "game/units/enemy.h"
#include "game/units/player.h"
#include "objects/statec.h"
#include "physics/components/colliderholder.h"
#include "physics/components/transform.h"
#include "render/components/animation.h"
#include "render/components/font.h"
#include "render/components/particlesystemc.h"
#include "render/components/render.h"
#include "support/kinds.h"
#include "support/unitrecords.h"
#include "ui/elements/uielement.h"

namespace ZOVEngine {
namespace {

using carapace_test::AsksFor;
using carapace_test::Hush;
using carapace_test::KindsOf;
using carapace_test::NamesOfClasses;
using carapace_test::Record;
using carapace_test::ShotRecord;
using carapace_test::SpriteRecord;
using carapace_test::UnitClass;
using carapace_test::UnitKind;
using carapace_test::UnitParts;
using carapace_test::UnitRecord;
using carapace_test::UnitStage;
using ::testing::ElementsAre;

constexpr float kFlashWhite = 100000.0f;

template <class T>
constexpr UnitKind kKind = std::is_same_v<T, Player> ? UnitKind::kPlayer : UnitKind::kEnemy;

/// What both kinds of unit do alike.
template <class T>
class BothUnits : public ::testing::Test {
 protected:
  /// A unit before its first step, of a full set of parts unless told otherwise.
  void Make(const UnitParts& parts = {}, bool with_controller = true) {
    stage.emplace(std::vector{UnitRecord(kKind<T>, "unit", parts)}, with_controller);
  }
  /// A unit that has spawned.
  void MakeSpawned(const UnitParts& parts = {}, bool with_controller = true) {
    Make(parts, with_controller);
    Step(0.0f);
    if (Object()->template HasComponent<StateC>()) State() = "default";
    SeedForTwitch(false);
  }

  /// Seeds the generator so that its next number starts an idle twitch or does not.
  static void SeedForTwitch(bool twitch) {
    for (std::uint32_t seed = 1;; ++seed) {
      SeedRand(seed);
      const bool starts = (Rand() % 5000) % 362 == 0;
      SeedRand(seed);
      if (starts == twitch) return;
    }
  }

  GameObj* Object() { return stage->Find("unit"); }
  T& Unit() { return stage->template Of<T>("unit"); }
  std::string& State() { return stage->template Of<StateC>("unit").m_state; }
  Render& Body() { return stage->template Of<Render>("unit"); }
  Render& Picture(const std::string& child) {
    return stage->template ChildOf<Render>("unit", child);
  }
  Transform& PlaceOf(const std::string& child) {
    return stage->template ChildOf<Transform>("unit", child);
  }
  std::string& Text(const std::string& child) {
    return stage->template ChildOf<Font>("unit", child).m_text;
  }
  ParticleSystemC& Smoke() {
    return stage->template ChildOf<ParticleSystemC>("unit", "unit_damaged");
  }
  GameController& Controller() { return stage->template Of<GameController>("level"); }
  GameObj* Child(const std::string& name) { return FirstChildNamed(Object(), name); }
  void Step(float dt = 0.02f) { Unit().Update(dt); }
  void Fire() {
    if constexpr (std::is_same_v<T, Player>) {
      Unit().Fire(Vector3D(200, 50, 1));
    } else {
      Unit().m_target = Object();
      Unit().Fire();
    }
  }
  /// Gives the fire sprite this sheet of its own.
  Animation& FireSprite(const char* sheet) {
    auto& sprite = stage->template ChildOf<Animation>("unit", "unit_fire");
    sprite.m_once = sheet;
    return sprite;
  }
  void Die() {
    Unit().m_health = 0;
    Step();
  }

  std::optional<UnitStage> stage;
};

struct UnitNames {
  template <class T>
  static std::string GetName(int) {
    return UnitClass(kKind<T>);
  }
};

using Kinds = ::testing::Types<Player, Enemy>;
TYPED_TEST_SUITE(BothUnits, Kinds, UnitNames);

// The first step

TYPED_TEST(BothUnits, TheFirstStepSpawnsWithASound) {
  this->Make();
  this->Step(0.25f);
  EXPECT_TRUE(this->Unit().m_init);
  EXPECT_EQ(this->Unit().m_dt, 0.25f);
  EXPECT_EQ(this->State(), "spawn");
  EXPECT_TRUE(AsksFor(this->Object(), "unit_spawn.ogg"));
}

TYPED_TEST(BothUnits, OnlyTheFirstStepSpawns) {
  this->MakeSpawned();
  Hush(this->Object());
  this->Step();
  EXPECT_EQ(this->State(), "default");
  EXPECT_FALSE(AsksFor(this->Object(), "unit_spawn.ogg"));
}

TYPED_TEST(BothUnits, WithoutAStateItIsThereAtOnceAndSilent) {
  this->Make({.without = {"StateC"}});
  this->Step();
  EXPECT_FALSE(AsksFor(this->Object(), "unit_spawn.ogg"));
  EXPECT_EQ(this->Text("hp_font"), "8");
}

TYPED_TEST(BothUnits, WithoutASourceItSpawnsInSilence) {
  this->Make({.without = {"AudioSource"}});
  this->Step();
  EXPECT_EQ(this->State(), "spawn");
}

TYPED_TEST(BothUnits, TheFirstStepMeasuresTheBar) {
  this->Make();
  const Transform& bar = this->PlaceOf("ui_hp_frame_filled");
  const float width = bar.m_world_scale.x;
  ASSERT_NE(width, bar.m_local_scale.x);
  this->Step();
  EXPECT_EQ(this->Unit().m_hp_bar_width, width);
  EXPECT_EQ(this->Unit().m_hp_bar_scale, 2.0f);
  EXPECT_EQ(this->Unit().m_hp_bar_x, 10.0f);
  EXPECT_EQ(this->Unit().m_hp_bar_left, 10.0f - width * 0.5f);
}

TYPED_TEST(BothUnits, NoSmokeRunsAtTheStart) {
  this->Make();
  ASSERT_TRUE(this->Smoke().m_emitting);
  this->Step();
  EXPECT_FALSE(this->Smoke().m_emitting);
}

TYPED_TEST(BothUnits, ADeadUnitDoesNothing) {
  this->MakeSpawned();
  this->Unit().m_alive = false;
  this->Unit().m_status = "damaged";
  this->Picture("electricvfx").m_visible = false;
  this->Body().m_colour[0] = 5.0f;
  this->Unit().m_health = 0;
  this->Step();
  EXPECT_EQ(this->Body().m_colour[0], 5.0f);
  EXPECT_FALSE(this->Picture("electricvfx").m_visible);
  EXPECT_EQ(this->State(), "default");
}

TYPED_TEST(BothUnits, WithoutARenderTheFirstStepFails) {
  this->Make({.without = {"Render"}});
  EXPECT_THROW(this->Step(), std::out_of_range);
}

// The white flash

TYPED_TEST(BothUnits, AHitBurnsWhiteUntilTheTimerIsAboveTheFlashTime) {
  this->MakeSpawned();
  this->Unit().TakeHit(0);
  for (int i = 1; i <= 3; ++i) {
    this->Step(0.04f);
    EXPECT_EQ(this->Body().m_colour[0], kFlashWhite) << i;
    EXPECT_EQ(this->Picture("Weapon1Barrel").m_colour[2], kFlashWhite) << i;
    EXPECT_FLOAT_EQ(this->Unit().m_flash_timer, 0.04f * static_cast<float>(i));
  }
  this->Step(0.04f);
  EXPECT_EQ(this->Unit().m_flash_timer, 0.0f);
  for (const Render* render :
       {&this->Body(), &this->Picture("Weapon0Barrel"), &this->Picture("Weapon1Barrel")}) {
    EXPECT_THAT(render->m_colour, ElementsAre(1.0f, 1.0f, 1.0f, 1.0f));
  }
}

TYPED_TEST(BothUnits, TheFlashTimeItselfStillBurns) {
  this->MakeSpawned();
  this->Unit().TakeHit(0);
  this->Unit().m_flash_timer = 0.09f;
  this->Step(0.01f);
  EXPECT_EQ(this->Body().m_colour[0], kFlashWhite);
  this->Step(0.01f);
  EXPECT_EQ(this->Body().m_colour[0], 1.0f);
}

TYPED_TEST(BothUnits, WithoutAFlashBodyAndBarrelsKeepTheirOwnLookAndTheirAlpha) {
  this->MakeSpawned();
  this->Body().m_colour = {0.5f, 7.0f, 3.0f, 0.25f};
  this->Picture("Weapon0Barrel").m_colour = {kFlashWhite, kFlashWhite, kFlashWhite, 0.75f};
  this->Unit().m_flash_timer = 0.05f;
  this->Step();
  EXPECT_THAT(this->Body().m_colour, ElementsAre(1.0f, 1.0f, 1.0f, 0.25f));
  EXPECT_THAT(this->Picture("Weapon0Barrel").m_colour, ElementsAre(1.0f, 1.0f, 1.0f, 0.75f));
  EXPECT_EQ(this->Unit().m_flash_timer, 0.0f);
}

TYPED_TEST(BothUnits, OnlyBodyAndBarrelsArePainted) {
  this->MakeSpawned();
  this->Picture("ui_hp_frame").m_colour = {0.5f, 0.5f, 0.5f, 0.5f};
  this->Step();
  EXPECT_THAT(this->Picture("ui_hp_frame").m_colour, ElementsAre(0.5f, 0.5f, 0.5f, 0.5f));
}

// Status

TYPED_TEST(BothUnits, SparksShowWhileItIsDamaged) {
  this->MakeSpawned();
  for (const char* status : {"damaged", "slowed", "damaged", "default"}) {
    this->Unit().m_status = status;
    this->Step();
    EXPECT_EQ(this->Picture("electricvfx").m_visible, std::string(status) == "damaged") << status;
  }
}

TYPED_TEST(BothUnits, OnlyTheFirstSparksShow) {
  this->MakeSpawned({.more = {SpriteRecord("electricvfx")}});
  this->Step();
  EXPECT_FALSE(this->Picture("electricvfx").m_visible);
  const GameObj* last = this->Object()->children.back();
  ASSERT_EQ(last->name, "electricvfx");
  EXPECT_TRUE(this->Object()->children.back()->template GetComponent<Render>()->m_visible);
}

// The muzzle flash

/// The flashes of all kinds of shot, in the order of their classes.
std::vector<std::string> AllFlashes() {
  std::vector<std::string> flashes;
  for (const std::string& kind : NamesOfClasses(KindsOf<Shot>())) {
    UnitStage stage({UnitRecord(UnitKind::kPlayer, "unit", {.weapons = {kind, ""}})});
    flashes.emplace_back(stage.Of<Player>("unit").HeldFlash());
  }
  return flashes;
}

TEST(MuzzleFlash, EveryWeaponHasOneOfItsOwn) {
  const std::vector<std::string> flashes = AllFlashes();
  EXPECT_EQ(std::set(flashes.begin(), flashes.end()).size(), flashes.size());
}

TYPED_TEST(BothUnits, TheFireIsThatOfTheWeaponInHandWithBothInTurn) {
  const std::vector<std::string> kinds = NamesOfClasses(KindsOf<Shot>());
  const std::vector<std::string> flashes = AllFlashes();
  for (std::size_t i = 0; i < kinds.size(); ++i) {
    const std::size_t other = (i + 1) % kinds.size();
    this->stage.reset();
    this->Make({.weapons = {kinds[i], kinds[other]}});
    const Animation& fire = this->FireSprite("Sheet_Unit_Fire_Green");
    for (const bool first : {true, false, true}) {
      this->Unit().m_selected_first_weapon = first;
      this->Fire();
      EXPECT_EQ(fire.m_once_instead, flashes[first ? i : other]) << kinds[i];
    }
  }
}

TYPED_TEST(BothUnits, AFireSpriteWithASheetOfTheLevelsAuthorKeepsIt) {
  this->Make();
  const Animation& fire = this->FireSprite("Sheet_Own_Fire");
  this->Fire();
  EXPECT_EQ(fire.m_once_instead, nullptr);
}

TYPED_TEST(BothUnits, WithoutAShotTheFireIsTheCommonOne) {
  this->Make({.weapons = {"ProjectileSwap", ""}});
  const Animation& fire = this->FireSprite("Sheet_Unit_Fire_Green");
  this->Fire();
  EXPECT_STRNE(fire.m_once_instead, nullptr);
  this->Unit().m_selected_first_weapon = false;
  this->Fire();
  EXPECT_EQ(fire.m_once_instead, nullptr);
}

// The weapon label

TYPED_TEST(BothUnits, TheLabelNamesTheWeaponInHand) {
  struct Case {
    const char* shot;
    const char* texture;
    float width;
  };
  for (const Case& c : {Case{"ProjectileDefault", "WeaponFloat_Basic", 2.32f},
                        Case{"ProjectileExplosion", "WeaponFloat_Explosion", 3.813f}}) {
    for (const bool first : {true, false}) {
      this->stage.reset();
      UnitParts parts;
      parts.weapons[first ? 0 : 1] = c.shot;
      parts.weapons[first ? 1 : 0] = "";
      this->Make(parts);
      this->Unit().m_selected_first_weapon = first;
      this->Unit().ShowWeaponLabel();
      EXPECT_EQ(this->Unit().m_weapon_label_tex, c.texture);
      EXPECT_THAT(this->Unit().m_weapon_label_size, ElementsAre(c.width, 1.104f));
      EXPECT_EQ(this->Picture("WeaponText").m_tex, c.texture);
      EXPECT_EQ(this->PlaceOf("WeaponText").m_local_scale, Vector3D(c.width, 1.104f, 1.0f));
    }
  }
}

/// The component of this class, or null.
const Shot* FindShot(GameObj* weapon, const std::string& name) {
  const Shot* found = nullptr;
  ForEachKind<Shot>(weapon, [&](const Shot* shot) {
    if (g_game_obj_factory->TypeName(&typeid(*shot)) == name) found = shot;
  });
  return found;
}

/// Of several shots in one weapon the last by class name names it, in whatever order it has them.
TYPED_TEST(BothUnits, OfSeveralShotsInOneWeaponTheLastByNameNamesIt) {
  std::vector<std::string> names = NamesOfClasses(KindsOf<Shot>());
  std::sort(names.begin(), names.end());
  for (std::size_t i = 1; i < names.size(); ++i) {
    for (const bool last_first : {true, false}) {
      this->stage.reset();
      this->Make({.without = {"Weapon0Projectile"},
                  .more = {Record("Weapon0Projectile", {{names[last_first ? i : i - 1], "{}"},
                                                        {names[last_first ? i - 1 : i], "{}"}})}});
      this->Unit().ShowWeaponLabel();
      const Shot* last = FindShot(this->Child("Weapon0Projectile"), names[i]);
      ASSERT_NE(last, nullptr);
      EXPECT_EQ(this->Unit().m_weapon_label_tex, last->Look().label) << names[i];
    }
  }
}

TYPED_TEST(BothUnits, WithoutAWeaponTheLabelKeepsItsText) {
  this->MakeSpawned({.without = {"Weapon0Projectile"}});
  this->Unit().ShowWeaponLabel();
  EXPECT_TRUE(this->Unit().m_show_weapon_label);
  EXPECT_EQ(this->Picture("WeaponText").m_tex, "BASIC");
  EXPECT_EQ(this->PlaceOf("WeaponText").m_local_scale, Vector3D(0.0f, 0.0f, 1.0f));
}

TYPED_TEST(BothUnits, TheLabelStartsBesideTheUnit) {
  this->MakeSpawned({.more = {SpriteRecord("WeaponText", 5, 5)}});
  this->Child("WeaponText")->SetActive(false);
  this->Picture("WeaponText").m_colour[3] = 0.0f;
  this->Unit().m_label_timer = 2.0f;
  this->Unit().ShowWeaponLabel();
  EXPECT_TRUE(this->Child("WeaponText")->active);
  EXPECT_EQ(this->Picture("WeaponText").m_colour[3], 1.0f);
  EXPECT_EQ(this->PlaceOf("WeaponText").m_local_pos, Vector3D(120.0f, 0.0f, 0.0f));
  EXPECT_EQ(this->Unit().m_label_timer, 0.0f);
  auto* second = this->Object()->children.back()->template GetComponent<Transform>();
  EXPECT_EQ(second->m_local_pos, Vector3D(120.0f, 0.0f, 0.0f)) << "each label";
}

TYPED_TEST(BothUnits, TheLabelRisesOneUnitAStepAndFadesByHalfASecond) {
  this->MakeSpawned();
  this->Unit().ShowWeaponLabel();
  this->Step(0.5f);
  EXPECT_EQ(this->Picture("WeaponText").m_colour[3], 0.75f);
  EXPECT_EQ(this->PlaceOf("WeaponText").m_local_pos.y, 1.0f);
  for (int i = 0; i < 3; ++i) this->Step(0.5f);
  EXPECT_EQ(this->Picture("WeaponText").m_colour[3], 0.0f);
  EXPECT_TRUE(this->Child("WeaponText")->active);
  this->Step(0.5f);
  EXPECT_FALSE(this->Child("WeaponText")->active) << "gone dark";
  EXPECT_EQ(this->PlaceOf("WeaponText").m_local_pos.y, 5.0f) << "and rising still";
  EXPECT_TRUE(this->Unit().m_show_weapon_label);
}

TYPED_TEST(BothUnits, TheLabelEndsAfterThreeSeconds) {
  this->MakeSpawned();
  this->Unit().ShowWeaponLabel();
  this->Step(2.5f);
  this->Picture("WeaponText").m_colour[3] = 0.5f;
  const float height = this->PlaceOf("WeaponText").m_local_pos.y;
  this->Step(0.5f);
  EXPECT_FALSE(this->Unit().m_show_weapon_label);
  EXPECT_EQ(this->Unit().m_label_timer, 0.0f);
  EXPECT_EQ(this->Picture("WeaponText").m_colour[3], 0.0f);
  EXPECT_FALSE(this->Child("WeaponText")->active);
  EXPECT_EQ(this->PlaceOf("WeaponText").m_local_pos.y, height);
}

TYPED_TEST(BothUnits, ASecondCallRestartsTheLabel) {
  this->MakeSpawned();
  this->Unit().ShowWeaponLabel();
  for (int i = 0; i < 3; ++i) this->Step(0.5f);
  this->Unit().ShowWeaponLabel();
  EXPECT_EQ(this->Unit().m_label_timer, 0.0f);
  EXPECT_EQ(this->PlaceOf("WeaponText").m_local_pos, Vector3D(120.0f, 0.0f, 0.0f));
  EXPECT_EQ(this->Picture("WeaponText").m_colour[3], 1.0f);
}

TYPED_TEST(BothUnits, WithoutACallTheLabelRests) {
  this->MakeSpawned();
  this->PlaceOf("WeaponText").m_local_pos = Vector3D(1.0f, 2.0f, 1.0f);
  this->Step();
  EXPECT_EQ(this->PlaceOf("WeaponText").m_local_pos.y, 2.0f);
  EXPECT_EQ(this->Unit().m_label_timer, 0.0f);
}

// What covers the level hides the texts

TYPED_TEST(BothUnits, TextsAreHiddenBehindAScreenAndAtTheLevelsEnd) {
  this->MakeSpawned();
  const auto alphas = [this] {
    return std::array{this->stage->template ChildOf<Font>("unit", "hp_font").m_colour[3],
                      this->stage->template ChildOf<Font>("unit", "turn_font").m_colour[3]};
  };
  this->Step();
  EXPECT_THAT(alphas(), ElementsAre(1.0f, 1.0f));
  this->Controller().m_ui_state = "ui_pause";
  this->Step();
  EXPECT_THAT(alphas(), ElementsAre(0.0f, 0.0f));
  this->Controller().m_ui_state = "ui_default";
  this->stage->template ChildOf<Font>("unit", "hp_font").m_colour[3] = 1.0f;
  this->Controller().m_state = TURN_LEVEL_END;
  this->Step();
  EXPECT_THAT(alphas(), ElementsAre(0.0f, 0.0f));
}

TYPED_TEST(BothUnits, WithoutAControllerTheTextsStayAndTheStepGoesOn) {
  this->MakeSpawned({}, false);
  this->Step();
  EXPECT_EQ((this->stage->template ChildOf<Font>("unit", "hp_font").m_colour[3]), 1.0f);
  EXPECT_EQ(this->Text("hp_font"), "8");
}

// Steps that end early

TYPED_TEST(BothUnits, ASpawningUnitHidesItsBarrelsAndDoesNoMore) {
  this->MakeSpawned({.fields = R"({"m_health": 0, "m_max_health": 10})"});
  this->State() = "spawn";
  this->Body().m_colour[0] = 5.0f;
  this->Step();
  EXPECT_FALSE(this->Picture("Weapon0Barrel").m_visible);
  EXPECT_FALSE(this->Picture("Weapon1Barrel").m_visible);
  EXPECT_TRUE(this->Unit().m_alive);
  EXPECT_EQ(this->Text("hp_font"), "text");
  EXPECT_EQ(this->Body().m_colour[0], 1.0f) << "the flash comes before";
}

TYPED_TEST(BothUnits, AUnitThatIsTheSelectionRingDoesNoMore) {
  this->MakeSpawned(
      {.components = {{"UIElement", R"({"m_ui_element_name": "ui_selection_circle"})"}}});
  this->Body().m_colour[0] = 5.0f;
  this->Picture("Weapon0Barrel").m_visible = this->Picture("Weapon1Barrel").m_visible = true;
  this->Step();
  EXPECT_TRUE(this->Picture("Weapon0Barrel").m_visible);
  EXPECT_TRUE(this->Picture("Weapon1Barrel").m_visible);
  EXPECT_EQ(this->Text("hp_font"), "text");
  EXPECT_EQ(this->Body().m_colour[0], 1.0f) << "the flash comes before";
}

TYPED_TEST(BothUnits, AUnitThatIsAnotherElementGoesOn) {
  this->MakeSpawned({.components = {{"UIElement", R"({"m_ui_element_name": "ui_other"})"}}});
  this->Step();
  EXPECT_EQ(this->Text("hp_font"), "8");
}

// Alive

TYPED_TEST(BothUnits, TheBarrelInHandShows) {
  this->MakeSpawned();
  for (const bool first : {true, false, true}) {
    this->Unit().m_selected_first_weapon = first;
    this->Step();
    EXPECT_EQ(this->Picture("Weapon0Barrel").m_visible, first);
    EXPECT_EQ(this->Picture("Weapon1Barrel").m_visible, !first);
  }
}

TYPED_TEST(BothUnits, AnIdleUnitTwitchesNowAndThen) {
  this->MakeSpawned();
  this->Step();
  EXPECT_EQ(this->State(), "default");
  this->Body().m_visible = false;
  this->SeedForTwitch(true);
  this->Step();
  EXPECT_EQ(this->State(), "once");
  EXPECT_TRUE(this->Body().m_visible);
}

TYPED_TEST(BothUnits, AUnitInAnotherStateDoesNotTwitchButDrawsItsNumber) {
  this->MakeSpawned();
  this->State() = "move";
  this->SeedForTwitch(true);
  Rand();
  const int second = Rand();
  this->SeedForTwitch(true);
  this->Step();
  EXPECT_EQ(this->State(), "move");
  EXPECT_EQ(Rand(), second) << "one number a step";
}

TYPED_TEST(BothUnits, AHurtUnitSmokes) {
  this->MakeSpawned();
  this->Smoke().m_active = false;
  this->Step();
  EXPECT_TRUE(this->Smoke().m_emitting);
  EXPECT_TRUE(this->Smoke().m_active);
}

TYPED_TEST(BothUnits, AWholeUnitDoesNotSmoke) {
  this->MakeSpawned({.fields = R"({"m_health": 10, "m_max_health": 10})"});
  this->Step();
  EXPECT_FALSE(this->Smoke().m_emitting);
}

TYPED_TEST(BothUnits, MoreHealthThanTheMaximumDoesNotSmoke) {
  this->MakeSpawned({.fields = R"({"m_health": 20, "m_max_health": 10})"});
  this->Step();
  EXPECT_FALSE(this->Smoke().m_emitting);
}

TYPED_TEST(BothUnits, AUnitWithoutAStateDoesNotSmoke) {
  this->MakeSpawned({.without = {"StateC"}});
  this->Step();
  EXPECT_FALSE(this->Smoke().m_emitting);
}

TYPED_TEST(BothUnits, EveryParticleSystemAmongTheChildrenSmokes) {
  this->MakeSpawned({.more = {Record("other", {{"ParticleSystemC", "{}"}})}});
  auto& other = this->stage->template ChildOf<ParticleSystemC>("unit", "other");
  other.m_emitting = false;
  this->Step();
  EXPECT_TRUE(other.m_emitting);
}

TYPED_TEST(BothUnits, TheHealthIsWrittenOnIt) {
  this->MakeSpawned();
  this->Unit().m_health = 7;
  this->Step();
  EXPECT_EQ(this->Text("hp_font"), "7");
  EXPECT_EQ(this->Text("turn_font"), "text") << "another's business";
}

TYPED_TEST(BothUnits, TheBarShrinksToItsLeftEdge) {
  this->MakeSpawned();
  this->Unit().m_health = 5;
  this->Step();
  const Transform& bar = this->PlaceOf("ui_hp_frame_filled");
  const float full = this->Unit().m_hp_bar_width;
  EXPECT_EQ(bar.m_world_scale.x, full * 0.5f);
  EXPECT_EQ(bar.m_local_scale.x, 1.0f);
  EXPECT_EQ(bar.m_local_pos.x - bar.m_world_scale.x * 0.5f, this->Unit().m_hp_bar_left);
}

TYPED_TEST(BothUnits, HealthAboveTheMaximumMakesTheBarWiderThanItsFrame) {
  this->MakeSpawned();
  this->Unit().m_health = 20;
  this->Step();
  EXPECT_EQ(this->PlaceOf("ui_hp_frame_filled").m_local_scale.x, 4.0f);
  EXPECT_EQ(this->PlaceOf("ui_hp_frame_filled").m_world_scale.x,
            2.0f * this->Unit().m_hp_bar_width);
}

TYPED_TEST(BothUnits, TheBarIsNeverNegative) {
  this->MakeSpawned();
  this->Unit().m_max_health = -5;
  this->Step();
  EXPECT_EQ(this->PlaceOf("ui_hp_frame_filled").m_local_scale.x, 0.0f);
}

TYPED_TEST(BothUnits, AMaximumOfZeroSpoilsTheBarAndNothingElse) {
  this->MakeSpawned();
  this->Unit().m_max_health = 0;
  this->Step();
  EXPECT_TRUE(std::isinf(this->PlaceOf("ui_hp_frame_filled").m_local_scale.x));
  EXPECT_TRUE(this->Unit().m_alive);
}

// Death

TYPED_TEST(BothUnits, ItDiesInTheStepThatFindsItWithoutHealth) {
  for (const int health : {0, -3}) {
    this->stage.reset();
    this->MakeSpawned({.fields = R"({"m_health": )" + std::to_string(health) + "}"});
    EXPECT_TRUE(this->Unit().m_alive);
    this->Step();
    EXPECT_FALSE(this->Unit().m_alive);
    EXPECT_EQ(this->State(), "death");
    EXPECT_TRUE(AsksFor(this->Object(), "unit_death.ogg"));
    EXPECT_FALSE(this->stage->template Of<ColliderHolder>("unit").m_active);
  }
}

TYPED_TEST(BothUnits, TheDeathSheetIsThreeTimesAsWide) {
  this->MakeSpawned();
  this->Die();
  EXPECT_EQ(this->stage->template Of<Transform>("unit").m_local_scale,
            Vector3D(72.0f, 108.0f, 3.0f));
  this->Step();
  EXPECT_EQ(this->stage->template Of<Transform>("unit").m_local_scale,
            Vector3D(72.0f, 108.0f, 3.0f))
      << "once";
}

TYPED_TEST(BothUnits, HitsSparksAndLabelKeepTheirSizeInDeath) {
  this->MakeSpawned();
  this->Die();
  const Vector3D kept = Vector3D(1.0f, 1.0f, 1.0f) * 0.33f;
  EXPECT_EQ(this->PlaceOf("electricvfx").m_local_scale, kept);
  EXPECT_EQ(this->PlaceOf("WeaponText").m_local_scale, kept);
  for (const char* shot : {"Weapon0Projectile", "Weapon1Projectile"}) {
    GameObj* hit = FirstChildNamed(this->Child(shot), "bullet_hit");
    EXPECT_EQ(hit->GetComponent<Transform>()->m_local_scale, kept) << shot;
  }
  EXPECT_EQ(this->PlaceOf("unit_fire").m_local_scale, Vector3D(1.0f, 1.0f, 1.0f));
}

TYPED_TEST(BothUnits, ADyingUnitLosesItsMarks) {
  this->MakeSpawned();
  this->Step();
  this->Picture("Weapon0Barrel").m_colour[0] = kFlashWhite;
  this->Die();
  for (const char* name : {"Weapon0Barrel", "Weapon1Barrel", "ui_selected"}) {
    EXPECT_FALSE(this->Picture(name).m_visible) << name;
  }
  EXPECT_EQ(this->Text("hp_font"), "");
  EXPECT_EQ(this->Text("turn_font"), "");
  EXPECT_EQ(this->PlaceOf("ui_hp_frame_filled").m_local_scale.x, 0.0f);
  const Vector3D third = Vector3D(3.0f, 1.0f, 1.0f) / 3.0f;
  EXPECT_EQ(this->PlaceOf("ui_hp_frame").m_local_scale, third);
  EXPECT_EQ(this->PlaceOf("ui_hp_frame_empty").m_local_scale, third);
}

TYPED_TEST(BothUnits, AUnitThatDiesBurningTakesItsOwnLook) {
  this->MakeSpawned();
  this->Unit().TakeHit(0);
  this->Die();
  EXPECT_EQ(this->Body().m_colour[0], 1.0f);
  EXPECT_EQ(this->Picture("Weapon0Barrel").m_colour[1], 1.0f);
}

TYPED_TEST(BothUnits, DeathPrintsAndHurtsNothingWithoutItsParts) {
  for (const char* part : {"StateC", "ColliderHolder", "AudioSource"}) {
    this->stage.reset();
    this->MakeSpawned({.without = {part}});
    this->Die();
    EXPECT_FALSE(this->Unit().m_alive) << part;
  }
}

// Units without a named child

TYPED_TEST(BothUnits, AnAbsentChildOnlyMissesItsOwnStep) {
  for (const char* child :
       {"Weapon0Barrel", "Weapon1Barrel", "Weapon0Projectile", "Weapon1Projectile", "electricvfx",
        "WeaponText", "unit_fire", "pierce_fire", "ui_selected", "ui_hp_frame",
        "ui_hp_frame_filled", "ui_hp_frame_empty", "hp_font", "turn_font", "unit_damaged"}) {
    this->stage.reset();
    this->MakeSpawned({.without = {child}});
    ASSERT_EQ(this->Child(child), nullptr);
    this->Unit().ShowWeaponLabel();
    for (int i = 0; i < 8; ++i) this->Step(0.5f);
    EXPECT_FALSE(this->Unit().m_show_weapon_label) << child;
    const char* font = std::string(child) == "hp_font" ? "turn_font" : "hp_font";
    EXPECT_EQ(this->Text(font), std::string(font) == "hp_font" ? "8" : "text") << child;
    this->Die();
    EXPECT_FALSE(this->Unit().m_alive) << child;
    EXPECT_EQ(this->Text(font), "") << child;
  }
}

TYPED_TEST(BothUnits, ChildrenWithoutTheirComponentsAreNoFault) {
  UnitParts parts;
  for (const char* child :
       {"Weapon0Barrel", "Weapon1Barrel", "Weapon0Projectile", "Weapon1Projectile", "electricvfx",
        "WeaponText", "unit_fire", "pierce_fire", "ui_selected", "ui_hp_frame",
        "ui_hp_frame_filled", "ui_hp_frame_empty", "hp_font", "turn_font", "unit_damaged"}) {
    parts.without.push_back(child);
    parts.more.push_back(Record(child, {}));
  }
  this->MakeSpawned(parts);
  this->Unit().ShowWeaponLabel();
  for (int i = 0; i < 8; ++i) this->Step(0.5f);
  EXPECT_FALSE(this->Unit().m_show_weapon_label);
  EXPECT_TRUE(this->Unit().m_alive);
  this->Die();
  EXPECT_FALSE(this->Unit().m_alive);
}

TYPED_TEST(BothUnits, AUnitWithoutChildrenLivesAndDies) {
  this->stage.emplace(
      std::vector{Record("unit", {{"Transform", "{}"},
                                  {"Render", "{}"},
                                  {UnitClass(kKind<TypeParam>), R"({"m_health": 1})"}})});
  for (int i = 0; i < 3; ++i) this->Step();
  EXPECT_TRUE(this->Unit().m_alive);
  this->Die();
  EXPECT_FALSE(this->Unit().m_alive);
}

TYPED_TEST(BothUnits, TheEndOfItsDeathSheetSwitchesItOffWithItsChildrenAndRewinds) {
  this->MakeSpawned({}, false);
  auto& sheet = this->stage->template Of<Animation>("unit");
  sheet.m_death_frames = 3;
  this->stage->world.Step();
  this->Child("Weapon0Projectile")->SetActive(true);
  this->Die();
  this->stage->world.Step(5);
  ASSERT_GT(sheet.m_currStep, 0.0f) << "it plays";
  EXPECT_TRUE(this->Child("Weapon0Projectile")->active) << "a shot in flight flies on";
  this->stage->world.Step(10);
  EXPECT_FALSE(this->Object()->active);
  for (const GameObj* child : this->Object()->children) {
    EXPECT_FALSE(child->active) << child->name;
  }
  EXPECT_FALSE(this->Body().m_visible);
  EXPECT_EQ(this->State(), "default");
  EXPECT_EQ(sheet.m_currStep, 0.0f);
  EXPECT_EQ(sheet.m_timer, 0.0f);
}

// What others read and write

TEST(UnitQueries, AUnitIsFoundByEitherKind) {
  UnitStage stage({UnitRecord(UnitKind::kPlayer, "p"), UnitRecord(UnitKind::kEnemy, "e"),
                   Record("neither", {})});
  EXPECT_EQ(FindUnit(stage.Find("p")), &stage.Of<Player>("p"));
  EXPECT_EQ(FindUnit(stage.Find("e")), &stage.Of<Enemy>("e"));
  EXPECT_EQ(FindUnit(stage.Find("neither")), nullptr);
  EXPECT_TRUE(IsUnit(*stage.Find("p")));
  EXPECT_TRUE(IsUnit(*stage.Find("e")));
  EXPECT_FALSE(IsUnit(*stage.Find("neither")));
}

TYPED_TEST(BothUnits, AHitTakesHealthAndBurnsWhiteALossOnlyTakesHealth) {
  this->MakeSpawned();
  this->Step();
  this->Unit().LoseHealth(3);
  EXPECT_EQ(this->Unit().m_health, 5);
  EXPECT_EQ(this->Body().m_colour[0], 1.0f);
  this->Unit().TakeHit(7);
  EXPECT_EQ(this->Unit().m_health, -2) << "below zero";
  EXPECT_EQ(this->Body().m_colour[0], kFlashWhite);
  EXPECT_EQ(this->Picture("Weapon0Barrel").m_colour[1], kFlashWhite);
  EXPECT_EQ(this->Picture("Weapon1Barrel").m_colour[2], kFlashWhite);
}

TEST(UnitQueries, DamageStopsAtTheEndsOfWhatHealthCanBe) {
  constexpr int kLeast = std::numeric_limits<int>::min();
  constexpr int kMost = std::numeric_limits<int>::max();
  EXPECT_EQ(AfterDamage(5, 3), 2);
  EXPECT_EQ(AfterDamage(1, 3), -2) << "below zero like above";
  EXPECT_EQ(AfterDamage(5, -3), 8);
  EXPECT_EQ(AfterDamage(kLeast, 1), kLeast);
  EXPECT_EQ(AfterDamage(kLeast + 1, 1), kLeast);
  EXPECT_EQ(AfterDamage(-2, kMost), kLeast);
  EXPECT_EQ(AfterDamage(kMost, -1), kMost);
  EXPECT_EQ(AfterDamage(0, kLeast), kMost);
}

TEST(UnitQueries, TheControllerIsAskedForUpTheParents) {
  UnitStage stage({UnitRecord(UnitKind::kPlayer, "unit")});
  EXPECT_EQ(FindController(stage.Find("Weapon0Barrel")), &stage.Of<GameController>("level"));
  EXPECT_EQ(FindController(stage.Find("first")), nullptr);
}

}  // namespace
}  // namespace ZOVEngine
