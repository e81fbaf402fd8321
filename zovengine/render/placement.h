#pragma once

#include "core/base/vector3d.h"
#include "physics/components/transform.h"
#include "render/components/render.h"
#include "render/frame.h"

namespace ZOVEngine {

/// The factor by which sprites turn degrees into radians.
inline constexpr float kRadiansPerDegree = 0.017453292f;

/// Where the object of `transform` is drawn, by its world values.
inline Placement PlacementOf(const Transform& transform) {
  Placement placement;
  placement.translate = transform.m_world_pos;
  placement.rotate_radians = transform.m_world_rotate * kRadiansPerDegree;
  placement.scale = Vector3D(transform.m_world_scale.x, transform.m_world_scale.y, 1.0f);
  return placement;
}

/// The program of a sprite: any name but "default" is a lit one.
inline Program ProgramOf(const Render& render) {
  return render.m_shader == "default" ? Program::kDefault : Program::kLight;
}

}  // namespace ZOVEngine
