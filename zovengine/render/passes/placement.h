#pragma once

#include "physics/components/transform.h"
#include "render/components/render.h"
#include "render/frame.h"

namespace ZOVEngine {

/// The factor by which sprites turn degrees into radians.
inline constexpr float kRadiansPerDegree = 0.017453292f;

/// A rectangle of this size along the axes round `position`.
Placement UprightPlacement(const Vector3D& position, float width, float height);

/// Where the object of `transform` is drawn, by its world values.
Placement SpritePlacement(const Transform& transform);

/// The program of a sprite: any name but "default" is a lit one.
Program SpriteProgram(const Render& render);

/// The Transform of `object`; one that lacks it ends the program with a report that names the
/// object and its `component`, which needs the Transform.
Transform& RequireTransform(GameObj* object, const char* component);

}  // namespace ZOVEngine
