#include "editor/panels/inspectorpanel.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "audio/audiosource.h"
#include "editor/panels/fieldnotes.h"
#include "gameobj.h"
#include "physics/components/colliderholder.h"
#include "physics/components/transform.h"
#include "render/components/render.h"
#include "support/paneltest.h"

namespace ZOVEngine {
namespace {

using carapace_test::PanelTest;
using ::testing::HasSubstr;

constexpr float kWidget = 230.0f;  ///< from a label to its widget, of the rows of the tables

class InspectorPanelTest : public PanelTest {
 protected:
  InspectorPanelTest() : PanelTest(390.0f, 6000.0f) {}
  void ShowPanel() override { panel.Show(*editor); }

  /// Selects an object and shows it.
  void Inspect(const std::string& name) {
    Select(name);
    Show(2);
  }
  /// A stored field of an object as text.
  std::string Field(const std::string& object, const std::string& component,
                    const std::string& key) const {
    const Value* record = editor->document.Find(PathOf(object));
    return ToText((*record)[component.c_str()][key.c_str()]);
  }
  /// Adds an object without components to the top level and selects it.
  void InsertBare() {
    editor->Do(editor->scene.Insert(
        {}, {R"({"name": "bare", "active": true, "components": [], "Childs": []})"}, "Insert"));
    Show(2);
  }

  bool HasComponent(const std::string& name) const {
    const std::vector<std::string> own = editor->document.Components(editor->Primary());
    return std::find(own.begin(), own.end(), name) != own.end();
  }
  /// Adds a component to the selected object, all that it needs before it.
  void AddWithNeeds(const std::string& name) {
    if (HasComponent(name)) return;
    for (const std::string& needed : ComponentNeeds(name)) AddWithNeeds(needed);
    AddDefaultComponent(*editor, editor->Primary(), name);
  }

