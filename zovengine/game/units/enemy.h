#pragma once

#include <cstdint>
#include <vector>

#include "game/units/unit.h"

namespace ZOVEngine {

/// A unit that the game drives; built like a Player.
///
/// It fires along its body, which it turned in the round before, so that every shot is seen
/// coming. A boss has three shots instead of a weapon, a second phase from half health on, in which
/// a shield and the level's death field fade in, and takes five seconds to die.
class Enemy final : public Unit {
  RTTR_ENABLE(Unit)

 public:
  using Unit::Unit;

  ZOV_DECLARE_FIELDS()
  void Init() override;
  void Update(float dt) override;
  void Destroy() override;

  /// Fires along the body. Does nothing without a target or for a boss that is dying.
  void Fire();

  bool m_turning = false;    ///< the body turns towards m_aim_angle
  float m_aim_angle = 0.0f;  ///< to reach and to fire along (unit: degrees)
  bool m_fired = false;      ///< in this round
  bool m_boss = false;
  bool m_phase_two = false;      ///< the boss has entered its second phase
  bool m_phase_change = false;   ///< the change to it has begun
  bool m_phase_ready = false;    ///< shield and field have faded in
  bool m_dying = false;          ///< the boss's death has begun
  bool m_death_done = false;     ///< the boss's death has run its time
  float m_death_timer = 0.0f;    ///< (unit: seconds)
  bool m_moved = false;          ///< finished its move of this round
  bool m_waypoints_off = false;  ///< suspends the walk along the waypoints; set by tools only
  std::vector<Vector3D> m_waypoints;
  float m_snap_range = 10.0f;   ///< arrival distance (unit: world units)
  float m_move_timer = 0.0f;    ///< spent moving in this turn (unit: seconds)
  float m_move_limit = 0.001f;  ///< of moving in a turn (unit: seconds)
  std::uint32_t m_waypoint_index = 0;
  float m_move_speed = 1000.0f;  ///< the force is this times 100
  GameObj* m_target = nullptr;   ///< the player unit aimed at

 private:
  void FireAsBoss(const Vector3D& muzzle, float angle);
  void BeginPhaseTwo(GameController* controller);
  void FadePhaseIn(GameController* controller);
  void Turn(GameController* controller);
  void Die(GameController* controller);
  void DieAsBoss(GameController* controller);
  void EndAsBoss();
  void RunExplosions();
  void EndExplosions();
};

}  // namespace ZOVEngine
