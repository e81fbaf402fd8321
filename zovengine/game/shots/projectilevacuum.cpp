#include "game/shots/projectilevacuum.h"

#include "game/camera.h"
#include "game/radialforce.h"
#include "game/shots/shoteffects.h"
#include "objects/fields.h"
#include "render/components/particle.h"

namespace ZOVEngine {

template <class Visitor>
void ProjectileVacuum::Fields(Visitor& visit) {
  AreaShot::Fields(visit);
  visit("m_suction_force", &ProjectileVacuum::m_suction_force);
}
template <class Visitor>
void ProjectileVacuum::Inspected(Visitor& visit) {
  AreaShot::Inspected(visit);
  visit("m_suction_force", &ProjectileVacuum::m_suction_force, "Suction Force",
        FieldBounds{0.0, 1000.0});
}
ZOV_COMPONENT_FIELDS(ProjectileVacuum)

void ProjectileVacuum::Update(float dt) {
  if (!m_init) Init();
  if (!m_active) return;
  Spin();
  TurnTrail(m_owner, FlightAngle());
  FlyOn(dt);
}

void ProjectileVacuum::Hit(const ContactSides&, ContactInfo*) {
  RequireTables();
  EmitFeedback(m_owner);
  for (RigidBody* body : m_bodies->Components()) Pull(body);
  EndWithBang();
}

void ProjectileVacuum::Pull(RigidBody* body) const {
  GameObj* object = body->m_owner;
  if (object->HasComponent<Particle>() || object->HasComponent<Camera>()) return;
  if (Reaches(object)) ApplyRadialForce(m_owner, body, -m_suction_force);
}

}  // namespace ZOVEngine
