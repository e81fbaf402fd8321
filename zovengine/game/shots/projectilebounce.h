#pragma once

#include "core/base/vector3d.h"
#include "objects/logiccomponent.h"

namespace ZOVEngine {

/// A shot that grows with every rebound: a direct hit does the least damage, each wall adds one up
/// to the most. It shines the brighter the more dangerous it is, and ends at the first unit that it
/// hits.
class ProjectileBounce final : public LogicComponent {
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

  float m_max_range = 3000.0f;  ///< ends the flight (unit: world units)
  float m_curr_range = 0.0f;    ///< flown so far (unit: world units)
  float m_speed = 1000.0f;      ///< of the launch (unit: world units per second)
  int m_min_damage = 0;         ///< of a hit without a rebound
  int m_max_damage = 3;         ///< of a hit after many
  int m_curr_damage = 0;        ///< of the next hit
  float m_base_light = 0.0f;    ///< strength of the Light at rest
};

}  // namespace ZOVEngine
