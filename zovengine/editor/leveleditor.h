#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "core/base/noncopyable.h"
#include "editor/history.h"
#include "editor/leveldocument.h"
#include "editor/objectedit.h"
#include "editor/sceneedit.h"
#include "editor/tiles.h"

namespace ZOVEngine {

/// Where the folders of the levels lie.
inline constexpr const char* kLevelsFolder = "Level Editor/Levels";

/// What a level needs to begin with.
struct NewLevel {
  std::string name;
  std::int32_t width = 32;      ///< (unit: tiles)
  std::int32_t height = 18;     ///< (unit: tiles)
  std::int32_t tile_size = 60;  ///< (unit: world units)
};

/// What the author is told: what was done, and what could not be. Each line is printed on standard
/// output as well.
class EditorLog {
 public:
  struct Line {
    std::string text;
    bool fault = false;
  };
  void Say(const std::string& text) { Add({text, false}); }
  void Fault(const std::string& text) { Add({text, true}); }
  const std::vector<Line>& Lines() const { return m_lines; }

 private:
  void Add(const Line& line);

  std::vector<Line> m_lines;
};

/// Which helps the canvas draws over the picture.
struct EditorOverlays {
  bool grid = false;
  bool colliders = false;
  bool patrols = true;
  bool hazards = true;  ///< how far holes and zones reach
  bool aims = true;     ///< where enemies fire
  bool energy = true;   ///< how far a selected player unit drives in a turn
};

/// The author's session: the open level, what is selected, and what was done to it.
///
/// Every change of the level goes through Do, so that it can be undone; what is not in the document
/// or a tile is not saved. It knows neither window nor panels: those call it, and show its fields.
class LevelEditor : private NonCopyable {
 public:
  LevelEditor();
  ~LevelEditor();

  /// Opens the level of this name below "Level Editor/Levels". False, with a line in the log, if
  /// its files cannot be read; then the level that was open stays.
  bool Open(const std::string& name);
  /// Makes the folders and files of an empty level and opens it. False, with a line in the log, if
  /// the name is not a plain one, is taken, or the sizes are out of bounds.
  bool Create(const NewLevel& level);
  /// Saves the open level. False, with a line in the log, if a file cannot be written; the level
  /// then counts as unsaved.
  bool Save();
  void Close();

  /// Takes a command that is done; null says in the log why there is none, if there is a reason.
  void Do(std::unique_ptr<EditCommand> command);
  void Undo();
  void Redo();
  void GoTo(std::size_t position);

  bool IsOpen() const;
  /// True if the level differs from its files.
  bool IsChanged() const { return IsOpen() && !history.IsSaved(); }

  /// Leaves only paths in the selection at which there is an object.
  void CleanSelection();
  bool IsSelected(const ObjectPath& path) const;
  /// The object that was selected last, or an empty path.
  ObjectPath Primary() const { return selection.empty() ? ObjectPath() : selection.back(); }

  LevelDocument document;
  Selection selection;
  History history;
  SceneEditor scene{&document, &selection};
  TileBook tiles;
  EditorLog log;
  std::string wants_replay;         ///< a recorded game to be shown in a test-play
  bool wants_test_play = false;     ///< asked for; the shell serves it after the frame
  std::vector<std::string> recent;  ///< names of levels, the latest first
  bool snap = true;                 ///< drags go in steps of the tile grid
  bool tiles_in_hand = false;       ///< the mouse paints tiles and picks no objects
  EditorOverlays overlays;
};

/// The session of the program that runs; null while there is no editor.
extern LevelEditor* g_level_editor;

/// What lies below "Level Editor/Levels", each list in alphabetical order.
struct LevelNames {
  std::vector<std::string> levels;   ///< all that are no screens, empty and broken ones too
  std::vector<std::string> screens;  ///< of the game, such as its main menu
};
/// Reads the object files of all levels.
LevelNames FindLevels();

/// Why `name` cannot be the name of a new level, as a sentence; empty if it can.
std::string FaultOfLevelName(const std::string& name);

}  // namespace ZOVEngine
