#include "ui/screens/mainmenucontroller.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/messages.h"
#include "ui/interfaceworlds.h"
#include "ui/screens/splashcontroller.h"

namespace ZOVEngine {
namespace {

using carapace_test::AsksFor;
using carapace_test::kPlainLevel;
using carapace_test::MenuScreen;
using carapace_test::PieceRecord;
using carapace_test::RenderOf;

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

TEST(MainMenu, WithoutATitleItStaysShut) {
  const MenuScreen menu({PieceRecord("menu_play", {}, {}, RenderOf("rest", 0.0f))});
  Advance(menu, 600);
  EXPECT_EQ(menu.Menu().m_ui_state, "menu_slide");
  EXPECT_EQ(menu.Sprite("menu_play").m_colour[3], 0.0f);
}

TEST(MainMenu, TheButtonsFadeInToTwiceTheirAlpha) {
  std::vector<std::string> pieces = {TitleAt(300)};
  for (const std::string& name : kFading) {
    pieces.push_back(PieceRecord(name, {}, {}, RenderOf("rest", 0.0f)));
  }
  pieces.push_back(PieceRecord("menu_level_01", {}, {}, RenderOf("rest", 0.0f)));
  const MenuScreen menu(pieces);
  for (const std::string& name : kFading) {
    menu.Sprite(name).m_colour[3] = 0.0f;
    menu.Sprite(name).m_visible = false;
  }
  Advance(menu, 15);
  for (const std::string& name : kFading) {
    EXPECT_TRUE(menu.Sprite(name).m_visible) << name;
    EXPECT_NEAR(menu.Sprite(name).m_colour[3], 1.0f, 1e-3f) << name;
  }
  EXPECT_FALSE(menu.Menu().m_buttons_done);
  Advance(menu, 17);
  for (const std::string& name : kFading) EXPECT_EQ(menu.Sprite(name).m_colour[3], 2.0f) << name;
  EXPECT_TRUE(menu.Menu().m_buttons_done);
  EXPECT_EQ(menu.Sprite("menu_level_01").m_colour[3], 0.0f);
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

}  // namespace
}  // namespace ZOVEngine
