#include "platform/windowsystem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rttr/type>

#include <filesystem>

#include "platform/platformfixture.h"
#include "platform/virtualkeys.h"
#include "zovassert.h"

namespace ZOVEngine {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using Kind = NativeEventKind;

const Vector3D kWindowed(1280.0f, 720.0f, 1.0f);
const Vector3D kMonitor(1920.0f, 1080.0f, 1.0f);

NativeEvent Event(Kind kind, std::uint64_t wparam = 0) {
  NativeEvent event;
  event.kind = kind;
  event.wparam = wparam;
  return event;
}

class WindowSystemTest : public PlatformTest {
 protected:
  void ReleaseKey(std::uint64_t key) {
    KeyUp message(key);
    window->SendMessage(&message);
  }

  /// Runs Init and returns what it printed on standard output.
  std::string OutputOfInit() {
    ::testing::internal::CaptureStdout();
    window->Init();
    return ::testing::internal::GetCapturedStdout();
  }
};

using WindowSystemDeathTest = WindowSystemTest;

// Settings

TEST_F(WindowSystemTest, TheSettingsFillTheFields) {
  StartWith(800, 600, true);
  EXPECT_EQ(window->m_name, "Beetle");
  EXPECT_EQ(window->m_title, "Carapace");
  EXPECT_FALSE(window->m_consoleActive);
  EXPECT_TRUE(window->m_imguiActive);
  EXPECT_TRUE(window->m_fullscreen);
  EXPECT_EQ(window->m_width, 800);
  EXPECT_EQ(window->m_height, 600);
  EXPECT_EQ(window->m_startSize, Vector3D(800.0f, 600.0f, 1.0f));
  EXPECT_EQ(window->m_style, 0x000B0000u);
  EXPECT_EQ(window->m_rect.right, 800);
  EXPECT_EQ(window->m_rect.bottom, 600);
}

TEST_F(WindowSystemTest, EachAbsentKeyIsReported) {
  WriteSettings("{}");
  EXPECT_EQ(OutputOfInit(),
            "Cant find Key: name\nCant find Key: title\nCant find Key: Activate_Console\n"
            "Cant find Key: Activate_ImGui\nCant find Key: fullscreen\n"
            "Cant find Key: winwidth\nCant find Key: winheight\n");
  EXPECT_EQ(window->m_title, "");
  EXPECT_FALSE(window->m_fullscreen);
}

TEST_F(WindowSystemTest, TheMonitorHeightForTheCursorMayBeAbsentInSilence) {
  EXPECT_EQ(OutputOfInit(), "");
  EXPECT_EQ(g_window_state.cursorMonitorHeight, 0);
}

TEST_F(WindowSystemTest, AMalformedSettingsFileIsAnEmptyOne) {
  WriteSettings("{\"name\": ");
  EXPECT_THAT(OutputOfInit(), HasSubstr("Cant find Key: name\n"));
  EXPECT_EQ(window->m_width, 1);
}

TEST_F(WindowSystemTest, SizesThatMakeNoSenseAreHeldWithinLimits) {
  StartWith(0, -40, false);
  EXPECT_EQ(window->m_width, 1);
  EXPECT_EQ(window->m_height, 1);
  StartWith(70000, 16385, false);
  EXPECT_EQ(window->m_width, 16384);
  EXPECT_EQ(window->m_height, 16384);
  EXPECT_EQ(window->m_size, Vector3D(16384.0f, 16384.0f, 1.0f));
}

TEST_F(WindowSystemDeathTest, AnAbsentSettingsFileEndsTheProgram) {
  std::filesystem::remove("Resources/Archetypes/WinInit.json");
  EXPECT_DEATH(window->Init(), "Resources/Archetypes/WinInit.jsonfile not found");
}

// Start

TEST_F(WindowSystemTest, InitOpensTheWindowThenTheContextThenTheDeviceThenShows) {
  window->Init();
  EXPECT_THAT(native.calls,
              ElementsAre("OpenWindow Beetle Carapace 1280x720", "CreateContext", "ShowWindow"));
  EXPECT_THAT(device.calls, ElementsAre("Start", "ResetViewport"));
  EXPECT_EQ(Viewport(), "1280x720, 1");
  EXPECT_EQ(window->m_window, native.WindowHandle());
  EXPECT_EQ(window->m_glContext, native.ContextHandle());
}

TEST_F(WindowSystemTest, TheConsoleIsOpenedBeforeTheWindowWhenAskedFor) {
  WriteSettings(R"({"name": "a", "title": "b", "Activate_Console": true, "Activate_ImGui": false,
                    "fullscreen": false, "winwidth": 10, "winheight": 10})");
  window->Init();
  EXPECT_THAT(native.calls,
              ElementsAre("OpenConsole", "OpenWindow a b 10x10", "CreateContext", "ShowWindow"));
}

