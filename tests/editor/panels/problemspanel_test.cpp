#include "editor/panels/problemspanel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editor/editortest.h"
#include "support/imguiframe.h"

namespace ZOVEngine {
namespace {

using carapace_test::ImGuiContextForTest;

class ProblemsPanelTest : public carapace_test::EditorTest {
 protected:
  void Show() {
    m_context.Frame([&] { m_panel.Show(*editor); });
  }
  bool HasRule(const char* rule) {
    for (const LevelProblem& problem : m_panel.Problems()) {
      if (std::string(problem.rule) == rule) return true;
    }
    return false;
  }

  ImGuiContextForTest m_context{800.0f, 300.0f};
  ProblemsPanel m_panel;
};

TEST_F(ProblemsPanelTest, AGestureThatBreaksARuleIsShownAndGoesWhenItIsUndone) {
  ASSERT_TRUE(editor->Open("Level01"));
  Show();
  EXPECT_FALSE(HasRule("both-sides"));
  for (const char* unit : {"player1", "player2"}) {
    editor->Do(editor->scene.Delete({PathTo(world.Find(unit))}));
  }
  Show();
  EXPECT_TRUE(HasRule("both-sides"));
  editor->Undo();
  Show();
  EXPECT_FALSE(HasRule("both-sides"));
}

TEST_F(ProblemsPanelTest, AClickOnAProblemSelectsItsObject) {
  ASSERT_TRUE(editor->Open("Level01"));
  const ObjectPath unit = PathTo(world.Find("player2"));
  Move(unit, 4000.0f, 0.0f);
  Show();
  ASSERT_TRUE(HasRule("place-free"));
  Show();
  for (float y = 10.0f; y < 290.0f && editor->selection != Selection{unit}; y += 6.0f) {
    ImGuiContextForTest::MoveMouse(300.0f, y);
    Show();
    ImGuiContextForTest::HoldMouse(true);
    Show();
    ImGuiContextForTest::HoldMouse(false);
    Show();
  }
  EXPECT_EQ(editor->selection, Selection{unit});
}

}  // namespace
}  // namespace ZOVEngine
