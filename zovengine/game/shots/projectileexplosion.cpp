#include "game/shots/projectileexplosion.h"

#include "game/camera.h"
#include "game/shots/projectile.h"
#include "game/shots/projectiledefault.h"
#include "jsonunserializer.h"
#include "objects/reflection.h"
#include "physics/components/transform.h"
#include "render/components/particle.h"
#include "render/components/particlesystemc.h"

RTTR_REGISTRATION {
  using ZOVEngine::ProjectileExplosion;
  ZOVEngine::ComponentRegistration<ProjectileExplosion>("ProjectileExplosion")
      .Field("m_max_range", &ProjectileExplosion::m_max_range, "float", "Max Range")
      .Field("m_speed", &ProjectileExplosion::m_speed, "float", "Speed")
      .Field("m_damage", &ProjectileExplosion::m_damage, "int", "Damage")
      .Field("m_aoe", &ProjectileExplosion::m_aoe, "float", "")
      .Field("m_knockback", &ProjectileExplosion::m_knockback, "float", "Knockback");
}

namespace ZOVEngine {
namespace {

constexpr float kTrailOffset = -2.1f;  ///< of the trail, along the flight (unit: world units)

/// What a blast leaves alone: pictures, and the shots that pass through an exploding one.
bool IsSpared(const GameObj& object) {
  return object.HasComponent<Particle>() || object.HasComponent<Camera>() ||
         object.HasComponent<ProjectileDefault>() || object.HasComponent<ProjectileExplosion>();
}

}  // namespace

void ProjectileExplosion::Unserialize(const Value& value) {
  ReadWoundingShot(value, this);
  ReadValue(value, "m_aoe", &m_aoe);
  ReadValue(value, "m_knockback", &m_knockback);
}

void ProjectileExplosion::Serialize(Writer& writer) {
  WriteWoundingShot(writer, *this);
  WriteValue(writer, "m_aoe", m_aoe);
  WriteValue(writer, "m_knockback", m_knockback);
}

void ProjectileExplosion::Init() {
  FetchTables();
  BindShot(this);
}

void ProjectileExplosion::FetchTables() {
  m_bodies = FetchTable<RigidBody>();
  m_destructibles = FetchTable<EnvironmentDestructible>();
}

void ProjectileExplosion::Fire(const Vector3D& position, const Vector3D& direction) {
  FireShot(this, position, direction);
}

void ProjectileExplosion::Update(float dt) {
  if (!m_init) Init();
  if (!m_active) return;
  const float angle = FlightAngle(m_owner);
  TurnTo(m_owner, angle);
  PlaceTrail(m_owner->GetComponent<RigidBody>()->m_vel.Normalized() * kTrailOffset);
  ForEachChildWith<ParticleSystemC>(m_owner, kTrail, [angle](const ParticleSystemC* trail) {
    TurnTo(trail->m_owner, angle - 90.0f);
  });
  if (!FlyOn(this, dt)) PlaceTrail(Vector3D());
}

void ProjectileExplosion::PlaceTrail(const Vector3D& place) {
  ForEachChildWith<ParticleSystemC>(m_owner, kTrail, [&place](const ParticleSystemC* trail) {
    trail->m_owner->GetComponent<Transform>()->m_local_pos = place;
  });
}

void ProjectileExplosion::OnCollisionEnter(ContactInfo* contact) {
  const ContactSides sides(*contact);
  if (IgnoreIfPassable(sides, contact)) return;
  if (sides.EitherHas<ProjectileDefault>() || sides.BothHave<ProjectileExplosion>() ||
      IsBossAtOwnMuzzle(m_owner, sides)) {
    contact->ignored = true;
    return;
  }
  // In a pause contacts reach a shot that was never stepped.
  if (m_bodies == nullptr) FetchTables();
  ShakeCamera(m_owner, kBigShake);
  EmitFeedback(m_owner);
  for (EnvironmentDestructible* thing : m_destructibles->Components()) Crack(thing);
  for (RigidBody* body : m_bodies->Components()) Blast(body);
  EndWithBang(m_owner);
  PlaceTrail(Vector3D());
}

void ProjectileExplosion::Crack(EnvironmentDestructible* destructible) const {
  if (DistanceBetween(m_owner, destructible->m_owner) > m_aoe) return;
  destructible->m_health = AfterDamage(destructible->m_health, m_damage);
}

void ProjectileExplosion::Blast(RigidBody* body) const {
  GameObj* object = body->m_owner;
  if (IsSpared(*object) || DistanceBetween(m_owner, object) > m_aoe) return;
  ApplyRadialForce(m_owner, body, m_knockback);
  if (IsUnit(*object)) Wound(object, m_damage);
}

}  // namespace ZOVEngine
