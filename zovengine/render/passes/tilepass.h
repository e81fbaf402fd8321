#pragma once

#include <vector>

#include "render/spritelists.h"

namespace ZOVEngine {

class Painter;

/// Draws the visible ones of `tiles` as the shared quad with their plain texture; a tile has
/// neither highlight nor animation.
void TilePass(const std::vector<Sprite>& tiles, Painter& painter);

}  // namespace ZOVEngine
