#include "game/hazards/environmentblackhole.h"

#include "core/engine.h"
#include "core/messages.h"
#include "game/camera.h"
#include "game/contactsides.h"
#include "game/shots/projectile.h"
#include "jsonunserializer.h"
#include "objects/reflection.h"
#include "physics/components/colliderholder.h"
#include "physics/components/transform.h"
#include "render/components/animation.h"
#include "render/components/particle.h"
#include "render/components/particlesystemc.h"
#include "render/components/render.h"

RTTR_REGISTRATION {
  using ZOVEngine::EnvironmentBlackhole;
  ZOVEngine::ComponentRegistration<EnvironmentBlackhole>("EnvironmentBlackhole")
      .Field("m_suction_force", &EnvironmentBlackhole::m_suction_force, "float", "Suction Force")
      .Field("m_suction_range", &EnvironmentBlackhole::m_suction_range, "float", "Suction Range");
}

namespace ZOVEngine {
namespace {

constexpr float kTurnPerStep = 0.5f;  ///< (unit: degrees)

/// What is not drawn: pictures, units and barriers.
bool IsLeftAlone(GameObj* object) {
  if (object->HasComponent<Particle>() || object->HasComponent<Camera>() || IsUnit(*object)) {
    return true;
  }
  const auto* render = FindComponent<Render>(object);
  return render != nullptr && render->m_tex == "Env_MovableBarrier";
}

}  // namespace

void EnvironmentBlackhole::Unserialize(const Value& value) {
  ReadValue(value, "m_suction_force", &m_suction_force);
  ReadValue(value, "m_suction_range", &m_suction_range);
}

void EnvironmentBlackhole::Serialize(Writer& writer) {
  WriteValue(writer, "m_suction_force", m_suction_force);
  WriteValue(writer, "m_suction_range", m_suction_range);
}

void EnvironmentBlackhole::Init() {
  m_init = true;
  m_bodies = FetchTable<RigidBody>();
  m_owner->SetActive(true);
  m_active = true;
  if (m_owner->HasComponent<Animation>()) SetState(m_owner, "loop");
  if (auto* dust = FindComponent<ParticleSystemC>(m_owner)) {
    dust->m_emitting = true;
    dust->m_active = true;
  }
}

void EnvironmentBlackhole::Update(float) {
  if (!m_init) Init();
  if (!m_active) return;
  m_owner->GetComponent<Transform>()->m_local_rotate += kTurnPerStep;
  for (const RigidBody* body : m_bodies->Components()) Pull(body);
}

void EnvironmentBlackhole::Pull(const RigidBody* body) const {
  if (IsLeftAlone(body->m_owner)) return;
  if (DistanceBetween(m_owner, body->m_owner) > m_suction_range) return;
  ApplyRadialForce(m_owner, body, -m_suction_force);
}

void EnvironmentBlackhole::OnCollisionEnter(ContactInfo* contact) {
  const ContactSides sides(*contact);
  if (!sides.BothActive()) return;
  GameObj* caught = sides.PartnerOf<EnvironmentBlackhole>(
      [](const GameObj* object) { return IsCarriable(*object); });
  if (caught == nullptr) return;
  if (Unit* unit = FindUnit(caught)) {
    unit->m_health = 0;
  } else {
    caught->SetActive(false);
  }
}

}  // namespace ZOVEngine
