#include "render/gl/glplanner.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace ZOVEngine {

namespace {

constexpr std::uint32_t kQuadPattern[6] = {0, 1, 3, 1, 2, 3};
/// Sprites up to this area join a run that evaluates more lights than they need, and runs up to
/// this area evaluate more for the next sprite, which is cheaper than a draw call. The tiles of a
/// level are as large (unit: square world units).
constexpr float kSmallArea = 62.0f * 62.0f;
/// What a run may draw in all with more lights than needed (unit: square world units).
constexpr float kSpareArea = 8.0f * kSmallArea;
/// Of a run with a cut quad: it is never small.
constexpr float kLargeArea = 1e9f;

/// The smallest area of the background: a quarter of the screen, which is 2 by 2 in clip space.
constexpr float kLargeOnScreen = 1.0f;

/// The three matrices of a command, applied in the shaders' order.
class Placer {
 public:
  explicit Placer(const Placement& placement) : m_at(placement) {
    if (placement.rotate_radians == 0.0f) return;
    m_cos = std::cos(placement.rotate_radians);
    m_sin = std::sin(placement.rotate_radians);
  }

  void Place(float x, float y, float z, float out[3]) const {
    const float wide = m_at.scale.x * x;
    const float high = m_at.scale.y * y;
    out[0] = m_cos * wide - m_sin * high + m_at.translate.x;
    out[1] = m_sin * wide + m_cos * high + m_at.translate.y;
    out[2] = m_at.scale.z * z + m_at.translate.z;
  }

 private:
  const Placement& m_at;
  float m_cos = 1.0f;
  float m_sin = 0.0f;
};

void SetTint(StreamVertex* vertex, const float colour[4]) {
  std::copy_n(colour, 4, vertex->tint);
}

void SetNear(StreamVertex* vertices, std::size_t count, const NearLights& near) {
  for (std::size_t i = 0; i < count; ++i) std::copy_n(near.packed, 2, vertices[i].near);
}

void SetUnit(StreamVertex* vertices, std::size_t count, int unit) {
  for (std::size_t i = 0; i < count; ++i) vertices[i].unit = static_cast<float>(unit);
}

/// The unit quad, corner by corner: upper right, lower right, lower left, upper left.
void UnitQuad(const TextureWindow& window, StreamVertex out[4]) {
  constexpr float kX[4] = {0.5f, 0.5f, -0.5f, -0.5f};
  constexpr float kY[4] = {0.5f, -0.5f, -0.5f, 0.5f};
  for (int i = 0; i < 4; ++i) {
    out[i].position[0] = kX[i];
    out[i].position[1] = kY[i];
    out[i].position[2] = 0.0f;
    out[i].uv[0] = kX[i] > 0.0f ? window.u_right : window.u_left;
    out[i].uv[1] = kY[i] > 0.0f ? window.v_top : window.v_bottom;
  }
}

void PlaceQuad(const DrawCommand& command, StreamVertex out[4]) {
  UnitQuad(command.window, out);
  const Placer placer(command.placement);
  for (int i = 0; i < 4; ++i) {
    placer.Place(out[i].position[0], out[i].position[1], 0.0f, out[i].position);
    SetTint(out + i, command.colour);
  }
}

float Area(const WorldBox& box) {
  return (box.right - box.left) * (box.top - box.bottom);
}

float AreaOnScreen(const ScreenBox& box) {
  const float wide = std::min(box.right, 1.0f) - std::max(box.left, -1.0f);
  const float high = std::min(box.top, 1.0f) - std::max(box.bottom, -1.0f);
  return std::max(wide, 0.0f) * std::max(high, 0.0f);
}

bool IsUprightQuad(const DrawCommand& command) {
  return command.kind == DrawCommand::Kind::kQuad && command.placement.rotate_radians == 0.0f;
}

WorldBox Bounds(const Matrix4x4& model) {
  const float wide = 0.5f * (std::abs(model.m[0]) + std::abs(model.m[1]));
  const float high = 0.5f * (std::abs(model.m[4]) + std::abs(model.m[5]));
  return {model.m[3] - wide, model.m[3] + wide, model.m[7] - high, model.m[7] + high};
}

WorldBox Bounds(const StreamVertex* vertices, const std::uint32_t* index,
                const std::uint32_t* end) {
  constexpr float kFar = std::numeric_limits<float>::max();
  WorldBox box{kFar, -kFar, kFar, -kFar};
  for (; index != end; ++index) {
    const float* at = vertices[*index].position;
    box = {std::min(box.left, at[0]), std::max(box.right, at[0]), std::min(box.bottom, at[1]),
           std::max(box.top, at[1])};
  }
  return box;
}

/// Places a corner of the unit quad by `model`. The quad is flat, so its z plays no part.
void PlaceCorner(const Matrix4x4& model, const StreamVertex& corner, CornerVertex* out) {
  const float x = corner.position[0];
  const float y = corner.position[1];
  for (int i = 0; i < 3; ++i) {
    out->position[i] = model.at[i][0] * x + model.at[i][1] * y + model.at[i][3];
  }
  std::copy_n(corner.uv, 2, out->uv);
}

void Transpose(const Matrix4x4& matrix, float columns[16]) {
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 4; ++column) columns[4 * column + row] = matrix.at[row][column];
  }
}

}  // namespace

