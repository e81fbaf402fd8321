#include "editor/panels/flow.h"

#include <gtest/gtest.h>
#include <imgui.h>

#include <array>

#include "support/imguiframe.h"

namespace ZOVEngine {
namespace {

constexpr std::array<const char*, 4> kLabels = {"Units", "Weapons", "Hazards", "Lights"};

/// How many lines the buttons take in a window of this width; none may reach beyond it.
int Lines(float width) {
  carapace_test::ImGuiContextForTest context(width, 300.0f);
  int lines = 1;
  for (int frame = 0; frame < 2; ++frame) {
    lines = 1;
    context.Frame([&] {
      float last = ImGui::GetCursorScreenPos().y;
      for (const char* label : kLabels) {
        if (label != kLabels.front()) FlowTo(RadioWidth(label));
        ImGui::RadioButton(label, false);
        EXPECT_LE(ImGui::GetItemRectMax().x, width) << label;
        lines += ImGui::GetItemRectMin().y > last ? 1 : 0;
        last = ImGui::GetItemRectMin().y;
      }
    });
  }
  return lines;
}

TEST(Flow, WidgetsShareALineAsFarAsTheyFit) {
  EXPECT_EQ(Lines(600.0f), 1);
  EXPECT_EQ(Lines(200.0f), 2);
  EXPECT_EQ(Lines(100.0f), 4);
}

TEST(Flow, KnowsHowWideWidgetsAre) {
  carapace_test::ImGuiContextForTest context;
  context.Frame([] {
    ImGui::RadioButton("Weapons", false);
    EXPECT_FLOAT_EQ(ImGui::GetItemRectSize().x, RadioWidth("Weapons"));
    ImGui::Button("Music##to");
    EXPECT_FLOAT_EQ(ImGui::GetItemRectSize().x, ButtonWidth("Music##to"));
  });
}

}  // namespace
}  // namespace ZOVEngine
