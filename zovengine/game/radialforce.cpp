#include "game/radialforce.h"

#include <limits>

#include "core/engine.h"
#include "core/messages.h"
#include "game/objectquery.h"
#include "physics/components/rigidbody.h"
#include "physics/components/transform.h"

namespace ZOVEngine {
namespace {

constexpr float kForcePerStrength = 100.0f;
constexpr float kForceTime = 0.1f;  ///< (unit: seconds)

}  // namespace

float DistanceBetween(GameObj* one, GameObj* other) {
  const auto* here = FindComponent<Transform>(one);
  const auto* there = FindComponent<Transform>(other);
  if (here == nullptr || there == nullptr) return std::numeric_limits<float>::infinity();
  return (here->m_world_pos - there->m_world_pos).Length();
}

void ApplyRadialForce(GameObj* centre, const RigidBody* body, float strength) {
  if (!body->m_active) return;
  GameObj* object = body->m_owner;
  const Vector3D away = object->GetComponent<Transform>()->m_world_pos -
                        centre->GetComponent<Transform>()->m_world_pos;
  const float distance = away.Length();
  if (distance == 0.0f) return;
  AddForceToObject force(object->id, away, 1.0f / distance * strength * kForcePerStrength,
                         kForceTime);
  g_engine->Broadcast(&force);
}

}  // namespace ZOVEngine
