#pragma once

#include "core/base/vector3d.h"
#include "objects/logiccomponent.h"

namespace ZOVEngine {

/// The basic shot: wounds the first unit that it hits.
///
/// Walls do not end it: it rebounds by the physics until its range is out or the level is over. It
/// passes through hazards, through other basic and exploding shots, and near the muzzle through the
/// boss that fired it.
class ProjectileDefault final : public LogicComponent {
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
  float m_base_light = 0.0f;  ///< strength of the Light at rest
};

}  // namespace ZOVEngine
