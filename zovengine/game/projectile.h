#pragma once

#include "core/contactinfo.h"
#include "core/vector3d.h"
#include "game/contactsides.h"

namespace ZOVEngine {

class GameObj;

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
/// The first step of every kind: the shot goes to sleep.
template <class Shot>
void BindShot(Shot* shot) {
  shot->m_init = true;
  shot->m_owner->SetActive(false);
  shot->m_active = false;
}
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

/// The Light's strength at rest, which a hit's flash fades back to; 0 without a Light.
float LightAtRest(GameObj* shot);
void FadeLight(GameObj* shot, float at_rest);
void SetLight(GameObj* shot, float strength);

/// The direction of flight as a rotation, 0 being upwards (unit: degrees).
float FlightAngle(GameObj* shot);
/// Turns an object to `angle` at once (unit: degrees).
void TurnTo(GameObj* object, float angle);
/// Spins a shot by its step's angle.
void Spin(GameObj* shot);
/// Turns the trail behind the shot, and with it the particles.
void TurnTrail(GameObj* shot, float angle);

/// True when a contact with a hazard or of something switched off is to be passed through; marks it
/// so.
bool PassesThrough(const ContactSides& sides, ContactInfo* contact);
/// The unit that a shot of type Shot hit, or null.
template <class Shot>
GameObj* HitUnit(const ContactSides& sides) {
  return sides.Facing<Shot>([](const GameObj* object) { return IsUnit(*object); });
}
/// Takes health from a unit and has it flash.
void Wound(GameObj* unit, int damage);
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
/// True while the sound of a hit is heard.
bool IsHitHeard(GameObj* shot);

/// A force of one hit on a body in reach: away from the shot, or towards it with a negative
/// `strength`; the same at all distances.
void BlowAway(GameObj* shot, GameObj* object, float strength);
/// The distance between the world positions of two objects, depth included (unit: world units).
float DistanceBetween(GameObj* one, GameObj* other);

}  // namespace ZOVEngine
