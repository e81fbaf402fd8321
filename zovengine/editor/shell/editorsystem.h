#pragma once

#include <memory>

#include "core/system.h"
#include "editor/leveleditor.h"
#include "editor/shell/editorlayout.h"
#include "editor/shell/toolswindow.h"

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
  void SendMessage(Message*) override {}

 private:
  void Begin();
  void End();
  void ShowFrame();

  std::unique_ptr<ToolsWindow> m_window;
  LevelEditor m_editor;
  EditorLayout m_layout;
};

}  // namespace ZOVEngine
