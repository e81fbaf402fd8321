#pragma once

#include <span>
#include <vector>

#include "core/base/matrix4x4.h"
#include "render/frame.h"
#include "render/gl/glbox.h"
#include "render/gl/gloccluders.h"

namespace ZOVEngine {

/// Finds what of the ground looks different from the frame before.
///
/// The ground is the background and the tiles, the first Frame::ground commands of a frame. It
/// looks different where a command has changed, and where a light that has changed shines or shone;
/// everywhere when the view moves or the number of commands changes. Textures that change are not
/// seen here.
class GroundWatch {
 public:
  static constexpr std::size_t kMostBoxes = 2;

  /// Compares the ground of `frame` with that of the frame of the last call. False when it may be
  /// different everywhere, as at the first call. `reach` is the reach of the lights, 0 if it is
  /// unknown (unit: world units).
  bool Compare(const Frame& frame, const Matrix4x4& projection, float reach);

  /// After Compare was true: boxes outside which the ground has the pixels of the frame before, at
  /// most kMostBoxes. They do not overlap, and may reach beyond the screen.
  const std::vector<ScreenBox>& Changed() const { return m_changed; }
  /// After Compare was true: the part of the screen that a box of the ground may cover, at
  /// whichever of the ground's depths it lies. False when there is none.
  bool FindOnScreen(const WorldBox& box, ScreenBox* out) const;

 private:
  bool IsMoved(const Frame& frame, const Matrix4x4& projection) const;
  void FindDepths(const Frame& frame);
  void CompareCommands(const Frame& frame);
  void CompareLights(std::span<const LightRecord> lights, float reach);
  void AddLight(const LightRecord& light, float reach);
  void AddBox(const WorldBox& box);
  void AddOnScreen(ScreenBox box);
  void JoinNearest();
  void Remember(const Frame& frame, const Matrix4x4& projection);

  std::vector<DrawCommand> m_commands;
  std::vector<LightRecord> m_lights;
  Matrix4x4 m_view, m_projection;
  Vector3D m_view_pos;
  float m_nearest = 0.0f, m_farthest = 0.0f;  ///< z of the ground (unit: world units)
  ScreenMap m_screen;
  std::vector<ScreenBox> m_changed;
  bool m_is_everywhere = true;
};

/// The pixels that `box` touches in a viewport of this size at (0, 0), and one more on each side.
/// Without any, width and height are 0.
PixelBox TouchedPixels(const ScreenBox& box, int width, int height);

}  // namespace ZOVEngine
