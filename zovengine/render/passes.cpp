#include "render/passes.h"

#include <algorithm>
#include <cmath>

#include "platform/inputsystem.h"
#include "platform/native.h"
#include "render/placement.h"
#include "render/rendersystem.h"
#include "render/textlayout.h"

namespace ZOVEngine {

bool g_show_system_cursor = false;

namespace {

constexpr float kBackgroundWidth = 9600.0f;
constexpr float kBackgroundHeight = 5400.0f;
constexpr float kBackgroundRepeats = 5.0f;
constexpr float kCrosshairSize = 64.0f;
constexpr float kCrosshairTurn = 0.3f;  // a frame (unit: degrees)

/// Never wrapped (unit: degrees).
float g_crosshair_angle = 0.0f;

Placement UprightAt(const Vector3D& position, float width, float height) {
  Placement placement;
  placement.translate = position;
  placement.scale = Vector3D(width, height, 1.0f);
  return placement;
}

void DrawThickLine(Painter& painter, const Vector3D& start, const Vector3D& end, float width,
                   const Colour& colour) {
  static const std::string kTexture = "yellow";
  const float dx = end.x - start.x;
  const float dy = end.y - start.y;
  Placement placement;
  placement.translate = Vector3D((start.x + end.x) * 0.5f, (start.y + end.y) * 0.5f, start.z);
  placement.rotate_radians = -std::atan2(dx, dy);
  placement.scale = Vector3D(width, std::sqrt(dx * dx + dy * dy), 0.0f);
  painter.BindTexture(kTexture);
  painter.DrawQuad(Program::kDefault, placement, colour);
}

bool IsHidden(GameObj* object) {
  return object->HasComponent<Render>() && !object->GetComponent<Render>()->m_visible;
}

Transform& TransformOf(GameObj* object, const char* component) {
  ZOV_ASSERT(object->HasComponent<Transform>(),
             "Object \"" + object->name + "\" has a " + component + " and no Transform");
  return *object->GetComponent<Transform>();
}

LightRecord RecordOf(const Light& light) {
  LightRecord record;
  record.position = light.m_pos + TransformOf(light.m_owner, "Light").m_world_pos;
  record.ambient = light.m_ambient;
  record.diffuse = light.m_diffuse;
  record.specular = light.m_specular;
  record.ambientStr = light.m_ambientStr;
  record.diffuseStr = light.m_diffuseStr;
  record.specularStr = light.m_specularStr;
  return record;
}

/// Translation times scale times rotation, flat at z 0.
Matrix4x4 InstanceMatrix(const Transform& transform) {
  const float angle = transform.m_world_rotate * kRadiansPerDegree;
  const float cosine = std::cos(angle);
  const float sine = std::sin(angle);
  const Vector3D& scale = transform.m_world_scale;
  Matrix4x4 out = Matrix4x4::Translation(transform.m_world_pos.x, transform.m_world_pos.y);
  out.m[0] = scale.x * cosine;
  out.m[1] = scale.x * -sine;
  out.m[4] = scale.y * sine;
  out.m[5] = scale.y * cosine;
  return out;
}

/// Where a text starts. A text without a parent stands at twice its coordinates, deliberately:
/// level data relies on it.
Vector3D TextPosition(RenderSystem& system, GameObj* object, const Transform& own) {
  GameObj* anchor = object->parent != nullptr ? object->parent : object;
  Vector3D position = TransformOf(anchor, "text").m_world_pos + own.m_local_pos;
  if (object->parent != nullptr && object->parent->HasComponent<Camera>()) {
    position.z -= system.m_view_translate.z;
  }
  return position;
}

}  // namespace

void CameraPass(RenderSystem& system) {
  Vector3D& view = system.m_view_translate;
  for (const Camera* camera : system.m_camera_table->Components()) {
    if (!camera->m_active) continue;
    const Vector3D at = TransformOf(camera->m_owner, "Camera").m_world_pos + camera->m_offset;
    view = Vector3D(-at.x, -at.y, at.z);
  }
  const Vector3D position(view.x, view.y, view.z - kViewDistance);
  system.m_view = Matrix4x4::Translation(position.x, position.y);
  system.m_view.m[11] = position.z;
  Frame& frame = system.m_painter.GetFrame();
  frame.view = system.m_view;
  frame.view_pos = position;
}

void LightPass(RenderSystem& system) {
  std::vector<LightRecord>& lights = system.m_painter.GetFrame().lights;
  for (const Light* light : system.m_light_table->Components()) {
    if (light->m_active && !IsHidden(light->m_owner)) lights.push_back(RecordOf(*light));
  }
}

void BackgroundPass(RenderSystem& system) {
  Painter& painter = system.m_painter;
  painter.Upload({0.0f, kBackgroundRepeats, 0.0f, kBackgroundRepeats});
  painter.BindTexture(system.m_background_tex);
  painter.DrawQuad(Program::kLight, UprightAt(Vector3D(), kBackgroundWidth, kBackgroundHeight),
                   kWhite);
  painter.UploadQuad();
}

void TilePass(RenderSystem& system) {
  Painter& painter = system.m_painter;
  for (const Sprite& sprite : system.m_sprites.tiles) {
    const Render& render = *sprite.render;
    if (!render.m_visible) continue;
    painter.BindTexture(render.m_tex);
    painter.DrawQuad(ProgramOf(render), PlacementOf(sprite.GetTransform()), render.m_colour);
  }
}

void InstancedPass(RenderSystem& system) {
  Painter& painter = system.m_painter;
  std::vector<Matrix4x4>& instances = painter.GetFrame().instances;
  const Render* first = nullptr;
  for (const Sprite& sprite : system.m_sprites.instances) {
    if (!sprite.render->m_visible) continue;
    ZOV_ASSERT(instances.size() < kMaxInstances, "More than 150000 instanced particles");
    if (first == nullptr) first = sprite.render;
    instances.push_back(InstanceMatrix(sprite.GetTransform()));
  }
  if (first == nullptr) return;
  painter.BindTexture(first->m_tex);
  painter.DrawInstances(first->m_colour);
}

void LinePass(RenderSystem& system) {
  for (const LineRecord& line : system.m_lines) {
    DrawThickLine(system.m_painter, line.start, line.end, line.width, line.colour);
  }
}

void TimedLinePass(RenderSystem& system) {
  std::vector<TimedLineRecord>& lines = system.m_timed_lines;
  for (TimedLineRecord& line : lines) line.elapsed += system.m_dt;
  std::erase_if(lines, [](const auto& line) { return line.life_time <= line.elapsed; });
  for (const TimedLineRecord& line : lines) {
    const Vector3D& c = line.colour;
    DrawThickLine(system.m_painter, line.start, line.end, line.width, {c.x, c.y, c.z, 1.0f});
  }
}

void TextPass(RenderSystem& system) {
  Painter& painter = system.m_painter;
  std::vector<GlyphQuad>& glyphs = painter.GetFrame().glyphs;
  for (const Font* font : system.m_font_table->Components()) {
    if (!font->m_active) continue;
    const Transform& transform = TransformOf(font->m_owner, "Font");
    const auto first = static_cast<std::uint32_t>(glyphs.size());
    LayOutText(font->m_text, TextPosition(system, font->m_owner, transform),
               transform.m_world_scale.x, &system.m_glyphs, &glyphs);
    painter.DrawText(first, font->m_colour);
  }
}

void CrosshairPass(RenderSystem& system) {
  static const std::string kTexture = "Crosshair";
  if (g_native != nullptr) g_native->SetCursorVisible(g_show_system_cursor);
  if (g_show_system_cursor) return;
  g_crosshair_angle += kCrosshairTurn;
  Vector3D cursor = GetCursorScreenPosition();
  cursor.z = 1.0f;
  Placement placement = UprightAt(cursor, kCrosshairSize, kCrosshairSize);
  placement.rotate_radians = g_crosshair_angle * kRadiansPerDegree;
  Painter& painter = system.m_painter;
  painter.BindTexture(kTexture);
  painter.Upload(TextureWindow());
  painter.DrawQuad(Program::kDefault, placement, kWhite);
}

}  // namespace ZOVEngine