void FramePlanner::Plan(const Frame& frame, const Reaches& reaches, const Matrix4x4& projection) {
  Reset(frame, reaches);
  FindBackground(projection);
  const std::size_t ground = std::min<std::size_t>(frame.ground, frame.commands.size());
  m_order.Build(frame.commands, ground, m_lights[static_cast<std::size_t>(Program::kLight)]);
  const std::vector<std::uint32_t>& order = m_order.Order();
  for (std::size_t i = 0; i < ground; ++i) Add(frame.commands[order[i]]);
  FinishGround();
  for (std::size_t i = ground; i < order.size(); ++i) Add(frame.commands[order[i]]);
  CloseRun();
}

void FramePlanner::FinishGround() {
  CloseRun();
  m_ground_runs = m_runs.size();
  for (DrawRun& run : m_runs) {
    if (run.plain || run.corners || run.glyph_page != 0) continue;
    const std::uint32_t* first = m_indices.Data() + run.first_index;
    run.bounds = Bounds(m_vertices.Data(), first, first + run.index_count);
  }
}

void FramePlanner::Reset(const Frame& frame, const Reaches& reaches) {
  m_frame = &frame;
  for (std::size_t i = 0; i < m_lights.size(); ++i) m_lights[i].Gather(frame.lights, reaches[i]);
  m_units->StartFrame();
  m_runs.clear();
  m_vertices.Clear();
  m_corners.Clear();
  m_indices.Clear();
  m_instances.Clear();
  m_run_open = m_streamed_run_open = false;
}

/// The ground may be kept for longer than the frame, so that nothing else hides its background.
void FramePlanner::FindBackground(const Matrix4x4& projection) {
  m_screen = ScreenMap(projection, m_frame->view);
  m_background = nullptr;
  const std::vector<DrawCommand>& commands = m_frame->commands;
  for (std::size_t i = 0; i < commands.size() && !m_background; ++i) {
    const Placement& at = commands[i].placement;
    ScreenBox box;
    if (!IsUprightQuad(commands[i])) continue;
    if (!m_screen.Find(Bounds(at), at.translate.z, &box)) continue;
    if (!(AreaOnScreen(box) >= kLargeOnScreen)) continue;
    m_background = &commands[i];
    GatherOccluders(i + 1, i < m_frame->ground ? m_frame->ground : commands.size());
  }
}

void FramePlanner::GatherOccluders(std::size_t first, std::size_t end) {
  m_occluders.Clear();
  for (std::size_t i = first; i < std::min(end, m_frame->commands.size()); ++i) {
    const DrawCommand& command = m_frame->commands[i];
    ScreenBox box;
    if (IsOpaque(command) &&
        m_screen.Find(Bounds(command.placement), command.placement.translate.z, &box)) {
      m_occluders.Add(box);
    }
  }
  m_occluders.Build();
}

