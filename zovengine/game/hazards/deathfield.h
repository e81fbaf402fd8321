#pragma once

#include "game/hazards/passablehazard.h"

namespace ZOVEngine {

/// The boss's aura: follows the boss and wounds a player unit each time that it enters. Everything
/// passes through it.
class DeathField final : public PassableHazard {
  RTTR_ENABLE(PassableHazard)

 public:
  using PassableHazard::PassableHazard;

  ZOV_DECLARE_FIELDS()
  void Init() override;
  void Update(float dt) override;
  void OnCollisionEnter(ContactInfo* contact) override;

  int m_damage = 10;
};

}  // namespace ZOVEngine
