#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "core/base/vector3d.h"
#include "core/messages.h"
#include "core/system.h"
#include "render/frame.h"
#include "render/gldevice.h"
#include "render/images/glyphs.h"
#include "render/linerecord.h"
#include "render/painter.h"
#include "render/spritelists.h"
#include "render/textureloader.h"
#include "render/treerectangle.h"

namespace ZOVEngine {

class Camera;
class Font;
class Light;
class Render;
class Transform;
class iModel;
template <class T>
class ComponentManager;

/// One of the four shader programs with the paths of its source texts.
struct ShaderRecord {
  std::uint32_t program = 0;  ///< its name in the device
  std::string vertex_path;
  std::string fragment_path;
};

/// Draws a frame in each step: turns the component tables into a Frame, one pass after another, and
/// has the device execute and show it.
///
/// The world is flat and seen in perspective: at the resting distance of 1303.5 one world unit is
/// one pixel of 1080 lines. Nothing is sorted and no depth is tested; the order of the passes, and
/// within a pass the order of the Render table, is the stacking order. It draws while the engine is
/// paused too. The factory owns the tables; Init fetches them. Needs g_window_system from Init on;
/// without a g_gl_device it loads and shows nothing, but steps the animations. A bad shader,
/// texture or font is reported on standard output and never stops the program; settings that cannot
/// be read do.
class RenderSystem final : public UnpausedSystem {
  RTTR_ENABLE(UnpausedSystem)

 public:
  /// Sets g_render_system and registers the tables "Render", "Animation" and "Font".
  RenderSystem();
  ~RenderSystem() override;

  /// Reads "Resources/Textures/graphics.json" and begins to decode its textures. Needs no window:
  /// called before Init it has decoded some when the window is there.
  void BeginTextures();
  /// Calls BeginTextures if nobody has, compiles the programs and loads the glyphs. A frame waits
  /// for the textures that it shows, the others come behind it. The projection's aspect is that of
  /// the window now and stays so.
  void Init() override;
  /// Draws and shows one frame (unit of `dt`: seconds). While the window is minimised the frame is
  /// made, but not drawn.
  void Update(float dt) override;
  /// Takes KeyDown, CollidedObjects, SelectedUnit, LevelBG, DrawLine and SetCamera.
  void SendMessage(Message* message) override;

  /// Loads every image of `m_texture_paths` anew, waiting for all, and rebuilds the keys. An image
  /// that fails prints "ERROR: Failed to load texture." and has no key. More than kMaxTextures end
  /// the program.
  void LoadTextures();
  /// True if the texture of this number is in the device, whole, so that a panel can draw it. One
  /// that is still to come is loaded before those that nobody has asked for; a panel asks in each
  /// frame for what it shows.
  bool RequestTexture(std::uint32_t number);
  /// Takes this time, which is left until the next step, for textures that are still to come (unit:
  /// nanoseconds).
  void Rest(std::int64_t duration) { m_loader.Rest(duration); }
  /// Writes "Resources/Textures/graphics.json". False when that failed; the old file then stands.
  bool SaveGraphicsConfig() const;

  std::string m_background_tex;  ///< texture key
  TextureMap m_textures;         ///< texture numbers by key
  /// The level editor leaves out sprites for which this holds, and all texts; null draws
  /// everything.
  bool (*m_hides)(const GameObj& object) = nullptr;
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

  TreeLister m_tree_lister = nullptr;  ///< for the debug overlay; may be null

  /// The frame that was drawn last.
  const Frame& LastFrame() const { return m_painter.GetFrame(); }

 private:
  void FetchTables();
  void StartDevice();
  void ReadConfig();
  void StartTextures();
  std::vector<std::string> ShownTextures() const;
  std::uint32_t CompileShader(Program program, const std::string& vertexPath,
                              const std::string& fragmentPath);
  void DrawWorld();
  void DrawOverlays();
  void ShowFrame();
  void DrawTree();
  void TakeContacts(const CollidedObjects& message);

  bool m_textures_begun = false;
  TextureLoader m_loader;
  Painter m_painter;      ///< the frame, and the state that lasts between its draws
  SpriteLists m_sprites;  ///< the sprites of the frame by pass
  std::vector<TreeRectangle> m_tree_rectangles;
};

extern RenderSystem* g_render_system;

}  // namespace ZOVEngine
