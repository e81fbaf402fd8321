#include "editor/canvas/objectbounds.h"

#include <algorithm>
#include <cmath>

#include "editor/canvas/sceneindex.h"
#include "physics/components/colliderholder.h"
#include "physics/components/transform.h"
#include "render/components/render.h"

namespace ZOVEngine {
namespace {

iCollider* FindShape(const SceneEntry& entry) {
  return entry.collider != nullptr ? entry.collider->m_collider.get() : nullptr;
}

/// Whether `point` is in a polygon, by the number of edges to its right.
bool IsInPolygon(const std::vector<Vector3D>& vertices, const Vector3D& point) {
  bool inside = false;
  for (std::size_t i = 0, j = vertices.size() - 1; i < vertices.size(); j = i++) {
    const Vector3D &a = vertices[i], &b = vertices[j];
    if ((a.y > point.y) == (b.y > point.y)) continue;
    if (a.x + (b.x - a.x) * (point.y - a.y) / (b.y - a.y) > point.x) inside = !inside;
  }
  return inside;
}

bool IsInShape(iCollider* shape, const Vector3D& point) {
  if (const auto* circle = dynamic_cast<const CircleCollider*>(shape)) {
    return std::hypot(point.x - circle->m_center.x, point.y - circle->m_center.y) <=
           circle->m_radius;
  }
  const auto* polygon = dynamic_cast<const PolygonCollider*>(shape);
  return polygon != nullptr && IsInPolygon(polygon->m_world_vertices, point);
}

/// Too far away to be hit, whatever the rotation.
bool IsBeyond(const Transform& transform, const Vector3D& point) {
  const float dx = point.x - transform.m_world_pos.x, dy = point.y - transform.m_world_pos.y;
  const Vector3D& scale = transform.m_world_scale;
  return 4.0f * (dx * dx + dy * dy) > scale.x * scale.x + scale.y * scale.y;
}

ObjectBounds ImageBounds(const Transform& transform) {
  return {transform.m_world_pos, std::abs(transform.m_world_scale.x) * 0.5f,
          std::abs(transform.m_world_scale.y) * 0.5f, DegreesToRadians(transform.m_world_rotate)};
}

ObjectBounds HandleBounds(const Transform& transform, float units_per_pixel) {
  const float half = kHandlePixels * units_per_pixel;
  return {transform.m_world_pos, half, half, 0.0f};
}

}  // namespace

bool ObjectBounds::Contains(const Vector3D& point) const {
  const float dx = point.x - middle.x, dy = point.y - middle.y;
  const float cosine = std::cos(angle), sine = std::sin(angle);
  return std::abs(dx * cosine + dy * sine) <= half_width &&
         std::abs(dy * cosine - dx * sine) <= half_height;
}

std::array<Vector3D, 4> ObjectBounds::Corners() const {
  const float cosine = std::cos(angle), sine = std::sin(angle);
  const auto corner = [&](float x, float y) {
    return Vector3D(middle.x + x * cosine - y * sine, middle.y + x * sine + y * cosine, 0.0f);
  };
  return {corner(-half_width, -half_height), corner(half_width, -half_height),
          corner(half_width, half_height), corner(-half_width, half_height)};
}

bool HasVisibleImage(const SceneEntry& entry) {
  return entry.render != nullptr && entry.render->m_visible && entry.render->m_colour[3] > 0.0f;
}

ObjectBounds FindBounds(const SceneEntry& entry, float units_per_pixel) {
  if (HasVisibleImage(entry)) return ImageBounds(*entry.transform);
  iCollider* shape = FindShape(entry);
  if (shape == nullptr) return HandleBounds(*entry.transform, units_per_pixel);
  shape->UpdateCollider(*entry.transform);
  return {(shape->m_min + shape->m_max) * 0.5f, (shape->m_max.x - shape->m_min.x) * 0.5f,
          (shape->m_max.y - shape->m_min.y) * 0.5f, 0.0f};
}

bool IsHit(const SceneEntry& entry, const Vector3D& point, float units_per_pixel) {
  if (entry.transform == nullptr) return false;
  if (HasVisibleImage(entry)) {
    return !IsBeyond(*entry.transform, point) && ImageBounds(*entry.transform).Contains(point);
  }
  iCollider* shape = FindShape(entry);
  if (shape == nullptr) return HandleBounds(*entry.transform, units_per_pixel).Contains(point);
  shape->UpdateCollider(*entry.transform);
  return IsInShape(shape, point);
}

}  // namespace ZOVEngine
