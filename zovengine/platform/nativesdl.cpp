#include <SDL.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/gldriver.h"
#include "platform/native.h"
#include "platform/quickpress.h"
#include "platform/virtualkeys.h"
#include "platform/xpointer.h"

namespace ZOVEngine {

namespace {

constexpr int kWheelNotch = 120;

std::string SdlReason(const char* what) {
  return std::string(what) + ": " + SDL_GetError();
}

/// SDL goes on silently with a driver that shows nothing when there is no display.
bool DriverShowsNothing() {
  const char* driver = SDL_GetCurrentVideoDriver();
  const std::string_view name = driver != nullptr ? driver : "";
  return name == "offscreen" || name == "dummy";
}

bool DriverWasAskedFor() {
  return SDL_GetHint(SDL_HINT_VIDEODRIVER) != nullptr;
}

void SetHints(const WindowRequest& request) {
  // The window minimises itself when it loses the focus; SDL must not do it as well.
  SDL_SetHint(SDL_HINT_VIDEO_MINIMIZE_ON_FOCUS_LOSS, "0");
  // The click that brings the focus counts as a click.
  SDL_SetHint(SDL_HINT_MOUSE_FOCUS_CLICKTHROUGH, "1");
  if (!request.class_name.empty()) {
    SDL_setenv("SDL_VIDEO_X11_WMCLASS", request.class_name.c_str(), 1);
  }
}

/// The lowest request, with the compatibility profile, gets the highest version a driver has.
void SetContextAttributes() {
  SDL_GL_SetAttribute(SDL_GL_CONTEXT_PROFILE_MASK, SDL_GL_CONTEXT_PROFILE_COMPATIBILITY);
  SDL_GL_SetAttribute(SDL_GL_DOUBLEBUFFER, 1);
  SDL_GL_SetAttribute(SDL_GL_RED_SIZE, 8);
  SDL_GL_SetAttribute(SDL_GL_GREEN_SIZE, 8);
  SDL_GL_SetAttribute(SDL_GL_BLUE_SIZE, 8);
  SDL_GL_SetAttribute(SDL_GL_DEPTH_SIZE, 16);
}

/// The size of all monitors together.
NativeSize DesktopSize() {
  SDL_Rect desktop{};
  for (int display = 0; display < SDL_GetNumVideoDisplays(); ++display) {
    SDL_Rect bounds;
    if (SDL_GetDisplayBounds(display, &bounds) == 0) SDL_UnionRect(&desktop, &bounds, &desktop);
  }
  return {desktop.w, desktop.h};
}

/// The client size that a window of the wished size gets: at least a pixel, at most the desktop.
NativeSize FitToDesktop(NativeSize wish) {
  const NativeSize most = DesktopSize();
  return {std::clamp(wish.width, 1, std::max(most.width, 1)),
          std::clamp(wish.height, 1, std::max(most.height, 1))};
}

bool IsKeyRelease(const SDL_Event& raw) {
  return raw.type == SDL_KEYUP;
}

bool IsLossOfFocus(const SDL_Event& raw) {
  return raw.type == SDL_WINDOWEVENT && raw.window.event == SDL_WINDOWEVENT_FOCUS_LOST;
}

/// True for a release of a key that is not the user's. When the focus goes, SDL lets go of all held
/// keys and then reports the loss, so behind such a release the queue has others and the loss.
bool IsMadeByLossOfFocus(const SDL_Event& raw) {
  if (!IsKeyRelease(raw)) return false;
  std::array<SDL_Event, 64> next;  // more keys than hands hold
  const int count = SDL_PeepEvents(next.data(), static_cast<int>(next.size()), SDL_PEEKEVENT,
                                   SDL_FIRSTEVENT, SDL_LASTEVENT);
  const auto end = next.begin() + std::max(count, 0);
  const auto other = std::find_if_not(next.begin(), end, IsKeyRelease);
  return other != end && IsLossOfFocus(*other);
}

bool IsMove(const SDL_Event& raw) {
  return raw.type == SDL_MOUSEMOTION;
}

bool IsRepeat(const SDL_Event& raw) {
  return raw.type == SDL_KEYDOWN && raw.key.repeat != 0;
}

bool IsSameRepeat(const SDL_Event& a, const SDL_Event& b) {
  return IsRepeat(a) && IsRepeat(b) && a.key.keysym.scancode == b.key.keysym.scancode;
}

/// True for a move, or a repeat of a held key, that is followed by a newer one with no press and no
/// release between them. Together they can come faster than steps take them, and what the user does
/// next would wait behind them. The text of a repeat stands between them and does not count.
bool IsSuperseded(const SDL_Event& raw) {
  if (!IsMove(raw) && !IsRepeat(raw)) return false;
  std::array<SDL_Event, 64> next;
  const int count = SDL_PeepEvents(next.data(), static_cast<int>(next.size()), SDL_PEEKEVENT,
                                   SDL_FIRSTEVENT, SDL_LASTEVENT);
  for (int i = 0; i < count; ++i) {
    const SDL_Event& later = next[static_cast<std::size_t>(i)];
    if ((IsMove(raw) && IsMove(later)) || IsSameRepeat(raw, later)) return true;
    if (!IsMove(later) && !IsRepeat(later) && later.type != SDL_TEXTINPUT) return false;
  }
  return false;
}

/// The desktop on SDL 2.
///
/// Owns the window, the context and SDL's video subsystem. Key state, button state and cursor are
/// those of the last pump, so that all of a step sees the same.
class SdlNative final : public Native {
 public:
  SdlNative() = default;
  SdlNative(const SdlNative&) = delete;
  SdlNative& operator=(const SdlNative&) = delete;
  ~SdlNative() override;

