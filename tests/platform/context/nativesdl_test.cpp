#include <SDL.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/native.h"
#include "platform/virtualkeys.h"

namespace ZOVEngine {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using Kind = NativeEventKind;

/// The real desktop on SDL's driver without a screen, fed with SDL events by hand.
class SdlNativeTest : public ::testing::Test {
 protected:
  void SetUp() override {
    SDL_SetHint(SDL_HINT_VIDEODRIVER, "offscreen");
    native = MakeSdlNative();
    ASSERT_EQ(native->OpenWindow({"Beetle", "Test", {320, 200}}), "");
    ASSERT_EQ(native->CreateContext(), "");
    native->ShowWindow();
    while (native->PumpEvent(&event)) {
    }
  }

  void TearDown() override { SDL_ResetHint(SDL_HINT_VIDEODRIVER); }

  SDL_Window* Window() const { return static_cast<SDL_Window*>(native->WindowHandle()); }

  static void PushRepeat(SDL_Scancode scancode) {
    SDL_Event raw{};
    raw.type = SDL_KEYDOWN;
    raw.key.keysym.scancode = scancode;
    raw.key.keysym.sym = SDL_GetKeyFromScancode(scancode);
    raw.key.repeat = 1;
    SDL_PushEvent(&raw);
  }

  static void PushMotion(int x, int y) {
    SDL_Event raw{};
    raw.type = SDL_MOUSEMOTION;
    raw.motion.x = x;
    raw.motion.y = y;
    SDL_PushEvent(&raw);
  }

  static void PushKey(std::uint32_t type, SDL_Scancode place, std::uint16_t modifiers = 0) {
    SDL_Event raw{};
    raw.type = type;
    raw.key.keysym.scancode = place;
    raw.key.keysym.sym = SDL_GetKeyFromScancode(place);
    raw.key.keysym.mod = modifiers;
    SDL_PushEvent(&raw);
  }

  static void PushButton(std::uint32_t type, std::uint8_t button) {
    SDL_Event raw{};
    raw.type = type;
    raw.button.button = button;
    SDL_PushEvent(&raw);
  }

  static void PushWheel(int x, int y, std::uint32_t direction = SDL_MOUSEWHEEL_NORMAL) {
    SDL_Event raw{};
    raw.type = SDL_MOUSEWHEEL;
    raw.wheel.x = x;
    raw.wheel.y = y;
    raw.wheel.direction = direction;
    SDL_PushEvent(&raw);
  }

  static void PushWindow(std::uint8_t what) {
    SDL_Event raw{};
    raw.type = SDL_WINDOWEVENT;
    raw.window.event = what;
    SDL_PushEvent(&raw);
  }

  static void PushDrop(std::uint32_t type, const char* file = nullptr) {
    SDL_Event raw{};
    raw.type = type;
    raw.drop.file = file != nullptr ? SDL_strdup(file) : nullptr;
    SDL_PushEvent(&raw);
  }

  static void PushText() {
    SDL_Event raw{};
    raw.type = SDL_TEXTINPUT;
    SDL_PushEvent(&raw);
  }

  std::vector<Kind> PumpAll() {
    std::vector<Kind> kinds;
    while (native->PumpEvent(&event)) kinds.push_back(event.kind);
    return kinds;
  }

