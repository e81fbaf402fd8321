#include "platform/inputsystem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rttr/type>

#include "platform/platformfixture.h"
#include "platform/virtualkeys.h"

namespace ZOVEngine {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Kind = NativeEventKind;

class InputSystemTest : public PlatformTest {
 protected:
  void SetUp() override {
    PlatformTest::SetUp();
    Start();
  }

  /// What was heard since the last call.
  std::vector<std::string> TakeHeard() { return std::exchange(recorder.heard, {}); }
};

TEST_F(InputSystemTest, InitSetsTheCodesAndClearsTheFlags) {
  input->m_heldUp = input->m_heldMouseRight = true;
  input->Init();
  EXPECT_EQ(input->m_keyUp, 87);
  EXPECT_EQ(input->m_keyDown, 83);
  EXPECT_EQ(input->m_keyLeft, 65);
  EXPECT_EQ(input->m_keyRight, 68);
  EXPECT_EQ(input->m_mouseLeft, 1);
  EXPECT_EQ(input->m_mouseRight, 2);
  EXPECT_FALSE(input->m_heldUp);
  EXPECT_FALSE(input->m_heldMouseRight);
}

TEST_F(InputSystemTest, AKeyHeldForThreeStepsIsReportedThriceAndItsReleaseOnce) {
  native.Press('W');
  Step();
  Step();
  Step();
  EXPECT_TRUE(input->m_heldUp);
  native.Release('W');
  Step();
  Step();
  EXPECT_THAT(recorder.heard, ElementsAre("PlayerDirectionKey 0 1", "PlayerDirectionKey 0 1",
                                          "PlayerDirectionKey 0 1", "PlayerDirectionKey 0 0"));
  EXPECT_FALSE(input->m_heldUp);
}

TEST_F(InputSystemTest, KeysAndButtonsComeInAFixedOrder) {
  for (const std::uint32_t key : {2u, 1u, 68u, 65u, 83u, 87u}) native.Press(key);
  Step();
  EXPECT_THAT(TakeHeard(), ElementsAre("PlayerDirectionKey 0 1", "PlayerDirectionKey 1 1",
                                       "PlayerDirectionKey 2 1", "PlayerDirectionKey 3 1",
                                       "MouseButton 0 1 (0, 0, 1)", "MouseButton 1 1 (0, 0, 1)"));
  native.keys_down.clear();
  Step();
  EXPECT_THAT(TakeHeard(), ElementsAre("PlayerDirectionKey 0 0", "PlayerDirectionKey 1 0",
                                       "PlayerDirectionKey 2 0", "PlayerDirectionKey 3 0",
                                       "MouseButton 0 0 (0, 0, 1)", "MouseButton 1 0 (0, 0, 1)"));
}

TEST_F(InputSystemTest, AQuickPressBetweenTwoPollsIsInTheQueueOnly) {
  native.Push(Kind::kKeyDown, 'W');
  native.Push(Kind::kKeyUp, 'W');
  Step();
  Step();
  EXPECT_THAT(recorder.heard, ElementsAre("KeyDown 87", "KeyUp 87"));
}

TEST_F(InputSystemTest, EachStepTakesExactlyOneEvent) {
  native.Push(Kind::kKeyDown, 'Q');
  native.Push(Kind::kOther);
  native.PushMouseMove(3, 4);
  native.PushWheel(120);
  Step();
  EXPECT_THAT(TakeHeard(), ElementsAre("KeyDown 81"));
  Step();
  EXPECT_THAT(TakeHeard(), IsEmpty());
  Step();
  EXPECT_THAT(TakeHeard(), ElementsAre("MouseMoving (3, 4, 1)"));
  EXPECT_EQ(native.events.size(), 1u);
  Step();
  EXPECT_THAT(TakeHeard(), ElementsAre("MouseScroll 0"));
}

TEST_F(InputSystemTest, TheEventOfAStepComesBeforeThePolledKeys) {
  native.Push(Kind::kKeyDown, 'W');
  native.Press('W');
  Step();
  EXPECT_THAT(recorder.heard, ElementsAre("KeyDown 87", "PlayerDirectionKey 0 1"));
}

TEST_F(InputSystemTest, WithoutTheFocusNothingIsPolledAndHeldKeysStayHeld) {
  native.Press('D');
  native.Press(kVkLeftButton);
  Step();
  TakeHeard();
  native.focus = false;
  Step();
  native.Release('D');
  native.Release(kVkLeftButton);
  Step();
  EXPECT_THAT(TakeHeard(), IsEmpty());
  EXPECT_TRUE(input->m_heldRight);
  EXPECT_TRUE(input->m_heldMouseLeft);
  native.focus = true;
  Step();
  EXPECT_THAT(TakeHeard(), ElementsAre("PlayerDirectionKey 3 0", "MouseButton 0 0 (0, 0, 1)"));
}

TEST_F(InputSystemTest, WithoutTheFocusEventsStillPass) {
  native.focus = false;
  native.Press('W');
  native.Push(Kind::kKillFocus);
  Step();
  EXPECT_THAT(recorder.heard, ElementsAre("GameLoseFocus 1", "Mute true 2"));
}

TEST_F(InputSystemTest, AMouseButtonCarriesTheCursorOfTheMoment) {
  native.Press(kVkLeftButton);
  native.cursor = {10, 20};
  Step();
  native.cursor = {11, -3};
  Step();
  native.Release(kVkLeftButton);
  native.cursor = {12, 700};
  Step();
  Step();
  EXPECT_THAT(recorder.heard,
              ElementsAre("MouseButton 0 1 (10, 20, 1)", "MouseButton 0 1 (11, -3, 1)",
                          "MouseButton 0 0 (12, 700, 1)"));
}

TEST_F(InputSystemTest, TheRightButtonIsNumberOne) {
  native.Press(kVkRightButton);
  Step();
  native.Release(kVkRightButton);
  Step();
  EXPECT_THAT(recorder.heard,
              ElementsAre("MouseButton 1 1 (0, 0, 1)", "MouseButton 1 0 (0, 0, 1)"));
}

TEST_F(InputSystemTest, OtherKeysAreNotPolled) {
  native.Press('Q');
  native.Press(kVkSpace);
  Step();
  EXPECT_THAT(recorder.heard, IsEmpty());
}

TEST_F(InputSystemTest, APausedStepDoesTheSame) {
  native.Push(Kind::kKeyUp, kVkEscape);
  native.Press(kVkLeftButton);
  input->PausedUpdate(kStep);
  EXPECT_THAT(recorder.heard, ElementsAre("KeyUp 27", "MouseButton 0 1 (0, 0, 1)"));
}

TEST_F(InputSystemTest, MessagesAreIgnored) {
  KeyDown message('W');
  input->SendMessage(&message);
  Step();
  EXPECT_THAT(recorder.heard, IsEmpty());
}

TEST_F(InputSystemTest, ADestroyEventEndsTheLoop) {
  native.Push(Kind::kDestroy);
  Step();
  EXPECT_FALSE(engine.running);
}

TEST_F(InputSystemTest, TheDestructorSaysSo) {
  ::testing::internal::CaptureStdout();
  input.reset();
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "Destructor of InputSystem\n");
  EXPECT_EQ(g_input_system, nullptr);
}

