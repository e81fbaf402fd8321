#pragma once

#include "support/world.h"

namespace carapace_test {

/// One thing that a user does at a moment of a game.
struct GameInput {
  enum class Kind : char {
    kCursor = 'c',     ///< the cursor is at (a, b) (unit: client pixels)
    kDirection = 'd',  ///< the movement key of direction a is held
    kKey = 'k',        ///< the key of code a is let go
    kClick = 'b',      ///< the left button is down
  };

  Kind kind = Kind::kCursor;
  int a = 0;
  int b = 0;

  bool operator==(const GameInput&) const = default;
};

/// Lets the world know of it, as the input system would.
void Apply(const GameInput& input, World* world);

}  // namespace carapace_test
