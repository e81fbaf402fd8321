#include "editor/panels/levelmenu.h"

#include <imgui.h>

#include "editor/leveleditor.h"

namespace ZOVEngine {

float LevelMenu::Show(LevelEditor& editor) {
  if (!ImGui::BeginMainMenuBar()) return 0.0f;
  if (ImGui::BeginMenu("Level")) {
    for (const std::string& name : LevelNames()) {
      if (ImGui::MenuItem(name.c_str())) editor.Open(name);
    }
    ImGui::Separator();
    if (ImGui::MenuItem("Save", "Ctrl+S", false, editor.IsOpen())) editor.Save();
    ImGui::EndMenu();
  }
  const float height = ImGui::GetWindowHeight();
  ImGui::EndMainMenuBar();
  return height;
}

}  // namespace ZOVEngine