void FramePlanner::Add(const DrawCommand& command) {
  if (IsInvisible(command)) return;
  switch (command.kind) {
    case DrawCommand::Kind::kQuad:
      return AddQuad(command);
    case DrawCommand::Kind::kMesh:
      return AddMesh(command, GL_TRIANGLES);
    case DrawCommand::Kind::kOutline:
      return AddMesh(command, GL_LINES);
    case DrawCommand::Kind::kText:
      return AddText(command);
    case DrawCommand::Kind::kInstances:
      return AddInstances(command);
  }
}

void FramePlanner::AddQuad(const DrawCommand& command) {
  if (!StreamsSprites(command.program)) return AddPlainQuad(command);
  StreamVertex* corners = m_vertices.Grab(4);
  PlaceQuad(command, corners);
  FinishQuad(command, corners);
}

void FramePlanner::AddMesh(const DrawCommand& command, GLenum mode) {
  const std::uint32_t count = CountVertices(command);
  if (count == 0) return;
  if (!StreamsSprites(command.program)) return AddPlainMesh(command, mode, count);
  StreamVertex* vertices = m_vertices.Grab(count);
  const Placer placer(command.placement);
  const MeshVertex* mesh = m_frame->vertices.data() + command.base_vertex;
  for (std::uint32_t i = 0; i < count; ++i) {
    placer.Place(mesh[i].position.x, mesh[i].position.y, mesh[i].position.z, vertices[i].position);
    vertices[i].uv[0] = mesh[i].u;
    vertices[i].uv[1] = mesh[i].v;
    SetTint(vertices + i, command.colour);
  }
  const std::uint32_t* indices = m_frame->indices.data() + command.first;
  if (mode == GL_TRIANGLES && command.count == 6 &&
      std::equal(kQuadPattern, kQuadPattern + 6, indices)) {
    FinishQuad(command, vertices);
  } else {
    FinishMesh(command, mode, vertices, count);
  }
}

void FramePlanner::AddText(const DrawCommand& command) {
  if (command.first + std::size_t{command.count} > m_frame->glyphs.size()) return;
  if (!Forms(Program::kFont).Plain()) return;
  GLuint page = 0;
  for (std::uint32_t i = 0; i < command.count; ++i) {
    const GlyphQuad& glyph = m_frame->glyphs[command.first + i];
    const GlyphRectangle& rectangle = m_atlas->Find(glyph.texture);
    if (rectangle.page == 0) continue;
    if (rectangle.page != page) OpenTextRun(command, page = rectangle.page);
    AddGlyph(glyph, rectangle, command.colour);
  }
}

void FramePlanner::AddInstances(const DrawCommand& command) {
  if (command.count == 0 || !Forms(Program::kInstance).Plain()) return;
  if (command.first + std::size_t{command.count} > m_frame->instances.size()) return;
  GLProgram* program = Forms(Program::kInstance).Streamed(LightClass::kEvery, true);
  if (!program) return AddPlainInstances(command);
  // Placed here and not by an instanced draw: a software rasteriser starts anew for each instance,
  // which costs it more than the instance's four corners do.
  const auto first = static_cast<std::uint32_t>(m_corners.Size());
  const LightClass lights = PlaceInstances(command, m_corners.Grab(std::size_t{4} * command.count));
  if (GLProgram* exact = Forms(Program::kInstance).Streamed(lights, true)) program = exact;
  OpenCommandRun(command, program, false, GL_TRIANGLES);
  m_runs.back().corners = true;
  m_runs.back().unit = m_units->Take(command.texture);
  AddQuadIndices(first, command.count);
  CloseRun();
}

