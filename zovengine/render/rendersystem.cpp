#include "render/rendersystem.h"

#include <cmath>
#include <iostream>
#include <limits>
#include <optional>

#include <glm/ext/matrix_clip_space.hpp>
#include <glm/mat4x4.hpp>

#include "core/base/profile.h"
#include "core/base/wholefile.h"
#include "game/camera.h"
#include "jsonunserializer.h"
#include "objects/gameobjfactory.h"
#include "objects/reflection.h"
#include "physics/components/transform.h"
#include "platform/native.h"
#include "platform/virtualkeys.h"
#include "platform/windowsystem.h"
#include "render/components/animation.h"
#include "render/components/font.h"
#include "render/components/imodel.h"
#include "render/components/light.h"
#include "render/components/render.h"
#include "render/graphicsconfig.h"
#include "render/passes/backgroundpass.h"
#include "render/passes/camerapass.h"
#include "render/passes/crosshairpass.h"
#include "render/passes/debugoverlay.h"
#include "render/passes/instancedpass.h"
#include "render/passes/lightpass.h"
#include "render/passes/linepass.h"
#include "render/passes/spritepass.h"
#include "render/passes/textpass.h"
#include "render/passes/tilepass.h"

ZOV_REGISTRATION(RenderSystem) {
  using ZOVEngine::RenderSystem;
  ZOVEngine::SystemRegistration<RenderSystem>("RenderSystem");
}

