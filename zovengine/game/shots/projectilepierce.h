#pragma once

#include "core/base/vector3d.h"
#include "objects/logiccomponent.h"

namespace ZOVEngine {

/// A shot that goes through units and wounds each on its way, until something solid stops it.
///
/// It is the one kind that dies with its shooter. A unit is wounded once a contact, since only the
/// beginning of a contact counts; the lasting contact keeps the shot from being slowed.
class ProjectilePierce final : public LogicComponent {
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
  void OnCollisionStay(ContactInfo* contact) override;

  /// Wakes the shot at `position` (unit: world units) and sends it off along `direction`, whose
  /// length counts.
  void Fire(const Vector3D& position, const Vector3D& direction);

  float m_max_range = 2000.0f;  ///< ends the flight (unit: world units)
  float m_curr_range = 0.0f;    ///< flown so far (unit: world units)
  float m_speed = 1000.0f;      ///< of the launch (unit: world units per second)
  int m_damage = 1;
  float m_base_light = 0.0f;  ///< strength of the Light at rest
};

}  // namespace ZOVEngine
