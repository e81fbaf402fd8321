#pragma once

#include "core/base/vector3d.h"

namespace ZOVEngine {

class LevelEditor;

/// The steps in which a drag moves, turns and scales, or the free hand.
///
/// Positions go to multiples of half a tile of the open map, which is centred on the origin, so
/// that they are the middles, corners and edges of tiles; angles to 15 degrees, factors to tenths.
class SnapGrid {
 public:
  /// The free hand.
  SnapGrid() = default;
  /// Snaps to tiles of this size (unit: world units); with a size of 0 or less positions are free.
  explicit SnapGrid(float tile_size) : m_step(tile_size * 0.5f), m_on(true) {}

  Vector3D Position(const Vector3D& free) const;
  float Angle(float free) const;
  /// At least a tenth.
  float Factor(float free) const;
  bool IsOn() const { return m_on; }

 private:
  float m_step = 0.0f;  ///< (unit: world units)
  bool m_on = false;
};

/// The grid that the author works with now: that of the open map if `editor.snap` is on and Alt is
/// not held.
SnapGrid PresentGrid(const LevelEditor& editor);

}  // namespace ZOVEngine
