#include "editor/canvas/shortcuts.h"

#include <gmock/gmock.h>

#include "editor/canvas/canvasstage.h"

namespace ZOVEngine {
namespace {

using ::testing::Contains;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

class ShortcutsTest : public carapace_test::CanvasStage {
 protected:
  std::size_t CountNamed(const std::string& name) const {
    std::size_t count = 0;
    for (const PlacedObject& placed : LevelObjects()) count += placed.object->name == name;
    return count;
  }
};

TEST_F(ShortcutsTest, DeleteRemovesTheSelectionAndUndoBringsItBack) {
  const std::string before = Text();
  editor->selection = {Path("player1")};
  Tap(Key::kDelete);
  EXPECT_EQ(world.Find("player1"), nullptr);
  TapWithControl(Key::kZ);
  EXPECT_EQ(Text(), before);
  TapWithControl(Key::kY);
  EXPECT_EQ(world.Find("player1"), nullptr);
  TapWithControl(Key::kZ);
  TapWithControl(Key::kZ, true);
  EXPECT_EQ(world.Find("player1"), nullptr);
}

TEST_F(ShortcutsTest, ControlAndSSave) {
  editor->selection = {Path("player1")};
  TapWithControl(Key::kD);
  ASSERT_TRUE(editor->IsChanged());
  TapWithControl(Key::kS);
  EXPECT_FALSE(editor->IsChanged());
}

TEST_F(ShortcutsTest, ADuplicateStandsATileToTheRightAndIsSelected) {
  editor->selection = {Path("player1")};
  TapWithControl(Key::kD);
  EXPECT_EQ(CountNamed("player1"), 2u);
  ASSERT_THAT(editor->selection, SizeIs(1));
  EXPECT_EQ(ObjectAt(editor->Primary())->GetComponent<Transform>()->m_local_pos.x, -660.0f);
}

TEST_F(ShortcutsTest, ACopyIsPastedAtTheMouse) {
  editor->selection = {Path("player1")};
  TapWithControl(Key::kC);
  MouseAt(1.0f, 28.0f);
  TapWithControl(Key::kV);
  EXPECT_EQ(CountNamed("player1"), 2u);
  const Vector3D place = ObjectAt(editor->Primary())->GetComponent<Transform>()->m_local_pos;
  EXPECT_EQ(place.x, 0.0f);
  EXPECT_EQ(place.y, 30.0f);
  EXPECT_EQ(editor->history.Size(), 1u);
  EXPECT_EQ(editor->history.Label(0), "Paste player1");
}

TEST_F(ShortcutsTest, WhatIsCutIsPastedIntoAnotherLevel) {
  editor->selection = {Path("player1")};
  TapWithControl(Key::kX);
  EXPECT_EQ(CountNamed("player1"), 0u);
  ASSERT_TRUE(editor->Open("Level02"));
  Frame();
  const std::string before = Text();
  const std::size_t players = CountNamed("player1");
  MouseAt(0.0f, 0.0f);
  TapWithControl(Key::kV);
  EXPECT_EQ(CountNamed("player1"), players + 1);
  TapWithControl(Key::kZ);
  EXPECT_EQ(Text(), before);
}

TEST_F(ShortcutsTest, TwoObjectsArePastedWithTheirMiddleAtTheMouse) {
  editor->selection = {Path("player1"), Path("player2")};
  TapWithControl(Key::kC);
  MouseAt(0.0f, 0.0f);
  TapWithControl(Key::kV);
  ASSERT_THAT(editor->selection, SizeIs(2));
  EXPECT_EQ(ObjectAt(editor->selection[0])->GetComponent<Transform>()->m_local_pos.y, 240.0f);
  EXPECT_EQ(ObjectAt(editor->selection[1])->GetComponent<Transform>()->m_local_pos.y, -240.0f);
}

TEST_F(ShortcutsTest, ControlAndASelectWhatStandsOnTheGround) {
  TapWithControl(Key::kA);
  EXPECT_THAT(editor->selection, Contains(Path("enemy2")));
  EXPECT_THAT(editor->selection, Contains(Path("lamp")));
  EXPECT_THAT(editor->selection, Not(Contains(Path("ui_controls"))));
  EXPECT_THAT(editor->selection, Not(Contains(Path("level"))));
  Tap(Key::kEscape);
  EXPECT_THAT(editor->selection, IsEmpty());
}

TEST_F(ShortcutsTest, ControlAndAnArrowNudge) {
  editor->selection = {Path("player1")};
  TapWithControl(Key::kRight);
  EXPECT_EQ(Place("player1").x, -690.0f);
  TapWithControl(Key::kUp, true);
  EXPECT_EQ(Place("player1").y, 241.0f);
  EXPECT_EQ(editor->history.Size(), 2u);
}

TEST_F(ShortcutsTest, ABareArrowMovesNothing) {
  editor->selection = {Path("player1")};
  Tap(Key::kRight);
  EXPECT_EQ(Place("player1").x, -720.0f);
  EXPECT_EQ(editor->history.Size(), 0u);
}

}  // namespace
}  // namespace ZOVEngine
