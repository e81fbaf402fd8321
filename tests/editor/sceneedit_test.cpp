#include "editor/sceneedit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editor/editortest.h"

namespace ZOVEngine {
namespace {

using SceneEditTest = carapace_test::EditorTest;

TEST_F(SceneEditTest, ADeletedUnitComesBackWithItsPlaceInTheFile) {
  ASSERT_TRUE(editor->Open("Level01"));
  const std::string before = editor->document.Text();
  const ObjectPath unit = PathTo(world.Find("player1"));
  editor->selection = {unit};
  editor->Do(editor->scene.Delete({unit}));
  EXPECT_EQ(world.Find("player1"), nullptr);
  EXPECT_TRUE(editor->selection.empty());
  editor->Undo();
  EXPECT_EQ(editor->document.Text(), before);
  EXPECT_EQ(PathTo(world.Find("player1")), unit);
  EXPECT_EQ(editor->selection, Selection{unit});
}

TEST_F(SceneEditTest, ADuplicateStandsBehindItsOriginalAndIsSelected) {
  ASSERT_TRUE(editor->Open("Level01"));
  ObjectPath unit = PathTo(world.Find("player1"));
  editor->Do(editor->scene.Duplicate({unit}, 60.0f, 0.0f));
  ++unit.back();
  EXPECT_EQ(editor->selection, Selection{unit});
  EXPECT_EQ(ObjectAt(unit)->name, "player1");
  EXPECT_EQ(ObjectAt(unit)->GetComponent<Transform>()->m_local_pos.x, -660.0f);
}

TEST_F(SceneEditTest, AnObjectCannotStandBelowItself) {
  ASSERT_TRUE(editor->Open("Level01"));
  const std::string before = editor->document.Text();
  const ObjectPath unit = PathTo(world.Find("player1"));
  ObjectPath child = unit;
  child.push_back(0);
  editor->Do(editor->scene.Reparent(unit, child));
  EXPECT_EQ(editor->document.Text(), before);
  EXPECT_EQ(editor->history.Size(), 0u);
  EXPECT_TRUE(editor->log.Lines().back().fault);
}

TEST_F(SceneEditTest, AnObjectMovesInTheTreeToALaterParent) {
  ASSERT_TRUE(editor->Open("Level01"));
  const std::string before = editor->document.Text();
  editor->Do(editor->scene.Reparent(PathTo(world.Find("player1")), PathTo(world.Find("player2"))));
  EXPECT_EQ(world.Find("player1")->parent, world.Find("player2"));
  EXPECT_EQ(editor->selection, Selection{PathTo(world.Find("player1"))});
  editor->Undo();
  EXPECT_EQ(editor->document.Text(), before);
}

TEST_F(SceneEditTest, AComponentComesAndGoes) {
  ASSERT_TRUE(editor->Open("Level01"));
  const std::string before = editor->document.Text();
  const ObjectPath unit = PathTo(world.Find("player1"));
  editor->Do(editor->scene.RemoveComponent(unit, "Light"));
  EXPECT_THAT(editor->document.Components(unit), ::testing::Not(::testing::Contains("Light")));
  EXPECT_EQ(editor->scene.RemoveComponent(unit, "Light"), nullptr);
  EXPECT_NE(editor->scene.Fault(), "");
  editor->Undo();
  EXPECT_EQ(editor->document.Text(), before);
  const std::string fields = editor->document.Fields(unit, "Light");
  EXPECT_EQ(editor->scene.AddComponent(unit, "Light", fields), nullptr) << "it has one";
}

TEST_F(SceneEditTest, ADuplicateOfAParentAndItsChildIsOneCopy) {
  ASSERT_TRUE(editor->Open("Level01"));
  const ObjectPath unit = PathTo(world.Find("player1"));
  ObjectPath child = unit;
  child.push_back(0);
  const std::size_t objects = LevelObjects().size();
  const std::size_t children = world.Find("player1")->children.size();
  editor->Do(editor->scene.Duplicate({child, unit}, 0.0f, 0.0f));
  EXPECT_EQ(editor->selection.size(), 1u);
  EXPECT_GT(LevelObjects().size(), objects + children);
}

}  // namespace
}  // namespace ZOVEngine