  std::string OpenWindow(const WindowRequest& request) override;
  std::string CreateContext() override;
  void DestroyContext() override;
  void ShowWindow() override { SDL_ShowWindow(m_window); }
  void SetFullScreen() override;
  void SetWindowed(int width, int height) override;
  void Minimise() override { SDL_MinimizeWindow(m_window); }
  void AcceptFileDrops() override { SDL_EventState(SDL_DROPFILE, SDL_ENABLE); }
  void SetCursorVisible(bool visible) override {
    SDL_ShowCursor(visible ? SDL_ENABLE : SDL_DISABLE);
  }
  bool PumpEvent(NativeEvent* event) override;
  void SetSkippedEventListener(PlatformEventListener listener) override {
    m_skipped_listener = std::move(listener);
  }
  void SwapBuffers() override { SDL_GL_SwapWindow(m_window); }
  void SetSwapInterval(int interval) override { SDL_GL_SetSwapInterval(interval); }
  void MessageBox(const std::string& title, const std::string& text) override;
  /// The standard streams are there already on this platform.
  void OpenConsole() override {}

  NativeSize MonitorSize() const override;
  bool IsMinimised() const override { return HasFlag(SDL_WINDOW_MINIMIZED); }
  bool HasFocus() const override;
  bool IsKeyDown(std::uint32_t virtual_key) const override;
  NativePoint CursorPosition() const override;
  void* WindowHandle() const override { return m_window; }
  void* ContextHandle() const override { return m_context; }

 private:
  bool TakeEvent(NativeEvent* event);
  bool TakePlatformEvent(SDL_Event* raw);
  bool Translate(NativeEvent* event);
  bool TranslateWindow(const SDL_WindowEvent& raw, NativeEvent* event);
  bool TranslateKey(const SDL_KeyboardEvent& raw, NativeEvent* event);
  bool TranslateButton(const SDL_MouseButtonEvent& raw, NativeEvent* event);
  bool TranslateMotion(const SDL_MouseMotionEvent& raw, NativeEvent* event);
  bool TranslateWheel(const SDL_MouseWheelEvent& raw, NativeEvent* event);
  bool TranslateDrop(SDL_DropEvent* raw, NativeEvent* event);
  void SetSmallest(NativeSize size);
  void MoveToCorner();
  bool HasFlag(std::uint32_t flag) const { return (SDL_GetWindowFlags(m_window) & flag) != 0; }
  std::uint64_t ButtonState() const;
  bool IsLeftDown() const { return IsButtonDown(SDL_BUTTON_LMASK, &XPointer::left); }
  bool IsRightDown() const { return IsButtonDown(SDL_BUTTON_RMASK, &XPointer::right); }
  bool IsButtonDown(std::uint32_t mask, bool XPointer::*held) const;
  const std::optional<XPointer>& Pointer() const;

