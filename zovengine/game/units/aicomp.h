#pragma once

#include "objects/logiccomponent.h"

namespace ZOVEngine {

/// Walks an enemy along its patrol, one push whenever the turn controller finds all at rest.
///
/// The patrol and its limits are the Enemy's, beside which this stands on the same object. The path
/// is walked to and fro. The move's time counts one step for each push, so its limit is a number of
/// pushes. It does nothing by itself and nothing of it is saved.
class AIComp final : public LogicComponent {
  RTTR_ENABLE(LogicComponent)

 public:
  using LogicComponent::LogicComponent;

  void Unserialize(const Value&) override {}
  void Serialize(Writer&) override {}
  void Init() override {}
  void Update(float dt) override { m_dt = dt; }
  void Destroy() override {}
  void OnMessage(Message*) override {}

  /// One push towards the next waypoint of the owner's Enemy, an arrival, or the end of its move.
  /// An owner without waypoints, Transform or RigidBody stays as it is.
  void MoveAlongWaypoints();

  float m_dt = 0.0f;  ///< of the last step (unit: seconds)
};

}  // namespace ZOVEngine
