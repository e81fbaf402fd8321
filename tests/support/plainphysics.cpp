#include "support/plainphysics.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "core/base/matrix4x4.h"
#include "core/engine.h"

namespace carapace_test {

using ZOVEngine::DegreesToRadians;
using ZOVEngine::Dot;
using ZOVEngine::kPi;
using ZOVEngine::kStep;
using ZOVEngine::Matrix4x4;

void PlainShape::SetType(const std::string& name) {
  type = name;
  local_vertices.clear();
  if (type != "Box") return;
  local_vertices = {Vector3D(-0.5f, 0.5f, 1.0f), Vector3D(0.5f, 0.5f, 1.0f),
                    Vector3D(0.5f, -0.5f, 1.0f), Vector3D(-0.5f, -0.5f, 1.0f)};
}

// Shapes

namespace {

void UpdatePolygon(const PlainTransform& t, PlainShape* shape) {
  shape->center = shape->local_pos;
  shape->world_vertices.resize(shape->local_vertices.size());
  for (std::size_t i = 0; i < shape->local_vertices.size(); ++i) {
    Vector3D& vertex = shape->world_vertices[i];
    vertex = (Matrix4x4::Scale(t.world_scale.x, t.world_scale.y) *
              Matrix4x4::Scale(shape->local_scale.x, shape->local_scale.y)) *
             shape->local_vertices[i];
    vertex = (Matrix4x4::Rotation(t.world_rotate) * Matrix4x4::Rotation(shape->local_rot)) * vertex;
    vertex.x += t.world_pos.x;
    vertex.y += t.world_pos.y;
  }
  shape->center = Matrix4x4::Rotation(t.world_rotate) * shape->center;
  shape->center.x += t.world_pos.x;
  shape->center.y += t.world_pos.y;
  if (shape->world_vertices.empty()) return;
  shape->min = shape->max = shape->world_vertices[0];
  for (const Vector3D& vertex : shape->world_vertices) {
    for (int axis = 0; axis < 3; ++axis) {
      if (vertex.v[axis] < shape->min.v[axis]) shape->min.v[axis] = vertex.v[axis];
      if (vertex.v[axis] > shape->max.v[axis]) shape->max.v[axis] = vertex.v[axis];
    }
  }
}

void UpdateCircle(const PlainTransform& t, PlainShape* shape) {
  shape->center = shape->local_pos;
  shape->radius = shape->local_scale.x * t.world_scale.x * 0.5f;
  shape->center =
      (Matrix4x4::Rotation(t.world_rotate) * Matrix4x4::Rotation(shape->local_rot)) * shape->center;
  shape->center.x += t.world_pos.x;
  shape->center.y += t.world_pos.y;
  shape->max = shape->center + Vector3D(shape->radius, shape->radius, 0.0f);
  shape->min = shape->center - Vector3D(shape->radius, shape->radius, 0.0f);
}

}  // namespace

void PlainUpdateShape(const PlainTransform& transform, PlainShape* shape) {
  if (shape->type == "Circle") {
    UpdateCircle(transform, shape);
  } else {
    UpdatePolygon(transform, shape);
  }
}

// Separating axes

namespace {

Vector3D Perpendicular(const Vector3D& edge) {
  return Vector3D(-edge.y, edge.x, 0.0f).Normalized();
}

std::vector<Vector3D> BoxAxes(const PlainShape& box) {
  const std::vector<Vector3D>& v = box.world_vertices;
  return {Perpendicular(v[0] - v[3]), Perpendicular(v[2] - v[3])};
}

std::vector<Vector3D> PolygonAxes(const PlainShape& polygon) {
  const std::vector<Vector3D>& v = polygon.world_vertices;
  std::vector<Vector3D> axes;
  for (std::size_t i = 0; i < v.size(); ++i) {
    axes.push_back(Perpendicular(v[(i + 1) % v.size()] - v[i]));
  }
  return axes;
}

void Project(const PlainShape& shape, const Vector3D& axis, float* low, float* high) {
  *low = *high = Dot(axis, shape.world_vertices[0]);
  for (const Vector3D& vertex : shape.world_vertices) {
    const float at = Dot(axis, vertex);
    if (at < *low) *low = at;
    if (at > *high) *high = at;
  }
}

bool Sat(const PlainShape& a, const PlainShape& b, const std::vector<Vector3D>& axes,
         PlainContact* contact) {
  float smallest = std::numeric_limits<float>::max();
  Vector3D kept;
  for (const Vector3D& axis : axes) {
    float min_a, max_a, min_b, max_b;
    Project(a, axis, &min_a, &max_a);
    Project(b, axis, &min_b, &max_b);
    if (max_b < min_a || max_a < min_b) return false;
    const float overlap = max_b > max_a ? max_a - min_b : max_b - min_a;
    if (overlap < smallest) {
      smallest = overlap;
      kept = axis;
    }
  }
  contact->collided = true;
  contact->normal = kept;
  if (Dot(a.center - b.center, contact->normal) < 0.0f) contact->normal = contact->normal * -1.0f;
  contact->normal = contact->normal.Normalized();
  contact->penetration = smallest;
  return true;
}

std::vector<Vector3D> Joined(std::vector<Vector3D> first, const std::vector<Vector3D>& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

// Clipping

struct BestEdge {
  Vector3D extreme, start, end;
  Vector3D Edge() const { return end - start; }
};

BestEdge FindBestEdge(const PlainShape& polygon, const Vector3D& axis) {
  const std::vector<Vector3D>& v = polygon.world_vertices;
  std::size_t best = 0;
  for (std::size_t i = 1; i < v.size(); ++i) {
    if (Dot(v[i], axis) > Dot(v[best], axis)) best = i;
  }
  const Vector3D at = v[best];
  const Vector3D next = v[(best + 1) % v.size()];
  const Vector3D prev = v[(best + v.size() - 1) % v.size()];
  const Vector3D l = (at - next).Normalized();
  const Vector3D r = (at - prev).Normalized();
  if (Dot(axis, l) < Dot(axis, r)) return {at, at, next};
  return {at, prev, at};
}

std::vector<Vector3D> ClipSegment(const Vector3D& p1, const Vector3D& p2, const Vector3D& n,
                                  float o) {
  std::vector<Vector3D> out;
  const float d1 = Dot(n, p1) - o;
  const float d2 = Dot(n, p2) - o;
  if (d1 >= 0.0f) out.push_back(p1);
  if (d2 >= 0.0f) out.push_back(p2);
  if (d1 * d2 < 0.0f) out.push_back(p1 + (p2 - p1) * d1 / (d1 - d2));
  return out;
}

bool BuildManifold(const PlainShape& a, const PlainShape& b, PlainContact* contact) {
  const Vector3D n = contact->normal;
  const BestEdge e1 = FindBestEdge(a, n * -1.0f);
  const BestEdge e2 = FindBestEdge(b, n);
  const bool flip = !(std::fabs(Dot(e2.Edge(), n)) > std::fabs(Dot(e1.Edge(), n)));
  const BestEdge reference = flip ? e2 : e1;
  const BestEdge incident = flip ? e1 : e2;

  const Vector3D refv = reference.Edge().Normalized();
  const float o1 = Dot(refv, reference.start);
  std::vector<Vector3D> clip = ClipSegment(incident.start, incident.end, refv, o1);
  if (clip.size() < 2) return false;
  const float o2 = Dot(refv, reference.end);
  clip = ClipSegment(clip[0], clip[1], refv * -1.0f, -o2);
  if (clip.size() < 2) return false;

  Vector3D refn(-refv.y, refv.x, 0.0f);
  if (flip) refn = refn * -1.0f;
  const float limit = Dot(refn, reference.extreme);
  contact->points.clear();
  for (const Vector3D& point : clip) {
    if (!(Dot(refn, point) - limit < 0.0f)) contact->points.push_back(point);
  }
  return true;
}

}  // namespace

bool PlainBoxBox(const PlainShape& a, const PlainShape& b, PlainContact* contact) {
  return Sat(a, b, Joined(BoxAxes(a), BoxAxes(b)), contact) && BuildManifold(a, b, contact);
}

bool PlainPolygonPolygon(const PlainShape& a, const PlainShape& b, PlainContact* contact) {
  if (a.world_vertices.empty() || b.world_vertices.empty()) return false;
  return Sat(a, b, Joined(PolygonAxes(a), PolygonAxes(b)), contact) && BuildManifold(a, b, contact);
}

// Circles

bool PlainCircleCircle(const PlainShape& a, const PlainShape& b, PlainContact* contact) {
  const Vector3D d = a.center - b.center;
  const float d2 = Dot(d, d);
  const float s = a.radius + b.radius;
  if (!(s * s > d2)) return false;
  contact->collided = true;
  contact->normal = d.Normalized();
  contact->penetration = s - std::sqrt(d2);
  contact->points = {a.center + contact->normal * a.radius};
  return true;
}

namespace {

bool CentreInside(const std::vector<Vector3D>& v, const Vector3D& c) {
  bool inside = false;
  for (std::size_t i = 0, j = v.size() - 1; i < v.size(); j = i++) {
    if ((v[i].y > c.y) == (v[j].y > c.y)) continue;
    const float x = (v[j].x - v[i].x) * (c.y - v[i].y) / (v[j].y - v[i].y) + v[i].x;
    if (x > c.x) inside = !inside;
  }
  return inside;
}

struct NearestEdge {
  bool found = false;
  Vector3D q, a, b;
};

Vector3D NearestOn(const Vector3D& a, const Vector3D& b, const Vector3D& c) {
  const float t = Dot(c - a, b - a);
  const float length = Dot(b - a, b - a);
  if (t <= 0.0f) return a;
  if (t >= length) return b;
  return a + (b - a) * t / length;
}

/// The nearest point of all edges whose squared distance is not above `reach`.
NearestEdge FindNearest(const std::vector<Vector3D>& v, const Vector3D& c, float reach) {
  NearestEdge nearest;
  float best = std::numeric_limits<float>::max();
  for (std::size_t i = 0; i < v.size(); ++i) {
    const Vector3D a = v[i];
    const Vector3D b = v[(i + 1) % v.size()];
    const Vector3D q = NearestOn(a, b, c);
    const float distance = (c.x - q.x) * (c.x - q.x) + (c.y - q.y) * (c.y - q.y);
    if (!(reach >= distance)) continue;
    nearest.found = true;
    if (distance < best) {
      best = distance;
      nearest.q = q;
      nearest.a = a;
      nearest.b = b;
    }
  }
  return nearest;
}

void FillFromEdge(const Vector3D& d, const NearestEdge& edge, PlainContact* contact) {
  if (d.x == 0.0f && d.y == 0.0f && d.z == 0.0f) {
    contact->normal = Perpendicular(edge.b - edge.a);
    contact->penetration = 0.0f;
  } else {
    contact->normal = d / d.Length();
    contact->penetration = d.Length();
  }
}

}  // namespace

bool PlainCirclePolygon(const PlainShape& a, const PlainShape& b, PlainContact* contact) {
  const Vector3D c = a.center;
  const float r = a.radius;
  contact->collided = CentreInside(b.world_vertices, c);
  if (!contact->collided) {
    const NearestEdge edge = FindNearest(b.world_vertices, c, r * r);
    contact->collided = edge.found;
    if (!contact->collided) return false;
    FillFromEdge(c - edge.q, edge, contact);
  } else {
    const NearestEdge edge =
        FindNearest(b.world_vertices, c, std::numeric_limits<float>::infinity());
    FillFromEdge(edge.q - c, edge, contact);
  }
  contact->points = {c - contact->normal * r};
  return true;
}

bool PlainPolygonCircle(const PlainShape& a, const PlainShape& b, PlainContact* contact) {
  if (!PlainCirclePolygon(b, a, contact)) return false;
  contact->normal = contact->normal * -1.0f;
  return true;
}

// Tree

int PlainPhysics::IndexIn(const PlainNode& node, std::uint32_t id) const {
  const PlainShape& shape = *objects[id].shape;
  const float mid_x = node.min.x + node.width * 0.5f;
  const float mid_y = node.min.y + node.height * 0.5f;
  const bool top = shape.min.y > mid_y && shape.max.y > mid_y;
  const bool bottom = shape.max.y < mid_y;
  if (shape.min.x < mid_x && shape.max.x < mid_x) return top ? 0 : bottom ? 3 : -1;
  if (shape.min.x > mid_x) return top ? 1 : bottom ? 2 : -1;
  return -1;
}

namespace {

constexpr int kMaxLevels = 5;
constexpr std::size_t kMaxObjects = 10;

PlainNode ChildOf(const PlainNode& node, bool high_x, bool high_y) {
  PlainNode child;
  child.level = node.level + 1;
  child.width = node.width * 0.5f;
  child.height = node.height * 0.5f;
  child.min = node.min;
  if (high_x) child.min.x += child.width;
  if (high_y) child.min.y += child.height;
  child.max = Vector3D(child.min.x + child.width, child.min.y + child.height, node.max.z);
  return child;
}

void Split(PlainNode* node) {
  node->children = {ChildOf(*node, false, true), ChildOf(*node, true, true),
                    ChildOf(*node, true, false), ChildOf(*node, false, false)};
}

}  // namespace

void PlainPhysics::Insert(PlainNode* node, std::uint32_t id) {
  int index = IndexIn(*node, id);
  while (!node->children.empty() && index != -1) {
    node = &node->children[static_cast<std::size_t>(index)];
    index = IndexIn(*node, id);
  }
  node->objects.push_back(id);
  if (node->objects.size() <= kMaxObjects || node->level >= kMaxLevels) return;
  if (node->children.empty()) Split(node);
  std::vector<std::uint32_t> staying;
  for (const std::uint32_t object : node->objects) {
    const int child = IndexIn(*node, object);
    if (child == -1) {
      staying.push_back(object);
    } else {
      Insert(&node->children[static_cast<std::size_t>(child)], object);
    }
  }
  node->objects = staying;
}

void PlainPhysics::Collect(const PlainNode& node, std::uint32_t id,
                           std::vector<std::uint32_t>* out) const {
  const int index = IndexIn(node, id);
  if (index != -1 && !node.children.empty()) {
    Collect(node.children[static_cast<std::size_t>(index)], id, out);
  }
  out->insert(out->end(), node.objects.begin(), node.objects.end());
}

// Finding contacts

bool PlainPhysics::CheckCollision(std::uint32_t a, std::uint32_t b, PlainContact* contact) {
  if (!objects[a].body && !objects[b].body) return false;
  const PlainShape& shape_a = *objects[a].shape;
  const PlainShape& shape_b = *objects[b].shape;
  const int mask_a = masks[shape_a.category];
  const int mask_b = masks[shape_b.category];
  if ((mask_a & mask_b) == 0) return false;
  if (shape_a.max.x < shape_b.min.x || shape_b.max.x < shape_a.min.x) return false;
  if (shape_a.max.y < shape_b.min.y || shape_b.max.y < shape_a.min.y) return false;
  const bool circle_a = shape_a.type == "Circle";
  const bool circle_b = shape_b.type == "Circle";
  if (circle_a && circle_b) return PlainCircleCircle(shape_a, shape_b, contact);
  if (circle_a) return PlainCirclePolygon(shape_a, shape_b, contact);
  if (circle_b) return PlainPolygonCircle(shape_a, shape_b, contact);
  if (shape_a.type == "Box" && shape_b.type == "Box") return PlainBoxBox(shape_a, shape_b, contact);
  return PlainPolygonPolygon(shape_a, shape_b, contact);
}

void PlainPhysics::UpdateColliders() {
  std::vector<std::uint32_t> working;
  for (std::uint32_t id = 0; id < objects.size(); ++id) {
    if (!objects[id].shape || !objects[id].shape->active) continue;
    PlainUpdateShape(objects[id].transform, &*objects[id].shape);
    working.push_back(id);
  }
  tree = PlainNode();
  for (const std::uint32_t id : working) Insert(&tree, id);
  FindContacts(working);
  std::vector<PlainContact> message = contacts;
  for (PlainContact& contact : message) Resolve(&contact);
}

std::vector<std::uint32_t> PlainPhysics::Candidates(std::uint32_t id) {
  std::vector<std::uint32_t> out;
  const int index = IndexIn(tree, id);
  if (index != -1 && !tree.children.empty()) {
    Collect(tree.children[static_cast<std::size_t>(index)], id, &out);
  }
  out.insert(out.end(), tree.objects.begin(), tree.objects.end());
  return out;
}

void PlainPhysics::FindContacts(const std::vector<std::uint32_t>& working) {
  contacts.clear();
  for (const std::uint32_t a : working) {
    for (const std::uint32_t b : Candidates(a)) {
      PlainContact contact;
      if (a == b) continue;
      if (!CheckCollision(a, b, &contact)) continue;
      contact.a = a;
      contact.b = b;
      const bool known = std::any_of(contacts.begin(), contacts.end(),
                                     [&](const PlainContact& c) { return c.a == b && c.b == a; });
      if (!known) contacts.push_back(contact);
    }
  }
}

// Resolving contacts

void PlainPhysics::Record(const PlainContact& contact) {
  current.push_back({contact.a, contact.b, contact});
}

namespace {

bool SamePair(const PlainPair& pair, std::uint32_t a, std::uint32_t b) {
  return (pair.a == a && pair.b == b) || (pair.a == b && pair.b == a);
}

}  // namespace

bool PlainPhysics::WasThere(const PlainContact& contact) const {
  return std::any_of(previous.begin(), previous.end(),
                     [&](const PlainPair& pair) { return SamePair(pair, contact.a, contact.b); });
}

void PlainPhysics::Call(std::uint32_t object, PlainEvent event, PlainContact* contact) {
  if (on_event) on_event(object, event, contact);
}

/// Stay to both and, when the pair is new, Enter to both.
void PlainPhysics::Announce(std::uint32_t first, std::uint32_t second, PlainContact* contact) {
  Record(*contact);
  const bool was_there = WasThere(*contact);
  Call(first, PlainEvent::kStay, contact);
  Call(second, PlainEvent::kStay, contact);
  if (was_there) return;
  Call(first, PlainEvent::kEnter, contact);
  Call(second, PlainEvent::kEnter, contact);
}

namespace {

/// Moves both positions.
void Place(PlainObject* object, const Vector3D& position) {
  object->transform.local_pos = position;
  object->transform.prev_pos = position;
}

/// Two components of p - centre.
Vector3D Arm(const Vector3D& p, const PlainShape& shape) {
  return Vector3D(p.x - shape.center.x, p.y - shape.center.y, 0.0f);
}

float Cross(const Vector3D& a, const Vector3D& b) {
  return a.x * b.y - a.y * b.x;
}

/// The velocity of the body at the arm `r`.
Vector3D VelocityAt(const PlainBody& body, const Vector3D& r) {
  const float w = DegreesToRadians(body.rot_vel);
  return Vector3D(body.vel.x - w * r.y, body.vel.y + w * r.x, body.vel.z);
}

void Impulse(PlainBody* a, PlainBody* b, const Vector3D& ra, const Vector3D& rb,
             const PlainContact& contact) {
  const Vector3D n = contact.normal;
  const float e = std::min(a->rest, b->rest);
  const float ca = Cross(ra, n);
  const float cb = Cross(rb, n);
  const float j = -(e + 1.0f) * contact.normal_velocity /
                  (a->inv_mass + b->inv_mass + ca * ca * a->inv_inertia + cb * cb * b->inv_inertia);
  const Vector3D p = n * j;
  a->vel.x += a->inv_mass * p.x;
  a->vel.y += a->inv_mass * p.y;
  a->vel.z = 0.0f;
  a->rot_vel += (p.y * ra.x - p.x * ra.y) * a->inv_inertia;
  b->vel.x -= b->inv_mass * p.x;
  b->vel.y -= b->inv_mass * p.y;
  b->vel.z = 0.0f;
  b->rot_vel -= (p.y * rb.x - p.x * rb.y) * b->inv_inertia;
}

void SingleImpulse(PlainBody* s, const Vector3D& r, float u, const Vector3D& n) {
  const float c = Cross(r, n);
  const float j = -(s->rest + 1.0f) * u / (s->inv_mass + c * c * s->inv_inertia);
  const Vector3D p = n * j;
  s->vel.x += p.x * s->inv_mass;
  s->vel.y += p.y * s->inv_mass;
  s->vel.z = 0.0f;
  s->rot_vel += (p.y * r.x - p.x * r.y) * s->inv_inertia;
}

}  // namespace

void PlainPhysics::Resolve(PlainContact* contact) {
  PlainObject& a = objects[contact->a];
  PlainObject& b = objects[contact->b];
  if (!a.body || !b.body) {
    ResolveSingle(contact);
    return;
  }
  if (std::isnan(contact->normal.x) || std::isnan(contact->normal.y)) {
    nan_normal = true;
    return;
  }
  if (contact->points.empty()) contact->ignored = true;
  for (const Vector3D& p : contact->points) {
    const Vector3D ra = Arm(p, *a.shape);
    const Vector3D rb = Arm(p, *b.shape);
    contact->relative_velocity = VelocityAt(*a.body, ra) - VelocityAt(*b.body, rb);
    contact->normal_velocity = Dot(contact->relative_velocity, contact->normal);
    Announce(contact->a, contact->b, contact);
    if (!contact->ignored && contact->normal_velocity < 0.0f) {
      Impulse(&*a.body, &*b.body, ra, rb, *contact);
    }
  }
  if (contact->ignored) return;
  const float depth = contact->penetration > 0.0f ? contact->penetration : 0.0f;
  const float q = depth / (a.body->inv_mass + b.body->inv_mass);
  const Vector3D c = contact->normal * q;
  Place(&a, a.transform.local_pos + c * a.body->inv_mass);
  Place(&b, b.transform.local_pos - c * b.body->inv_mass);
}

void PlainPhysics::ResolveSingle(PlainContact* contact) {
  const bool flip = !objects[contact->a].body;
  const std::uint32_t own = flip ? contact->b : contact->a;
  const std::uint32_t other = flip ? contact->a : contact->b;
  PlainObject& s = objects[own];
  if (!s.body) return;
  if (contact->points.empty()) contact->ignored = true;
  const Vector3D n = contact->normal;
  for (const Vector3D& p : contact->points) {
    const Vector3D r = Arm(p, *s.shape);
    const Vector3D v = VelocityAt(*s.body, r);
    const float u = v.x * n.x + v.y * n.y + v.z * n.z;
    Announce(own, other, contact);
    if (!contact->ignored && u < 0.0f) SingleImpulse(&*s.body, r, u, n);
  }
  if (contact->ignored) return;
  const Vector3D push = n * contact->penetration;
  Place(&s, flip ? s.transform.local_pos - push : s.transform.local_pos + push);
}

// Motion

void PlainPhysics::UpdateWorldTransforms() {
  for (PlainObject& object : objects) DeriveWorld(&object);
}

void PlainPhysics::DeriveWorld(PlainObject* object) {
  PlainTransform& t = object->transform;
  t.world_pos = t.local_pos;
  t.world_rotate = t.local_rotate;
  t.world_scale = t.local_scale;
  for (int up = object->parent; up != -1; up = objects[static_cast<std::size_t>(up)].parent) {
    const PlainTransform& a = objects[static_cast<std::size_t>(up)].transform;
    t.world_scale = Vector3D(t.world_scale.x * a.local_scale.x, t.world_scale.y * a.local_scale.y,
                             t.world_scale.z * a.local_scale.z);
    if (!t.rotate_with_parent) {
      t.world_pos = Vector3D(t.world_pos.x + a.local_pos.x, t.world_pos.y + a.local_pos.y, 1.0f);
      continue;
    }
    const Matrix4x4 turn = Matrix4x4::Rotation(a.local_rotate);
    const Matrix4x4 product = turn * Matrix4x4::Rotation(t.world_rotate);
    t.world_rotate = std::atan2(product.at[1][0], product.at[0][0]) * 180.0f / kPi;
    t.world_pos = (Matrix4x4::Translation(a.local_pos.x, a.local_pos.y) * turn) * t.world_pos;
  }
}

void PlainPhysics::DetectExits() {
  for (PlainPair& old : previous) {
    const bool lasts = std::any_of(current.begin(), current.end(), [&](const PlainPair& pair) {
      return SamePair(pair, old.a, old.b);
    });
    if (lasts) continue;
    Call(old.a, PlainEvent::kExit, &old.contact);
    Call(old.b, PlainEvent::kExit, &old.contact);
  }
}

namespace {

void Age(std::vector<PlainForce>* forces) {
  for (PlainForce& force : *forces) {
    if (force.active) force.age += kStep;
  }
  std::erase_if(*forces, [](const PlainForce& force) { return !force.active; });
  for (PlainForce& force : *forces) {
    if (!(force.lifetime > force.age)) force.active = false;
  }
}

void IntegrateLinear(PlainBody* body) {
  if (kStep * body->drag > 1.0f) {
    body->accel = Vector3D();
    body->vel = Vector3D();
    return;
  }
  Vector3D sum;
  for (const PlainForce& force : body->forces) {
    if (force.active) sum += force.direction * force.magnitude;
  }
  body->accel = sum * body->inv_mass;
  body->vel += body->accel * kStep;
  body->vel *= 1.0f - kStep * body->drag;
}

void IntegrateAngular(PlainBody* body) {
  if (kStep * body->angular_drag > 1.0f) {
    body->rot_accel = 0.0f;
    body->rot_vel = 0.0f;
    return;
  }
  float sum = 0.0f;
  for (const PlainForce& torque : body->torques) {
    if (torque.active) sum += torque.torque;
  }
  body->rot_accel = sum * body->inv_inertia;
  body->rot_vel += kStep * body->rot_accel;
  const float d = body->rot_vel * kStep * body->angular_drag;
  if (std::fabs(body->rot_vel) < std::fabs(d)) {
    body->rot_vel = 0.0f;
    body->rot_accel = 0.0f;
  } else {
    body->rot_vel -= d;
  }
}

}  // namespace

void PlainPhysics::Integrate(PlainObject* object) {
  PlainBody& body = *object->body;
  PlainTransform& t = object->transform;
  Age(&body.forces);
  Age(&body.torques);
  t.prev_pos = t.local_pos;
  t.prev_rotate = t.local_rotate;
  body.prev_vel = body.vel;
  IntegrateLinear(&body);
  IntegrateAngular(&body);
  t.local_rotate += kStep * body.rot_vel;
  t.local_pos += body.vel * kStep;
}

void PlainPhysics::UpdatePhysics(bool paused) {
  UpdateWorldTransforms();
  if (!paused) {
    DetectExits();
    previous = current;
    current.clear();
  }
  for (PlainObject& object : objects) {
    if (!object.body || !object.body->active) continue;
    if (paused && !object.moves_while_paused) continue;
    Integrate(&object);
  }
  UpdateWorldTransforms();
}

void PlainPhysics::Step(bool paused) {
  UpdateWorldTransforms();
  UpdatePhysics(paused);
  UpdateColliders();
}

void PlainPhysics::AddForce(std::uint32_t id, const Vector3D& direction, float magnitude,
                            float duration) {
  PlainForce force;
  force.lifetime = duration;
  force.direction = direction;
  force.magnitude = magnitude;
  objects[id].body->forces.push_back(force);
}

void PlainPhysics::AddTorque(std::uint32_t id, float torque, float duration) {
  PlainForce force;
  force.lifetime = duration;
  force.torque = torque;
  objects[id].body->torques.push_back(force);
}

}  // namespace carapace_test
