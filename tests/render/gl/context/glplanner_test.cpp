#include "render/gl/glplanner.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "render/gl/context/glscene.h"

namespace carapace_test {

namespace {

using ZOVEngine::DrawCommand;
using ZOVEngine::DrawRun;
using ZOVEngine::Frame;
using ZOVEngine::FramePlanner;
using ZOVEngine::LightClass;
using ZOVEngine::Matrix4x4;
using ZOVEngine::Program;
using ZOVEngine::ProgramSet;
using ZOVEngine::StreamVertex;
using ZOVEngine::Vector3D;

/// Plans frames with the shipped programs and draws none of them.
class FramePlannerTest : public testing::Test {
 protected:
  FramePlannerTest() : m_context(64, 64) {
    glewExperimental = GL_TRUE;
    glewInit();
    Compile(true);
    for (std::uint32_t i = 0; i < kSceneTextures; ++i) {
      m_units.NoteOpaque(i, IsOpaque(SceneImage(i)));
    }
  }

  /// With `stream` false there are no streamed forms.
  void Compile(bool stream) {
    const char* const kNames[] = {"default", "font", "instance", "light"};
    for (std::size_t i = 0; i < 4; ++i) {
      const std::string name = kNames[i];
      m_programs[i] =
          ProgramSet(ShaderSource(name + ".vert"), ShaderSource(name + ".frag"), false, stream);
      m_reaches[i] = m_programs[i].Plain()->LightReach();
    }
  }
  ProgramSet& Set(Program program) { return m_programs[static_cast<std::size_t>(program)]; }

  /// Runs of the frame, which must outlive them.
  const std::vector<DrawRun>& Plan(const Frame& frame) {
    m_planner.Plan(frame, m_reaches, SceneProjection());
    return m_planner.Runs();
  }
  const StreamVertex& VertexAt(std::size_t index) const {
    return m_planner.Vertices().Data()[m_planner.Indices().Data()[index]];
  }
  const ZOVEngine::CornerVertex& CornerAt(std::size_t index) const {
    return m_planner.Corners().Data()[m_planner.Indices().Data()[index]];
  }
  template <class Vertex>
  void ExpectPosition(const Vertex& vertex, float x, float y, float z) {
    EXPECT_FLOAT_EQ(vertex.position[0], x);
    EXPECT_FLOAT_EQ(vertex.position[1], y);
    EXPECT_FLOAT_EQ(vertex.position[2], z);
  }

