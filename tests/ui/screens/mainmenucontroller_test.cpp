#include "ui/screens/mainmenucontroller.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "core/engine.h"
#include "core/messages.h"
#include "support/levelgame.h"
#include "support/reports.h"
#include "ui/interfaceworlds.h"
#include "ui/screens/splashcontroller.h"

namespace ZOVEngine {
namespace {

using carapace_test::AsksFor;
using carapace_test::ButtonRecord;
using carapace_test::MenuScreen;
using carapace_test::OutputOf;
using carapace_test::PieceRecord;
using carapace_test::Record;
using carapace_test::RenderOf;
using carapace_test::Stage;
using carapace_test::World;
using ::testing::ElementsAre;

const std::vector<std::string> kFading = {"menu_play", "menu_howtoplay", "menu_glossary",
                                          "menu_quit", "menu_credits"};

/// The title at this height, below the menu's root.
std::string TitleAt(float y) {
  return PieceRecord("game_logo", {}, {0, y});
}

/// The menu's first step, and `steps` more, of the controller alone.
void Advance(const MenuScreen& menu, int steps) {
  menu.Update<MainMenuController>("menu", steps);
}

TEST(MainMenu, ANewOneHasItsDefaults) {
  const MainMenuController menu(nullptr);
  EXPECT_EQ(menu.m_ui_state, "menu_slide");
  EXPECT_FALSE(menu.m_launch || menu.m_slide_done || menu.m_buttons_done);
  EXPECT_EQ(menu.m_level_path, "Level Editor/Levels/Level01/Level01.json");
}

TEST(MainMenu, ItBeginsWithTheSlideAndItsMusic) {
  const MenuScreen menu({TitleAt(0)});
  EXPECT_EQ(menu.Menu().m_ui_state, "menu_slide");
  EXPECT_EQ(menu.Menu().m_level_path, "Level Editor/Levels/Level01/Level01.json");
  menu.Menu().m_init = false;
  carapace_test::Hush(menu.Find("menu"));
  Advance(menu, 1);
  EXPECT_TRUE(AsksFor(menu.Find("menu"), "maintheme01.ogg"));
}

TEST(MainMenu, TheKeyThatLeftTheSplashIsAnsweredWithAClickAndAReturnIsNot) {
  for (const bool entered : {true, false}) {
    g_menu_entry_click = entered;
    const MenuScreen menu({});
    EXPECT_EQ(AsksFor(menu.Find("menu"), "button_click.ogg"), entered);
  }
  g_menu_entry_click = false;
}

TEST(MainMenu, AnInitStartsEverythingOver) {
  const MenuScreen menu({});
  MainMenuController& controller = menu.Menu();
  controller.m_ui_state = "menu_quit";
  controller.m_launch = controller.m_slide_done = controller.m_buttons_done = true;
  controller.m_level_path = "other";
  controller.Init();
  EXPECT_EQ(controller.m_ui_state, "menu_slide");
  EXPECT_FALSE(controller.m_launch || controller.m_slide_done || controller.m_buttons_done);
  EXPECT_EQ(controller.m_level_path, "Level Editor/Levels/Level01/Level01.json");
}

TEST(MainMenu, TheGlossarysExamplesStartAsleep) {
  const MenuScreen menu({PieceRecord("EnvDestructible", {}), PieceRecord("EnvDamage", {}),
                         PieceRecord("EnvBlackhole", {}), PieceRecord("EnvOther", {})});
  for (const char* name : {"EnvDestructible", "EnvDamage", "EnvBlackhole"}) {
    EXPECT_FALSE(menu.Find(name)->active) << name;
  }
  EXPECT_TRUE(menu.Find("EnvOther")->active);
}

TEST(MainMenu, TheTitleRisesAt170UnitsASecondAndStopsAt200) {
  const MenuScreen menu({TitleAt(200 - 170)});
  Transform& title = menu.Of<Transform>("game_logo");
  title.m_local_pos.y = 30.0f;
  Advance(menu, 30);
  EXPECT_NEAR(title.m_local_pos.y, 115.0f, 1e-2f);
  EXPECT_EQ(menu.Menu().m_ui_state, "menu_slide");
  Advance(menu, 29);
  EXPECT_FALSE(menu.Menu().m_slide_done);
  Advance(menu, 3);
  EXPECT_EQ(title.m_local_pos.y, 200.0f);
  EXPECT_TRUE(menu.Menu().m_slide_done);
  EXPECT_EQ(menu.Menu().m_ui_state, "menu_default");
}

TEST(MainMenu, ATitleAtExactly200StillRises) {
  const MenuScreen menu({TitleAt(200)});
  Transform& title = menu.Of<Transform>("game_logo");
  title.m_local_pos.y = 200.0f;
  menu.Menu().m_slide_done = false;
  Advance(menu, 1);
  EXPECT_GT(title.m_local_pos.y, 200.0f);
  EXPECT_FALSE(menu.Menu().m_slide_done);
}

/// A button of the first page, not yet faded in.
std::string PlayButton() {
  return ButtonRecord("menu_play", "menu_default", {}, "menu_play", RenderOf("rest", 0.0f));
}

TEST(MainMenu, WithoutATitleItStaysShutAndItsButtonsHiddenAndDead) {
  MenuScreen menu({PlayButton()});
  Advance(menu, 600);
  menu.ClickOn("menu_play");
  EXPECT_EQ(menu.Menu().m_ui_state, "menu_slide");
  EXPECT_EQ(menu.Alpha("menu_play"), 0.0f);
  EXPECT_FALSE(menu.Sprite("menu_play").m_visible);
}

TEST(MainMenu, ButtonsThatStillFadeAreNotSeenOnAnotherPage) {
  MenuScreen menu({TitleAt(300), PlayButton()});
  menu.Step(5);
  EXPECT_TRUE(menu.Sprite("menu_play").m_visible);
  menu.ClickOn("menu_play");
  menu.Step();
  EXPECT_EQ(menu.Menu().m_ui_state, "menu_level_select");
  EXPECT_FALSE(menu.Menu().m_buttons_done);
  EXPECT_FALSE(menu.Sprite("menu_play").m_visible);
}

TEST(MainMenu, TheButtonsFadeInToTwiceTheirAlpha) {
  std::vector<std::string> pieces = {TitleAt(300)};
  for (const std::string& name : kFading) {
    pieces.push_back(PieceRecord(name, {}, {}, RenderOf("rest", 0.0f)));
  }
  pieces.push_back(PieceRecord("menu_level_01", {}, {}, RenderOf("rest", 0.0f)));
  const MenuScreen menu(pieces);
  for (const std::string& name : kFading) {
    menu.Alpha(name) = 0.0f;
    menu.Sprite(name).m_visible = false;
  }
  Advance(menu, 15);
  for (const std::string& name : kFading) {
    EXPECT_TRUE(menu.Sprite(name).m_visible) << name;
    EXPECT_NEAR(menu.Alpha(name), 1.0f, 1e-3f) << name;
  }
  EXPECT_FALSE(menu.Menu().m_buttons_done);
  Advance(menu, 17);
  for (const std::string& name : kFading) EXPECT_EQ(menu.Alpha(name), 2.0f) << name;
  EXPECT_TRUE(menu.Menu().m_buttons_done);
  EXPECT_EQ(menu.Alpha("menu_level_01"), 0.0f);
}

TEST(MainMenu, TheFadeIsOverAtExactlyTwiceTheAlphaAndThenLeavesTheButtonsAlone) {
  const MenuScreen menu({PlayButton()});
  menu.Menu().m_slide_done = true;
  menu.Alpha("menu_play") = 2.0f;
  Advance(menu, 1);
  EXPECT_TRUE(menu.Menu().m_buttons_done);
  menu.Alpha("menu_play") = 0.5f;
  Advance(menu, 1);
  EXPECT_EQ(menu.Alpha("menu_play"), 0.5f);
}

TEST(MainMenu, AButtonWithoutASpriteIsNoFault) {
  const MenuScreen menu({Record("menu_play", {}), PieceRecord("menu_quit", {})});
  menu.Menu().m_slide_done = true;
  menu.Alpha("menu_quit") = 0.0f;
  Advance(menu, 1);
  EXPECT_GT(menu.Alpha("menu_quit"), 0.0f);
}

TEST(MainMenu, ItAnswersOnlyTheQueryForItself) {
  const MenuScreen menu({});
  CurrMC query;
  query.objectId = 77;
  menu.Menu().OnMessage(&query);
  EXPECT_EQ(query.objectId, menu.Find("menu")->id);
  CurrGC other;
  other.objectId = 77;
  menu.Menu().OnMessage(&other);
  EXPECT_EQ(other.objectId, 77u);
}

TEST(MainMenu, ALaunchedLevelStartsInTheNextStep) {
  MenuScreen menu({TitleAt(0)});
  menu.Menu().LaunchLevel("Some level.json");
  EXPECT_TRUE(menu.Menu().m_launch);
  EXPECT_EQ(g_state_machine->m_next, kMainMenuState);
  Advance(menu, 1);
  EXPECT_EQ(g_current_level_path, "Some level.json");
  EXPECT_EQ(g_state_machine->m_next, kDefaultState);
  EXPECT_EQ(menu.world.Find("menu"), nullptr);
  g_current_level_path = "Level Editor/Levels/Level01/Level01.json";
}

TEST(MainMenu, WithoutASourceItLaunchesInSilence) {
  Stage stage;
  stage.world.LoadObjects(Record("menu", {{"MainMenuController", "{}"}}));
  auto& menu = stage.Of<MainMenuController>("menu");
  menu.Init();
  menu.LaunchLevel("Level Editor/Levels/Level01/Level01.json");
  menu.Update(kStep);
  EXPECT_EQ(g_state_machine->m_next, kDefaultState);
}

/// The files of music that can be heard.
std::set<std::string> PlayingMusic(const World& world) {
  std::set<std::string> names;
  for (const auto& [handle, stream] : world.mixer.streams) {
    const std::string& path = stream.request.path;
    if (stream.playing && stream.request.group == SoundGroup::kMusic)
      names.insert(path.substr(path.rfind('/') + 1));
  }
  return names;
}

TEST(MenuMusic, OfTheShippedScreensOneEndsWhereTheNextBegins) {
  carapace_test::LevelGame game("Level01", 1);
  World& world = game.world;
  const auto level = [&]() -> GameController& {
    return *world.Find("level")->GetComponent<GameController>();
  };
  const auto music_after_two_steps = [&] {
    OutputOf([&] { world.Step(2); });
    return PlayingMusic(world);
  };
  EXPECT_THAT(music_after_two_steps(), ElementsAre("maintheme03.ogg"));
  level().RequestQuitToMenu();
  EXPECT_THAT(music_after_two_steps(), ElementsAre("maintheme01.ogg"));
  auto* menu = world.Find("menu")->GetComponent<MainMenuController>();
  EXPECT_EQ(menu->m_ui_state, "menu_slide") << "the title slides in after a level, too";
  menu->LaunchLevel("Level Editor/Levels/Level01/Level01.json");
  EXPECT_THAT(music_after_two_steps(), ElementsAre("maintheme03.ogg"));
  for (GameObj* enemy : level().m_enemies) enemy->GetComponent<Enemy>()->m_alive = false;
  EXPECT_THAT(music_after_two_steps(), ElementsAre("victory.ogg"));
  g_engine->paused = true;
  level().RequestRestart();
  EXPECT_THAT(music_after_two_steps(), ElementsAre("victory.ogg")) << "it was asked for again";
  g_engine->paused = false;
  EXPECT_THAT(music_after_two_steps(), ElementsAre("maintheme03.ogg"));
}

}  // namespace
}  // namespace ZOVEngine
