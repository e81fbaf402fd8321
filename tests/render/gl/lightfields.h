#pragma once

#include <cstdint>
#include <vector>

#include "render/gl/glframes.h"
#include "render/gl/gllights.h"

namespace carapace_test {

/// How far the lights of these tests reach (unit: world units).
inline constexpr float kReach = 300.0f;

/// The number of the light that stands at `i` in the list.
inline std::uint32_t LightIn(const ZOVEngine::NearLights& near, int i) {
  return near.packed[i / 4] >> (8 * (i % 4)) & 255u;
}

inline ZOVEngine::LightField Field(const std::vector<ZOVEngine::LightRecord>& lights,
                                   float reach = kReach) {
  ZOVEngine::LightField field;
  field.Gather(lights, reach);
  return field;
}

/// Lights that all stand at the origin.
inline std::vector<ZOVEngine::LightRecord> Crowd(int count) {
  return std::vector<ZOVEngine::LightRecord>(static_cast<std::size_t>(count), LightAt(0, 0));
}

}  // namespace carapace_test
