#include <gtest/gtest.h>

#include <algorithm>

#include "render/gl/context/glreference.h"
#include "render/gl/context/glscene.h"
#include "support/picture.h"

namespace carapace_test {

namespace {

using ZOVEngine::DrawCommand;
using ZOVEngine::Frame;
using ZOVEngine::GLOptions;
using ZOVEngine::Matrix4x4;
using ZOVEngine::Program;
using ZOVEngine::Vector3D;

constexpr Tolerance kTolerance{3, 0.05};
constexpr Tolerance kCommittedTolerance{6, 0.3};

Picture DrawnPlainly(const Frame& frame) {
  const GLContext context(kSceneWidth, kSceneHeight);
  PlainRenderer renderer;
  glewExperimental = GL_TRUE;
  glewInit();
  renderer.Start(SceneProjection());
  UploadScene(&renderer);
  renderer.Draw(frame);
  return context.ReadBack();
}

/// Draws the frame twice, as a game does, and returns the second picture.
Picture DrawnByDevice(const Frame& frame, const GLOptions& options) {
  const GLContext context(kSceneWidth, kSceneHeight);
  const auto device = SceneDevice(options);
  device->Execute(frame);
  device->Execute(frame);
  Picture picture = context.ReadBack();
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
  device->Release();
  return picture;
}

bool IsBlackPicture(const Picture& picture) {
  return std::all_of(picture.bytes.begin(), picture.bytes.end(), [](auto v) { return v == 0; });
}

/// Compares the pictures of all the device's options with the plain one, and that with the
/// committed one.
void ExpectSamePicture(const std::string& name, const Frame& frame) {
  const Picture plain = DrawnPlainly(frame);
  EXPECT_EQ(MismatchWithCommitted(name, plain, kCommittedTolerance), "");
  using Choice = GLOptions::TextureChoice;
  const std::pair<const char*, GLOptions> kOptions[] = {
      {"_by_number", {Choice::kByNumber, true}},
      {"_by_comparison", {Choice::kByComparison, true}},
      {"_unstreamed", {Choice::kByDriver, false}}};
  for (const auto& [suffix, options] : kOptions) {
    EXPECT_EQ(Mismatch(name + suffix, DrawnByDevice(frame, options), plain, kTolerance), "");
  }
}

void AddMesh(Frame* frame, const std::vector<ZOVEngine::MeshVertex>& vertices,
             const std::vector<std::uint32_t>& indices, DrawCommand command) {
  command.first = static_cast<std::uint32_t>(frame->indices.size());
  command.count = static_cast<std::uint32_t>(indices.size());
  command.base_vertex = static_cast<std::uint32_t>(frame->vertices.size());
  frame->vertices.insert(frame->vertices.end(), vertices.begin(), vertices.end());
  frame->indices.insert(frame->indices.end(), indices.begin(), indices.end());
  frame->commands.push_back(command);
}

/// The four corners of a new object's model.
std::vector<ZOVEngine::MeshVertex> ModelCorners() {
  return {{Vector3D(-0.5f, 0.5f, 1.0f), 0, 0},
          {Vector3D(0.5f, 0.5f, 1.0f), 1, 0},
          {Vector3D(0.5f, -0.5f, 1.0f), 1, 1},
          {Vector3D(-0.5f, -0.5f, 1.0f), 0, 1}};
}

std::vector<ZOVEngine::MeshVertex> Fan(int spokes) {
  std::vector<ZOVEngine::MeshVertex> vertices{{Vector3D(), 0.5f, 0.5f}};
  for (int i = 0; i < spokes; ++i) {
    const float angle = 6.2831853f * static_cast<float>(i) / static_cast<float>(spokes);
    const float x = std::cos(angle);
    const float y = std::sin(angle);
    vertices.push_back({Vector3D(x, y, 0.0f), 0.5f + x, 0.5f - y});
  }
  return vertices;
}

std::vector<std::uint32_t> FanIndices(std::uint32_t spokes) {
  std::vector<std::uint32_t> indices;
  for (std::uint32_t i = 0; i < spokes; ++i) {
    indices.insert(indices.end(), {0, 1 + i, 1 + (i + 1) % spokes});
  }
  return indices;
}

void AddText(Frame* frame, float x, float y, float scale, int count) {
  DrawCommand command;
  command.kind = DrawCommand::Kind::kText;
  command.program = Program::kFont;
  command.first = static_cast<std::uint32_t>(frame->glyphs.size());
  command.count = static_cast<std::uint32_t>(count);
  for (int i = 0; i < count; ++i) {
    const int glyph = i % 21;  // number 0 draws nothing
    const float width = scale * static_cast<float>(9 + 5 * ((glyph + 5) % 6));
    const float height = scale * static_cast<float>(14 + 7 * ((glyph + 3) % 4));
    frame->glyphs.push_back({static_cast<std::uint32_t>(glyph), x, y, 1.0f, width, height});
    x += width + 3.0f;
  }
  frame->commands.push_back(command);
}

void AddRandomInstances(Frame* frame, int count) {
  DrawCommand command;
  command.kind = DrawCommand::Kind::kInstances;
  command.program = Program::kInstance;
  command.texture = 5;
  SetColour(&command, 1.0f, 0.8f, 0.6f, 0.7f);
  command.first = static_cast<std::uint32_t>(frame->instances.size());
  command.count = static_cast<std::uint32_t>(count);
  for (int i = 0; i < count; ++i) {
    const float degrees = RandomFloat(0, 360);
    const float height = RandomFloat(10, 90);
    const float width = RandomFloat(10, 90);
    const float y = RandomFloat(-500, 500);
    const float x = RandomFloat(-900, 900);
    frame->instances.push_back(Matrix4x4::Translation(x, y) * Matrix4x4::Scale(width, height) *
                               Matrix4x4::Rotation(degrees));
  }
  frame->commands.push_back(command);
}

/// A large lit ground and lit sprites on it.
Frame LitFrame(int lights) {
  ZOVEngine::SeedRand(static_cast<std::uint32_t>(40 + lights));
  Frame frame = EmptyFrame();
  AddRandomLights(&frame, lights);
  auto& ground = frame.commands.emplace_back(QuadCommand(0, 0, 9600, 5400, 4, Program::kLight));
  ground.window = {0.0f, 5.0f, 0.0f, 5.0f};
  AddRandomQuads(&frame, 40, Program::kLight);
  return frame;
}

}  // namespace

TEST(GLPictures, EmptyFrameIsBlack) {
  const Frame frame = EmptyFrame();
  EXPECT_TRUE(IsBlackPicture(DrawnByDevice(frame, {})));
}

TEST(GLPictures, AlphaZeroShowsNothing) {
  Frame frame = EmptyFrame();
  SetColour(&frame.commands.emplace_back(QuadCommand(0, 0, 800, 800, 0)), 1, 1, 1, 0);
  EXPECT_TRUE(IsBlackPicture(DrawnByDevice(frame, {})));
  frame.commands[0].program = Program::kLight;
  EXPECT_TRUE(IsBlackPicture(DrawnByDevice(frame, {})));
}

TEST(GLPictures, QuadsOfTwelveTexturesInOrder) {
  ZOVEngine::SeedRand(1);
  Frame frame = EmptyFrame();
  AddRandomQuads(&frame, 200);
  ExpectSamePicture("quads", frame);
}

TEST(GLPictures, QuadsOfOneTexture) {
  ZOVEngine::SeedRand(2);
  Frame frame = EmptyFrame();
  AddRandomQuads(&frame, 60);
  for (DrawCommand& command : frame.commands) command.texture = 1;
  ExpectSamePicture("onetexture", frame);
}

TEST(GLPictures, WindowsRepeatTheTexture) {
  Frame frame = EmptyFrame();
  frame.commands.push_back(QuadCommand(0, 0, 1900, 1000, 2));
  frame.commands.back().window = {0.0f, 5.0f, 0.0f, 5.0f};
  frame.commands.push_back(QuadCommand(-300, 100, 400, 300, 1));
  frame.commands.back().window = {-1.25f, 2.5f, 1.0f, -1.5f};
  frame.commands.push_back(QuadCommand(400, -100, 300, 300, 0));
  frame.commands.back().window = {0.25f, 0.5f, 0.0f, 1.0f};
  ExpectSamePicture("windows", frame);
}

TEST(GLPictures, Meshes) {
  Frame frame = EmptyFrame();
  DrawCommand command = QuadCommand(-400, 0, 300, 300, 1);
  command.kind = DrawCommand::Kind::kMesh;
  command.placement.rotate_radians = 0.3f;
  AddMesh(&frame, ModelCorners(), {0, 1, 3, 1, 2, 3}, command);
  command.placement.translate = Vector3D(400.0f, 50.0f, 1.0f);
  command.texture = 7;
  AddMesh(&frame, Fan(9), FanIndices(9), command);
  command.placement.translate = Vector3D(0.0f, -200.0f, 1.0f);
  command.program = Program::kLight;
  frame.lights.push_back(LightAt(0, -100));
  AddMesh(&frame, Fan(5), FanIndices(5), command);
  ExpectSamePicture("meshes", frame);
}

TEST(GLPictures, LargeLitModel) {
  ZOVEngine::SeedRand(3);
  Frame frame = EmptyFrame();
  AddRandomLights(&frame, 9);
  for (int i = 0; i < 2; ++i) {
    DrawCommand command = QuadCommand(-200 + 400.0f * static_cast<float>(i), 0, 1100, 700, 0);
    command.kind = DrawCommand::Kind::kMesh;
    command.program = Program::kLight;
    command.placement.rotate_radians = 0.4f * static_cast<float>(i);
    AddMesh(&frame, ModelCorners(), {0, 1, 3, 1, 2, 3}, command);
  }
  ExpectSamePicture("largelitmodel", frame);
}

TEST(GLPictures, Outlines) {
  Frame frame = EmptyFrame();
  DrawCommand command = QuadCommand(0, 0, 500, 300, 0);
  command.kind = DrawCommand::Kind::kOutline;
  AddMesh(&frame, ModelCorners(), {0, 1, 1, 2, 2, 3, 3, 0}, command);
  command.placement.rotate_radians = 0.5f;
  SetColour(&command, 1, 0, 0, 1);
  AddMesh(&frame, ModelCorners(), {0, 1, 1, 2, 2, 3, 3, 0}, command);
  frame.commands.push_back(QuadCommand(100, 50, 80, 80, 4));
  ExpectSamePicture("outlines", frame);
}

TEST(GLPictures, TextsOfSeveralColoursAndSizes) {
  Frame frame = EmptyFrame();
  frame.commands.push_back(QuadCommand(0, 0, 1600, 900, 1));
  AddText(&frame, -900, 300, 1.0f, 40);
  SetColour(&frame.commands.back(), 1.0f, 0.2f, 0.2f, 1.0f);
  AddText(&frame, -700, 100, 0.35f, 60);
  SetColour(&frame.commands.back(), 0.2f, 1.0f, 0.4f, 0.6f);
  AddText(&frame, -800, -300, 4.2f, 12);
  AddText(&frame, 0, 0, 1.0f, 0);
  ExpectSamePicture("texts", frame);
}

TEST(GLPictures, InstancesWithoutLight) {
  ZOVEngine::SeedRand(4);
  Frame frame = EmptyFrame();
  frame.commands.push_back(QuadCommand(0, 0, 1000, 600, 0));
  AddRandomInstances(&frame, 150);
  frame.commands.push_back(QuadCommand(0, 0, 200, 200, 2));
  ExpectSamePicture("instances", frame);
}

TEST(GLPictures, InstancesTwiceInLight) {
  ZOVEngine::SeedRand(5);
  Frame frame = EmptyFrame();
  AddRandomLights(&frame, 12);
  AddRandomInstances(&frame, 60);
  frame.commands.push_back(QuadCommand(0, 0, 300, 300, 2, Program::kLight));
  AddRandomInstances(&frame, 40);
  SetColour(&frame.commands.back(), 0.3f, 0.9f, 1.0f, 0.8f);
  ExpectSamePicture("instancestwice", frame);
}

TEST(GLPictures, NoLight) {
  ExpectSamePicture("lights0", LitFrame(0));
}

TEST(GLPictures, OneLight) {
  ExpectSamePicture("lights1", LitFrame(1));
}

TEST(GLPictures, ThreeLights) {
  ExpectSamePicture("lights3", LitFrame(3));
}

TEST(GLPictures, SixteenLights) {
  ExpectSamePicture("lights16", LitFrame(16));
}

TEST(GLPictures, SeventyLightsOfWhichSixtyFourAreSeen) {
  const Frame frame = LitFrame(70);
  ExpectSamePicture("lights70", frame);
  Frame fewer = frame;
  fewer.lights.resize(64);
  EXPECT_EQ(Compare(DrawnByDevice(frame, {}), DrawnByDevice(fewer, {})).largest, 0);
}

TEST(GLPictures, TwelveLightsOnOneSpot) {
  Frame frame = EmptyFrame();
  for (int i = 0; i < 12; ++i) {
    auto& light = frame.lights.emplace_back(
        LightAt(20.0f * static_cast<float>(i % 4), 15.0f * static_cast<float>(i / 4)));
    light.ambientStr = light.diffuseStr = light.specularStr = 0.08f;
  }
  frame.commands.push_back(QuadCommand(0, 0, 1500, 900, 1, Program::kLight));
  frame.commands.push_back(QuadCommand(50, 30, 90, 90, 4, Program::kLight));
  ExpectSamePicture("onespot", frame);
}

TEST(GLPictures, MixedStackKeepsItsOrder) {
  ZOVEngine::SeedRand(6);
  Frame frame = EmptyFrame();
  AddRandomLights(&frame, 5);
  frame.commands.push_back(QuadCommand(0, 0, 9600, 5400, 4, Program::kLight));
  for (int i = 0; i < 6; ++i) {
    AddRandomQuads(&frame, 9, i % 2 ? Program::kLight : Program::kDefault);
    const float text_y = RandomFloat(-400, 400);
    const float text_x = RandomFloat(-800, 0);
    AddText(&frame, text_x, text_y, 1.0f, 18);
    const float blue = RandomFloat(0, 1);
    const float red = RandomFloat(0, 1);
    SetColour(&frame.commands.back(), red, 1.0f, blue, 0.8f);
    const float mesh_y = RandomFloat(-400, 400);
    const float mesh_x = RandomFloat(-700, 700);
    DrawCommand mesh = QuadCommand(mesh_x, mesh_y, 120, 120, 9);
    mesh.kind = DrawCommand::Kind::kMesh;
    AddMesh(&frame, Fan(6), FanIndices(6), mesh);
    if (i == 3) AddRandomInstances(&frame, 30);
  }
  ExpectSamePicture("mixedstack", frame);
}

TEST(GLPictures, ColoursFarAboveOne) {
  Frame frame = EmptyFrame();
  frame.lights.push_back(LightAt(200, 0));
  SetColour(&frame.commands.emplace_back(QuadCommand(-300, 0, 400, 400, 1)), 100000, 255, 0, 1);
  SetColour(&frame.commands.emplace_back(QuadCommand(0, 0, 400, 400, 5)), 0, 100000, 0, 100000);
  SetColour(&frame.commands.emplace_back(QuadCommand(300, 0, 400, 400, 0, Program::kLight)), 2,
            100000, 0.5f, 1);
  AddText(&frame, -800, 300, 1.0f, 20);
  SetColour(&frame.commands.back(), 100000, 100000, 0, 1);
  ExpectSamePicture("brightcolours", frame);
}

TEST(GLPictures, ViewMovedAndZoomed) {
  Frame frame = LitFrame(8);
  frame.view.m[3] = frame.view_pos.x = -350.0f;
  frame.view.m[7] = frame.view_pos.y = 120.0f;
  frame.view.m[11] = frame.view_pos.z = -700.0f;
  AddText(&frame, 200, -100, 0.5f, 30);
  ExpectSamePicture("viewmoved", frame);
}

TEST(GLPictures, DifferentDepthsKeepTheOrderOfCommands) {
  Frame frame = EmptyFrame();
  const float kDepths[] = {300.0f, -400.0f, 900.0f, 1.0f};
  for (int i = 0; i < 4; ++i) {
    auto& command = frame.commands.emplace_back(QuadCommand(-60.0f * static_cast<float>(i),
                                                            40.0f * static_cast<float>(i), 300, 300,
                                                            4u + static_cast<std::uint32_t>(i)));
    command.placement.translate.z = kDepths[i];
  }
  ExpectSamePicture("depths", frame);
}

// Shaken, so that the ground shows at two edges of the screen; with holes and soft plates
// elsewhere.
TEST(GLPictures, GroundUnderPlates) {
  Frame frame = LitFrame(6);
  frame.commands.resize(1);
  for (int i = 0; i < 16 * 9; ++i) {
    if (i % 31 == 7) continue;
    auto& plate = frame.commands.emplace_back(
        QuadCommand(-900.0f + 120.0f * static_cast<float>(i % 16),
                    -480.0f + 120.0f * static_cast<float>(i / 16), 120, 120, i % 23 == 4 ? 9 : 3,
                    i % 2 ? Program::kLight : Program::kDefault));
    if (i % 19 == 2) plate.placement.rotate_radians = 0.3f;
    if (i % 17 == 3) SetColour(&plate, 1.0f, 0.6f, 0.6f, 0.7f);
    if (i % 29 == 9) plate.placement.translate.z = -200.0f;
  }
  frame.view.m[3] = 11.3f;
  frame.view.m[7] = -6.7f;
  ExpectSamePicture("groundunderplates", frame);
}

TEST(GLPictures, TextureNeverUploadedIsBlackAndOpaque) {
  Frame frame = EmptyFrame();
  frame.commands.push_back(QuadCommand(0, 0, 1900, 1000, 0));
  frame.commands.push_back(QuadCommand(0, 0, 4000, 3000, kSceneTextures + 3));
  EXPECT_TRUE(IsBlackPicture(DrawnByDevice(frame, {})));
}

}  // namespace carapace_test
