#include "game/units/aicomp.h"

#include <algorithm>

#include "game/movers/leg.h"
#include "game/units/enemy.h"
#include "objects/componentmanager.h"
#include "physics/components/rigidbody.h"
#include "physics/components/transform.h"

namespace ZOVEngine {
namespace {

constexpr float kForcePerSpeed = 100.0f;
constexpr float kPushTime = 1.0f;  ///< (unit: seconds)

}  // namespace

void AIComp::MoveAlongWaypoints() {
  Enemy& enemy = *m_owner->GetComponent<Enemy>();
  if (enemy.m_waypoints_off || enemy.m_waypoints.empty()) return;
  if (!m_owner->HasComponent<Transform>() || !m_owner->HasComponent<RigidBody>()) return;
  const Leg leg = {enemy.m_waypoints.at(enemy.m_waypoint_index), enemy.m_snap_range,
                   enemy.m_move_limit, enemy.m_move_speed * kForcePerSpeed, kPushTime};
  const LegStep step = FollowLeg(m_owner, leg, m_dt, &enemy.m_move_timer);
  if (step == LegStep::kOutOfTime) Halt(m_owner);
  if (step == LegStep::kArrived) ++enemy.m_waypoint_index;
  // Deliberate: only a limit of 0 or less ends the move at an arrival, which has set the timer to
  // 0.
  enemy.m_moved = step == LegStep::kOutOfTime ||
                  (step == LegStep::kArrived && enemy.m_move_timer >= enemy.m_move_limit);
  if (enemy.m_waypoint_index < enemy.m_waypoints.size()) return;
  std::reverse(enemy.m_waypoints.begin(), enemy.m_waypoints.end());
  enemy.m_waypoint_index = 0;
}

}  // namespace ZOVEngine