TEST_F(WindowSystemTest, AfterInitTheDrawableSizeIsTheWindowsAndTheModuleStateIsFilled) {
  Start();
  EXPECT_EQ(window->m_size, kWindowed);
  EXPECT_EQ(g_window_state.windowedWidth, 1280);
  EXPECT_EQ(g_window_state.windowedHeight, 720);
  EXPECT_EQ(g_window_state.monitorWidth, 1920);
  EXPECT_EQ(g_window_state.monitorHeight, 1080);
  EXPECT_FALSE(g_window_state.fullscreen);
  EXPECT_TRUE(g_window_state.fullscreenToggle);
  EXPECT_FALSE(g_window_state.imguiLive);
}

TEST_F(WindowSystemTest, AStartInFullScreenTakesTheMonitorAndKeepsTheWindowedSize) {
  WriteSettings(Settings(1280, 720, true));
  window->Init();
  EXPECT_EQ(native.calls.back(), "SetFullScreen");
  EXPECT_EQ(window->m_size, kMonitor);
  EXPECT_EQ(g_window_state.windowedWidth, 1280);
  EXPECT_EQ(g_window_state.windowedHeight, 720);
  EXPECT_TRUE(g_window_state.fullscreen);
}

TEST_F(WindowSystemTest, InitBroadcastsNothing) {
  StartWith(1280, 720, true);
  EXPECT_THAT(recorder.heard, IsEmpty());
}

TEST_F(WindowSystemTest, AProgramWithoutAPictureNeedsNoDevice) {
  g_gl_device = nullptr;
  Start();
  EXPECT_EQ(window->m_size, kWindowed);
}

TEST_F(WindowSystemDeathTest, WithoutAWindowTheUserIsToldAndTheProcessFails) {
  native.window_error = "no window to be had";
  EXPECT_EXIT(window->Init(), ::testing::ExitedWithCode(EXIT_FAILURE),
              "Carapace: no window to be had");
}

TEST_F(WindowSystemDeathTest, WithoutAContextTheUserIsToldAndTheProcessFails) {
  native.context_error = "no context to be had";
  EXPECT_EXIT(window->Init(), ::testing::ExitedWithCode(EXIT_FAILURE),
              "Carapace: no context to be had");
}

TEST_F(WindowSystemDeathTest, WithADeviceThatCannotStartTheUserIsToldAndTheProcessFails) {
  device.start_result = "OpenGL 3.3 is lacking";
  EXPECT_EXIT(window->Init(), ::testing::ExitedWithCode(EXIT_FAILURE),
              "Carapace: OpenGL 3.3 is lacking");
}

TEST_F(WindowSystemTest, FileDropsAreAcceptedInEveryStepPausedOrNot) {
  Start();
  window->Update(kStep);
  window->PausedUpdate(kStep);
  EXPECT_EQ(native.file_drops_accepted, 2);
}

TEST_F(WindowSystemTest, TheDestructorSaysSoAndDeletesTheContext) {
  Start();
  ::testing::internal::CaptureStdout();
  window.reset();
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "Destructor of WindowSystem\n");
  EXPECT_THAT(native.calls, ElementsAre("DestroyContext"));
  EXPECT_EQ(g_window_system, nullptr);
}

