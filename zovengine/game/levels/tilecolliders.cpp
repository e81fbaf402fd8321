#include "game/levels/tilecolliders.h"

#include <cmath>

#include "game/levels/truncate.h"
#include "objects/gameobjfactory.h"
#include "physics/components/transform.h"

namespace ZOVEngine {
namespace {

constexpr const char* kColliderArchetype = "tilecollider";

// The corners of a box in the order of its shape: clockwise from the upper left. The first row says
// of each corner whether it lies on the right side, the second whether it lies on the upper side.
constexpr int kAxisX = 0;
constexpr int kAxisY = 1;
constexpr bool kHighCorner[2][4] = {{false, true, true, false}, {true, true, false, false}};

float Truncated(float value) {
  return static_cast<float>(Truncate(value));
}

void RequireArchetype(bool condition, const char* what) {
  ZOV_ASSERT(condition, std::string("Resources/Archetypes/GameObjects/") + kColliderArchetype +
                            ".json: the collider of tiles must " + what);
}

BoxCollider& GetBox(const ColliderHolder& holder) {
  auto* box = dynamic_cast<BoxCollider*>(holder.m_collider.get());
  RequireArchetype(box != nullptr, "be a Box");
  return *box;
}

/// Stretches the box from one edge to the other along an axis.
void Span(const ColliderHolder& holder, int axis, float one, float other) {
  BoxCollider& box = GetBox(holder);
  Transform& transform = *holder.m_owner->GetComponent<Transform>();
  const float size = std::abs(other - one);
  const float centre = (other + one) / 2;
  transform.m_local_scale.v[axis] = size;
  transform.m_prev_pos.v[axis] = transform.m_local_pos.v[axis] = centre;
  box.m_center.v[axis] = centre;
  box.m_min.v[axis] = centre - size / 2;
  box.m_max.v[axis] = centre + size / 2;
  for (int corner = 0; corner < 4; ++corner) {
    const Vector3D& edge = kHighCorner[axis][corner] ? box.m_max : box.m_min;
    box.m_world_vertices[static_cast<std::size_t>(corner)].v[axis] = edge.v[axis];
  }
}

ColliderHolder* MakeCollider(const Vector3D& position) {
  GameObj* object = g_game_obj_factory->Instantiate(kColliderArchetype, true);
  RequireArchetype(object->HasComponent<Transform>() && object->HasComponent<ColliderHolder>(),
                   "have a Transform and a ColliderHolder");
  object->SetPosition(position);
  Transform& transform = *object->GetComponent<Transform>();
  transform.m_world_pos = transform.m_local_pos;
  transform.m_world_scale = transform.m_local_scale;
  transform.m_world_rotate = transform.m_local_rotate;
  ColliderHolder* holder = object->GetComponent<ColliderHolder>();
  GetBox(*holder).UpdateCollider(transform);
  return holder;
}

}  // namespace

void CornerTable::Add(float x, float y, std::size_t box) {
  m_boxes.emplace(PointKey(Truncate(x), Truncate(y)), box);
}

void CornerTable::Remove(float x, float y, std::size_t box) {
  auto [at, end] = m_boxes.equal_range(PointKey(Truncate(x), Truncate(y)));
  while (at != end && at->second != box) ++at;
  if (at != end) m_boxes.erase(at);
}

std::vector<std::size_t> CornerTable::Find(float x, float y) const {
  std::vector<std::size_t> found;
  auto [at, end] = m_boxes.equal_range(PointKey(Truncate(x), Truncate(y)));
  for (; at != end; ++at) found.push_back(at->second);
  return found;
}

/// The edges of a tile.
struct TileColliders::Square {
  explicit Square(const Transform& transform) {
    const Vector3D& p = transform.m_local_pos;
    const Vector3D& s = transform.m_local_scale;
    left = p.x - s.x / 2;
    right = p.x + s.x / 2;
    bottom = p.y - s.y / 2;
    top = p.y + s.y / 2;
  }

  float left, right, bottom, top;
};

void TileColliders::Merge(GameObj* tile) {
  const Transform& transform = *tile->GetComponent<Transform>();
  const Square square(transform);
  const bool widened = GrowRight(square);
  const bool heightened = GrowDown(square);
  if (!widened && !heightened) Append(MakeCollider(transform.m_local_pos));
}

bool TileColliders::GrowRight(const Square& tile) {
  bool merged = false;
  for (const std::size_t i : m_by_upper_right.Find(tile.left, tile.top)) {
    TileCollider& collider = m_boxes[i];
    const BoxCollider& box = GetBox(*collider.holder);
    if (tile.bottom != Truncated(box.m_min.y) || collider.grown_y) continue;
    Unlist(i);
    Span(*collider.holder, kAxisX, box.m_min.x, tile.right);
    List(i);
    collider.grown_x = merged = true;
  }
  return merged;
}

bool TileColliders::GrowDown(const Square& tile) {
  bool merged = false;
  for (const std::size_t i : m_by_lower_right.Find(tile.right, tile.top)) {
    TileCollider& collider = m_boxes[i];
    const BoxCollider& box = GetBox(*collider.holder);
    if (tile.top != box.m_min.y || tile.left != Truncated(box.m_min.x) || collider.grown_x)
      continue;
    Unlist(i);
    Span(*collider.holder, kAxisY, box.m_max.y, tile.bottom);
    List(i);
    collider.grown_y = merged = true;
  }
  return merged;
}

void TileColliders::Append(ColliderHolder* holder) {
  m_boxes.push_back({holder});
  List(m_boxes.size() - 1);
}

void TileColliders::List(std::size_t box) {
  const BoxCollider& shape = GetBox(*m_boxes[box].holder);
  m_by_upper_right.Add(shape.m_max.x, shape.m_max.y, box);
  m_by_lower_right.Add(shape.m_max.x, shape.m_min.y, box);
}

void TileColliders::Unlist(std::size_t box) {
  const BoxCollider& shape = GetBox(*m_boxes[box].holder);
  m_by_upper_right.Remove(shape.m_max.x, shape.m_max.y, box);
  m_by_lower_right.Remove(shape.m_max.x, shape.m_min.y, box);
}

}  // namespace ZOVEngine
