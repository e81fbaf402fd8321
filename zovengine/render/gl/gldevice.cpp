#include "render/gldevice.h"

#include <GL/glew.h>
// glew.h must come before other GL headers.
#include <GL/glu.h>

#include <algorithm>
#include <array>
#include <unordered_set>

#include "render/gl/glatlas.h"
#include "render/gl/glground.h"
#include "render/gl/glkept.h"
#include "render/gl/gloptions.h"
#include "render/gl/glplanner.h"
#include "render/gl/glprogram.h"
#include "render/gl/glstate.h"
#include "render/gl/gltextures.h"
#include "render/images/mipmaps.h"

namespace ZOVEngine {

GLDevice* g_gl_device = nullptr;

namespace {

constexpr double kFieldOfView = 45.0;  // (unit: degrees)
constexpr double kNearPlane = 1.0;
constexpr double kFarPlane = 1000.0;
/// The answer of glewInit in a context that is not GLX's, with all entry points loaded.
constexpr GLenum kNoGlxDisplay = 4;

enum Attribute : GLuint { kPosition = 0, kUv = 1, kModel = 2, kTint = 6, kUnit = 7, kNear = 8 };

const void* Offset(std::size_t bytes) {
  // OpenGL takes offsets into a bound buffer as pointers.
  return reinterpret_cast<const void*>(bytes);  // NOLINT(performance-no-int-to-ptr)
}

Matrix4x4 UpsideDown(const Matrix4x4& projection) {
  Matrix4x4 out = projection;
  for (float& number : out.at[1]) number = -number;
  return out;
}

bool Meet(const PixelBox& a, const PixelBox& b) {
  return a.left < b.left + b.width && b.left < a.left + a.width && a.bottom < b.bottom + b.height &&
         b.bottom < a.bottom + a.height;
}

std::string DriverText(GLenum name) {
  const GLubyte* text = glGetString(name);
  return text ? reinterpret_cast<const char*>(text) : "";
}

/// Textures are bound by their number in the game's list. Reserving these names here keeps other
/// code from getting them.
void ReserveTextureNames() {
  std::array<GLuint, kMaxTextures> names;
  glGenTextures(static_cast<GLsizei>(names.size()), names.data());
}

bool IsAtLeast33(GLint major, GLint minor) {
  return major > 3 || (major == 3 && minor >= 3);
}

/// The device on OpenGL 3.3, compatibility profile.
///
/// Execute plans the whole frame first (FramePlanner), uploads the planned vertices, indices and
/// instances with one call each, and then issues the planned draws. The ground is drawn into a
/// picture that is kept, and there only where it changed, unless the view moves. Texture number i
/// is the texture object of name i, object 0 included. The depth test is never on: the order of
/// commands is the stacking order.
class RealGLDevice final : public GLDevice {
 public:
  RealGLDevice(const GLOptions& options, void (*swap_buffers)(), void (*set_swap_interval)(int))
      : m_options(options), m_swap_buffers(swap_buffers), m_set_swap_interval(set_swap_interval) {}

  std::string Start() override;
  void ResetViewport(int width, int height, double aspect) override;
  void SetViewport(int left, int bottom, int width, int height) override;
  void SetSwapInterval(bool vsync) override { m_set_swap_interval(vsync ? 1 : 0); }
  std::uint32_t CompileProgram(Program program, const std::string& vertex_source,
                               const std::string& fragment_source) override;
  void CreateResources(const Matrix4x4& projection) override;
  void UploadTexture(std::uint32_t position, const Image& image) override;
  void FinishTexture(std::uint32_t position) override { MakeMipmaps(position); }
  std::uint32_t UploadGlyph(int width, int height, const std::uint8_t* coverage) override;
  void Execute(const Frame& frame) override;
  void Present() override { m_swap_buffers(); }
  void Release() override;
  DeviceCounters Counters() const override { return m_state.Counters(); }

 private:
  bool PicksByNumber() const;
  void CreateSpriteArray();
  void CreateCornerArray();
  void CreateInstanceArray();
  template <class Vertex>
  void PointAtVertices(GLuint buffer);
  void PointAtInstances(std::uint32_t first);
  void Upload(GLuint buffer, std::size_t bytes, const void* data);
  static bool UploadMipmaps(const Image& image);
  void MakeMipmaps(GLuint texture);
  void UploadPlan();
  void DrawGround(const Frame& frame);
  bool KeepsGround();
  void FindChangedParts();
  void DrawKeptGround(const Frame& frame);
  void RestoreUnits();
  void DrawGroundPart(const Frame& frame, const PixelBox& part);
  bool TouchesPart(const DrawRun& run, const PixelBox& part) const;
  void DrawGroundRuns(const Frame& frame);
  void Bind(const DrawRun& run);
  void Draw(const DrawRun& run, const Frame& frame);
  void Prepare(const DrawRun& run, const Frame& frame);
  void SetCommandValues(const DrawRun& run);

