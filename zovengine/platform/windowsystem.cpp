#include "platform/windowsystem.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <utility>

#include "core/engine.h"
#include "jsonunserializer.h"
#include "objects/reflection.h"
#include "platform/virtualkeys.h"
#include "render/gldevice.h"
#include "zovassert.h"

ZOV_REGISTRATION(WindowSystem) {
  ZOVEngine::SystemRegistration<ZOVEngine::WindowSystem>("WindowSystem");
}

namespace ZOVEngine {

WindowState g_window_state;
std::string g_settings_path = "Resources/Archetypes/WinInit.json";
WindowSystem* g_window_system = nullptr;

namespace {

constexpr std::uint32_t kWindowStyle = 0x000B0000;
constexpr std::int32_t kLargestSide = 16384;  ///< of a window by its settings (unit: pixels)
constexpr std::uint32_t kMasterChannel = 2;
/// F10. Deliberately tested against every event's parameter, whatever the event: this keeps the key
/// from opening a system menu.
constexpr std::uint64_t kSwallowedParameter = kVkF10;
constexpr std::size_t kLongestFileName = 259;  ///< of a dropped file; the rest is cut (unit: bytes)

PlatformEventListener g_tools_listener;

void OfferToTools(const void* platform_event) {
  if (g_window_state.imguiLive && g_tools_listener) g_tools_listener(platform_event);
}

template <class T, class... Args>
void Send(Args... args) {
  T message(args...);
  g_engine->Broadcast(&message);
}

[[noreturn]] void EndWithoutWindow(const std::string& title, const std::string& text) {
  g_native->MessageBox(title, text);
  std::exit(EXIT_FAILURE);
}

void EndIfNotEmpty(const std::string& title, const std::string& text) {
  if (!text.empty()) EndWithoutWindow(title, text);
}

void StoreMonitorSize() {
  const NativeSize monitor = g_native->MonitorSize();
  // A desktop that cannot tell leaves what was known.
  if (monitor.width <= 0 || monitor.height <= 0) return;
  g_window_state.monitorWidth = monitor.width;
  g_window_state.monitorHeight = monitor.height;
}

void SetDrawableSize(std::int32_t width, std::int32_t height) {
  g_window_system->m_size = Vector3D(static_cast<float>(width), static_cast<float>(height), 1.0f);
}

/// The size that an event carries is deliberately not used: the mode's own size is.
void HandleSize(std::int32_t width, std::int32_t height) {
  ResizeViewport(width, height);
  SetDrawableSize(width, height);
}

void HandleRestored() {
  HandleSize(g_window_state.windowedWidth, g_window_state.windowedHeight);
}

void HandleMaximised() {
  HandleSize(g_window_state.monitorWidth, g_window_state.monitorHeight);
}

void EnterFullScreen() {
  g_native->SetFullScreen();
  StoreMonitorSize();
  HandleMaximised();
}

void EnterWindow(std::int32_t width, std::int32_t height) {
  g_window_state.windowedWidth = width;
  g_window_state.windowedHeight = height;
  g_native->SetWindowed(width, height);
  ResizeViewport(width, height);
  SetDrawableSize(width, height);
}

void HandleDestroy() {
  g_window_system->m_imguiActive = false;
  g_engine->running = false;
}

void HandleSetFocus() {
  Send<Mute>(false, kMasterChannel);
  SetDisplayMode(g_window_state.fullscreen, g_window_state.windowedWidth,
                 g_window_state.windowedHeight);
}

void HandleKillFocus() {
  Send<GameLoseFocus>();
  Send<Mute>(true, kMasterChannel);
  g_native->Minimise();
}

/// Positions are unsigned 16-bit numbers: one left of the window is 65535.
void HandleMouseMove(const NativeEvent& event) {
  const auto x = static_cast<std::uint16_t>(event.x);
  const auto y = static_cast<std::uint16_t>(event.y);
  Send<MouseMoving>(Vector3D(static_cast<float>(x), static_cast<float>(y), 1.0f));
}

void HandleWheel(int turn) {
  if (turn > 0) Send<MouseScroll>(0u);
  if (turn < 0) Send<MouseScroll>(1u);
}

void HandleDrop(const std::vector<std::string>& files) {
  DroppedFile message;
  for (const std::string& file : files) {
    if (!file.empty()) message.files.push_back(file.substr(0, kLongestFileName));
  }
  g_engine->Broadcast(&message);
}

}  // namespace

WindowSystem::WindowSystem() {
  g_window_system = this;
  SetAssertBox([](const std::string& title, const std::string& text) {
    if (g_native != nullptr) {
      g_native->MessageBox(title, text);
    } else {
      std::cerr << text << std::endl;
    }
  });
}

WindowSystem::~WindowSystem() {
  std::cout << "Destructor of WindowSystem" << std::endl;
  // The render system is destroyed later; what it has in the context goes while there is one.
  if (g_gl_device != nullptr) g_gl_device->Release();
  if (g_native != nullptr) g_native->DestroyContext();
  if (g_window_system == this) g_window_system = nullptr;
}

void WindowSystem::Init() {
  ReadSettings();
  if (m_consoleActive) g_native->OpenConsole();
  Open();
  g_native->ShowWindow();
  HandleRestored();  // the size of a new window is known before its first event
  if (m_fullscreen) SetDisplayMode(true, 0, 0);
}

void WindowSystem::Update(float) {
  g_native->AcceptFileDrops();
}

void WindowSystem::SendMessage(Message* message) {
  if (message->id != kKeyUp) return;
  if (dynamic_cast<KeyUp*>(message)->key != kVkF6) return;
  SetDisplayMode(g_window_state.fullscreenToggle, g_window_state.windowedWidth,
                 g_window_state.windowedHeight);
  g_window_state.fullscreenToggle = !g_window_state.fullscreenToggle;
}

void WindowSystem::ReadSettings() {
  JsonDocument document;
  document.Open(g_settings_path);
  document.Parse();
  const Value& root = document.Root();
  ReadValue(root, "name", &m_name);
  ReadValue(root, "title", &m_title);
  ReadValue(root, "Activate_Console", &m_consoleActive);
  ReadValue(root, "Activate_ImGui", &m_imguiActive);
  ReadValue(root, "fullscreen", &m_fullscreen);
  ReadValue(root, "winwidth", &m_width);
  ReadValue(root, "winheight", &m_height);
  int cursor_monitor_height = 0;
  if (HasKey(root, "monitor_height")) ReadValue(root, "monitor_height", &cursor_monitor_height);

  m_style = kWindowStyle;
  m_width = std::clamp(m_width, 1, kLargestSide);
  m_height = std::clamp(m_height, 1, kLargestSide);
  m_startSize = Vector3D(static_cast<float>(m_width), static_cast<float>(m_height), 1.0f);
  g_window_state.windowedWidth = m_width;
  g_window_state.windowedHeight = m_height;
  g_window_state.fullscreen = m_fullscreen;
  g_window_state.cursorMonitorHeight = std::max(cursor_monitor_height, 0);
}

void WindowSystem::Open() {
  m_rect = WindowRect{0, 0, m_width, m_height};
  EndIfNotEmpty(m_title, g_native->OpenWindow({m_name, m_title, {m_width, m_height}}));
  m_window = g_native->WindowHandle();
  StoreMonitorSize();
  EndIfNotEmpty(m_title, g_native->CreateContext());
  m_glContext = g_native->ContextHandle();
  if (g_gl_device != nullptr) EndIfNotEmpty(m_title, g_gl_device->Start());
  g_native->SetSkippedEventListener(OfferToTools);
}

void SetDisplayMode(bool full, std::int32_t width, std::int32_t height) {
  if (full) {
    EnterFullScreen();
  } else {
    EnterWindow(width, height);
  }
  g_window_state.fullscreen = full;
}

void ResizeViewport(std::int32_t width, std::int32_t height) {
  if (height == 0) height = 1;
  // The integer quotient is deliberate; the render path brings a projection of its own.
  const std::int32_t aspect = width / height;
  if (g_gl_device != nullptr) g_gl_device->ResetViewport(width, height, aspect);
}

bool WindowProcedure(const NativeEvent& event) {
  OfferToTools(event.platform_event);
  switch (event.kind) {
    case NativeEventKind::kDestroy:
      HandleDestroy();
      return false;
    case NativeEventKind::kSizeRestored:
      HandleRestored();
      return true;
    case NativeEventKind::kSizeMaximised:
      HandleMaximised();
      return true;
    case NativeEventKind::kSetFocus:
      HandleSetFocus();
      break;
    case NativeEventKind::kKillFocus:
      HandleKillFocus();
      break;
    case NativeEventKind::kKeyDown:
    case NativeEventKind::kLeftButtonDown:
    case NativeEventKind::kRightButtonDown:
      Send<KeyDown>(event.wparam);
      break;
    case NativeEventKind::kKeyUp:
    case NativeEventKind::kLeftButtonUp:
    case NativeEventKind::kRightButtonUp:
      Send<KeyUp>(event.wparam);
      break;
    case NativeEventKind::kMouseMove:
      HandleMouseMove(event);
      break;
    case NativeEventKind::kMouseWheel:
      HandleWheel(event.wheel);
      break;
    case NativeEventKind::kDropFiles:
      HandleDrop(event.files);
      break;
    case NativeEventKind::kSizeOther:
    case NativeEventKind::kOther:
      break;
  }
  return event.wparam != kSwallowedParameter;
}

void SetToolsListener(PlatformEventListener listener) {
  g_tools_listener = std::move(listener);
}

}  // namespace ZOVEngine
