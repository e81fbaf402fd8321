#include "editor/shell/toolsmouse.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include "support/imguiframe.h"

namespace ZOVEngine {
namespace {

class ToolsMouseTest : public ::testing::Test {
 protected:
  void Move(int x, int y) {
    SDL_Event event{};
    event.type = SDL_MOUSEMOTION;
    event.motion.x = x;
    event.motion.y = y;
    mouse.Take(&event);
  }
  void Button(std::uint8_t button, bool down, int x, int y) {
    SDL_Event event{};
    event.type = down ? SDL_MOUSEBUTTONDOWN : SDL_MOUSEBUTTONUP;
    event.button.button = button;
    event.button.x = x;
    event.button.y = y;
    mouse.Take(&event);
  }
  void Key(std::uint32_t type, std::uint8_t repeat = 0) {
    SDL_Event event{};
    event.type = type;
    event.key.repeat = repeat;
    mouse.Take(&event);
  }
  void Window(std::uint8_t what) {
    SDL_Event event{};
    event.type = SDL_WINDOWEVENT;
    event.window.event = what;
    mouse.Take(&event);
  }
  /// What ImGui is told for the next frame, whatever its backend has read before.
  ImGuiIO& Frame() {
    ImGuiIO& io = ImGui::GetIO();
    io.MousePos = ImVec2(900.0f, 900.0f);
    io.MouseDown[0] = true;
    mouse.Apply(&io);
    return io;
  }

  carapace_test::ImGuiContextForTest context;
  ToolsMouse mouse;
};

TEST_F(ToolsMouseTest, MovesAreTakenAllAtOnce) {
  Move(10, 20);
  Move(30, 40);
  EXPECT_FALSE(mouse.IsFrameFull());
  const ImGuiIO& io = Frame();
  EXPECT_EQ(io.MousePos.x, 30.0f);
  EXPECT_EQ(io.MousePos.y, 40.0f);
  EXPECT_FALSE(io.MouseDown[0]);
}

TEST_F(ToolsMouseTest, APressIsShownWhereItWasMade) {
  Move(10, 20);
  Button(SDL_BUTTON_LEFT, true, 11, 21);
  EXPECT_TRUE(mouse.IsFrameFull()) << "what follows is another frame's";
  EXPECT_EQ(Frame().MousePos.x, 11.0f);
  EXPECT_TRUE(ImGui::GetIO().MouseDown[0]);
  EXPECT_FALSE(mouse.IsFrameFull());
  Move(70, 80);
  EXPECT_EQ(Frame().MousePos.x, 70.0f);
  EXPECT_TRUE(ImGui::GetIO().MouseDown[0]) << "still held";
  Button(SDL_BUTTON_LEFT, false, 72, 82);
  EXPECT_TRUE(mouse.IsFrameFull());
  EXPECT_EQ(Frame().MousePos.x, 72.0f);
  EXPECT_FALSE(ImGui::GetIO().MouseDown[0]);
}

TEST_F(ToolsMouseTest, ButtonsHaveImGuisNumbers) {
  Button(SDL_BUTTON_RIGHT, true, 0, 0);
  EXPECT_TRUE(Frame().MouseDown[1]);
  Button(SDL_BUTTON_MIDDLE, true, 0, 0);
  EXPECT_TRUE(Frame().MouseDown[2]);
  Button(SDL_BUTTON_X1, true, 0, 0);
  EXPECT_FALSE(mouse.IsFrameFull());
}

TEST_F(ToolsMouseTest, KeysFillAFrameButTheirRepetitionsDoNot) {
  Key(SDL_KEYDOWN, 1);
  EXPECT_FALSE(mouse.IsFrameFull());
  Key(SDL_KEYDOWN);
  EXPECT_TRUE(mouse.IsFrameFull());
  Frame();
  Key(SDL_KEYUP);
  EXPECT_TRUE(mouse.IsFrameFull());
}

TEST_F(ToolsMouseTest, AMouseThatLeavesIsOverNothingUnlessItDrags) {
  Move(10, 20);
  Window(SDL_WINDOWEVENT_LEAVE);
  Frame();
  EXPECT_FALSE(ImGui::IsMousePosValid());
  Button(SDL_BUTTON_LEFT, true, 10, 20);
  Window(SDL_WINDOWEVENT_LEAVE);
  Frame();
  EXPECT_TRUE(ImGui::IsMousePosValid());
}

TEST_F(ToolsMouseTest, WithTheFocusTheButtonsAreLetGo) {
  Button(SDL_BUTTON_LEFT, true, 10, 20);
  Window(SDL_WINDOWEVENT_FOCUS_LOST);
  EXPECT_FALSE(Frame().MouseDown[0]);
}

TEST_F(ToolsMouseTest, StartsAnewWithAllButtonsUp) {
  Button(SDL_BUTTON_LEFT, true, 10, 20);
  mouse.Reset(ImVec2(5.0f, 6.0f));
  EXPECT_FALSE(mouse.IsFrameFull());
  EXPECT_EQ(Frame().MousePos.y, 6.0f);
  EXPECT_FALSE(ImGui::GetIO().MouseDown[0]);
}

}  // namespace
}  // namespace ZOVEngine
