#include "core/app/leveleditorstate.h"

#include "core/engine.h"
#include "core/messages.h"
#include "editor/assetimport.h"
#include "editor/editordata.h"
#include "editor/editorsave.h"
#include "editor/editorview.h"
#include "objects/gameobjfactory.h"
#include "physics/components/transform.h"
#include "platform/inputsystem.h"
#include "platform/native.h"
#include "platform/virtualkeys.h"
#include "platform/windowsystem.h"

namespace ZOVEngine {
namespace {

constexpr float kZoomStep = 15.0f;   ///< a turn of the wheel (unit: world units)
constexpr float kArrowStep = 10.0f;  ///< a press of an arrow key (unit: world units)
constexpr std::int32_t kWidthAfter = 1280, kHeightAfter = 720;  ///< of the window (unit: pixels)

Vector3D& CameraPosition() {
  return g_editor.m_editor_camera->GetComponent<Transform>()->m_local_pos;
}

}  // namespace

void LevelEditorState::Enter() {
  MakeEditorCamera(Vector3D());
  g_editor.m_dragging = false;
  g_engine->paused = true;
}

void LevelEditorState::SendMessage(Message* message) {
  // Between the request to leave and the next state there is no camera.
  if (g_editor.m_input_captured || g_editor.m_editor_camera == nullptr) return;
  if (!Handle(message)) return;
  if (!g_editor.m_ctrl_down || !g_native->IsKeyDown('S')) return;
  SaveOpenLevel();
  g_editor.m_ctrl_down = false;
}

bool LevelEditorState::Handle(Message* message) {
  switch (message->id) {
    case kMouseButton:
      Pan(dynamic_cast<MouseButton&>(*message));
      return true;
    case kMouseScroll:
      Zoom(dynamic_cast<MouseScroll&>(*message));
      return true;
    case kKeyDown:
      OnKeyDown(dynamic_cast<KeyDown&>(*message));
      return true;
    case kKeyUp:
      return OnKeyUp(dynamic_cast<KeyUp&>(*message));
    case kDroppedFile:
      Import(std::vector<std::string>(dynamic_cast<DroppedFile&>(*message).files));
      return true;
    default:
      return false;
  }
}

void LevelEditorState::Pan(const MouseButton& message) {
  if (g_editor.m_mouse_captured) return;
  const bool right = message.button == 1;
  if (!MouseInViewport() || (right && message.pressed == 0)) {
    g_editor.m_dragging = false;
    return;
  }
  const Vector3D cursor = GetCursorScreenPosition();
  if (right && !g_editor.m_dragging) {
    g_editor.m_last_mouse = cursor;
    g_editor.m_dragging = true;
  }
  if (!g_editor.m_dragging) return;
  CameraPosition() -= cursor - g_editor.m_last_mouse;
  g_editor.m_last_mouse = cursor;
}

void LevelEditorState::Zoom(const MouseScroll& message) {
  if (g_editor.m_mouse_captured || !MouseInViewport()) return;
  CameraPosition().z += message.direction == 0 ? kZoomStep : -kZoomStep;
}

void LevelEditorState::OnKeyDown(const KeyDown& message) {
  switch (message.key) {
    case kVkControl:
      g_editor.m_ctrl_down = true;
      break;
    case kVkLeft:
      CameraPosition().x -= kArrowStep;
      break;
    case kVkUp:
      CameraPosition().y += kArrowStep;
      break;
    case kVkRight:
      CameraPosition().x += kArrowStep;
      break;
    case kVkDown:
      CameraPosition().y -= kArrowStep;
      break;
    case 'C':
      CameraPosition() = Vector3D(0.0f, 0.0f, 0.0f);
      break;
    default:
      break;
  }
}

bool LevelEditorState::OnKeyUp(const KeyUp& message) {
  switch (message.key) {
    case kVkControl:
      g_editor.m_ctrl_down = false;
      return false;
    case 'W':
      g_editor.m_edit_mode = EDIT_MOVE;
      break;
    case 'R':
      g_editor.m_edit_mode = EDIT_SCALE;
      break;
    case 'E':
      g_editor.m_edit_mode = EDIT_ROTATE;
      break;
    case kVkF5:
      Leave();
      return false;
    case kVkF7:
      SetDisplayMode(false, g_window_state.windowedWidth, g_window_state.windowedHeight);
      break;
    case kVkF8:
      SetDisplayMode(true, 0, 0);
      break;
    default:
      break;
  }
  return true;
}

void LevelEditorState::Import(const std::vector<std::string>& files) {
  if (g_editor.m_level_open) ImportDroppedFiles(g_editor.m_asset_dir, files);
}

void LevelEditorState::Leave() {
  SaveOpenLevel();
  g_editor.m_level_open = g_editor.m_input_captured = g_editor.m_mouse_captured = false;
  g_editor.m_ctrl_down = false;
  DestroyTiles();
  SetDisplayMode(false, kWidthAfter, kHeightAfter);
  g_engine->paused = false;
  g_editor.m_editor_camera->SetActive(false);
  g_editor.m_editor_camera = nullptr;
  ChangeState(kSplashState, "");
}

}  // namespace ZOVEngine
