#include "ui/elements/screenelements.h"

#include <gtest/gtest.h>

#include <set>

#include "render/components/font.h"
#include "ui/elements/behaviours.h"
#include "ui/elements/uielement.h"
#include "ui/interfaceworlds.h"

namespace ZOVEngine {
namespace {

using carapace_test::ElementRecord;
using carapace_test::kLevelStates;
using carapace_test::kMenuStates;
using carapace_test::LevelScreen;
using carapace_test::MenuScreen;
using carapace_test::Record;
using ::testing::TestWithParam;
using ::testing::ValuesIn;

constexpr const char* kWhiteText = R"({"m_text": "text", "m_colour": [1, 1, 1, 1]})";

/// An element and the states in which it is shown.
struct Screen {
  const char* element;
  std::set<std::string> states;
};

const std::vector<Screen> kScreens = {
    {"ui_pause", {"ui_pause"}},
    {"ui_quit", {"ui_quit_confirm"}},
    {"ui_quit_menu", {"ui_quit_mainmenu_confirm"}},
    {"ui_options_options", {"ui_options"}},
    {"ui_options_music", {"ui_options"}},
    {"ui_options_sfx", {"ui_options"}},
    {"ui_howtoplay", {"ui_how_to_play"}},
    {"ui_pause_glossary", {"ui_pause_glossary"}},
    {"ui_pause_credits", {"ui_pause_credits"}},
    {"ui_splash", {"ui_pause", "ui_options", "ui_how_to_play", "ui_pause_credits"}}};

const std::vector<Screen> kPages = {{"menu_title", {"menu_default", "menu_slide"}},
                                    {"menu_quit_fade", {"menu_quit"}},
                                    {"menu_splash", {"menu_howtoplay", "menu_credits"}},
                                    {"menu_howtoplay", {"menu_howtoplay"}},
                                    {"menu_glossary", {"menu_glossary"}},
                                    {"menu_credits", {"menu_credits"}},
                                    {"menu_levelselect_preview", {"menu_level_select"}}};

/// The behaviours that more than the state decides, which have tests of their own.
const std::set<std::string> kOthers = {"ui_font",
                                       "ui_element_default",
                                       "ui_turn",
                                       "ui_energy",
                                       "ui_weapon0_font",
                                       "ui_weapon1_font",
                                       "ui_weapon0_tex",
                                       "ui_weapon1_tex",
                                       "ui_pause_fade",
                                       "ui_victory",
                                       "ui_defeat",
                                       "ui_pause_glossary_anim",
                                       "menu_glossary_anim",
                                       "ui_selection_circle",
                                       "ui_selection_circle_off",
                                       "aoe_indicator"};

TEST(ScreenElements, EveryBehaviourIsOneOrAmongTheOthers) {
  std::set<std::string> tested = kOthers;
  for (const std::vector<Screen>* rows : {&kScreens, &kPages}) {
    for (const Screen& row : *rows) tested.insert(row.element);
  }
  std::set<std::string> all;
  for (const auto& [name, behaviour] : ElementBehaviours()) all.insert(name);
  EXPECT_EQ(all, tested);
}

std::string NameOf(const ::testing::TestParamInfo<Screen>& row) {
  return row.param.element;
}

class LevelElement : public TestWithParam<Screen> {};

TEST_P(LevelElement, IsShownInItsStates) {
  const LevelScreen level({ElementRecord("piece", GetParam().element, {{"Font", kWhiteText}})});
  for (const std::string& state : kLevelStates) {
    level.Show(state);
    level.Sprite("piece").m_active = false;
    level.Update<UIElement>("piece");
    const bool shown = GetParam().states.count(state) == 1;
    EXPECT_EQ(level.Sprite("piece").m_visible, shown) << state;
    EXPECT_EQ(level.Sprite("piece").m_active, shown) << state;
    EXPECT_EQ(level.Of<Font>("piece").m_active, shown) << state;
  }
}

TEST_P(LevelElement, MayBeATextAlone) {
  const LevelScreen level({Record(
      "piece",
      {{"Font", kWhiteText},
       {"UIElement", R"({"m_ui_element_name": ")" + std::string(GetParam().element) + "\"}"}})});
  for (const std::string& state : kLevelStates) {
    level.Show(state);
    level.Update<UIElement>("piece");
    EXPECT_EQ(level.Of<Font>("piece").m_active, GetParam().states.count(state) == 1) << state;
  }
}

TEST_P(LevelElement, StaysActiveWhenItIsHidden) {
  const LevelScreen level({ElementRecord("piece", GetParam().element)});
  level.Show("ui_default");
  level.Sprite("piece").m_active = true;
  level.Update<UIElement>("piece");
  EXPECT_TRUE(level.Sprite("piece").m_active);
}

INSTANTIATE_TEST_SUITE_P(Screens, LevelElement, ValuesIn(kScreens), NameOf);

class MenuElement : public TestWithParam<Screen> {};

TEST_P(MenuElement, IsShownInItsStates) {
  const MenuScreen menu({ElementRecord("piece", GetParam().element, {{"Font", kWhiteText}})});
  for (const std::string& state : kMenuStates) {
    menu.Show(state);
    menu.Sprite("piece").m_active = false;
    menu.Update<UIElement>("piece");
    const bool shown = GetParam().states.count(state) == 1;
    EXPECT_EQ(menu.Sprite("piece").m_visible, shown) << state;
    EXPECT_EQ(menu.Sprite("piece").m_active, shown) << state;
    EXPECT_EQ(menu.Of<Font>("piece").m_active, shown) << state;
  }
}

INSTANTIATE_TEST_SUITE_P(Pages, MenuElement, ValuesIn(kPages), NameOf);

TEST(Switches, TheyShowWhatIsOn) {
  const LevelScreen level(
      {ElementRecord("music", "ui_options_music"), ElementRecord("effects", "ui_options_sfx")});
  for (const bool music : {true, false}) {
    for (const bool effects : {true, false}) {
      level.Controller().m_music_on = music;
      level.Controller().m_sfx_on = effects;
      level.Update<UIElement>("music");
      level.Update<UIElement>("effects");
      EXPECT_EQ(level.Sprite("music").m_tex, music ? "Menu_Options_On" : "Menu_Options_Off");
      EXPECT_EQ(level.Sprite("effects").m_tex, effects ? "Menu_Options_On" : "Menu_Options_Off");
    }
  }
}

}  // namespace
}  // namespace ZOVEngine
