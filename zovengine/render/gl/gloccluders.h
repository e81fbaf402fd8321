#pragma once

#include <cstddef>
#include <vector>

#include "core/base/matrix4x4.h"
#include "render/gl/glbox.h"

namespace ZOVEngine {

/// Maps upright rectangles of the world to the screen, by a projection and a view.
class ScreenMap {
 public:
  /// Without a view, Find fails for every rectangle.
  ScreenMap() = default;
  ScreenMap(const Matrix4x4& projection, const Matrix4x4& view);

  /// True when `box` at depth `z` is a rectangle on the screen, which then is `*out`: the view does
  /// not turn, and the depth lies between the near and the far plane.
  bool Find(const WorldBox& box, float z, ScreenBox* out) const;

 private:
  Matrix4x4 m_to_clip;
};

/// Opaque rectangles on the screen, to be asked whether together they hide a box under them.
///
/// Neighbours that share an edge leave no gap, since the driver gives each pixel on the edge to one
/// of them. A box that reaches a rectangle's outer edge counts as not hidden, by a margin much
/// larger than the rounding of positions and much smaller than a pixel.
class Occluders {
 public:
  void Clear();
  void Add(const ScreenBox& box) { m_boxes.push_back(box); }
  /// To be called between Add and Hides. Occluders of too many different edges hide nothing.
  void Build();
  /// True when no pixel of the screen in `box` can be seen; true for a box beside the screen.
  bool Hides(const ScreenBox& box) const;

 private:
  int& SumAt(std::size_t x, std::size_t y) { return m_sums[y * m_xs.size() + x]; }
  int SumAt(std::size_t x, std::size_t y) const { return m_sums[y * m_xs.size() + x]; }
  void Mark(const ScreenBox& box);

  std::vector<ScreenBox> m_boxes;
  std::vector<float> m_xs;  ///< edges in rising order; they and m_ys make a grid
  std::vector<float> m_ys;
  std::vector<int> m_sums;  ///< covered cells of the grid to the left of and below each crossing
};

}  // namespace ZOVEngine
