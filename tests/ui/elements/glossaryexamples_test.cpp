#include "ui/elements/glossaryexamples.h"

#include <gtest/gtest.h>

#include "render/components/animation.h"
#include "ui/elements/uielement.h"
#include "ui/interfaceworlds.h"

namespace ZOVEngine {
namespace {

using carapace_test::ElementRecord;
using carapace_test::ExpectNear;
using carapace_test::LevelScreen;
using carapace_test::MenuScreen;
using carapace_test::PieceRecord;
using carapace_test::RenderOf;

constexpr const char* kPage = "Glossary_Pg2Environment_B";
constexpr const char* kExamples[] = {"EnvDestructible", "EnvDamage", "EnvBlackhole"};

/// The glossary's image on the page of surroundings, and the three examples at (1, 1).
std::vector<std::string> Examples(const std::string& glossary) {
  const std::string element = glossary + "_anim";
  const carapace_test::Area area = {1, 1, 60, 60};
  return {PieceRecord(glossary + "_img", {}, {}, RenderOf(kPage)),
          ElementRecord("EnvDestructible", element, {{"EnvironmentDestructible", "{}"}}, area),
          ElementRecord("EnvDamage", element, {{"Animation", "{}"}}, area),
          ElementRecord("EnvBlackhole", element, {{"EnvironmentBlackhole", "{}"}}, area),
          ElementRecord("other", element, {}, area)};
}

template <class Screen>
void UpdateExamples(const Screen& screen) {
  for (const char* name : kExamples) screen.template Update<UIElement>(name);
}

template <class Screen>
void ExpectAwake(const Screen& screen, bool awake) {
  for (const char* name : kExamples) EXPECT_EQ(screen.Find(name)->active, awake) << name;
}

template <class Screen>
void ExpectPlaces(const Screen& screen) {
  ExpectNear(screen.template Of<Transform>("EnvDestructible").m_local_pos, -660, -45);
  ExpectNear(screen.template Of<Transform>("EnvDamage").m_local_pos, 160, 130);
  ExpectNear(screen.template Of<Transform>("EnvBlackhole").m_local_pos, 160, -75);
}

TEST(GlossaryExamples, InAPauseTheyWakeOnTheirPageOnly) {
  const LevelScreen level(Examples("ui_pause_glossary"));
  level.Show("ui_default");
  UpdateExamples(level);
  ExpectAwake(level, false);
  level.Show("ui_pause_glossary");
  UpdateExamples(level);
  ExpectAwake(level, true);
  ExpectPlaces(level);
  level.Sprite("ui_pause_glossary_img").m_tex = "Glossary_Pg1Weapons";
  UpdateExamples(level);
  ExpectAwake(level, false);
}

TEST(GlossaryExamples, EachOfThemPutsAllInTheirPlaces) {
  for (const char* name : kExamples) {
    const LevelScreen level(Examples("ui_pause_glossary"));
    level.Show("ui_pause_glossary");
    level.Update<UIElement>(name);
    ExpectPlaces(level);
  }
}

TEST(GlossaryExamples, AreKnownByTheirComponentOrAsTheZoneByName) {
  const LevelScreen level(
      {ElementRecord("a", "ui_pause_glossary_anim", {{"EnvironmentDestructible", "{}"}}),
       ElementRecord("b", "ui_pause_glossary_anim", {{"EnvironmentBlackhole", "{}"}}),
       ElementRecord("EnvDamage", "ui_pause_glossary_anim"),
       ElementRecord("EnvDestructible", "ui_pause_glossary_anim"),
       ElementRecord("EnvBlackhole", "ui_pause_glossary_anim")});
  const auto sleeps = [&](const char* name) {
    level.Update<UIElement>(name);
    return !level.Find(name)->active;
  };
  for (const char* name : {"a", "b", "EnvDamage"}) EXPECT_TRUE(sleeps(name)) << name;
  for (const char* name : {"EnvDestructible", "EnvBlackhole"}) EXPECT_FALSE(sleeps(name)) << name;
}

TEST(GlossaryExamples, InAPauseTheHoleTurns) {
  const LevelScreen level(Examples("ui_pause_glossary"));
  level.Show("ui_pause_glossary");
  const float before = level.Of<Transform>("EnvBlackhole").m_local_rotate;
  UpdateExamples(level);
  EXPECT_NEAR(level.Of<Transform>("EnvBlackhole").m_local_rotate - before, 0.3f, 1e-5f);
  EXPECT_EQ(level.Of<Transform>("EnvDamage").m_local_rotate, 0.0f);
  EXPECT_EQ(level.Of<Animation>("EnvDamage").m_loop, "");
}

TEST(GlossaryExamples, InTheMenuTheyWakeOnTheirPageOnly) {
  const MenuScreen menu(Examples("menu_glossary"));
  menu.Show("menu_default");
  UpdateExamples(menu);
  ExpectAwake(menu, false);
  menu.Show("menu_glossary");
  const float before = menu.Of<Transform>("EnvBlackhole").m_local_rotate;
  UpdateExamples(menu);
  ExpectAwake(menu, true);
  ExpectPlaces(menu);
  EXPECT_EQ(menu.Of<Transform>("EnvBlackhole").m_local_rotate, before);
  menu.Sprite("menu_glossary_img").m_tex = "Glossary_Pg1Weapons";
  UpdateExamples(menu);
  ExpectAwake(menu, false);
}

TEST(GlossaryExamples, InTheMenuTheZoneTakesItsSheet) {
  const MenuScreen menu(Examples("menu_glossary"));
  menu.Show("menu_glossary");
  UpdateExamples(menu);
  const Animation& zone = menu.Of<Animation>("EnvDamage");
  for (const std::string& sheet : {zone.m_spawn, zone.m_death, zone.m_once, zone.m_loop}) {
    EXPECT_EQ(sheet, "Sheet_Env_Damaging");
  }
}

TEST(GlossaryExamples, InTheMenuTheOthersKeepTheirSheets) {
  const MenuScreen menu(
      {PieceRecord("menu_glossary_img", {}, {}, RenderOf(kPage)),
       ElementRecord("EnvBlackhole", "menu_glossary_anim",
                     {{"EnvironmentBlackhole", "{}"}, {"Animation", R"({"m_loop": "own"})"}})});
  menu.Show("menu_glossary");
  menu.Update<UIElement>("EnvBlackhole");
  EXPECT_EQ(menu.Of<Animation>("EnvBlackhole").m_loop, "own");
}

TEST(GlossaryExamples, WhatIsNoExampleStaysAsItIs) {
  const LevelScreen level(Examples("ui_pause_glossary"));
  level.Update<UIElement>("other");
  EXPECT_TRUE(level.Find("other")->active);
}

TEST(GlossaryExamples, WithoutAnImageTheySleep) {
  const LevelScreen level({ElementRecord("EnvDamage", "ui_pause_glossary_anim")});
  level.Show("ui_pause_glossary");
  level.Update<UIElement>("EnvDamage");
  EXPECT_FALSE(level.Find("EnvDamage")->active);
}

}  // namespace
}  // namespace ZOVEngine
