#include "render/passes/crosshairpass.h"

#include "platform/inputsystem.h"
#include "platform/native.h"
#include "render/painter.h"
#include "render/passes/placement.h"

namespace ZOVEngine {

bool g_show_system_cursor = false;

namespace {

constexpr float kSize = 64.0f;  // (unit: world units)
constexpr float kDepth = 1.0f;  // (unit: world units)
constexpr float kTurn = 0.3f;   // a frame (unit: degrees)

/// Never wrapped (unit: degrees).
float g_angle = 0.0f;

}  // namespace

void CrosshairPass(Painter& painter) {
  static const std::string kTexture = kCrosshairTexture;
  if (g_native != nullptr) g_native->SetCursorVisible(g_show_system_cursor);
  if (g_show_system_cursor) return;
  g_angle += kTurn;
  Vector3D cursor = GetCursorScreenPosition();
  cursor.z = kDepth;
  Placement placement = UprightPlacement(cursor, kSize, kSize);
  placement.rotate_radians = g_angle * kRadiansPerDegree;
  painter.BindTexture(kTexture);
  painter.Upload(TextureWindow());
  painter.DrawQuad(Program::kDefault, placement, kWhite);
}

}  // namespace ZOVEngine
