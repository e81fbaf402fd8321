#pragma once

#include "objects/logiccomponent.h"

namespace ZOVEngine {

/// A thing that shots wear down: whole, cracked from the first damage on, and gone for good when no
/// health is left.
class EnvironmentDestructible final : public LogicComponent {
  RTTR_ENABLE(LogicComponent)

 public:
  using LogicComponent::LogicComponent;

  void Unserialize(const Value& value) override;
  void Serialize(Writer& writer) override;
  void Init() override;
  void Update(float dt) override;
  void Destroy() override {}
  void OnMessage(Message*) override {}
  void OnCollisionEnter(ContactInfo* contact) override;

  int m_health = 3;
  int m_initial_health = 3;
};

}  // namespace ZOVEngine
