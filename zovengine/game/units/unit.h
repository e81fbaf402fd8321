#pragma once

#include <cstdint>
#include <string>

#include "core/base/vector3d.h"

namespace ZOVEngine {

class Enemy;
class GameController;
class GameObj;
class Player;

// What both kinds of unit do alike, over the fields that both have. `Unit` is Player or Enemy.

inline constexpr const char* kBarrelNames[] = {"Weapon0Barrel", "Weapon1Barrel"};
/// A muzzle lies before the middle of its unit by a scale over this.
inline constexpr float kScalePerMuzzle = 1.2f;

/// True for an object with a Player or an Enemy.
bool IsUnit(const GameObj& object);
/// The health of a unit, or null for an object that is none.
int* HealthOf(GameObj* object);
/// What `damage` leaves of `health`, within the range of an int.
int AfterDamage(int health, std::int64_t damage);
/// The status of a unit ("default", "damaged" or "slowed"), or null for an object that is none.
std::string* StatusOf(GameObj* object);

/// Sets r, g and b of an object that has a Render to `value`: 1 is its own look.
void Paint(GameObj* object, float value);
/// Paints a unit and its barrels.
void PaintUnit(GameObj* unit, float value);
/// Has a unit burn white, until its own step ends the flash.
void FlashUnit(GameObj* unit);

/// The first step's part: spawns the unit, measures its bar, and stops its smoke.
template <class Unit>
void BindUnit(Unit* unit);
/// The part of a step that every living unit runs. False while the unit is spawning or is itself
/// the selection ring: then the step is over.
template <class Unit>
bool RunUpkeep(Unit* unit, const GameController* controller, float dt);
/// Shows the barrel of the weapon in hand and hides the other.
template <class Unit>
void ShowHeldBarrel(Unit* unit);
/// The part of a step for a unit with health left: idle twitch, smoke, health text and bar.
template <class Unit>
void RunAlive(Unit* unit);
/// The one step of a unit's death.
template <class Unit>
void FallApart(Unit* unit);
/// Starts the death sheet, which is painted three times as wide as the unit, and its sound.
void StartDeathSheet(GameObj* unit);
/// Keeps the hits of a shot in size when its unit is blown up for the death sheet.
void ShrinkHits(GameObj* shot);
/// Hides and empties the marks around a unit that is dying: labels, bar, ring mark.
void HideMarks(GameObj* unit);
/// Has a unit touch nothing any more.
void StopColliding(GameObj* unit);

/// The child that holds the shot of the weapon in hand, or null.
template <class Unit>
GameObj* HeldShot(Unit* unit);
/// Fires the weapon in hand from `muzzle` along `direction`. True for a pierce shot.
template <class Unit>
bool FireHeldWeapon(Unit* unit, const Vector3D& muzzle, const Vector3D& direction);
/// Shows each animated child of this name and starts its "once" sheet.
void PlayOnce(GameObj* unit, const char* name);
/// Starts the fire sprites of the unit and its sound.
void ShowMuzzleFire(GameObj* unit);
/// The first barrel among the children, or null.
GameObj* FirstBarrel(GameObj* unit);
/// Starts the label with the name of the weapon in hand.
template <class Unit>
void StartWeaponLabel(Unit* unit);

}  // namespace ZOVEngine
