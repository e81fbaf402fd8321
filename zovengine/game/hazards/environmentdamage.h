#pragma once

#include "objects/logiccomponent.h"

namespace ZOVEngine {

/// A zone that wounds units that stand in it at each of their turns. Units and shots pass through
/// it; a unit that touches it has the status "damaged" until it leaves.
class EnvironmentDamage final : public LogicComponent {
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
