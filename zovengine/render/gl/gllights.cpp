#include "render/gl/gllights.h"

#include <algorithm>

namespace ZOVEngine {

namespace {

std::size_t SeenLights(const std::vector<LightRecord>& lights) {
  return std::min(lights.size(), static_cast<std::size_t>(kMaxLights));
}

void Append(std::vector<float>* packed, const Vector3D& xyz, float w) {
  packed->insert(packed->end(), {xyz.x, xyz.y, xyz.z, w});
}

}  // namespace

void NearLights::Add(std::size_t light) {
  if (count < kNearLights) {
    const int shift = 8 * (count % 4);
    std::uint32_t& word = packed[count / 4];
    word = (word & ~(255u << shift)) | static_cast<std::uint32_t>(light) << shift;
  }
  ++count;
}

LightClass NearLights::Class() const {
  if (count == 0) return LightClass::kNone;
  if (count <= 2) return LightClass::kTwo;
  if (count <= 4) return LightClass::kFour;
  return count <= kNearLights ? LightClass::kEight : LightClass::kEvery;
}

void LightField::Gather(const std::vector<LightRecord>& lights, float reach) {
  m_reach = reach;
  m_lights.clear();
  for (std::size_t i = 0; i < SeenLights(lights); ++i) {
    m_lights.push_back({lights[i].position.x, lights[i].position.y, static_cast<std::uint32_t>(i)});
  }
}

WorldBox LightField::LitPart(const WorldBox& box) const {
  if (m_reach <= 0.0f) return box;
  WorldBox lit{box.right, box.left, box.top, box.bottom};
  for (const Entry& light : m_lights) {
    if (!Meets(light, box)) continue;
    lit.left = std::max(box.left, std::min(lit.left, light.x - m_reach));
    lit.right = std::min(box.right, std::max(lit.right, light.x + m_reach));
    lit.bottom = std::max(box.bottom, std::min(lit.bottom, light.y - m_reach));
    lit.top = std::min(box.top, std::max(lit.top, light.y + m_reach));
  }
  return lit;
}

void LightField::Narrow(const WorldBox& box) {
  m_narrowed.clear();
  for (const Entry& light : m_lights) {
    if (Meets(light, box)) m_narrowed.push_back(light);
  }
}

NearLights LightField::CollectNear(const std::vector<Entry>& lights, const WorldBox& box) const {
  NearLights near;
  for (const Entry& light : lights) {
    if (Meets(light, box)) near.Add(light.number);
  }
  return near;
}

bool LightField::Meets(const Entry& light, const WorldBox& box) const {
  if (m_reach <= 0.0f) return true;
  const float dx = light.x - std::clamp(light.x, box.left, box.right);
  const float dy = light.y - std::clamp(light.y, box.bottom, box.top);
  return !(dx * dx + dy * dy > m_reach * m_reach);
}

void PackLights(const std::vector<LightRecord>& lights, std::vector<float>* packed) {
  packed->clear();
  for (std::size_t i = 0; i < SeenLights(lights); ++i) {
    const LightRecord& light = lights[i];
    const Vector3D gloss = light.specular * light.specularStr * kMaterialSpecular;
    Append(packed, light.position, gloss.x);
    Append(packed, light.ambient * light.ambientStr, gloss.y);
    Append(packed, light.diffuse * light.diffuseStr, gloss.z);
  }
}

}  // namespace ZOVEngine
