#pragma once

#include <array>
#include <vector>

#include "render/gl/glatlas.h"
#include "render/gl/glcells.h"
#include "render/gl/gllights.h"
#include "render/gl/gloccluders.h"
#include "render/gl/glplan.h"
#include "render/gl/gltextures.h"
#include "render/gl/gltileorder.h"

namespace ZOVEngine {

/// Turns a frame into few draw calls that draw the same pixels.
///
/// Commands that follow each other and suit the same program become one run: the planner places
/// their vertices, which carry tint, texture unit and lights with them. The order of commands
/// stays, with two exceptions that cannot be seen: tiles (TileOrder) and the cells of one lit quad,
/// which do not overlap, are sorted by their number of lights. The parts of the background, the
/// first large quad of the frame, that opaque quads hide are left out. A command whose program has
/// no streamed form becomes a run of its own, whose values the device sets as uniforms. The planner
/// calls GL only to compile a form of a program at its first use.
class FramePlanner {
 public:
  using Programs = std::array<ProgramSet, kProgramCount>;
  using Reaches = std::array<float, kProgramCount>;

  /// All three are the device's and outlive the planner.
  FramePlanner(Programs* programs, const GlyphAtlas* atlas, TextureUnits* units)
      : m_programs(programs), m_atlas(atlas), m_units(units) {}

  /// Plans `frame`, which must stay as it is until the plan was drawn. `reaches` is the reach of
  /// lights by program (unit: world units); `projection` is used to find hidden background.
  void Plan(const Frame& frame, const Reaches& reaches, const Matrix4x4& projection);

  const std::vector<DrawRun>& Runs() const { return m_runs; }
  /// How many of the runs, the first ones, draw the ground; no run draws both ground and others.
  std::size_t GroundRuns() const { return m_ground_runs; }
  const Stream<StreamVertex>& Vertices() const { return m_vertices; }
  const Stream<CornerVertex>& Corners() const { return m_corners; }
  const Stream<std::uint32_t>& Indices() const { return m_indices; }
  const Stream<InstanceRecord>& Instances() const { return m_instances; }

 private:
  /// The values that all commands of a streamed run share.
  struct RunKey {
    Program program = Program::kDefault;
    LightClass lights = LightClass::kNone;
    GLenum mode = GL_TRIANGLES;
    GLuint glyph_page = 0;

    bool operator==(const RunKey&) const = default;
  };

  void FinishGround();
  void Reset(const Frame& frame, const Reaches& reaches);
  void FindBackground(const Matrix4x4& projection);
  void GatherOccluders(std::size_t first, std::size_t end);
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
  void AddGlyph(const GlyphQuad& glyph, const GlyphRectangle& rectangle, const float colour[4]);
  void AddPlainInstances(const DrawCommand& command);
  LightClass PlaceInstances(const DrawCommand& command, CornerVertex* corners);

  DrawRun& BeginRun(GLenum mode);
  void OpenStreamedRun(const RunKey& key);
  void OpenCommandRun(const DrawCommand& command, GLProgram* program, bool plain, GLenum mode);
  void OpenPlainRun(const DrawCommand& command, GLenum mode);
  void OpenTextRun(const DrawCommand& command, GLuint page);
  void CloseRun();
  void ChooseForm(DrawRun* run);
  int TakeUnit(const RunKey& key, GLuint texture);
  void AddQuadIndices(std::uint32_t first, std::uint32_t quads = 1);
  void AddIndices(const DrawCommand& command, std::uint32_t first_vertex);

  bool StreamsSprites(Program program);
  bool IsOpaque(const DrawCommand& command);
  bool IsInvisible(const DrawCommand& command);
  bool IsHidden(const DrawCommand& command, const StreamVertex corners[4]) const;
  LightClass DrawableClass(Program program, LightClass lights);
  LightClass LightSprite(StreamVertex* vertices, std::size_t count, GLenum mode);
  /// The class in which a lit sprite of this area is drawn, which needs `needed`: it joins the open
  /// run if either side is small, and raises the run's class if the run is; but not for more than a
  /// small part of the screen.
  LightClass JoinLitRun(LightClass needed, GLenum mode, float area);
  std::uint32_t CountVertices(const DrawCommand& command) const;
  std::uint32_t VertexNumber(const StreamVertex* vertex) const;
  ProgramSet& Forms(Program program) { return (*m_programs)[static_cast<std::size_t>(program)]; }

  Programs* m_programs;
  const GlyphAtlas* m_atlas;
  TextureUnits* m_units;
  const Frame* m_frame = nullptr;
  std::array<LightField, kProgramCount> m_lights;
  TileOrder m_order;
  CellCutter m_cutter;
  ScreenMap m_screen;
  Occluders m_occluders;
  const DrawCommand* m_background = nullptr;
  std::vector<DrawRun> m_runs;
  std::size_t m_ground_runs = 0;
  Stream<StreamVertex> m_vertices;
  Stream<CornerVertex> m_corners;
  Stream<std::uint32_t> m_indices;
  Stream<InstanceRecord> m_instances;
  RunKey m_key;
  bool m_streamed_run_open = false;
  float m_run_area = 0.0f;    ///< of the lit sprites of the open run
  float m_spare_area = 0.0f;  ///< of those of them that need fewer lights than the run has
  bool m_run_open = false;
  int m_last_unit = 0;
};

}  // namespace ZOVEngine