  GLOptions m_options;
  void (*m_swap_buffers)();
  void (*m_set_swap_interval)(int);
  GLState m_state;
  FramePlanner::Programs m_programs;
  FramePlanner::Reaches m_reaches{};
  GlyphAtlas m_atlas;
  TextureUnits m_units;
  std::unordered_set<std::uint32_t> m_uploaded;  ///< but texture 0
  std::unordered_set<std::uint32_t> m_without_mipmaps;
  FramePlanner m_planner{&m_programs, &m_atlas, &m_units};
  Matrix4x4 m_projection;
  Matrix4x4 m_drawn_projection;  ///< the same, or upside down
  std::uint64_t m_resources_number = 0;
  std::uint64_t m_frame_number = 0;
  std::vector<float> m_packed_lights;
  PixelBox m_viewport;
  GroundWatch m_watch;
  KeptPicture m_ground;
  std::vector<PixelBox> m_changed_parts;  ///< of the picture
  bool m_ground_is_kept = false;          ///< the picture shows the ground of the last frame
  bool m_ready = false;
  GLuint m_sprite_array = 0, m_corner_array = 0, m_instance_array = 0;
  GLuint m_vertex_buffer = 0, m_corner_buffer = 0, m_index_buffer = 0, m_instance_buffer = 0;
  std::uint32_t m_pointed_instance = 0;
};

std::string RealGLDevice::Start() {
  glewExperimental = GL_TRUE;
  const GLenum status = glewInit();
  if (status != GLEW_OK && status != kNoGlxDisplay) {
    return "OpenGL could not be started: " +
           std::string(reinterpret_cast<const char*>(glewGetErrorString(status))) + ".";
  }
  GLint major = 0;
  GLint minor = 0;
  glGetIntegerv(GL_MAJOR_VERSION, &major);
  glGetIntegerv(GL_MINOR_VERSION, &minor);
  if (IsAtLeast33(major, minor)) {
    ReserveTextureNames();
    return "";
  }
  return "The game needs OpenGL 3.3, but the graphics driver offers only version " +
         DriverText(GL_VERSION) + ".";
}

void RealGLDevice::ResetViewport(int width, int height, double aspect) {
  glMatrixMode(GL_PROJECTION);
  glLoadIdentity();
  SetViewport(0, 0, width, height);
  gluPerspective(kFieldOfView, aspect, kNearPlane, kFarPlane);
  glMatrixMode(GL_MODELVIEW);
}

void RealGLDevice::SetViewport(int left, int bottom, int width, int height) {
  m_viewport = {left, bottom, width, height};
  glViewport(left, bottom, width, height);
}

std::uint32_t RealGLDevice::CompileProgram(Program program, const std::string& vertex_source,
                                           const std::string& fragment_source) {
  m_ground_is_kept = false;
  const auto at = static_cast<std::size_t>(program);
  m_programs[at] = ProgramSet(vertex_source, fragment_source, PicksByNumber(), m_options.stream);
  m_reaches[at] = m_programs[at].Plain() ? m_programs[at].Plain()->LightReach() : 0.0f;
  return m_programs[at].Name();
}

void RealGLDevice::CreateResources(const Matrix4x4& projection) {
  Release();
  m_ground_is_kept = false;
  m_projection = m_drawn_projection = projection;
  ++m_resources_number;
  GLuint* buffers[] = {&m_vertex_buffer, &m_corner_buffer, &m_index_buffer, &m_instance_buffer};
  for (GLuint* buffer : buffers) glGenBuffers(1, buffer);
  CreateSpriteArray();
  CreateCornerArray();
  CreateInstanceArray();
  glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
  glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
  glDisable(GL_CULL_FACE);
  // The order of commands is the stacking order.
  glDisable(GL_DEPTH_TEST);
  glEnable(GL_BLEND);
  glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
  glClearColor(0.0f, 0.0f, 0.0f, 1.0f);
  m_ready = true;
}

void RealGLDevice::UploadTexture(std::uint32_t position, const Image& image) {
  const std::size_t bytes = 4u * static_cast<std::size_t>(std::max(image.width, 0)) *
                            static_cast<std::size_t>(std::max(image.height, 0));
  if (bytes == 0 || image.pixels.size() < bytes) return;
  m_ground_is_kept = false;
  m_state.EditTexture(position);
  glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, image.width, image.height, 0, GL_RGBA, GL_UNSIGNED_BYTE,
               image.pixels.data());
  m_units.NoteSize(position, image.width, image.height);
  m_units.NoteOpaque(position, IsOpaque(image));
  // A texture that is replaced may be on a unit already, as texture 0 is on every unit at first.
  const bool known = position == 0 || !m_uploaded.insert(position).second;
  m_without_mipmaps.erase(position);
  if (UploadMipmaps(image)) return;
  if (known) glGenerateMipmap(GL_TEXTURE_2D);
  if (!known) m_without_mipmaps.insert(position);
}

/// False for an image that brings none.
bool RealGLDevice::UploadMipmaps(const Image& image) {
  GLint level = 0;
  for (const MipmapLevel& map : ListMipmaps(image)) {
    glTexImage2D(GL_TEXTURE_2D, ++level, GL_RGBA, map.width, map.height, 0, GL_RGBA,
                 GL_UNSIGNED_BYTE, map.pixels);
  }
  return level > 0;
}

/// Mipmaps that an image does not bring are made when its texture is bound for the first time.
void RealGLDevice::MakeMipmaps(GLuint texture) {
  if (m_without_mipmaps.erase(texture) == 0) return;
  m_state.EditTexture(texture);
  glGenerateMipmap(GL_TEXTURE_2D);
}

std::uint32_t RealGLDevice::UploadGlyph(int width, int height, const std::uint8_t* coverage) {
  return m_atlas.Add(m_state, width, height, coverage);
}

void RealGLDevice::Execute(const Frame& frame) {
  m_state.ResetCounters();
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  if (!m_ready) return;
  ++m_frame_number;
  m_planner.Plan(frame, m_reaches, m_projection);
  PackLights(frame.lights, &m_packed_lights);
  UploadPlan();
  DrawGround(frame);
  const std::vector<DrawRun>& runs = m_planner.Runs();
  for (std::size_t i = m_planner.GroundRuns(); i < runs.size(); ++i) Draw(runs[i], frame);
}

/// A ground that is different everywhere may be so again in the next frame: it is drawn straight to
/// the window.
void RealGLDevice::DrawGround(const Frame& frame) {
  const float reach = m_reaches[static_cast<std::size_t>(Program::kLight)];
  if (!m_watch.Compare(frame, m_projection, reach) || !KeepsGround()) {
    m_ground_is_kept = false;
    return DrawGroundRuns(frame);
  }
  FindChangedParts();
  DrawKeptGround(frame);
  m_ground.Show(m_viewport);
}

bool RealGLDevice::KeepsGround() {
  const auto& [left, bottom, width, height] = m_viewport;
  if (!m_options.keep_ground || width <= 0 || height <= 0) return false;
  if (!m_ground.HasSize(width, height)) m_ground_is_kept = false;
  return m_ground.Fit(width, height);
}

void RealGLDevice::FindChangedParts() {
  const auto& [left, bottom, width, height] = m_viewport;
  m_changed_parts.clear();
  if (!m_ground_is_kept) return m_changed_parts.push_back({0, 0, width, height});
  for (const ScreenBox& box : m_watch.Changed()) {
    const PixelBox part = TouchedPixels(box, width, height);
    if (part.width > 0) m_changed_parts.push_back(part);
  }
}

void RealGLDevice::DrawKeptGround(const Frame& frame) {
  m_ground_is_kept = true;
  if (m_changed_parts.empty()) {
    // The plan counts on the textures that the ground leaves on their units.
    for (std::size_t i = 0; i < m_planner.GroundRuns(); ++i) Bind(m_planner.Runs()[i]);
    return;
  }
  m_ground.BeginDrawing();
  m_drawn_projection = UpsideDown(m_projection);
  for (const PixelBox& part : m_changed_parts) {
    m_ground.BeginPart(part);
    RestoreUnits();
    DrawGroundPart(frame, part);
  }
  m_drawn_projection = m_projection;
  m_ground.EndDrawing(m_viewport);
}

/// Binds the textures on which the plan of this frame builds, so that it can be drawn once more.
void RealGLDevice::RestoreUnits() {
  int unit = 0;
  for (const GLuint texture : m_units.AtStart()) m_state.UseTexture(unit++, texture);
}

void RealGLDevice::DrawGroundPart(const Frame& frame, const PixelBox& part) {
  for (std::size_t i = 0; i < m_planner.GroundRuns(); ++i) {
    const DrawRun& run = m_planner.Runs()[i];
    if (TouchesPart(run, part)) {
      Draw(run, frame);
    } else {
      Bind(run);
    }
  }
}

bool RealGLDevice::TouchesPart(const DrawRun& run, const PixelBox& part) const {
  ScreenBox box;
  if (!run.bounds || !m_watch.FindOnScreen(*run.bounds, &box)) return true;
  return Meet(TouchedPixels(box, m_viewport.width, m_viewport.height), part);
}

void RealGLDevice::DrawGroundRuns(const Frame& frame) {
  for (std::size_t i = 0; i < m_planner.GroundRuns(); ++i) Draw(m_planner.Runs()[i], frame);
}

void RealGLDevice::Release() {
  if (!m_ready) return;
  m_ready = false;
  m_state.UseVertexArray(0);
  m_state.UseArrayBuffer(0);
  m_state.UseUploadBuffer(0);
  const GLuint arrays[] = {m_sprite_array, m_corner_array, m_instance_array};
  const GLuint buffers[] = {m_vertex_buffer, m_corner_buffer, m_instance_buffer, m_index_buffer};
  glDeleteVertexArrays(3, arrays);
  glDeleteBuffers(4, buffers);
}

bool RealGLDevice::PicksByNumber() const {
  if (m_options.texture_choice != GLOptions::TextureChoice::kByDriver) {
    return m_options.texture_choice == GLOptions::TextureChoice::kByNumber;
  }
  // A software rasteriser pays for all branches of a comparison chain, and shades a triangle apart
  // from others, so that indexing is safe there.
  return GLEW_ARB_gpu_shader5 && DriverText(GL_RENDERER).find("llvmpipe") != std::string::npos;
}

void RealGLDevice::CreateSpriteArray() {
  glGenVertexArrays(1, &m_sprite_array);
  m_state.UseVertexArray(m_sprite_array);
  PointAtVertices<StreamVertex>(m_vertex_buffer);
  const GLsizei stride = sizeof(StreamVertex);
  for (const GLuint attribute : {kTint, kUnit, kNear}) glEnableVertexAttribArray(attribute);
  glVertexAttribPointer(kTint, 4, GL_FLOAT, GL_FALSE, stride, Offset(offsetof(StreamVertex, tint)));
  glVertexAttribPointer(kUnit, 1, GL_FLOAT, GL_FALSE, stride, Offset(offsetof(StreamVertex, unit)));
  glVertexAttribIPointer(kNear, 2, GL_UNSIGNED_INT, stride, Offset(offsetof(StreamVertex, near)));
}

void RealGLDevice::CreateCornerArray() {
  glGenVertexArrays(1, &m_corner_array);
  m_state.UseVertexArray(m_corner_array);
  PointAtVertices<CornerVertex>(m_corner_buffer);
  glEnableVertexAttribArray(kNear);
  glVertexAttribIPointer(kNear, 2, GL_UNSIGNED_INT, sizeof(CornerVertex),
                         Offset(offsetof(CornerVertex, near)));
}

void RealGLDevice::CreateInstanceArray() {
  glGenVertexArrays(1, &m_instance_array);
  m_state.UseVertexArray(m_instance_array);
  PointAtVertices<StreamVertex>(m_vertex_buffer);
  for (const GLuint attribute : {kModel + 0u, kModel + 1u, kModel + 2u, kModel + 3u}) {
    glEnableVertexAttribArray(attribute);
    glVertexAttribDivisor(attribute, 1);
  }
  PointAtInstances(0);
}

/// Sets the index buffer, positions and texture coordinates of the array in use, which are those of
/// the records of type Vertex in `buffer`.
template <class Vertex>
void RealGLDevice::PointAtVertices(GLuint buffer) {
  glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, m_index_buffer);
  m_state.UseArrayBuffer(buffer);
  glEnableVertexAttribArray(kPosition);
  glEnableVertexAttribArray(kUv);
  const GLsizei stride = sizeof(Vertex);
  glVertexAttribPointer(kPosition, 3, GL_FLOAT, GL_FALSE, stride,
                        Offset(offsetof(Vertex, position)));
  glVertexAttribPointer(kUv, 2, GL_FLOAT, GL_FALSE, stride, Offset(offsetof(Vertex, uv)));
}