TEST_F(InputSystemTest, ReflectionKnowsItAsASystem) {
  const rttr::type type = rttr::type::get_by_name("ZOVEngine::InputSystem");
  ASSERT_TRUE(type.is_valid());
  EXPECT_EQ(type.get_metadata("systemname").get_value<std::string>(), "InputSystem");
  const System* base = input.get();
  EXPECT_EQ(rttr::type::get(*base), type);
}

// The cursor relative to the centre

TEST_F(InputSystemTest, TheCursorAtTheCentreIsTheOrigin) {
  native.cursor = {640, 360};
  EXPECT_EQ(GetCursorScreenPosition(), Vector3D(0.0f, 0.0f, 1.0f));
}

TEST_F(InputSystemTest, TheCursorIsScaledToTheMonitorWithYUpwards) {
  native.cursor = {0, 0};
  EXPECT_EQ(GetCursorScreenPosition(), Vector3D(-960.0f, 540.0f, 1.0f));
  native.cursor = {740, 460};
  EXPECT_EQ(GetCursorScreenPosition(), Vector3D(150.0f, -150.0f, 1.0f));
}

TEST_F(InputSystemTest, AWindowOfTheMonitorsHeightScalesByOne) {
  SetDisplayMode(false, 1600, 1080);
  native.cursor = {1000, 500};
  EXPECT_EQ(GetCursorScreenPosition(), Vector3D(200.0f, 40.0f, 1.0f));
}

