#pragma once

#include "objects/logiccomponent.h"

namespace ZOVEngine {

/// The boss's aura: follows the boss and wounds a player unit each time that it enters. Everything
/// passes through it.
class DeathField final : public QuietComponent {
  RTTR_ENABLE(QuietComponent)

 public:
  using QuietComponent::QuietComponent;

  ZOV_DECLARE_FIELDS()
  void Init() override;
  void Update(float dt) override;
  void OnCollisionEnter(ContactInfo* contact) override;
  void OnCollisionStay(ContactInfo* contact) override;
  void OnCollisionExit(ContactInfo* contact) override;

  int m_damage = 10;
};

}  // namespace ZOVEngine
