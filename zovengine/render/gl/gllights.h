#pragma once

#include <cstdint>
#include <vector>

#include "render/frame.h"
#include "render/gl/glbox.h"
#include "render/gl/glprogram.h"

namespace ZOVEngine {

/// The lights that can reach a sprite, as its vertices carry them: numbers of eight bits each. The
/// number kMaxLights, a dark light, fills the rest.
struct NearLights {
  static constexpr std::uint32_t kAllDark = 0x01010101u * static_cast<std::uint32_t>(kMaxLights);

  int count = 0;  ///< all lights that reach it, though only kNearLights fit into `packed`
  std::uint32_t packed[2] = {kAllDark, kAllDark};

  bool operator==(const NearLights&) const = default;
  /// Adds a light by its number; beyond kNearLights it only counts.
  void Add(std::size_t light);
  /// The smallest class that evaluates all of them.
  LightClass Class() const;
};

/// The lights of a frame in the plane, to be asked for those that reach a box.
///
/// A light has no effect at all beyond its reach, so a sprite leaves out the lights whose circle
/// its box does not meet. The shaders hold the first kMaxLights of a frame, and so does this. A
/// reach of 0 stands for a program whose reach is unknown: then every light is near everything.
class LightField {
 public:
  /// Takes over the frame's lights for programs that see `reach` far (unit: world units).
  void Gather(const std::vector<LightRecord>& lights, float reach);

  /// The lights whose circle meets the box.
  NearLights Near(const WorldBox& box) const { return FindNear(m_lights, box); }
  /// The part of `box` outside which no light is seen; its sides are crossed when there is none.
  WorldBox LitPart(const WorldBox& box) const;
  /// Keeps for the next calls of NearAmong only the lights that meet the box.
  void Narrow(const WorldBox& box);
  /// As Near, among the lights that the last Narrow kept.
  NearLights NearAmong(const WorldBox& box) const { return FindNear(m_narrowed, box); }

  /// Number of lights, clamped to kMaxLights.
  int Size() const { return static_cast<int>(m_lights.size()); }

 private:
  struct Entry {
    float x;
    float y;
    std::uint32_t number;
  };

  NearLights FindNear(const std::vector<Entry>& lights, const WorldBox& box) const {
    return lights.empty() ? NearLights() : CollectNear(lights, box);
  }
  NearLights CollectNear(const std::vector<Entry>& lights, const WorldBox& box) const;
  bool Meets(const Entry& light, const WorldBox& box) const;

  std::vector<Entry> m_lights;
  std::vector<Entry> m_narrowed;
  float m_reach = 0.0f;
};

/// The lights as the streamed programs take them, three vectors each: position and red of the
/// specular colour, ambient and green, diffuse and blue; colours times strengths, specular times
/// material.
void PackLights(const std::vector<LightRecord>& lights, std::vector<float>* packed);

}  // namespace ZOVEngine
