#include "game/movers/waypoint.h"

#include <algorithm>

#include "core/engine.h"
#include "core/messages.h"
#include "game/movers/leg.h"
#include "objects/componentmanager.h"
#include "objects/fields.h"
#include "physics/components/rigidbody.h"
#include "physics/components/transform.h"

namespace ZOVEngine {
template <class Visitor>
void Waypoint::Fields(Visitor& visit) {
  visit("m_draw", &Waypoint::m_draw);
  visit("m_reached", &Waypoint::m_reached);
  visit("m_lastIndex", &Waypoint::m_lastIndex);
  visit("m_snappingDist", &Waypoint::m_snappingDist);
  visit("m_speed", &Waypoint::m_speed);
  visit("m_path", &Waypoint::m_path);
  visit("m_limit", &Waypoint::m_limit);
  visit("m_curr_movement", &Waypoint::m_curr_movement);
}
ZOV_COMPONENT_FILE(Waypoint)

void Waypoint::Update(float dt) {
  if (!m_init) Init();
  if (m_draw && m_owner->active) Draw();
  if (!m_active || !m_owner->HasComponent<Transform>() || !m_owner->HasComponent<RigidBody>()) {
    return;
  }
  if (m_path.empty()) m_reached = true;
  if (m_path.size() >= 2) Move(dt);
}

void Waypoint::Draw() const {
  for (std::size_t i = 1; i < m_path.size(); ++i) {
    DrawLine line(m_path[i - 1], m_path[i], 1.0f, 255.0f, 255.0f, 255.0f, 1.0f);
    g_engine->Broadcast(&line);
  }
}

void Waypoint::Move(float dt) {
  // A file may hold an index past the path; the object is at the path's end then.
  m_lastIndex = std::min(m_lastIndex, static_cast<std::uint32_t>(m_path.size() - 1));
  if (m_lastIndex < m_path.size() - 1) {
    const Leg leg = {m_path[m_lastIndex + 1], m_snappingDist, m_limit, m_speed, kMoverPushTime};
    const LegStep step = FollowLeg(m_owner, leg, dt, &m_curr_movement);
    if (step == LegStep::kArrived) ++m_lastIndex;
    if (step != LegStep::kPushed) m_reached = true;
  }
  if (m_lastIndex == m_path.size() - 1) TurnRound();
}

void Waypoint::TurnRound() {
  m_owner->GetComponent<RigidBody>()->m_vel = Vector3D();
  std::reverse(m_path.begin(), m_path.end());
  m_lastIndex = 0;
}

}  // namespace ZOVEngine