  std::unique_ptr<Native> native;
  NativeEvent event;
};

TEST_F(SdlNativeTest, MouseMovesInARowComeAsTheNewest) {
  PushMotion(1, 1);
  PushMotion(2, 2);
  PushMotion(3, 4);
  ASSERT_TRUE(native->PumpEvent(&event));
  EXPECT_EQ(event.kind, Kind::kMouseMove);
  EXPECT_EQ(event.x, 3);
  EXPECT_EQ(event.y, 4);
  EXPECT_FALSE(native->PumpEvent(&event));
}

TEST_F(SdlNativeTest, MouseMovesWithAnEventBetweenThemKeepTheirPlaces) {
  PushMotion(1, 1);
  PushMotion(2, 2);
  PushButton(SDL_MOUSEBUTTONDOWN, SDL_BUTTON_LEFT);
  PushMotion(3, 3);
  PushMotion(4, 4);
  EXPECT_THAT(PumpAll(), ElementsAre(Kind::kMouseMove, Kind::kLeftButtonDown, Kind::kMouseMove));
}

TEST_F(SdlNativeTest, AHeldKeyBesideAMovingMouseFillsNoQueue) {
  PushKey(SDL_KEYDOWN, SDL_SCANCODE_W);
  for (int i = 0; i < 30; ++i) {
    PushMotion(i, i);
    PushRepeat(SDL_SCANCODE_W);
    PushText();
  }
  PushButton(SDL_MOUSEBUTTONDOWN, SDL_BUTTON_LEFT);
  EXPECT_THAT(PumpAll(),
              ElementsAre(Kind::kKeyDown, Kind::kMouseMove, Kind::kKeyDown, Kind::kLeftButtonDown));
}

TEST_F(SdlNativeTest, TheRepeatsOfTwoKeysAndThoseAroundAReleaseStay) {
  PushRepeat(SDL_SCANCODE_W);
  PushRepeat(SDL_SCANCODE_D);
  PushKey(SDL_KEYUP, SDL_SCANCODE_D);
  PushRepeat(SDL_SCANCODE_W);
  EXPECT_THAT(PumpAll(), ElementsAre(Kind::kKeyDown, Kind::kKeyDown, Kind::kKeyUp, Kind::kKeyDown));
}

TEST_F(SdlNativeTest, OtherEventsAreNeverFolded) {
  for (int i = 0; i < 3; ++i) PushKey(SDL_KEYDOWN, SDL_SCANCODE_W);
  EXPECT_THAT(PumpAll(), ElementsAre(Kind::kKeyDown, Kind::kKeyDown, Kind::kKeyDown));
}

TEST_F(SdlNativeTest, EventsOfNoRowAreSkippedWithinThePumpAndHeardByTheListener) {
  std::vector<std::uint32_t> skipped;
  native->SetSkippedEventListener(
      [&skipped](const void* raw) { skipped.push_back(static_cast<const SDL_Event*>(raw)->type); });
  PushText();
  PushButton(SDL_MOUSEBUTTONDOWN, SDL_BUTTON_MIDDLE);
  PushKey(SDL_KEYUP, SDL_SCANCODE_ESCAPE);
  ASSERT_TRUE(native->PumpEvent(&event));
  EXPECT_EQ(event.kind, Kind::kKeyUp);
  EXPECT_EQ(event.wparam, kVkEscape);
  EXPECT_EQ(static_cast<const SDL_Event*>(event.platform_event)->type, SDL_KEYUP);
  EXPECT_THAT(skipped, ElementsAre(SDL_TEXTINPUT, SDL_MOUSEBUTTONDOWN));
}

TEST_F(SdlNativeTest, KeysCarryTheirVirtualKeyCode) {
  PushKey(SDL_KEYDOWN, SDL_SCANCODE_F6);
  ASSERT_TRUE(native->PumpEvent(&event));
  EXPECT_EQ(event.kind, Kind::kKeyDown);
  EXPECT_EQ(event.wparam, kVkF6);
  PushKey(SDL_KEYUP, SDL_SCANCODE_AUDIOMUTE);
  EXPECT_FALSE(native->PumpEvent(&event));
}

TEST_F(SdlNativeTest, ButtonsCarryTheStateAfterTheChange) {
  PushButton(SDL_MOUSEBUTTONDOWN, SDL_BUTTON_LEFT);
  PushButton(SDL_MOUSEBUTTONDOWN, SDL_BUTTON_RIGHT);
  PushButton(SDL_MOUSEBUTTONUP, SDL_BUTTON_LEFT);
  PushButton(SDL_MOUSEBUTTONUP, SDL_BUTTON_RIGHT);
  std::vector<std::uint64_t> states;
  while (native->PumpEvent(&event)) states.push_back(event.wparam);
  EXPECT_THAT(states, ElementsAre(1u, 3u, 2u, 0u));
}

TEST_F(SdlNativeTest, AClickThatIsOverBeforeItsPressIsTakenIsStillSeen) {
  for (const std::uint8_t button :
       std::initializer_list<std::uint8_t>{SDL_BUTTON_LEFT, SDL_BUTTON_RIGHT}) {
    const std::uint32_t key = button == SDL_BUTTON_LEFT ? kVkLeftButton : kVkRightButton;
    PushButton(SDL_MOUSEBUTTONDOWN, button);
    PushButton(SDL_MOUSEBUTTONUP, button);
    ASSERT_TRUE(native->PumpEvent(&event));
    EXPECT_TRUE(native->IsKeyDown(key));
    ASSERT_TRUE(native->PumpEvent(&event));
    EXPECT_FALSE(native->IsKeyDown(key));
  }
}

TEST_F(SdlNativeTest, AKeyThatIsUpAgainBeforeItsPressIsTakenIsNotDown) {
  PushKey(SDL_KEYDOWN, SDL_SCANCODE_W);
  ASSERT_TRUE(native->PumpEvent(&event));
  EXPECT_EQ(event.kind, NativeEventKind::kKeyDown);
  EXPECT_FALSE(native->IsKeyDown('W'));
}

TEST_F(SdlNativeTest, TheButtonStateKnowsShiftAndControl) {
  PushKey(SDL_KEYDOWN, SDL_SCANCODE_LSHIFT, KMOD_LSHIFT);
  PushKey(SDL_KEYDOWN, SDL_SCANCODE_RCTRL, KMOD_LSHIFT | KMOD_RCTRL);
  PushButton(SDL_MOUSEBUTTONDOWN, SDL_BUTTON_RIGHT);
  PushMotion(9, 9);
  PumpAll();
  EXPECT_EQ(event.kind, Kind::kMouseMove);
  PushButton(SDL_MOUSEBUTTONUP, SDL_BUTTON_RIGHT);
  ASSERT_TRUE(native->PumpEvent(&event));
  EXPECT_EQ(event.wparam, kShiftMask | kControlMask);
}

TEST_F(SdlNativeTest, TheWheelTurnsBy120ANotch) {
  PushWheel(0, 2);
  ASSERT_TRUE(native->PumpEvent(&event));
  EXPECT_EQ(event.kind, Kind::kMouseWheel);
  EXPECT_EQ(event.wheel, 240);
  PushWheel(0, -1);
  ASSERT_TRUE(native->PumpEvent(&event));
  EXPECT_EQ(event.wheel, -120);
  EXPECT_EQ(event.wparam >> 16, 0xFF88u);
  PushWheel(0, 1, SDL_MOUSEWHEEL_FLIPPED);
  ASSERT_TRUE(native->PumpEvent(&event));
  EXPECT_EQ(event.wheel, -120);
  PushWheel(1, 0);
  EXPECT_FALSE(native->PumpEvent(&event));
}

TEST_F(SdlNativeTest, AllFilesOfADropComeAtOnce) {
  PushDrop(SDL_DROPBEGIN);
  PushDrop(SDL_DROPFILE, "/a.png");
  PushDrop(SDL_DROPFILE, "/b.png");
  EXPECT_FALSE(native->PumpEvent(&event));
  PushDrop(SDL_DROPCOMPLETE);
  ASSERT_TRUE(native->PumpEvent(&event));
  EXPECT_EQ(event.kind, Kind::kDropFiles);
  EXPECT_THAT(event.files, ElementsAre("/a.png", "/b.png"));
}

TEST_F(SdlNativeTest, AFileDroppedWithoutABeginComesAlone) {
  PushDrop(SDL_DROPFILE, "/a.png");
  ASSERT_TRUE(native->PumpEvent(&event));
  EXPECT_THAT(event.files, ElementsAre("/a.png"));
  PushDrop(SDL_DROPBEGIN);
  PushDrop(SDL_DROPCOMPLETE);
  EXPECT_FALSE(native->PumpEvent(&event));
}

TEST_F(SdlNativeTest, ClosingTheWindowAndATerminateSignalAreDestroyEvents) {
  PushWindow(SDL_WINDOWEVENT_CLOSE);
  EXPECT_FALSE(native->PumpEvent(&event));
  SDL_Event quit{};
  quit.type = SDL_QUIT;
  SDL_PushEvent(&quit);
  EXPECT_THAT(PumpAll(), ElementsAre(Kind::kDestroy));
  std::raise(SIGTERM);
  EXPECT_THAT(PumpAll(), ElementsAre(Kind::kDestroy));
}

TEST_F(SdlNativeTest, WindowEventsFindTheirRows) {
  PushWindow(SDL_WINDOWEVENT_FOCUS_GAINED);
  PushWindow(SDL_WINDOWEVENT_FOCUS_LOST);
  PushWindow(SDL_WINDOWEVENT_MINIMIZED);
  PushWindow(SDL_WINDOWEVENT_EXPOSED);
  PushWindow(SDL_WINDOWEVENT_MOVED);
  EXPECT_THAT(PumpAll(), ElementsAre(Kind::kSetFocus, Kind::kKillFocus, Kind::kSizeOther));
}

TEST_F(SdlNativeTest, ReleasesThatALossOfTheFocusMakesAreNotTheUsers) {
  std::vector<std::uint32_t> skipped;
  native->SetSkippedEventListener(
      [&skipped](const void* raw) { skipped.push_back(static_cast<const SDL_Event*>(raw)->type); });
  PushKey(SDL_KEYUP, SDL_SCANCODE_SPACE);
  PushKey(SDL_KEYUP, SDL_SCANCODE_LALT);
  PushWindow(SDL_WINDOWEVENT_FOCUS_LOST);
  EXPECT_THAT(PumpAll(), ElementsAre(Kind::kKillFocus));
  EXPECT_THAT(skipped, ElementsAre(SDL_KEYUP, SDL_KEYUP)) << "tools hear of them";
}

TEST_F(SdlNativeTest, ReleasesBeforeAnotherEventAreTheUsers) {
  PushKey(SDL_KEYUP, SDL_SCANCODE_SPACE);
  PushMotion(1, 1);
  PushKey(SDL_KEYUP, SDL_SCANCODE_LALT);
  PushWindow(SDL_WINDOWEVENT_FOCUS_LOST);
  PushKey(SDL_KEYUP, SDL_SCANCODE_SPACE);
  EXPECT_THAT(PumpAll(),
              ElementsAre(Kind::kKeyUp, Kind::kMouseMove, Kind::kKillFocus, Kind::kKeyUp));
}

TEST_F(SdlNativeTest, AButtonIsTheUsersWheneverItIsReleased) {
  PushButton(SDL_MOUSEBUTTONUP, SDL_BUTTON_LEFT);
  PushWindow(SDL_WINDOWEVENT_FOCUS_LOST);
  EXPECT_THAT(PumpAll(), ElementsAre(Kind::kLeftButtonUp, Kind::kKillFocus));
}

TEST_F(SdlNativeTest, ALossOfTheFocusLetsGoOfButtonsAndModifiers) {
  PushKey(SDL_KEYDOWN, SDL_SCANCODE_LSHIFT, KMOD_LSHIFT);
  PushButton(SDL_MOUSEBUTTONDOWN, SDL_BUTTON_LEFT);
  PushWindow(SDL_WINDOWEVENT_FOCUS_LOST);
  PushMotion(1, 1);
  PumpAll();
  EXPECT_EQ(event.kind, Kind::kMouseMove);
  EXPECT_EQ(event.wparam, 0u);
}

TEST_F(SdlNativeTest, ASizeEventCarriesTheClientSize) {
  PushWindow(SDL_WINDOWEVENT_SIZE_CHANGED);
  ASSERT_TRUE(native->PumpEvent(&event));
  EXPECT_EQ(event.kind, Kind::kSizeRestored);
  EXPECT_EQ(event.x, 320);
  EXPECT_EQ(event.y, 200);
}

TEST_F(SdlNativeTest, ASizeEventInFullScreenIsAMaximisedOne) {
  native->SetFullScreen();
  ASSERT_NE(SDL_GetWindowFlags(Window()) & SDL_WINDOW_FULLSCREEN, 0u);
  PumpAll();
  PushWindow(SDL_WINDOWEVENT_SIZE_CHANGED);
  EXPECT_THAT(PumpAll(), ElementsAre(Kind::kSizeMaximised));
  native->SetWindowed(300, 100);
  PumpAll();
  PushWindow(SDL_WINDOWEVENT_SIZE_CHANGED);
  ASSERT_TRUE(native->PumpEvent(&event));
  EXPECT_EQ(event.kind, Kind::kSizeRestored);
  EXPECT_EQ(event.x, 300);
  EXPECT_EQ(event.y, 100);
}

TEST_F(SdlNativeTest, ApplyingTheSameModeAgainQueuesNoEvent) {
  native->SetWindowed(300, 100);
  PumpAll();
  native->SetWindowed(300, 100);
  EXPECT_THAT(PumpAll(), ElementsAre());
}

TEST_F(SdlNativeTest, SizesAreHeldBetweenAPixelAndTheDesktop) {
  int width = 0;
  int height = 0;
  native->SetWindowed(0, -7);
  SDL_GetWindowSize(Window(), &width, &height);
  EXPECT_EQ(width, 1);
  EXPECT_EQ(height, 1);
  native->SetWindowed(16384, 99999);
  SDL_GetWindowSize(Window(), &width, &height);
  EXPECT_EQ(width, native->MonitorSize().width);
  EXPECT_EQ(height, native->MonitorSize().height);
}

TEST_F(SdlNativeTest, NoKeyIsDownAndNoFocusIsThereWithoutAScreen) {
  EXPECT_FALSE(native->IsKeyDown('W'));
  EXPECT_FALSE(native->IsKeyDown(kVkLeftButton));
  EXPECT_FALSE(native->HasFocus());
}

TEST_F(SdlNativeTest, ADestroyedContextMayBeDestroyedAgain) {
  EXPECT_NE(native->ContextHandle(), nullptr);
  native->DestroyContext();
  EXPECT_EQ(native->ContextHandle(), nullptr);
  native->DestroyContext();
}

/// Takes the display away, for its life.
class WithoutDisplay {
 public:
  WithoutDisplay() {
    for (auto& [name, value] : m_variables) {
      if (const char* text = std::getenv(name)) value = text;
      unsetenv(name);
    }
  }
  ~WithoutDisplay() {
    for (const auto& [name, value] : m_variables) {
      if (value) setenv(name, value->c_str(), 1);
    }
  }
  WithoutDisplay(const WithoutDisplay&) = delete;
  WithoutDisplay& operator=(const WithoutDisplay&) = delete;

