#include "game/camera.h"

#include <cstdint>
#include <ctime>
#include <iostream>

#include "core/base/random.h"
#include "game/objectquery.h"
#include "game/turns/gamecontroller.h"
#include "objects/fields.h"
#include "physics/components/transform.h"

namespace ZOVEngine {
namespace {

constexpr int kShakeSteps = 5;  ///< the offset is 0 to 4 times the magnitude

/// How far the view may go, and how far the map reaches from its middle (unit: world units).
struct Limits {
  float half_width;
  float half_height;
  float right;
  float top;
  float left;
  float bottom;
};

/// A map of odd height leaves half a tile more above than below, deliberately.
Limits ComputeLimits(const TileMap& map, int xlimit, int ylimit) {
  const std::int64_t size = map.m_tileSize;
  const std::int64_t columns = map.m_width / 2;
  const std::int64_t rows = map.m_height / 2;
  const auto right = static_cast<float>((columns + xlimit) * size);
  const float top = (static_cast<float>(map.m_height) * 0.5f + static_cast<float>(ylimit)) *
                    static_cast<float>(size);
  return {static_cast<float>(columns * size),
          static_cast<float>(rows * size),
          right,
          top,
          -right,
          static_cast<float>(-(rows + ylimit) * size)};
}

}  // namespace

Camera::Camera(GameObj* owner) : LogicComponent(owner) {
  m_active = false;
}

template <class Visitor>
void Camera::Fields(Visitor& visit) {
  visit("m_offset", &Camera::m_offset);
  visit("m_shakemag", &Camera::m_shakemag);
  visit("m_xlimit", &Camera::m_xlimit);
  visit("m_ylimit", &Camera::m_ylimit);
}
ZOV_COMPONENT_FILE(Camera)

void Camera::Init() {
  m_init = true;
  std::cout << "Camera Init" << '\n';
  SeedRand(static_cast<std::uint32_t>(std::time(nullptr)));
}

void Camera::Destroy() {
  std::cout << "Camera Destroy" << '\n';
}

void Camera::Update(float dt) {
  if (!m_init) Init();
  Limit();
  if (m_shaking) Shake(dt);
}

/// The edge of the map's half is compared, and the view is set to the limit itself, deliberately.
/// It holds until the next derivation, which rebuilds the world position.
void Camera::Limit() {
  auto* transform = FindComponent<Transform>(m_owner);
  auto* controller = m_owner->parent ? FindComponent<GameController>(m_owner->parent) : nullptr;
  if (transform == nullptr || controller == nullptr) return;
  const Limits limits = ComputeLimits(controller->m_tile_map, m_xlimit, m_ylimit);
  const Vector3D at = transform->m_world_pos;
  m_at_limit[0] = limits.half_width + at.x > limits.right;
  m_at_limit[1] = limits.half_height + at.y > limits.top;
  m_at_limit[2] = limits.left > at.x - limits.half_width;
  m_at_limit[3] = limits.bottom > at.y - limits.half_height;
  if (m_at_limit[0]) transform->m_world_pos.x = transform->m_prev_pos.x = limits.right;
  if (m_at_limit[1]) transform->m_world_pos.y = transform->m_prev_pos.y = limits.top;
  if (m_at_limit[2]) transform->m_world_pos.x = transform->m_prev_pos.x = limits.left;
  if (m_at_limit[3]) transform->m_world_pos.y = transform->m_prev_pos.y = limits.bottom;
}

/// The view shakes to one side only, deliberately.
void Camera::Shake(float dt) {
  m_elapsed += dt;
  if (m_shake_duration >= m_elapsed) {
    for (float& axis : m_offset.v) axis = static_cast<float>(Rand() % kShakeSteps) * m_shakemag;
    return;
  }
  m_shaking = false;
  m_shake_duration = 0.0f;
  m_shakemag = 1.0f;
  m_elapsed = 0.0f;
  m_offset = Vector3D();
}

}  // namespace ZOVEngine
