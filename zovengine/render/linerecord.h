#pragma once

#include "core/base/vector3d.h"
#include "render/painter.h"

namespace ZOVEngine {

/// A line that is drawn once, in the next frame.
struct LineRecord {
  Vector3D start;
  Vector3D end;
  float width = 0.0f;      ///< (unit: world units)
  Colour colour = kWhite;  ///< as its sender gave it; values reach the shader unchanged
};

/// A line that is drawn until its life time is over.
struct TimedLineRecord {
  Vector3D start;
  Vector3D end;
  float width = 0.0f;      ///< (unit: world units)
  float life_time = 0.0f;  ///< (unit: seconds)
  Vector3D colour;
  float elapsed = 0.0f;  ///< (unit: seconds)
};

}  // namespace ZOVEngine
