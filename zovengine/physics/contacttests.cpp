#include "physics/contacttests.h"

#include <array>
#include <cmath>
#include <limits>

namespace ZOVEngine {
namespace {

constexpr float kFarthest = std::numeric_limits<float>::max();

const PolygonCollider& AsPolygon(const ColliderHolder& holder) {
  return static_cast<const PolygonCollider&>(*holder.m_collider);
}

const CircleCollider& AsCircle(const ColliderHolder& holder) {
  return static_cast<const CircleCollider&>(*holder.m_collider);
}

Vector3D Negated(const Vector3D& v) {
  return Vector3D(-v.x, -v.y, -v.z);
}

/// The unit normal of an edge: its direction turned by a quarter, counter-clockwise.
Vector3D EdgeNormal(const Vector3D& from, const Vector3D& to) {
  return Vector3D(-(to.y - from.y), to.x - from.x, 0.0f).Normalized();
}

struct Range {
  float min, max;
};

/// The extent of the vertices along an axis that has no depth.
Range Project(const std::vector<Vector3D>& vertices, const Vector3D& axis) {
  Range range;
  range.min = range.max = vertices[0].x * axis.x + vertices[0].y * axis.y;
  for (std::size_t i = 1; i < vertices.size(); ++i) {
    const float at = vertices[i].x * axis.x + vertices[i].y * axis.y;
    range.min = at < range.min ? at : range.min;
    range.max = at > range.max ? at : range.max;
  }
  return range;
}

/// The axis along which two polygons overlap least.
struct LeastOverlap {
  /// False if the two are apart along `axis`, given what they cover of it; touching is not apart.
  bool Add(const Vector3D& along, const Range& a, const Range& b) {
    if (b.max < a.min || a.max < b.min) return false;
    Keep(along, b.max > a.max ? a.max - b.min : b.max - a.min);
    return true;
  }

  /// The first of equal overlaps stays.
  void Keep(const Vector3D& along, float overlap) {
    if (!(overlap < depth)) return;
    depth = overlap;
    axis = along;
  }

  void Store(const PolygonCollider& a, const PolygonCollider& b, ContactInfo* contact) const {
    contact->collided = true;
    contact->normal = axis;
    if (Dot(a.m_center - b.m_center, axis) < 0.0f) contact->normal = Negated(axis);
    contact->normal = contact->normal.Normalized();
    contact->penetration = depth;
  }

  Vector3D axis;
  float depth = kFarthest;
};

/// The four axes of two boxes side by side, and what the boxes cover of them.
struct BoxAxes {
  BoxAxes(const BoxOutline& a, const BoxOutline& b)
      : x(LastCorner(a.y, b.y) - ItsNeighbours(a.y, b.y)),
        y(ItsNeighbours(a.x, b.x) - LastCorner(a.x, b.x)) {
    const Lanes squares = x * x + y * y;
    const Lanes lengths = {std::sqrt(squares[0]), std::sqrt(squares[1]), std::sqrt(squares[2]),
                           std::sqrt(squares[3])};
    const Lanes none = {};
    x = lengths == none ? none : x / lengths;
    y = lengths == none ? none : y / lengths;
    Cover(a, &min_a, &max_a);
    Cover(b, &min_b, &max_b);
  }

  // Of both boxes, the ends of the two edges that meet in their last corner.
  static Lanes LastCorner(const Lanes& a, const Lanes& b) {
    return __builtin_shufflevector(a, b, 3, 3, 7, 7);
  }
  static Lanes ItsNeighbours(const Lanes& a, const Lanes& b) {
    return __builtin_shufflevector(a, b, 0, 2, 4, 6);
  }

  void Cover(const BoxOutline& box, Lanes* min, Lanes* max) const {
    *min = *max = box.x[0] * x + box.y[0] * y;
    for (int corner = 1; corner < 4; ++corner) {
      const Lanes at = box.x[corner] * x + box.y[corner] * y;
      *min = Lesser(at, *min);
      *max = Greater(at, *max);
    }
  }

  /// True if one of the axes separates the boxes.
  bool Apart() const { return Any((max_b < min_a) | (max_a < min_b)); }
  Lanes Overlaps() const { return max_b > max_a ? max_a - min_b : max_b - min_a; }
  Vector3D Axis(int k) const { return Vector3D(x[k], y[k], 0.0f); }