TEST_F(WindowSystemDeathTest, AFailedAssertionShowsItsBoxThroughThePlatform) {
  EXPECT_DEATH(ZOVAssert("gameobj.h", 7, "lost"), "Error: ZOV assertion is called: ");
}

TEST_F(WindowSystemTest, ReflectionKnowsItAsASystem) {
  const rttr::type type = rttr::type::get_by_name("ZOVEngine::WindowSystem");
  ASSERT_TRUE(type.is_valid());
  EXPECT_EQ(type.get_metadata("systemname").get_value<std::string>(), "WindowSystem");
  const System* base = window.get();
  EXPECT_EQ(rttr::type::get(*base), type);
}

// Display modes

TEST_F(WindowSystemTest, FullScreenTakesTheMonitorsSizeAndLeavesTheWindowedSize) {
  Start();
  SetDisplayMode(true, 5, 6);
  EXPECT_THAT(native.calls, ElementsAre("SetFullScreen"));
  EXPECT_EQ(window->m_size, kMonitor);
  EXPECT_EQ(g_window_state.windowedWidth, 1280);
  EXPECT_EQ(g_window_state.windowedHeight, 720);
  EXPECT_TRUE(g_window_state.fullscreen);
}

TEST_F(WindowSystemTest, FullScreenSetsTheViewportToTheMonitor) {
  Start();
  native.monitor = {2880, 900};
  SetDisplayMode(true, 0, 0);
  EXPECT_EQ(Viewport(), "2880x900, 3");
}

TEST_F(WindowSystemTest, WindowedModeReplacesTheWindowedSizeAndResetsTheViewport) {
  StartWith(1280, 720, true);
  SetDisplayMode(false, 900, 300);
  EXPECT_THAT(native.calls, ElementsAre("SetWindowed 900x300"));
  EXPECT_EQ(Viewport(), "900x300, 3");
  EXPECT_EQ(window->m_size, Vector3D(900.0f, 300.0f, 1.0f));
  EXPECT_EQ(g_window_state.windowedWidth, 900);
  EXPECT_EQ(g_window_state.windowedHeight, 300);
  EXPECT_FALSE(g_window_state.fullscreen);
}

TEST_F(WindowSystemTest, FullScreenTakesTheMonitorThatTheWindowWasMovedTo) {
  Start();
  native.monitor = {2560, 1440};
  SetDisplayMode(true, 0, 0);
  EXPECT_EQ(window->m_size, Vector3D(2560.0f, 1440.0f, 1.0f));
  EXPECT_EQ(g_window_state.monitorHeight, 1440);
}

TEST_F(WindowSystemTest, F6GoesToFullScreenAndBack) {
  Start();
  ReleaseKey(kVkF6);
  ReleaseKey(kVkF6);
  ReleaseKey(kVkF6);
  EXPECT_THAT(native.calls, ElementsAre("SetFullScreen", "SetWindowed 1280x720", "SetFullScreen"));
}

TEST_F(WindowSystemTest, StartedInFullScreenTheFirstF6EntersItAgainAndTheSecondLeavesIt) {
  StartWith(1280, 720, true);
  ReleaseKey(kVkF6);
  EXPECT_THAT(native.calls, ElementsAre("SetFullScreen"));
  EXPECT_EQ(window->m_size, kMonitor);
  ReleaseKey(kVkF6);
  EXPECT_EQ(native.calls.back(), "SetWindowed 1280x720");
  EXPECT_EQ(window->m_size, kWindowed);
}

TEST_F(WindowSystemTest, F6DoesNotSeeAModeChangedElsewhere) {
  Start();
  SetDisplayMode(true, 0, 0);
  native.calls.clear();
  ReleaseKey(kVkF6);
  EXPECT_THAT(native.calls, ElementsAre("SetFullScreen"));
}

TEST_F(WindowSystemTest, OtherKeysAndOtherMessagesChangeNoMode) {
  Start();
  ReleaseKey(kVkF5);
  KeyDown down(kVkF6);
  window->SendMessage(&down);
  EXPECT_THAT(native.calls, IsEmpty());
  EXPECT_TRUE(g_window_state.fullscreenToggle);
}

