#pragma once

#include <bit>
#include <cstdint>

#include "core/base/vector3d.h"

namespace ZOVEngine {

/// Four floats in one register, by an extension that GCC and Clang share. Each lane is rounded as a
/// single float is, and without vector instructions the compiler computes lane by lane, so results
/// are the same on every processor.
using Lanes = float __attribute__((vector_size(4 * sizeof(float))));

/// The lesser float of each lane; `b` where the two are equal or one is not a number.
inline Lanes Lesser(const Lanes& a, const Lanes& b) {
  return a < b ? a : b;
}
/// The greater float of each lane; `b` where the two are equal or one is not a number.
inline Lanes Greater(const Lanes& a, const Lanes& b) {
  return a > b ? a : b;
}

/// The result of comparing lanes: -1 in each lane where the comparison holds, 0 in the others.
using LaneMask = std::int32_t __attribute__((vector_size(4 * sizeof(std::int32_t))));

/// True if the mask is set for any lane.
inline bool Any(const LaneMask& mask) {
  using Halves = std::int64_t __attribute__((vector_size(2 * sizeof(std::int64_t))));
  const auto halves = std::bit_cast<Halves>(mask);
  return (halves[0] | halves[1]) != 0;
}

/// The vector in the first three lanes, 0 in the last.
inline Lanes ToLanes(const Vector3D& v) {
  return Lanes{v.x, v.y, v.z, 0.0f};
}
/// The vector of the first three lanes.
inline Vector3D ToVector(const Lanes& lanes) {
  return Vector3D(lanes[0], lanes[1], lanes[2]);
}

}  // namespace ZOVEngine
