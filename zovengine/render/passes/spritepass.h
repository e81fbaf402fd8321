#pragma once

#include <cstdint>
#include <vector>

#include "render/spritelists.h"

namespace ZOVEngine {

class Painter;

/// Values that all sprites of a frame share.
struct SpriteStep {
  float dt = 0.0f;                ///< by which animations go on (unit: seconds)
  std::int32_t selected_id = -1;  ///< object that shows its highlight texture
  /// The objects in contact, whose debug outlines are white; null draws no outlines at all.
  const std::vector<std::int32_t>* collided_ids = nullptr;
};

/// Draws the visible ones of `sprites`, which are hazards or all other sprites of the world.
void WorldPass(const std::vector<Sprite>& sprites, const SpriteStep& step, Painter& painter);

/// Draws the visible ones of `sprites`, which hang on a camera. `view_depth` is the z of the view's
/// translation, which is taken off, so that the camera's depth does not move them. They have no
/// debug outlines.
void InterfacePass(const std::vector<Sprite>& sprites, const SpriteStep& step, float view_depth,
                   Painter& painter);

}  // namespace ZOVEngine