void FramePlanner::AddPlainInstances(const DrawCommand& command) {
  const auto first = static_cast<std::uint32_t>(m_instances.Size());
  InstanceRecord* records = m_instances.Grab(command.count);
  for (std::uint32_t i = 0; i < command.count; ++i) {
    Transpose(m_frame->instances[command.first + i], records[i].columns);
  }
  OpenCommandRun(command, Forms(Program::kInstance).Plain(), true, GL_TRIANGLES);
  m_units->TakeUnit(0, command.texture);
  m_runs.back().first_instance = first;
  m_runs.back().instance_count = command.count;
  StreamVertex* corners = m_vertices.Grab(4);
  UnitQuad(command.window, corners);
  AddQuadIndices(VertexNumber(corners));
  CloseRun();
}

void FramePlanner::AddPlainQuad(const DrawCommand& command) {
  if (!Forms(command.program).Plain()) return;
  OpenPlainRun(command, GL_TRIANGLES);
  StreamVertex* corners = m_vertices.Grab(4);
  UnitQuad(command.window, corners);
  AddQuadIndices(VertexNumber(corners));
}

void FramePlanner::AddPlainMesh(const DrawCommand& command, GLenum mode,
                                std::uint32_t vertex_count) {
  if (!Forms(command.program).Plain()) return;
  OpenPlainRun(command, mode);
  StreamVertex* vertices = m_vertices.Grab(vertex_count);
  const MeshVertex* mesh = m_frame->vertices.data() + command.base_vertex;
  for (std::uint32_t i = 0; i < vertex_count; ++i) {
    std::copy_n(mesh[i].position.v, 3, vertices[i].position);
    vertices[i].uv[0] = mesh[i].u;
    vertices[i].uv[1] = mesh[i].v;
  }
  AddIndices(command, VertexNumber(vertices));
}

void FramePlanner::FinishQuad(const DrawCommand& command, StreamVertex* corners) {
  if (IsHidden(command, corners)) return m_vertices.Drop(4);
  RunKey key{command.program, LightClass::kNone, GL_TRIANGLES, 0};
  if (command.program == Program::kLight) {
    key.lights = LightSprite(corners, 4, GL_TRIANGLES);
    if (key.lights != LightClass::kNone && CellCutter::CanCut(corners)) {
      StreamVertex whole[4];
      std::copy_n(corners, 4, whole);
      m_vertices.Drop(4);
      return AddCells(command, whole);
    }
  }
  OpenStreamedRun(key);
  SetUnit(corners, 4, TakeUnit(key, command.texture));
  AddQuadIndices(VertexNumber(corners));
}

void FramePlanner::FinishMesh(const DrawCommand& command, GLenum mode, StreamVertex* vertices,
                              std::uint32_t count) {
  RunKey key{command.program, LightClass::kNone, mode, 0};
  if (command.program == Program::kLight) key.lights = LightSprite(vertices, count, mode);
  OpenStreamedRun(key);
  SetUnit(vertices, count, TakeUnit(key, command.texture));
  AddIndices(command, VertexNumber(vertices));
}

void FramePlanner::AddCells(const DrawCommand& command, const StreamVertex corners[4]) {
  LightField& lights = m_lights[static_cast<std::size_t>(command.program)];
  const std::vector<LitCell>& cells = m_cutter.Cut(corners, &lights);
  for (int i = 0; i < kLightClasses; ++i) {
    AddCellsOfClass(command, corners, cells, static_cast<LightClass>(i));
  }
}

void FramePlanner::AddCellsOfClass(const DrawCommand& command, const StreamVertex corners[4],
                                   const std::vector<LitCell>& cells, LightClass lights) {
  const RunKey key{command.program, DrawableClass(command.program, lights), GL_TRIANGLES, 0};
  for (const LitCell& cell : cells) {
    if (cell.near.Class() != lights) continue;
    StreamVertex placed[4];
    PlaceCell(corners, cell, placed);
    if (IsHidden(command, placed)) continue;
    OpenStreamedRun(key);
    m_run_area = kLargeArea;
    StreamVertex* vertices = m_vertices.Grab(4);
    std::copy_n(placed, 4, vertices);
    SetUnit(vertices, 4, TakeUnit(key, command.texture));
    AddQuadIndices(VertexNumber(vertices));
  }
}