/// Points the instance array, which is in use, at the records from `first` on.
void RealGLDevice::PointAtInstances(std::uint32_t first) {
  m_pointed_instance = first;
  m_state.UseArrayBuffer(m_instance_buffer);
  const std::size_t base = first * sizeof(InstanceRecord);
  const GLsizei stride = sizeof(InstanceRecord);
  for (GLuint column = 0; column < 4; ++column) {
    glVertexAttribPointer(kModel + column, 4, GL_FLOAT, GL_FALSE, stride,
                          Offset(base + std::size_t{16} * column));
  }
}

void RealGLDevice::Upload(GLuint buffer, std::size_t bytes, const void* data) {
  if (bytes == 0) return;
  m_state.UseUploadBuffer(buffer);
  glBufferData(GL_COPY_WRITE_BUFFER, static_cast<GLsizeiptr>(bytes), data, GL_DYNAMIC_DRAW);
}

void RealGLDevice::UploadPlan() {
  Upload(m_vertex_buffer, m_planner.Vertices().Bytes(), m_planner.Vertices().Data());
  Upload(m_corner_buffer, m_planner.Corners().Bytes(), m_planner.Corners().Data());
  Upload(m_index_buffer, m_planner.Indices().Bytes(), m_planner.Indices().Data());
  Upload(m_instance_buffer, m_planner.Instances().Bytes(), m_planner.Instances().Data());
}

