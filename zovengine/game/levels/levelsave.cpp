#include "game/levels/levelsave.h"

#include <iostream>

#include "game/levels/levelobjects.h"
#include "game/levels/tilemap.h"
#include "jsonunserializer.h"
#include "objects/gameobjfactory.h"
#include "render/rendersystem.h"

namespace ZOVEngine {
namespace {

constexpr const char* kLevels = "Level Editor/Levels/";

void WriteTiles(Writer& writer, std::int64_t most) {
  writer.json->StartObject();
  WriteKey(writer, "GameObjFactory");
  writer.json->StartArray();
  std::int64_t count = 0;
  const std::vector<GameObj*> objects = g_game_obj_factory->m_objects;
  for (GameObj* object : objects) {
    if (count >= most) break;
    if (!IsTile(object) || !object->active) continue;
    WriteObject(writer, object);
    ++count;
  }
  writer.json->EndArray();
  writer.json->EndObject();
}

bool SaveTiles(const TileMapPlan& plan) {
  JsonWriter file;
  file.Open(plan.directory + "tiles.json");
  WriteTiles(file.Out(), std::int64_t{plan.width} * plan.height);
  return file.Close();
}

bool SaveMapSize(const TileMapPlan& plan) {
  JsonWriter file;
  file.Open(plan.directory + plan.name + ".json");
  file.Out().json->StartObject();
  WriteValue(file.Out(), "Width", plan.width);
  WriteValue(file.Out(), "Height", plan.height);
  WriteValue(file.Out(), "TileSize", plan.tile_size);
  file.Out().json->EndObject();
  return file.Close();
}

}  // namespace

LevelPaths::LevelPaths(const std::string& level_name)
    : level(kLevels + level_name + "/" + level_name + ".json"),
      tile_map(kLevels + level_name + "/Map/" + level_name + ".json"),
      tiles(kLevels + level_name + "/Map/" + "tiles.json"),
      objects(kLevels + level_name + "/Entity/" + "Units.json") {}

bool SaveTileMap(const TileMapPlan& plan) {
  if (const auto fault = FindSizeFault(plan.width, plan.height, plan.tile_size)) {
    std::cout << "The tile map \"" << plan.name << "\" is not saved: " << fault->key << ": "
              << fault->text << '\n';
    return false;
  }
  const bool size_saved = SaveMapSize(plan);
  const bool tiles_saved = SaveTiles(plan);
  return size_saved && tiles_saved;
}

bool SaveUnits(const std::string& level_name) {
  JsonWriter file;
  file.Open(LevelPaths(level_name).objects);
  WriteLevelObjects(file.Out());
  return file.Close();
}

bool SaveLevelIndex(const std::string& level_name) {
  const bool graphics_saved = g_render_system->SaveGraphicsConfig();
  const LevelPaths paths(level_name);
  JsonWriter file;
  file.Open(paths.level);
  file.Out().json->StartObject();
  WriteValue(file.Out(), "TileMap", paths.tile_map);
  WriteValue(file.Out(), "Tiles", paths.tiles);
  WriteValue(file.Out(), "Objects", paths.objects);
  WriteValue(file.Out(), "Background", g_render_system->m_background_tex);
  // Deliberately a fixed text: nothing reads the key, the music stands in the level's objects.
  WriteValue(file.Out(), "BGM", std::string("test"));
  file.Out().json->EndObject();
  return graphics_saved && file.Close();
}

}  // namespace ZOVEngine
