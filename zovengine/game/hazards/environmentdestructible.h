#pragma once

#include <cstdint>

#include "objects/logiccomponent.h"

namespace ZOVEngine {

/// A thing that shots wear down: whole, cracked from the first damage on, and gone for good when no
/// health is left.
class EnvironmentDestructible final : public QuietComponent {
  RTTR_ENABLE(QuietComponent)

 public:
  using QuietComponent::QuietComponent;

  ZOV_DECLARE_FIELDS()
  void Init() override;
  void Update(float dt) override;
  void OnCollisionEnter(ContactInfo* contact) override;

  /// Takes `damage` off the health, which may fall below 0 and stays within the range of an int;
  /// nothing in a pause, as Unit::LoseHealth.
  void LoseHealth(std::int64_t damage);

  int m_health = 3;
  int m_initial_health = 3;
};

}  // namespace ZOVEngine
