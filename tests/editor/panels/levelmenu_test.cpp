#include "editor/panels/levelmenu.h"

#include <gtest/gtest.h>
#include <imgui.h>

#include "editor/editortest.h"
#include "editor/recovery.h"
#include "support/imguiframe.h"

namespace ZOVEngine {
namespace {

/// The menu with a panel below it, as the editor's layout shows them.
class LevelMenuTest : public carapace_test::EditorTest {
 protected:
  void Frame() {
    ImGui::NewFrame();
    m_menu.Show(*editor);
    ImGui::SetNextWindowPos(ImVec2(0.0f, 100.0f));
    ImGui::Begin("panel");
    ImGui::End();
    m_dialog =
        ImGui::IsPopupOpen(nullptr, ImGuiPopupFlags_AnyPopupId | ImGuiPopupFlags_AnyPopupLevel);
    ImGui::Render();
  }

  carapace_test::ImGuiContextForTest m_context;
  LevelMenu m_menu;
  bool m_dialog = false;
};

TEST_F(LevelMenuTest, UnsavedWorkOfAnEarlierEditorIsOfferedOverThePanels) {
  ASSERT_TRUE(editor->Open("Level01"));
  Recovery::Write(*editor);
  for (int i = 0; i < 5; ++i) Frame();
  EXPECT_TRUE(m_dialog);
}

TEST_F(LevelMenuTest, WithoutUnsavedWorkThereIsNoDialog) {
  for (int i = 0; i < 5; ++i) Frame();
  EXPECT_FALSE(m_dialog);
}

}  // namespace
}  // namespace ZOVEngine
