#pragma once

#include "objects/rapidjsonconfig.h"

#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "editor/levelrules.h"
#include "editor/tiles.h"
#include "game/levels/levelsave.h"
#include "support/tempdirectory.h"

namespace carapace_test {

using Json = rapidjson::Value;

/// A small level without problems, whose JSON a test changes: of the first level the object that
/// runs it, two players, a walking enemy, the camera, a few pieces of the interface, a light, and
/// the walls above and below.
class LevelDraft {
 public:
  LevelDraft() : LevelDraft(SmallLevel()) {}
  explicit LevelDraft(const ZOVEngine::LevelText& text) {
    level.Parse(text.level);
    map.Parse(text.map);
    tiles.Parse(text.tiles);
    objects.Parse(text.objects);
  }

  static constexpr const char* kName = "Level01";

  /// The first record of this name among the objects.
  Json& Find(const std::string& name) { return *FindIn(objects["GameObjFactory"], name); }
  /// The first record of this name below one that is named.
  Json& Find(const std::string& parent, const std::string& name) {
    return *FindIn(Find(parent)["Childs"], name);
  }
  Json& Tile(unsigned index) { return tiles["GameObjFactory"][index]; }

  Json Parsed(const std::string& text) {
    rapidjson::Document document(&objects.GetAllocator());
    document.Parse(text);
    return Json(document, objects.GetAllocator());
  }
  /// Sets or adds a member.
  void Set(Json& object, const std::string& key, const std::string& json) {
    object.RemoveMember(key.c_str());
    object.AddMember(Json(key, objects.GetAllocator()), Parsed(json), objects.GetAllocator());
  }
  void AddComponent(Json& object, const std::string& name, const std::string& json) {
    object["components"].PushBack(Json(name, objects.GetAllocator()), objects.GetAllocator());
    Set(object, name, json);
  }
  /// Takes a component out of the list and out of the record.
  void DropComponent(Json& object, const std::string& name) {
    Json& listed = object["components"];
    for (auto own = listed.Begin(); own != listed.End(); ++own) {
      if (*own == name) {
        listed.Erase(own);
        break;
      }
    }
    object.RemoveMember(name.c_str());
  }
  void DropChild(const std::string& parent, const std::string& name) {
    Json& children = Find(parent)["Childs"];
    for (auto own = children.Begin(); own != children.End(); ++own) {
      if ((*own)["name"] == name) {
        children.Erase(own);
        return;
      }
    }
  }
  /// Adds a record behind the others.
  void Add(const std::string& json) { AddTo(objects["GameObjFactory"], json); }
  void AddTile(const std::string& json) { AddTo(tiles["GameObjFactory"], json); }
  void AddTo(Json& records, const std::string& json) {
    records.PushBack(Parsed(json), objects.GetAllocator());
  }
  Json Copy(const Json& value) { return Json(value, objects.GetAllocator()); }

  ZOVEngine::LevelText Text() const {
    return {kName, TextOf(level), TextOf(map), TextOf(tiles), TextOf(objects)};
  }

  static std::string TextOf(const Json& value) {
    rapidjson::StringBuffer buffer;
    rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
    value.Accept(writer);
    return buffer.GetString();
  }

  rapidjson::Document level, map, tiles, objects;

 private:
  /// Made once, since a shipped level is long.
  static const ZOVEngine::LevelText& SmallLevel() {
    static const ZOVEngine::LevelText text = [] {
      const ZOVEngine::LevelPaths paths(kName);
      LevelDraft draft({kName, ShippedFile(paths.level), ShippedFile(paths.tile_map),
                        ShippedFile(paths.tiles), ShippedFile(paths.objects)});
      draft.Reduce();
      return draft.Text();
    }();
    return text;
  }

  void Reduce() {
    KeepWalls();
    KeepChildren(Find("level"), {"player1", "player2", "enemy1", "ui_turn", "ui_skip", "ui_undo",
                                 "ui_cycle_left", "ui_cycle_right", "camera"});
    KeepChildren(Find("camera"), {"ui_pause_resume", "ui_pause_glossary_img",
                                  "ui_pause_glossary_weapons", "ui_pause_glossary_enviro",
                                  "EnvDestructible", "EnvDamage", "EnvBlackhole", "ui_closing"});
    Json root = Copy(Find("level"));
    Json light = Copy(Find("lamp"));
    for (const char* look : {"Render", "iModel"}) DropComponent(light, look);
    Json& records = objects["GameObjFactory"];
    records.Clear();
    records.PushBack(root, objects.GetAllocator());
    records.PushBack(light, objects.GetAllocator());
  }

  static Json* FindIn(Json& records, const std::string& name) {
    for (Json& record : records.GetArray()) {
      if (record["name"] == name) return &record;
      if (Json* found = FindIn(record["Childs"], name)) return found;
    }
    return nullptr;
  }

  static void KeepChildren(Json& object, const std::vector<std::string>& names) {
    Json& children = object["Childs"];
    for (auto child = children.Begin(); child != children.End();) {
      const std::string name = (*child)["name"].GetString();
      const bool is_kept = std::find(names.begin(), names.end(), name) != names.end();
      child = is_kept ? child + 1 : children.Erase(child);
    }
  }

  /// The walls of the upper and the lower edge, from left to right, the upper ones first.
  void KeepWalls() {
    Json& all = tiles["GameObjFactory"];
    std::map<std::pair<float, float>, Json> walls;
    for (const Json& tile : all.GetArray()) {
      const Json& place = tile["Transform"]["m_pos"];
      const float x = place[0].GetFloat(), y = place[1].GetFloat();
      if (!ZOVEngine::IsWallTexture(tile["Render"]["m_tex"].GetString())) continue;
      if (y > 500.0f || y < -500.0f) walls.emplace(std::pair(-y, x), Copy(tile));
    }
    all.Clear();
    for (auto& [place, wall] : walls) all.PushBack(wall, objects.GetAllocator());
  }
};

/// The names of the shipped game, but of the interface only those that the small level has.
inline ZOVEngine::KnownAssets DraftAssets() {
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(CARAPACE_SOURCE_DIR);
  ZOVEngine::KnownAssets known = ZOVEngine::ReadKnownAssets();
  std::filesystem::current_path(before);
  known.handlers = {"ui_pause_resume", "ui_pause_glossary_weapons", "ui_pause_glossary_enviro"};
  known.behaviours = {"ui_turn", "ui_font", "ui_selection_circle_off", "ui_pause_glossary",
                      "ui_pause_glossary_anim"};
  return known;
}

}  // namespace carapace_test
