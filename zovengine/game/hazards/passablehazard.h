#pragma once

#include "objects/logiccomponent.h"

namespace ZOVEngine {

/// Base of the hazards that units and shots pass through.
///
/// Stay comes before Enter and before the impulse, so a contact that is ignored there is never
/// felt. Shots test for this base and do not count such a contact as a hit.
class PassableHazard : public QuietComponent {
  RTTR_ENABLE(QuietComponent)

 public:
  using QuietComponent::QuietComponent;

  void OnCollisionStay(ContactInfo* contact) override;
  void OnCollisionExit(ContactInfo* contact) override;
};

}  // namespace ZOVEngine