  SDL_Window* m_window = nullptr;
  SDL_GLContext m_context = nullptr;
  NativeSize m_smallest;  ///< the user's window; the size that it was opened with
  SDL_Event m_raw{};      ///< the event taken last
  PlatformEventListener m_skipped_listener;
  std::uint64_t m_buttons = 0;    ///< held, as far as events were taken
  std::uint16_t m_modifiers = 0;  ///< SDL's bits, as far as events were taken
  bool m_drop_open = false;       ///< between the begin and the end of a drop
  std::vector<std::string> m_dropped;
  QuickPress m_left, m_right;
  mutable bool m_pointer_asked = false;       ///< since the last pump
  mutable std::optional<XPointer> m_pointer;  ///< as of then
};

SdlNative::~SdlNative() {
  DestroyContext();
  if (m_window != nullptr) SDL_DestroyWindow(m_window);
  SDL_Quit();
}

std::string SdlNative::OpenWindow(const WindowRequest& request) {
  SetHints(request);
  PrepareGLDriver();
  if (SDL_Init(SDL_INIT_VIDEO) != 0) return SdlReason("The display cannot be opened");
  if (DriverShowsNothing() && !DriverWasAskedFor()) {
    return "There is no display to open a window on";
  }
  SetContextAttributes();
  const NativeSize size = FitToDesktop(request.client_size);
  m_window = SDL_CreateWindow(request.title.c_str(), 0, 0, size.width, size.height,
                              SDL_WINDOW_OPENGL | SDL_WINDOW_HIDDEN | SDL_WINDOW_RESIZABLE);
  if (m_window == nullptr) return SdlReason("The window cannot be opened");
  m_smallest = size;
  SetSmallest(size);
  return "";
}

std::string SdlNative::CreateContext() {
  m_context = SDL_GL_CreateContext(m_window);
  return m_context != nullptr ? "" : SdlReason("OpenGL cannot be started");
}

void SdlNative::DestroyContext() {
  if (m_context != nullptr) SDL_GL_DeleteContext(m_context);
  m_context = nullptr;
}

void SdlNative::SetFullScreen() {
  SDL_SetWindowFullscreen(m_window, SDL_WINDOW_FULLSCREEN_DESKTOP);
}

void SdlNative::SetWindowed(int width, int height) {
  const NativeSize wanted = FitToDesktop({width, height});
  SetSmallest(wanted);
  SDL_SetWindowFullscreen(m_window, 0);
  if (HasFlag(SDL_WINDOW_MAXIMIZED) && !HasFlag(SDL_WINDOW_MINIMIZED)) SDL_RestoreWindow(m_window);
  NativeSize now;
  SDL_GetWindowSize(m_window, &now.width, &now.height);
  if (now.width != wanted.width || now.height != wanted.height) {
    SDL_SetWindowSize(m_window, wanted.width, wanted.height);
  }
  MoveToCorner();
}

/// The user cannot make the window smaller than it was opened with, nor than the program wants it.
void SdlNative::SetSmallest(NativeSize wanted) {
  SDL_SetWindowMinimumSize(m_window, std::min(wanted.width, m_smallest.width),
                           std::min(wanted.height, m_smallest.height));
}

/// The frame's corner goes to (0, 0), so the client area lies a border's width further in.
void SdlNative::MoveToCorner() {
  int top = 0;
  int left = 0;
  int x = 0;
  int y = 0;
  SDL_GetWindowBordersSize(m_window, &top, &left, nullptr, nullptr);
  SDL_GetWindowPosition(m_window, &x, &y);
  if (x != left || y != top) SDL_SetWindowPosition(m_window, left, top);
}

void SdlNative::MessageBox(const std::string& title, const std::string& text) {
  std::fprintf(stderr, "%s: %s\n", title.c_str(), text.c_str());
  SDL_ShowSimpleMessageBox(SDL_MESSAGEBOX_ERROR, title.c_str(), text.c_str(), m_window);
}

NativeSize SdlNative::MonitorSize() const {
  SDL_Rect bounds{};
  SDL_GetDisplayBounds(std::max(SDL_GetWindowDisplayIndex(m_window), 0), &bounds);
  return {bounds.w, bounds.h};
}

bool SdlNative::HasFocus() const {
  return m_window != nullptr && SDL_GetKeyboardFocus() == m_window;
}

bool SdlNative::IsKeyDown(std::uint32_t virtual_key) const {
  if (virtual_key == kVkLeftButton) return m_left.IsStruck() || IsLeftDown();
  if (virtual_key == kVkRightButton) return m_right.IsStruck() || IsRightDown();
  int count = 0;
  const std::uint8_t* held = SDL_GetKeyboardState(&count);
  for (int place = 0; place < count; ++place) {
    if (held[place] == 0) continue;
    const SDL_Keycode code = SDL_GetKeyFromScancode(static_cast<SDL_Scancode>(place));
    if (VirtualKeyFromSdl(code, place) == virtual_key) return true;
  }
  return false;
}

/// SDL never hears of a button that is let go while the window is minimised, so what it says is
/// held is asked of the X server as well.
bool SdlNative::IsButtonDown(std::uint32_t mask, bool XPointer::*held) const {
  if ((SDL_GetMouseState(nullptr, nullptr) & mask) == 0) return false;
  const std::optional<XPointer>& pointer = Pointer();
  return !pointer || (*pointer).*held;
}

const std::optional<XPointer>& SdlNative::Pointer() const {
  if (!m_pointer_asked) m_pointer = QueryXPointer(m_window);
  m_pointer_asked = true;
  return m_pointer;
}

/// SDL's own position stands still while the pointer is outside the window, or the window moves
/// under it; the X server's is exact.
NativePoint SdlNative::CursorPosition() const {
  if (const std::optional<XPointer>& pointer = Pointer()) return pointer->place;
  NativePoint cursor;
  SDL_GetMouseState(&cursor.x, &cursor.y);
  return cursor;
}

bool SdlNative::PumpEvent(NativeEvent* event) {
  SDL_PumpEvents();
  m_pointer_asked = false;
  m_left.BeginPump();
  m_right.BeginPump();
  const bool taken = TakeEvent(event);
  if (!taken) {
    m_left.SetEmpty();
    m_right.SetEmpty();
  } else if (event->kind == NativeEventKind::kLeftButtonDown) {
    m_left.TakePress();
  } else if (event->kind == NativeEventKind::kRightButtonDown) {
    m_right.TakePress();
  }
  m_left.See(IsLeftDown());
  m_right.See(IsRightDown());
  return taken;
}

bool SdlNative::TakeEvent(NativeEvent* event) {
  while (TakePlatformEvent(&m_raw)) {
    *event = NativeEvent();
    if (!IsMadeByLossOfFocus(m_raw) && Translate(event)) {
      event->platform_event = &m_raw;
      return true;
    }
    if (m_skipped_listener) m_skipped_listener(&m_raw);
  }
  return false;
}

/// Takes the event at the head of SDL's queue, except for those that a later one supersedes.
bool SdlNative::TakePlatformEvent(SDL_Event* raw) {
  do {
    if (SDL_PeepEvents(raw, 1, SDL_GETEVENT, SDL_FIRSTEVENT, SDL_LASTEVENT) != 1) return false;
  } while (IsSuperseded(*raw));
  return true;
}

bool SdlNative::Translate(NativeEvent* event) {
  switch (m_raw.type) {
    case SDL_QUIT:
      event->kind = NativeEventKind::kDestroy;
      return true;
    case SDL_WINDOWEVENT:
      return TranslateWindow(m_raw.window, event);
    case SDL_KEYDOWN:
    case SDL_KEYUP:
      return TranslateKey(m_raw.key, event);
    case SDL_MOUSEMOTION:
      return TranslateMotion(m_raw.motion, event);
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
      return TranslateButton(m_raw.button, event);
    case SDL_MOUSEWHEEL:
      return TranslateWheel(m_raw.wheel, event);
    case SDL_DROPBEGIN:
    case SDL_DROPFILE:
    case SDL_DROPCOMPLETE:
      return TranslateDrop(&m_raw.drop, event);
    default:
      return false;
  }
}

bool SdlNative::TranslateWindow(const SDL_WindowEvent& raw, NativeEvent* event) {
  switch (raw.event) {
    case SDL_WINDOWEVENT_FOCUS_GAINED:
      event->kind = NativeEventKind::kSetFocus;
      return true;
    case SDL_WINDOWEVENT_FOCUS_LOST:
      event->kind = NativeEventKind::kKillFocus;
      m_buttons = 0;
      m_modifiers = 0;
      return true;
    case SDL_WINDOWEVENT_MINIMIZED:
      event->kind = NativeEventKind::kSizeOther;
      event->wparam = 1;
      return true;
    case SDL_WINDOWEVENT_SIZE_CHANGED:
    case SDL_WINDOWEVENT_MAXIMIZED:
    case SDL_WINDOWEVENT_RESTORED:
      break;
    default:
      return false;
  }
  const bool maximised = HasFlag(SDL_WINDOW_MAXIMIZED | SDL_WINDOW_FULLSCREEN);
  event->kind = maximised ? NativeEventKind::kSizeMaximised : NativeEventKind::kSizeRestored;
  event->wparam = maximised ? 2 : 0;
  SDL_GetWindowSize(m_window, &event->x, &event->y);
  return true;
}

bool SdlNative::TranslateKey(const SDL_KeyboardEvent& raw, NativeEvent* event) {
  m_modifiers = raw.keysym.mod;
  event->wparam = VirtualKeyFromSdl(raw.keysym.sym, raw.keysym.scancode);
  event->kind = raw.type == SDL_KEYDOWN ? NativeEventKind::kKeyDown : NativeEventKind::kKeyUp;
  return event->wparam != kVkNone;
}

bool SdlNative::TranslateButton(const SDL_MouseButtonEvent& raw, NativeEvent* event) {
  if (raw.button != SDL_BUTTON_LEFT && raw.button != SDL_BUTTON_RIGHT) return false;
  const bool left = raw.button == SDL_BUTTON_LEFT;
  const std::uint64_t bit = left ? kLeftButtonMask : kRightButtonMask;
  if (raw.type == SDL_MOUSEBUTTONDOWN) {
    m_buttons |= bit;
    event->kind = left ? NativeEventKind::kLeftButtonDown : NativeEventKind::kRightButtonDown;
  } else {
    m_buttons &= ~bit;
    event->kind = left ? NativeEventKind::kLeftButtonUp : NativeEventKind::kRightButtonUp;
  }
  event->wparam = ButtonState();
  event->x = raw.x;
  event->y = raw.y;
  return true;
}

bool SdlNative::TranslateMotion(const SDL_MouseMotionEvent& raw, NativeEvent* event) {
  event->kind = NativeEventKind::kMouseMove;
  event->wparam = ButtonState();
  event->x = raw.x;
  event->y = raw.y;
  return true;
}

bool SdlNative::TranslateWheel(const SDL_MouseWheelEvent& raw, NativeEvent* event) {
  if (raw.y == 0) return false;
  event->kind = NativeEventKind::kMouseWheel;
  event->wheel = (raw.direction == SDL_MOUSEWHEEL_FLIPPED ? -raw.y : raw.y) * kWheelNotch;
  const auto turn = static_cast<std::uint16_t>(event->wheel);
  event->wparam = (static_cast<std::uint64_t>(turn) << 16) | ButtonState();
  return true;
}

/// A drop comes as a begin, a file for each name, and an end; the row wants all names at once.
bool SdlNative::TranslateDrop(SDL_DropEvent* raw, NativeEvent* event) {
  if (raw->type == SDL_DROPBEGIN) {
    m_drop_open = true;
    m_dropped.clear();
    return false;
  }
  if (raw->type == SDL_DROPFILE) {
    m_dropped.emplace_back(raw->file != nullptr ? raw->file : "");
    SDL_free(raw->file);
    raw->file = nullptr;
    if (m_drop_open) return false;
  }
  m_drop_open = false;
  if (m_dropped.empty()) return false;
  event->kind = NativeEventKind::kDropFiles;
  event->files = std::exchange(m_dropped, {});
  return true;
}

std::uint64_t SdlNative::ButtonState() const {
  std::uint64_t state = m_buttons;
  if ((m_modifiers & KMOD_SHIFT) != 0) state |= kShiftMask;
  if ((m_modifiers & KMOD_CTRL) != 0) state |= kControlMask;
  return state;
}

}  // namespace

std::unique_ptr<Native> MakeSdlNative() {
  return std::make_unique<SdlNative>();
}

}  // namespace ZOVEngine