  GLContext m_context;
  ZOVEngine::GLState m_state;
  FramePlanner::Programs m_programs;
  FramePlanner::Reaches m_reaches{};
  ZOVEngine::GlyphAtlas m_atlas;
  ZOVEngine::TextureUnits m_units;
  FramePlanner m_planner{&m_programs, &m_atlas, &m_units};
};

DrawCommand Command(DrawCommand::Kind kind, Program program, std::uint32_t count) {
  DrawCommand command;
  command.kind = kind;
  command.program = program;
  command.count = count;
  return command;
}

/// Three corners of a triangle, as a mesh or an outline.
Frame TriangleFrame(DrawCommand::Kind kind) {
  Frame frame = EmptyFrame();
  frame.vertices = {{Vector3D(1.0f, 0.0f, 0.0f), 0.0f, 0.0f},
                    {Vector3D(0.0f, 1.0f, 2.0f), 0.5f, 0.25f},
                    {Vector3D(0.0f, 0.0f, 0.0f), 1.0f, 1.0f}};
  frame.indices = {0, 1, 2};
  if (kind == DrawCommand::Kind::kOutline) frame.indices = {0, 1, 1, 2};
  auto& command = frame.commands.emplace_back(
      Command(kind, Program::kDefault, static_cast<std::uint32_t>(frame.indices.size())));
  command.placement = {Vector3D(100.0f, 200.0f, 3.0f), 1.57079633f, Vector3D(10.0f, 20.0f, 5.0f)};
  return frame;
}

/// A background and a quad over the whole screen on it, which differ in their programs: one run
/// each.
Frame BackgroundAndLid(std::uint32_t lid_texture = 4) {
  Frame frame = EmptyFrame();
  frame.commands.push_back(QuadCommand(0, 0, 9600, 5400, 4));
  frame.commands.push_back(QuadCommand(0, 0, 2000, 1200, lid_texture, Program::kLight));
  return frame;
}

// --- Runs ---

TEST_F(FramePlannerTest, AnEmptyFrameHasNoRuns) {
  EXPECT_TRUE(Plan(EmptyFrame()).empty());
}

TEST_F(FramePlannerTest, QuadsOfOneProgramAreOneRunInTheirOrder) {
  Frame frame = EmptyFrame();
  for (int i = 0; i < 20; ++i) {
    frame.commands.push_back(QuadCommand(10.0f * static_cast<float>(i), 0, 4, 6, 1));
  }
  const auto& runs = Plan(frame);
  ASSERT_EQ(runs.size(), 1u);
  EXPECT_EQ(runs[0].index_count, 120u);
  EXPECT_EQ(runs[0].command, nullptr);
  EXPECT_FALSE(runs[0].plain);
  for (std::size_t i = 0; i < 20; ++i) {
    ExpectPosition(VertexAt(6 * i), 10.0f * static_cast<float>(i) + 2.0f, 3.0f, 1.0f);
  }
}

TEST_F(FramePlannerTest, AQuadIsScaledThenTurnedThenMoved) {
  Frame frame = EmptyFrame();
  auto& command = frame.commands.emplace_back(QuadCommand(100, 200, 10, 20, 1));
  command.placement.rotate_radians = 1.57079633f;
  command.window = {0.25f, 0.5f, 0.75f, 1.0f};
  Plan(frame);
  const StreamVertex& upper_right = m_planner.Vertices().Data()[0];
  EXPECT_NEAR(upper_right.position[0], 90.0f, 1e-4f);
  EXPECT_NEAR(upper_right.position[1], 205.0f, 1e-4f);
  EXPECT_EQ(upper_right.uv[0], 0.5f);
  EXPECT_EQ(upper_right.uv[1], 0.75f);
  const StreamVertex& lower_left = m_planner.Vertices().Data()[2];
  EXPECT_EQ(lower_left.uv[0], 0.25f);
  EXPECT_EQ(lower_left.uv[1], 1.0f);
}

TEST_F(FramePlannerTest, TintAndTextureUnitRideWithEachVertex) {
  Frame frame = EmptyFrame();
  SetColour(&frame.commands.emplace_back(QuadCommand(0, 0, 9, 9, 3)), 1, 0, 0, 1);
  SetColour(&frame.commands.emplace_back(QuadCommand(0, 0, 9, 9, 7)), 0, 1, 0, 0.5f);
  ASSERT_EQ(Plan(frame).size(), 1u);
  const StreamVertex* vertices = m_planner.Vertices().Data();
  EXPECT_EQ(vertices[0].tint[0], 1.0f);
  EXPECT_EQ(vertices[7].tint[1], 1.0f);
  EXPECT_EQ(vertices[7].tint[3], 0.5f);
  ASSERT_EQ(m_units.Binds().size(), 2u);
  EXPECT_EQ(m_units.Binds()[0].texture, 3u);
  EXPECT_EQ(vertices[0].unit, static_cast<float>(m_units.Binds()[0].unit));
  EXPECT_EQ(m_units.Binds()[1].texture, 7u);
  EXPECT_EQ(vertices[7].unit, static_cast<float>(m_units.Binds()[1].unit));
}

TEST_F(FramePlannerTest, ANinthTextureStartsARunWithItsOwnBind) {
  Frame frame = EmptyFrame();
  for (std::uint32_t i = 1; i <= 9; ++i) frame.commands.push_back(QuadCommand(0, 0, 9, 9, i));
  const auto& runs = Plan(frame);
  ASSERT_EQ(runs.size(), 2u);
  EXPECT_EQ(runs[0].bind_count, 8u);
  ASSERT_EQ(runs[1].bind_count, 1u);
  EXPECT_EQ(m_units.Binds()[runs[1].first_bind].texture, 9u);
  EXPECT_EQ(runs[1].first_index, 48u);
}

TEST_F(FramePlannerTest, ARunOfOneTextureUsesTheProgramThatSamplesItAlone) {
  Frame frame = EmptyFrame();
  frame.commands.push_back(QuadCommand(0, 0, 9, 9, 3));
  EXPECT_EQ(Plan(frame)[0].program, Set(Program::kDefault).Streamed(LightClass::kNone, true));
  frame.commands.push_back(QuadCommand(0, 0, 9, 9, 5));
  EXPECT_EQ(Plan(frame)[0].program, Set(Program::kDefault).Streamed(LightClass::kNone, false));
}

TEST_F(FramePlannerTest, AnotherProgramStartsARunAndTheOrderStays) {
  Frame frame = EmptyFrame();
  for (const Program program : {Program::kDefault, Program::kLight, Program::kDefault}) {
    frame.commands.push_back(QuadCommand(0, 0, 9, 9, 3, program));
  }
  const auto& runs = Plan(frame);
  ASSERT_EQ(runs.size(), 3u);
  EXPECT_EQ(runs[0].program, runs[2].program);
  EXPECT_NE(runs[0].program, runs[1].program);
}

TEST_F(FramePlannerTest, WhatIsFadedToNothingIsLeftOut) {
  Frame frame = TriangleFrame(DrawCommand::Kind::kMesh);
  frame.commands.push_back(QuadCommand(0, 0, 9, 9, 1));
  frame.commands.push_back(QuadCommand(0, 0, 9, 9, 1, Program::kLight));
  frame.glyphs = {{m_atlas.Add(m_state, 9, 14, SceneGlyph(9, 14).data()), 0, 0, 1, 9, 14}};
  frame.commands.push_back(Command(DrawCommand::Kind::kText, Program::kFont, 1));
  EXPECT_EQ(Plan(frame).size(), 3u);
  for (DrawCommand& command : frame.commands) SetColour(&command, 100000.0f, 1.0f, 1.0f, 0.0f);
  EXPECT_TRUE(Plan(frame).empty());
  frame.commands[1].colour[3] = 0.001f;
  EXPECT_EQ(Plan(frame).size(), 1u);
}

TEST_F(FramePlannerTest, WithoutStreamedFormsEachCommandIsAPlainRunWithItsValues) {
  Compile(false);
  Frame frame = EmptyFrame();
  frame.commands.push_back(QuadCommand(50, 0, 9, 9, 3));
  frame.commands.push_back(QuadCommand(60, 0, 9, 9, 3, Program::kLight));
  const auto& runs = Plan(frame);
  ASSERT_EQ(runs.size(), 2u);
  for (std::size_t i = 0; i < 2; ++i) {
    EXPECT_TRUE(runs[i].plain);
    EXPECT_EQ(runs[i].command, &frame.commands[i]);
    EXPECT_EQ(runs[i].index_count, 6u);
  }
  EXPECT_EQ(runs[0].program, Set(Program::kDefault).Plain());
  // The matrices are uniforms, so the vertices are those of the unit quad.
  ExpectPosition(m_planner.Vertices().Data()[0], 0.5f, 0.5f, 0.0f);
}

TEST_F(FramePlannerTest, AProgramThatDidNotLinkDrawsNothing) {
  testing::internal::CaptureStdout();
  Set(Program::kDefault) = ProgramSet("nonsense", "nonsense", false, true);
  testing::internal::GetCapturedStdout();
  Frame frame = EmptyFrame();
  frame.commands.push_back(QuadCommand(0, 0, 9, 9, 3));
  frame.commands.push_back(QuadCommand(0, 0, 9, 9, 3, Program::kLight));
  EXPECT_EQ(Plan(frame).size(), 1u);
}

TEST_F(FramePlannerTest, TheNextFrameStartsFromNothing) {
  Frame frame = EmptyFrame();
  frame.commands.push_back(QuadCommand(0, 0, 9, 9, 3));
  Plan(frame);
  ASSERT_EQ(Plan(frame).size(), 1u);
  EXPECT_EQ(m_planner.Vertices().Size(), 4u);
  EXPECT_EQ(m_planner.Indices().Size(), 6u);
  EXPECT_TRUE(m_units.Binds().empty()) << "the texture is on its unit already";
}

// --- Meshes and outlines ---

TEST_F(FramePlannerTest, AMeshIsPlacedVertexByVertex) {
  const Frame frame = TriangleFrame(DrawCommand::Kind::kMesh);
  const auto& runs = Plan(frame);
  ASSERT_EQ(runs.size(), 1u);
  EXPECT_EQ(runs[0].mode, static_cast<GLenum>(GL_TRIANGLES));
  EXPECT_EQ(runs[0].index_count, 3u);
  const StreamVertex& second = VertexAt(1);
  EXPECT_NEAR(second.position[0], 80.0f, 1e-4f);
  EXPECT_NEAR(second.position[1], 200.0f, 1e-4f);
  EXPECT_EQ(second.position[2], 13.0f);
  EXPECT_EQ(second.uv[0], 0.5f);
  EXPECT_EQ(second.uv[1], 0.25f);
}

TEST_F(FramePlannerTest, AnOutlineIsARunOfLines) {
  Frame frame = TriangleFrame(DrawCommand::Kind::kOutline);
  frame.commands.push_back(QuadCommand(0, 0, 9, 9, 0));
  const auto& runs = Plan(frame);
  ASSERT_EQ(runs.size(), 2u);
  EXPECT_EQ(runs[0].mode, static_cast<GLenum>(GL_LINES));
  EXPECT_EQ(runs[0].index_count, 4u);
  EXPECT_EQ(runs[1].mode, static_cast<GLenum>(GL_TRIANGLES));
}

TEST_F(FramePlannerTest, WhatReachesOutOfTheFramesListsIsLeftOut) {
  Frame frame = TriangleFrame(DrawCommand::Kind::kMesh);
  frame.commands[0].count = 4;
  EXPECT_TRUE(Plan(frame).empty()) << "more indices than there are";
  frame = TriangleFrame(DrawCommand::Kind::kMesh);
  frame.commands[0].base_vertex = 1;
  EXPECT_TRUE(Plan(frame).empty()) << "an index beyond the vertices";
  frame.commands[0] = Command(DrawCommand::Kind::kText, Program::kFont, 1);
  EXPECT_TRUE(Plan(frame).empty()) << "a glyph that is not there";
  frame.commands[0] = Command(DrawCommand::Kind::kInstances, Program::kInstance, 1);
  EXPECT_TRUE(Plan(frame).empty()) << "an instance that is not there";
}

// --- Text ---

TEST_F(FramePlannerTest, TextsOnOnePageAreOneRun) {
  const std::uint32_t glyph = m_atlas.Add(m_state, 9, 14, SceneGlyph(9, 14).data());
  Frame frame = EmptyFrame();
  frame.glyphs = {{glyph, 10.0f, 20.0f, 1.0f, 9.0f, 14.0f},
                  {glyph, 30.0f, 20.0f, 1.0f, 9.0f, 14.0f}};
  for (std::uint32_t i = 0; i < 2; ++i) {
    auto& text = frame.commands.emplace_back(Command(DrawCommand::Kind::kText, Program::kFont, 1));
    text.first = i;
    SetColour(&text, 1.0f, static_cast<float>(i), 0.0f, 1.0f);
  }
  const auto& runs = Plan(frame);
  ASSERT_EQ(runs.size(), 1u);
  EXPECT_EQ(runs[0].unit, ZOVEngine::kGlyphUnit);
  EXPECT_EQ(runs[0].glyph_page, m_atlas.Find(glyph).page);
  EXPECT_EQ(runs[0].index_count, 12u);
  ExpectPosition(m_planner.Vertices().Data()[0], 19.0f, 34.0f, 1.0f);
  ExpectPosition(m_planner.Vertices().Data()[2], 10.0f, 20.0f, 1.0f);
  EXPECT_EQ(m_planner.Vertices().Data()[0].uv[0], m_atlas.Find(glyph).u_right);
  EXPECT_EQ(m_planner.Vertices().Data()[4].tint[1], 1.0f);
}

TEST_F(FramePlannerTest, GlyphsWithoutTexelsMakeNoRun) {
  const std::uint32_t blank = m_atlas.Add(m_state, 0, 0, nullptr);
  Frame frame = EmptyFrame();
  frame.glyphs = {{blank, 0, 0, 1, 9, 9}, {0, 0, 0, 1, 9, 9}};
  frame.commands.push_back(Command(DrawCommand::Kind::kText, Program::kFont, 2));
  EXPECT_TRUE(Plan(frame).empty());
}

// --- Instances ---

Frame InstancedFrame(int count) {
  Frame frame = EmptyFrame();
  for (int i = 0; i < count; ++i) {
    frame.instances.push_back(Matrix4x4::Translation(10.0f * static_cast<float>(i), 0.0f) *
                              Matrix4x4::Scale(4.0f, 8.0f));
  }
  frame.commands.push_back(Command(DrawCommand::Kind::kInstances, Program::kInstance,
                                   static_cast<std::uint32_t>(count)));
  frame.commands[0].texture = 5;
  return frame;
}

TEST_F(FramePlannerTest, InstancesArePlacedInOneRunWithTheirSharedColour) {
  const Frame frame = InstancedFrame(30);
  const auto& runs = Plan(frame);
  ASSERT_EQ(runs.size(), 1u);
  EXPECT_EQ(runs[0].index_count, 180u);
  EXPECT_EQ(runs[0].instance_count, 0u) << "placed here, not by an instanced draw";
  EXPECT_EQ(runs[0].command, frame.commands.data());
  EXPECT_TRUE(runs[0].corners);
  EXPECT_EQ(m_planner.Vertices().Size(), 0u);
  ExpectPosition(CornerAt(6 * 29), 292.0f, 4.0f, 0.0f);
}

TEST_F(FramePlannerTest, InstancesBetweenSpritesLeaveTheirVerticesToThem) {
  Frame frame = InstancedFrame(3);
  frame.commands.insert(frame.commands.begin(), QuadCommand(0, 0, 100, 100, 3));
  frame.commands.push_back(frame.commands[1]);
  frame.commands.push_back(QuadCommand(400, 0, 100, 100, 3));
  const auto& runs = Plan(frame);
  ASSERT_EQ(runs.size(), 4u);
  EXPECT_EQ(m_planner.Vertices().Size(), 8u);
  EXPECT_EQ(m_planner.Corners().Size(), 24u);
  EXPECT_EQ(m_planner.Indices().Data()[runs[2].first_index],
            12u + m_planner.Indices().Data()[runs[1].first_index]);
  ExpectPosition(VertexAt(runs[3].first_index), 450.0f, 50.0f, 1.0f);
}

TEST_F(FramePlannerTest, TheInstanceWithTheMostLightsChoosesTheClassOfAll) {
  Frame frame = InstancedFrame(30);
  frame.lights = {LightAt(590, 0)};  // reaches the last of them only
  const auto& runs = Plan(frame);
  ASSERT_EQ(runs.size(), 1u);
  EXPECT_EQ(runs[0].program, Set(Program::kInstance).Streamed(LightClass::kTwo, true));
  EXPECT_EQ(CornerAt(0).near[0] & 255u, static_cast<std::uint32_t>(ZOVEngine::kMaxLights));
  EXPECT_EQ(CornerAt(6 * 29).near[0] & 255u, 0u);
}

TEST_F(FramePlannerTest, WithoutStreamedFormsInstancesAreOneInstancedDraw) {
  Compile(false);
  const Frame frame = InstancedFrame(30);
  const auto& runs = Plan(frame);
  ASSERT_EQ(runs.size(), 1u);
  EXPECT_EQ(runs[0].instance_count, 30u);
  EXPECT_EQ(runs[0].index_count, 6u);
  ASSERT_EQ(m_planner.Instances().Size(), 30u);
  // Column by column, as the attributes take a matrix.
  EXPECT_EQ(m_planner.Instances().Data()[29].columns[12], 290.0f);
  EXPECT_EQ(m_planner.Instances().Data()[29].columns[5], 8.0f);
}

// --- Light ---

TEST_F(FramePlannerTest, ASpriteIsDrawnInTheSmallestClassThatHoldsItsLights) {
  Frame frame = EmptyFrame();
  frame.commands.push_back(QuadCommand(0, 0, 100, 100, 3, Program::kLight));
  const std::pair<int, LightClass> kClasses[] = {{0, LightClass::kNone},
                                                 {1, LightClass::kTwo},
                                                 {3, LightClass::kFour},
                                                 {8, LightClass::kEight},
                                                 {9, LightClass::kEvery}};
  for (const auto& [lights, expected] : kClasses) {
    frame.lights.assign(static_cast<std::size_t>(lights), LightAt(0, 0));
    ASSERT_EQ(Plan(frame).size(), 1u) << lights;
    EXPECT_EQ(Plan(frame)[0].program, Set(Program::kLight).Streamed(expected, true)) << lights;
  }
}

TEST_F(FramePlannerTest, ASmallSpriteJoinsARunOfMoreLightsAndALargeOneDoesNot) {
  Frame frame = EmptyFrame();
  frame.lights = {LightAt(0, 0)};
  frame.commands.push_back(QuadCommand(0, 0, 40, 40, 3, Program::kLight));
  frame.commands.push_back(QuadCommand(900, 0, 40, 40, 3, Program::kLight));
  EXPECT_EQ(Plan(frame).size(), 1u);
  frame.commands[1].placement.scale = Vector3D(100.0f, 100.0f, 1.0f);
  EXPECT_EQ(Plan(frame).size(), 2u);
}

TEST_F(FramePlannerTest, ManySmallSpritesThatNeedFewerLightsGetARunOfTheirOwn) {
  Frame frame = EmptyFrame();
  frame.lights = {LightAt(0, 0)};
  frame.commands.push_back(QuadCommand(0, 0, 60, 60, 3, Program::kLight));
  for (int i = 0; i < 8; ++i) {
    frame.commands.push_back(
        QuadCommand(801, 60.0f * static_cast<float>(i), 60, 60, 3, Program::kLight));
  }
  EXPECT_EQ(Plan(frame).size(), 1u);
  frame.commands.push_back(QuadCommand(801, -60, 60, 60, 3, Program::kLight));
  const auto& runs = Plan(frame);
  ASSERT_EQ(runs.size(), 2u);
  EXPECT_EQ(runs[1].program, Set(Program::kLight).Streamed(LightClass::kNone, true));
}

TEST_F(FramePlannerTest, TilesOfOneLatticeAreARunForEachClassOfLights) {
  Frame frame = EmptyFrame();
  frame.lights = {LightAt(0, 0)};
  for (const float x : {0.0f, 800.0f, 100.0f, 900.0f, -100.0f}) {
    frame.commands.push_back(QuadCommand(x, 0, 100, 100, 3, Program::kLight));
  }
  const auto& runs = Plan(frame);
  ASSERT_EQ(runs.size(), 2u);
  EXPECT_EQ(runs[0].index_count, 12u);
  EXPECT_EQ(runs[1].index_count, 18u);
}

TEST_F(FramePlannerTest, ASmallRunIsRaisedToTheLightsOfTheNextSpriteAndALargeOneIsNot) {
  Frame frame = EmptyFrame();
  frame.lights = {LightAt(0, 0)};
  frame.commands.push_back(QuadCommand(900, 0, 40, 40, 3, Program::kLight));
  frame.commands.push_back(QuadCommand(0, 0, 40, 40, 3, Program::kLight));
  ASSERT_EQ(Plan(frame).size(), 1u);
  EXPECT_EQ(Plan(frame)[0].program, Set(Program::kLight).Streamed(LightClass::kTwo, true));
  frame.commands[0].placement.scale = Vector3D(100.0f, 100.0f, 1.0f);
  EXPECT_EQ(Plan(frame).size(), 2u);
}

TEST_F(FramePlannerTest, TheGroundHasRunsOfItsOwnWithTheirBounds) {
  Frame frame = EmptyFrame();
  frame.commands = {QuadCommand(-100, 0, 60, 60, 1), QuadCommand(100, 50, 60, 60, 1),
                    QuadCommand(900, 0, 60, 60, 1)};
  EXPECT_EQ(Plan(frame).size(), 1u);
  EXPECT_EQ(m_planner.GroundRuns(), 0u);
  frame.ground = 2;
  const std::vector<DrawRun>& runs = Plan(frame);
  ASSERT_EQ(runs.size(), 2u);
  EXPECT_EQ(m_planner.GroundRuns(), 1u);
  ASSERT_TRUE(runs[0].bounds.has_value());
  EXPECT_FLOAT_EQ(runs[0].bounds->left, -130);
  EXPECT_FLOAT_EQ(runs[0].bounds->right, 130);
  EXPECT_FLOAT_EQ(runs[0].bounds->bottom, -30);
  EXPECT_FLOAT_EQ(runs[0].bounds->top, 80);
  EXPECT_FALSE(runs[1].bounds.has_value());
  frame.ground = 40;  // more than there are
  EXPECT_EQ(Plan(frame).size(), 1u);
  EXPECT_EQ(m_planner.GroundRuns(), 1u);
}

TEST_F(FramePlannerTest, PlainRunsOfTheGroundHaveNoBounds) {
  Compile(false);
  Frame frame = EmptyFrame();
  frame.commands = {QuadCommand(0, 0, 60, 60, 1)};
  frame.ground = 1;
  EXPECT_FALSE(Plan(frame).front().bounds.has_value());
}

TEST_F(FramePlannerTest, ALargeLitQuadIsCutAndItsCellsSortedByTheirLights) {
  Frame frame = EmptyFrame();
  frame.lights = {LightAt(-700, 0), LightAt(700, 0), LightAt(710, 0), LightAt(720, 0)};
  frame.commands.push_back(QuadCommand(0, 0, 1900, 900, 3, Program::kLight));
  const auto& runs = Plan(frame);
  ASSERT_EQ(runs.size(), 3u);
  const LightClass kClasses[] = {LightClass::kNone, LightClass::kTwo, LightClass::kFour};
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(runs[i].program, Set(Program::kLight).Streamed(kClasses[i], true)) << i;
  }
}

// --- The background, whose hidden parts are left out ---

TEST_F(FramePlannerTest, AHiddenBackgroundIsLeftOut) {
  EXPECT_EQ(Plan(BackgroundAndLid()).size(), 1u);
}

TEST_F(FramePlannerTest, UnderWhatShinesThroughIsTurnedOrSmallTheBackgroundIsDrawn) {
  EXPECT_EQ(Plan(BackgroundAndLid(1)).size(), 2u) << "a texture with soft texels";
  Frame frame = BackgroundAndLid();
  SetColour(&frame.commands[1], 1, 1, 1, 0.99f);
  EXPECT_EQ(Plan(frame).size(), 2u) << "a soft colour";
  frame = BackgroundAndLid();
  frame.commands[1].placement.rotate_radians = 0.001f;
  EXPECT_EQ(Plan(frame).size(), 2u) << "a turned lid";
  frame = BackgroundAndLid();
  frame.commands[1].placement.scale = Vector3D(1900.0f, 1200.0f, 1.0f);
  EXPECT_EQ(Plan(frame).size(), 2u) << "a lid that ends before the screen does";
  frame = BackgroundAndLid();
  std::swap(frame.commands[0], frame.commands[1]);
  frame.commands[0].placement.scale = Vector3D(400.0f, 300.0f, 1.0f);
  EXPECT_EQ(Plan(frame).size(), 2u) << "nothing above the background, and what it hides is small";
  EXPECT_EQ(Plan(BackgroundAndLid(900)).size(), 2u) << "a texture that was never uploaded";
}

TEST_F(FramePlannerTest, OfABackgroundThatIsPartlyHiddenTheHiddenCellsAreLeftOut) {
  Frame frame = EmptyFrame();
  frame.lights.push_back(LightAt(0, 0));
  frame.commands.push_back(QuadCommand(0, 0, 1920, 1080, 4, Program::kLight));
  frame.commands.push_back(QuadCommand(0, 0, 640, 1200, 4));
  frame.commands.push_back(QuadCommand(0, 0, 2000, 640, 4));
  EXPECT_EQ(Plan(frame).size(), 2u) << "the corners, which no light reaches, and the two lids";
  frame.commands[1].texture = frame.commands[2].texture = 1;
  EXPECT_EQ(Plan(frame).size(), 3u) << "lit cells, unlit ones, and lids that they shine through";
}

TEST_F(FramePlannerTest, WhatHidTheBackgroundInOneFrameDoesNotInTheNext) {
  EXPECT_EQ(Plan(BackgroundAndLid()).size(), 1u);
  EXPECT_EQ(Plan(BackgroundAndLid(1)).size(), 2u);
}

TEST_F(FramePlannerTest, ATextureThatBecomesSoftHidesNoLonger) {
  EXPECT_EQ(Plan(BackgroundAndLid()).size(), 1u);
  m_units.NoteOpaque(4, false);
  EXPECT_EQ(Plan(BackgroundAndLid()).size(), 2u);
}

}  // namespace

}  // namespace carapace_test
