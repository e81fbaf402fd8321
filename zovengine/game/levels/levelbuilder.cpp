#include "game/levels/levelbuilder.h"

#include <cmath>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <unordered_map>

#include "game/levels/levelobjects.h"
#include "game/turns/gamecontroller.h"
#include "jsonunserializer.h"
#include "objects/gameobjfactory.h"
#include "physics/components/transform.h"
#include "render/components/render.h"

namespace ZOVEngine {
namespace {

constexpr const char* kColliderArchetype = "tilecollider";

// Corners of a box as its shape keeps them: clockwise from the upper left. The first row tells for
// each whether it lies on the box's right side, the second whether it lies on its upper one.
constexpr int kAxisX = 0;
constexpr int kAxisY = 1;
constexpr bool kHighCorner[2][4] = {{false, true, true, false}, {true, true, false, false}};

/// Towards zero. What an int32 cannot hold, a NaN included, becomes its lowest value, which is no
/// place of any map.
std::int32_t Truncate(float value) {
  constexpr float kBeyond = 2147483648.0f;
  if (!(value >= -kBeyond && value < kBeyond)) return std::numeric_limits<std::int32_t>::min();
  return static_cast<std::int32_t>(value);
}

float Truncated(float value) {
  return static_cast<float>(Truncate(value));
}

struct Square {
  float left, right, bottom, top;
};

Square SquareOf(const Transform& transform) {
  const Vector3D& p = transform.m_local_pos;
  const Vector3D& s = transform.m_local_scale;
  return {p.x - s.x / 2, p.x + s.x / 2, p.y - s.y / 2, p.y + s.y / 2};
}

void RequireArchetype(bool condition, const char* what) {
  ZOV_ASSERT(condition, std::string("Resources/Archetypes/GameObjects/") + kColliderArchetype +
                            ".json: the collider of tiles must " + what);
}

BoxCollider& BoxOf(const ColliderHolder& holder) {
  auto* box = dynamic_cast<BoxCollider*>(holder.m_collider.get());
  RequireArchetype(box != nullptr, "be a Box");
  return *box;
}

/// Lets the box reach from one edge to the other along an axis.
void Span(const ColliderHolder& holder, int axis, float one, float other) {
  BoxCollider& box = BoxOf(holder);
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
  const BoxCollider& box = BoxOf(*collider->holder);
  if (Truncate(tile.left) != Truncate(box.m_max.x) || Truncate(tile.top) != Truncate(box.m_max.y) ||
      tile.bottom != Truncated(box.m_min.y) || collider->grown_y) {
    return false;
  }
  collider->grown_x = true;
  Span(*collider->holder, kAxisX, box.m_min.x, tile.right);
  return true;
}

bool GrowDown(const Square& tile, TileCollider* collider) {
  const BoxCollider& box = BoxOf(*collider->holder);
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
  BoxOf(*holder).UpdateCollider(transform);
  return {holder};
}

/// All tiles that are loaded.
std::vector<GameObj*> LoadedTiles() {
  std::vector<GameObj*> tiles;
  const std::vector<GameObj*> objects = g_game_obj_factory->m_objects;
  for (GameObj* object : objects) {
    if (IsTile(object)) tiles.push_back(object);
  }
  return tiles;
}

/// Ends the program with a report when a tile has no place.
void RequireTransforms(const std::vector<GameObj*>& tiles, const std::string& path) {
  const JsonTrail::FileScope file(path);
  for (const GameObj* tile : tiles) {
    const JsonTrail::ObjectScope object(tile->name);
    if (!tile->HasComponent<Transform>()) FailReading("a tile needs a Transform");
  }
}

std::uint64_t CellKey(std::int32_t x, std::int32_t y) {
  return std::uint64_t{static_cast<std::uint32_t>(x)} << 32 | static_cast<std::uint32_t>(y);
}

/// The first tile of the list at each whole position.
std::unordered_map<std::uint64_t, GameObj*> TilesByPlace(const std::vector<GameObj*>& tiles) {
  std::unordered_map<std::uint64_t, GameObj*> by_place;
  for (GameObj* tile : tiles) {
    const Vector3D& place = tile->GetComponent<Transform>()->m_world_pos;
    by_place.emplace(CellKey(Truncate(place.x), Truncate(place.y)), tile);
  }
  return by_place;
}

/// Walks the cells row by row from the upper left one and merges the tiles that lie on them.
void MergeTiles(const TileMap& map, const std::vector<GameObj*>& tiles) {
  const auto by_place = TilesByPlace(tiles);
  std::vector<TileCollider> colliders;
  const std::int32_t s = map.m_tileSize;
  const std::int32_t x0 = s / 2 - s * static_cast<std::int32_t>(map.m_width) / 2;
  std::int32_t y = s / 2 + s * static_cast<std::int32_t>(map.m_height) / 2;
  for (std::uint32_t row = 0; row < map.m_height; ++row) {
    y -= s;
    std::int32_t x = x0;
    for (std::uint32_t column = 0; column < map.m_width; ++column, x += s) {
      const auto tile = by_place.find(CellKey(x, y));
      if (tile != by_place.end()) MergeTileCollider(tile->second, &colliders);
    }
  }
}

}  // namespace

void MergeTileCollider(GameObj* tile, std::vector<TileCollider>* colliders) {
  const Transform& transform = *tile->GetComponent<Transform>();
  const Square square = SquareOf(transform);
  bool merged = false;
  for (TileCollider& collider : *colliders) {
    // Not one or the other: deliberately each box that fits grows, and the scan goes on.
    if (GrowRight(square, &collider)) merged = true;
    if (GrowDown(square, &collider)) merged = true;
  }
  if (!merged) colliders->push_back(MakeCollider(transform.m_local_pos));
}

void GameController::BuildLevel(const std::string& level_path) {
  JsonDocument level;
  level.Open(level_path);
  level.Parse();
  std::string tiles_path;
  ReadValue(level.Root(), "Tiles", &tiles_path);
  std::error_code ignored;
  // A level without tiles passes through here; one whose tiles are loaded already, a line below.
  if (!std::filesystem::exists(tiles_path, ignored)) return;
  if (!LoadedTiles().empty()) return;
  g_game_obj_factory->LoadObjects(tiles_path);
  std::string map_path;
  ReadValue(level.Root(), "TileMap", &map_path);
  m_tile_map.Load(map_path);
  m_tile_objects = LoadedTiles();
  RequireTransforms(m_tile_objects, tiles_path);
  MergeTiles(m_tile_map, m_tile_objects);
}

}  // namespace ZOVEngine