 private:
  std::vector<std::pair<const char*, std::optional<std::string>>> m_variables = {
      {"DISPLAY", {}}, {"WAYLAND_DISPLAY", {}}, {"SDL_VIDEODRIVER", {}}};
};

TEST(SdlNativeWithoutDisplay, TheMessageBoxPrintsAndReturns) {
  const WithoutDisplay none;
  const std::unique_ptr<Native> native = MakeSdlNative();
  ::testing::internal::CaptureStderr();
  native->MessageBox("Title", "what went wrong");
  EXPECT_THAT(::testing::internal::GetCapturedStderr(), HasSubstr("Title: what went wrong\n"));
}

TEST(SdlNativeWithoutDisplay, TheWindowIsRefusedWithASentence) {
  const WithoutDisplay none;
  const std::unique_ptr<Native> native = MakeSdlNative();
  EXPECT_THAT(native->OpenWindow({"Beetle", "Test", {320, 200}}), HasSubstr("display"));
}

/// A window on a real display, with the keys and the mouse that a user would use.
class RealWindowTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_NE(std::getenv("DISPLAY"), nullptr) << "run it by tools/screen";
    native = MakeSdlNative();
    ASSERT_EQ(native->OpenWindow({"Beetle", kTitle, {320, 200}}), "");
    native->ShowWindow();
    ASSERT_TRUE(WaitFor(Kind::kSetFocus));
  }

  void TearDown() override { Do("xdotool keyup space mouseup 1"); }

  static void Do(const std::string& command) { EXPECT_EQ(std::system(command.c_str()), 0); }

  /// Pumps until an event of this kind comes, for ten seconds at most; keeps the kinds in `seen`.
  bool WaitFor(Kind kind) {
    seen.clear();
    for (int i = 0; i < 1000; ++i) {
      while (native->PumpEvent(&event)) {
        seen.push_back(event.kind);
        if (event.kind == kind) return true;
      }
      SDL_Delay(10);
    }
    return false;
  }

  static constexpr const char* kTitle = "focus test";
  std::unique_ptr<Native> native;
  NativeEvent event;
  std::vector<Kind> seen;
};

