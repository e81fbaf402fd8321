#include "editor/shell/toolsinput.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <vector>

#include "support/imguiframe.h"

namespace ZOVEngine {
namespace {

class ToolsInputTest : public ::testing::Test {
 protected:
  ToolsInputTest() { input.Reset(ImVec2(0.0f, 0.0f)); }

  void Move(int x, int y) {
    SDL_Event event{};
    event.type = SDL_MOUSEMOTION;
    event.motion.x = x;
    event.motion.y = y;
    input.Take(event);
  }
  void Button(std::uint8_t button, bool down, int x, int y) {
    SDL_Event event{};
    event.type = down ? SDL_MOUSEBUTTONDOWN : SDL_MOUSEBUTTONUP;
    event.button.button = button;
    event.button.x = x;
    event.button.y = y;
    input.Take(event);
  }
  void Left(bool down, int x, int y) { Button(SDL_BUTTON_LEFT, down, x, y); }
  void Key(std::uint32_t type, std::uint8_t repeat = 0, std::uint16_t modifiers = 0) {
    SDL_Event event{};
    event.type = type;
    event.key.repeat = repeat;
    event.key.keysym.mod = modifiers;
    input.Take(event);
  }
  void Window(std::uint8_t what) {
    SDL_Event event{};
    event.type = SDL_WINDOWEVENT;
    event.window.event = what;
    input.Take(event);
  }
  /// What ImGui is told for the next frame, whatever its backend has read before.
  ImGuiIO& Frame() {
    fed.clear();
    input.Feed([this](const SDL_Event& event) { fed.push_back(event.type); });
    ImGuiIO& io = ImGui::GetIO();
    io.MousePos = ImVec2(900.0f, 900.0f);
    io.MouseDown[0] = true;
    input.Apply(&io);
    return io;
  }

