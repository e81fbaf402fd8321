#pragma once

#include <optional>

#include "platform/native.h"

struct SDL_Window;

namespace ZOVEngine {

/// The pointer as the X server has it.
struct XPointer {
  NativePoint place;  ///< in client pixels
  bool left = false;  ///< the button is held
  bool right = false;
};

/// The pointer, relative to `window`, asked of the X server; nothing on another window system, or
/// while the pointer is on another screen. Stands in a file of its own for the sake of X's macros.
std::optional<XPointer> QueryXPointer(SDL_Window* window);

}  // namespace ZOVEngine
