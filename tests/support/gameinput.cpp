#include "support/gameinput.h"

#include "core/messages.h"

namespace carapace_test {

using namespace ZOVEngine;

void Apply(const GameInput& input, World* world) {
  switch (input.kind) {
    case GameInput::Kind::kCursor:
      world->native.cursor = {input.a, input.b};
      break;
    case GameInput::Kind::kDirection:
      world->Send(PlayerDirectionKey(static_cast<std::uint32_t>(input.a), 1));
      break;
    case GameInput::Kind::kKey:
      world->Send(KeyUp(static_cast<std::uint64_t>(input.a)));
      break;
    case GameInput::Kind::kClick:
      world->Send(MouseButton(0, 1, Vector3D(0, 0, 1)));
      break;
  }
}

}  // namespace carapace_test
