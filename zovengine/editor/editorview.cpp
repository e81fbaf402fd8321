#include "editor/editorview.h"

#include <imgui.h>

#include <cmath>

#include "editor/editordata.h"
#include "game/units/enemy.h"
#include "game/units/player.h"
#include "objects/gameobjfactory.h"
#include "physics/components/transform.h"
#include "render/passes/camerapass.h"
#include "ui/buttons/button.h"
#include "ui/elements/uielement.h"

namespace ZOVEngine {
namespace {

constexpr float kWorldHalfWidth = 960.0f;   ///< of the picture (unit: world units)
constexpr float kWorldHalfHeight = 540.0f;  ///< of the picture (unit: world units)
constexpr float kWorldHeight = 1080.0f;
constexpr float kPictureRows = kPictureHeight;
constexpr float kSidePanel = 70.0f;  ///< how far left of the window's middle the picture's lies
constexpr const char* kCameraName = "LECamera";
constexpr const char* kInterfacePrefix = "ui_";

/// World units of the level in a unit of the picture: 1 at the plain distance, less when closer.
float Magnification() {
  return (kViewDistance - EditorCameraPosition().z) / kViewDistance;
}

}  // namespace

Vector3D EditorMousePosition() {
  const ImGuiIO& io = ImGui::GetIO();
  const ImVec2 mouse = io.MousePos;
  const ImVec2 display = io.DisplaySize;
  // Deliberately in this form, since its rounding is the editor's.
  const float scale = (display.y - (display.y - kWorldHeight)) / kPictureRows;
  const float top = (display.y - kPictureRows) * 0.5f - g_editor.m_viewport_offset_y;
  return Vector3D((mouse.x - display.x * 0.5f + kSidePanel) * scale,
                  (-(mouse.y - display.y * 0.5f) - top) * scale, scale);
}

bool MouseInViewport() {
  const Vector3D mouse = EditorMousePosition();
  return std::abs(mouse.x) <= kWorldHalfWidth && std::abs(mouse.y) <= kWorldHalfHeight;
}

bool IsGameInterface(const GameObj& object) {
  if (object.name == kClosingSprite) return false;
  bool found = false;
  for (const GameObj* at = &object; at != nullptr; at = at->parent) {
    if (at->HasComponent<Player>() || at->HasComponent<Enemy>()) return false;
    found = found || at->HasComponent<UIElement>() || at->HasComponent<Button>() ||
            at->name.rfind(kInterfacePrefix, 0) == 0;
  }
  return found;
}

Vector3D EditorCameraPosition() {
  GameObj* camera = g_editor.m_editor_camera;
  return camera != nullptr ? camera->GetComponent<Transform>()->m_local_pos : Vector3D();
}

void MakeEditorCamera(const Vector3D& position) {
  GameObj* camera = g_game_obj_factory->Instantiate("camera", true);
  camera->SetActive(true);
  camera->name = kCameraName;
  camera->GetComponent<Transform>()->m_local_pos = position;
  g_editor.m_editor_camera = camera;
}

Vector3D EditorMouseWorld() {
  const Vector3D mouse = EditorMousePosition();
  const Vector3D camera = EditorCameraPosition();
  const float scale = Magnification();
  return Vector3D(camera.x + mouse.x * scale, camera.y + mouse.y * scale, 0.0f);
}

float WorldUnitsPerPixel() {
  return kWorldHeight / kPictureRows * Magnification();
}

Vector3D WorldToWindow(const Vector3D& world) {
  const ImVec2 display = ImGui::GetIO().DisplaySize;
  const Vector3D camera = EditorCameraPosition();
  const float scale = WorldUnitsPerPixel();
  return Vector3D(display.x * 0.5f - kSidePanel + (world.x - camera.x) / scale,
                  kPictureRows * 0.5f + g_editor.m_viewport_offset_y - (world.y - camera.y) / scale,
                  0.0f);
}

}  // namespace ZOVEngine
