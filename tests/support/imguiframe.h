#pragma once

#include <imgui.h>

namespace carapace_test {

/// Dear ImGui without window and picture: a context with a display of this size.
class ImGuiContextForTest {
 public:
  explicit ImGuiContextForTest(float width = 1920.0f, float height = 1080.0f) {
    ImGui::CreateContext();
    ImGuiIO& io = ImGui::GetIO();
    io.DisplaySize = ImVec2(width, height);
    io.IniFilename = nullptr;
    unsigned char* pixels = nullptr;
    int columns = 0, rows = 0;
    io.Fonts->GetTexDataAsRGBA32(&pixels, &columns, &rows);
  }
  ~ImGuiContextForTest() { ImGui::DestroyContext(); }
  ImGuiContextForTest(const ImGuiContextForTest&) = delete;
  ImGuiContextForTest& operator=(const ImGuiContextForTest&) = delete;

  /// Runs a frame with one window that fills the display and that `content` fills.
  template <class Content>
  void Frame(Content content) {
    ImGui::NewFrame();
    ImGui::SetNextWindowPos(ImVec2(0.0f, 0.0f));
    ImGui::SetNextWindowSize(ImGui::GetIO().DisplaySize);
    ImGui::Begin("test", nullptr, ImGuiWindowFlags_NoDecoration);
    content();
    ImGui::End();
    ImGui::Render();
  }

  /// The mouse from the next frame on (unit: pixels).
  static void MoveMouse(float x, float y) { ImGui::GetIO().MousePos = ImVec2(x, y); }
  static void HoldMouse(bool down) { ImGui::GetIO().MouseDown[0] = down; }
};

}  // namespace carapace_test
