#pragma once

namespace ZOVEngine {

/// A rectangle along the axes of `Space`; boxes of two spaces do not mix.
template <class Space>
struct Box {
  float left = 0.0f, right = 0.0f, bottom = 0.0f, top = 0.0f;
};

/// A rectangle in the plane of the world (unit: world units).
using WorldBox = Box<struct WorldSpace>;

/// A rectangle in clip space: the screen spans -1 to 1 in both directions.
using ScreenBox = Box<struct ClipSpace>;

/// A rectangle of pixels; `left` and `bottom` count from the lower left corner.
struct PixelBox {
  int left = 0, bottom = 0, width = 0, height = 0;

  bool operator==(const PixelBox&) const = default;
};

}  // namespace ZOVEngine