  static constexpr int kAxes = 4;
  Lanes x, y;
  Lanes min_a, max_a, min_b, max_b;
};

/// Adds the axes of the edges of `polygon`; false if `a` and `b` are apart along one of them.
bool OverlapAlongEdges(const PolygonCollider& polygon, const PolygonCollider& a,
                       const PolygonCollider& b, LeastOverlap* least) {
  const std::vector<Vector3D>& v = polygon.m_world_vertices;
  for (std::size_t i = 0; i < v.size(); ++i) {
    const Vector3D axis = EdgeNormal(v[i], v[(i + 1) % v.size()]);
    if (!least->Add(axis, Project(a.m_world_vertices, axis), Project(b.m_world_vertices, axis))) {
      return false;
    }
  }
  return true;
}

std::size_t FarthestVertex(const std::vector<Vector3D>& vertices, const Vector3D& axis) {
  std::size_t best = 0;
  float farthest = Dot(vertices[0], axis);
  for (std::size_t i = 1; i < vertices.size(); ++i) {
    const float at = Dot(vertices[i], axis);
    if (at > farthest) {
      farthest = at;
      best = i;
    }
  }
  return best;
}

/// A point of a polygon's outline, the edge that it is on, and its squared distance in the plane.
struct NearPoint {
  Vector3D point;
  Vector3D from;
  Vector3D to;
  float distance2 = kFarthest;
};

/// The point of the segment from `a` to `b` nearest to `c`.
Vector3D NearestOnEdge(const Vector3D& c, const Vector3D& a, const Vector3D& b) {
  const Vector3D edge = b - a;
  const float t = Dot(c - a, edge);
  const float length2 = Dot(edge, edge);
  if (t <= 0.0f) return a;
  if (t >= length2) return b;
  return a + edge * t / length2;
}

/// The nearest of the outline's points that are within the squared distance `reach2`, edges in
/// order; the first found stays on a tie. Sets `*within` when there is any.
NearPoint NearestOnOutline(const std::vector<Vector3D>& v, const Vector3D& c, float reach2,
                           bool* within) {
  NearPoint best;
  for (std::size_t i = 0; i < v.size(); ++i) {
    const Vector3D& a = v[i];
    const Vector3D& b = v[i + 1 == v.size() ? 0 : i + 1];
    const Vector3D q = NearestOnEdge(c, a, b);
    const float dx = c.x - q.x;
    const float dy = c.y - q.y;
    const float distance2 = dx * dx + dy * dy;
    if (!(reach2 >= distance2)) continue;
    *within = true;
    if (distance2 < best.distance2) best = {q, a, b, distance2};
  }
  return best;
}

/// Counts how often a ray from `c` crosses the outline (Shimrat, 1962).
bool IsInside(const std::vector<Vector3D>& v, const Vector3D& c) {
  bool inside = false;
  for (std::size_t i = 0, j = v.size() - 1; i < v.size(); j = i++) {
    if ((v[i].y > c.y) == (v[j].y > c.y)) continue;
    const float x = (v[j].x - v[i].x) * (c.y - v[i].y) / (v[j].y - v[i].y) + v[i].x;
    if (c.x < x) inside = !inside;
  }
  return inside;
}

/// Sets the normal along `d` and the penetration to its length; a centre exactly on the outline has
/// the normal of the edge.
void StoreDistance(const Vector3D& d, const NearPoint& near, ContactInfo* contact) {
  if (d == Vector3D()) {
    contact->normal = EdgeNormal(near.from, near.to);
    contact->penetration = 0.0f;
    return;
  }
  contact->penetration = d.Length();
  contact->normal = d / contact->penetration;
}

}  // namespace

BoxOutline Outline(const PolygonCollider& box) {
  const Vector3D* const v = box.m_world_vertices.data();
  return {Lanes{v[0].x, v[1].x, v[2].x, v[3].x}, Lanes{v[0].y, v[1].y, v[2].y, v[3].y}};
}

bool AreApart(const BoxOutline& a, const BoxOutline& b) {
  return BoxAxes(a, b).Apart();
}

bool SatBox(const PolygonCollider& a, const PolygonCollider& b, ContactInfo* contact) {
  if (a.m_world_vertices.size() < 4 || b.m_world_vertices.size() < 4) return false;
  const BoxAxes axes(Outline(a), Outline(b));
  if (axes.Apart()) return false;
  LeastOverlap least;
  const Lanes overlaps = axes.Overlaps();
  for (int k = 0; k < BoxAxes::kAxes; ++k) least.Keep(axes.Axis(k), overlaps[k]);
  least.Store(a, b, contact);
  return true;
}

bool SatPolygon(const PolygonCollider& a, const PolygonCollider& b, ContactInfo* contact) {
  LeastOverlap least;
  if (!OverlapAlongEdges(a, a, b, &least) || !OverlapAlongEdges(b, a, b, &least)) return false;
  least.Store(a, b, contact);
  return true;
}

FacingEdge FindBestEdge(const PolygonCollider& polygon, const Vector3D& axis) {
  const std::vector<Vector3D>& vertices = polygon.m_world_vertices;
  const std::size_t count = vertices.size();
  const std::size_t best = FarthestVertex(vertices, axis);
  const Vector3D& v = vertices[best];
  const Vector3D& next = vertices[best + 1 == count ? 0 : best + 1];
  const Vector3D& prev = vertices[best == 0 ? count - 1 : best - 1];
  const Vector3D l = (v - next).Normalized();
  const Vector3D r = (v - prev).Normalized();
  if (Dot(axis, l) < Dot(axis, r)) return {v, v, next};
  return {v, prev, v};
}

ContactPoints ClipSegment(const Vector3D& p1, const Vector3D& p2, const Vector3D& normal,
                          float offset) {
  ContactPoints kept;
  const float d1 = Dot(normal, p1) - offset;
  const float d2 = Dot(normal, p2) - offset;
  if (d1 >= 0.0f) kept.push_back(p1);
  if (d2 >= 0.0f) kept.push_back(p2);
  if (d1 * d2 < 0.0f) kept.push_back(p1 + (p2 - p1) * d1 / (d1 - d2));
  return kept;
}

bool BuildManifold(const PolygonCollider& a, const PolygonCollider& b, ContactInfo* contact) {
  const Vector3D& n = contact->normal;
  const FacingEdge edge_a = FindBestEdge(a, Negated(n));
  const FacingEdge edge_b = FindBestEdge(b, n);
  const bool flip =
      !(std::abs(Dot(edge_b.end - edge_b.start, n)) > std::abs(Dot(edge_a.end - edge_a.start, n)));
  const FacingEdge& reference = flip ? edge_b : edge_a;
  const FacingEdge& incident = flip ? edge_a : edge_b;

  const Vector3D along = (reference.end - reference.start).Normalized();
  const ContactPoints ahead =
      ClipSegment(incident.start, incident.end, along, Dot(along, reference.start));
  if (ahead.size() < 2) return false;
  const ContactPoints clip =
      ClipSegment(ahead[0], ahead[1], Negated(along), -Dot(along, reference.end));
  if (clip.size() < 2) return false;

  const Vector3D side = Vector3D(-along.y, along.x, 0.0f) * (flip ? -1.0f : 1.0f);
  const float limit = Dot(side, reference.extreme);
  contact->contactPoints.clear();
  for (const Vector3D& point : clip) {
    if (!(Dot(side, point) - limit < 0.0f)) contact->contactPoints.push_back(point);
  }
  return true;
}

bool TestBoxBox(const ColliderHolder& a, const ColliderHolder& b, ContactInfo* contact) {
  return SatBox(AsPolygon(a), AsPolygon(b), contact) &&
         BuildManifold(AsPolygon(a), AsPolygon(b), contact);
}

bool TestPolygonPolygon(const ColliderHolder& a, const ColliderHolder& b, ContactInfo* contact) {
  if (AsPolygon(a).m_world_vertices.empty() || AsPolygon(b).m_world_vertices.empty()) return false;
  return SatPolygon(AsPolygon(a), AsPolygon(b), contact) &&
         BuildManifold(AsPolygon(a), AsPolygon(b), contact);
}

bool TestCircleCircle(const ColliderHolder& a, const ColliderHolder& b, ContactInfo* contact) {
  const CircleCollider& one = AsCircle(a);
  const CircleCollider& other = AsCircle(b);
  const Vector3D between = one.m_center - other.m_center;
  const float distance2 = Dot(between, between);
  const float reach = one.m_radius + other.m_radius;
  if (!(reach * reach > distance2)) return false;
  contact->collided = true;
  contact->normal = between.Normalized();
  contact->penetration = reach - std::sqrt(distance2);
  contact->contactPoints = {one.m_center + contact->normal * one.m_radius};
  return true;
}

bool TestCirclePolygon(const ColliderHolder& a, const ColliderHolder& b, ContactInfo* contact) {
  const CircleCollider& circle = AsCircle(a);
  const std::vector<Vector3D>& vertices = AsPolygon(b).m_world_vertices;
  if (vertices.empty()) return false;
  const Vector3D& c = circle.m_center;
  const float r = circle.m_radius;
  const bool inside = IsInside(vertices, c);
  contact->collided = inside;
  const float reach2 = inside ? std::numeric_limits<float>::infinity() : r * r;
  const NearPoint near = NearestOnOutline(vertices, c, reach2, &contact->collided);
  if (!contact->collided) return false;
  StoreDistance(inside ? near.point - c : c - near.point, near, contact);
  contact->contactPoints = {c - contact->normal * r};
  return true;
}

bool TestPolygonCircle(const ColliderHolder& a, const ColliderHolder& b, ContactInfo* contact) {
  if (!TestCirclePolygon(b, a, contact)) return false;
  contact->normal = Negated(contact->normal);
  return true;
}

}  // namespace ZOVEngine
