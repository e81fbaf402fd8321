#pragma once

#include <cstdint>
#include <vector>

#include "render/frame.h"
#include "render/gl/glprogram.h"

namespace ZOVEngine {

/// A rectangle along the axes of the world (unit: world units).
struct WorldBox {
  float left = 0.0f;
  float right = 0.0f;
  float bottom = 0.0f;
  float top = 0.0f;
};

/// The lamps that can reach a place, as a vertex carries them: numbers of eight bits each, filled
/// up with the dark lamp.
struct NearLights {
  static constexpr std::uint32_t kAllDark = 0x01010101u * static_cast<std::uint32_t>(kMaxLights);

  int count = 0;  ///< of all lamps that reach, though only kNearLamps fit into `packed`
  std::uint32_t packed[2] = {kAllDark, kAllDark};

  bool operator==(const NearLights&) const = default;
  /// Adds a lamp; beyond kNearLamps it only counts.
  void Add(std::size_t lamp);
  /// The smallest class that evaluates them all.
  LightClass Class() const;
};

/// The lights of a frame, and which of them can be seen where.
///
/// A light has no effect at all beyond its reach, measured in the plane, so a sprite leaves out
/// those whose circle its box does not meet. Holds what the shaders can: the first kMaxLights of
/// the frame. A reach of 0 stands for a program whose reach is unknown: then every light is near
/// everything.
class LightField {
 public:
  /// Takes over the frame's lights for programs that see `reach` far (unit: world units).
  void Gather(const std::vector<LightRecord>& lights, float reach);

  /// The lamps whose circle meets the box.
  NearLights Near(const WorldBox& box) const;
  /// The part of `box` outside which no light is seen; its sides are crossed when there is none.
  WorldBox LitPart(const WorldBox& box) const;
  /// Keeps for the next calls of NearAmong only those lamps that meet the box.
  void Narrow(const WorldBox& box);
  /// As Near, among the lamps that the last Narrow kept.
  NearLights NearAmong(const WorldBox& box) const;

  /// Number of lights, clamped to kMaxLights.
  int Size() const { return static_cast<int>(m_places.size()); }

 private:
  struct Place {
    float x;
    float y;
    std::uint32_t number;
  };

  bool Meets(const Place& place, const WorldBox& box) const;

  std::vector<Place> m_places;
  std::vector<Place> m_narrowed;
  float m_reach = 0.0f;
};

/// The lights as programs with lamps get them, three vectors each: place and red of the specular
/// colour, ambient and green, diffuse and blue; colours times strengths, specular times material.
void PackLamps(const std::vector<LightRecord>& lights, std::vector<float>* lamps);

}  // namespace ZOVEngine