TEST_F(WindowSystemTest, TheAspectOfTheViewportIsAnIntegerQuotient) {
  ResizeViewport(1280, 720);
  EXPECT_EQ(Viewport(), "1280x720, 1");
  ResizeViewport(1919, 480);
  EXPECT_EQ(Viewport(), "1919x480, 3");
  ResizeViewport(300, 900);
  EXPECT_EQ(Viewport(), "300x900, 0");
}

TEST_F(WindowSystemTest, AHeightOfZeroCountsAsOne) {
  ResizeViewport(640, 0);
  EXPECT_EQ(Viewport(), "640x1, 640");
}

// The window procedure, row by row

TEST_F(WindowSystemTest, DestroyEndsTheProgram) {
  Start();
  EXPECT_FALSE(WindowProcedure(Event(Kind::kDestroy)));
  EXPECT_FALSE(engine.running);
  EXPECT_FALSE(window->m_imguiActive);
  EXPECT_THAT(recorder.heard, IsEmpty());
}

TEST_F(WindowSystemTest, ARestoredSizeMeansTheWindowedSizeNotTheOneCarried) {
  Start();
  SetDisplayMode(true, 0, 0);
  NativeEvent event = Event(Kind::kSizeRestored);
  event.x = 1000;
  event.y = 900;
  EXPECT_TRUE(WindowProcedure(event));
  EXPECT_EQ(Viewport(), "1280x720, 1");
  EXPECT_EQ(window->m_size, kWindowed);
}

TEST_F(WindowSystemTest, AMaximisedSizeMeansTheMonitorNotTheSizeCarried) {
  Start();
  NativeEvent event = Event(Kind::kSizeMaximised, 2);
  event.x = 1000;
  event.y = 900;
  EXPECT_TRUE(WindowProcedure(event));
  EXPECT_EQ(Viewport(), "1920x1080, 1");
  EXPECT_EQ(window->m_size, kMonitor);
}

TEST_F(WindowSystemTest, AnyOtherSizeChangesNothing) {
  Start();
  EXPECT_TRUE(WindowProcedure(Event(Kind::kSizeOther, 1)));
  EXPECT_EQ(Viewport(), "");
  EXPECT_EQ(window->m_size, kWindowed);
}

TEST_F(WindowSystemTest, TheFocusLiftsTheMuteAndAppliesTheModeAnew) {
  Start();
  EXPECT_TRUE(WindowProcedure(Event(Kind::kSetFocus)));
  EXPECT_THAT(recorder.heard, ElementsAre("Mute false 2"));
  EXPECT_THAT(native.calls, ElementsAre("SetWindowed 1280x720"));
}

TEST_F(WindowSystemTest, LosingTheFocusTellsTheGameMutesAndMinimises) {
  Start();
  EXPECT_TRUE(WindowProcedure(Event(Kind::kKillFocus)));
  EXPECT_THAT(recorder.heard, ElementsAre("GameLoseFocus 1", "Mute true 2"));
  EXPECT_THAT(native.calls, ElementsAre("Minimise"));
}

/// Writes the broadcasts down between the calls of the desktop.
class OrderListener : public System {
 public:
  explicit OrderListener(std::vector<std::string>* calls) : m_calls(*calls) {}
  void Update(float) override {}
  void Init() override {}
  void SendMessage(Message* message) override {
    m_calls.push_back(message->id == kMute ? "Mute" : "message " + std::to_string(message->id));
  }

 private:
  std::vector<std::string>& m_calls;
};

TEST_F(WindowSystemTest, AtALossOfTheFocusTheGameHearsOfItBeforeTheMuteAndTheWindowGoesLast) {
  Start();
  OrderListener listener(&native.calls);
  engine.systems.push_back(&listener);
  WindowProcedure(Event(Kind::kKillFocus));
  EXPECT_THAT(native.calls,
              ElementsAre("message " + std::to_string(kGameLoseFocus), "Mute", "Minimise"));
}

