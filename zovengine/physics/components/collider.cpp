#include "physics/components/collider.h"

#include <algorithm>
#include <cmath>

#include "core/base/lanes.h"
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

  /// The factors of x and of y in the lanes x, y, z, 0 of the result. FromX keeps the depth.
  Lanes FromX() const { return Lanes{m_xx, m_yx, 1.0f, 0.0f}; }
  Lanes FromY() const { return Lanes{m_xy, m_yy, 0.0f, 0.0f}; }

 private:
  float m_xx, m_xy, m_yx, m_yy;
};

/// Scales, turns and moves the vertices of a polygon in the plane, all coordinates of one at once.
class VertexPlacement {
 public:
  VertexPlacement(float scale_x, float scale_y, const Turn& turn, const Vector3D& position)
      : m_scale{scale_x, scale_y, 1.0f, 0.0f},
        m_from_x(turn.FromX()),
        m_from_y(turn.FromY()),
        m_shift{position.x, position.y, 0.0f, 0.0f} {}

  Lanes Apply(const Vector3D& vertex) const {
    const Lanes scaled = ToLanes(vertex) * m_scale;
    const Lanes x_and_z = __builtin_shufflevector(scaled, scaled, 0, 0, 2, 3);
    const Lanes y = __builtin_shufflevector(scaled, Lanes{}, 1, 1, 4, 4);
    return x_and_z * m_from_x + y * m_from_y + m_shift;
  }

 private:
  Lanes m_scale, m_from_x, m_from_y, m_shift;
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
  const Turn object_turn(transform.m_world_rotate);
  // Most shapes are not turned within their object; a turn by nothing changes nothing.
  const Turn turn = m_local_rot == 0.0f ? object_turn : object_turn * Turn(m_local_rot);
  m_center = object_turn.Apply(m_local_pos);
  m_center += Vector3D(transform.m_world_pos.x, transform.m_world_pos.y, 0.0f);

  const std::size_t count = m_local_vertices.size();
  m_world_vertices.resize(count);
  if (count == 0) return;
  const VertexPlacement placement(transform.m_world_scale.x * m_local_scale.x,
                                  transform.m_world_scale.y * m_local_scale.y, turn,
                                  transform.m_world_pos);
  const Vector3D* const local = m_local_vertices.data();
  Vector3D* const world = m_world_vertices.data();
  Lanes min = placement.Apply(local[0]);
  Lanes max = min;
  world[0] = ToVector(min);
  for (std::size_t i = 1; i < count; ++i) {
    const Lanes vertex = placement.Apply(local[i]);
    min = Lesser(vertex, min);
    max = Greater(vertex, max);
    world[i] = ToVector(vertex);
  }
  m_min = ToVector(min);
  m_max = ToVector(max);
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
