#pragma once

#include "objects/logiccomponent.h"

namespace ZOVEngine {

/// A zone that slows units that move in it. Units and shots pass through it; a unit that touches it
/// has the status "slowed" until it leaves.
class EnvironmentRough final : public LogicComponent {
  RTTR_ENABLE(LogicComponent)

 public:
  using LogicComponent::LogicComponent;

  void Unserialize(const Value&) override {}
  void Serialize(Writer&) override {}
  void Init() override;
  void Update(float dt) override;
  void Destroy() override {}
  void OnMessage(Message*) override {}
  void OnCollisionEnter(ContactInfo* contact) override;
  void OnCollisionStay(ContactInfo* contact) override;
  void OnCollisionExit(ContactInfo* contact) override;
};

}  // namespace ZOVEngine
