#include "game/movers/waypoint.h"

#include <algorithm>

#include "core/engine.h"
#include "core/messages.h"
#include "game/objectquery.h"
#include "jsonunserializer.h"
#include "physics/components/rigidbody.h"
#include "physics/components/transform.h"

namespace ZOVEngine {
namespace {

constexpr float kPushTime = 0.1f;  ///< (unit: seconds)

}  // namespace

void Waypoint::Unserialize(const Value& value) {
  ReadValue(value, "m_draw", &m_draw);
  ReadValue(value, "m_reached", &m_reached);
  ReadValue(value, "m_lastIndex", &m_lastIndex);
  ReadValue(value, "m_snappingDist", &m_snappingDist);
  ReadValue(value, "m_speed", &m_speed);
  ReadVector3DArray(value, "m_path", &m_path);
  ReadValue(value, "m_limit", &m_limit);
  ReadValue(value, "m_curr_movement", &m_curr_movement);
}

void Waypoint::Serialize(Writer& writer) {
  WriteValue(writer, "m_draw", m_draw);
  WriteValue(writer, "m_reached", m_reached);
  WriteValue(writer, "m_lastIndex", m_lastIndex);
  WriteValue(writer, "m_snappingDist", m_snappingDist);
  WriteValue(writer, "m_speed", m_speed);
  WriteVector3DArray(writer, "m_path", m_path);
  WriteValue(writer, "m_limit", m_limit);
  WriteValue(writer, "m_curr_movement", m_curr_movement);
}

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
  auto* transform = m_owner->GetComponent<Transform>();
  auto* body = m_owner->GetComponent<RigidBody>();
  // A file may hold an index past the path: the way is at its end then.
  m_lastIndex = std::min(m_lastIndex, static_cast<std::uint32_t>(m_path.size() - 1));
  if (m_lastIndex < m_path.size() - 1) {
    const Vector3D goal = m_path[m_lastIndex + 1];
    const Vector3D way = goal - transform->m_world_pos;
    if (m_snappingDist > way.Length()) {
      // The next derivation overwrites this: the object stays where it is, near enough.
      transform->m_world_pos = goal;
      body->m_vel = body->m_prev_vel = Vector3D();
      m_curr_movement = 0.0f;
      ++m_lastIndex;
      m_reached = true;
    } else if (m_curr_movement >= m_limit) {
      m_curr_movement = 0.0f;
      m_reached = true;
    } else {
      AddForceToObject push(m_owner->id, way.Normalized(), m_speed, kPushTime);
      g_engine->Broadcast(&push);
      m_curr_movement += dt;
    }
  }
  if (m_lastIndex == m_path.size() - 1) TurnRound();
}

void Waypoint::TurnRound() {
  m_owner->GetComponent<RigidBody>()->m_vel = Vector3D();
  std::reverse(m_path.begin(), m_path.end());
  m_lastIndex = 0;
}

}  // namespace ZOVEngine
