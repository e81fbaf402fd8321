#include "game/shots/projectiledefault.h"

#include "game/contactsides.h"
#include "game/shots/projectileexplosion.h"
#include "game/shots/shoteffects.h"
#include "objects/fields.h"

namespace ZOVEngine {
namespace {

constexpr float kBossMuzzle = 100.0f;  ///< so far the shot spares its boss (unit: world units)

}  // namespace

ZOV_COMPONENT_FORMS(ProjectileDefault)
ZOV_COMPONENT_INSPECTED(ProjectileDefault)

void ProjectileDefault::Update(float dt) {
  if (!m_init) Init();
  FadeLight(m_owner, m_base_light);
  if (!m_active) return;
  PointAhead();
  FlyUntilLevelEnd(dt);
}

bool ProjectileDefault::PassesThrough(const ContactSides& sides) const {
  return Shot::PassesThrough(sides) || sides.EitherHas<ProjectileExplosion>() ||
         sides.BothHave<ProjectileDefault>() ||
         (m_curr_range < kBossMuzzle && TouchesOwnBoss(sides));
}

void ProjectileDefault::OnCollisionStay(ContactInfo* contact) {
  IgnoreIfPassable(ContactSides(*contact), contact);
}

void ProjectileDefault::Hit(const ContactSides& sides, ContactInfo*) {
  FlashLight(m_owner, m_base_light);
  EmitFeedback(m_owner);
  if (Unit* unit = HitUnit(sides)) EndAtUnit(unit, m_damage);
  PlayBounceSound(m_owner, "bullet_bounce.ogg");
  ShowBurst(m_owner);
}

}  // namespace ZOVEngine
