#pragma once

#include <array>

#include "core/base/vector3d.h"

namespace ZOVEngine {

struct SceneEntry;

/// The rectangle that an object takes in the level, turned with it (unit: world units, radians).
struct ObjectBounds {
  Vector3D middle;
  float half_width = 0.0f, half_height = 0.0f;
  float angle = 0.0f;

  bool Contains(const Vector3D& point) const;
  /// In the order lower left, lower right, upper right, upper left, as the object sees them.
  std::array<Vector3D, 4> Corners() const;
};

/// The half of the side of the handle that stands for an object with neither image nor collider
/// (unit: pixels).
inline constexpr float kHandlePixels = 9.0f;

/// Whether an image of the object can be seen.
bool HasVisibleImage(const SceneEntry& entry);
/// The bounds of the visible image, else of the collider, else of the handle. The object must have
/// a Transform.
ObjectBounds FindBounds(const SceneEntry& entry, float units_per_pixel);
/// Whether `point` is on the object: in its visible image, else in its collider, else in its
/// handle. False without a Transform.
bool IsHit(const SceneEntry& entry, const Vector3D& point, float units_per_pixel);

}  // namespace ZOVEngine
