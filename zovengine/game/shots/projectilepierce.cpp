#include "game/shots/projectilepierce.h"

#include "game/componentkinds.h"
#include "game/contactsides.h"
#include "game/hazards/statuszone.h"
#include "game/objectquery.h"
#include "game/shots/shoteffects.h"
#include "game/turns/gamecontroller.h"
#include "game/units/unit.h"
#include "objects/fields.h"

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

ZOV_COMPONENT_FORMS(ProjectilePierce)
ZOV_COMPONENT_INSPECTED(ProjectilePierce)

void ProjectilePierce::Update(float dt) {
  if (!m_init) Init();
  if (IsShooterDead(m_owner)) {
    EndShot();
    return;
  }
  FadeLight(m_owner, m_base_light);
  if (!m_active) return;
  PointAhead();
  FlyUntilLevelEnd(dt);
}

void ProjectilePierce::Hit(const ContactSides& sides, ContactInfo* contact) {
  FlashLight(m_owner, m_base_light);
  if (Unit* unit = HitUnit(sides)) {
    GoThrough(unit, contact);
    return;
  }
  m_owner->SetActive(false);
  if (!IsHitHeard(m_owner)) PlaySound(m_owner, "bullet_bounce.ogg");
  ShowBurst(m_owner);
}

void ProjectilePierce::GoThrough(Unit* unit, ContactInfo* contact) {
  unit->TakeHit(m_damage);
  ShakeCamera(m_owner, kSmallShake);
  contact->ignored = true;
  EmitFeedback(m_owner);
  if (!IsHitHeard(m_owner)) PlayHitSound(m_owner);
  if (AreAllPlayersDead(m_owner)) m_owner->SetActive(false);
}

/// Stay comes before Enter and before the impulse: the shot is not slowed where it enters a unit.
void ProjectilePierce::OnCollisionStay(ContactInfo* contact) {
  const ContactSides sides(*contact);
  if (!sides.BothActive() || HasKind<StatusZone>(*sides.a) || HasKind<StatusZone>(*sides.b) ||
      HitUnit(sides) != nullptr) {
    contact->ignored = true;
  }
}

}  // namespace ZOVEngine
