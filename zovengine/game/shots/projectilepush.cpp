#include "game/shots/projectilepush.h"

#include "game/shots/projectile.h"
#include "objects/reflection.h"

RTTR_REGISTRATION {
  using ZOVEngine::ProjectilePush;
  ZOVEngine::ComponentRegistration<ProjectilePush>("ProjectilePush")
      .Field("m_max_range", &ProjectilePush::m_max_range, "float", "Max Range")
      .Field("m_speed", &ProjectilePush::m_speed, "float", "Speed")
      .Field("m_damage", &ProjectilePush::m_damage, "int", "Damage");
}

namespace ZOVEngine {

void ProjectilePush::Unserialize(const Value& value) {
  ReadWoundingShot(value, this);
}

void ProjectilePush::Serialize(Writer& writer) {
  WriteWoundingShot(writer, *this);
}

void ProjectilePush::Init() {
  BindShot(this);
}

void ProjectilePush::Fire(const Vector3D& position, const Vector3D& direction) {
  FireShot(this, position, direction);
}

void ProjectilePush::Update(float dt) {
  if (!m_init) Init();
  if (!m_active) return;
  const float angle = FlightAngle(m_owner);
  TurnTo(m_owner, angle);
  TurnTrail(m_owner, angle);
  FlyOn(this, dt);
}

void ProjectilePush::OnCollisionEnter(ContactInfo* contact) {
  const ContactSides sides(*contact);
  if (IgnoreIfPassable(sides, contact)) return;
  ShakeCamera(m_owner, kBigShake);
  EmitFeedback(m_owner);
  if (GameObj* unit = HitUnit<ProjectilePush>(sides)) Wound(unit, m_damage);
  EndWithBang(m_owner);
}

}  // namespace ZOVEngine