void FramePlanner::AddGlyph(const GlyphQuad& glyph, const GlyphRectangle& rectangle,
                            const float colour[4]) {
  StreamVertex* corners = m_vertices.Grab(4);
  UnitQuad({rectangle.u_left, rectangle.u_right, rectangle.v_top, rectangle.v_bottom}, corners);
  for (int i = 0; i < 4; ++i) {
    float* at = corners[i].position;
    at[0] = at[0] > 0.0f ? glyph.x + glyph.width : glyph.x;
    at[1] = at[1] > 0.0f ? glyph.y + glyph.height : glyph.y;
    at[2] = glyph.z;
    SetTint(corners + i, colour);
  }
  AddQuadIndices(VertexNumber(corners));
}

LightClass FramePlanner::PlaceInstances(const DrawCommand& command, CornerVertex* corners) {
  const LightField& lights = m_lights[static_cast<std::size_t>(Program::kInstance)];
  StreamVertex quad[4];
  UnitQuad(command.window, quad);
  LightClass most = LightClass::kNone;
  for (std::uint32_t i = 0; i < command.count; ++i, corners += 4) {
    const Matrix4x4& model = m_frame->instances[command.first + i];
    const NearLights near = lights.Near(Bounds(model));
    most = std::max(most, near.Class());
    for (int corner = 0; corner < 4; ++corner) {
      PlaceCorner(model, quad[corner], &corners[corner]);
      std::copy_n(near.packed, 2, corners[corner].near);
    }
  }
  return most;
}

DrawRun& FramePlanner::BeginRun(GLenum mode) {
  CloseRun();
  DrawRun& run = m_runs.emplace_back();
  run.mode = mode;
  run.first_index = static_cast<std::uint32_t>(m_indices.Size());
  run.first_bind = m_units->Binds().size();
  m_units->StartRun();
  m_run_open = true;
  return run;
}

void FramePlanner::OpenStreamedRun(const RunKey& key) {
  if (m_streamed_run_open && m_key == key) return;
  BeginRun(key.mode).glyph_page = key.glyph_page;
  m_key = key;
  m_streamed_run_open = true;
}

void FramePlanner::OpenCommandRun(const DrawCommand& command, GLProgram* program, bool plain,
                                  GLenum mode) {
  DrawRun& run = BeginRun(mode);
  run.program = program;
  run.command = &command;
  run.plain = plain;
}

void FramePlanner::OpenPlainRun(const DrawCommand& command, GLenum mode) {
  OpenCommandRun(command, Forms(command.program).Plain(), true, mode);
  m_units->TakeUnit(0, command.texture);
}

void FramePlanner::OpenTextRun(const DrawCommand& command, GLuint page) {
  ProgramSet& font = Forms(Program::kFont);
  if (font.Streamed(LightClass::kNone, true)) {
    return OpenStreamedRun({Program::kFont, LightClass::kNone, GL_TRIANGLES, page});
  }
  OpenCommandRun(command, font.Plain(), true, GL_TRIANGLES);
  m_units->TakeUnit(0, page);
}

void FramePlanner::CloseRun() {
  if (!m_run_open) return;
  DrawRun& run = m_runs.back();
  run.index_count = static_cast<std::uint32_t>(m_indices.Size()) - run.first_index;
  run.bind_count = m_units->Binds().size() - run.first_bind;
  if (m_streamed_run_open) ChooseForm(&run);
  m_run_open = m_streamed_run_open = false;
}

void FramePlanner::ChooseForm(DrawRun* run) {
  ProgramSet& forms = Forms(m_key.program);
  const bool text = m_key.glyph_page != 0;
  run->unit = text ? kGlyphUnit : m_last_unit;
  if (text || (m_units->UsedCount() == 1 && !forms.PicksByNumber())) {
    run->program = forms.Streamed(m_key.lights, true);
  }
  if (!run->program) run->program = forms.Streamed(m_key.lights, false);
}

int FramePlanner::TakeUnit(const RunKey& key, GLuint texture) {
  m_last_unit = m_units->Take(texture);
  if (m_last_unit < 0) {
    CloseRun();
    OpenStreamedRun(key);
    m_last_unit = m_units->Take(texture);
  }
  return m_last_unit;
}

