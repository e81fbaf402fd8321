#pragma once

#include <array>
#include <string>

#include "core/base/vector3d.h"
#include "objects/logiccomponent.h"

namespace ZOVEngine {

/// A unit that the user drives.
///
/// The turn controller decides what it does and when; the unit keeps its looks up to date, notices
/// its death, and offers aiming and firing. Its parts are children that are told apart by name:
/// barrels, shots, bar, labels, smoke. Damage is dealt by writing `m_health` and painting the unit
/// white; the unit sees both at its next step.
class Player final : public LogicComponent {
  RTTR_ENABLE(LogicComponent)

 public:
  using LogicComponent::LogicComponent;

  void Unserialize(const Value& value) override;
  void Serialize(Writer& writer) override;
  void Init() override;
  void Update(float dt) override;
  void Destroy() override;
  void OnMessage(Message*) override {}

  /// Turns the unit towards `mouse` (unit: world units) at once.
  void AimAt(const Vector3D& mouse);
  /// Fires the weapon in hand towards `mouse` (unit: world units). A mouse exactly on the unit
  /// launches the shot without a force.
  void Fire(const Vector3D& mouse);
  /// Lets the name of the weapon in hand rise beside the unit.
  void ShowWeaponLabel();

  float m_dt = 0.0f;  ///< of the last step (unit: seconds)
  int m_health = 1;
  int m_max_health = 1;
  bool m_acted = false;             ///< had its turn in this round
  float m_movement_curr = 2.0f;     ///< energy left (unit: seconds of a held key)
  float m_movement_limit = 2.0f;    ///< energy at the start of a turn
  float m_movement_mag = 25000.0f;  ///< force of a movement key
  bool m_alive = true;
  bool m_show_weapon_label = false;
  std::string m_weapon_label_tex = "BASIC";
  std::array<float, 2> m_weapon_label_size = {0.0f, 0.0f};  ///< width and height
  std::string m_status = "default";                         ///< or "damaged", or "slowed"
  float m_flash_timer = 0.0f;                               ///< (unit: seconds)
  float m_label_timer = 0.0f;                               ///< (unit: seconds)
  float m_hp_bar_width = 0.0f;                              ///< world width of the full bar
  float m_hp_bar_scale = 0.0f;                              ///< its local x scale
  float m_hp_bar_left = 0.0f;                               ///< its left edge
  float m_hp_bar_x = 0.0f;                                  ///< its local x position
  bool m_selected_first_weapon = true;
  bool m_pierce_pending = false;  ///< a pierce shot's muzzle effect is waiting
  float m_pierce_timer = 0.0f;    ///< since that shot (unit: seconds)

 private:
  void RunPierceMuzzle(float dt);
};

}  // namespace ZOVEngine
