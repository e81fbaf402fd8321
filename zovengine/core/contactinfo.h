#pragma once

#include <cstdint>

#include "core/base/fixedlist.h"
#include "core/base/vector3d.h"

namespace ZOVEngine {

/// The points of a contact: clipping one edge against another leaves two at most.
using ContactPoints = FixedList<Vector3D, 2>;

/// One contact between two objects, found by the collider system and resolved by the physics
/// system.
///
/// The normal points from object B towards object A. Points and velocities are in world units and
/// world units per second. A contact without points is a sensor: it moves nothing and calls nobody.
/// A pointer to a contact that a callback receives is valid for that call only.
struct ContactInfo {
  bool collided = false;      ///< the pair test found a contact
  std::uint32_t objectA = 0;  ///< object id of side A
  std::uint32_t objectB = 0;  ///< object id of side B
  Vector3D normal;            ///< unit length, from B towards A
  float penetration = 0.0f;   ///< depth (unit: world units)
  ContactPoints contactPoints;
  Vector3D relativeVelocity;    ///< of A against B at the point resolved last
  float normalVelocity = 0.0f;  ///< its part along the normal; negative means approaching
  bool ignored = false;         ///< no impulse and no positional correction
};

}  // namespace ZOVEngine
