#pragma once

#include "objects/logiccomponent.h"

namespace ZOVEngine {

/// Walks an enemy along its patrol, one push whenever the turn controller finds all at rest.
///
/// The patrol and its limits are fields of the Enemy on the same object. The path is walked to and
/// fro. The move's time counts one step for each push, so its limit is a number of pushes. The
/// component does nothing by itself and has no keys.
class AIComp final : public EmptyLogicComponent {
  RTTR_ENABLE(EmptyLogicComponent)

 public:
  using EmptyLogicComponent::EmptyLogicComponent;

  void Update(float dt) override { m_dt = dt; }

  /// One push towards the next waypoint of the owner's Enemy, an arrival, or the end of its move.
  /// An owner without waypoints, Transform or RigidBody stays as it is.
  void MoveAlongWaypoints();

  float m_dt = 0.0f;  ///< of the last step (unit: seconds)
};

}  // namespace ZOVEngine
