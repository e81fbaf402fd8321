#include "game/hazards/environmentblackhole.h"

#include "game/camera.h"
#include "game/contactsides.h"
#include "game/objectquery.h"
#include "game/radialforce.h"
#include "game/units/unit.h"
#include "objects/fields.h"
#include "physics/components/transform.h"
#include "render/components/animation.h"
#include "render/components/particle.h"
#include "render/components/particlesystemc.h"
#include "render/components/render.h"

namespace ZOVEngine {
namespace {

constexpr float kHoleTurnPerStep = 0.5f;  ///< (unit: degrees)

/// Objects that the hole does not pull: particles, cameras, units and barriers.
bool ResistsPull(GameObj* object) {
  if (object->HasComponent<Particle>() || object->HasComponent<Camera>() || IsUnit(*object)) {
    return true;
  }
  const auto* render = FindComponent<Render>(object);
  return render != nullptr && render->m_tex == "Env_MovableBarrier";
}

}  // namespace

template <class Visitor>
void EnvironmentBlackhole::Fields(Visitor& visit) {
  visit("m_suction_force", &EnvironmentBlackhole::m_suction_force, "Suction Force",
        FieldBounds{0.0, 100.0});
  visit("m_suction_range", &EnvironmentBlackhole::m_suction_range, "Suction Range",
        FieldBounds{0.0, 1000.0});
}
ZOV_COMPONENT_FIELDS(EnvironmentBlackhole)

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
  m_owner->GetComponent<Transform>()->m_local_rotate += kHoleTurnPerStep;
  for (const RigidBody* body : m_bodies->Components()) Pull(body);
}

void EnvironmentBlackhole::Pull(const RigidBody* body) const {
  if (ResistsPull(body->m_owner)) return;
  if (DistanceBetween(m_owner, body->m_owner) > m_suction_range) return;
  ApplyRadialForce(m_owner, body, -m_suction_force);
}

void EnvironmentBlackhole::OnCollisionEnter(ContactInfo* contact) {
  const ContactSides sides(*contact);
  if (!sides.BothActive()) return;
  GameObj* caught = sides.PartnerOf(&typeid(EnvironmentBlackhole), IsMovable);
  if (caught == nullptr) return;
  if (Unit* unit = FindUnit(caught)) {
    unit->m_health = 0;
  } else {
    caught->SetActive(false);
  }
}

}  // namespace ZOVEngine
