#include "editor/panels/historypanel.h"

#include <gtest/gtest.h>

#include "editor/editortest.h"
#include "support/imguiframe.h"

namespace ZOVEngine {
namespace {

using carapace_test::ImGuiContextForTest;

class HistoryPanelTest : public carapace_test::EditorTest {
 protected:
  HistoryPanelTest() {
    EXPECT_TRUE(editor->Open("Level01"));
    for (int i = 0; i < 4; ++i) Move(PathTo(world.Find("player1")), 10.0f, 0.0f);
  }

  void Show(float y, bool down) {
    ImGuiContextForTest::MoveMouse(60.0f, y);
    ImGuiContextForTest::HoldMouse(down);
    m_context.Frame([&] { m_panel.Show(*editor); });
  }
  /// Clicks at a height of the list.
  void Click(float y) {
    Show(y, false);
    Show(y, true);
    Show(y, false);
  }

  ImGuiContextForTest m_context{400.0f, 300.0f};
  HistoryPanel m_panel;
};

TEST_F(HistoryPanelTest, AClickOnTheFirstLineUndoesEverything) {
  Click(14.0f);
  EXPECT_EQ(editor->history.Position(), 0u);
  EXPECT_EQ(editor->history.Size(), 4u);
  EXPECT_FALSE(editor->IsChanged());
}

TEST_F(HistoryPanelTest, AClickOnALineThatWasUndoneDoesItAgain) {
  Click(14.0f);
  Click(14.0f + 2.0f * ImGui::GetTextLineHeightWithSpacing());
  EXPECT_EQ(editor->history.Position(), 2u);
}

}  // namespace
}  // namespace ZOVEngine
