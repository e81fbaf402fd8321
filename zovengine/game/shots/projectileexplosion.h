#pragma once

#include <memory>

#include "core/base/vector3d.h"
#include "game/hazards/environmentdestructible.h"
#include "objects/componentmanager.h"
#include "objects/logiccomponent.h"
#include "physics/components/rigidbody.h"

namespace ZOVEngine {

/// A shot that bursts at whatever it hits: units, destructible things and loose bodies in reach are
/// wounded and blown away, its own shooter too.
///
/// A boss never hits itself with the shell, but the blast spares nobody.
class ProjectileExplosion final : public LogicComponent {
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
  float m_aoe = 200.0f;       ///< reach of the blast (unit: world units)
  float m_knockback = 10.0f;  ///< the blast is this times 100, at all distances
  std::shared_ptr<ComponentManager<RigidBody>> m_bodies;
  std::shared_ptr<ComponentManager<EnvironmentDestructible>> m_destructibles;

 private:
  void FetchTables();
  void PlaceTrail(const Vector3D& place);
  void Crack(EnvironmentDestructible* destructible) const;
  void Blast(RigidBody* body) const;
};

}  // namespace ZOVEngine
