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

struct Square {
  float left, right, bottom, top;
};

Square MakeSquare(const Transform& transform) {
  const Vector3D& p = transform.m_local_pos;
  const Vector3D& s = transform.m_local_scale;
  return {p.x - s.x / 2, p.x + s.x / 2, p.y - s.y / 2, p.y + s.y / 2};
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

bool GrowRight(const Square& tile, TileCollider* collider) {
  const BoxCollider& box = GetBox(*collider->holder);
  if (Truncate(tile.left) != Truncate(box.m_max.x) || Truncate(tile.top) != Truncate(box.m_max.y) ||
      tile.bottom != Truncated(box.m_min.y) || collider->grown_y) {
    return false;
  }
  collider->grown_x = true;
  Span(*collider->holder, kAxisX, box.m_min.x, tile.right);
  return true;
}

bool GrowDown(const Square& tile, TileCollider* collider) {
  const BoxCollider& box = GetBox(*collider->holder);
  if (tile.top != box.m_min.y || Truncate(tile.right) != Truncate(box.m_max.x) ||
      tile.left != Truncated(box.m_min.x) || collider->grown_x) {
    return false;
  }
  collider->grown_y = true;
  Span(*collider->holder, kAxisY, box.m_max.y, tile.bottom);
  return true;
}

TileCollider MakeCollider(const Vector3D& position) {
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
  return {holder};
}

}  // namespace

void MergeTileCollider(GameObj* tile, std::vector<TileCollider>* colliders) {
  const Transform& transform = *tile->GetComponent<Transform>();
  const Square square = MakeSquare(transform);
  bool merged = false;
  for (TileCollider& collider : *colliders) {
    // Deliberately no early end: every box that the tile continues grows by it.
    if (GrowRight(square, &collider)) merged = true;
    if (GrowDown(square, &collider)) merged = true;
  }
  if (!merged) colliders->push_back(MakeCollider(transform.m_local_pos));
}

}  // namespace ZOVEngine
