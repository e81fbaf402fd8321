#pragma once

#include "game/units/unit.h"

namespace ZOVEngine {

/// A unit that the user drives.
///
/// The turn controller decides what it does and when; the unit keeps its looks up to date, notices
/// its death, and offers aiming and firing.
class Player final : public Unit {
  RTTR_ENABLE(Unit)

 public:
  using Unit::Unit;

  ZOV_DECLARE_FIELDS()
  void Init() override;
  void Update(float dt) override;
  void Destroy() override;

  /// Turns the unit towards `mouse` (unit: world units) at once.
  void AimAt(const Vector3D& mouse);
  /// Fires the weapon in hand towards `mouse` (unit: world units). A mouse exactly on the unit
  /// launches the shot without a force.
  void Fire(const Vector3D& mouse);

  bool m_acted = false;             ///< had its turn in this round
  float m_movement_curr = 2.0f;     ///< energy left (unit: seconds of a held key)
  float m_movement_limit = 2.0f;    ///< energy at the start of a turn
  float m_movement_mag = 25000.0f;  ///< force of a movement key
  float m_pierce_timer = 0.0f;      ///< since a shot with a late muzzle effect (unit: seconds)

 private:
  void RunLateMuzzle();
};

}  // namespace ZOVEngine
