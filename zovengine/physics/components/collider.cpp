#include "physics/components/collider.h"

#include <algorithm>
#include <cmath>

#include "core/engine.h"
#include "physics/components/transform.h"

namespace ZOVEngine {
namespace {

struct LineStyle {
  float width, r, g, b, a;
};

constexpr LineStyle kBoundsStyle = {1.5f, 1.0f, 1.0f, 0.0f, 0.7f};
constexpr LineStyle kEdgeStyle = {1.0f, 0.4f, 0.4f, 0.0f, 0.7f};

void SendLine(const Vector3D& from, const Vector3D& to, const LineStyle& style) {
  DrawLine line(from, to, style.width, style.r, style.g, style.b, style.a);
  g_engine->Broadcast(&line);
}

/// The corners of the square of side 1, clockwise from the upper left.
constexpr Vector3D kUnitCorners[4] = {
    {-0.5f, 0.5f, 0.0f}, {0.5f, 0.5f, 0.0f}, {0.5f, -0.5f, 0.0f}, {-0.5f, -0.5f, 0.0f}};

/// A rotation about z: the four elements of its matrix that differ from the identity's. Shapes are
/// placed in every step, and whole matrices would cost most of that time.
class Turn {
 public:
  explicit Turn(float degrees) {
    const float radians = DegreesToRadians(degrees);
    m_xx = m_yy = std::cos(radians);
    m_yx = std::sin(radians);
    m_xy = -m_yx;
  }

  /// This rotation after `b`: the product of the two matrices.
  Turn operator*(const Turn& b) const {
    Turn out = *this;
    out.m_xx = m_xx * b.m_xx + m_xy * b.m_yx;
    out.m_xy = m_xx * b.m_xy + m_xy * b.m_yy;
    out.m_yx = m_yx * b.m_xx + m_yy * b.m_yx;
    out.m_yy = m_yx * b.m_xy + m_yy * b.m_yy;
    return out;
  }

  Vector3D Apply(const Vector3D& v) const {
    return Vector3D(m_xx * v.x + m_xy * v.y, m_yx * v.x + m_yy * v.y, v.z);
  }

 private:
  float m_xx, m_xy, m_yx, m_yy;
};

Vector3D PerAxis(const Vector3D& a, const Vector3D& b) {
  return Vector3D(a.x * b.x, a.y * b.y, a.z * b.z);
}

}  // namespace

void iCollider::DrawDebug() const {
  const Vector3D upper_left(m_min.x, m_max.y, 1.0f);
  const Vector3D lower_right(m_max.x, m_min.y, 1.0f);
  SendLine(m_min, upper_left, kBoundsStyle);
  SendLine(upper_left, m_max, kBoundsStyle);
  SendLine(m_max, lower_right, kBoundsStyle);
  SendLine(lower_right, m_min, kBoundsStyle);
}

void iCollider::MoveLocal(const Vector3D& position) {
  const Vector3D by = position - m_local_pos;
  m_local_min += by;
  m_local_max += by;
  m_local_pos += by;
}

std::shared_ptr<iCollider> PolygonCollider::Clone() const {
  return std::make_shared<PolygonCollider>(*this);
}

void PolygonCollider::MoveLocal(const Vector3D& position) {
  const Vector3D by = position - m_local_pos;
  for (Vector3D& vertex : m_local_vertices) vertex += by;
  iCollider::MoveLocal(position);
}

void PolygonCollider::DrawDebug() const {
  iCollider::DrawDebug();
  const std::size_t count = m_world_vertices.size();
  for (std::size_t i = 0; i < count; ++i) {
    SendLine(m_world_vertices[i], m_world_vertices[(i + 1) % count], kEdgeStyle);
  }
}

void PolygonCollider::UpdateCollider(const Transform& transform) {
  const float scale_x = transform.m_world_scale.x * m_local_scale.x;
  const float scale_y = transform.m_world_scale.y * m_local_scale.y;
  const Turn object_turn(transform.m_world_rotate);
  // Most shapes are not turned within their object; a turn by nothing changes nothing.
  const Turn turn = m_local_rot == 0.0f ? object_turn : object_turn * Turn(m_local_rot);
  const Vector3D shift(transform.m_world_pos.x, transform.m_world_pos.y, 0.0f);

  m_center = object_turn.Apply(m_local_pos) + shift;
  m_world_vertices.resize(m_local_vertices.size());
  for (std::size_t i = 0; i < m_local_vertices.size(); ++i) {
    const Vector3D& local = m_local_vertices[i];
    m_world_vertices[i] =
        turn.Apply(Vector3D(scale_x * local.x, scale_y * local.y, local.z)) + shift;
  }
  if (m_world_vertices.empty()) return;
  m_min = m_max = m_world_vertices.front();
  for (const Vector3D& vertex : m_world_vertices) {
    for (int axis = 0; axis < 3; ++axis) {
      m_min.v[axis] = std::min(m_min.v[axis], vertex.v[axis]);
      m_max.v[axis] = std::max(m_max.v[axis], vertex.v[axis]);
    }
  }
}

BoxCollider::BoxCollider(const Transform& transform) {
  for (const Vector3D& corner : kUnitCorners) m_local_vertices.push_back(m_local_pos + corner);
  m_local_max = m_local_vertices[1];
  m_center = m_local_pos;
  for (const Vector3D& corner : kUnitCorners) {
    m_world_vertices.push_back(m_center + PerAxis(corner, transform.m_local_scale));
  }
  m_world_vertices[0].z = m_world_vertices[2].z = 1.0f;
  m_world_vertices[1].z = m_center.z + transform.m_local_scale.z * 0.5f;
  m_world_vertices[3].z = m_center.z - transform.m_local_scale.z * 0.5f;
  m_max = m_world_vertices[1];
  m_min = m_world_vertices[3];
}

std::shared_ptr<iCollider> BoxCollider::Clone() const {
  return std::make_shared<BoxCollider>(*this);
}

CircleCollider::CircleCollider(const Transform& transform) {
  m_center = transform.m_world_pos;
  m_radius = transform.m_world_scale.x * 0.5f;
  m_max = m_center + transform.m_world_scale * 0.5f;
  m_min = m_center - transform.m_world_scale * 0.5f;
}

std::shared_ptr<iCollider> CircleCollider::Clone() const {
  return std::make_shared<CircleCollider>(*this);
}

void CircleCollider::UpdateCollider(const Transform& transform) {
  m_radius = m_local_scale.x * transform.m_world_scale.x * 0.5f;
  m_center = (Turn(transform.m_world_rotate) * Turn(m_local_rot)).Apply(m_local_pos);
  m_center.x += transform.m_world_pos.x;
  m_center.y += transform.m_world_pos.y;
  const Vector3D reach(m_radius, m_radius, 0.0f);
  m_max = m_center + reach;
  m_min = m_center - reach;
}

}  // namespace ZOVEngine
