#pragma once

#include <cstdint>
#include <vector>

#include "render/frame.h"
#include "render/spritelists.h"
#include "render/treerectangle.h"

namespace ZOVEngine {

class Painter;

/// Outlines the model of a sprite that has a collider, white while its object is one of
/// `collided_ids` and red else, and the collider's bounds in yellow. A circle has its bounds only;
/// a sprite whose debug flag is off has neither.
void DrawDebugOutlines(const Sprite& sprite, const Placement& placement,
                       const std::vector<std::int32_t>& collided_ids, Painter& painter);

/// Outlines `rectangles` in yellow.
void TreePass(const std::vector<TreeRectangle>& rectangles, Painter& painter);

}  // namespace ZOVEngine
