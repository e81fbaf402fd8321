#include "game/hazards/environmentdestructible.h"

#include "game/contactsides.h"
#include "game/shots/projectilebounce.h"
#include "game/shots/projectiledefault.h"
#include "game/shots/projectilepierce.h"
#include "game/shots/projectilepush.h"
#include "jsonunserializer.h"
#include "objects/reflection.h"
#include "objects/statec.h"
#include "render/components/animation.h"

RTTR_REGISTRATION {
  using ZOVEngine::EnvironmentDestructible;
  ZOVEngine::ComponentRegistration<EnvironmentDestructible>("EnvironmentDestructible")
      .Field("m_health", &EnvironmentDestructible::m_health, "int", "Health");
}

namespace ZOVEngine {
namespace {

/// Takes the damage of the shots of one kind, on either side of a contact, off `health`.
template <class Shot>
void TakeDamage(const ContactSides& sides, int* health) {
  for (GameObj* side : {sides.a, sides.b}) {
    if (const auto* shot = FindComponent<Shot>(side)) {
      *health = AfterDamage(*health, shot->m_damage);
    }
  }
}

}  // namespace

void EnvironmentDestructible::Unserialize(const Value& value) {
  ReadValue(value, "m_health", &m_health);
}

void EnvironmentDestructible::Serialize(Writer& writer) {
  WriteValue(writer, "m_health", m_health);
}

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
  GameObj* bouncer = sides.PartnerOf<EnvironmentDestructible>(
      [](const GameObj* object) { return object->HasComponent<ProjectileBounce>(); });
  if (bouncer != nullptr) {
    const int damage = bouncer->GetComponent<ProjectileBounce>()->m_curr_damage;
    if (damage == 0) return;
    // One less: the shot has raised its damage on this contact already if it was told first.
    m_health = AfterDamage(m_health, std::int64_t{damage} - 1);
  }
  TakeDamage<ProjectileDefault>(sides, &m_health);
  TakeDamage<ProjectilePierce>(sides, &m_health);
  TakeDamage<ProjectilePush>(sides, &m_health);
}

}  // namespace ZOVEngine
