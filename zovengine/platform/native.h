#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace ZOVEngine {

/// Bits of the button state that mouse events carry in `wparam`.
inline constexpr std::uint64_t kLeftButtonMask = 1;
inline constexpr std::uint64_t kRightButtonMask = 2;
inline constexpr std::uint64_t kShiftMask = 4;
inline constexpr std::uint64_t kControlMask = 8;

/// One kind for each row of the window procedure.
enum class NativeEventKind {
  kOther,          ///< takes a step, but no row handles it
  kDestroy,        ///< the window was closed, or the process was asked to end
  kSizeRestored,   ///< `x` and `y` carry the new client size (unit: pixels)
  kSizeMaximised,  ///< as above, for a maximised or full-screen window
  kSizeOther,      ///< minimised
  kSetFocus,
  kKillFocus,
  kKeyDown,    ///< `wparam` is the virtual-key code; comes again with the platform's auto-repeat
  kKeyUp,      ///< the user's; keys that are held when the focus goes are let go without one
  kMouseMove,  ///< `x` and `y` carry the position (unit: client pixels)
  kLeftButtonDown,  ///< `wparam` is the button state after the change, here and in the next three
  kRightButtonDown,
  kLeftButtonUp,
  kRightButtonUp,
  kMouseWheel,  ///< `wheel` is the signed turn, 120 a notch, positive away from the user
  kDropFiles,   ///< `files` holds the names, empty ones included
};

/// One event of the window, in the words of the window procedure.
struct NativeEvent {
  NativeEventKind kind = NativeEventKind::kOther;
  std::uint64_t wparam = 0;
  int x = 0;
  int y = 0;
  int wheel = 0;
  std::vector<std::string> files;
  const void* platform_event = nullptr;  ///< the platform's own record; valid until the next pump
};

/// A width and a height (unit: pixels).
struct NativeSize {
  int width = 0;
  int height = 0;
};

/// A position relative to the upper left corner of the client area (unit: pixels).
struct NativePoint {
  int x = 0;
  int y = 0;
};

/// What a new window is to be.
struct WindowRequest {
  std::string class_name;  ///< by which a window manager groups windows
  std::string title;
  NativeSize client_size;
};

/// Hears the platform's own event records, for example an SDL_Event.
using PlatformEventListener = std::function<void(const void* platform_event)>;

/// The narrow interface to the desktop: one window, its GL context, one event at a time, and the
/// live state of keys, buttons, cursor and focus.
///
/// Speaks Windows virtual-key codes on every platform. The real one is made by MakeSdlNative;
/// HeadlessNative does without a desktop, and tests use a recording one. Everything is called on
/// the main thread. The window opens hidden; until it is open, MessageBox and OpenConsole are the
/// only verbs allowed. Positions and sizes are client pixels.
class Native {
 public:
  virtual ~Native() = default;

  /// Opens the window, hidden, at (0, 0). It is made at least a pixel and at most the desktop in
  /// size, and the user cannot make it smaller where the desktop grants that. Returns an empty
  /// string, or a sentence for the user that says why there is no window.
  virtual std::string OpenWindow(const WindowRequest& request) = 0;
  /// Creates a double-buffered OpenGL context of the compatibility profile and makes it current.
  /// Returns an empty string, or a sentence for the user.
  virtual std::string CreateContext() = 0;
  /// Deletes the context; does nothing when there is none.
  virtual void DestroyContext() = 0;
  virtual void ShowWindow() = 0;

  /// Covers the monitor that the window is on.
  virtual void SetFullScreen() = 0;
  /// Leaves full screen and the maximised state, and gives the window this client size (within the
  /// limits of OpenWindow) at (0, 0). A size below that of OpenWindow becomes the smallest.
  /// A window that is so already is not touched. A minimised one stays minimised.
  virtual void SetWindowed(int width, int height) = 0;
  virtual void Minimise() = 0;
  /// Lets files be dropped on the window; may be called again at any time.
  virtual void AcceptFileDrops() = 0;
  virtual void SetCursorVisible(bool visible) = 0;

  /// Brings keys, buttons and cursor up to date and takes one event out of the queue.
  ///
  /// Mouse moves that stand next to each other in the queue come as one, the newest. Platform
  /// events that no row knows are skipped. Returns false when nothing was there; `*event` then is
  /// undefined.
  virtual bool PumpEvent(NativeEvent* event) = 0;
  /// Sets who hears of the skipped platform events; a tools layer needs some of them (text input).
  virtual void SetSkippedEventListener(PlatformEventListener listener) = 0;

  /// Shows the window's back buffer.
  virtual void SwapBuffers() = 0;
  /// 1 waits for the refresh of the screen in SwapBuffers, 0 does not.
  virtual void SetSwapInterval(int interval) = 0;

  /// Writes title and text to standard error and shows them in a box until the user closes it.
  /// Works before a window is open; without a display it returns at once.
  virtual void MessageBox(const std::string& title, const std::string& text) = 0;
  /// Gives the process a console for its standard streams where a program has none of its own.
  virtual void OpenConsole() = 0;

  /// Size of the monitor that the window is on.
  virtual NativeSize MonitorSize() const = 0;
  /// True while the window is minimised, so that nobody sees what is drawn.
  virtual bool IsMinimised() const = 0;
  /// True while the window has the keyboard focus.
  virtual bool HasFocus() const = 0;
  /// True if the key, or mouse button 1 (left) or 2 (right), is down as of the last PumpEvent. Also
  /// true of a button whose press that call took, if the press was over before any call saw it.
  virtual bool IsKeyDown(std::uint32_t virtual_key) const = 0;
  /// The cursor as of the last PumpEvent; outside the window it may be negative or beyond the size.
  virtual NativePoint CursorPosition() const = 0;
  /// The platform's own handle of the window and the context; null while there is none.
  virtual void* WindowHandle() const = 0;
  virtual void* ContextHandle() const = 0;
};

/// The desktop in use; set before the systems are created.
extern Native* g_native;

/// The real desktop, by way of SDL. Nothing is started until its first use. One at a time.
std::unique_ptr<Native> MakeSdlNative();

}  // namespace ZOVEngine