/// Binds the textures that the plan puts on their units before `run`.
void RealGLDevice::Bind(const DrawRun& run) {
  for (std::size_t i = 0; i < run.bind_count; ++i) {
    const TextureBind& bind = m_units.Binds()[run.first_bind + i];
    MakeMipmaps(bind.texture);
    m_state.BindTexture(bind.unit, bind.texture);
  }
}

void RealGLDevice::Draw(const DrawRun& run, const Frame& frame) {
  Bind(run);
  if (run.glyph_page != 0) m_state.UseTexture(kGlyphUnit, run.glyph_page);
  m_state.UseProgram(run.program->Name());
  Prepare(run, frame);
  const auto count = static_cast<GLsizei>(run.index_count);
  const void* first = Offset(run.first_index * sizeof(std::uint32_t));
  m_state.CountDraw(run.glyph_page != 0);
  if (run.instance_count == 0) {
    m_state.UseVertexArray(run.corners ? m_corner_array : m_sprite_array);
    glDrawElements(run.mode, count, GL_UNSIGNED_INT, first);
    return;
  }
  m_state.UseVertexArray(m_instance_array);
  if (run.first_instance != m_pointed_instance) PointAtInstances(run.first_instance);
  glDrawElementsInstanced(run.mode, count, GL_UNSIGNED_INT, first,
                          static_cast<GLsizei>(run.instance_count));
}

