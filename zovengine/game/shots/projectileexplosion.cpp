#include "game/shots/projectileexplosion.h"

#include "game/camera.h"
#include "game/contactsides.h"
#include "game/objectquery.h"
#include "game/radialforce.h"
#include "game/shots/projectiledefault.h"
#include "game/shots/shoteffects.h"
#include "game/units/unit.h"
#include "objects/fields.h"
#include "physics/components/transform.h"
#include "render/components/particle.h"
#include "render/components/particlesystemc.h"

namespace ZOVEngine {
namespace {

constexpr float kTrailOffset = -2.1f;  ///< of the trail, along the flight (unit: world units)

/// Objects that a blast leaves alone: particles, cameras, and the shots that pass through an
/// exploding one.
bool IsSpared(const GameObj& object) {
  return object.HasComponent<Particle>() || object.HasComponent<Camera>() ||
         object.HasComponent<ProjectileDefault>() || object.HasComponent<ProjectileExplosion>();
}

}  // namespace

template <class Visitor>
void ProjectileExplosion::Fields(Visitor& visit) {
  AreaShot::Fields(visit);
  visit("m_knockback", &ProjectileExplosion::m_knockback);
}
template <class Visitor>
void ProjectileExplosion::Inspected(Visitor& visit) {
  AreaShot::Inspected(visit);
  visit("m_knockback", &ProjectileExplosion::m_knockback, "Knockback", FieldBounds{0.0, 1.0e5});
}
ZOV_COMPONENT_FIELDS(ProjectileExplosion)

void ProjectileExplosion::FetchTables() {
  AreaShot::FetchTables();
  m_destructibles = FetchTable<EnvironmentDestructible>();
}

void ProjectileExplosion::Update(float dt) {
  if (!m_init) Init();
  if (!m_active) return;
  const float angle = PointAhead();
  PlaceTrail(m_owner->GetComponent<RigidBody>()->m_vel.Normalized() * kTrailOffset);
  ForEachChildWith<ParticleSystemC>(m_owner, kTrail, [angle](const ParticleSystemC* trail) {
    TurnTo(trail->m_owner, angle - 90.0f);
  });
  if (!FlyOn(dt)) PlaceTrail(Vector3D());
}

void ProjectileExplosion::PlaceTrail(const Vector3D& place) {
  ForEachChildWith<ParticleSystemC>(m_owner, kTrail, [&place](const ParticleSystemC* trail) {
    trail->m_owner->GetComponent<Transform>()->m_local_pos = place;
  });
}

bool ProjectileExplosion::PassesThrough(const ContactSides& sides) const {
  return Shot::PassesThrough(sides) || sides.EitherHas<ProjectileDefault>() ||
         sides.BothHave<ProjectileExplosion>() || TouchesOwnBoss(sides);
}

void ProjectileExplosion::OnCollisionStay(ContactInfo* contact) {
  IgnoreIfPassable(ContactSides(*contact), contact);
}

void ProjectileExplosion::Hit(const ContactSides&, ContactInfo*) {
  RequireTables();
  ShakeCamera(m_owner, kBigShake);
  EmitFeedback(m_owner);
  for (EnvironmentDestructible* thing : m_destructibles->Components()) Crack(thing);
  for (RigidBody* body : m_bodies->Components()) Blast(body);
  EndWithBang();
  PlaceTrail(Vector3D());
}

void ProjectileExplosion::Crack(EnvironmentDestructible* destructible) const {
  if (Reaches(destructible->m_owner)) destructible->LoseHealth(m_damage);
}

void ProjectileExplosion::Blast(RigidBody* body) const {
  GameObj* object = body->m_owner;
  if (IsSpared(*object) || !Reaches(object)) return;
  ApplyRadialForce(m_owner, body, m_knockback);
  if (Unit* unit = FindUnit(object)) unit->TakeHit(m_damage);
}

}  // namespace ZOVEngine