namespace ZOVEngine {

RenderSystem* g_render_system = nullptr;

namespace {

constexpr float kFieldOfView = 2.0f * 0.39269909f;  // (unit: radians)
constexpr float kNear = 0.1f;
constexpr float kFar = 3000.0f;

/// That a frame spends on textures which it does not show (unit: nanoseconds).
constexpr std::int64_t kUploadTime = 2'000'000;

constexpr float kContactLineLength = 100.0f;  // (unit: world units)
constexpr float kContactLineWidth = 2.0f;     // (unit: world units)
constexpr float kContactLineLifeTime = 0.5f;  // (unit: seconds)

float WindowAspect() {
  ZOV_ASSERT(g_window_system != nullptr, "RenderSystem needs a window system");
  const Vector3D& size = g_window_system->m_size;
  return size.x / size.y;
}

/// Right-handed perspective with depth from -1 to 1.
Matrix4x4 Perspective(float aspect) {
  ZOV_ASSERT(std::isfinite(aspect) && std::abs(aspect) > std::numeric_limits<float>::epsilon(),
             "The aspect of the window, " + std::to_string(aspect) + ", gives no projection");
  const glm::mat4 columns = glm::perspectiveRH_NO(kFieldOfView, aspect, kNear, kFar);
  Matrix4x4 out;
  for (int r = 0; r < 4; ++r) {
    for (int c = 0; c < 4; ++c) out.at[r][c] = columns[c][r];
  }
  return out;
}

/// Nobody sees the frames of a minimised window, or of a program without a device. The passes run
/// all the same: animations are theirs.
bool IsHidden() {
  return g_gl_device == nullptr || (g_native != nullptr && g_native->IsMinimised());
}

}  // namespace

RenderSystem::RenderSystem() {
  g_render_system = this;
  g_game_obj_factory->RegisterComponents(TypeList<Render, Animation, Font>());
}

RenderSystem::~RenderSystem() {
  std::cout << "Destructor of RenderSystem" << '\n';
  if (g_gl_device != nullptr) g_gl_device->Release();
  if (g_render_system == this) g_render_system = nullptr;
}

void RenderSystem::BeginTextures() {
  m_textures_begun = true;
  ReadConfig();
  if (g_gl_device != nullptr) StartTextures();
}

void RenderSystem::ReadConfig() {
  JsonDocument document;
  document.Open(kGraphicsConfigPath);
  document.Parse();
  ReadGraphicsConfig(document.Root(), this);
}

void RenderSystem::Init() {
  std::cout << "Init RenderSystem" << '\n';
  if (!m_textures_begun) BeginTextures();
  m_textures_begun = false;
  FetchTables();
  if (g_gl_device == nullptr) return;
  m_loader.ReportPaths();
  m_loader.Prefer(ShownTextures());
  StartDevice();
  GlyphLoader loader;
  loader.Open(m_font_path);
  loader.Load(g_gl_device, &m_glyphs);
}

void RenderSystem::FetchTables() {
  m_render_table = FetchTable<Render>();
  m_model_table = FetchTable<iModel>();
  m_transform_table = FetchTable<Transform>();
  m_light_table = FetchTable<Light>();
  m_font_table = FetchTable<Font>();
  m_camera_table = FetchTable<Camera>();
}

void RenderSystem::StartDevice() {
  g_gl_device->SetSwapInterval(m_vsync);
  m_view_translate = Vector3D();
  const auto compile = [this](Program program, ShaderRecord* shader) {
    shader->program = CompileShader(program, shader->vertex_path, shader->fragment_path);
  };
  compile(Program::kDefault, &m_default_shader);
  compile(Program::kInstance, &m_instance_shader);
  compile(Program::kLight, &m_light_shader);
  m_view = Matrix4x4::Identity();
  m_view.m[11] = -kViewDistance;
  m_projection = Perspective(WindowAspect());
  compile(Program::kFont, &m_font_shader);
  g_gl_device->CreateResources(m_projection);
}

std::uint32_t RenderSystem::CompileShader(Program program, const std::string& vertexPath,
                                          const std::string& fragmentPath) {
  const std::optional<std::string> vertex = ReadWholeFile(vertexPath);
  const std::optional<std::string> fragment = ReadWholeFile(fragmentPath);
  if (!vertex || !fragment) {
    std::cout << "Error: Shader file not successfully read." << '\n';
  }
  return g_gl_device->CompileProgram(program, vertex.value_or(""), fragment.value_or(""));
}

void RenderSystem::LoadTextures() {
  StartTextures();
  m_loader.ReportPaths();
  m_loader.Finish();
}

bool RenderSystem::RequestTexture(std::uint32_t number) {
  if (!m_loader.Request(number)) return false;
  g_gl_device->FinishTexture(number);
  return true;
}

void RenderSystem::StartTextures() {
  ZOV_ASSERT(m_texture_paths.size() <= kMaxTextures,
             std::string(kGraphicsConfigPath) + ": key \"texPath\": more than 1024 textures");
  m_loader.Start(m_texture_paths, {m_background_tex, kCrosshairTexture}, &m_textures);
}

/// The keys of the screen that is loaded, but for those that every screen shows.
std::vector<std::string> RenderSystem::ShownTextures() const {
  std::vector<std::string> keys;
  for (const Render* render : m_render_table->Components()) {
    if (render->m_visible) keys.push_back(render->m_tex);
  }
  return keys;
}

bool RenderSystem::SaveGraphicsConfig() const {
  JsonWriter writer;
  writer.Open(kGraphicsConfigPath);
  WriteGraphicsConfig(writer.Out(), *this);
  return writer.Close();
}

void RenderSystem::SendMessage(Message* message) {
  switch (message->id) {
    case kKeyDown:
      if (dynamic_cast<KeyDown*>(message)->key == kVkF5) m_debug_toggle = !m_debug_toggle;
      break;
    case kCollidedObjects:
      if (m_debug_draw) TakeContacts(*dynamic_cast<CollidedObjects*>(message));
      break;
    case kSelectedUnit:
      m_selected_id = static_cast<std::int32_t>(dynamic_cast<SelectedUnit*>(message)->objectId);
      break;
    case kLevelBG:
      m_background_tex = dynamic_cast<LevelBG*>(message)->textureName;
      break;
    case kDrawLine: {
      const auto& line = *dynamic_cast<DrawLine*>(message);
      const float* c = line.color;
      m_lines.push_back({line.start, line.end, line.width, {c[0], c[1], c[2], c[3]}});
      break;
    }
    case kSetCamera:
      m_camera_mode = static_cast<std::int32_t>(dynamic_cast<SetCamera*>(message)->mode);
      break;
    default:
      break;
  }
}

void RenderSystem::TakeContacts(const CollidedObjects& message) {
  for (const ContactInfo& contact : message.contacts) {
    for (const Vector3D& point : contact.contactPoints) {
      m_timed_lines.push_back({point, point + contact.normal * kContactLineLength,
                               kContactLineWidth, kContactLineLifeTime, Vector3D(1.0f, 1.0f, 1.0f),
                               0.0f});
    }
    m_collided_ids.push_back(static_cast<std::int32_t>(contact.objectA));
    m_collided_ids.push_back(static_cast<std::int32_t>(contact.objectB));
  }
}

void RenderSystem::Update(float dt) {
  m_dt = dt;
  const std::int64_t start = NowNanoseconds();
  m_painter.Begin(&m_textures);
  m_sprites.Fill(m_render_table->Components(), m_hides);
  DrawWorld();
  DrawOverlays();
  if (!IsHidden()) ShowFrame();
  m_loader.Advance(kUploadTime);
  RecordElapsed("Render", start);
  m_lines.clear();
  m_collided_ids.clear();
}

void RenderSystem::ShowFrame() {
  m_loader.Complete(&m_painter.GetFrame());
  g_gl_device->Execute(m_painter.GetFrame());
  // A tools layer that takes the window's events presents the frame itself, after its panels.
  if (!g_window_state.imguiLive) g_gl_device->Present();
}

// The order of the passes is the stacking order of the frame.
void RenderSystem::DrawWorld() {
  Frame& frame = m_painter.GetFrame();
  const SpriteStep step{m_dt, m_selected_id, m_debug_draw ? &m_collided_ids : nullptr};
  CameraPass(m_camera_table->Components(), &m_view_translate, &frame);
  m_view = frame.view;
  LightPass(m_light_table->Components(), &frame.lights);
  BackgroundPass(m_background_tex, m_painter);
  TilePass(m_sprites.tiles, m_painter);
  frame.ground = static_cast<std::uint32_t>(frame.commands.size());
  InstancedPass(m_sprites.instances, m_painter);
  WorldPass(m_sprites.hazards, step, m_painter);
  WorldPass(m_sprites.world, step, m_painter);
}

void RenderSystem::DrawOverlays() {
  if (m_debug_draw) DrawTree();
  LinePass(m_lines, m_painter);
  InterfacePass(m_sprites.interface, {m_dt, m_selected_id}, m_view_translate.z, m_painter);
  TimedLinePass(m_dt, &m_timed_lines, m_painter);
  if (m_hides == nullptr) {
    TextPass(m_font_table->Components(), m_view_translate.z, &m_glyphs, m_painter);
  }
  CrosshairPass(m_painter);
}

void RenderSystem::DrawTree() {
  if (m_tree_lister == nullptr) return;
  m_tree_rectangles.clear();
  m_tree_lister(&m_tree_rectangles);
  TreePass(m_tree_rectangles, m_painter);
}

}  // namespace ZOVEngine
