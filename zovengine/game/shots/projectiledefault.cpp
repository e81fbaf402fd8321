#include "game/shots/projectiledefault.h"

#include "game/shots/projectile.h"
#include "game/shots/projectileexplosion.h"
#include "objects/reflection.h"

RTTR_REGISTRATION {
  using ZOVEngine::ProjectileDefault;
  ZOVEngine::ComponentRegistration<ProjectileDefault>("ProjectileDefault")
      .Field("m_max_range", &ProjectileDefault::m_max_range, "float", "Max Range")
      .Field("m_speed", &ProjectileDefault::m_speed, "float", "Speed")
      .Field("m_damage", &ProjectileDefault::m_damage, "int", "Damage");
}

namespace ZOVEngine {
namespace {

constexpr float kBossMuzzle = 100.0f;  ///< so far the shot spares its boss (unit: world units)

}  // namespace

void ProjectileDefault::Unserialize(const Value& value) {
  ReadWoundingShot(value, this);
}

void ProjectileDefault::Serialize(Writer& writer) {
  WriteWoundingShot(writer, *this);
}

void ProjectileDefault::Init() {
  BindLitShot(this);
}

void ProjectileDefault::Fire(const Vector3D& position, const Vector3D& direction) {
  FireShot(this, position, direction);
}

void ProjectileDefault::Update(float dt) {
  if (!m_init) Init();
  FadeLight(m_owner, m_base_light);
  if (!m_active) return;
  TurnTo(m_owner, FlightAngle(m_owner));
  FlyUntilLevelEnd(this, dt);
}

void ProjectileDefault::OnCollisionEnter(ContactInfo* contact) {
  const ContactSides sides(*contact);
  if (IgnoreIfPassable(sides, contact)) return;
  if (sides.EitherHas<ProjectileExplosion>() || sides.BothHave<ProjectileDefault>() ||
      (m_curr_range < kBossMuzzle && IsBossAtOwnMuzzle(m_owner, sides))) {
    contact->ignored = true;
    return;
  }
  FlashLight(m_owner, m_base_light);
  EmitFeedback(m_owner);
  if (GameObj* unit = HitUnit<ProjectileDefault>(sides)) HitAndEnd(m_owner, unit, m_damage);
  PlayBounceSound(m_owner, "bullet_bounce.ogg");
  ShowBurst(m_owner);
}

}  // namespace ZOVEngine
