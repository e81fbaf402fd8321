#include "ui/elements/selectionring.h"

#include <gtest/gtest.h>

#include "core/engine.h"
#include "ui/elements/uielement.h"
#include "ui/interfaceworlds.h"

namespace ZOVEngine {
namespace {

using carapace_test::ElementRecord;
using carapace_test::LevelScreen;
using carapace_test::UnitAt;
using carapace_test::UnitKind;

/// A level with a unit "own" of this kind that has a ring of scale 20.
LevelScreen Ringed(UnitKind kind, const std::string& element = "ui_selection_circle") {
  return LevelScreen(
      {UnitAt(kind, "own", 0, 200, "{}", {ElementRecord("ring", element, {}, {0, 0, 20, 20})})});
}

TEST(SelectionRing, ClosesInOnACommonUnitIn28Steps) {
  const LevelScreen level = Ringed(UnitKind::kPlayer);
  level.Of<Transform>("ring").m_local_scale = Vector3D(20, 20, 1);
  level.Sprite("ring").m_visible = false;
  level.Update<UIElement>("ring");
  EXPECT_TRUE(level.Sprite("ring").m_visible);
  EXPECT_FLOAT_EQ(level.Of<Transform>("ring").m_local_scale.x, 19.3f);
  EXPECT_FLOAT_EQ(level.Of<Transform>("ring").m_local_scale.y, 19.3f);
  EXPECT_EQ(level.Sprite("ring").m_tex, "UI_CircleGreen");
  level.Update<UIElement>("ring", 26);
  EXPECT_NEAR(level.Of<Transform>("ring").m_local_scale.x, 1.1f, 1e-4f);
  EXPECT_EQ(level.Sprite("ring").m_tex, "UI_CircleGreen");
  EXPECT_FALSE(level.GetPlayer("own").m_show_weapon_label);
  level.Update<UIElement>("ring");
  EXPECT_EQ(level.Of<Transform>("ring").m_local_scale.x, 1.0f);
  EXPECT_EQ(level.Sprite("ring").m_tex, "UnitBeetle_SelectedOutline");
  EXPECT_TRUE(level.Sprite("ring").m_visible);
  EXPECT_TRUE(level.GetPlayer("own").m_show_weapon_label);
}

TEST(SelectionRing, HasArrivedAtExactlyTheSizeOfTheOutline) {
  const LevelScreen level = Ringed(UnitKind::kPlayer);
  level.Of<Transform>("ring").m_local_scale = Vector3D(1.0f + 0.7f, 1.0f + 0.7f, 1.0f);
  level.Update<UIElement>("ring");
  EXPECT_EQ(level.Sprite("ring").m_tex, "UnitBeetle_SelectedOutline");
}

TEST(SelectionRing, AnnouncesTheWeaponOnceASelection) {
  const LevelScreen level = Ringed(UnitKind::kPlayer);
  level.Update<UIElement>("ring", 40);
  bool& shown = level.GetPlayer("own").m_show_weapon_label;
  EXPECT_TRUE(shown);
  shown = false;
  level.Update<UIElement>("ring", 40);
  EXPECT_FALSE(shown);
  UIElement& ring = level.Of<UIElement>("ring");
  ring.m_ui_element_name = "ui_selection_circle_off";
  level.Update<UIElement>("ring");
  ring.m_ui_element_name = "ui_selection_circle";
  level.Update<UIElement>("ring", 40);
  EXPECT_TRUE(shown);
}

TEST(SelectionRing, IsRedForAnEnemy) {
  const LevelScreen level = Ringed(UnitKind::kEnemy);
  level.Of<Transform>("ring").m_local_scale = Vector3D(20, 20, 1);
  level.Update<UIElement>("ring");
  EXPECT_EQ(level.Sprite("ring").m_tex, "UI_CircleRed");
}

TEST(SelectionRing, IsSlowAndPurpleForABossWhichHasNoOutline) {
  const LevelScreen level = Ringed(UnitKind::kEnemy);
  level.GetEnemy("own").m_boss = true;
  level.Of<Transform>("ring").m_local_scale = Vector3D(20, 20, 1);
  level.Update<UIElement>("ring");
  EXPECT_FLOAT_EQ(level.Of<Transform>("ring").m_local_scale.x, 19.6f);
  EXPECT_EQ(level.Sprite("ring").m_tex, "UI_CirclePurple");
  EXPECT_TRUE(level.Sprite("ring").m_visible);
  level.Update<UIElement>("ring", 60);
  EXPECT_FALSE(level.Sprite("ring").m_visible);
  EXPECT_EQ(level.Sprite("ring").m_tex, "UnitBeetle_SelectedOutline");
  EXPECT_TRUE(level.GetEnemy("own").m_show_weapon_label);
}

TEST(SelectionRing, OfADeadUnitIsNotSeen) {
  const LevelScreen level = Ringed(UnitKind::kPlayer);
  level.Kill("own");
  level.Update<UIElement>("ring");
  EXPECT_FALSE(level.Sprite("ring").m_visible);
  EXPECT_FALSE(level.Sprite("ring").m_active);
}

TEST(SelectionRing, OfAUnitThatDiesWhileItClosesGoesOnUnseenAndTheTurnWithIt) {
  LevelScreen level = Ringed(UnitKind::kPlayer, "ui_selection_circle_off");
  level.Update<UIElement>("ring");
  level.GiveControl("own");
  ASSERT_EQ(level.Controller().m_selected, level.Find("own"));
  level.Step(5);
  EXPECT_TRUE(level.Sprite("ring").m_visible);
  level.GetPlayer("own").m_health = 0;
  level.Step(120);
  EXPECT_FALSE(level.GetPlayer("own").m_alive);
  EXPECT_FALSE(level.Sprite("ring").m_visible);
  EXPECT_NE(level.Controller().m_selected, level.Find("own"));
}

TEST(SelectionRing, ClosesInAPause) {
  LevelScreen level = Ringed(UnitKind::kPlayer);
  g_engine->paused = true;
  level.Step(30);
  EXPECT_EQ(level.Of<Transform>("ring").m_local_scale.x, 1.0f);
  EXPECT_TRUE(level.GetPlayer("own").m_show_weapon_label);
}

TEST(SelectionRing, OpensUnseen) {
  const LevelScreen level = Ringed(UnitKind::kPlayer, "ui_selection_circle_off");
  level.Of<Transform>("ring").m_local_scale = Vector3D(1, 1, 1);
  level.Of<UIElement>("ring").m_ring_announced = true;
  level.Sprite("ring").m_visible = true;
  level.Update<UIElement>("ring");
  EXPECT_EQ(level.Of<Transform>("ring").m_local_scale.x, 20.0f);
  EXPECT_EQ(level.Of<Transform>("ring").m_local_scale.y, 20.0f);
  EXPECT_FALSE(level.Sprite("ring").m_visible);
  EXPECT_FALSE(level.Of<UIElement>("ring").m_ring_announced);
}

TEST(SelectionRing, WithoutAUnitItDoesNothing) {
  for (const char* element : {"ui_selection_circle", "ui_selection_circle_off"}) {
    const LevelScreen level({ElementRecord("ring", element, {}, {0, 0, 7, 7})});
    level.Of<UIElement>("ring").m_ring_announced = true;
    level.Update<UIElement>("ring");
    EXPECT_EQ(level.Of<Transform>("ring").m_local_scale.x, 7.0f);
    EXPECT_EQ(level.Sprite("ring").m_tex, "rest");
    EXPECT_EQ(level.Of<UIElement>("ring").m_ring_announced,
              std::string(element) == "ui_selection_circle");
  }
}

}  // namespace
}  // namespace ZOVEngine