TEST_F(InputSystemTest, TheRatioIsComputedByWayOfTheDifference) {
  // So large a size has no odd numbers, so the difference loses the last unit of 1081.
  const float side = 3e7f;
  native.monitor.height = 1081;
  SetDisplayMode(true, 0, 0);
  window->m_size = Vector3D(side, side, 1.0f);
  native.cursor = {0, 0};
  EXPECT_EQ(GetCursorScreenPosition().x, -side * 0.5f * (1080.0f / side));
}

TEST_F(InputSystemTest, TheSettingForTheMonitorsHeightScalesTheCursorAndNothingElse) {
  WriteSettings(R"({"name": "", "title": "", "Activate_Console": false, "Activate_ImGui": false,
                    "fullscreen": false, "winwidth": 1280, "winheight": 720,
                    "monitor_height": 2160})");
  Start();
  native.cursor = {641, 361};
  EXPECT_EQ(GetCursorScreenPosition(), Vector3D(3.0f, -3.0f, 1.0f));
  SetDisplayMode(true, 0, 0);
  EXPECT_EQ(window->m_size, Vector3D(1920.0f, 1080.0f, 1.0f));
  EXPECT_EQ(g_window_state.monitorHeight, 1080);
}

TEST_F(InputSystemTest, AMonitorHeightThatMakesNoSenseIsLeftAside) {
  WriteSettings(R"({"winwidth": 1280, "winheight": 720, "monitor_height": -1})");
  Start();
  native.cursor = {641, 360};
  EXPECT_EQ(GetCursorScreenPosition().x, 1.5f);
}

// A game that is played without the user's hands

TEST_F(InputSystemTest, APlayedCursorStandsInForTheUsers) {
  native.cursor = {740, 460};
  input->m_played_cursor = Vector3D(12.0f, -34.0f, 1.0f);
  EXPECT_EQ(GetCursorScreenPosition(), Vector3D(12.0f, -34.0f, 1.0f));
  input->m_played_cursor.reset();
  EXPECT_EQ(GetCursorScreenPosition(), Vector3D(150.0f, -150.0f, 1.0f));
}

TEST_F(InputSystemTest, WithAPlayedCursorTheUsersKeysAndMouseGiveNoMessage) {
  input->m_played_cursor = Vector3D();
  native.Press('W');
  native.Press(kVkLeftButton);
  native.Push(Kind::kKeyDown, 'H');
  native.Push(Kind::kKeyUp, kVkSpace);
  native.Push(Kind::kLeftButtonDown, 1);
  native.Push(Kind::kLeftButtonUp, 0);
  native.Push(Kind::kRightButtonDown, 2);
  native.Push(Kind::kRightButtonUp, 0);
  native.PushMouseMove(5, 6);
  native.PushWheel(120);
  for (int step = 0; step < 9; ++step) Step();
  EXPECT_TRUE(native.events.empty());
  EXPECT_THAT(TakeHeard(), IsEmpty());
}

TEST_F(InputSystemTest, WithAPlayedCursorEscapeAndTheFunctionKeysAreHeard) {
  input->m_played_cursor = Vector3D();
  for (const std::uint64_t key : {27u, 111u, 112u, 123u, 124u}) native.Push(Kind::kKeyUp, key);
  for (int step = 0; step < 5; ++step) Step();
  EXPECT_THAT(TakeHeard(), ElementsAre("KeyUp 27", "KeyUp 112", "KeyUp 123"));
}

TEST_F(InputSystemTest, WithAPlayedCursorAToolsLayerStillSeesThePlatformsEvents) {
  input->m_played_cursor = Vector3D();
  int seen = 0;
  SetToolsListener([&seen](const void*) { ++seen; });
  g_window_state.imguiLive = true;
  native.Push(Kind::kKeyDown, 'H');
  Step();
  SetToolsListener(nullptr);
  EXPECT_EQ(seen, 1);
}

}  // namespace
}  // namespace ZOVEngine
