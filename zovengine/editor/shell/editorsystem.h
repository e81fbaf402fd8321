#pragma once

#include <memory>

#include "autoplay/replay.h"
#include "core/system.h"
#include "editor/leveleditor.h"
#include "editor/recovery.h"
#include "editor/shell/editorlayout.h"
#include "editor/shell/toolswindow.h"
#include "editor/testplay.h"

namespace ZOVEngine {

/// The system that runs the level editor's panels: the last of the engine's, and only there when
/// the program was started with its tools layer.
///
/// While the editor's state runs, each step makes one frame of panels over the picture of the level
/// and shows it. In every other state it does nothing, and the renderer shows its frames itself.
class EditorSystem final : public UnpausedSystem {
  RTTR_ENABLE(UnpausedSystem)

 public:
  EditorSystem() = default;
  ~EditorSystem() override = default;

  /// Does nothing: panels start with the first step of the editor's state.
  void Init() override {}
  void Update(float dt) override;
  /// F9 starts and Escape ends a test-play.
  void SendMessage(Message* message) override;

 private:
  void Begin();
  void End();
  void ShowFrame();
  void ServeRequests();

  std::unique_ptr<ToolsWindow>
      m_window;  ///< kept during a test-play, so that panels stay as they are
  LevelEditor m_editor;
  TestPlay m_test_play;
  Replay m_replay;
  Recovery m_recovery;
  EditorLayout m_layout{m_editor};
  bool m_shown = false;       ///< panels are live
  bool m_leave_play = false;  ///< Escape came while the level was played
};

}  // namespace ZOVEngine
