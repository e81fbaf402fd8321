#pragma once

#include "core/base/vector3d.h"

namespace ZOVEngine {

class GameObj;

/// Duration of the pushes that movers without turns give themselves (unit: seconds).
inline constexpr float kMoverPushTime = 0.1f;

/// The leg of a path that an object is on: the next point, and how to get there.
struct Leg {
  Vector3D goal;            ///< (unit: world units)
  float snap_range = 0.0f;  ///< an object nearer than this has arrived (unit: world units)
  float time_limit = 0.0f;  ///< allowed for the leg (unit: seconds)
  float force = 0.0f;       ///< magnitude of a push
  float push_time = 0.0f;   ///< duration of a push (unit: seconds)
};

/// What a step on a leg came to.
enum class LegStep { kArrived, kOutOfTime, kPushed };

/// Takes a step of `dt` seconds on a leg. `time` is the time spent on the leg so far; a push adds
/// `dt` to it, anything else sets it to 0.
///
/// An object that arrives is stopped and put on the goal. Deliberately only its world position is,
/// which the next derivation overwrites: the object stays where it is, near enough. `object` needs
/// a Transform and a RigidBody.
LegStep FollowLeg(GameObj* object, const Leg& leg, float dt, float* time);

/// Pushes `object` in the direction of `offset` with a force for a time (unit: seconds).
void PushAlong(const GameObj& object, const Vector3D& offset, float force, float push_time);

/// Takes away an object's velocity. Forces that still act on it go on.
void Halt(GameObj* object);

}  // namespace ZOVEngine
