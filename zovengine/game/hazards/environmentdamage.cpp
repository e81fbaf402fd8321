#include "game/hazards/environmentdamage.h"

#include "game/contactsides.h"
#include "objects/reflection.h"

RTTR_REGISTRATION {
  ZOVEngine::ComponentRegistration<ZOVEngine::EnvironmentDamage>("EnvironmentDamage");
}

namespace ZOVEngine {

void EnvironmentDamage::Init() {
  m_init = true;
  m_owner->SetActive(true);
  m_active = true;
  SetState(m_owner, "loop");
}

void EnvironmentDamage::Update(float) {
  if (!m_init) Init();
}

void EnvironmentDamage::OnCollisionEnter(ContactInfo* contact) {
  MarkUnit<EnvironmentDamage>(*contact, "damaged");
}

void EnvironmentDamage::OnCollisionStay(ContactInfo* contact) {
  // Stay comes before Enter and before the impulse: units walk through.
  contact->ignored = true;
  MarkUnit<EnvironmentDamage>(*contact, "damaged");
}

void EnvironmentDamage::OnCollisionExit(ContactInfo* contact) {
  contact->ignored = true;
  MarkUnit<EnvironmentDamage>(*contact, "default");
}

}  // namespace ZOVEngine
