#pragma once

#include <memory>

#include "objects/componentmanager.h"
#include "objects/logiccomponent.h"
#include "physics/components/rigidbody.h"

namespace ZOVEngine {

/// A hole that draws loose bodies in and ends what touches it: units lose all health, everything
/// else is switched off. Units are not drawn.
class EnvironmentBlackhole final : public QuietComponent {
  RTTR_ENABLE(QuietComponent)

 public:
  using QuietComponent::QuietComponent;

  ZOV_DECLARE_FIELDS()
  void Init() override;
  void Update(float dt) override;
  void OnCollisionEnter(ContactInfo* contact) override;

  float m_suction_force = 10.0f;   ///< the pull is this times 100, at all distances
  float m_suction_range = 100.0f;  ///< (unit: world units)
  std::shared_ptr<ComponentManager<RigidBody>> m_bodies;

 private:
  void Pull(const RigidBody* body) const;
};

}  // namespace ZOVEngine
