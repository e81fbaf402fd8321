#pragma once

#include <cstdint>
#include <limits>

namespace ZOVEngine {

/// `value` without its fraction, towards zero. What an int32 cannot hold, a NaN included, becomes
/// the lowest int32, which is the place of no tile of any map.
inline std::int32_t Truncate(float value) {
  constexpr float kBeyond = 2147483648.0f;
  if (!(value >= -kBeyond && value < kBeyond)) return std::numeric_limits<std::int32_t>::min();
  return static_cast<std::int32_t>(value);
}

/// One number for a point of whole coordinates, for tables that are searched by points.
inline std::uint64_t PointKey(std::int32_t x, std::int32_t y) {
  return std::uint64_t{static_cast<std::uint32_t>(x)} << 32 | static_cast<std::uint32_t>(y);
}

}  // namespace ZOVEngine
