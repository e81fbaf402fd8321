#include "editor/canvas/energyreach.h"

#include <algorithm>
#include <memory>

#include "core/engine.h"
#include "game/turns/turninput.h"
#include "game/units/player.h"
#include "physics/components/rigidbody.h"
#include "physics/components/transform.h"
#include "physics/integration.h"

namespace ZOVEngine {
namespace {

constexpr int kMostPushes = 3600;     ///< a minute of a held key
constexpr int kRollSteps = 600;       ///< ten seconds
constexpr float kStandstill = 0.01f;  ///< (unit: world units per second)

void Push(RigidBody* body, float magnitude) {
  auto force = std::make_shared<DirectionalForce>();
  force->lifetime = kDrivePushTime;
  force->direction = Vector3D(1.0f, 0.0f, 0.0f);
  force->magnitude = magnitude;
  body->m_forces.push_back(std::move(force));
}

}  // namespace

float EnergyReach(const Player& player, const RigidBody& body) {
  RigidBody stand_in(nullptr);
  stand_in.m_inv_mass = body.m_inv_mass;
  stand_in.m_drag = body.m_drag;
  Transform place(nullptr);
  place.m_local_pos = Vector3D();
  float energy = player.m_movement_limit;
  for (int i = 0; i < kMostPushes && energy > 0.0f; ++i) {
    Push(&stand_in, player.m_movement_mag);
    energy -= kEnergyPerPush;
    IntegrateBody(&stand_in, &place, kStep);
  }
  for (int i = 0; i < kRollSteps; ++i) {
    IntegrateBody(&stand_in, &place, kStep);
    if (stand_in.m_forces.empty() && stand_in.m_vel.x < kStandstill) break;
  }
  return std::max(0.0f, place.m_local_pos.x);
}

}  // namespace ZOVEngine
