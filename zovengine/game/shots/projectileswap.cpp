#include "game/shots/projectileswap.h"

#include "game/contactsides.h"
#include "game/objectquery.h"
#include "game/shots/shoteffects.h"
#include "game/turns/gamecontroller.h"
#include "game/units/unit.h"
#include "objects/fields.h"
#include "physics/components/transform.h"

namespace ZOVEngine {
namespace {

/// Lets an object appear anew. The dead go on with their death.
void Respawn(GameObj* object) {
  const Unit* unit = FindUnit(object);
  if (unit == nullptr || unit->m_alive) SetState(object, "spawn");
  PlaySound(object, "unit_spawn.ogg");
}

/// Local positions are traded, whatever the parents are: deliberate, units are children of the
/// level's root, which sits at the origin.
void TradePlaces(GameObj* target, GameObj* selected) {
  Respawn(target);
  Respawn(selected);
  auto* theirs = target->GetComponent<Transform>();
  auto* ours = selected->GetComponent<Transform>();
  const Vector3D former = ours->m_local_pos;
  ours->SetLocalPosition(theirs->m_local_pos);
  theirs->SetLocalPosition(former);
}

}  // namespace

ZOV_COMPONENT_FORMS(ProjectileSwap)
ZOV_COMPONENT_INSPECTED(ProjectileSwap)

void ProjectileSwap::Update(float dt) {
  if (!m_init) Init();
  FadeLight(m_owner, m_base_light);
  if (!m_active) return;
  Spin();
  TurnTrail(m_owner, FlightAngle());
  FlyOn(dt);
}

void ProjectileSwap::Hit(const ContactSides& sides, ContactInfo* contact) {
  FlashLight(m_owner, m_base_light);
  PlaySound(m_owner, "bullet_bounce.ogg");
  EmitFeedback(m_owner);
  ShowBurst(m_owner);
  GameObj* target = sides.PartnerOf(&typeid(*this), [this](const GameObj& object) {
    return &object != m_owner && IsMovable(object);
  });
  if (target == nullptr) return;
  contact->ignored = true;
  const GameController* controller = FindController(m_owner);
  if (controller != nullptr && controller->m_selected != nullptr) {
    TradePlaces(target, controller->m_selected);
  }
  m_owner->SetActive(false);
}

}  // namespace ZOVEngine
