#include "game/shots/projectilepush.h"

#include "game/shots/shoteffects.h"
#include "game/units/unit.h"
#include "objects/fields.h"

namespace ZOVEngine {

ZOV_COMPONENT_FORMS(ProjectilePush)
ZOV_COMPONENT_INSPECTED(ProjectilePush)

void ProjectilePush::Update(float dt) {
  if (!m_init) Init();
  if (!m_active) return;
  TurnTrail(m_owner, PointAhead());
  FlyOn(dt);
}

void ProjectilePush::Hit(const ContactSides& sides, ContactInfo*) {
  ShakeCamera(m_owner, kBigShake);
  EmitFeedback(m_owner);
  if (Unit* unit = HitUnit(sides)) unit->TakeHit(m_damage);
  EndWithBang();
}

}  // namespace ZOVEngine
