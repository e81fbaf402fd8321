#include "game/hazards/passablehazard.h"

#include "core/contactinfo.h"

namespace ZOVEngine {

void PassableHazard::OnCollisionStay(ContactInfo* contact) {
  contact->ignored = true;
}

void PassableHazard::OnCollisionExit(ContactInfo* contact) {
  contact->ignored = true;
}

}  // namespace ZOVEngine
