#pragma once

#include <cstdint>
#include <vector>

#include "editor/canvas/objectbounds.h"
#include "editor/canvas/painter.h"
#include "editor/canvas/sceneindex.h"

namespace ZOVEngine {

/// What of the selection the mouse takes hold of.
enum class Handle {
  kNone,
  kBody,            ///< the objects themselves
  kAxisX,           ///< moves along x only
  kAxisY,           ///< moves along y only
  kRing,            ///< turns
  kCorner,          ///< scales width and height alike
  kVerticalEdge,    ///< scales the width, of a single object
  kHorizontalEdge,  ///< scales the height, of a single object
};

/// The handles around the selected objects that the mode of editing calls for: arrows to move, a
/// ring to turn, squares to scale.
///
/// Made anew for each frame. Without objects there are no handles.
class Handles {
 public:
  /// `mode` is an EditMode.
  Handles(const std::vector<const SceneEntry*>& selected, std::uint32_t mode,
          const CanvasView& view);

  /// The handle under the point of the level, or kNone.
  Handle At(const Vector3D& point) const;
  void Draw(CanvasPainter& painter, Handle lit) const;

 private:
  void Enclose(const std::vector<const SceneEntry*>& selected);
  Vector3D ArrowTip(float x, float y) const;
  /// The middles of the edges: right, left, upper, lower.
  std::array<Vector3D, 4> EdgeMiddles() const;
  Handle ArrowAt(const Vector3D& point) const;
  Handle SquareAt(const Vector3D& point) const;
  void DrawArrows(CanvasPainter& painter, Handle lit) const;
  void DrawRing(CanvasPainter& painter, Handle lit) const;
  void DrawSquares(CanvasPainter& painter, Handle lit) const;

  std::uint32_t m_mode;
  float m_pixel;  ///< (unit: world units)
  bool m_shown;
  bool m_single;
  ObjectBounds m_bounds;
  float m_radius = 0.0f;  ///< of the ring (unit: world units)
};

/// The point about which the objects turn and scale: the middle of them all, of a single one its
/// own place.
Vector3D PivotPoint(const std::vector<const SceneEntry*>& objects);

}  // namespace ZOVEngine
