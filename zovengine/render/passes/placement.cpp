#include "render/passes/placement.h"

#include <string>
#include <string_view>

#include "objects/componentmanager.h"

namespace ZOVEngine {

Placement UprightPlacement(const Vector3D& position, float width, float height) {
  Placement placement;
  placement.translate = position;
  placement.scale = Vector3D(width, height, 1.0f);
  return placement;
}

Placement SpritePlacement(const Transform& transform) {
  const Vector3D& scale = transform.m_world_scale;
  Placement placement = UprightPlacement(transform.m_world_pos, scale.x, scale.y);
  placement.rotate_radians = transform.m_world_rotate * kRadiansPerDegree;
  return placement;
}

Program SpriteProgram(const Render& render) {
  constexpr std::string_view kUnlit = "default";
  return render.m_shader == kUnlit ? Program::kDefault : Program::kLight;
}

Transform& RequireTransform(GameObj* object, const char* component) {
  ZOV_ASSERT(object->HasComponent<Transform>(),
             "Object \"" + object->name + "\" has a " + component + " and no Transform");
  return *object->GetComponent<Transform>();
}

}  // namespace ZOVEngine
