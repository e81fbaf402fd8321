#include "editor/testplay.h"

#include <unistd.h>

#include <filesystem>

#include "audio/audiosource.h"
#include "core/engine.h"
#include "core/statemachine.h"
#include "editor/editordata.h"
#include "editor/editorview.h"
#include "editor/leveleditor.h"
#include "editor/leveltext.h"
#include "editor/scene.h"
#include "editor/twins.h"
#include "game/levels/levelobjects.h"
#include "jsonunserializer.h"
#include "objects/gameobjfactory.h"
#include "objects/safefile.h"
#include "physics/components/transform.h"

namespace ZOVEngine {
namespace {

namespace fs = std::filesystem;

/// Where this process keeps the level that it test-plays.
std::string PlayFolder() {
  return (fs::temp_directory_path() / ("carapace-test-play-" + std::to_string(getpid()))).string();
}

/// Tells every controller of the records where its level lies.
void NameLevel(Value& records, const std::string& path, rapidjson::Document& document) {
  for (Value& record : records.GetArray()) {
    const auto controller = record.FindMember("GameController");
    if (controller != record.MemberEnd() && controller->value.HasMember("m_level_map")) {
      controller->value["m_level_map"].SetString(path.c_str(), document.GetAllocator());
    }
    const auto children = record.FindMember("Childs");
    if (children != record.MemberEnd()) NameLevel(children->value, path, document);
  }
}

/// What a save would write, places in the world included: before a level's first step has derived
/// them, shots give off sparks there. Builds the scene anew.
std::string SavedUnits(const LevelDocument& document) {
  const std::string tiles = TilesText();
  LevelDocument file;
  file.SetText(TextWithTwins(document));
  BuildScene(file, tiles, SceneUse::kSave);
  JsonWriter writer;
  WriteLevelObjects(writer.Out());
  BuildScene(document, tiles);
  return writer.Text();
}

std::string UnitsFor(const LevelEditor& editor, const std::string& path) {
  rapidjson::Document document;
  ParseExactly(&document, SavedUnits(editor.document));
  NameLevel(document[kRoots], path, document);
  return ToText(document);
}

void Silence() {
  for (AudioSource* source : ComponentTable<AudioSource>().Components()) source->StopAllSounds();
}

}  // namespace

std::string WriteLevelCopy(const LevelEditor& editor, const std::string& folder) {
  std::error_code failed;
  fs::create_directories(folder, failed);
  const std::string level = folder + "/level.json";
  const bool written =
      ReplaceFile(folder + "/Units.json", UnitsFor(editor, level)) &&
      ReplaceFile(folder + "/tiles.json", LaidTilesText()) &&
      ReplaceFile(folder + "/map.json", OpenMapText()) &&
      ReplaceFile(level, OpenIndexText(folder + "/map.json", folder + "/tiles.json",
                                       folder + "/Units.json"));
  return written ? level : "";
}

TestPlay::~TestPlay() {
  std::error_code ignored;
  fs::remove_all(PlayFolder(), ignored);
}

bool TestPlay::Start(LevelEditor& editor) {
  if (!editor.IsOpen() || m_running) return false;
  const LevelProblems fatal = FatalProblems(editor.document);
  if (!fatal.empty()) {
    editor.log.Fault("The level cannot be played: " + fatal.front().text + ".");
    return false;
  }
  const std::string level = WriteLevelCopy(editor, PlayFolder());
  if (level.empty()) {
    editor.log.Fault("The level cannot be test-played: no room for its copy.");
    return false;
  }
  m_tiles = TilesText();
  m_camera = EditorCameraPosition();
  m_running = true;
  g_editor.m_editor_camera = nullptr;
  g_engine->paused = false;
  g_current_level_path = level;
  ChangeState(kDefaultState, level);
  editor.log.Say("Test-play; Escape returns.");
  return true;
}

void TestPlay::Stop() {
  if (!m_running) return;
  Silence();
  ChangeState(kLevelEditorState, "");
}

void TestPlay::Resume(LevelEditor& editor) {
  m_running = false;
  BuildScene(editor.document, m_tiles);
  g_editor.m_editor_camera->GetComponent<Transform>()->m_local_pos = m_camera;
  editor.log.Say("Back from the test-play.");
}

}  // namespace ZOVEngine
