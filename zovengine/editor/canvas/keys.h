#pragma once

#include <imgui.h>

namespace ZOVEngine {

/// The keys of the canvas as ImGui's table of keys has them: the places on the keyboard, by the
/// numbers that the USB standard gives them.
enum class CanvasKey : int {
  kA = 4,
  kC = 6,
  kD = 7,
  kS = 22,
  kV = 25,
  kX = 27,
  kY = 28,
  kZ = 29,
  kEscape = 41,
  kDelete = 76,
  kRight = 79,
  kLeft = 80,
  kDown = 81,
  kUp = 82,
};

/// Whether the key went down in this frame; with `repeat` also while it is held.
inline bool IsPressed(CanvasKey key, bool repeat = false) {
  return ImGui::IsKeyPressed(static_cast<int>(key), repeat);
}

}  // namespace ZOVEngine
