#pragma once

#include "core/base/vector3d.h"
#include "objects/componentarray.h"
#include "render/frame.h"

namespace ZOVEngine {

class Camera;

/// The view's distance from the world while the camera's z is 0 (unit: world units).
inline constexpr float kViewDistance = 1303.5f;

/// Sets the view of `frame` to the last active one of `cameras`. `view_translate` has the camera's
/// position, x and y negated, with its offset; without an active camera it stays as it is.
void CameraPass(ComponentArray<Camera> cameras, Vector3D* view_translate, Frame* frame);

}  // namespace ZOVEngine
