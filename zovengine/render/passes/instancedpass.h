#pragma once

#include <cstddef>
#include <vector>

#include "render/spritelists.h"

namespace ZOVEngine {

class Painter;

/// The largest number of particles of one frame.
inline constexpr std::size_t kMaxInstances = 150000;

/// Draws the visible ones of `particles` at once, all with the texture and the colour of the first.
/// More than kMaxInstances end the program.
void InstancedPass(const std::vector<Sprite>& particles, Painter& painter);

}  // namespace ZOVEngine
