#pragma once

#include <memory>

#include "core/base/vector3d.h"
#include "objects/componentmanager.h"
#include "objects/logiccomponent.h"
#include "physics/components/rigidbody.h"

namespace ZOVEngine {

/// A shot that draws every body in reach towards the place where it hits something, its shooter
/// too. It wounds nobody: `m_damage` is read and written and has no other use.
class ProjectileVacuum final : public LogicComponent {
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

  /// Wakes the shot at `position` (unit: world units) and sends it off along `direction`, whose
  /// length counts.
  void Fire(const Vector3D& position, const Vector3D& direction);

  float m_max_range = 2000.0f;  ///< ends the flight (unit: world units)
  float m_curr_range = 0.0f;    ///< flown so far (unit: world units)
  float m_speed = 1000.0f;      ///< of the launch (unit: world units per second)
  int m_damage = 1;
  float m_aoe = 200.0f;           ///< reach of the pull (unit: world units)
  float m_suction_force = 10.0f;  ///< the pull is this times 100, at all distances
  std::shared_ptr<ComponentManager<RigidBody>> m_bodies;

 private:
  void Pull(RigidBody* body) const;
};

}  // namespace ZOVEngine
