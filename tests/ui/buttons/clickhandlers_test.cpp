#include "ui/buttons/clickhandlers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "core/engine.h"
#include "support/reports.h"
#include "ui/interfaceworlds.h"

namespace ZOVEngine {
namespace {

using carapace_test::AsksFor;
using carapace_test::ButtonRecord;
using carapace_test::kLevelStates;
using carapace_test::kMenuStates;
using carapace_test::LevelScreen;
using carapace_test::MenuScreen;
using carapace_test::OutputOf;
using carapace_test::PieceRecord;
using carapace_test::Record;
using carapace_test::RenderOf;
using carapace_test::Stage;
using carapace_test::TransformAt;
using ::testing::TestWithParam;
using ::testing::ValuesIn;

constexpr const char* kClick = "button_click.ogg";

/// A handler that shows another screen: of a level, or page of the menu.
struct Change {
  const char* click_name;
  const char* state;
};

const std::vector<Change> kScreenChanges = {{"ui_pause_options", "ui_options"},
                                            {"ui_options_back", "ui_pause"},
                                            {"ui_quit_no", "ui_pause"},
                                            {"ui_pause_howtoplay_back", "ui_pause"},
                                            {"ui_pause_glossary_back", "ui_pause"},
                                            {"ui_pause_credits_back", "ui_pause"},
                                            {"ui_pause_quittomenu", "ui_quit_mainmenu_confirm"},
                                            {"ui_pause_quittomenu_no", "ui_pause"},
                                            {"ui_pause_quit", "ui_quit_confirm"},
                                            {"ui_pause_howtoplay", "ui_how_to_play"},
                                            {"ui_pause_glossary", "ui_pause_glossary"},
                                            {"ui_pause_credits", "ui_pause_credits"}};

const std::vector<Change> kPageChanges = {{"menu_play", "menu_level_select"},
                                          {"menu_howtoplay", "menu_howtoplay"},
                                          {"menu_glossary", "menu_glossary"},
                                          {"menu_back", "menu_default"},
                                          {"menu_level_back", "menu_default"},
                                          {"menu_glossary_back", "menu_default"},
                                          {"menu_credits_back", "menu_default"},
                                          {"menu_quit_no", "menu_default"},
                                          {"menu_quit", "menu_quit"},
                                          {"menu_credits", "menu_credits"}};

/// Those with tests of their own below.
const std::set<std::string> kOthers = {"default",
                                       "ui_pause_resume",
                                       "ui_options_music",
                                       "ui_options_sfx",
                                       "ui_pause_quittomenu_yes",
                                       "ui_end_mainmenu",
                                       "ui_quit_yes",
                                       "menu_quit_yes",
                                       "ui_pause_glossary_weapons",
                                       "ui_pause_glossary_enviro",
                                       "ui_end_restart",
                                       "ui_end_gotonext",
                                       "menu_level_01",
                                       "menu_level_02",
                                       "menu_level_03",
                                       "menu_level_04",
                                       "menu_glossary_weapons",
                                       "menu_glossary_enviro"};

TEST(ClickHandlers, EveryOneIsTestedHere) {
  std::set<std::string> tested = kOthers;
  for (const Change& change : kScreenChanges) tested.insert(change.click_name);
  for (const Change& change : kPageChanges) tested.insert(change.click_name);
  std::set<std::string> all;
  for (const auto& [name, handler] : ClickHandlers()) {
    all.insert(name);
    EXPECT_NE(handler, nullptr) << name;
  }
  EXPECT_EQ(all, tested);
}

/// The turn controller sets the state in play and that of the level's end, the menu's the slide.
TEST(ClickHandlers, WithTheControllersTheyReachEveryState) {
  std::set<std::string> screens = {"ui_default", "ui_level_end"};
  for (const Change& change : kScreenChanges) screens.insert(change.state);
  EXPECT_EQ(screens, kLevelStates);
  std::set<std::string> pages = {"menu_slide"};
  for (const Change& change : kPageChanges) pages.insert(change.state);
  EXPECT_EQ(pages, kMenuStates);
}

TEST(ClickHandlers, TheKeyHintsHaveNone) {
  for (const char* hint : {"ui_skip", "ui_cycle_left", "ui_cycle_right", "ui_undo"}) {
    EXPECT_EQ(ClickHandlers().count(hint), 0u) << hint;
  }
}

class ScreenChange : public TestWithParam<Change> {};

TEST_P(ScreenChange, ShowsTheScreenWithAClickAndLeavesThePause) {
  LevelScreen level({ButtonRecord(GetParam().click_name, "here")});
  for (const bool paused : {false, true}) {
    g_engine->paused = paused;
    level.Show("here");
    level.ClickOn("button");
    EXPECT_EQ(level.Controller().m_ui_state, GetParam().state);
    EXPECT_EQ(g_engine->paused, paused);
    EXPECT_TRUE(AsksFor(level.Find("button"), kClick));
  }
}

INSTANTIATE_TEST_SUITE_P(ClickHandlers, ScreenChange, ValuesIn(kScreenChanges),
                         [](const auto& row) { return std::string(row.param.click_name); });

class PageChange : public TestWithParam<Change> {};

TEST_P(PageChange, ShowsThePageWithAClick) {
  MenuScreen menu({ButtonRecord(GetParam().click_name, "here")});
  menu.Show("here");
  menu.ClickOn("button");
  EXPECT_EQ(menu.Menu().m_ui_state, GetParam().state);
  EXPECT_TRUE(AsksFor(menu.Find("button"), kClick));
}

INSTANTIATE_TEST_SUITE_P(ClickHandlers, PageChange, ValuesIn(kPageChanges),
                         [](const auto& row) { return std::string(row.param.click_name); });

TEST(ClickHandlers, TheDefaultSaysWhichButtonHasNone) {
  LevelScreen level({ButtonRecord("default", "ui_default")});
  Button& button = level.Of<Button>("button");
  EXPECT_EQ(OutputOf([&] { CallClickHandler(&button); }), "Button without a handler: button\n");
  EXPECT_FALSE(AsksFor(level.Find("button"), kClick));
}

TEST(ClickHandlers, ResumeTogglesThePause) {
  for (const bool paused : {true, false}) {
    LevelScreen level({ButtonRecord("ui_pause_resume", "ui_pause")});
    g_engine->paused = paused;
    level.Show("ui_pause");
    level.ClickOn("button");
    EXPECT_EQ(level.Controller().m_ui_state, "ui_default");
    EXPECT_EQ(g_engine->paused, !paused);
    EXPECT_TRUE(AsksFor(level.Find("button"), kClick));
  }
}

TEST(ClickHandlers, TheMusicSwitchMutesFirst) {
  LevelScreen level({ButtonRecord("ui_options_music", "ui_options")});
  level.Show("ui_options");
  const auto& groups = level.world.mixer.groups;
  level.ClickOn("button");
  EXPECT_FALSE(level.Controller().m_music_on);
  EXPECT_TRUE(groups.at(SoundGroup::kMusic).mute);
  level.ClickOn("button");
  EXPECT_TRUE(level.Controller().m_music_on);
  EXPECT_FALSE(groups.at(SoundGroup::kMusic).mute);
  EXPECT_TRUE(level.Controller().m_sfx_on);
  EXPECT_FALSE(AsksFor(level.Find("button"), kClick));
}

TEST(ClickHandlers, TheSwitchOfEffectsMutesFirst) {
  LevelScreen level({ButtonRecord("ui_options_sfx", "ui_options")});
  level.Show("ui_options");
  const auto& groups = level.world.mixer.groups;
  level.ClickOn("button");
  EXPECT_FALSE(level.Controller().m_sfx_on);
  EXPECT_TRUE(groups.at(SoundGroup::kEffects).mute);
  level.ClickOn("button");
  EXPECT_TRUE(level.Controller().m_sfx_on);
  EXPECT_FALSE(groups.at(SoundGroup::kEffects).mute);
  EXPECT_TRUE(level.Controller().m_music_on);
  EXPECT_FALSE(AsksFor(level.Find("button"), kClick));
}

TEST(ClickHandlers, ASwitchWithoutASpriteKeepsItsLooksAndSwitches) {
  LevelScreen level({Record("button", {{"Transform", carapace_test::TransformAt(0, 0)},
                                       {"Button", R"({"m_click_name": "ui_options_music",
        "m_usable_state": "ui_options", "m_default_tex": "a", "m_highlight_tex": "b",
        "m_click_tex": "c"})"}})});
  Button& button = level.Of<Button>("button");
  CallClickHandler(&button);
  EXPECT_FALSE(level.Controller().m_music_on);
  EXPECT_EQ(button.m_default_tex + button.m_highlight_tex + button.m_click_tex, "abc");
}

TEST(ClickHandlers, ASwitchExchangesItsLooks) {
  LevelScreen level({ButtonRecord("ui_options_music", "ui_options")});
  Button& button = level.Of<Button>("button");
  CallClickHandler(&button);
  EXPECT_EQ(button.m_click_tex, "rest");
  EXPECT_EQ(button.m_highlight_tex, "press");
  EXPECT_EQ(button.m_default_tex, "press");
  EXPECT_EQ(level.Sprite("button").m_tex, "press");
  CallClickHandler(&button);
  EXPECT_EQ(button.m_click_tex, "press");
  EXPECT_EQ(button.m_highlight_tex, "rest");
  EXPECT_EQ(button.m_default_tex, "rest");
  EXPECT_EQ(level.Sprite("button").m_tex, "rest");
}

TEST(ClickHandlers, QuitToMenuAsksTheController) {
  for (const char* name : {"ui_pause_quittomenu_yes", "ui_end_mainmenu"}) {
    LevelScreen level({ButtonRecord(name, "here")});
    g_engine->paused = true;
    level.Show("here");
    level.ClickOn("button");
    EXPECT_TRUE(level.Controller().m_quit_to_menu) << name;
    EXPECT_FALSE(g_engine->paused) << name;
    EXPECT_TRUE(AsksFor(level.Find("button"), kClick)) << name;
  }
}

TEST(ClickHandlers, QuitEndsTheProgram) {
  LevelScreen level({ButtonRecord("ui_quit_yes", "ui_quit_confirm")});
  level.Show("ui_quit_confirm");
  level.ClickOn("button");
  EXPECT_FALSE(g_engine->running);
  EXPECT_TRUE(AsksFor(level.Find("button"), kClick));
}

TEST(ClickHandlers, QuitInTheMenuEndsTheProgram) {
  MenuScreen menu({ButtonRecord("menu_quit_yes", "menu_quit")});
  menu.Show("menu_quit");
  menu.ClickOn("button");
  EXPECT_FALSE(g_engine->running);
  EXPECT_TRUE(AsksFor(menu.Find("button"), kClick));
}

TEST(ClickHandlers, RestartEndsAPause) {
  LevelScreen level({ButtonRecord("ui_end_restart", "ui_level_end")});
  g_engine->paused = true;
  level.Show("ui_level_end");
  level.ClickOn("button");
  EXPECT_TRUE(level.Controller().m_restart);
  EXPECT_FALSE(g_engine->paused);
  EXPECT_TRUE(AsksFor(level.Find("button"), kClick));
}

std::string PathOf(const std::string& level) {
  return "Level Editor/Levels/" + level + "/" + level + ".json";
}

TEST(ClickHandlers, TheNextLevelFollowsAndTheLastLeadsToTheFirst) {
  const std::vector<std::pair<std::string, std::string>> order = {{"Level00", "Level01"},
                                                                  {"Level01", "Level02"},
                                                                  {"Level02", "Level03"},
                                                                  {"Level03", "Level04"},
                                                                  {"Level04", "Level01"}};
  LevelScreen level({ButtonRecord("ui_end_gotonext", "ui_level_end")});
  for (const auto& [current, next] : order) {
    g_current_level_path = PathOf(current);
    level.Controller().m_restart = false;
    CallClickHandler(&level.Of<Button>("button"));
    EXPECT_EQ(g_current_level_path, PathOf(next));
    EXPECT_EQ(level.Controller().m_level_map, PathOf(next));
    EXPECT_TRUE(level.Controller().m_restart);
    EXPECT_TRUE(AsksFor(level.Find("button"), kClick));
  }
}

TEST(ClickHandlers, TheNextLevelDoesNotWaitForTheEndOfAPause) {
  LevelScreen level({ButtonRecord("ui_end_gotonext", "ui_level_end")});
  g_engine->paused = true;
  CallClickHandler(&level.Of<Button>("button"));
  EXPECT_TRUE(level.Controller().m_restart);
  EXPECT_FALSE(g_engine->paused) << "a lost focus pauses the end of a level, too";
}

TEST(ClickHandlers, AfterAnUnknownLevelItStartsAnew) {
  LevelScreen level({ButtonRecord("ui_end_gotonext", "ui_level_end")});
  g_current_level_path = "Mine.json";
  level.Controller().m_level_map = "Map.json";
  CallClickHandler(&level.Of<Button>("button"));
  EXPECT_EQ(g_current_level_path, "Mine.json");
  EXPECT_EQ(level.Controller().m_level_map, "Map.json");
  EXPECT_TRUE(level.Controller().m_restart);
}

TEST(ClickHandlers, ALevelIsLaunchedOnceHoweverOftenItIsClicked) {
  for (int number = 1; number <= 4; ++number) {
    const std::string end = std::to_string(number);
    MenuScreen menu({ButtonRecord("menu_level_0" + end, "menu_level_select")});
    menu.Show("menu_level_select");
    menu.ClickOn("button");
    menu.ClickOn("button");
    EXPECT_TRUE(menu.Menu().m_launch);
    EXPECT_EQ(menu.Menu().m_level_path, PathOf("Level0" + end));
    EXPECT_TRUE(AsksFor(menu.Find("button"), kClick));
  }
}

TEST(ClickHandlers, WithoutAControllerTheyLeaveTheScreenAlone) {
  Stage stage;
  stage.world.LoadObjects(ButtonRecord("default", "here"));
  const std::string path = g_current_level_path;
  for (const std::int32_t state : {kDefaultState, kMainMenuState}) {
    g_state_machine->m_current = g_state_machine->m_next = state;
    for (const auto& [name, handler] : ClickHandlers()) {
      OutputOf([&, call = handler] { call(&stage.Of<Button>("button")); });
      EXPECT_EQ(stage.Of<Render>("button").m_tex, "rest") << name;
      EXPECT_EQ(g_state_machine->m_next, state) << name;
      EXPECT_EQ(g_current_level_path, path) << name;
    }
  }
}

// The glossary

/// The glossary's image and tabs; `prefix` begins their names.
std::vector<std::string> Glossary(const std::string& prefix) {
  return {PieceRecord(prefix + "_img", {}),
          ButtonRecord(prefix + "_weapons", "here", {}, prefix + "_weapons"),
          ButtonRecord(prefix + "_enviro", "here", {}, prefix + "_enviro")};
}

template <class Screen>
void ExpectTabs(const Screen& screen, const std::string& prefix, const std::string& page,
                const std::pair<std::string, std::string>& weapons,
                const std::pair<std::string, std::string>& surroundings) {
  EXPECT_EQ(screen.Sprite(prefix + "_img").m_tex, page);
  const Button& left = screen.template Of<Button>(prefix + "_weapons");
  EXPECT_EQ(std::pair(left.m_default_tex, left.m_highlight_tex), weapons);
  const Button& right = screen.template Of<Button>(prefix + "_enviro");
  EXPECT_EQ(std::pair(right.m_default_tex, right.m_highlight_tex), surroundings);
}

template <class Screen>
void ExpectPages(const Screen& screen, const std::string& prefix) {
  CallClickHandler(&screen.template Of<Button>(prefix + "_enviro"));
  ExpectTabs(screen, prefix, "Glossary_Pg2Environment_B",
             {"Glossary_WeaponsDefault", "Glossary_WeaponsHover"},
             {"Glossary_EnviroSelected", "Glossary_EnviroSelected"});
  CallClickHandler(&screen.template Of<Button>(prefix + "_weapons"));
  ExpectTabs(screen, prefix, "Glossary_Pg1Weapons",
             {"Glossary_WeaponsSelected", "Glossary_WeaponsSelected"},
             {"Glossary_EnviroDefault", "Glossary_EnviroHover"});
  EXPECT_TRUE(AsksFor(screen.Find(prefix + "_weapons"), kClick));
}

TEST(ClickHandlers, TheGlossaryOfAPauseHasTwoPages) {
  const LevelScreen level(Glossary("ui_pause_glossary"));
  ExpectPages(level, "ui_pause_glossary");
}

TEST(ClickHandlers, TheGlossaryOfAPauseMayLieBesideItsTabsBelowTheCamera) {
  const LevelScreen level(
      {Record("camera", {{"Transform", TransformAt(0, 0)}}, Glossary("ui_pause_glossary"))});
  ExpectPages(level, "ui_pause_glossary");
}

TEST(ClickHandlers, TheGlossaryOfTheMenuMayLieBesideItsTabsToo) {
  const MenuScreen menu(
      {Record("camera", {{"Transform", TransformAt(0, 0)}}, Glossary("menu_glossary"))});
  ExpectPages(menu, "menu_glossary");
}

TEST(ClickHandlers, TheTabOfSurroundingsAsksForAMisspeltSoundInAPause) {
  const LevelScreen level(Glossary("ui_pause_glossary"));
  CallClickHandler(&level.Of<Button>("ui_pause_glossary_enviro"));
  EXPECT_TRUE(AsksFor(level.Find("ui_pause_glossary_enviro"), "button_click.pgg"));
  EXPECT_FALSE(AsksFor(level.Find("ui_pause_glossary_enviro"), kClick));
}

TEST(ClickHandlers, TheGlossaryOfTheMenuHasTwoPagesAndRightClicks) {
  const MenuScreen menu(Glossary("menu_glossary"));
  ExpectPages(menu, "menu_glossary");
  EXPECT_TRUE(AsksFor(menu.Find("menu_glossary_enviro"), kClick));
}

}  // namespace
}  // namespace ZOVEngine
