#pragma once

#include "core/base/vector3d.h"
#include "core/contactinfo.h"
#include "game/contactsides.h"
#include "jsonunserializer.h"

namespace ZOVEngine {

class GameObj;
class RigidBody;

// What the seven kinds of shot share, over the fields that all of them have. A shot is a child of
// its unit, asleep (switched off) until it is fired; it ends by going back to sleep.

/// Wakes a shot's object at `position` (unit: world units), without any motion.
void WakeShot(GameObj* shot, const Vector3D& position);
/// Sends a shot off along `direction`, whose length counts: five steps of force, which bring a body
/// of mass 1 without drag to about 0.83 of `speed` (unit: world units per second).
void LaunchShot(GameObj* shot, const Vector3D& direction, float speed);
/// Puts a shot back to sleep where its unit is.
void RecallShot(GameObj* shot);
/// The speed of a shot (unit: world units per second).
float SpeedOf(GameObj* shot);

/// The Fire of most kinds.
template <class Shot>
void FireShot(Shot* shot, const Vector3D& position, const Vector3D& direction) {
  WakeShot(shot->m_owner, position);
  shot->m_curr_range = 0.0f;
  LaunchShot(shot->m_owner, direction, shot->m_speed);
}
/// The Light's strength at rest, which a hit's flash fades back to; 0 without a Light.
float LightAtRest(GameObj* shot);
/// The first step of every kind: the shot goes to sleep.
template <class Shot>
void BindShot(Shot* shot) {
  shot->m_init = true;
  shot->m_owner->SetActive(false);
  shot->m_active = false;
}
/// The first step of a kind whose Light tells of its hits.
template <class Shot>
void BindLitShot(Shot* shot) {
  shot->m_base_light = LightAtRest(shot->m_owner);
  BindShot(shot);
}
/// Ends a flight otherwise than by a hit, which leaves the shot where it is.
template <class Shot>
void EndShot(Shot* shot) {
  RecallShot(shot->m_owner);
  shot->m_curr_range = 0.0f;
}
/// One step of a flight: true with range left; otherwise the shot has ended.
template <class Shot>
bool FlyOn(Shot* shot, float dt) {
  if (shot->m_curr_range < shot->m_max_range) {
    shot->m_curr_range += SpeedOf(shot->m_owner) * dt;
    return true;
  }
  EndShot(shot);
  return false;
}
/// True when the turn controller above the shot has ended the level.
bool IsLevelOver(GameObj* shot);
/// FlyOn for the kinds that also end with the level.
template <class Shot>
void FlyUntilLevelEnd(Shot* shot, float dt) {
  if (FlyOn(shot, dt) && IsLevelOver(shot->m_owner)) EndShot(shot);
}

/// The keys of all kinds, for those that have no others in between.
template <class Shot>
void ReadFlight(const Value& value, Shot* shot) {
  ReadValue(value, "m_max_range", &shot->m_max_range);
  ReadValue(value, "m_curr_range", &shot->m_curr_range);
  ReadValue(value, "m_speed", &shot->m_speed);
}
template <class Shot>
void WriteFlight(Writer& writer, const Shot& shot) {
  WriteValue(writer, "m_max_range", shot.m_max_range);
  WriteValue(writer, "m_curr_range", shot.m_curr_range);
  WriteValue(writer, "m_speed", shot.m_speed);
}
/// The same for the kinds with a damage, which stands before the speed.
template <class Shot>
void ReadWoundingShot(const Value& value, Shot* shot) {
  ReadValue(value, "m_max_range", &shot->m_max_range);
  ReadValue(value, "m_curr_range", &shot->m_curr_range);
  ReadValue(value, "m_damage", &shot->m_damage);
  ReadValue(value, "m_speed", &shot->m_speed);
}
template <class Shot>
void WriteWoundingShot(Writer& writer, const Shot& shot) {
  WriteValue(writer, "m_max_range", shot.m_max_range);
  WriteValue(writer, "m_curr_range", shot.m_curr_range);
  WriteValue(writer, "m_damage", shot.m_damage);
  WriteValue(writer, "m_speed", shot.m_speed);
}

/// One step of a flash's way back to `at_rest`.
void FadeLight(GameObj* shot, float at_rest);
/// Has the Light, if there is one, flash for half a second.
void FlashLight(GameObj* shot, float at_rest);
void SetLight(GameObj* shot, float strength);

/// The direction of flight as a rotation, 0 being upwards (unit: degrees).
float FlightAngle(GameObj* shot);
/// Turns an object to `angle` at once (unit: degrees).
void TurnTo(GameObj* object, float angle);
/// Spins a shot by its step's angle.
void Spin(GameObj* shot);
inline constexpr const char* kTrail = "bullet_trail";
/// Turns the trail behind the shot, and with it the particles.
void TurnTrail(GameObj* shot, float angle);

/// True when a contact with a hazard or of something switched off is to be passed through; marks it
/// so.
bool IgnoreIfPassable(const ContactSides& sides, ContactInfo* contact);
/// The unit that a shot of type Shot hit, or null.
template <class Shot>
GameObj* HitUnit(const ContactSides& sides) {
  return sides.PartnerOf<Shot>([](const GameObj* object) { return IsUnit(*object); });
}
/// Takes health from a unit and has it flash. The health may fall below 0.
void Wound(GameObj* unit, int damage);
/// The same, with a small shake of the level's camera.
void WoundAndShake(GameObj* shot, GameObj* unit, int damage);
/// A hit that ends the shot where it is.
void HitAndEnd(GameObj* shot, GameObj* unit, int damage);
/// The end of the kinds that go off at whatever they hit.
void EndWithBang(GameObj* shot);
/// True if the shot's unit is a boss that takes part in the contact.
bool IsBossAtOwnMuzzle(GameObj* shot, const ContactSides& sides);

inline constexpr float kSmallShake = 3.0f;
inline constexpr float kBigShake = 6.0f;
/// Shakes the level's camera.
void ShakeCamera(GameObj* shot, float magnitude);
/// Starts the sparks of a hit.
void EmitFeedback(GameObj* shot);
/// Starts the sprites of a hit.
void ShowBurst(GameObj* shot);
/// Plays the sound of a bounce, unless that of a hit has been asked for again while it plays.
void PlayBounceSound(GameObj* shot, const char* name);
void PlayHitSound(GameObj* shot);
/// True while the sound of a hit is heard.
bool IsHitHeard(GameObj* shot);

/// A force on a body away from `centre`, or towards it with a negative `strength`: of a shot's hit,
/// or of one step of a hole. It is the same at all distances: the direction has the length of the
/// distance, which the magnitude divides by. A body in the very place of the centre, as a shot
/// itself, has no direction to go and gets none. Nor does a body that is switched off: the physics
/// would neither apply nor drop the force, and forces would pile up in memory.
void ApplyRadialForce(GameObj* centre, const RigidBody* body, float strength);
/// The distance between the world positions of two objects, depth included (unit: world units);
/// infinite if one has no place.
float DistanceBetween(GameObj* one, GameObj* other);

}  // namespace ZOVEngine