  carapace_test::ImGuiContextForTest context;
  ToolsInput input;
  std::vector<std::uint32_t> fed;  ///< types of the events of the last frame
};

TEST_F(ToolsInputTest, MovesAreTakenAllAtOnce) {
  Move(10, 20);
  Move(30, 40);
  EXPECT_FALSE(input.IsFrameFull());
  const ImGuiIO& io = Frame();
  EXPECT_EQ(io.MousePos.x, 30.0f);
  EXPECT_EQ(io.MousePos.y, 40.0f);
  EXPECT_FALSE(io.MouseDown[0]);
  EXPECT_EQ(fed.size(), 2u);
}

TEST_F(ToolsInputTest, APressIsWhereItWasMadeAndAFrameLaterThanTheMouse) {
  Left(true, 10, 20);
  Move(70, 80);
  Left(false, 72, 82);
  EXPECT_EQ(Frame().MousePos.x, 10.0f);
  EXPECT_FALSE(ImGui::GetIO().MouseDown[0]);
  EXPECT_EQ(Frame().MousePos.x, 10.0f);
  EXPECT_TRUE(ImGui::GetIO().MouseDown[0]);
  EXPECT_EQ(Frame().MousePos.x, 72.0f);
  EXPECT_FALSE(ImGui::GetIO().MouseDown[0]);
}

TEST_F(ToolsInputTest, APressAtThePlaceThatWasShownIsTheNextFrames) {
  Move(10, 20);
  Frame();
  Left(true, 10, 20);
  EXPECT_TRUE(Frame().MouseDown[0]);
}

TEST_F(ToolsInputTest, AClickThatIsOverIsShownAsPressAndRelease) {
  Move(10, 20);
  Frame();
  Left(true, 10, 20);
  Left(false, 10, 20);
  EXPECT_TRUE(Frame().MouseDown[0]);
  EXPECT_TRUE(input.IsFrameFull());
  EXPECT_FALSE(Frame().MouseDown[0]);
  EXPECT_FALSE(input.IsFrameFull());
}

TEST_F(ToolsInputTest, AKeyBehindAPressWaitsForIt) {
  Left(true, 10, 20);
  Key(SDL_KEYDOWN);
  Frame();
  EXPECT_TRUE(fed.empty());
  Frame();
  EXPECT_EQ(fed, std::vector<std::uint32_t>{SDL_MOUSEBUTTONDOWN});
  Frame();
  EXPECT_EQ(fed, std::vector<std::uint32_t>{SDL_KEYDOWN});
}

TEST_F(ToolsInputTest, ButtonsHaveImGuisNumbers) {
  Button(SDL_BUTTON_RIGHT, true, 0, 0);
  EXPECT_TRUE(Frame().MouseDown[1]);
  Button(SDL_BUTTON_MIDDLE, true, 0, 0);
  EXPECT_TRUE(Frame().MouseDown[2]);
  Button(SDL_BUTTON_X1, true, 0, 0);
  Frame();
  EXPECT_FALSE(input.IsFrameFull());
}

TEST_F(ToolsInputTest, KeysFillAFrameButTheirRepetitionsDoNot) {
  Key(SDL_KEYDOWN, 1);
  EXPECT_FALSE(input.IsFrameFull());
  Key(SDL_KEYDOWN);
  Key(SDL_KEYUP);
  EXPECT_TRUE(input.IsFrameFull());
  Frame();
  EXPECT_EQ(fed.size(), 2u) << "the release is the next frame's";
  Frame();
  EXPECT_FALSE(input.IsFrameFull());
}

TEST_F(ToolsInputTest, AKeyHasTheModifiersThatWereHeldWithIt) {
  Key(SDL_KEYDOWN, 0, KMOD_LCTRL);
  ImGui::GetIO().KeyCtrl = false;  // let go by now, as the backend reads it
  EXPECT_TRUE(Frame().KeyCtrl);
  EXPECT_FALSE(ImGui::GetIO().KeyShift);
  Key(SDL_KEYUP);
  ImGui::GetIO().KeyCtrl = true;
  EXPECT_FALSE(Frame().KeyCtrl);
  Key(SDL_KEYDOWN, 0, KMOD_RSHIFT | KMOD_LALT);
  EXPECT_TRUE(Frame().KeyShift);
  EXPECT_TRUE(ImGui::GetIO().KeyAlt);
}

TEST_F(ToolsInputTest, AMouseThatLeavesIsOverNothingUnlessItDrags) {
  Move(10, 20);
  Window(SDL_WINDOWEVENT_LEAVE);
  Frame();
  EXPECT_FALSE(ImGui::IsMousePosValid());
  Move(10, 20);
  Frame();
  Left(true, 10, 20);
  Window(SDL_WINDOWEVENT_LEAVE);
  Frame();
  Frame();
  EXPECT_TRUE(ImGui::IsMousePosValid());
}

TEST_F(ToolsInputTest, WithTheFocusTheButtonsAreLetGo) {
  Left(true, 0, 0);
  EXPECT_TRUE(Frame().MouseDown[0]);
  Window(SDL_WINDOWEVENT_FOCUS_LOST);
  EXPECT_FALSE(Frame().MouseDown[0]);
}

TEST_F(ToolsInputTest, StartsAnewWithAllButtonsUpAndNothingWaiting) {
  Left(true, 10, 20);
  Frame();
  input.Reset(ImVec2(5.0f, 6.0f));
  EXPECT_FALSE(input.IsFrameFull());
  EXPECT_EQ(Frame().MousePos.y, 6.0f);
  EXPECT_FALSE(ImGui::GetIO().MouseDown[0]);
}

TEST_F(ToolsInputTest, EventsThatAreNotForPanelsAreNotKept) {
  SDL_Event event{};
  event.type = SDL_DROPFILE;
  input.Take(event);
  Frame();
  EXPECT_TRUE(fed.empty());
}

}  // namespace
}  // namespace ZOVEngine
