#include "game/shots/projectilebounce.h"

#include "game/shots/projectile.h"
#include "jsonunserializer.h"
#include "objects/reflection.h"

RTTR_REGISTRATION {
  using ZOVEngine::ProjectileBounce;
  ZOVEngine::ComponentRegistration<ProjectileBounce>("ProjectileBounce")
      .Field("m_max_range", &ProjectileBounce::m_max_range, "float", "Max Range")
      .Field("m_speed", &ProjectileBounce::m_speed, "float", "Speed")
      .Field("m_min_damage", &ProjectileBounce::m_min_damage, "int", "Min Damage")
      .Field("m_max_damage", &ProjectileBounce::m_max_damage, "int", "Max Damage");
}

namespace ZOVEngine {
namespace {

constexpr float kLightPerDamage = 200.0f;

/// The more dangerous the shot, the lower it sounds.
const char* BounceSoundOf(int damage) {
  if (damage < 2) return "bullet_bounce1.ogg";
  return damage == 2 ? "bullet_bounce2.ogg" : "bullet_bounce3.ogg";
}

}  // namespace

void ProjectileBounce::Unserialize(const Value& value) {
  ReadFlight(value, this);
  ReadValue(value, "m_min_damage", &m_min_damage);
  ReadValue(value, "m_max_damage", &m_max_damage);
}

void ProjectileBounce::Serialize(Writer& writer) {
  WriteFlight(writer, *this);
  WriteValue(writer, "m_min_damage", m_min_damage);
  WriteValue(writer, "m_max_damage", m_max_damage);
}

void ProjectileBounce::Init() {
  BindLitShot(this);
}

void ProjectileBounce::Fire(const Vector3D& position, const Vector3D& direction) {
  m_curr_damage = m_min_damage;
  FireShot(this, position, direction);
}

void ProjectileBounce::Update(float dt) {
  if (!m_init) Init();
  SetLight(m_owner, static_cast<float>(m_curr_damage) * kLightPerDamage + m_base_light);
  if (!m_active) return;
  const float angle = FlightAngle(m_owner);
  TurnTo(m_owner, angle);
  TurnTrail(m_owner, angle);
  FlyOn(this, dt);
}

void ProjectileBounce::OnCollisionEnter(ContactInfo* contact) {
  const ContactSides sides(*contact);
  if (IgnoreIfPassable(sides, contact)) return;
  EmitFeedback(m_owner);
  if (GameObj* unit = HitUnit<ProjectileBounce>(sides)) {
    HitAndEnd(m_owner, unit, m_curr_damage);
    SetLight(m_owner, m_base_light);
    return;
  }
  if (m_curr_damage < m_max_damage) ++m_curr_damage;
  PlayBounceSound(m_owner, BounceSoundOf(m_curr_damage));
  ShowBurst(m_owner);
}

}  // namespace ZOVEngine
