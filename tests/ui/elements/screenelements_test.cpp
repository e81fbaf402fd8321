#include "ui/elements/screenelements.h"

#include <gtest/gtest.h>

#include <set>

#include "render/components/font.h"
#include "ui/elements/uielement.h"
#include "ui/interfaceworlds.h"

namespace ZOVEngine {
namespace {

using carapace_test::ElementRecord;
using carapace_test::LevelScreen;
using carapace_test::MenuScreen;
using carapace_test::Record;
using ::testing::TestWithParam;
using ::testing::ValuesIn;

constexpr const char* kText = R"({"m_text": "text", "m_colour": [1, 1, 1, 1]})";

/// An element and the states in which it is shown.
struct Screen {
  const char* element;
  std::set<std::string> states;
};

const std::set<std::string> kLevelStates = {
    "ui_default",        "ui_pause",         "ui_options",      "ui_how_to_play",
    "ui_pause_glossary", "ui_pause_credits", "ui_quit_confirm", "ui_quit_mainmenu_confirm",
    "ui_level_end"};
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

const std::set<std::string> kMenuStates = {"menu_slide",     "menu_default",  "menu_level_select",
                                           "menu_howtoplay", "menu_glossary", "menu_credits",
                                           "menu_quit"};
const std::vector<Screen> kPages = {{"menu_title", {"menu_default", "menu_slide"}},
                                    {"menu_quit_fade", {"menu_quit"}},
                                    {"menu_splash", {"menu_howtoplay", "menu_credits"}},
                                    {"menu_howtoplay", {"menu_howtoplay"}},
                                    {"menu_glossary", {"menu_glossary"}},
                                    {"menu_credits", {"menu_credits"}},
                                    {"menu_levelselect_preview", {"menu_level_select"}}};

std::string NameOf(const ::testing::TestParamInfo<Screen>& row) {
  return row.param.element;
}

class LevelElement : public TestWithParam<Screen> {};

TEST_P(LevelElement, IsShownInItsStates) {
  const LevelScreen level({ElementRecord("piece", GetParam().element, {{"Font", kText}})});
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
      {{"Font", kText},
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
  const MenuScreen menu({ElementRecord("piece", GetParam().element, {{"Font", kText}})});
  for (const std::string& state : kMenuStates) {
    menu.Menu().m_ui_state = state;
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
