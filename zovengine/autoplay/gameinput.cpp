#include "autoplay/gameinput.h"

#include "core/engine.h"
#include "core/messages.h"
#include "platform/inputsystem.h"

namespace ZOVEngine {
namespace {

const Vector3D kWindowSize(1280.0f, 720.0f, 1.0f);
constexpr float kMonitorHeight = 1080.0f;

template <class M>
void Send(M message) {
  g_engine->Broadcast(&message);
}

}  // namespace

Vector3D PlayedCursor(int x, int y) {
  return ScreenPosition({x, y}, kWindowSize, kMonitorHeight);
}

void Apply(const GameInput& input) {
  switch (input.kind) {
    case GameInput::Kind::kCursor:
      g_input_system->m_played_cursor = PlayedCursor(input.a, input.b);
      break;
    case GameInput::Kind::kDirection:
      Send(PlayerDirectionKey(static_cast<std::uint32_t>(input.a), 1));
      break;
    case GameInput::Kind::kKey:
      Send(KeyUp(static_cast<std::uint64_t>(input.a)));
      break;
    case GameInput::Kind::kClick:
      Send(MouseButton(0, 1, Vector3D(0, 0, 1)));
      break;
  }
}

void ReleaseInput() {
  if (g_input_system != nullptr) g_input_system->m_played_cursor.reset();
}

}  // namespace ZOVEngine
