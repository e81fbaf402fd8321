#include "game/hazards/deathfield.h"

#include "game/contactsides.h"
#include "game/objectquery.h"
#include "game/units/player.h"
#include "objects/fields.h"
#include "physics/components/transform.h"

namespace ZOVEngine {
namespace {

constexpr float kFieldTurnPerStep = 0.3f;  ///< (unit: degrees)

}  // namespace

template <class Visitor>
void DeathField::Fields(Visitor& visit) {
  visit("m_damage", &DeathField::m_damage, "Damage", FieldBounds{0.0, 99.0});
}
ZOV_COMPONENT_FIELDS(DeathField)

void DeathField::Init() {
  m_init = true;
  SetState(m_owner, "loop");
}

void DeathField::Update(float) {
  if (!m_init) Init();
  ZOV_ASSERT(m_owner->parent != nullptr,
             "object \"" + m_owner->name + "\": a DeathField needs a parent");
  auto* transform = m_owner->GetComponent<Transform>();
  if (GameObj* boss = FirstChildNamed(m_owner->parent, "Boss")) {
    if (const auto* place = FindComponent<Transform>(boss))
      transform->m_local_pos = place->m_world_pos;
  }
  transform->m_local_rotate += kFieldTurnPerStep;
}

void DeathField::OnCollisionEnter(ContactInfo* contact) {
  contact->ignored = true;
  const ContactSides sides(*contact);
  if (!sides.BothActive()) return;
  for (GameObj* side : {sides.a, sides.b}) {
    auto* player = FindComponent<Player>(side);
    if (player == nullptr) continue;
    player->LoseHealth(m_damage);
    return;
  }
}

}  // namespace ZOVEngine
