#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "core/base/vector3d.h"
#include "objects/logiccomponent.h"

namespace ZOVEngine {

class GameController;

inline constexpr const char* kBarrelNames[] = {"Weapon0Barrel", "Weapon1Barrel"};
/// A muzzle lies before the middle of its unit by a scale over this.
inline constexpr float kScalePerMuzzle = 1.2f;

/// What both kinds of unit share: health, looks, weapons and death.
///
/// The parts of a unit are children that are told apart by name: barrels, shots, bar, labels,
/// smoke. A part that is missing is left out, nothing else changes. The turn controller decides
/// what a unit does and when; it, hazards, shots and the interface read and write the fields.
/// Whatever takes health calls LoseHealth or TakeHit; the unit notices at its own next step that
/// none is left.
class Unit : public LogicComponent {
  RTTR_ENABLE(LogicComponent)

 public:
  using LogicComponent::LogicComponent;

  void OnMessage(Message*) override {}

  /// Takes `damage` off the health, which may fall below 0 and stays within the range of an int. In
  /// a pause nobody is hurt: contacts may be told to begin in each of its steps.
  void LoseHealth(std::int64_t damage);
  /// LoseHealth for a hit that shows: the unit burns white until its own step ends the flash.
  void TakeHit(std::int64_t damage);
  /// Lets the name of the weapon in hand rise beside the unit.
  void ShowWeaponLabel();

  /// The child that holds the shot of the weapon in hand, or null.
  GameObj* HeldShot() const;
  /// The muzzle flash of the weapon in hand, or null without a shot.
  const char* HeldFlash() const;

  float m_dt = 0.0f;  ///< of the last step (unit: seconds)
  int m_health = 1;
  int m_max_health = 1;
  bool m_alive = true;
  std::string m_status = "default";     ///< or "damaged", or "slowed"
  float m_flash_timer = 0.0f;           ///< (unit: seconds)
  bool m_selected_first_weapon = true;  ///< weapon 0 is in hand, else weapon 1
  bool m_pierce_pending = false;        ///< a shot's late muzzle effect is waiting
  bool m_show_weapon_label = false;
  std::string m_weapon_label_tex = "BASIC";
  std::array<float, 2> m_weapon_label_size = {0.0f, 0.0f};  ///< width and height
  float m_label_timer = 0.0f;                               ///< (unit: seconds)
  float m_hp_bar_width = 0.0f;                              ///< world width of the full bar
  float m_hp_bar_scale = 0.0f;                              ///< its local x scale
  float m_hp_bar_left = 0.0f;                               ///< its left edge
  float m_hp_bar_x = 0.0f;                                  ///< its local x position

 protected:
  /// The part of the first step that both kinds share: spawns the unit, measures its bar, and stops
  /// its smoke.
  void Bind();
  /// The part of a step that every living unit runs. False while the unit is spawning or is itself
  /// the selection ring: then the step is over.
  bool RunUpkeep(const GameController* controller);
  /// Shows the barrel of the weapon in hand and hides the other.
  void ShowHeldBarrel();
  /// The part of a step for a unit with health left: idle twitch, smoke, health text and bar.
  void RunAlive();

  /// The one step of a unit's death.
  void FallApart();
  /// Starts the death sheet, which is painted three times as wide as the unit, and its sound.
  void StartDeathSheet();
  /// Hides and empties the marks around a unit that is dying: labels, bar, ring mark.
  void HideMarks();
  void StopColliding();

  /// Fires the weapon in hand from `muzzle` along `direction`.
  void FireHeldWeapon(const Vector3D& muzzle, const Vector3D& direction);
  /// Starts the fire sprites of the unit and its sound. Those with a side's common fire show the
  /// sheet `flash` in its place, unless it is null; any other sheet is shown as it is.
  void ShowMuzzleFire(const char* flash);
  /// The first barrel among the children, or null.
  GameObj* FirstBarrel() const;

  /// Sets r, g and b of the unit and of its barrels to `value`: 1 is their own look.
  void Paint(float value);
  /// Has the unit and its barrels burn white.
  void Flash();
  /// Shows each animated child of this name and starts its "once" sheet.
  void PlayOnce(const char* name);

 private:
  void RunFlash();
  void ShowStatus();
  void RunWeaponLabel();
  void EndWeaponLabel();
  void FadeTexts(const GameController* controller);
  void TwitchIdly();
  void Smoke();
  void ShowHealth();
};

/// The Player or the Enemy of an object, or null if it has neither.
Unit* FindUnit(GameObj* object);
/// True for an object with a Player or an Enemy.
bool IsUnit(const GameObj& object);
/// What `damage` leaves of `health`, within the range of an int.
int AfterDamage(int health, std::int64_t damage);

/// Sets r, g and b of an object that has a Render to `value`: 1 is its own look.
void PaintObject(GameObj* object, float value);
/// Scales a shot's hit sprites back down, because the death animation enlarges their unit
/// threefold.
void ShrinkHits(GameObj* shot);

}  // namespace ZOVEngine
