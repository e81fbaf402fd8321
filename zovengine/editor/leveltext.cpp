#include "editor/leveltext.h"

#include <algorithm>
#include <set>

#include "editor/editordata.h"
#include "editor/leveleditor.h"
#include "editor/scene.h"
#include "game/levels/levelsave.h"
#include "jsonunserializer.h"
#include "render/rendersystem.h"

namespace ZOVEngine {
namespace {

void TakeOut(LevelDocument* document, const ObjectPath& path) {
  rapidjson::Value* list = &document->Json()["GameObjFactory"];
  for (std::size_t i = 0; i + 1 < path.size(); ++i) list = &(*list)[path[i]]["Childs"];
  list->Erase(list->Begin() + path.back());
}

}  // namespace

std::string LaidTilesText() {
  rapidjson::Document document;
  const std::string text = TilesText();
  ParseExactly(&document, text);
  Value& tiles = document["GameObjFactory"];
  for (auto tile = tiles.Begin(); tile != tiles.End();) {
    tile = (*tile)["active"].GetBool() ? tile + 1 : tiles.Erase(tile);
  }
  return ToText(document);
}

std::string OpenMapText() {
  JsonWriter writer;
  writer.Out().json->StartObject();
  WriteValue(writer.Out(), "Width", g_editor.m_tile_map.m_width);
  WriteValue(writer.Out(), "Height", g_editor.m_tile_map.m_height);
  WriteValue(writer.Out(), "TileSize", g_editor.m_tile_map.m_tile_size);
  writer.Out().json->EndObject();
  return writer.Text();
}

std::string OpenIndexText(const std::string& map, const std::string& tiles,
                          const std::string& objects) {
  JsonWriter writer;
  writer.Out().json->StartObject();
  WriteValue(writer.Out(), "TileMap", map);
  WriteValue(writer.Out(), "Tiles", tiles);
  WriteValue(writer.Out(), "Objects", objects);
  WriteValue(writer.Out(), "Background", g_render_system->m_background_tex);
  WriteValue(writer.Out(), "BGM", std::string("test"));
  writer.Out().json->EndObject();
  return writer.Text();
}

LevelText OpenLevelText(const LevelEditor& editor) {
  const LevelPaths paths(g_editor.m_level_name);
  return {g_editor.m_level_name, OpenIndexText(paths.tile_map, paths.tiles, paths.objects),
          OpenMapText(), LaidTilesText(), editor.document.Text()};
}

LevelProblems FatalProblems(const LevelDocument& document) {
  LevelProblems problems = CheckLevel({"", "", "", "", document.Text()}, KnownAssets());
  std::erase_if(problems, [](const LevelProblem& problem) {
    return problem.file != LevelFile::kObjects || problem.address.empty() || !IsFatal(problem);
  });
  return problems;
}

LevelProblems LeaveOutFatalObjects(LevelDocument* document) {
  LevelProblems all;
  // Without its parent an object may break a rule that it kept, so it is asked again.
  for (LevelProblems some = FatalProblems(*document); !some.empty();
       some = FatalProblems(*document)) {
    std::set<ObjectPath, std::greater<>> paths;
    for (const LevelProblem& problem : some) paths.insert(problem.address);
    for (const ObjectPath& path : paths) TakeOut(document, path);
    all.insert(all.end(), some.begin(), some.end());
  }
  return all;
}

}  // namespace ZOVEngine