void RealGLDevice::Prepare(const DrawRun& run, const Frame& frame) {
  GLProgram& program = *run.program;
  if (program.prepared_resources != m_resources_number) {
    program.prepared_resources = m_resources_number;
    program.SetConstants();
  }
  program.SetProjection(m_drawn_projection);
  if (program.prepared_frame != m_frame_number) {
    program.prepared_frame = m_frame_number;
    program.SetView(frame.view, frame.view_pos);
    if (run.plain) {
      program.SetLights(frame.lights);
    } else {
      program.SetPackedLights(std::min(static_cast<int>(frame.lights.size()), kMaxLights),
                              m_packed_lights);
    }
  }
  if (!run.plain) program.SetUnit(run.unit);
  if (run.command) SetCommandValues(run);
}

void RealGLDevice::SetCommandValues(const DrawRun& run) {
  run.program->SetColour(run.command->colour);
  if (run.plain && run.instance_count == 0) run.program->SetPlacement(run.command->placement);
}

}  // namespace

std::unique_ptr<GLDevice> MakeGLDevice(void (*swap_buffers)(), void (*set_swap_interval)(int)) {
  return MakeGLDeviceWith(GLOptions(), swap_buffers, set_swap_interval);
}

std::unique_ptr<GLDevice> MakeGLDeviceWith(const GLOptions& options, void (*swap_buffers)(),
                                           void (*set_swap_interval)(int)) {
  return std::make_unique<RealGLDevice>(options, swap_buffers, set_swap_interval);
}

}  // namespace ZOVEngine
