#pragma once

#include <cstdint>
#include <vector>

#include "core/base/vector3d.h"
#include "game/movers/pathgrid.h"
#include "objects/logiccomponent.h"

namespace ZOVEngine {

/// Searches a path to its target over the shared grid, once, and pushes its object along it.
///
/// Until a path is found it searches in every step, so an unreachable target costs a search a step.
/// A target that moves does not start a new search; setting the target again does. Without a built
/// grid, or without a target, it does nothing.
class Pathfinding final : public QuietComponent {
  RTTR_ENABLE(QuietComponent)

 public:
  /// `curr_move` and `max_time` are seconds, `snapping` is world units.
  explicit Pathfinding(GameObj* owner, float curr_move = 0.0f, float max_time = 0.0f,
                       float speed = 0.0f, float snapping = 0.0f);

  template <class Visitor>
  static void Fields(Visitor& visit);
  void Unserialize(const Value& value) override;
  void Serialize(Writer& writer) override;
  /// Forgets target and path.
  void Init() override;
  void Update(float dt) override;

  /// Sends the object to `target`, from the next step on; null stops the search. The target must
  /// live as long as this component.
  void SetTarget(GameObj* target);

  std::uint32_t m_curr_index = 0;  ///< of the next point of the path
  float m_curr_move;               ///< time moved so far (unit: seconds)
  float m_max_time_move;           ///< allowed for the path (unit: seconds)
  float m_speed;                   ///< force
  float m_snappingDist;            ///< arrival distance (unit: world units)
  bool m_found = false;            ///< there is a path
  bool m_reached = false;          ///< the end was reached or time ran out
  bool m_drawPath = true;
  GameObj* m_target = nullptr;
  std::vector<Vector3D> m_path;  ///< without the start (unit: world units)

 private:
  void Search();
  void SearchFrom(PathNode* start, PathNode* end);
  void TakePath(const PathNode* start, const PathNode* end);
  void Draw(const Vector3D& position) const;
  void Follow(const Vector3D& position, float dt);
  void Finish();

  PathGridUse m_grid_use;
};

}  // namespace ZOVEngine