TEST_F(WindowSystemTest, WithTheFocusTheMuteIsLiftedBeforeTheModeIsApplied) {
  Start();
  OrderListener listener(&native.calls);
  engine.systems.push_back(&listener);
  WindowProcedure(Event(Kind::kSetFocus));
  EXPECT_THAT(native.calls, ElementsAre("Mute", "SetWindowed 1280x720"));
}

TEST_F(WindowSystemTest, LeavingFullScreenByTheTaskSwitchAndComingBackRestoresIt) {
  StartWith(1280, 720, true);
  WindowProcedure(Event(Kind::kKillFocus));
  WindowProcedure(Event(Kind::kSizeOther, 1));
  WindowProcedure(Event(Kind::kSetFocus));
  EXPECT_THAT(recorder.heard, ElementsAre("GameLoseFocus 1", "Mute true 2", "Mute false 2"));
  EXPECT_THAT(native.calls, ElementsAre("Minimise", "SetFullScreen"));
  EXPECT_EQ(window->m_size, kMonitor);
}

TEST_F(WindowSystemTest, KeysAreReportedByTheirCode) {
  Start();
  EXPECT_TRUE(WindowProcedure(Event(Kind::kKeyDown, 'Q')));
  EXPECT_TRUE(WindowProcedure(Event(Kind::kKeyUp, 'Q')));
  EXPECT_THAT(recorder.heard, ElementsAre("KeyDown 81", "KeyUp 81"));
}

TEST_F(WindowSystemTest, F6ReleasedInTheQueueSwitchesTheMode) {
  Start();
  WindowProcedure(Event(Kind::kKeyDown, kVkF6));
  EXPECT_THAT(native.calls, IsEmpty());
  WindowProcedure(Event(Kind::kKeyUp, kVkF6));
  EXPECT_THAT(native.calls, ElementsAre("SetFullScreen"));
}

TEST_F(WindowSystemTest, MouseMovesCarryUnsignedSixteenBitPositions) {
  Start();
  NativeEvent event = Event(Kind::kMouseMove);
  event.x = 640;
  event.y = 360;
  EXPECT_TRUE(WindowProcedure(event));
  event.x = -1;
  event.y = -2;
  WindowProcedure(event);
  EXPECT_THAT(recorder.heard,
              ElementsAre("MouseMoving (640, 360, 1)", "MouseMoving (65535, 65534, 1)"));
}

TEST_F(WindowSystemTest, MouseButtonsAreReportedAsKeysWithTheButtonMask) {
  Start();
  EXPECT_TRUE(WindowProcedure(Event(Kind::kLeftButtonDown, kLeftButtonMask | kShiftMask)));
  WindowProcedure(Event(Kind::kRightButtonDown, kLeftButtonMask | kRightButtonMask));
  WindowProcedure(Event(Kind::kLeftButtonUp, kRightButtonMask));
  WindowProcedure(Event(Kind::kRightButtonUp, kControlMask));
  EXPECT_THAT(recorder.heard, ElementsAre("KeyDown 5", "KeyDown 3", "KeyUp 2", "KeyUp 8"));
}

TEST_F(WindowSystemTest, TheWheelScrollsUpOrDownAndATurnOfZeroNotAtAll) {
  Start();
  for (const int turn : {120, -240, 0}) {
    NativeEvent event = Event(Kind::kMouseWheel);
    event.wheel = turn;
    EXPECT_TRUE(WindowProcedure(event));
  }
  EXPECT_THAT(recorder.heard, ElementsAre("MouseScroll 0", "MouseScroll 1"));
}

TEST_F(WindowSystemTest, ADropIsOneMessageWithAllNamesThatAreNotEmpty) {
  Start();
  NativeEvent event = Event(Kind::kDropFiles);
  event.files = {"/home/a.png", "", "/home/b.json"};
  EXPECT_TRUE(WindowProcedure(event));
  EXPECT_THAT(recorder.heard, ElementsAre("DroppedFile [/home/a.png] [/home/b.json]"));
}

TEST_F(WindowSystemTest, ADropOfOneEmptyNameIsAMessageWithoutNames) {
  Start();
  NativeEvent event = Event(Kind::kDropFiles);
  event.files = {""};
  WindowProcedure(event);
  EXPECT_THAT(recorder.heard, ElementsAre("DroppedFile"));
}

