#include "editor/shell/lastpanels.h"

#include <gtest/gtest.h>

#include <functional>

#include "support/imguiframe.h"

namespace ZOVEngine {
namespace {

class LastPanelsTest : public ::testing::Test {
 protected:
  /// Whether a frame with this panel is another one than the last.
  bool IsNew(const std::function<void()>& content) {
    m_context.Frame(content);
    return m_panels.Take(*ImGui::GetDrawData());
  }

  carapace_test::ImGuiContextForTest m_context;
  LastPanels m_panels;
};

TEST_F(LastPanelsTest, AFrameIsNewOnce) {
  const auto panel = [] { ImGui::Text("Floor"); };
  EXPECT_TRUE(IsNew(panel));
  IsNew(panel);  // a window settles in its second frame
  EXPECT_FALSE(IsNew(panel));
  EXPECT_FALSE(IsNew(panel));
}

TEST_F(LastPanelsTest, AFrameWithAnotherWordPlaceColourOrImageIsNew) {
  int image = 1;
  float place = 10.0f;
  const char* word = "Floor";
  ImU32 colour = IM_COL32(1, 2, 3, 255);
  const auto panel = [&] {
    ImGui::SetCursorPos(ImVec2(place, 10.0f));
    ImGui::PushStyleColor(ImGuiCol_Text, colour);
    ImGui::Text("%s", word);
    ImGui::PopStyleColor();
    ImGui::Image(&image + (image - 1), ImVec2(20.0f, 20.0f));
  };
  for (int i = 0; i < 3; ++i) IsNew(panel);
  EXPECT_FALSE(IsNew(panel));
  word = "Walls";
  EXPECT_TRUE(IsNew(panel));
  place = 11.0f;
  EXPECT_TRUE(IsNew(panel));
  colour = IM_COL32(1, 2, 4, 255);
  EXPECT_TRUE(IsNew(panel));
  image = 2;
  EXPECT_TRUE(IsNew(panel));
  EXPECT_FALSE(IsNew(panel));
}

}  // namespace
}  // namespace ZOVEngine
