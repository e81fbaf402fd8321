#include "editor/recovery.h"

#include <algorithm>
#include <filesystem>
#include <iterator>

#include "core/base/wholefile.h"
#include "editor/editordata.h"
#include "editor/leveleditor.h"
#include "editor/leveltext.h"
#include "editor/scene.h"
#include "jsonunserializer.h"
#include "objects/safefile.h"

namespace ZOVEngine {
namespace {

namespace fs = std::filesystem;

constexpr const char* kBackups = "Level Editor/Backups";
constexpr const char* kRecovery = "Level Editor/Recovery";
constexpr const char* kUnfinished = ".new";  ///< ending of a backup that is being made
constexpr std::size_t kKeptBackups = 10;
constexpr std::chrono::seconds kInterval{60};

std::string RecoveryPath(const std::string& level_name) {
  return std::string(kRecovery) + "/" + level_name + ".json";
}

/// A folder name that sorts by time and is not taken.
fs::path FreshBackup(const fs::path& home) {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  auto stamp = std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
  std::error_code ignored;
  while (fs::exists(home / std::to_string(stamp), ignored)) ++stamp;
  return home / std::to_string(stamp);
}

/// Takes a backup away: first its name, so that it is none while its files go.
void DropBackup(const fs::path& backup) {
  const fs::path leaving = backup.parent_path() / (std::string("old") + kUnfinished);
  std::error_code ignored;
  fs::remove_all(leaving, ignored);
  fs::rename(backup, leaving, ignored);
  fs::remove_all(leaving, ignored);
}

/// Replaces the whole level: the gesture of a recovery.
class RecoverCommand final : public EditCommand {
 public:
  struct State {
    std::string units, tiles;
  };
  RecoverCommand(LevelDocument* document, State before, State after)
      : m_document(document), m_before(std::move(before)), m_after(std::move(after)) {}
  void Undo() override { Apply(m_before); }
  void Redo() override { Apply(m_after); }
  std::string Label() const override { return "Recover unsaved work"; }

 private:
  void Apply(const State& state) {
    m_document->SetText(state.units);
    BuildScene(*m_document, state.tiles);
  }

  LevelDocument* m_document;
  State m_before, m_after;
};

/// True for an object file over which the program would not end.
bool IsReadable(const std::string& text) {
  LevelDocument document;
  return document.SetText(text) && FatalProblems(document).empty();
}

bool ReadState(const std::string& path, RecoverCommand::State* state) {
  rapidjson::Document document;
  ParseExactly(&document, ReadWholeFile(path).value_or(""));
  const Value* units = FindValue(document, "units");
  const Value* tiles = FindValue(document, "tiles");
  if (units == nullptr || tiles == nullptr) return false;
  *state = {ToText(*units), ToText(*tiles)};
  return IsReadable(state->units) && IsReadable(state->tiles);
}

}  // namespace

std::vector<std::string> Backups(const std::string& level_name) {
  std::vector<std::string> out;
  std::error_code failed;
  for (const auto& entry : fs::directory_iterator(fs::path(kBackups) / level_name, failed)) {
    if (entry.path().extension() != kUnfinished) out.push_back(entry.path().string());
  }
  std::sort(out.begin(), out.end());
  return out;
}

bool BackUpLevel(const std::string& level_name) {
  const fs::path level = fs::path(kLevelsFolder) / level_name;
  std::error_code failed, ignored;
  if (!fs::exists(level / (level_name + ".json"), ignored)) return true;
  const fs::path home = fs::path(kBackups) / level_name;
  const fs::path unfinished = home / (std::string("level") + kUnfinished);
  fs::create_directories(home, ignored);
  fs::remove_all(unfinished, ignored);
  fs::copy(level, unfinished, fs::copy_options::recursive, failed);
  if (!failed) fs::rename(unfinished, FreshBackup(home), failed);
  if (failed) fs::remove_all(unfinished, ignored);
  const std::vector<std::string> all = Backups(level_name);
  for (std::size_t i = 0; i + kKeptBackups < all.size(); ++i) DropBackup(all[i]);
  return !failed;
}

void Recovery::Step(LevelEditor& editor, Time now) {
  const std::size_t changes = editor.history.Changes();
  if (!editor.IsChanged() || changes == m_written) {
    m_waiting = false;
  } else if (!m_waiting) {
    m_waiting = true;
    m_due = now + kInterval;
  } else if (now >= m_due) {
    m_waiting = false;
    m_written = changes;
    if (!Write(editor)) editor.log.Fault("The recovery file could not be written.");
  }
}

bool Recovery::Write(LevelEditor& editor) {
  std::error_code ignored;
  fs::create_directories(kRecovery, ignored);
  const std::string text =
      "{\"units\": " + editor.document.Text() + ", \"tiles\": " + TilesText() + "}";
  return ReplaceFile(RecoveryPath(g_editor.m_level_name), text);
}

std::vector<std::string> RecoverableLevels() {
  std::vector<std::string> names;
  std::error_code failed;
  for (const auto& entry : fs::directory_iterator(kRecovery, failed)) {
    if (entry.path().extension() == ".json") names.push_back(entry.path().stem().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

bool Recover(LevelEditor& editor, const std::string& level_name) {
  RecoverCommand::State after;
  if (!ReadState(RecoveryPath(level_name), &after)) {
    editor.log.Fault("The recovery file of \"" + level_name + "\" is damaged.");
    return false;
  }
  if (!editor.Open(level_name)) return false;
  auto command = std::make_unique<RecoverCommand>(
      &editor.document, RecoverCommand::State{editor.document.Text(), TilesText()}, after);
  command->Redo();
  editor.Do(std::move(command));
  editor.log.Say("Recovered the unsaved work on " + level_name + ".");
  return true;
}

void DropRecovery(const std::string& level_name) {
  std::error_code ignored;
  fs::remove(RecoveryPath(level_name), ignored);
}

}  // namespace ZOVEngine
