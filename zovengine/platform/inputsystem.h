#pragma once

#include <cstdint>
#include <optional>

#include "core/base/vector3d.h"
#include "core/system.h"
#include "platform/native.h"

namespace ZOVEngine {

/// Moves one event of the window through the window procedure in each step, and polls the movement
/// keys and the mouse buttons.
///
/// The two reports differ and the game depends on both: KeyDown and KeyUp come from the event
/// queue, once a transition; PlayerDirectionKey and MouseButton come in every step while the key is
/// held, and once when it is found released. Without the focus nothing is polled, so a held key
/// stays held until the focus is back. While a game is played without the user's hands
/// (`m_played_cursor`), the user's mouse and keys give no messages, but for Escape and the function
/// keys. Needs g_native.
class InputSystem : public UnpausedSystem {
  RTTR_ENABLE(UnpausedSystem)

 public:
  /// Sets g_input_system.
  InputSystem();
  ~InputSystem() override;

  /// Sets the key codes and clears the held flags.
  void Init() override;
  /// One event, then the keys and buttons.
  void Update(float dt) override;
  /// Takes no message.
  void SendMessage(Message* message) override;

  std::int32_t m_keyUp = 0;  ///< virtual-key codes, here and below
  std::int32_t m_keyDown = 0;
  std::int32_t m_keyLeft = 0;
  std::int32_t m_keyRight = 0;
  std::int32_t m_mouseLeft = 0;
  std::int32_t m_mouseRight = 0;
  bool m_heldUp = false;  ///< the key is held as far as this system knows, here and below
  bool m_heldDown = false;
  bool m_heldLeft = false;
  bool m_heldRight = false;
  bool m_heldMouseLeft = false;
  bool m_heldMouseRight = false;
  /// Set while a game is played without the user's hands: stands in for the cursor in
  /// GetCursorScreenPosition, in its unit, whatever the size of the window.
  std::optional<Vector3D> m_played_cursor;

 private:
  void Poll();
  void PollDirection(std::uint32_t direction, std::int32_t code, bool* held);
  void PollButton(std::uint32_t button, std::int32_t code, bool* held);
};

extern InputSystem* g_input_system;

/// The position of a cursor relative to the centre of a window of this client size, scaled to the
/// height of the monitor, y upwards, z 1 (unit: pixels of the monitor).
Vector3D ScreenPosition(const NativePoint& cursor, const Vector3D& window_size,
                        float monitor_height);

/// The cursor relative to the centre of the window, scaled to the height of the monitor, y upwards,
/// z 1 (unit: pixels of the monitor). The centre of the client area is (0, 0, 1).
Vector3D GetCursorScreenPosition();

}  // namespace ZOVEngine
