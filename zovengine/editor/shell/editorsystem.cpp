#include "editor/shell/editorsystem.h"

#include <imgui.h>

#include <chrono>
#include <utility>

#include "core/messages.h"
#include "core/statemachine.h"
#include "editor/editordata.h"
#include "editor/editorview.h"
#include "platform/virtualkeys.h"
#include "platform/windowsystem.h"
#include "render/gldevice.h"
#include "render/passes/crosshairpass.h"
#include "render/rendersystem.h"

namespace ZOVEngine {
namespace {

constexpr const char* kEmptyBackground = "Background_Space";  ///< while no level is open

/// Puts the picture of the level where EditorMousePosition looks for it.
void PlacePicture() {
  const ImVec2 display = ImGui::GetIO().DisplaySize;
  const Vector3D middle = WorldToWindow(EditorCameraPosition());
  g_gl_device->SetViewport(
      static_cast<int>(middle.x) - kPictureWidth / 2,
      static_cast<int>(display.y) - static_cast<int>(middle.y) - kPictureHeight / 2, kPictureWidth,
      kPictureHeight);
}

/// Which of the keyboard's and the mouse's messages the state may have: none while the author types
/// or Control makes commands of the keys, none of the mouse while it is a panel's or a tool's.
void GuardInput(bool mouse_taken) {
  const ImGuiIO& io = ImGui::GetIO();
  g_editor.m_input_captured = io.WantTextInput || io.KeyCtrl;
  g_editor.m_mouse_captured = io.WantCaptureMouse || mouse_taken;
  // The release of the button may be among the messages that the state does not get.
  if (g_editor.m_input_captured || g_editor.m_mouse_captured) g_editor.m_dragging = false;
  if (!io.KeyCtrl) g_editor.m_ctrl_down = false;
}

}  // namespace

void EditorSystem::Update(float) {
  if (m_shown) m_window->TakeEvents();
  const bool editing = g_state_machine->m_current == kLevelEditorState &&
                       g_state_machine->m_next == kLevelEditorState;
  if (editing && !m_shown) Begin();
  if (!editing && m_shown) End();
  if (m_shown) ShowFrame();
  ServeRequests();
}

void EditorSystem::SendMessage(Message* message) {
  if (message->id != kKeyUp) return;
  const std::uint64_t key = dynamic_cast<KeyUp&>(*message).key;
  if (key == kVkF9 && m_shown) m_editor.wants_test_play = true;
  if (key == kVkEscape && m_test_play.IsRunning()) m_leave_play = true;
}

/// Objects must not vanish in the middle of a broadcast or of a panel, so it is done here.
void EditorSystem::ServeRequests() {
  const std::string game = std::exchange(m_editor.wants_replay, "");
  if (!game.empty() && m_replay.Load(game)) m_editor.wants_test_play = true;
  if (std::exchange(m_editor.wants_test_play, false) && !m_test_play.Start(m_editor)) {
    m_replay.Stop();
  }
  // The replay gives the inputs of the step that comes, from the one that enters the level on.
  if (m_test_play.IsRunning()) m_replay.Step();
  if (std::exchange(m_leave_play, false)) {
    m_replay.Stop();
    m_test_play.Stop();
  }
}

void EditorSystem::Begin() {
  m_shown = true;
  if (m_window == nullptr) m_window = std::make_unique<ToolsWindow>();
  m_window->SetLive(true);
  g_show_system_cursor = true;
  g_render_system->m_hides = IsGameInterface;
  if (!m_editor.IsOpen()) g_render_system->m_background_tex = kEmptyBackground;
  if (m_test_play.IsRunning()) m_test_play.Resume(m_editor);
}

void EditorSystem::End() {
  m_shown = false;
  m_window->SetLive(false);
  if (!m_test_play.IsRunning()) m_window.reset();
  g_show_system_cursor = false;
  g_render_system->m_hides = nullptr;
  ResizeViewport(static_cast<int>(g_window_system->m_size.x),
                 static_cast<int>(g_window_system->m_size.y));
}

void EditorSystem::ShowFrame() {
  m_recovery.Step(m_editor, std::chrono::steady_clock::now());
  m_window->BeginFrame();
  m_layout.Show(m_editor);
  GuardInput(m_layout.TakesRightButton());
  m_window->EndFrame();
  PlacePicture();
}

}  // namespace ZOVEngine
