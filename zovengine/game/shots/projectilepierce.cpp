#include "game/shots/projectilepierce.h"

#include "game/hazards/environmentdamage.h"
#include "game/hazards/environmentrough.h"
#include "game/shots/projectile.h"
#include "game/turns/gamecontroller.h"
#include "objects/reflection.h"

RTTR_REGISTRATION {
  using ZOVEngine::ProjectilePierce;
  ZOVEngine::ComponentRegistration<ProjectilePierce>("ProjectilePierce")
      .Field("m_max_range", &ProjectilePierce::m_max_range, "float", "Max Range")
      .Field("m_speed", &ProjectilePierce::m_speed, "float", "Speed")
      .Field("m_damage", &ProjectilePierce::m_damage, "int", "Damage");
}

namespace ZOVEngine {
namespace {

bool IsShooterDead(const GameObj* shot) {
  const Unit* shooter = shot->parent != nullptr ? FindUnit(shot->parent) : nullptr;
  return shooter != nullptr && shooter->m_health <= 0;
}

/// Asking has the controller show the level's end, deliberately.
bool AreAllPlayersDead(GameObj* shot) {
  GameController* controller = FindController(shot);
  return controller != nullptr && controller->AllPlayersDead();
}

}  // namespace

void ProjectilePierce::Unserialize(const Value& value) {
  ReadWoundingShot(value, this);
}

void ProjectilePierce::Serialize(Writer& writer) {
  WriteWoundingShot(writer, *this);
}

void ProjectilePierce::Init() {
  BindLitShot(this);
}

void ProjectilePierce::Fire(const Vector3D& position, const Vector3D& direction) {
  FireShot(this, position, direction);
}

void ProjectilePierce::Update(float dt) {
  if (!m_init) Init();
  if (IsShooterDead(m_owner)) {
    EndShot(this);
    return;
  }
  FadeLight(m_owner, m_base_light);
  if (!m_active) return;
  TurnTo(m_owner, FlightAngle(m_owner));
  FlyUntilLevelEnd(this, dt);
}

void ProjectilePierce::OnCollisionEnter(ContactInfo* contact) {
  const ContactSides sides(*contact);
  if (IgnoreIfPassable(sides, contact)) return;
  FlashLight(m_owner, m_base_light);
  if (GameObj* unit = HitUnit<ProjectilePierce>(sides)) {
    WoundAndShake(m_owner, unit, m_damage);
    contact->ignored = true;
    EmitFeedback(m_owner);
    if (!IsHitHeard(m_owner)) PlayHitSound(m_owner);
    if (AreAllPlayersDead(m_owner)) m_owner->SetActive(false);
    return;
  }
  m_owner->SetActive(false);
  if (!IsHitHeard(m_owner)) PlaySound(m_owner, "bullet_bounce.ogg");
  ShowBurst(m_owner);
}

/// Stay comes before Enter and before the impulse: the shot is not slowed where it enters a unit.
void ProjectilePierce::OnCollisionStay(ContactInfo* contact) {
  const ContactSides sides(*contact);
  if (sides.EitherHas<EnvironmentRough>() || sides.EitherHas<EnvironmentDamage>() ||
      !sides.BothActive() || HitUnit<ProjectilePierce>(sides) != nullptr) {
    contact->ignored = true;
  }
}

}  // namespace ZOVEngine
