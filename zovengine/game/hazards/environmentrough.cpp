#include "game/hazards/environmentrough.h"

#include "game/contactsides.h"
#include "objects/reflection.h"

RTTR_REGISTRATION {
  ZOVEngine::ComponentRegistration<ZOVEngine::EnvironmentRough>("EnvironmentRough");
}

namespace ZOVEngine {

void EnvironmentRough::Init() {
  m_init = true;
  m_owner->SetActive(true);
  m_active = true;
}

void EnvironmentRough::Update(float) {
  if (!m_init) Init();
}

void EnvironmentRough::OnCollisionEnter(ContactInfo* contact) {
  MarkUnit<EnvironmentRough>(*contact, "slowed");
}

void EnvironmentRough::OnCollisionStay(ContactInfo* contact) {
  // Stay comes before Enter and before the impulse: units walk through.
  contact->ignored = true;
  MarkUnit<EnvironmentRough>(*contact, "slowed");
}

void EnvironmentRough::OnCollisionExit(ContactInfo* contact) {
  contact->ignored = true;
  MarkUnit<EnvironmentRough>(*contact, "default");
}

}  // namespace ZOVEngine
