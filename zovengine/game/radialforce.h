#pragma once

namespace ZOVEngine {

class GameObj;
class RigidBody;

/// A force on a body away from `centre`, or towards it with a negative `strength`: of a shot's hit,
/// or of one step of a hole.
///
/// It is the same at all distances: the direction has the length of the distance, which the
/// magnitude divides by. A body at the very centre, as a shot itself, has no direction to go and
/// gets none. Nor does a body that is switched off: the physics would neither apply nor drop the
/// force, and forces would pile up in memory.
void ApplyRadialForce(GameObj* centre, const RigidBody* body, float strength);

/// The distance between the world positions of two objects, depth included (unit: world units);
/// infinite if one has no place.
float DistanceBetween(GameObj* one, GameObj* other);

}  // namespace ZOVEngine
