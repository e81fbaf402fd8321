#include "game/hazards/environmentdestructible.h"

#include "core/engine.h"
#include "game/componentkinds.h"
#include "game/contactsides.h"
#include "game/objectquery.h"
#include "game/shots/projectilebounce.h"
#include "game/units/unit.h"
#include "objects/fields.h"
#include "objects/statec.h"
#include "render/components/animation.h"

namespace ZOVEngine {

template <class Visitor>
void EnvironmentDestructible::Fields(Visitor& visit) {
  visit("m_health", &EnvironmentDestructible::m_health, "Health", FieldBounds{0.0, 99.0});
}
ZOV_COMPONENT_FIELDS(EnvironmentDestructible)

void EnvironmentDestructible::Init() {
  m_init = true;
  m_owner->SetActive(true);
  m_active = true;
  SetState(m_owner, "loop");
  m_initial_health = m_health;
  if (auto* animation = FindComponent<Animation>(m_owner)) {
    animation->m_loop = "Sheet_Env_DestructibleA";
  }
}

void EnvironmentDestructible::Update(float) {
  if (!m_init) Init();
  auto* animation = FindComponent<Animation>(m_owner);
  if (m_health < m_initial_health && animation != nullptr && m_owner->HasComponent<StateC>()) {
    animation->m_loop = "Sheet_Env_DestructibleB";
  }
  if (m_health > 0) return;
  m_owner->SetActive(false);
  m_active = false;
}

void EnvironmentDestructible::OnCollisionEnter(ContactInfo* contact) {
  const ContactSides sides(*contact);
  if (!sides.BothActive()) return;
  const auto bounces = [](const GameObj& object) {
    return object.HasComponent<ProjectileBounce>();
  };
  if (GameObj* bouncer = sides.PartnerOf(&typeid(EnvironmentDestructible), bounces)) {
    const int damage = bouncer->GetComponent<ProjectileBounce>()->m_curr_damage;
    if (damage == 0) return;
    // One less: the shot has raised its damage on this contact already if it was told first.
    LoseHealth(std::int64_t{damage} - 1);
  }
  for (GameObj* side : {sides.a, sides.b}) {
    ForEachKind<Shot>(side, [this](const Shot* shot) { LoseHealth(shot->Wear()); });
  }
}

void EnvironmentDestructible::LoseHealth(std::int64_t damage) {
  if (!g_engine->step_paused) m_health = AfterDamage(m_health, damage);
}

}  // namespace ZOVEngine
