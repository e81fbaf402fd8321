#include "ui/buttons/button.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/engine.h"
#include "platform/virtualkeys.h"
#include "support/reports.h"
#include "ui/elements/uielement.h"
#include "ui/interfaceworlds.h"

namespace ZOVEngine {
namespace {

using carapace_test::AsksFor;
using carapace_test::ButtonRecord;
using carapace_test::ElementRecord;
using carapace_test::LevelScreen;
using carapace_test::MenuScreen;
using carapace_test::OutputOf;
using carapace_test::PieceRecord;
using carapace_test::ReadRecord;
using carapace_test::Record;
using carapace_test::RecordOf;
using carapace_test::RenderOf;
using carapace_test::Stage;

/// A level with one button "button" of 300 by 100 at (200, 100), which opens the options.
LevelScreen OptionsButton(const std::string& state = "ui_default") {
  return LevelScreen({ButtonRecord("ui_pause_options", state, {200, 100, 300, 100})});
}

TEST(Button, ANewOneHasItsDefaults) {
  const Button button(nullptr);
  EXPECT_FALSE(button.m_hover || button.m_clicked);
  EXPECT_FALSE(button.m_end_fade_started || button.m_end_fade_done);
  EXPECT_EQ(button.m_dt, 0.0f);
  for (const std::string& texture :
       {button.m_default_tex, button.m_highlight_tex, button.m_click_tex}) {
    EXPECT_EQ(texture, "default");
  }
  EXPECT_EQ(button.m_click_name, "default");
  EXPECT_EQ(button.m_usable_state, "ui_default");
}

TEST(Button, ItsNameStateAndTexturesAreInItsFile) {
  Button button(nullptr);
  EXPECT_EQ(OutputOf([&] { ReadRecord("{}", button); }),
            "Cant find Key: m_click_name\nCant find Key: m_usable_state\n"
            "Cant find Key: m_default_tex\nCant find Key: m_highlight_tex\n"
            "Cant find Key: m_click_tex\n");
  const std::string record =
      "{\n    \"m_click_name\": \"ui_quit_yes\",\n    \"m_usable_state\": \"ui_quit_confirm\",\n"
      "    \"m_default_tex\": \"a\",\n    \"m_highlight_tex\": \"b\",\n    \"m_click_tex\": "
      "\"c\"\n}";
  ReadRecord(record, button);
  EXPECT_EQ(RecordOf(button), record);
}

TEST(Button, DestroyIsPrinted) {
  Button button(nullptr);
  EXPECT_EQ(OutputOf([&] { button.Destroy(); }), "Button Destroy\n");
}

TEST(Button, IsSeenInItsStateOnly) {
  LevelScreen level = OptionsButton("ui_pause");
  level.Update<Button>("button");
  EXPECT_FALSE(level.Sprite("button").m_visible);
  level.Show("ui_pause");
  level.Update<Button>("button");
  EXPECT_TRUE(level.Sprite("button").m_visible);
  level.Show("ui_options");
  level.Update<Button>("button");
  EXPECT_FALSE(level.Sprite("button").m_visible);
}

TEST(Button, IsDeadInTheEditor) {
  LevelScreen level = OptionsButton();
  g_state_machine->m_current = kLevelEditorState;
  level.Update<Button>("button");
  g_state_machine->m_current = kDefaultState;
  EXPECT_FALSE(level.Sprite("button").m_visible);
}

TEST(Button, KeyHintsAreSeenInEveryState) {
  for (const char* hint : {"ui_skip", "ui_cycle_left", "ui_cycle_right", "ui_undo"}) {
    LevelScreen level({ButtonRecord(hint, "never")});
    for (const char* state : {"ui_default", "ui_pause", "ui_level_end"}) {
      level.Show(state);
      level.Sprite("button").m_visible = false;
      level.Update<Button>("button");
      EXPECT_TRUE(level.Sprite("button").m_visible) << hint << " in " << state;
    }
  }
}

TEST(Button, KeyHintsDoNothingWhenPressed) {
  LevelScreen level({ButtonRecord("ui_skip", "never")});
  level.ClickOn("button");
  EXPECT_FALSE(level.Of<Button>("button").m_hover);
  EXPECT_EQ(level.Controller().m_ui_state, "ui_default");
}

TEST(Button, TheMouseOverItLightsItUp) {
  LevelScreen level = OptionsButton();
  level.Derive();
  level.PointAt(200, 100);
  level.Update<Button>("button");
  EXPECT_TRUE(level.Of<Button>("button").m_hover);
  EXPECT_EQ(level.Sprite("button").m_tex, "hover");
  level.PointAt(0, 100);
  level.Update<Button>("button");
  EXPECT_FALSE(level.Of<Button>("button").m_hover);
  EXPECT_EQ(level.Sprite("button").m_tex, "rest");
}

/// Whether a button of 300 by 100 at (0, 0) is under the mouse at (x, y).
bool Hovers(LevelScreen& level, int x, int y) {
  level.PointAt(x, y);
  level.Update<Button>("button");
  return level.Of<Button>("button").m_hover;
}

TEST(Button, TheTargetIsItsWidthAndFourFifthsOfItsHeight) {
  LevelScreen level({ButtonRecord("default", "ui_default", {0, 0, 300, 90})});
  level.Derive();
  EXPECT_TRUE(Hovers(level, 150, 0));
  EXPECT_TRUE(Hovers(level, -150, 0));
  EXPECT_FALSE(Hovers(level, 153, 0));
  EXPECT_TRUE(Hovers(level, 0, 36));
  EXPECT_TRUE(Hovers(level, 0, -36));
  EXPECT_FALSE(Hovers(level, 0, 39));
  EXPECT_FALSE(Hovers(level, 0, -39));
}

TEST(Button, AMirroredOneHasTheSameTarget) {
  LevelScreen level({ButtonRecord("default", "ui_default", {0, 0, -300, -90})});
  level.Derive();
  EXPECT_TRUE(Hovers(level, 150, 36));
  EXPECT_FALSE(Hovers(level, 153, 0));
  EXPECT_FALSE(Hovers(level, 0, 39));
}

TEST(Button, TheCameraPlaysNoPart) {
  LevelScreen level = OptionsButton();
  level.Derive();
  level.Of<Transform>("view").m_world_pos = Vector3D(500, 300, 1);
  EXPECT_TRUE(Hovers(level, 200, 100));
}

TEST(Button, ThePressShowsForOneStepAndTheReleaseActs) {
  LevelScreen level = OptionsButton();
  level.Derive();
  Hovers(level, 200, 100);
  level.Click(0, 1);
  EXPECT_EQ(level.Controller().m_ui_state, "ui_default");
  level.Update<Button>("button");
  EXPECT_EQ(level.Sprite("button").m_tex, "press");
  level.Update<Button>("button");
  EXPECT_EQ(level.Sprite("button").m_tex, "hover");
  level.Click(0, 0);
  EXPECT_EQ(level.Controller().m_ui_state, "ui_options");
}

TEST(Button, APressOutsideAndAReleaseInsideAct) {
  LevelScreen level = OptionsButton();
  level.Derive();
  Hovers(level, -400, 0);
  level.Controller().m_state = TURN_ENEMY_NEXT;
  level.Click(0, 1);
  EXPECT_FALSE(level.Of<Button>("button").m_clicked);
  Hovers(level, 200, 100);
  level.Click(0, 0);
  EXPECT_EQ(level.Controller().m_ui_state, "ui_options");
}

TEST(Button, HeldDownItKeepsTheMouseAndAReleaseOutsideActs) {
  LevelScreen level = OptionsButton();
  level.Derive();
  Hovers(level, 200, 100);
  for (int step = 0; step < 3; ++step) {
    level.Click(0, 1);
    EXPECT_TRUE(Hovers(level, -400, 0)) << "the mouse is not looked at in the step of a press";
    EXPECT_EQ(level.Sprite("button").m_tex, "press");
  }
  level.Click(0, 0);
  EXPECT_EQ(level.Controller().m_ui_state, "ui_options");
}

TEST(Button, AnotherScreenEndsAPress) {
  LevelScreen level = OptionsButton();
  level.Derive();
  Hovers(level, 200, 100);
  level.Click(0, 1);
  level.Show("ui_pause");
  level.Update<Button>("button");
  EXPECT_FALSE(level.Of<Button>("button").m_clicked);
  EXPECT_EQ(level.Sprite("button").m_tex, "rest");
}

TEST(Button, TheRightButtonDoesNothing) {
  LevelScreen level = OptionsButton();
  level.Derive();
  Hovers(level, 200, 100);
  level.Click(1, 1);
  level.Click(1, 0);
  EXPECT_FALSE(level.Of<Button>("button").m_clicked);
  EXPECT_EQ(level.Controller().m_ui_state, "ui_default");
}

TEST(Button, OtherMessagesDoNothing) {
  LevelScreen level = OptionsButton();
  level.Derive();
  Hovers(level, 200, 100);
  level.world.Send(MouseMoving({0, 0, 1}));
  level.world.Send(KeyUp(65));
  EXPECT_FALSE(level.Of<Button>("button").m_clicked);
}

TEST(Button, InAnotherStateItNeitherHoversNorActsAndComesBackUntouched) {
  LevelScreen level = OptionsButton();
  level.Derive();
  Hovers(level, 200, 100);
  level.Show("ui_pause");
  level.Click(0, 0);
  EXPECT_EQ(level.Controller().m_ui_state, "ui_pause");
  EXPECT_FALSE(Hovers(level, 200, 100));
  EXPECT_EQ(level.Sprite("button").m_tex, "rest");
  level.Show("ui_default");
  level.Click(0, 0);
  EXPECT_EQ(level.Controller().m_ui_state, "ui_default");
}

TEST(Button, TwoThatOverlapBothAct) {
  LevelScreen level({ButtonRecord("ui_options_music", "ui_default", {}, "music"),
                     ButtonRecord("ui_options_sfx", "ui_default", {}, "effects")});
  level.Derive();
  level.PointAt(0, 0);
  level.Update<Button>("music");
  level.Update<Button>("effects");
  level.Click(0, 0);
  EXPECT_FALSE(level.Controller().m_music_on);
  EXPECT_FALSE(level.Controller().m_sfx_on);
}

TEST(Button, TheSecondOfTwoSeesTheStateThatTheFirstHasLeft) {
  LevelScreen level({ButtonRecord("ui_pause_options", "ui_pause", {}, "first"),
                     ButtonRecord("ui_pause_quit", "ui_pause", {}, "second")});
  level.Derive();
  level.Show("ui_pause");
  level.PointAt(0, 0);
  level.Update<Button>("first");
  level.Update<Button>("second");
  level.Click(0, 0);
  EXPECT_EQ(level.Controller().m_ui_state, "ui_options");
  EXPECT_FALSE(level.Of<Button>("second").m_clicked);
}

/// The interface state of a level, and whether it is paused.
struct ScreenState {
  const char* screen;
  bool paused;
};

TEST(Button, EscapeInTheStepOfAReleaseComesFirst) {
  constexpr ScreenState kInPlay = {"ui_default", false};
  constexpr ScreenState kInPause = {"ui_pause", true};
  for (const auto& [from, to] : {std::pair(kInPlay, kInPause), std::pair(kInPause, kInPlay)}) {
    LevelScreen level({ButtonRecord("ui_pause_resume", from.screen, {200, 100})});
    level.Controller().m_state = TURN_LEVEL_END;  // where no click fires
    level.Show(from.screen);
    g_engine->paused = from.paused;
    level.Derive();
    level.PointAt(200, 100);
    level.world.native.Press(kVkLeftButton);
    level.Step(2);
    ASSERT_EQ(level.Sprite("button").m_tex, "press");
    level.world.native.Push(NativeEventKind::kKeyUp, kVkEscape);
    level.world.native.Release(kVkLeftButton);
    level.Step();
    EXPECT_EQ(level.Controller().m_ui_state, to.screen);
    EXPECT_EQ(g_engine->paused, to.paused) << "toggled once";
  }
}

TEST(Button, ANameWithoutAHandlerDoesNothing) {
  LevelScreen level({ButtonRecord("no such name", "ui_default")});
  level.ClickOn("button");
  EXPECT_TRUE(level.Of<Button>("button").m_clicked);
  EXPECT_EQ(level.Controller().m_ui_state, "ui_default");
}

TEST(Button, WithoutARenderItStaysAsItIs) {
  LevelScreen level({Record("button", {{"Transform", carapace_test::TransformAt(0, 0)},
                                       {"Button", R"({"m_click_name": "ui_pause_options",
        "m_usable_state": "ui_default", "m_default_tex": "", "m_highlight_tex": "",
        "m_click_tex": ""})"}})});
  level.ClickOn("button");
  EXPECT_FALSE(level.Of<Button>("button").m_hover);
  EXPECT_EQ(level.Of<Button>("button").m_dt, kStep);
  EXPECT_EQ(level.Controller().m_ui_state, "ui_default");
}

TEST(Button, WithoutATransformItIsNeverUnderTheMouse) {
  Stage stage;
  stage.world.LoadObjects(
      Record("button", {{"Render", RenderOf()}, {"Button", R"({"m_click_name": "menu_level_01",
        "m_usable_state": "", "m_default_tex": "a", "m_highlight_tex": "b", "m_click_tex": "c"})"}}));
  stage.PointAt(0, 0);
  stage.Of<Button>("button").Update(kStep);
  EXPECT_FALSE(stage.Of<Button>("button").m_hover);
  EXPECT_EQ(stage.Of<Render>("button").m_tex, "a");
}

TEST(Button, TheTextureAtRestComesFromItsFileAndNotFromItsSprite) {
  LevelScreen level({ButtonRecord("default", "ui_default", {500, 0}, "button", RenderOf("other"))});
  level.Derive();
  level.Update<Button>("button");
  EXPECT_EQ(level.Sprite("button").m_tex, "rest");
  EXPECT_FALSE(level.Of<Button>("button").m_init);
}

TEST(Button, InitTakesTheTextureOfTheSprite) {
  LevelScreen level = OptionsButton();
  level.Sprite("button").m_tex = "other";
  level.Of<Button>("button").Init();
  EXPECT_TRUE(level.Of<Button>("button").m_init);
  EXPECT_EQ(level.Of<Button>("button").m_default_tex, "other");
}

TEST(Button, InitForgetsTheFadeOfAnEarlierEnd) {
  LevelScreen level = OptionsButton();
  Button& button = level.Of<Button>("button");
  button.m_end_fade_started = button.m_end_fade_done = true;
  button.Init();
  EXPECT_FALSE(button.m_end_fade_started || button.m_end_fade_done);
}

TEST(Button, APressShowsAlsoWithoutTheMouse) {
  LevelScreen level = OptionsButton();
  level.Of<Button>("button").m_clicked = true;
  level.Update<Button>("button");
  EXPECT_EQ(level.Sprite("button").m_tex, "press");
}

TEST(Button, LivesOnInAPause) {
  LevelScreen level({ButtonRecord("ui_pause_options", "ui_pause", {200, 100})});
  g_engine->paused = true;
  level.Show("ui_pause");
  level.PointAt(200, 100);
  level.world.Step();
  EXPECT_TRUE(level.Of<Button>("button").m_hover);
}

// The level's end

LevelScreen EndButtons() {
  return LevelScreen({ButtonRecord("ui_end_mainmenu", "ui_level_end", {1, 2}, "menu"),
                      ButtonRecord("ui_end_restart", "ui_level_end", {3, 4}, "restart"),
                      ButtonRecord("ui_end_gotonext", "ui_level_end", {5, 6}, "next"),
                      ButtonRecord("default", "ui_level_end", {7, 8}, "other")});
}

void ExpectAt(const LevelScreen& level, const std::string& name, float x, float y) {
  carapace_test::ExpectNear(level.Of<Transform>(name).m_local_pos, x, y);
}

TEST(Button, ADefeatOffersNoWayOn) {
  LevelScreen level = EndButtons();
  level.Kill("p");
  level.Show("ui_level_end");
  for (const char* name : {"menu", "restart", "next", "other"}) level.Update<Button>(name);
  ExpectAt(level, "menu", 0, -190);
  ExpectAt(level, "restart", 0, -70);
  ExpectAt(level, "next", 10000, -70);
  ExpectAt(level, "other", 7, 8);
  level.Of<Transform>("next").m_local_pos.x = 0;
  level.Update<Button>("next");
  ExpectAt(level, "next", 10000, -70);
}

TEST(Button, TheLayoutOfTheLevelStaysWhileBothSidesLive) {
  LevelScreen level = EndButtons();
  level.Show("ui_level_end");
  for (const char* name : {"menu", "restart", "next"}) level.Update<Button>(name);
  ExpectAt(level, "menu", 1, 2);
  ExpectAt(level, "restart", 3, 4);
  ExpectAt(level, "next", 5, 6);
}

TEST(Button, AVictoryAndADrawLeaveTheLayoutOfTheLevel) {
  for (const bool draw : {false, true}) {
    LevelScreen level = EndButtons();
    level.Kill("e");
    if (draw) level.Kill("p");
    level.Show("ui_level_end");
    for (const char* name : {"menu", "restart", "next"}) level.Update<Button>(name);
    ExpectAt(level, "menu", 1, 2);
    ExpectAt(level, "restart", 3, 4);
    ExpectAt(level, "next", 5, 6);
  }
}

TEST(Button, FadesInAfterTheBannerInHalfASecond) {
  LevelScreen level(
      {ButtonRecord("ui_end_restart", "ui_level_end", {}, "button", RenderOf("rest", 0.0f))});
  float& alpha = level.Sprite("button").m_colour[3];
  level.Kill("e");
  level.Show("ui_level_end");
  level.Controller().m_banner_done = true;
  level.Update<Button>("button");
  EXPECT_FALSE(level.Of<Button>("button").m_end_fade_started);
  level.Controller().m_state = TURN_LEVEL_END;
  level.Controller().m_banner_done = false;
  level.Update<Button>("button");
  EXPECT_FALSE(level.Of<Button>("button").m_end_fade_started);
  level.Controller().m_banner_done = true;
  level.Update<Button>("button");
  EXPECT_EQ(alpha, 0.0f);
  level.Update<Button>("button", 29);
  EXPECT_LT(alpha, 1.0f);
  level.Update<Button>("button", 2);
  EXPECT_EQ(alpha, 1.0f);
  EXPECT_TRUE(level.Of<Button>("button").m_end_fade_done);
}

TEST(Button, TheFadeIsOverAtExactlyFullAlpha) {
  LevelScreen level(
      {ButtonRecord("ui_end_restart", "ui_level_end", {}, "button", RenderOf("rest", 0.5f))});
  level.Show("ui_level_end");
  level.Controller().m_state = TURN_LEVEL_END;
  level.Controller().m_banner_done = true;
  Button& button = level.Of<Button>("button");
  button.m_end_fade_started = true;
  button.Update(0.25f);
  EXPECT_EQ(level.Alpha("button"), 1.0f);
  EXPECT_TRUE(button.m_end_fade_done);
}

// The menu

TEST(Button, AMouseOverALevelShowsItsPreview) {
  for (int number = 1; number <= 4; ++number) {
    const std::string name = "menu_level_0" + std::to_string(number);
    MenuScreen menu({ButtonRecord(name, "menu_level_select"),
                     ElementRecord("menu_levelselect_preview", "menu_levelselect_preview"),
                     ElementRecord("menu_levelselect_preview", "menu_title"),
                     ElementRecord("other", "menu_levelselect_preview")});
    menu.Show("menu_level_select");
    menu.PointAt(0, 0);
    menu.Update<Button>("button");
    EXPECT_EQ(menu.Sprite("menu_levelselect_preview").m_tex,
              "Menu_Preview_Level0" + std::to_string(number));
    EXPECT_EQ(menu.Find("menu")->children[2]->GetComponent<Render>()->m_tex, "rest");
    EXPECT_EQ(menu.Sprite("other").m_tex, "rest");
  }
}

TEST(Button, APreviewWithoutASpriteIsNoFault) {
  MenuScreen menu(
      {ButtonRecord("menu_level_01", "menu_level_select"),
       Record("menu_levelselect_preview",
              {{"UIElement", R"({"m_ui_element_name": "menu_levelselect_preview"})"}})});
  menu.Show("menu_level_select");
  menu.PointAt(0, 0);
  menu.Update<Button>("button");
  EXPECT_EQ(menu.Sprite("button").m_tex, "hover");
}

TEST(Button, OfALevelWithoutAParentShowsNoPreview) {
  Stage stage;
  stage.world.LoadObjects(ButtonRecord("menu_level_01", ""));
  stage.Derive();
  stage.PointAt(0, 0);
  stage.Of<Button>("button").Update(kStep);
  EXPECT_EQ(stage.Of<Render>("button").m_tex, "hover");
}

TEST(Button, OthersShowNoPreview) {
  MenuScreen menu({ButtonRecord("menu_level_back", "menu_level_select"),
                   ElementRecord("menu_levelselect_preview", "menu_levelselect_preview")});
  menu.Show("menu_level_select");
  menu.PointAt(0, 0);
  menu.Update<Button>("button");
  EXPECT_TRUE(menu.Of<Button>("button").m_hover);
  EXPECT_EQ(menu.Sprite("menu_levelselect_preview").m_tex, "rest");
}

}  // namespace
}  // namespace ZOVEngine
