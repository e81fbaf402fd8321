#include "editor/panels/trialpanel.h"

#include <gtest/gtest.h>

#include "editor/editortest.h"
#include "support/imguiframe.h"

namespace ZOVEngine {
namespace {

using carapace_test::ImGuiContextForTest;

TEST(TrialPanel, WithoutALevelNothingCanBeStarted) {
  ImGuiContextForTest context{800.0f, 300.0f};
  carapace_test::World world;
  LevelEditor editor;
  TrialPanel panel;
  for (float y = 10.0f; y < 120.0f; y += 8.0f) {
    ImGuiContextForTest::MoveMouse(300.0f, y);
    for (const bool down : {false, true, false}) {
      ImGuiContextForTest::HoldMouse(down);
      context.Frame([&] { panel.Show(editor); });
    }
  }
  panel.Poll();
  EXPECT_TRUE(editor.wants_replay.empty());
  EXPECT_TRUE(editor.log.Lines().empty());
}

}  // namespace
}  // namespace ZOVEngine
