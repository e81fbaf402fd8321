#include "ui/elements/hud.h"

#include <gtest/gtest.h>

#include "game/componentkinds.h"
#include "game/shots/projectileexplosion.h"
#include "game/shots/projectilevacuum.h"
#include "platform/inputsystem.h"
#include "render/components/font.h"
#include "ui/elements/uielement.h"
#include "ui/interfaceworlds.h"

namespace ZOVEngine {
namespace {

using carapace_test::ElementRecord;
using carapace_test::ExpectNear;
using carapace_test::LevelScreen;
using carapace_test::Record;
using carapace_test::ShotRecord;
using carapace_test::Stage;
using carapace_test::UnitAt;
using carapace_test::UnitKind;

constexpr const char* kText = R"({"m_text": "text", "m_colour": [1, 1, 1, 0.5]})";

std::string TextRecord(const std::string& element) {
  return ElementRecord("piece", element, {{"Font", kText}});
}

/// A level's interface that is live, covered by a screen, and over, in this order.
struct Moment {
  const char* ui_state;
  std::uint32_t state;
  bool live;
};
constexpr Moment kMoments[] = {{"ui_default", TURN_PLAYER_MOVE, true},
                               {"ui_pause", TURN_PLAYER_MOVE, false},
                               {"ui_default", TURN_LEVEL_END, false}};

/// Runs one update of the piece in each of the moments and hands it to `check`.
template <class Check>
void InEachMoment(const LevelScreen& level, Check check) {
  for (const Moment& moment : kMoments) {
    level.Show(moment.ui_state);
    level.Controller().m_state = moment.state;
    level.Update<UIElement>("piece");
    check(moment.live);
  }
}

TEST(Hud, ATextIsSeenWhileTheLevelIsLive) {
  const LevelScreen level({TextRecord("ui_font")});
  InEachMoment(level, [&](bool live) {
    EXPECT_EQ(level.Of<Font>("piece").m_colour[3], live ? 1.0f : 0.0f);
    EXPECT_EQ(level.Of<Font>("piece").m_text, "text");
  });
}

TEST(Hud, TheRoundIsCountedFromOne) {
  const LevelScreen level({TextRecord("ui_turn")});
  level.Controller().m_round = 41;
  InEachMoment(level, [&](bool live) {
    EXPECT_EQ(level.Of<Font>("piece").m_colour[3], live ? 1.0f : 0.0f);
    EXPECT_EQ(level.Of<Font>("piece").m_text, "42");
  });
}

TEST(Hud, WithoutAControllerATextStaysAsItIs) {
  for (const char* element : {"ui_font", "ui_turn"}) {
    Stage stage;
    stage.world.LoadObjects(TextRecord(element));
    stage.Of<UIElement>("piece").Update(kStep);
    EXPECT_EQ(stage.Of<Font>("piece").m_colour[3], 0.5f) << element;
    EXPECT_EQ(stage.Of<Font>("piece").m_text, "text") << element;
  }
}

// The energy bar

/// A bar 200 wide with its left end at -400.
LevelScreen EnergyBar() {
  return LevelScreen({ElementRecord("piece", "ui_energy", {}, {-300, 0, 200, 20})});
}

TEST(EnergyBar, ItShrinksWithTheEnergyAndItsLeftEndEasesIntoPlace) {
  const LevelScreen level = EnergyBar();
  level.Select("p");
  level.GetPlayer("p").m_movement_limit = 8.0f;
  level.GetPlayer("p").m_movement_curr = 2.0f;
  level.Update<UIElement>("piece");
  const Transform& bar = level.Of<Transform>("piece");
  EXPECT_FLOAT_EQ(bar.m_local_scale.x, 50.0f);
  EXPECT_FLOAT_EQ(bar.m_local_pos.x, -300.0f - 75.0f * 0.45f);
  level.Update<UIElement>("piece", 40);
  EXPECT_NEAR(bar.m_local_pos.x, -375.0f, 1e-3f);
  EXPECT_FLOAT_EQ(bar.m_local_scale.y, 20.0f);
}

TEST(EnergyBar, EnergyAboveTheLimitMakesItWider) {
  const LevelScreen level = EnergyBar();
  level.Select("p");
  level.GetPlayer("p").m_movement_limit = 8.0f;
  level.GetPlayer("p").m_movement_curr = 12.0f;
  level.Update<UIElement>("piece");
  EXPECT_FLOAT_EQ(level.Of<Transform>("piece").m_local_scale.x, 300.0f);
}

TEST(EnergyBar, OverspentEnergyIsNone) {
  const LevelScreen level = EnergyBar();
  level.Select("p");
  level.GetPlayer("p").m_movement_limit = 8.0f;
  level.GetPlayer("p").m_movement_curr = -1.0f;
  level.Update<UIElement>("piece");
  EXPECT_EQ(level.Of<Transform>("piece").m_local_scale.x, 0.0f);
}

TEST(EnergyBar, AUnitThatCannotMoveHasNone) {
  for (const float energy : {0.0f, 3.0f}) {
    const LevelScreen level = EnergyBar();
    level.Select("p");
    level.GetPlayer("p").m_movement_limit = 0.0f;
    level.GetPlayer("p").m_movement_curr = energy;
    level.Update<UIElement>("piece");
    EXPECT_EQ(level.Of<Transform>("piece").m_local_scale.x, 0.0f);
    EXPECT_FLOAT_EQ(level.Of<Transform>("piece").m_local_pos.x, -300.0f - 100.0f * 0.45f);
  }
}

TEST(EnergyBar, IsDimWhenTheLevelIsNotLive) {
  const LevelScreen level = EnergyBar();
  level.Select("p");
  InEachMoment(
      level, [&](bool live) { EXPECT_EQ(level.Sprite("piece").m_colour[3], live ? 1.0f : 0.3f); });
}

TEST(EnergyBar, StaysAsItWasInAnEnemysTurnAndWithoutASelection) {
  const LevelScreen level = EnergyBar();
  for (GameObj* selected : {level.Find("e"), static_cast<GameObj*>(nullptr)}) {
    level.Controller().m_selected = selected;
    level.Sprite("piece").m_colour[3] = 0.6f;
    level.Update<UIElement>("piece");
    EXPECT_EQ(level.Of<Transform>("piece").m_local_scale.x, 200.0f);
    EXPECT_EQ(level.Sprite("piece").m_colour[3], 0.6f);
  }
}

// The weapons

struct Weapon {
  const char* shot;
  const char* name;
  const char* gun;
};
constexpr Weapon kWeapons[] = {{"ProjectileDefault", "BASIC", "Gun_Basic"},
                               {"ProjectilePush", "PUSH", "Gun_Push"},
                               {"ProjectileSwap", "SWAP", "Gun_Swap"},
                               {"ProjectileBounce", "BOUNCE", "Gun_Bounce"},
                               {"ProjectileExplosion", "EXPLOSION", "Gun_Explode"},
                               {"ProjectileVacuum", "VACUUM", "Gun_Vacuum"},
                               {"ProjectilePierce", "PIERCE", "Gun_Pierce"}};

/// A level with a piece, and a player unit "own" and an enemy "foe" that carry these weapons.
LevelScreen Armed(const std::string& piece, const std::string& first, const std::string& second) {
  const std::vector<std::string> weapons = {ShotRecord("Weapon0Projectile", first),
                                            ShotRecord("Weapon1Projectile", second)};
  return LevelScreen({piece, UnitAt(UnitKind::kPlayer, "own", 0, 200, "{}", weapons),
                      UnitAt(UnitKind::kEnemy, "foe", 0, -200, "{}", weapons)});
}

TEST(WeaponPanel, EveryKindIsShown) {
  EXPECT_EQ(ComponentKinds<Shot>().size(), std::size(kWeapons));
}

TEST(WeaponPanel, NamesTheWeaponsOfTheSelectedUnit) {
  for (const Weapon& weapon : kWeapons) {
    const LevelScreen first = Armed(TextRecord("ui_weapon0_font"), weapon.shot, "ProjectileSwap");
    first.Select("own");
    first.Update<UIElement>("piece");
    EXPECT_EQ(first.Of<Font>("piece").m_text, weapon.name);
  }
  for (const Weapon& weapon : kWeapons) {
    const LevelScreen second = Armed(TextRecord("ui_weapon1_font"), "ProjectileSwap", weapon.shot);
    second.Select("foe");
    second.Update<UIElement>("piece");
    EXPECT_EQ(second.Of<Font>("piece").m_text, weapon.name);
  }
}

TEST(WeaponPanel, NamesAreSeenWhileTheLevelIsLive) {
  for (const char* element : {"ui_weapon0_font", "ui_weapon1_font"}) {
    const LevelScreen level = Armed(TextRecord(element), "ProjectilePush", "ProjectileSwap");
    level.Select("own");
    InEachMoment(level, [&](bool live) {
      EXPECT_EQ(level.Of<Font>("piece").m_colour[3], live ? 1.0f : 0.0f);
    });
  }
}

void ExpectGuns(const LevelScreen& level, const std::string& gun) {
  level.Select("own");
  level.Update<UIElement>("piece");
  EXPECT_EQ(level.Sprite("piece").m_tex, gun + "_Green");
  level.Select("foe");
  level.Update<UIElement>("piece");
  EXPECT_EQ(level.Sprite("piece").m_tex, gun + "_Red");
}

TEST(WeaponPanel, ShowsTheGunInTheColourOfTheSide) {
  for (const Weapon& weapon : kWeapons) {
    ExpectGuns(Armed(ElementRecord("piece", "ui_weapon0_tex"), weapon.shot, "ProjectileSwap"),
               weapon.gun);
    ExpectGuns(Armed(ElementRecord("piece", "ui_weapon1_tex"), "ProjectileSwap", weapon.shot),
               weapon.gun);
  }
}

TEST(WeaponPanel, TheGunInHandIsBright) {
  for (const bool first : {true, false}) {
    const LevelScreen level =
        Armed(ElementRecord("piece", first ? "ui_weapon0_tex" : "ui_weapon1_tex"), "ProjectilePush",
              "ProjectileSwap");
    level.Select("own");
    for (const bool in_hand : {true, false}) {
      level.GetPlayer("own").m_selected_first_weapon = first == in_hand;
      InEachMoment(level, [&](bool live) {
        EXPECT_EQ(level.Sprite("piece").m_colour[3], live && in_hand ? 1.0f : 0.3f);
      });
    }
  }
}

TEST(WeaponPanel, OfSeveralShotsTheFirstTableNamesTheWeapon) {
  const std::string mixed =
      Record("Weapon0Projectile", {{"ProjectilePierce", "{}"}, {"ProjectilePush", "{}"}});
  const LevelScreen level(
      {TextRecord("ui_weapon0_font"), UnitAt(UnitKind::kPlayer, "own", 0, 200, "{}", {mixed})});
  level.Select("own");
  level.Update<UIElement>("piece");
  EXPECT_EQ(level.Of<Font>("piece").m_text, "PUSH");
}

TEST(WeaponPanel, WithoutASelectionOrAShotItKeepsItsFormerLook) {
  const LevelScreen level = Armed(ElementRecord("piece", "ui_weapon0_tex", {{"Font", kText}}),
                                  "ProjectilePush", "ProjectileSwap");
  level.Controller().m_selected = nullptr;
  level.Update<UIElement>("piece");
  EXPECT_EQ(level.Sprite("piece").m_tex, "rest");
  EXPECT_EQ(level.Sprite("piece").m_colour[3], 1.0f);
  level.Select("p");
  level.Update<UIElement>("piece");
  EXPECT_EQ(level.Sprite("piece").m_tex, "rest");
}

TEST(WeaponPanel, ABossHasNamesAndAGunOfItsOwn) {
  const LevelScreen level({ElementRecord("gun0", "ui_weapon0_tex"),
                           ElementRecord("gun1", "ui_weapon1_tex"),
                           ElementRecord("name0", "ui_weapon0_font", {{"Font", kText}}),
                           ElementRecord("name1", "ui_weapon1_font", {{"Font", kText}})});
  level.GetEnemy("e").m_boss = true;
  level.Select("e");
  const auto update = [&] {
    for (const char* name : {"gun0", "gun1", "name0", "name1"}) level.Update<UIElement>(name);
  };
  update();
  for (const char* gun : {"gun0", "gun1"}) {
    EXPECT_EQ(level.Sprite(gun).m_tex, "Gun_Boss");
    EXPECT_EQ(level.Alpha(gun), 1.0f) << "in hand or not";
  }
  EXPECT_EQ(level.Of<Font>("name0").m_text, "EXPLOSION");
  EXPECT_EQ(level.Of<Font>("name1").m_text, "BASIC");
  level.GetEnemy("e").m_phase_two = true;
  level.Show("ui_pause");
  update();
  for (const char* gun : {"gun0", "gun1"}) EXPECT_EQ(level.Alpha(gun), 0.3f);
  EXPECT_EQ(level.Of<Font>("name0").m_text, "EXPLOSION");
  EXPECT_EQ(level.Of<Font>("name1").m_text, "EXPLOSION");
}

// The reach

/// A circle of size 5, and a unit "own" with a blast and a plain weapon.
LevelScreen Reach(const std::string& shot) {
  return LevelScreen({ElementRecord("piece", "aoe_indicator", {}, {0, 0, 5, 5}),
                      UnitAt(UnitKind::kPlayer, "own", 0, 200, "{}",
                             {ShotRecord("Weapon0Projectile", shot),
                              ShotRecord("Weapon1Projectile", "ProjectileDefault")})});
}

TEST(ReachIndicator, FollowsTheCursorWithoutTheCamera) {
  LevelScreen level = Reach("ProjectileExplosion");
  level.Of<Transform>("view").m_world_pos = Vector3D(500, 300, 1);
  level.PointAt(150, -90);
  level.Update<UIElement>("piece");
  ExpectNear(level.Of<Transform>("piece").m_local_pos, 150, -90);
  EXPECT_EQ(level.Of<Transform>("piece").m_local_pos.z, GetCursorScreenPosition().z);
}

TEST(ReachIndicator, ShowsTheReachOfTheWeaponInHand) {
  const LevelScreen blast = Reach("ProjectileExplosion");
  blast.Select("own");
  blast.Of<ProjectileExplosion>("Weapon0Projectile").m_aoe = 100.0f;
  blast.Update<UIElement>("piece");
  const Transform& circle = blast.Of<Transform>("piece");
  EXPECT_FLOAT_EQ(circle.m_local_scale.x, 160.0f);
  EXPECT_FLOAT_EQ(circle.m_local_scale.y, 160.0f);
  EXPECT_EQ(circle.m_local_scale.z, 1.0f);
  EXPECT_FLOAT_EQ(circle.m_local_rotate, 0.3f);
  blast.GetPlayer("own").m_selected_first_weapon = false;
  blast.Update<UIElement>("piece");
  EXPECT_EQ(circle.m_local_scale.x, 0.0f);
  EXPECT_FLOAT_EQ(circle.m_local_rotate, 0.6f);
}

TEST(ReachIndicator, AVacuumShowsALittleMore) {
  const LevelScreen level = Reach("ProjectileVacuum");
  level.Select("own");
  level.Of<ProjectileVacuum>("Weapon0Projectile").m_aoe = 100.0f;
  level.Update<UIElement>("piece");
  EXPECT_FLOAT_EQ(level.Of<Transform>("piece").m_local_scale.x, 175.0f);
}

TEST(ReachIndicator, OfAShotThatIsBothTheVacuumCounts) {
  const LevelScreen level(
      {ElementRecord("piece", "aoe_indicator"),
       UnitAt(UnitKind::kPlayer, "own", 0, 200, "{}",
              {Record("Weapon0Projectile", {{"ProjectileExplosion", R"({"m_aoe": 10})"},
                                            {"ProjectileVacuum", R"({"m_aoe": 100})"}})})});
  level.Select("own");
  level.Update<UIElement>("piece");
  EXPECT_FLOAT_EQ(level.Of<Transform>("piece").m_local_scale.x, 175.0f);
}

TEST(ReachIndicator, OfAUnitWithoutAWeaponIsNothingAndTurns) {
  const LevelScreen level({ElementRecord("piece", "aoe_indicator")});
  level.Select("p");
  level.Update<UIElement>("piece");
  EXPECT_EQ(level.Of<Transform>("piece").m_local_scale.x, 0.0f);
  EXPECT_FLOAT_EQ(level.Of<Transform>("piece").m_local_rotate, 0.3f);
}

TEST(ReachIndicator, IsNothingForAnEnemyAndStaysWithoutASelection) {
  const LevelScreen level = Reach("ProjectileExplosion");
  const Transform& circle = level.Of<Transform>("piece");
  level.Controller().m_selected = nullptr;
  level.Update<UIElement>("piece");
  EXPECT_EQ(circle.m_local_scale.x, 5.0f);
  level.Select("e");
  level.Update<UIElement>("piece");
  EXPECT_EQ(circle.m_local_scale.x, 0.0f);
  EXPECT_EQ(circle.m_local_scale.y, 0.0f);
  EXPECT_EQ(circle.m_local_scale.z, 1.0f);
  EXPECT_EQ(circle.m_local_rotate, 0.0f);
}

}  // namespace
}  // namespace ZOVEngine