TEST_F(WindowSystemTest, ADroppedNameIsCutToTheBufferOf260) {
  Start();
  NativeEvent event = Event(Kind::kDropFiles);
  event.files = {std::string(259, 'a'), std::string(300, 'b')};
  WindowProcedure(event);
  EXPECT_THAT(recorder.heard, ElementsAre("DroppedFile [" + std::string(259, 'a') + "] [" +
                                          std::string(259, 'b') + "]"));
}

TEST_F(WindowSystemTest, AnEventOfNoRowGoesToTheDefaultProcessing) {
  Start();
  EXPECT_TRUE(WindowProcedure(Event(Kind::kOther, 7)));
  EXPECT_THAT(recorder.heard, IsEmpty());
  EXPECT_THAT(native.calls, IsEmpty());
}

TEST_F(WindowSystemTest, F10IsReportedButKeptFromTheSystemMenu) {
  Start();
  EXPECT_FALSE(WindowProcedure(Event(Kind::kKeyDown, kVkF10)));
  EXPECT_FALSE(WindowProcedure(Event(Kind::kKeyUp, kVkF10)));
  EXPECT_THAT(recorder.heard, ElementsAre("KeyDown 121", "KeyUp 121"));
}

TEST_F(WindowSystemTest, AParameterOf121IsSwallowedWhateverTheEvent) {
  Start();
  for (const Kind kind :
       {Kind::kOther, Kind::kSizeOther, Kind::kSetFocus, Kind::kKillFocus, Kind::kKeyDown,
        Kind::kKeyUp, Kind::kMouseMove, Kind::kLeftButtonDown, Kind::kRightButtonDown,
        Kind::kLeftButtonUp, Kind::kRightButtonUp, Kind::kMouseWheel, Kind::kDropFiles}) {
    EXPECT_FALSE(WindowProcedure(Event(kind, 121))) << static_cast<int>(kind);
    EXPECT_TRUE(WindowProcedure(Event(kind, 120))) << static_cast<int>(kind);
  }
}

TEST_F(WindowSystemTest, ASizeHandledByItsRowPassesThe121Test) {
  Start();
  EXPECT_TRUE(WindowProcedure(Event(Kind::kSizeRestored, 121)));
  EXPECT_TRUE(WindowProcedure(Event(Kind::kSizeMaximised, 121)));
}

// The tools layer

class ToolsListenerTest : public WindowSystemTest {
 protected:
  void SetUp() override {
    WindowSystemTest::SetUp();
    SetToolsListener([this](const void* event) {
      m_offered.push_back(event);
      m_heard_before.push_back(recorder.heard.size());
    });
    Start();
  }
  void TearDown() override { SetToolsListener(nullptr); }

  int m_record = 0;
  std::vector<const void*> m_offered;
  std::vector<std::size_t> m_heard_before;
};

TEST_F(ToolsListenerTest, IsOfferedEachEventFirstWhileLiveAndCannotKeepIt) {
  g_window_state.imguiLive = true;
  NativeEvent event = Event(Kind::kKeyDown, 'W');
  event.platform_event = &m_record;
  WindowProcedure(event);
  EXPECT_THAT(m_offered, ElementsAre(&m_record));
  EXPECT_THAT(m_heard_before, ElementsAre(0u));
  EXPECT_THAT(recorder.heard, ElementsAre("KeyDown 87"));
}

TEST_F(ToolsListenerTest, HearsTheEventsThatNoRowKnows) {
  g_window_state.imguiLive = true;
  native.SkipPlatformEvent(&m_record);
  EXPECT_THAT(m_offered, ElementsAre(&m_record));
}

TEST_F(ToolsListenerTest, HearsNothingWhileNotLive) {
  WindowProcedure(Event(Kind::kKeyDown, 'W'));
  native.SkipPlatformEvent(&m_record);
  EXPECT_THAT(m_offered, IsEmpty());
}

}  // namespace
}  // namespace ZOVEngine
