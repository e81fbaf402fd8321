#include "render/passes/instancedpass.h"

#include <cmath>

#include "render/painter.h"
#include "render/passes/placement.h"

namespace ZOVEngine {
namespace {

/// Translation times scale times rotation, flat at z 0.
Matrix4x4 InstanceMatrix(const Transform& transform) {
  const float angle = transform.m_world_rotate * kRadiansPerDegree;
  const float cosine = std::cos(angle);
  const float sine = std::sin(angle);
  const Vector3D& scale = transform.m_world_scale;
  Matrix4x4 out = Matrix4x4::Translation(transform.m_world_pos.x, transform.m_world_pos.y);
  out.m[0] = scale.x * cosine;
  out.m[1] = scale.x * -sine;
  out.m[4] = scale.y * sine;
  out.m[5] = scale.y * cosine;
  return out;
}

}  // namespace

void InstancedPass(const std::vector<Sprite>& particles, Painter& painter) {
  std::vector<Matrix4x4>& instances = painter.GetFrame().instances;
  const Render* first = nullptr;
  for (std::size_t i = 0; i < particles.size(); ++i) {
    PrefetchAhead(particles, i);
    const Sprite& sprite = particles[i];
    if (!sprite.render->m_visible) continue;
    ZOV_ASSERT(instances.size() < kMaxInstances, "More than 150000 instanced particles");
    if (first == nullptr) first = sprite.render;
    instances.push_back(InstanceMatrix(sprite.GetTransform()));
  }
  if (first == nullptr) return;
  painter.BindTexture(first->m_tex);
  painter.DrawInstances(first->m_colour);
}

}  // namespace ZOVEngine
