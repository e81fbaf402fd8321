#include "game/hazards/statuszone.h"

#include "game/contactsides.h"
#include "game/units/unit.h"

namespace ZOVEngine {

void StatusZone::Init() {
  m_init = true;
  m_owner->SetActive(true);
  m_active = true;
}

void StatusZone::Update(float) {
  if (!m_init) Init();
}

void StatusZone::OnCollisionEnter(ContactInfo* contact) {
  Mark(*contact, Status());
}

void StatusZone::OnCollisionStay(ContactInfo* contact) {
  PassableHazard::OnCollisionStay(contact);
  Mark(*contact, Status());
}

void StatusZone::OnCollisionExit(ContactInfo* contact) {
  PassableHazard::OnCollisionExit(contact);
  Mark(*contact, "default");
}

void StatusZone::Mark(const ContactInfo& contact, const char* status) const {
  const ContactSides sides(contact);
  if (!sides.BothActive()) return;
  if (GameObj* unit = sides.PartnerOf(&typeid(*this), IsUnit)) FindUnit(unit)->m_status = status;
}

}  // namespace ZOVEngine
