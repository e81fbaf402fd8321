#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace ZOVEngine {

class LevelEditor;

/// Copies the files of a level, before a save replaces them, to "Level Editor/Backups/", and drops
/// all but the last ten copies of that level. A copy is there as a whole or not at all, whenever
/// the program ends. False if it cannot be made; a save that is possible must not fail for that.
bool BackUpLevel(const std::string& level_name);
/// The folders of a level's backups, the oldest first. Each is a level's folder as it was.
std::vector<std::string> Backups(const std::string& level_name);

/// Keeps unsaved work in a file outside the level, "Level Editor/Recovery/NAME.json", while there
/// is some: a minute after the first change, then once a minute. Saving the level removes the file.
class Recovery {
 public:
  using Time = std::chrono::steady_clock::time_point;

  /// Called in each step; `now` is the time.
  void Step(LevelEditor& editor, Time now);
  /// Writes the open level to its recovery file; false if it cannot be written.
  static bool Write(LevelEditor& editor);

 private:
  Time m_due;  ///< when the next file is written, while `m_waiting`
  bool m_waiting = false;
  std::size_t m_written = 0;  ///< History::Changes as of the last file
};

/// The levels whose unsaved work an editor that ended has left.
std::vector<std::string> RecoverableLevels();
/// Opens the level with its unsaved work, as one gesture, so that undoing gives what was saved.
/// False, with a line in the log, if the file is damaged; it stays then.
bool Recover(LevelEditor& editor, const std::string& level_name);
/// Removes the recovery file of a level.
void DropRecovery(const std::string& level_name);

}  // namespace ZOVEngine
