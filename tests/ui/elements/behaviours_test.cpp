#include "ui/elements/behaviours.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "ui/elements/uielement.h"
#include "ui/interfaceworlds.h"

namespace ZOVEngine {
namespace {

using carapace_test::ElementRecord;
using carapace_test::LevelScreen;
using carapace_test::Stage;

TEST(ElementBehaviours, TheseAreAllOfThem) {
  const std::set<std::string> expected = {"ui_font",
                                          "ui_element_default",
                                          "ui_turn",
                                          "ui_energy",
                                          "ui_weapon0_font",
                                          "ui_weapon1_font",
                                          "ui_weapon0_tex",
                                          "ui_weapon1_tex",
                                          "ui_pause_fade",
                                          "ui_pause",
                                          "ui_options_options",
                                          "ui_options_music",
                                          "ui_options_sfx",
                                          "ui_howtoplay",
                                          "ui_quit",
                                          "ui_quit_menu",
                                          "ui_victory",
                                          "ui_defeat",
                                          "ui_pause_glossary",
                                          "ui_pause_glossary_anim",
                                          "ui_pause_credits",
                                          "ui_selection_circle",
                                          "ui_selection_circle_off",
                                          "aoe_indicator",
                                          "ui_splash",
                                          "menu_title",
                                          "menu_quit_fade",
                                          "menu_splash",
                                          "menu_howtoplay",
                                          "menu_credits",
                                          "menu_glossary",
                                          "menu_glossary_anim",
                                          "menu_levelselect_preview"};
  std::set<std::string> all;
  for (const auto& [name, behaviour] : ElementBehaviours()) {
    all.insert(name);
    EXPECT_NE(behaviour, nullptr) << name;
  }
  EXPECT_EQ(all, expected);
}

TEST(ElementBehaviours, TheDefaultAndUnknownNamesDoNothing) {
  for (const char* name : {"ui_element_default", "no such name"}) {
    const LevelScreen level({ElementRecord("piece", name)});
    const Transform before = level.Of<Transform>("piece");
    level.Update<UIElement>("piece", 3);
    EXPECT_TRUE(level.Sprite("piece").m_visible);
    EXPECT_EQ(level.Sprite("piece").m_tex, "rest");
    EXPECT_EQ(level.Of<Transform>("piece").m_local_pos.x, before.m_local_pos.x);
    EXPECT_EQ(level.Of<Transform>("piece").m_local_scale.x, before.m_local_scale.x);
  }
}

TEST(ElementBehaviours, NoneNeedsMoreThanTheElementItself) {
  for (const auto& [name, behaviour] : ElementBehaviours()) {
    const LevelScreen level({carapace_test::Record(
        "piece", {{"UIElement", R"({"m_ui_element_name": ")" + name + "\"}"}})});
    level.Select("p");
    level.Update<UIElement>("piece", 2);
    level.Select("e");
    level.Update<UIElement>("piece", 2);
    EXPECT_TRUE(level.Of<UIElement>("piece").m_init) << name;
  }
}

TEST(ElementBehaviours, WithoutAControllerAndAParentTheyLeaveTheirElementAsItIs) {
  Stage stage;
  stage.world.LoadObjects(ElementRecord("EnvDamage", "ui_font"));
  for (const std::int32_t state : {kDefaultState, kMainMenuState}) {
    g_state_machine->m_current = g_state_machine->m_next = state;
    for (const auto& [name, behaviour] : ElementBehaviours()) {
      stage.Of<UIElement>("EnvDamage").m_ui_element_name = name;
      stage.Of<UIElement>("EnvDamage").Update(kStep);
      EXPECT_TRUE(stage.Find("EnvDamage")->active) << name;
      EXPECT_TRUE(stage.Of<Render>("EnvDamage").m_visible) << name;
      EXPECT_EQ(stage.Of<Render>("EnvDamage").m_tex, "rest") << name;
    }
  }
}

}  // namespace
}  // namespace ZOVEngine
