#include "ui/interfacestate.h"

#include <gtest/gtest.h>

#include "ui/interfaceworlds.h"

namespace ZOVEngine {
namespace {

using carapace_test::LevelScreen;
using carapace_test::MenuScreen;
using carapace_test::PieceRecord;
using carapace_test::Record;
using carapace_test::TransformAt;

TEST(InterfaceState, InALevelItIsTheTurnControllers) {
  const LevelScreen level({PieceRecord("piece", {})});
  level.Show("ui_options");
  EXPECT_EQ(InterfaceState(level.Find("piece")), "ui_options");
  EXPECT_EQ(InterfaceState(level.Find("level")), "ui_options");
}

TEST(InterfaceState, InTheMenuItIsTheMenus) {
  const MenuScreen menu({PieceRecord("piece", {})});
  EXPECT_EQ(InterfaceState(menu.Find("piece")), "menu_slide");
  EXPECT_EQ(InterfaceState(menu.Find("menu")), "menu_slide");
}

TEST(InterfaceState, ElsewhereItIsEmpty) {
  const LevelScreen level({PieceRecord("piece", {})});
  for (const std::int32_t state : {kSplashState, kLevelEditorState, kMainMenuState}) {
    g_state_machine->m_current = state;
    EXPECT_EQ(InterfaceState(level.Find("piece")), "") << state;
  }
  g_state_machine->m_current = kDefaultState;
}

TEST(MenuController, ItIsFoundBelowTheOneWhoAsks) {
  const MenuScreen menu({PieceRecord("piece", {})});
  EXPECT_EQ(FindMenuController(menu.Find("menu")), &menu.Menu());
}

TEST(MenuController, APieceBelowItFindsTheFirstObject) {
  const MenuScreen menu({PieceRecord("piece", {})});
  ASSERT_EQ(menu.Find("menu")->id, 0u);
  EXPECT_EQ(FindMenuController(menu.Find("piece")), &menu.Menu());
}

/// An object of no meaning.
std::string Plain(const std::string& name, const std::vector<std::string>& children = {}) {
  return Record(name, {{"Transform", TransformAt(0, 0)}}, children);
}

TEST(MenuController, BehindAnotherFirstObjectItIsFoundAbove) {
  const MenuScreen menu({Plain("group", {PieceRecord("piece", {})})}, {Plain("first")});
  ASSERT_NE(menu.Find("menu")->id, 0u);
  for (const char* name : {"piece", "group", "menu"}) {
    EXPECT_EQ(FindMenuController(menu.Find(name)), &menu.Menu()) << name;
  }
  EXPECT_EQ(FindMenuController(menu.Find("first")), nullptr);
}

TEST(MenuController, AnObjectBesideTheMenuFindsTheFirstObject) {
  MenuScreen menu({PieceRecord("piece", {})});
  menu.world.LoadObjects(Plain("beside"));
  EXPECT_EQ(FindMenuController(menu.Find("beside")), &menu.Menu());
}

TEST(MenuController, AFirstObjectWithoutOneGivesNone) {
  const LevelScreen level({PieceRecord("piece", {})});
  EXPECT_EQ(FindMenuController(level.Find("piece")), nullptr);
}

}  // namespace
}  // namespace ZOVEngine
