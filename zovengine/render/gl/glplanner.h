#pragma once

#include <array>
#include <vector>

#include "render/gl/glatlas.h"
#include "render/gl/glcells.h"
#include "render/gl/glcover.h"
#include "render/gl/gllights.h"
#include "render/gl/glplan.h"
#include "render/gl/gltextures.h"

namespace ZOVEngine {

/// Turns a frame into few draw calls that give the same picture.
///
/// Commands that follow each other and suit the same program become one run: their vertices are
/// placed here and carry colour, texture unit and lamps with them. The order of commands is kept,
/// with one exception that cannot be seen: the cells of one lit quad, which do not overlap, are
/// sorted by their number of lamps. What opaque quads hide of the ground, the first large quad of
/// the frame, is left out. A command whose program has no streamed form becomes a run of its own,
/// with its values left to be set as uniforms. No GL call is made except to compile a form of a
/// program that is used for the first time.
class FramePlanner {
 public:
  using Programs = std::array<ProgramSet, kProgramCount>;
  using Reaches = std::array<float, kProgramCount>;

  /// All three are the device's and outlive the planner.
  FramePlanner(Programs* programs, const GlyphAtlas* atlas, TextureUnits* units)
      : m_programs(programs), m_atlas(atlas), m_units(units) {}

  /// Plans `frame`, which must stay as it is until the plan was drawn. `reaches`: how far the lit
  /// programs see (unit: world units). `projection` tells what hides the ground.
  void Plan(const Frame& frame, const Reaches& reaches, const Matrix4x4& projection);

  const std::vector<DrawRun>& Runs() const { return m_runs; }
  const Stream<StreamVertex>& Vertices() const { return m_vertices; }
  const Stream<std::uint32_t>& Indices() const { return m_indices; }
  const Stream<InstanceRecord>& Instances() const { return m_instances; }

 private:
  /// What the commands of a streamed run have in common.
  struct RunKey {
    Program program = Program::kDefault;
    LightClass lights = LightClass::kNone;
    GLenum mode = GL_TRIANGLES;
    GLuint glyph_page = 0;

    bool operator==(const RunKey&) const = default;
  };

  void Reset(const Frame& frame, const Reaches& reaches);
  void FindGround(const Matrix4x4& projection);
  void GatherCover(std::size_t first);
  void Add(const DrawCommand& command);

  void AddQuad(const DrawCommand& command);
  void AddMesh(const DrawCommand& command, GLenum mode);
  void AddText(const DrawCommand& command);
  void AddInstances(const DrawCommand& command);
  void AddPlainQuad(const DrawCommand& command);
  void AddPlainMesh(const DrawCommand& command, GLenum mode, std::uint32_t vertex_count);

  void FinishQuad(const DrawCommand& command, StreamVertex* corners);
  void FinishMesh(const DrawCommand& command, GLenum mode, StreamVertex* vertices,
                  std::uint32_t count);
  void AddCells(const DrawCommand& command, const StreamVertex corners[4]);
  void AddCellsOfClass(const DrawCommand& command, const StreamVertex corners[4],
                       const std::vector<LitCell>& cells, LightClass lights);
  void AddGlyph(const GlyphQuad& glyph, const GlyphAtlas::Spot& spot, const float colour[4]);
  void AddPlainInstances(const DrawCommand& command);
  LightClass PlaceInstances(const DrawCommand& command, StreamVertex* vertices);

  DrawRun& BeginRun(GLenum mode);
  void OpenStreamedRun(const RunKey& key);
  void OpenCommandRun(const DrawCommand& command, GLProgram* program, bool plain, GLenum mode);
  void OpenPlainRun(const DrawCommand& command, GLenum mode);
  void OpenTextRun(const DrawCommand& command, GLuint page);
  void CloseRun();
  void ChooseForm(DrawRun* run);
  int TakeUnit(const RunKey& key, GLuint texture);
  void AddQuadIndices(const StreamVertex* first);
  void AddIndices(const DrawCommand& command, std::uint32_t first_vertex);

  bool StreamsSprites(Program program);
  bool IsOpaque(const DrawCommand& command);
  bool IsHidden(const DrawCommand& command, const StreamVertex corners[4]) const;
  LightClass DrawableClass(Program program, LightClass lights);
  LightClass LightSprite(StreamVertex* vertices, std::size_t count, GLenum mode);
  std::uint32_t VertexCountOf(const DrawCommand& command) const;
  std::uint32_t NumberOf(const StreamVertex* vertex) const;
  ProgramSet& SetOf(Program program) { return (*m_programs)[static_cast<std::size_t>(program)]; }

  Programs* m_programs;
  const GlyphAtlas* m_atlas;
  TextureUnits* m_units;
  const Frame* m_frame = nullptr;
  std::array<LightField, kProgramCount> m_lights;
  CellCutter m_cutter;
  ScreenMap m_screen;
  Cover m_cover;
  const DrawCommand* m_ground = nullptr;
  std::vector<DrawRun> m_runs;
  Stream<StreamVertex> m_vertices;
  Stream<std::uint32_t> m_indices;
  Stream<InstanceRecord> m_instances;
  RunKey m_key;
  bool m_streamed_run_open = false;
  bool m_run_open = false;
  int m_last_unit = 0;
};

}  // namespace ZOVEngine
