#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "core/base/vector3d.h"
#include "core/messages.h"
#include "core/system.h"
#include "game/camera.h"
#include "objects/componentmanager.h"
#include "physics/components/transform.h"
#include "render/components/font.h"
#include "render/components/light.h"
#include "render/components/render.h"
#include "render/frame.h"
#include "render/gldevice.h"
#include "render/images/glyphs.h"
#include "render/painter.h"
#include "render/passes.h"

namespace ZOVEngine {

class ImageQueue;

/// The largest number of particles of one frame.
inline constexpr std::size_t kMaxInstances = 150000;

/// One of the four shader programs and where its source texts lie.
struct ShaderRecord {
  std::uint32_t program = 0;  ///< name that the device gave it
  std::string vertex_path;
  std::string fragment_path;
};

/// A line that is drawn once, in the next frame.
struct LineRecord {
  Vector3D start;
  Vector3D end;
  float width = 0.0f;      ///< (unit: world units)
  Colour colour = kWhite;  ///< as its sender gave it; values reach the shader unchanged
};

/// A line that is drawn until its time is over.
struct TimedLineRecord {
  Vector3D start;
  Vector3D end;
  float width = 0.0f;      ///< (unit: world units)
  float life_time = 0.0f;  ///< (unit: seconds)
  Vector3D colour;
  float elapsed = 0.0f;  ///< (unit: seconds)
};

/// A rectangle of the collision tree.
struct TreeRectangle {
  Vector3D min;
  Vector3D max;
};

/// Appends the rectangles of the collision tree, each parent before its children.
using TreeLister = void (*)(std::vector<TreeRectangle>* out);

/// Draws the picture of each step: turns the component tables into a Frame, one pass after another,
/// and has the device execute and show it.
///
/// The world is flat and seen in perspective: at the resting distance of 1303.5 one world unit is
/// one pixel of 1080 lines. Nothing is sorted and no depth is tested; the order of the passes, and
/// within a pass the order of the Render table, is the stacking order. It draws while the engine is
/// paused too. Needs g_gl_device and g_window_system from Init on. A bad shader, texture or font is
/// reported on standard output and never stops the program; settings that cannot be read do.
class RenderSystem final : public UnpausedSystem {
  RTTR_ENABLE(UnpausedSystem)

 public:
  /// Sets g_render_system and registers the tables "Render", "Animation" and "Font".
  RenderSystem();
  ~RenderSystem() override;

  /// Reads "Resources/Textures/graphics.json", compiles the programs, loads textures and glyphs.
  /// The picture's aspect is that of the window now and stays so.
  void Init() override;
  /// Draws and shows one frame (unit of `dt`: seconds).
  void Update(float dt) override;
  /// Takes KeyDown, CollidedObjects, SelectedUnit, LevelBG, DrawLine and SetCamera.
  void SendMessage(Message* message) override;

  /// Loads every picture of `m_texture_paths` anew and rebuilds the keys. A picture that fails
  /// prints "ERROR: Failed to load texture." and has no key. More than kMaxTextures end the
  /// program.
  void LoadTextures();
  /// Writes "Resources/Textures/graphics.json". False when that failed; the old file then stands.
  bool SaveGraphicsConfig() const;

  std::string m_background_tex;  ///< texture key
  TextureMap m_textures;         ///< texture numbers by key
  std::vector<std::string> m_texture_paths;
  std::int32_t m_selected_id = -1;  ///< object id of the selected unit
  bool m_debug_draw = false;        ///< guards all debug drawing
  bool m_vsync = false;
  float m_dt = 0.0f;                ///< of the current frame (unit: seconds)
  bool m_debug_toggle = true;       ///< inverted by F5; nothing reads it
  std::int32_t m_camera_mode = -1;  ///< nothing reads it
  std::vector<std::int32_t>
      m_collided_ids;  ///< objects in contact this frame, for the debug colours
  ShaderRecord m_default_shader;
  ShaderRecord m_font_shader;
  ShaderRecord m_instance_shader;
  ShaderRecord m_light_shader;
  Vector3D m_view_translate;  ///< x and y negate the camera's position, z is its z
  Matrix4x4 m_view;
  Matrix4x4 m_projection;
  GlyphMap m_glyphs;
  std::string m_font_path;
  std::vector<LineRecord> m_lines;  ///< of the next frame
  std::vector<TimedLineRecord> m_timed_lines;
  std::shared_ptr<ComponentManager<Render>> m_render_table;
  std::shared_ptr<ComponentManager<iModel>> m_model_table;
  std::shared_ptr<ComponentManager<Transform>> m_transform_table;
  std::shared_ptr<ComponentManager<Light>> m_light_table;
  std::shared_ptr<ComponentManager<Font>> m_font_table;
  std::shared_ptr<ComponentManager<Camera>> m_camera_table;

  Painter m_painter;                   ///< the frame and what lasts between its draws
  SpriteLists m_sprites;               ///< the sprites of the frame by pass
  TreeLister m_tree_lister = nullptr;  ///< for the debug overlay; the collider system sets it
  std::vector<TreeRectangle> m_tree_rectangles;

 private:
  void FetchTables();
  void StartDevice();
  void UploadTextures(ImageQueue* pictures);
  std::uint32_t CompileShader(Program program, const std::string& vertexPath,
                              const std::string& fragmentPath);
  void DrawPasses();
  void TakeContacts(const CollidedObjects& message);
};

extern RenderSystem* g_render_system;

/// Shows the system's cursor in place of the crosshair; never set, a switch for the editor's
/// panels.
extern bool g_show_system_cursor;

}  // namespace ZOVEngine
