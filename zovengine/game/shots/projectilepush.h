#pragma once

#include "core/base/vector3d.h"
#include "objects/logiccomponent.h"

namespace ZOVEngine {

/// A shot that shoves: it ends at whatever it hits first and wounds it if it is a unit.
///
/// The shove is the impulse of the contact itself, by the shot's mass and speed.
class ProjectilePush final : public LogicComponent {
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
};

}  // namespace ZOVEngine
