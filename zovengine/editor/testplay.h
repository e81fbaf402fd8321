#pragma once

#include <string>

#include "core/base/noncopyable.h"
#include "core/base/vector3d.h"

namespace ZOVEngine {

class LevelEditor;

/// The open level played as it stands in memory, without being saved.
///
/// Start writes it to a folder of its own outside the levels and leaves the editor's state for it;
/// Stop comes back, and Resume, once the editor's state runs again, builds the scene as it was:
/// same view, same selection, same history. Keys and mouse are the game's meanwhile.
class TestPlay : private NonCopyable {
 public:
  TestPlay() = default;
  ~TestPlay();

  /// False, with a line in the log, if no level is open or the folder cannot be written.
  bool Start(LevelEditor& editor);
  /// Silences the level and asks for the editor's state. Nothing happens while none is played.
  void Stop();
  /// Builds the scene of before Start.
  void Resume(LevelEditor& editor);
  /// From Start to Resume.
  bool IsRunning() const { return m_running; }

 private:
  bool m_running = false;
  std::string m_tiles;  ///< as TilesText gave them
  Vector3D m_camera;    ///< of the editor
};

/// Writes the open level to the folder `folder` as a level that can be played from there: each path
/// and the controller's level name its new place. Returns the path of its level file, or an empty
/// text if a file cannot be written. The scene is built anew, so pointers and ids of before are
/// void.
std::string WriteLevelCopy(const LevelEditor& editor, const std::string& folder);

}  // namespace ZOVEngine
