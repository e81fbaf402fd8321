#pragma once

#include "core/base/vector3d.h"
#include "editor/canvas/clipboard.h"
#include "editor/canvas/sceneindex.h"

namespace ZOVEngine {

class LevelEditor;

/// The keys that work on the selection while no text field has the keyboard: delete, duplicate,
/// copy, cut, paste, select all and none, nudge, undo and redo.
///
/// Duplicates stand a tile to the right. Control and an arrow nudge by half a tile, with Shift by
/// one world unit; a bare arrow is the camera's. The clipboard lives as long as this does.
class Shortcuts {
 public:
  /// Runs what the keys of this frame ask for. `mouse` is where a paste goes.
  void Run(LevelEditor& editor, const SceneIndex& index, const Vector3D& mouse);

 private:
  void RunWithControl(LevelEditor& editor, const SceneIndex& index, const Vector3D& mouse);
  void RunClipboard(LevelEditor& editor, const SceneIndex& index, const Vector3D& mouse);
  static void RunNudges(LevelEditor& editor, const SceneIndex& index);
  static void Delete(LevelEditor& editor);

  Clipboard m_clipboard;
};

}  // namespace ZOVEngine
