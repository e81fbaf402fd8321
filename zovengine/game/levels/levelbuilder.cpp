#include "game/levels/levelbuilder.h"

#include <cstdint>
#include <filesystem>
#include <unordered_map>

#include "game/levels/levelobjects.h"
#include "game/levels/tilecolliders.h"
#include "game/levels/tilemap.h"
#include "game/levels/truncate.h"
#include "jsonunserializer.h"
#include "objects/gameobjfactory.h"
#include "physics/components/transform.h"

namespace ZOVEngine {
namespace {

/// All tiles that are loaded.
std::vector<GameObj*> LoadedTiles() {
  std::vector<GameObj*> tiles;
  const std::vector<GameObj*> objects = g_game_obj_factory->m_objects;
  for (GameObj* object : objects) {
    if (IsTile(object)) tiles.push_back(object);
  }
  return tiles;
}

/// Ends the program with a report if a tile has no Transform.
void RequireTransforms(const std::vector<GameObj*>& tiles, const std::string& path) {
  const JsonTrail::FileScope file(path);
  for (const GameObj* tile : tiles) {
    const JsonTrail::ObjectScope object(tile->name);
    if (!tile->HasComponent<Transform>()) FailReading("a tile needs a Transform");
  }
}

/// The first tile of the list at each whole position.
std::unordered_map<std::uint64_t, GameObj*> TilesByPosition(const std::vector<GameObj*>& tiles) {
  std::unordered_map<std::uint64_t, GameObj*> by_position;
  for (GameObj* tile : tiles) {
    const Vector3D& position = tile->GetComponent<Transform>()->m_world_pos;
    by_position.emplace(PointKey(Truncate(position.x), Truncate(position.y)), tile);
  }
  return by_position;
}

/// Visits the cells row by row from the upper left and merges the tiles that lie on them.
void MergeTiles(const TileMap& map, const std::vector<GameObj*>& tiles) {
  const auto by_position = TilesByPosition(tiles);
  TileColliders colliders;
  const std::int32_t s = map.m_tileSize;
  const std::int32_t x0 = s / 2 - s * static_cast<std::int32_t>(map.m_width) / 2;
  std::int32_t y = s / 2 + s * static_cast<std::int32_t>(map.m_height) / 2;
  for (std::uint32_t row = 0; row < map.m_height; ++row) {
    y -= s;
    std::int32_t x = x0;
    for (std::uint32_t column = 0; column < map.m_width; ++column, x += s) {
      const auto tile = by_position.find(PointKey(x, y));
      if (tile != by_position.end()) colliders.Merge(tile->second);
    }
  }
}

}  // namespace

void BuildTiles(const std::string& level_path, TileMap* map, std::vector<GameObj*>* tiles) {
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
  map->Load(map_path);
  *tiles = LoadedTiles();
  RequireTransforms(*tiles, tiles_path);
  MergeTiles(*map, *tiles);
}

}  // namespace ZOVEngine