void FramePlanner::AddQuadIndices(std::uint32_t first, std::uint32_t quads) {
  std::uint32_t* indices = m_indices.Grab(std::size_t{6} * quads);
  for (std::uint32_t quad = 0; quad < quads; ++quad, first += 4, indices += 6) {
    for (int i = 0; i < 6; ++i) indices[i] = first + kQuadPattern[i];
  }
}

void FramePlanner::AddIndices(const DrawCommand& command, std::uint32_t first_vertex) {
  std::uint32_t* indices = m_indices.Grab(command.count);
  for (std::uint32_t i = 0; i < command.count; ++i) {
    indices[i] = first_vertex + m_frame->indices[command.first + i];
  }
}

bool FramePlanner::StreamsSprites(Program program) {
  if (program == Program::kDefault) return Forms(program).Streamed(LightClass::kNone, false);
  return program == Program::kLight && Forms(program).Streamed(LightClass::kNone, false) &&
         Forms(program).Streamed(LightClass::kEvery, false);
}

/// Streamed programs use the product of texel and tint as the sprite's alpha.
bool FramePlanner::IsOpaque(const DrawCommand& command) {
  return IsUprightQuad(command) && command.colour[3] >= 1.0f &&
         m_units->IsOpaque(command.texture) && StreamsSprites(command.program);
}

/// A faded sprite or text leaves every pixel as it is.
bool FramePlanner::IsInvisible(const DrawCommand& command) {
  if (command.colour[3] != 0.0f || command.kind == DrawCommand::Kind::kInstances) return false;
  if (command.program == Program::kFont)
    return Forms(Program::kFont).Streamed(LightClass::kNone, true);
  return StreamsSprites(command.program);
}

bool FramePlanner::IsHidden(const DrawCommand& command, const StreamVertex corners[4]) const {
  ScreenBox box;
  return &command == m_background &&
         m_screen.Find(Bounds(corners, 4), corners[0].position[2], &box) && m_occluders.Hides(box);
}

LightClass FramePlanner::DrawableClass(Program program, LightClass lights) {
  return Forms(program).Streamed(lights, false) ? lights : LightClass::kEvery;
}

LightClass FramePlanner::LightSprite(StreamVertex* vertices, std::size_t count, GLenum mode) {
  const WorldBox box = Bounds(vertices, count);
  const NearLights near = m_lights[static_cast<std::size_t>(Program::kLight)].Near(box);
  SetNear(vertices, count, near);
  const LightClass needed = DrawableClass(Program::kLight, near.Class());
  return JoinLitRun(needed, mode, Area(box));
}

LightClass FramePlanner::JoinLitRun(LightClass needed, GLenum mode, float area) {
  const bool may_join =
      m_streamed_run_open && m_key.program == Program::kLight && m_key.mode == mode;
  if (may_join && needed > m_key.lights && m_run_area <= kSmallArea) {
    m_spare_area += m_run_area;
    m_key.lights = needed;
  }
  if (may_join && needed < m_key.lights && area <= kSmallArea &&
      m_spare_area + area <= kSpareArea) {
    m_spare_area += area;
    needed = m_key.lights;
  }
  const bool joins = may_join && needed == m_key.lights;
  m_run_area = joins ? m_run_area + area : area;
  if (!joins) m_spare_area = 0.0f;
  return needed;
}

std::uint32_t FramePlanner::CountVertices(const DrawCommand& command) const {
  if (command.first + std::size_t{command.count} > m_frame->indices.size()) return 0;
  std::uint32_t count = 0;
  for (std::uint32_t i = 0; i < command.count; ++i) {
    count = std::max(count, m_frame->indices[command.first + i] + 1);
  }
  return command.base_vertex + std::size_t{count} > m_frame->vertices.size() ? 0 : count;
}

std::uint32_t FramePlanner::VertexNumber(const StreamVertex* vertex) const {
  return static_cast<std::uint32_t>(vertex - m_vertices.Data());
}

}  // namespace ZOVEngine
