#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "game/turns/gamecontroller.h"
#include "physics/components/colliderholder.h"
#include "physics/components/transform.h"
#include "support/reports.h"
#include "support/world.h"

namespace carapace_test {

inline constexpr const char* kPlainLevel = "Level Editor/Levels/Plain/Plain.json";
inline constexpr const char* kPlainMap = "Level Editor/Levels/Plain/Map/Plain.json";
inline constexpr const char* kPlainTiles = "Level Editor/Levels/Plain/Map/tiles.json";
inline constexpr const char* kPlainUnits = "Level Editor/Levels/Plain/Entity/Units.json";

/// The fields of a Transform that is at the same place in the world as in its own space.
inline std::string PlacedAt(float x, float y, float size = 60.0f, float z = 1.0f) {
  std::ostringstream out;
  out << "[" << x << ", " << y << ", " << z << "]";
  const std::string place = out.str();
  out.str("");
  out << "[" << size << ", " << size << ", 1]";
  const std::string scale = out.str();
  return R"({"m_pos": )" + place + R"(, "m_scale": )" + scale +
         R"(, "m_rotate": 0, "m_rotate_with_parent": true, "m_world_scale": )" + scale +
         R"(, "m_world_rotate": 0, "m_world_pos": )" + place + "}";
}

/// A tile object of the map's kind.
inline std::string TileAt(float x, float y, float size = 60.0f, float z = 1.0f) {
  return Record("tile", {{"Transform", PlacedAt(x, y, size, z)},
                         {"Render", R"({"m_tile": true, "m_visible": true, "m_zLayer": 0,
                              "m_tex": "default", "m_hl_tex": "default", "m_colour": [1, 1, 1, 1],
                              "m_shader": "default"})"}});
}

/// The tiles of a map given by rows, of which each 'x' is a tile, for a map centred on the origin.
inline std::vector<std::string> TilesOf(const std::vector<std::string>& rows, int size) {
  std::vector<std::string> tiles;
  const int columns = static_cast<int>(rows.front().size());
  const int count = static_cast<int>(rows.size());
  for (int r = 0; r < count; ++r) {
    for (int c = 0; c < columns; ++c) {
      if (rows[static_cast<std::size_t>(r)][static_cast<std::size_t>(c)] != 'x') continue;
      const int x = size / 2 - size * columns / 2 + c * size;
      const int y = size / 2 + size * count / 2 - (r + 1) * size;
      tiles.push_back(
          TileAt(static_cast<float>(x), static_cast<float>(y), static_cast<float>(size)));
    }
  }
  return tiles;
}

inline std::string ObjectsFile(const std::vector<std::string>& records) {
  std::string text;
  for (const std::string& record : records) text += (text.empty() ? "" : ",\n") + record;
  return "{\"GameObjFactory\": [" + text + "]}";
}

inline std::string MapFile(std::size_t width, std::size_t height, int size) {
  return R"({"Width": )" + std::to_string(width) + R"(, "Height": )" + std::to_string(height) +
         R"(, "TileSize": )" + std::to_string(size) + "}";
}

/// The archetype of the tiles' colliders, of another size than the shipped one's.
inline std::string ColliderArchetype(int size, const std::string& shape = "Box") {
  const std::string scale = std::to_string(size);
  return R"({"name": "tile_collider", "components": ["Transform", "ColliderHolder"],
    "Transform": )" +
         PlacedAt(0, 0, static_cast<float>(size)) +
         R"(, "ColliderHolder": {"m_active": true, "m_layer": 0, "m_collider_type": ")" + shape +
         R"(", "bitmask_category": "Wall", "collider_vertices": [], "m_local_scale": [1, 1, 1],
    "m_local_pos": [0, 0, 1], "m_local_rot": 0}, "Childs": []})";
}

/// The files of a level "Plain" of square tiles, with an archetype for its colliders to match.
inline Files PlainLevel(const std::vector<std::string>& tiles, std::size_t width,
                        std::size_t height, int size) {
  return {{kPlainLevel, R"({"TileMap": ")" + std::string(kPlainMap) + R"(", "Tiles": ")" +
                            kPlainTiles + R"(", "Objects": ")" + kPlainUnits +
                            R"(", "Background": "space", "BGM": "test"})"},
          {kPlainMap, MapFile(width, height, size)},
          {kPlainTiles, ObjectsFile(tiles)},
          {"Resources/Archetypes/GameObjects/tilecollider.json", ColliderArchetype(size)}};
}

inline Files PlainLevel(const std::vector<std::string>& rows, int size = 60) {
  return PlainLevel(TilesOf(rows, size), rows.front().size(), rows.size(), size);
}

/// A world with the level "Plain", which BuildLevel builds; no step has run.
class TileWorld {
 public:
  explicit TileWorld(const Files& files) : world(files) {
    world.LoadObjects(Record("level", {{"GameController", "{}"}}));
  }

  ZOVEngine::GameController& Controller() {
    return *world.Find("level")->GetComponent<ZOVEngine::GameController>();
  }
  /// Builds the level and returns what that printed.
  std::string Build(const std::string& path = kPlainLevel) {
    return OutputOf([&] { Controller().BuildLevel(path); });
  }
  /// The report of building the level; empty when there was none.
  std::string ReportOfBuilding(const std::string& path = kPlainLevel) {
    std::string report;
    OutputOf([&] { report = ReportOf([&] { Controller().BuildLevel(path); }); });
    return report;
  }
  std::vector<ZOVEngine::GameObj*> Named(const std::string& name) {
    std::vector<ZOVEngine::GameObj*> found;
    for (ZOVEngine::GameObj* object : ZOVEngine::g_game_obj_factory->m_objects) {
      if (object->name == name) found.push_back(object);
    }
    return found;
  }
  std::vector<ZOVEngine::GameObj*> Colliders() { return Named("tile_collider"); }

  World world;
};

inline ZOVEngine::Transform& TransformOf(ZOVEngine::GameObj* object) {
  return *object->GetComponent<ZOVEngine::Transform>();
}

inline ZOVEngine::BoxCollider& BoxOf(ZOVEngine::GameObj* object) {
  return dynamic_cast<ZOVEngine::BoxCollider&>(
      *object->GetComponent<ZOVEngine::ColliderHolder>()->m_collider);
}

/// The rectangle of a merged box: left, bottom, right, top.
using Rectangle = std::vector<float>;

inline Rectangle BoundsOf(ZOVEngine::GameObj* collider) {
  const ZOVEngine::BoxCollider& box = BoxOf(collider);
  return {box.m_min.x, box.m_min.y, box.m_max.x, box.m_max.y};
}

/// Builds the level "Plain" from files and returns the rectangles of its colliders, in their order.
inline std::vector<Rectangle> Built(const Files& files) {
  TileWorld world(files);
  world.Build();
  std::vector<Rectangle> bounds;
  for (ZOVEngine::GameObj* collider : world.Colliders()) bounds.push_back(BoundsOf(collider));
  return bounds;
}

}  // namespace carapace_test