TEST_F(RealWindowTest, AKeyHeldWhenTheFocusGoesIsLetGoWithoutARelease) {
  Do("xdotool keydown space");
  ASSERT_TRUE(WaitFor(Kind::kKeyDown));
  EXPECT_TRUE(native->IsKeyDown(kVkSpace));
  native->Minimise();
  ASSERT_TRUE(WaitFor(Kind::kKillFocus));
  EXPECT_THAT(seen, Not(Contains(Kind::kKeyUp)));
  EXPECT_FALSE(native->IsKeyDown(kVkSpace));
}

TEST_F(RealWindowTest, AMinimisedWindowSaysSo) {
  EXPECT_FALSE(native->IsMinimised());
  native->Minimise();
  ASSERT_TRUE(WaitFor(Kind::kKillFocus));
  EXPECT_TRUE(native->IsMinimised());
  Do(std::string("wmctrl -a '") + kTitle + "'");
  ASSERT_TRUE(WaitFor(Kind::kSetFocus));
  EXPECT_FALSE(native->IsMinimised());
}

TEST_F(RealWindowTest, TheUserCannotMakeItSmallerThanItWasOpened) {
  const auto resize = [](const std::string& size) {
    Do(std::string("wmctrl -r '") + kTitle + "' -e 0,-1,-1," + size);
  };
  resize("400,300");
  ASSERT_TRUE(WaitFor(Kind::kSizeRestored));
  EXPECT_EQ(event.x, 400);
  resize("100,90");
  ASSERT_TRUE(WaitFor(Kind::kSizeRestored));
  EXPECT_EQ(event.x, 320);
  EXPECT_EQ(event.y, 200);
}

TEST_F(RealWindowTest, TheProgramCan) {
  native->SetWindowed(200, 150);
  ASSERT_TRUE(WaitFor(Kind::kSizeRestored));
  EXPECT_EQ(event.x, 200);
  EXPECT_EQ(event.y, 150);
}

TEST_F(RealWindowTest, AButtonLetGoWhileTheWindowIsMinimisedIsNotHeldWhenItComesBack) {
  Do("xdotool mousemove 160 100 mousedown 1");
  ASSERT_TRUE(WaitFor(Kind::kLeftButtonDown));
  EXPECT_TRUE(native->IsKeyDown(kVkLeftButton));
  native->Minimise();
  ASSERT_TRUE(WaitFor(Kind::kKillFocus));
  Do("xdotool mousemove 900 700 mouseup 1");
  Do(std::string("wmctrl -a '") + kTitle + "'");
  ASSERT_TRUE(WaitFor(Kind::kSetFocus));
  EXPECT_FALSE(native->IsKeyDown(kVkLeftButton));
}

}  // namespace
}  // namespace ZOVEngine
