#pragma once

#include <cstdint>
#include <string>

#include "core/base/vector3d.h"
#include "core/system.h"
#include "platform/native.h"

namespace ZOVEngine {

/// A rectangle by its four edges (unit: pixels).
struct WindowRect {
  std::int32_t left = 0;
  std::int32_t top = 0;
  std::int32_t right = 0;
  std::int32_t bottom = 0;
};

/// What the functions around the window share beside the WindowSystem object.
struct WindowState {
  std::int32_t windowedWidth = 0;  ///< client size outside full screen (unit: pixels)
  std::int32_t windowedHeight = 0;
  std::int32_t monitorWidth = 0;  ///< of the monitor that the window is on (unit: pixels)
  std::int32_t monitorHeight = 0;
  std::int32_t cursorMonitorHeight = 0;  ///< setting "monitor_height"; 0 takes monitorHeight
  bool fullscreen = false;               ///< the mode in force
  bool fullscreenToggle = true;          ///< what the next F6 asks for, whatever the mode in force
  bool imguiLive = false;                ///< set by a tools layer that wants the window's events
};

extern WindowState g_window_state;

/// The settings file that WindowSystem reads: "Resources/Archetypes/WinInit.json", unless the
/// program was asked for the level editor, which has settings of its own.
extern std::string g_settings_path;
inline constexpr const char* kEditorSettingsPath = "Resources/Archetypes/EditInit.json";

/// Reads the window settings, opens the window with its GL context, and owns the window procedure
/// through which everything the desktop reports enters the engine as messages.
///
/// A window that loses the focus mutes the game and minimises itself; the user brings it back. The
/// window lives until the process ends; the destructor deletes the GL context only. Needs g_native;
/// a g_gl_device may be missing, in a program without a picture. Sizes are client pixels.
class WindowSystem : public UnpausedSystem {
  RTTR_ENABLE(UnpausedSystem)

 public:
  /// Sets g_window_system, and makes failed assertions show the platform's message box.
  WindowSystem();
  ~WindowSystem() override;

  /// Reads the settings of `g_settings_path`, opens window and context, starts the GL device,
  /// shows the window. If one of these cannot be had, the user is told and the process ends with
  /// failure.
  void Init() override;
  /// Lets files be dropped on the window, anew in each step.
  void Update(float dt) override;
  /// F6 released: asks for the mode that `fullscreenToggle` says, then turns it round.
  void SendMessage(Message* message) override;

  WindowRect m_rect;             ///< client rectangle as opened
  bool m_imguiActive = false;    ///< "Activate_ImGui"
  bool m_consoleActive = false;  ///< "Activate_Console"
  bool m_fullscreen = false;     ///< "fullscreen": the mode to start in
  std::int32_t m_width = 0;      ///< "winwidth", held within 1 and 16384
  std::int32_t m_height = 0;     ///< "winheight", held within 1 and 16384
  void* m_window = nullptr;      ///< the platform's handle
  void* m_instance = nullptr;    ///< no meaning on this platform
  void* m_glContext = nullptr;   ///< the platform's handle
  std::uint32_t m_style = 0;     ///< carried along; this platform has no style bits
  std::int32_t m_pixelFormat = 0;
  std::string m_name;    ///< "name": window class
  std::string m_title;   ///< "title"
  Vector3D m_size;       ///< current drawable size, z 1 (unit: pixels)
  Vector3D m_startSize;  ///< size of the settings, z 1 (unit: pixels)

 private:
  void ReadSettings();
  void Open();
};

extern WindowSystem* g_window_system;

/// Switches between full screen (`width` and `height` are ignored) and a window of this client
/// size, which becomes the windowed size. May be called with the mode that is in force: it is
/// applied anew.
void SetDisplayMode(bool full, std::int32_t width, std::int32_t height);

/// Resets the GL viewport to (0, 0, width, height) with a perspective whose aspect is the integer
/// quotient of the two. A height of 0 counts as 1. Without a GL device it does nothing.
void ResizeViewport(std::int32_t width, std::int32_t height);

/// Handles one event of the window: turns it into broadcasts and changes of the window. Returns
/// true when the platform's own default processing should follow, false when the event is
/// swallowed.
bool WindowProcedure(const NativeEvent& event);

/// Sets who is offered every platform event before the engine handles it, while
/// `g_window_state.imguiLive` is set. It cannot keep an event from the engine.
void SetToolsListener(PlatformEventListener listener);

}  // namespace ZOVEngine
