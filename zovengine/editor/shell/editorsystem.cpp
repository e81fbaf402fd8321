#include "editor/shell/editorsystem.h"

#include <imgui.h>

#include "core/statemachine.h"
#include "editor/editordata.h"
#include "editor/editorview.h"
#include "platform/windowsystem.h"
#include "render/gldevice.h"
#include "render/passes/crosshairpass.h"

namespace ZOVEngine {
namespace {

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
/// or works in a panel, nor while Control makes commands of the keys.
void GuardInput() {
  const ImGuiIO& io = ImGui::GetIO();
  g_editor.m_input_captured = io.WantTextInput || io.WantCaptureMouse || io.KeyCtrl;
  if (!io.KeyCtrl) g_editor.m_ctrl_down = false;
}

}  // namespace

void EditorSystem::Update(float) {
  const bool editing = g_state_machine->m_current == kLevelEditorState &&
                       g_state_machine->m_next == kLevelEditorState;
  if (editing && m_window == nullptr) Begin();
  if (!editing && m_window != nullptr) End();
  if (m_window != nullptr) ShowFrame();
}

void EditorSystem::Begin() {
  m_window = std::make_unique<ToolsWindow>();
  g_show_system_cursor = true;
}

void EditorSystem::End() {
  m_window.reset();
  g_show_system_cursor = false;
  ResizeViewport(static_cast<int>(g_window_system->m_size.x),
                 static_cast<int>(g_window_system->m_size.y));
}

void EditorSystem::ShowFrame() {
  m_window->BeginFrame();
  m_layout.Show(m_editor);
  GuardInput();
  m_window->EndFrame();
  PlacePicture();
}

}  // namespace ZOVEngine
