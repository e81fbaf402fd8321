#pragma once

#include <cstdint>
#include <vector>

#include "core/base/vector3d.h"
#include "objects/logiccomponent.h"

namespace ZOVEngine {

/// Moves its object along a path of points, to and fro for ever, by a small force in every step.
///
/// For objects that are no units and take no turns. At the path's end the path is reversed, so its
/// first point is always the one that the object came from first. A leg that takes longer than the
/// limit is given up for a step and begins anew.
class Waypoint final : public QuietComponent {
  RTTR_ENABLE(QuietComponent)

 public:
  using QuietComponent::QuietComponent;

  template <class Visitor>
  static void Fields(Visitor& visit);
  void Unserialize(const Value& value) override;
  void Serialize(Writer& writer) override;
  void Init() override { m_init = true; }
  /// Draws the path if `m_draw` says so, then moves the object. An owner without Transform or
  /// RigidBody is not moved.
  void Update(float dt) override;

  bool m_draw = false;            ///< shows the path
  bool m_reached = false;         ///< a point was reached or time ran out; never cleared
  std::uint32_t m_lastIndex = 0;  ///< of the point last left
  float m_snappingDist = 0.0f;    ///< arrival distance (unit: world units)
  float m_speed = 0.0f;           ///< force
  float m_curr_movement = 0.0f;   ///< since the last arrival (unit: seconds)
  float m_limit = 0.0f;           ///< allowed between arrivals; at 0 nothing moves (unit: seconds)
  std::vector<Vector3D> m_path;   ///< (unit: world units)

 private:
  void Draw() const;
  void Move(float dt);
  void TurnRound();
};

}  // namespace ZOVEngine
