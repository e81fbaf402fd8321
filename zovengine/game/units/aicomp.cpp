#include "game/units/aicomp.h"

#include <algorithm>

#include "core/engine.h"
#include "core/messages.h"
#include "game/objectquery.h"
#include "game/units/enemy.h"
#include "physics/components/rigidbody.h"
#include "physics/components/transform.h"

namespace ZOVEngine {
namespace {

constexpr float kForcePerSpeed = 100.0f;
constexpr float kPushTime = 1.0f;  ///< (unit: seconds)

void Halt(RigidBody* body) {
  body->m_vel = Vector3D();
  body->m_prev_vel = Vector3D();
}

}  // namespace

void AIComp::MoveAlongWaypoints() {
  Enemy& enemy = *m_owner->GetComponent<Enemy>();
  auto* transform = FindComponent<Transform>(m_owner);
  auto* body = FindComponent<RigidBody>(m_owner);
  if (enemy.m_waypoints_off || enemy.m_waypoints.empty() || !transform || !body) return;
  const Vector3D goal = enemy.m_waypoints.at(enemy.m_waypoint_index);
  const Vector3D way = goal - transform->m_world_pos;
  if (enemy.m_snap_range > way.Length()) {
    // The next derivation overwrites this: the unit stays where it is, near enough.
    transform->m_world_pos = goal;
    Halt(body);
    enemy.m_move_timer = 0.0f;
    ++enemy.m_waypoint_index;
    enemy.m_moved = enemy.m_move_timer >= enemy.m_move_limit;
  } else if (enemy.m_move_timer >= enemy.m_move_limit) {
    Halt(body);
    enemy.m_move_timer = 0.0f;
    enemy.m_moved = true;
  } else {
    AddForceToObject push(m_owner->id, way.Normalized(), enemy.m_move_speed * kForcePerSpeed,
                          kPushTime);
    g_engine->Broadcast(&push);
    enemy.m_move_timer += m_dt;
    enemy.m_moved = false;
  }
  if (enemy.m_waypoint_index < enemy.m_waypoints.size()) return;
  std::reverse(enemy.m_waypoints.begin(), enemy.m_waypoints.end());
  enemy.m_waypoint_index = 0;
}

}  // namespace ZOVEngine
