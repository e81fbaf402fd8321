#include "platform/inputsystem.h"

#include <iostream>
#include <optional>
#include <string>

#include "core/engine.h"
#include "objects/reflection.h"
#include "platform/native.h"
#include "platform/virtualkeys.h"
#include "platform/windowsystem.h"

ZOV_REGISTRATION(InputSystem) {
  ZOVEngine::SystemRegistration<ZOVEngine::InputSystem>("InputSystem");
}

namespace ZOVEngine {

InputSystem* g_input_system = nullptr;

namespace {

/// Keys that act on the program, not on the game.
bool IsProgramKey(std::uint64_t key) {
  return key == kVkEscape || (key >= kVkF1 && key < kVkF13);
}

bool IsUsersPlay(const NativeEvent& event) {
  switch (event.kind) {
    case NativeEventKind::kKeyDown:
    case NativeEventKind::kKeyUp:
      return !IsProgramKey(event.wparam);
    case NativeEventKind::kMouseMove:
    case NativeEventKind::kLeftButtonDown:
    case NativeEventKind::kRightButtonDown:
    case NativeEventKind::kLeftButtonUp:
    case NativeEventKind::kRightButtonUp:
    case NativeEventKind::kMouseWheel:
      return true;
    default:
      return false;
  }
}

/// 1 while `code` is down, 0 once when it was held and is up, nothing else. Keeps `*held`.
std::optional<std::uint32_t> PollKey(std::int32_t code, bool* held) {
  const bool down = g_native->IsKeyDown(static_cast<std::uint32_t>(code));
  if (!down && !*held) return std::nullopt;
  *held = down;
  return down ? 1u : 0u;
}

Vector3D CursorInWindow() {
  const NativePoint cursor = g_native->CursorPosition();
  return Vector3D(static_cast<float>(cursor.x), static_cast<float>(cursor.y), 1.0f);
}

float MonitorHeightOfCursor() {
  const WindowState& state = g_window_state;
  return static_cast<float>(state.cursorMonitorHeight > 0 ? state.cursorMonitorHeight
                                                          : state.monitorHeight);
}

}  // namespace

InputSystem::InputSystem() {
  g_input_system = this;
}

InputSystem::~InputSystem() {
  std::cout << "Destructor of InputSystem" << std::endl;
  if (g_input_system == this) g_input_system = nullptr;
}

void InputSystem::Init() {
  m_keyUp = kVkW;
  m_keyDown = kVkS;
  m_keyLeft = kVkA;
  m_keyRight = kVkD;
  m_mouseLeft = kVkLeftButton;
  m_mouseRight = kVkRightButton;
  m_heldUp = m_heldDown = m_heldLeft = m_heldRight = false;
  m_heldMouseLeft = m_heldMouseRight = false;
}

void InputSystem::Update(float) {
  Poll();
}

void InputSystem::SendMessage(Message*) {}

void InputSystem::Poll() {
  // Deliberately one event a step, not the whole queue.
  NativeEvent event;
  if (g_native->PumpEvent(&event)) {
    if (m_played_cursor && IsUsersPlay(event)) event.kind = NativeEventKind::kOther;
    WindowProcedure(event);
  }
  if (m_played_cursor || !g_native->HasFocus()) return;

  PollDirection(0, m_keyUp, &m_heldUp);
  PollDirection(1, m_keyDown, &m_heldDown);
  PollDirection(2, m_keyLeft, &m_heldLeft);
  PollDirection(3, m_keyRight, &m_heldRight);
  PollButton(0, m_mouseLeft, &m_heldMouseLeft);
  PollButton(1, m_mouseRight, &m_heldMouseRight);
}

void InputSystem::PollDirection(std::uint32_t direction, std::int32_t code, bool* held) {
  const std::optional<std::uint32_t> pressed = PollKey(code, held);
  if (!pressed) return;
  PlayerDirectionKey message(direction, *pressed);
  g_engine->Broadcast(&message);
}

void InputSystem::PollButton(std::uint32_t button, std::int32_t code, bool* held) {
  const std::optional<std::uint32_t> pressed = PollKey(code, held);
  if (!pressed) return;
  MouseButton message(button, *pressed, CursorInWindow());
  g_engine->Broadcast(&message);
}

Vector3D ScreenPosition(const NativePoint& cursor, const Vector3D& window_size,
                        float monitor_height) {
  const auto x = static_cast<float>(cursor.x);
  const auto y = static_cast<float>(cursor.y);
  // H / size.y, deliberately in this form, since its rounding is the game's.
  const float ratio = (window_size.y - (window_size.y - monitor_height)) / window_size.y;
  return Vector3D((x - window_size.x * 0.5f) * ratio, -((y - window_size.y * 0.5f) * ratio), 1.0f);
}

Vector3D GetCursorScreenPosition() {
  if (g_input_system != nullptr && g_input_system->m_played_cursor) {
    return *g_input_system->m_played_cursor;
  }
  return ScreenPosition(g_native->CursorPosition(), g_window_system->m_size,
                        MonitorHeightOfCursor());
}

}  // namespace ZOVEngine
