#include "editor/panels/logpanel.h"

#include <gtest/gtest.h>

#include "editor/editortest.h"
#include "support/imguiframe.h"

namespace ZOVEngine {
namespace {

using LogPanelTest = carapace_test::EditorTest;

TEST_F(LogPanelTest, TheLatestLineIsScrolledIntoView) {
  carapace_test::ImGuiContextForTest context{400.0f, 200.0f};
  LogPanel panel;
  for (int i = 0; i < 100; ++i) editor->log.Say("line");
  float scroll = 0.0f, most = -1.0f;
  for (int i = 0; i < 4; ++i) {
    context.Frame([&] {
      ImGui::BeginChild("log", ImVec2(0.0f, 100.0f));
      panel.Show(*editor);
      scroll = ImGui::GetScrollY();
      most = ImGui::GetScrollMaxY();
      ImGui::EndChild();
    });
  }
  EXPECT_GT(most, 1000.0f);
  EXPECT_GE(scroll, most - 1.0f);
}

TEST_F(LogPanelTest, AFaultIsNewUntilThePanelWasShown) {
  carapace_test::ImGuiContextForTest context{400.0f, 200.0f};
  LogPanel panel;
  editor->log.Say("Saved.");
  EXPECT_FALSE(panel.HasNewFault(*editor));
  editor->log.Fault("Left out.");
  editor->log.Say("Opened.");
  EXPECT_TRUE(panel.HasNewFault(*editor));
  context.Frame([&] { panel.Show(*editor); });
  EXPECT_FALSE(panel.HasNewFault(*editor));
}

}  // namespace
}  // namespace ZOVEngine
