#include "editor/objectedit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editor/editortest.h"

namespace ZOVEngine {
namespace {

using ObjectEditTest = carapace_test::EditorTest;

TEST_F(ObjectEditTest, AMoveIsUndoneAndDoneAgain) {
  ASSERT_TRUE(editor->Open("Level01"));
  const std::string before = editor->document.Text();
  const ObjectPath unit = PathTo(world.Find("player1"));
  Move(unit, 60.0f, 30.0f);
  const std::string after = editor->document.Text();
  EXPECT_NE(after, before);
  editor->Undo();
  EXPECT_EQ(editor->document.Text(), before);
  EXPECT_FALSE(editor->IsChanged());
  EXPECT_EQ(world.Find("player1")->GetComponent<Transform>()->m_local_pos.x, -720.0f);
  editor->Redo();
  EXPECT_EQ(editor->document.Text(), after);
  EXPECT_TRUE(editor->IsChanged());
}

}  // namespace
}  // namespace ZOVEngine
