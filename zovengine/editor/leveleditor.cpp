#include "editor/leveleditor.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <iostream>
#include <iterator>
#include <optional>
#include <utility>

#include "core/base/wholefile.h"
#include "editor/editordata.h"
#include "editor/editorsave.h"
#include "editor/leveltext.h"
#include "editor/palette.h"
#include "editor/recovery.h"
#include "editor/scene.h"
#include "editor/twins.h"
#include "game/levels/levelsave.h"
#include "game/levels/tilemap.h"
#include "jsonunserializer.h"
#include "objects/gameobjfactory.h"
#include "render/rendersystem.h"

namespace ZOVEngine {

LevelEditor* g_level_editor = nullptr;

namespace {

namespace fs = std::filesystem;

constexpr const char* kBackground = "Background_Space";  ///< of a new level
constexpr const char* kImports = "Resources/Textures";   ///< where dropped files go
constexpr std::size_t kLongestName = 100;
constexpr std::size_t kMostRecent = 8;

/// Reads the sizes of a map; false if the file is no such map.
bool ReadMap(const std::string& path, TileMapInfo* map) {
  const std::optional<std::string> text = ReadWholeFile(path);
  if (!text) return false;
  JsonDocument document;
  document.ParseText(*text, path);
  const auto read = [&](const char* key, std::int32_t* out) {
    const Value* value = FindValue(document.Root(), key);
    if (value == nullptr || !value->IsInt()) return false;
    *out = value->GetInt();
    return true;
  };
  return read("Width", &map->m_width) && read("Height", &map->m_height) &&
         read("TileSize", &map->m_tile_size) &&
         !FindSizeFault(map->m_width, map->m_height, map->m_tile_size);
}

std::string ReadBackground(const std::string& level_text, const std::string& path) {
  JsonDocument document;
  document.ParseText(level_text, path);
  const Value* value = FindValue(document.Root(), "Background");
  return value != nullptr && value->IsString() ? value->GetString() : "";
}

/// True for an object file with a component that runs a screen of the game.
bool IsScreen(const std::string& path) {
  const std::string text = ReadWholeFile(path).value_or("");
  return text.find("\"MainMenuController\"") != std::string::npos ||
         text.find("\"SplashController\"") != std::string::npos;
}

void Remember(const std::string& name, std::vector<std::string>* recent) {
  std::erase(*recent, name);
  recent->insert(recent->begin(), name);
  if (recent->size() > kMostRecent) recent->resize(kMostRecent);
}

/// The tiles of a file without those over which the program would end.
std::string ReadableTiles(const std::string& text) {
  LevelDocument tiles;
  if (!tiles.SetText(text)) return kNoObjects;
  return LeaveOutFatalObjects(&tiles).empty() ? text : tiles.Text();
}

bool IsPlainLetter(char letter) {
  return std::isalnum(static_cast<unsigned char>(letter)) || letter == '_' || letter == '-' ||
         letter == ' ';
}

}  // namespace

LevelNames FindLevels() {
  LevelNames names;
  std::error_code failed;
  for (const fs::directory_entry& entry : fs::directory_iterator(kLevelsFolder, failed)) {
    const std::string name = entry.path().filename().string();
    const LevelPaths paths(name);
    if (!fs::exists(paths.level, failed)) continue;
    (IsScreen(paths.objects) ? names.screens : names.levels).push_back(name);
  }
  std::sort(names.levels.begin(), names.levels.end());
  std::sort(names.screens.begin(), names.screens.end());
  return names;
}

std::string FaultOfLevelName(const std::string& name) {
  if (name.empty()) return "A level needs a name.";
  if (name.size() > kLongestName) return "A level's name has at most 100 characters.";
  if (!std::all_of(name.begin(), name.end(), IsPlainLetter) || name.front() == ' ' ||
      name.back() == ' ') {
    return "A level's name consists of letters, digits, spaces, - and _.";
  }
  std::error_code ignored;
  if (fs::exists(fs::path(kLevelsFolder) / name, ignored)) {
    return "There is a level \"" + name + "\" already.";
  }
  return "";
}

void EditorLog::Add(const Line& line) {
  std::cout << line.text << '\n';
  m_lines.push_back(line);
}

LevelEditor::LevelEditor() {
  g_level_editor = this;
  g_editor.m_save = [this] { Save(); };
}

LevelEditor::~LevelEditor() {
  g_editor.m_save = nullptr;
  g_level_editor = nullptr;
}

bool LevelEditor::IsOpen() const {
  return g_editor.m_level_open;
}

bool LevelEditor::Open(const std::string& name) {
  const LevelPaths paths(name);
  const auto level = ReadWholeFile(paths.level), units = ReadWholeFile(paths.objects);
  const auto tile_text = ReadWholeFile(paths.tiles);
  TileMapInfo map;
  if (!level || !units || !ReadMap(paths.tile_map, &map) || !document.SetText(*units)) {
    log.Fault("\"" + name + "\" is no level that can be opened.");
    return false;
  }
  map.m_map_dir = std::string(kLevelsFolder) + "/" + name + "/Map/";
  map.m_map_name = name;
  map.m_mode = g_editor.m_tile_map.m_mode;
  map.m_tile_tex = g_editor.m_tile_map.m_tile_tex;
  g_editor.m_tile_map = std::move(map);
  g_editor.m_level_name = name;
  g_editor.m_level_open = true;
  g_editor.m_asset_dir = kImports;
  g_render_system->m_background_tex = ReadBackground(*level, paths.level);
  selection.clear();
  history.Clear();
  FoldTwins(&document.Json()[kRoots]);
  for (const LevelProblem& problem : LeaveOutFatalObjects(&document)) {
    log.Fault("Left out: " + problem.text + ".");
  }
  BuildScene(document, ReadableTiles(tile_text.value_or(kNoObjects)));
  Remember(name, &recent);
  log.Say("Opened " + name + ".");
  return true;
}

bool LevelEditor::Create(const NewLevel& level) {
  std::string fault = FaultOfLevelName(level.name);
  if (const auto size = FindSizeFault(level.width, level.height, level.tile_size)) {
    fault = std::string(size->key) + ": " + size->text;
  }
  std::error_code failed;
  if (fault.empty()) {
    for (const char* folder : {"Map", "Entity"}) {
      fs::create_directories(fs::path(kLevelsFolder) / level.name / folder, failed);
    }
    if (failed) fault = "The level's folder cannot be made: " + failed.message() + ".";
  }
  if (!fault.empty()) {
    log.Fault(fault);
    return false;
  }
  Close();
  document.SetText(NewLevelText(LevelPaths(level.name).level));
  TileMapInfo& map = g_editor.m_tile_map;
  map.m_map_dir = std::string(kLevelsFolder) + "/" + level.name + "/Map/";
  map.m_map_name = level.name;
  map.m_width = level.width;
  map.m_height = level.height;
  map.m_tile_size = level.tile_size;
  g_editor.m_level_name = level.name;
  g_editor.m_level_open = true;
  g_editor.m_asset_dir = kImports;
  g_render_system->m_background_tex = kBackground;
  return Save() && Open(level.name);
}

bool LevelEditor::Save() {
  if (!IsOpen()) return false;
  const std::string tile_text = TilesText();
  if (!BackUpLevel(g_editor.m_level_name)) log.Fault("The backup could not be made.");
  LevelDocument file;
  file.SetText(TextWithTwins(document));
  BuildScene(file, tile_text, SceneUse::kSave);
  const bool saved = SaveLiveLevel();
  BuildScene(document, tile_text);
  if (saved) {
    history.MarkSaved();
    DropRecovery(g_editor.m_level_name);
    log.Say("Saved " + g_editor.m_level_name + ".");
  } else {
    log.Fault("\"" + g_editor.m_level_name + "\" could not be saved; it stays open and unsaved.");
  }
  return saved;
}

void LevelEditor::Close() {
  g_editor.m_level_open = false;
  g_editor.m_level_name.clear();
  selection.clear();
  history.Clear();
  document = LevelDocument();
  BuildScene(document, kNoObjects);
}

void LevelEditor::Do(std::unique_ptr<EditCommand> command) {
  if (command != nullptr) {
    history.Add(std::move(command));
  } else if (!scene.Fault().empty()) {
    log.Fault(scene.Fault());
  }
  CleanSelection();
}

void LevelEditor::Undo() {
  if (history.Undo()) CleanSelection();
}

void LevelEditor::Redo() {
  if (history.Redo()) CleanSelection();
}

void LevelEditor::GoTo(std::size_t position) {
  history.GoTo(position);
  CleanSelection();
}

void LevelEditor::CleanSelection() {
  std::erase_if(selection, [this](const ObjectPath& path) { return !document.Has(path); });
}

bool LevelEditor::IsSelected(const ObjectPath& path) const {
  return std::find(selection.begin(), selection.end(), path) != selection.end();
}

}  // namespace ZOVEngine
