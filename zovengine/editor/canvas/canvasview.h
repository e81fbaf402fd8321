#pragma once

#include <imgui.h>

#include "core/base/vector3d.h"

namespace ZOVEngine {

/// Where points of the level lie in the window in this frame, and back.
///
/// A copy of what the camera and the layout gave when it was made, so that thousands of points are
/// mapped without asking them again. Level points are world units with y upwards, window points
/// pixels with y downwards. Made between ImGui's NewFrame and Render.
class CanvasView {
 public:
  CanvasView();

  ImVec2 ToWindow(const Vector3D& point) const {
    return ImVec2(m_origin.x + point.x / m_units_per_pixel,
                  m_origin.y - point.y / m_units_per_pixel);
  }
  Vector3D ToWorld(const ImVec2& pixel) const {
    return Vector3D((pixel.x - m_origin.x) * m_units_per_pixel,
                    (m_origin.y - pixel.y) * m_units_per_pixel, 0.0f);
  }
  float UnitsPerPixel() const { return m_units_per_pixel; }
  /// The upper left and the lower right corner of the picture.
  const ImVec2& Least() const { return m_least; }
  const ImVec2& Most() const { return m_most; }
  /// Whether a circle, given in pixels, may reach into the picture.
  bool Touches(const ImVec2& middle, float radius) const {
    return middle.x + radius >= m_least.x && middle.x - radius <= m_most.x &&
           middle.y + radius >= m_least.y && middle.y - radius <= m_most.y;
  }

 private:
  ImVec2 m_origin;  ///< of the level
  float m_units_per_pixel = 1.0f;
  ImVec2 m_least, m_most;
};

}  // namespace ZOVEngine
