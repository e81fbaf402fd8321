#pragma once

#include "core/base/vector3d.h"

namespace ZOVEngine {

/// One input of a user at a moment of a game.
///
/// The cursor is given in the pixels of a window of 1280 by 720 on a monitor of 1080 lines, however
/// large the window is in which the game runs, so that a game that is played again aims the same to
/// the bit.
struct GameInput {
  enum class Kind : char {
    kCursor = 'c',     ///< the cursor is at (a, b)
    kDirection = 'd',  ///< the movement key of direction a is held
    kKey = 'k',        ///< the key of code a is let go
    kClick = 'b',      ///< the left button is down
  };

  Kind kind = Kind::kCursor;
  int a = 0;
  int b = 0;

  bool operator==(const GameInput&) const = default;
};

/// The position on the screen, as GetCursorScreenPosition has it, of a cursor that an input puts at
/// (x, y).
Vector3D PlayedCursor(int x, int y);

/// Gives the input to the running engine: the cursor to the input system, which from then on leaves
/// out the user's own, all else as the message that the input system would broadcast.
void Apply(const GameInput& input);

/// Gives cursor, keys and buttons back to the user. Without an engine it does nothing.
void ReleaseInput();

}  // namespace ZOVEngine
