#include "editor/panels/hierarchypanel.h"

#include <gmock/gmock.h>

#include "support/paneltest.h"

namespace ZOVEngine {
namespace {

using carapace_test::PanelTest;

class HierarchyPanelTest : public PanelTest {
 protected:
  HierarchyPanelTest() : PanelTest(250.0f, 760.0f) { Show(2); }
  void ShowPanel() override { panel.Show(*editor); }

  /// Lets the tree show only objects that this text fits.
  void Search(const std::string& text) {
    Click(ImVec2(100.0f, 18.0f));
    Type(text);
  }
  void Rename(const char* object, const std::string& name) {
    DoubleClickText(object);
    Type(name);
    Press(ImGuiKey_Enter);
  }
  void ChooseFromMenu(const std::string& object, const std::string& item) {
    Click(At(object), 1);
    Show(2);
    ClickText(item);
  }

  HierarchyPanel panel;
};

TEST_F(HierarchyPanelTest, ShowsTheChildrenOfTheLevelsRoot) {
  EXPECT_TRUE(Sees("level"));
  EXPECT_TRUE(Sees("player1"));
  EXPECT_TRUE(Sees("enemy1"));
  EXPECT_FALSE(Sees("Weapon0Barrel")) << "below a unit that is closed";
}

TEST_F(HierarchyPanelTest, ALevelIsScrolledPastThePaintOnItsFloor) {
  ASSERT_EQ(PathOf("decal"), ObjectPath{0});
  EXPECT_FALSE(Sees("decal"));
  EXPECT_LT(At("level").y, 60.0f);
}

TEST_F(HierarchyPanelTest, TheKindIsWrittenBesideTheName) {
  Rename("enemy1", "brute");
  Search("brute");
  EXPECT_TRUE(Sees("brute"));
  EXPECT_TRUE(Sees("enemy"));
}

TEST_F(HierarchyPanelTest, TheKindIsNotWrittenOverALongName) {
  Rename("enemy1", "brute_with_a_name_that_is_long");
  Search("brute");
  EXPECT_TRUE(Sees("brute_with"));
  EXPECT_FALSE(Sees("enemy"));
}

TEST_F(HierarchyPanelTest, AnObjectWithoutANameIsARowToo) {
  const ObjectPath path = PathOf("player1");
  editor->document.Json()["GameObjFactory"][path[0]]["Childs"][path[1]]["name"].SetString("");
  Search("Player");
  EXPECT_TRUE(Sees("(no name)"));
}

TEST_F(HierarchyPanelTest, AClickSelectsAnObject) {
  ClickText("player1");
  EXPECT_EQ(editor->selection, Selection{PathOf("player1")});
  ClickText("enemy1");
  EXPECT_EQ(editor->selection, Selection{PathOf("enemy1")});
}

TEST_F(HierarchyPanelTest, AClickWithControlAddsAndTakesAway) {
  ClickText("player1");
  HoldControl(true);
  ClickText("enemy1");
  EXPECT_EQ(editor->selection, (Selection{PathOf("player1"), PathOf("enemy1")}));
  ClickText("player1");
  EXPECT_EQ(editor->selection, Selection{PathOf("enemy1")});
}

TEST_F(HierarchyPanelTest, AClickWithShiftSelectsAllBetween) {
  ClickText("player1");
  HoldShift(true);
  ClickText("enemy1");
  EXPECT_EQ(editor->Primary(), PathOf("enemy1"));
  EXPECT_GT(editor->selection.size(), 2u);
  EXPECT_TRUE(editor->IsSelected(PathOf("player2")));
}

TEST_F(HierarchyPanelTest, AnArrowOpensANode) {
  ClickText("player1", -10.0f);
  Show();
  EXPECT_TRUE(Sees("ui_selected"));
  EXPECT_TRUE(editor->selection.empty());
  ClickText("player1", -10.0f);
  Show();
  EXPECT_FALSE(Sees("ui_selected"));
}

TEST_F(HierarchyPanelTest, TheSearchFindsNames) {
  Search("WEAPON0B");
  EXPECT_TRUE(Sees("Weapon0Barrel"));
  EXPECT_FALSE(Sees("player1"));
}

TEST_F(HierarchyPanelTest, TheSearchFindsComponents) {
  Search("ProjectileB");
  EXPECT_TRUE(Sees("Weapon1Projectile"));
  EXPECT_FALSE(Sees("Weapon0Barrel"));
}

TEST_F(HierarchyPanelTest, ASelectionFromElsewhereOpensItsNodesAndIsScrolledTo) {
  ASSERT_FALSE(Sees("ui_end_restart"));
  editor->selection = {PathOf("turn_font")};
  Show(3);
  EXPECT_TRUE(Sees("turn_font"));
  editor->selection = {PathOf("ui_end_restart")};
  Show(3);
  EXPECT_TRUE(Sees("ui_end_restart"));
}

TEST_F(HierarchyPanelTest, ADoubleClickRenames) {
  const ObjectPath unit = PathOf("player1");
  Rename("player1", "scout");
  EXPECT_EQ(editor->document.Name(unit), "scout");
  EXPECT_EQ(ObjectAt(unit)->name, "scout");
  EXPECT_EQ(editor->history.Size(), 1u);
  editor->Undo();
  EXPECT_EQ(editor->document.Name(unit), "player1");
}

TEST_F(HierarchyPanelTest, EscapeLeavesTheName) {
  DoubleClickText("player1");
  Type("scout");
  Press(ImGuiKey_Escape);
  EXPECT_EQ(editor->history.Size(), 0u);
  EXPECT_TRUE(Sees("player1"));
}

TEST_F(HierarchyPanelTest, NamesThatTheGameUsesItselfAreRefused) {
  for (const char* name : {"tile", "tile_collider", "particle_test", "LECamera", ""}) {
    EXPECT_NE(FaultOfObjectName(name), "") << name;
  }
  EXPECT_EQ(FaultOfObjectName("tiles"), "");
  Rename("player1", "tile");
  EXPECT_EQ(editor->history.Size(), 0u);
  EXPECT_THAT(LastLine(), ::testing::HasSubstr("\"tile\""));
}

TEST_F(HierarchyPanelTest, AnObjectIsDraggedBelowAnother) {
  const ObjectPath target = PathOf("enemy1");
  const std::size_t before = ObjectAt(target)->children.size();
  Drag(At("player1"), At("enemy1"));
  EXPECT_EQ(ObjectAt(PathOf("enemy1"))->children.size(), before + 1);
  EXPECT_EQ(ObjectAt(PathOf("player1"))->parent->name, "enemy1");
  editor->Undo();
  EXPECT_EQ(ObjectAt(PathOf("player1"))->parent->name, "level");
}

TEST_F(HierarchyPanelTest, AnObjectIsDraggedToTheTopLevel) {
  Search("player1");
  Drag(At("player1"), ImVec2(100.0f, 700.0f));
  EXPECT_EQ(PathOf("player1").size(), 1u);
}

TEST_F(HierarchyPanelTest, TheMenuDuplicatesAndDeletes) {
  const std::size_t before = LevelObjects().size();
  const std::size_t unit = 1 + ObjectAt(PathOf("player1"))->children.size();
  ChooseFromMenu("player1", "Duplicate");
  EXPECT_GT(LevelObjects().size(), before + unit);
  ChooseFromMenu("player1", "Delete");
  ChooseFromMenu("player1", "Delete");
  EXPECT_LT(LevelObjects().size(), before);
  editor->GoTo(0);
  EXPECT_EQ(LevelObjects().size(), before);
}

TEST_F(HierarchyPanelTest, TheMenuMovesAnObjectToTheTopLevel) {
  ChooseFromMenu("player1", "Move to the top level");
  EXPECT_EQ(PathOf("player1").size(), 1u);
}

TEST_F(HierarchyPanelTest, DeleteTakesTheSelectedObjectsAway) {
  ClickText("player1");
  Press(ImGuiKey_Delete);
  EXPECT_FALSE(Sees("player1"));
  EXPECT_EQ(editor->history.Size(), 1u);
}

TEST_F(HierarchyPanelTest, OfManyObjectsOnlyThoseInSightAreDrawn) {
  Show();
  const int before = ImGui::GetIO().MetricsRenderVertices;
  const std::string record = R"({"name": "rock", "active": true, "components": [], "Childs": []})";
  editor->Do(editor->scene.Insert({}, std::vector<std::string>(2000, record), "Insert"));
  Show(3);
  EXPECT_TRUE(Sees("rock"));
  EXPECT_LT(ImGui::GetIO().MetricsRenderVertices, 2 * before + 2000);
}

}  // namespace
}  // namespace ZOVEngine
