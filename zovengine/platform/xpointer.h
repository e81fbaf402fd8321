#pragma once

#include <optional>

#include "platform/native.h"

struct SDL_Window;

namespace ZOVEngine {

/// The pointer in client pixels of `window`, asked of the X server; nothing on another window
/// system, or while the pointer is on another screen. Stands in a file of its own for the sake of
/// X's macros.
std::optional<NativePoint> QueryXPointer(SDL_Window* window);

}  // namespace ZOVEngine