  InspectorPanel panel;
};

TEST_F(InspectorPanelTest, ShowsNameAndComponentsOfTheSelectedObject) {
  Show(2);
  EXPECT_FALSE(Sees("RigidBody"));
  Inspect("player1");
  for (const char* text : {"player1", "Transform", "RigidBody", "Render", "Player", "Curr HP"}) {
    EXPECT_TRUE(Sees(text)) << text;
  }
}

TEST_F(InspectorPanelTest, SaysHowManyObjectsAreSelected) {
  editor->selection = {PathOf("enemy1"), PathOf("player1")};
  Show(2);
  EXPECT_TRUE(Sees("2 objects are selected"));
  EXPECT_TRUE(Sees("player1"));
}

TEST_F(InspectorPanelTest, ShowingObjectsMakesNoStepAndChangesNothing) {
  const std::string before = editor->document.Text();
  for (const PlacedObject& placed : LevelObjects()) {
    editor->selection = {placed.path};
    Show(2);
  }
  EXPECT_EQ(editor->history.Size(), 0u);
  EXPECT_EQ(editor->document.Text(), before);
}

TEST_F(InspectorPanelTest, TypingANameIsOneStep) {
  Inspect("player1");
  Click(At("name", 200.0f));
  Press(ImGuiKey_End);
  Type("a");
  Type("b");
  EXPECT_EQ(editor->history.Size(), 0u) << "the field still has the keyboard";
  Press(ImGuiKey_Enter);
  EXPECT_EQ(editor->history.Size(), 1u);
  EXPECT_EQ(editor->document.Name(editor->Primary()), "player1ab");
}

TEST_F(InspectorPanelTest, ANameOfTheGamesOwnIsRefused) {
  Inspect("player1");
  Click(At("name", 200.0f));
  ImGui::GetIO().KeyCtrl = true;
  Press(ImGuiKey_A);
  ImGui::GetIO().KeyCtrl = false;
  Type("tile");
  Press(ImGuiKey_Enter);
  EXPECT_EQ(editor->document.Name(editor->Primary()), "player1");
  EXPECT_THAT(LastLine(), HasSubstr("\"tile\""));
}

TEST_F(InspectorPanelTest, AGestureOnASliderIsOneStep) {
  Inspect("player1");
  const std::string before = editor->document.Text();
  const ImVec2 slider = At("Curr HP", kWidget);
  Drag(slider, ImVec2(slider.x + 30.0f, slider.y));
  EXPECT_EQ(editor->history.Size(), 1u);
  EXPECT_NE(Field("player1", "Player", "m_health"), "4");
  editor->Undo();
  EXPECT_EQ(editor->document.Text(), before);
}

TEST_F(InspectorPanelTest, ASliderRunsBetweenTheBoundsOfItsField) {
  Inspect("player1");
  const ImVec2 slider = At("Curr HP", kWidget);
  Drag(slider, ImVec2(slider.x + 300.0f, slider.y));
  EXPECT_EQ(Field("player1", "Player", "m_health"), "99");
}

TEST_F(InspectorPanelTest, ARowOfAnotherDisplayModeIsShownAndEdited) {
  Inspect("player1");
  const ImVec2 slider = At("Rest", kWidget);
  Drag(slider, ImVec2(slider.x + 300.0f, slider.y));
  EXPECT_EQ(Field("player1", "RigidBody", "m_rest"), "1.0");
}

TEST_F(InspectorPanelTest, ANumberOfAVectorIsTyped) {
  Inspect("player1");
  const ImVec2 label = At("Local Position");
  Click(ImVec2(label.x + 40.0f, label.y + 22.0f));
  ImGui::GetIO().KeyCtrl = true;
  Press(ImGuiKey_A);
  ImGui::GetIO().KeyCtrl = false;
  Type("-600");
  Press(ImGuiKey_Enter);
  EXPECT_EQ(ObjectAt(editor->Primary())->GetComponent<Transform>()->m_local_pos.x, -600.0f);
  EXPECT_EQ(editor->history.Size(), 1u);
}

TEST_F(InspectorPanelTest, AFlagThatReflectionLeavesOutIsTurned) {
  Inspect("player1");
  Click(At("m_visible", 160.0f));
  EXPECT_EQ(Field("player1", "Render", "m_visible"), "false");
  EXPECT_EQ(editor->history.Size(), 1u);
  EXPECT_FALSE(ObjectAt(editor->Primary())->GetComponent<Render>()->m_visible);
}

TEST_F(InspectorPanelTest, ANameOfAListIsChosen) {
  Inspect("player1");
  Click(At("bitmask_category", 200.0f));
  Show(2);
  ClickText("Barrier");
  EXPECT_EQ(Field("player1", "ColliderHolder", "bitmask_category"), "\"Barrier\"");
  EXPECT_EQ(editor->history.Size(), 1u);
}

TEST_F(InspectorPanelTest, WhatIsNotSavedCannotBeChanged) {
  Inspect("player1");
  const bool before = ObjectAt(editor->Primary())->GetComponent<Transform>()->CanBeDragged;
  Click(At("Can Be Dragged", kWidget - 20.0f));
  EXPECT_EQ(ObjectAt(editor->Primary())->GetComponent<Transform>()->CanBeDragged, before);
  EXPECT_EQ(editor->history.Size(), 0u);
}

TEST_F(InspectorPanelTest, AnUndoDropsAGestureThatGoesOn) {
  Inspect("player1");
  Click(At("m_visible", 160.0f));
  const ImVec2 slider = At("Curr HP", kWidget);
  ImGui::GetIO().MousePos = slider;
  Show();
  ImGui::GetIO().MouseDown[0] = true;
  Show(2);
  editor->Undo();
  Show(2);
  ImGui::GetIO().MouseDown[0] = false;
  Show(2);
  EXPECT_EQ(editor->history.Position(), 0u);
}

TEST_F(InspectorPanelTest, AnotherSelectionEndsTheGesture) {
  Inspect("player1");
  Click(At("name", 200.0f));
  Press(ImGuiKey_End);
  Type("x");
  Inspect("enemy1");
  EXPECT_EQ(editor->history.Size(), 1u);
  EXPECT_NE(PathOf("player1x"), ObjectPath());
}

TEST_F(InspectorPanelTest, EveryComponentClassCanBeAddedAndShown) {
  InsertBare();
  std::vector<std::string> left = AddableComponents(*editor, editor->Primary());
  ASSERT_GT(left.size(), 30u);
  while (!left.empty()) {
    const std::size_t before = left.size();
    for (const std::string& name : left) AddDefaultComponent(*editor, editor->Primary(), name);
    Show(2);
    world.Step(2);
    left = AddableComponents(*editor, editor->Primary());
    ASSERT_LT(left.size(), before) << left.front() << " cannot be added";
  }
  for (const char* text : {"Transform", "AudioSource", "Waypoint", "Button"}) {
    EXPECT_TRUE(Sees(text)) << text;
  }
}

TEST_F(InspectorPanelTest, EachComponentClassAloneWithWhatItNeedsIsShown) {
  editor->document = LevelDocument();
  InsertBare();
  const std::vector<std::string> all = AddableComponents(*editor, editor->Primary());
  for (const std::string& name : all) {
    InsertBare();
    const std::size_t lines = editor->log.Lines().size();
    AddWithNeeds(name);
    EXPECT_EQ(editor->log.Lines().size(), lines) << name;
    EXPECT_TRUE(HasComponent(name)) << name;
    Show(2);
    world.Step(2);
    editor->GoTo(1);
  }
}

TEST_F(InspectorPanelTest, AComponentIsAddedFromTheList) {
  InsertBare();
  ClickText("Add a component");
  Show(2);
  Type("Transf");
  ClickText("Transform");
  EXPECT_EQ(editor->document.Components(editor->Primary()), std::vector<std::string>{"Transform"});
  Show();
  EXPECT_TRUE(Sees("Local Position"));
}

TEST_F(InspectorPanelTest, AComponentThatLacksWhatItNeedsIsNotAdded) {
  InsertBare();
  EXPECT_FALSE(AddDefaultComponent(*editor, editor->Primary(), "Light"));
  EXPECT_THAT(LastLine(), HasSubstr("needs a Transform"));
}

TEST_F(InspectorPanelTest, AComponentThatAnotherNeedsStays) {
  Select("player1");
  EXPECT_FALSE(RemoveComponentIfFree(*editor, editor->Primary(), "Transform"));
  EXPECT_THAT(LastLine(), HasSubstr("Transform stays"));
  EXPECT_TRUE(RemoveComponentIfFree(*editor, editor->Primary(), "Light"));
  editor->Undo();
  EXPECT_TRUE(Field("player1", "Light", "m_active") == "true");
}

TEST_F(InspectorPanelTest, ASoundIsTakenOutOfAllLists) {
  Inspect("player1");
  ClickText("Remove");
  const Value* source = FindValue(*editor->document.Find(editor->Primary()), "AudioSource");
  for (const char* list : {"sounds", "loop", "is_3D", "start_play", "sound_type", "volume"}) {
    EXPECT_EQ((*source)[list].Size(), 2u) << list;
  }
  editor->Undo();
  EXPECT_EQ((*editor->document.Find(editor->Primary()))["AudioSource"]["sounds"].Size(), 3u);
}

TEST_F(InspectorPanelTest, AMusicThatStartsWithTheLevelStaysSilentWhenItIsEdited) {
  Inspect("level");
  Click(At("start_play", 160.0f));
  editor->Undo();
  world.Step(2);
  for (const auto& [name, sound] :
       ObjectAt(editor->Primary())->GetComponent<AudioSource>()->sounds) {
    EXPECT_FALSE(sound.start_play) << name;
    EXPECT_EQ(sound.channel, kNoStream) << name;
  }
}

TEST_F(InspectorPanelTest, AColliderShowsItsOwnFlagAndStaysHeldOff) {
  Inspect("player1");
  Click(At("m_collider_type", 200.0f));
  Show(2);
  ClickText("Box");
  EXPECT_EQ(Field("player1", "ColliderHolder", "m_collider_type"), "\"Box\"");
  EXPECT_EQ(Field("player1", "ColliderHolder", "m_active"), "true");
  EXPECT_FALSE(ObjectAt(editor->Primary())->GetComponent<ColliderHolder>()->m_active);
}

}  // namespace
}  // namespace ZOVEngine
