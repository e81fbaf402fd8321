#include "game/shots/projectilevacuum.h"

#include "game/camera.h"
#include "game/shots/projectile.h"
#include "jsonunserializer.h"
#include "objects/reflection.h"
#include "render/components/particle.h"

RTTR_REGISTRATION {
  using ZOVEngine::ProjectileVacuum;
  ZOVEngine::ComponentRegistration<ProjectileVacuum>("ProjectileVacuum")
      .Field("m_max_range", &ProjectileVacuum::m_max_range, "float", "Max Range")
      .Field("m_speed", &ProjectileVacuum::m_speed, "float", "Speed")
      .Field("m_damage", &ProjectileVacuum::m_damage, "int", "Damage")
      .Field("m_aoe", &ProjectileVacuum::m_aoe, "float", "")
      .Field("m_suction_force", &ProjectileVacuum::m_suction_force, "float", "Suction Force");
}

namespace ZOVEngine {

void ProjectileVacuum::Unserialize(const Value& value) {
  ReadWoundingShot(value, this);
  ReadValue(value, "m_aoe", &m_aoe);
  ReadValue(value, "m_suction_force", &m_suction_force);
}

void ProjectileVacuum::Serialize(Writer& writer) {
  WriteWoundingShot(writer, *this);
  WriteValue(writer, "m_aoe", m_aoe);
  WriteValue(writer, "m_suction_force", m_suction_force);
}

void ProjectileVacuum::Init() {
  m_bodies = FetchTable<RigidBody>();
  BindShot(this);
}

void ProjectileVacuum::Fire(const Vector3D& position, const Vector3D& direction) {
  FireShot(this, position, direction);
}

void ProjectileVacuum::Update(float dt) {
  if (!m_init) Init();
  if (!m_active) return;
  Spin(m_owner);
  TurnTrail(m_owner, FlightAngle(m_owner));
  FlyOn(this, dt);
}

void ProjectileVacuum::OnCollisionEnter(ContactInfo* contact) {
  const ContactSides sides(*contact);
  if (IgnoreIfPassable(sides, contact)) return;
  // In a pause contacts reach a shot that was never stepped.
  if (m_bodies == nullptr) m_bodies = FetchTable<RigidBody>();
  EmitFeedback(m_owner);
  for (RigidBody* body : m_bodies->Components()) Pull(body);
  EndWithBang(m_owner);
}

void ProjectileVacuum::Pull(RigidBody* body) const {
  GameObj* object = body->m_owner;
  if (object->HasComponent<Particle>() || object->HasComponent<Camera>()) return;
  if (DistanceBetween(m_owner, object) <= m_aoe) ApplyRadialForce(m_owner, body, -m_suction_force);
}

}  // namespace ZOVEngine
