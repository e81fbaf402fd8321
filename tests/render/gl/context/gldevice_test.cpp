#include <GL/glew.h>
#include <gtest/gtest.h>

#include <SDL2/SDL.h>

#include <algorithm>
#include <cmath>
#include <cstring>

#include "render/gl/context/glscene.h"
#include "render/images/mipmaps.h"
#include "support/picture.h"

namespace carapace_test {

namespace {

using ZOVEngine::DrawCommand;
using ZOVEngine::Frame;
using ZOVEngine::Program;

bool IsBlack(const Picture& picture) {
  return std::all_of(picture.bytes.begin(), picture.bytes.end(), [](auto v) { return v == 0; });
}

/// The lines that compiling these sources prints.
std::string PrintedBy(ZOVEngine::GLDevice* device, const std::string& vertex,
                      const std::string& fragment) {
  testing::internal::CaptureStdout();
  device->CompileProgram(Program::kDefault, vertex, fragment);
  return testing::internal::GetCapturedStdout();
}

std::string LineWith(const std::string& text, const std::string& start) {
  const std::size_t at = text.find(start);
  return at == std::string::npos ? "" : text.substr(at, text.find('\n', at) - at);
}

Frame OneQuad(Program program) {
  Frame frame = EmptyFrame();
  frame.commands.push_back(QuadCommand(0, 0, 600, 600, 0, program));
  return frame;
}

/// Four glyphs of the scene in a row.
Frame OneText() {
  Frame frame = EmptyFrame();
  for (std::uint32_t i = 1; i <= 4; ++i) {
    frame.glyphs.push_back({i, -400.0f + 150.0f * static_cast<float>(i), -50, 1, 120, 120});
  }
  DrawCommand command;
  command.kind = DrawCommand::Kind::kText;
  command.program = Program::kFont;
  command.count = 4;
  frame.commands.push_back(command);
  return frame;
}

GLint TextureParameter(std::uint32_t position, GLenum parameter) {
  GLint value = 0;
  glBindTexture(GL_TEXTURE_2D, position);
  glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, &value);
  if (parameter != GL_TEXTURE_WRAP_S) glGetTexParameteriv(GL_TEXTURE_2D, parameter, &value);
  return value;
}

GLint LevelWidth(std::uint32_t position, GLint level) {
  GLint width = 0;
  glBindTexture(GL_TEXTURE_2D, position);
  glGetTexLevelParameteriv(GL_TEXTURE_2D, level, GL_TEXTURE_WIDTH, &width);
  return width;
}

std::vector<std::uint8_t> LevelTexels(std::uint32_t position, GLint level) {
  GLint width = 0;
  GLint height = 0;
  glBindTexture(GL_TEXTURE_2D, position);
  glGetTexLevelParameteriv(GL_TEXTURE_2D, level, GL_TEXTURE_WIDTH, &width);
  glGetTexLevelParameteriv(GL_TEXTURE_2D, level, GL_TEXTURE_HEIGHT, &height);
  std::vector<std::uint8_t> texels(4 * static_cast<std::size_t>(width * height));
  glPixelStorei(GL_PACK_ALIGNMENT, 1);
  glGetTexImage(GL_TEXTURE_2D, level, GL_RGBA, GL_UNSIGNED_BYTE, texels.data());
  return texels;
}

// Only what the interface names: attributes 0 and 1, the matrices and the colour.
const char* const kPlainVertex = R"(#version 330
layout(location = 0) in vec3 p;
layout(location = 1) in vec2 t;
uniform mat4 view, ratio, translate, rotate, scale;
out vec2 at;
void main() { gl_Position = ratio * view * translate * rotate * scale * vec4(p, 1.0); at = t; })";
const char* const kPlainFragment = R"(#version 330
in vec2 at;
out vec4 result;
uniform sampler2D anything;
uniform vec4 ourColour;
void main() { result = texture(anything, at) * ourColour; })";

int g_swaps = 0;
int g_interval = -1;

}  // namespace

TEST(GLDevice, StartFindsWhatItNeeds) {
  const GLContext context(64, 64);
  EXPECT_EQ(ZOVEngine::MakeGLDevice(KeepBackBuffer, KeepInterval)->Start(), "");
}

TEST(GLDevice, StartWithoutAContextSaysSo) {
  SDL_Init(SDL_INIT_VIDEO);
  EXPECT_NE(ZOVEngine::MakeGLDevice(KeepBackBuffer, KeepInterval)->Start(), "");
}

TEST(GLDevice, PresentAndIntervalReachThePlatform) {
  const auto device = ZOVEngine::MakeGLDevice([] { ++g_swaps; }, [](int i) { g_interval = i; });
  device->Present();
  device->Present();
  EXPECT_EQ(g_swaps, 2);
  device->SetSwapInterval(true);
  EXPECT_EQ(g_interval, 1);
  device->SetSwapInterval(false);
  EXPECT_EQ(g_interval, 0);
}

TEST(GLDevice, ResetViewportSetsTheFixedMatrices) {
  const GLContext context(400, 200);
  const auto device = ZOVEngine::MakeGLDevice(KeepBackBuffer, KeepInterval);
  device->Start();
  device->ResetViewport(400, 200, 2.0);
  GLint viewport[4] = {};
  glGetIntegerv(GL_VIEWPORT, viewport);
  EXPECT_EQ(viewport[2], 400);
  EXPECT_EQ(viewport[3], 200);
  GLint mode = 0;
  glGetIntegerv(GL_MATRIX_MODE, &mode);
  EXPECT_EQ(mode, GL_MODELVIEW);
  GLfloat matrix[16] = {};
  glGetFloatv(GL_PROJECTION_MATRIX, matrix);
  const float high = 1.0f / std::tan(3.14159265f / 8.0f);
  EXPECT_NEAR(matrix[0], high / 2.0f, 1e-4f);
  EXPECT_NEAR(matrix[5], high, 1e-4f);
  EXPECT_NEAR(matrix[10], -1001.0f / 999.0f, 1e-4f);
  EXPECT_NEAR(matrix[14], -2000.0f / 999.0f, 1e-4f);
}

TEST(GLDevice, SizeOfTheViewportIsTheSizeOfThePicture) {
  const GLContext context(kSceneWidth, kSceneHeight);
  const auto device = SceneDevice();
  device->ResetViewport(kSceneWidth / 2, kSceneHeight, 1.0);
  Frame frame = OneQuad(Program::kDefault);
  frame.commands[0].placement.scale = ZOVEngine::Vector3D(4000.0f, 4000.0f, 1.0f);
  device->Execute(frame);
  const Picture picture = context.ReadBack();
  EXPECT_NE(picture.At(kSceneWidth / 4, 100)[1], 0);
  EXPECT_EQ(picture.At(kSceneWidth * 3 / 4, 100)[1], 0);
}

TEST(GLDevice, DepthTestAndCullingStayOffAndBlendingIsOn) {
  const GLContext context(kSceneWidth, kSceneHeight);
  const auto device = SceneDevice();
  device->Execute(OneQuad(Program::kLight));
  EXPECT_FALSE(glIsEnabled(GL_DEPTH_TEST));
  EXPECT_FALSE(glIsEnabled(GL_CULL_FACE));
  EXPECT_TRUE(glIsEnabled(GL_BLEND));
  GLint value = 0;
  glGetIntegerv(GL_BLEND_SRC_RGB, &value);
  EXPECT_EQ(value, GL_SRC_ALPHA);
  glGetIntegerv(GL_BLEND_DST_RGB, &value);
  EXPECT_EQ(value, GL_ONE_MINUS_SRC_ALPHA);
  glGetIntegerv(GL_UNPACK_ALIGNMENT, &value);
  EXPECT_EQ(value, 1);
}

TEST(GLDevice, TextureNumberIsTheNameOfItsObject) {
  const GLContext context(kSceneWidth, kSceneHeight);
  const auto device = SceneDevice();
  for (std::uint32_t i = 0; i < kSceneTextures; ++i) {
    EXPECT_EQ(LevelWidth(i, 0), SceneImage(i).width) << i;
    EXPECT_EQ(TextureParameter(i, GL_TEXTURE_WRAP_S), GL_REPEAT) << i;
    EXPECT_EQ(TextureParameter(i, GL_TEXTURE_MIN_FILTER), GL_NEAREST_MIPMAP_LINEAR) << i;
  }
}

TEST(GLDevice, ATextureGetsItsMipmapsWhenItIsFirstDrawn) {
  const GLContext context(kSceneWidth, kSceneHeight);
  const auto device = SceneDevice();
  EXPECT_EQ(LevelWidth(4, 1), 0);
  Frame frame = OneQuad(Program::kDefault);
  frame.commands[0].texture = 4;
  device->Execute(frame);
  EXPECT_EQ(LevelWidth(4, 1), 64);
  EXPECT_EQ(LevelWidth(4, 7), 1);
  EXPECT_EQ(LevelWidth(5, 1), 0) << "another one waits";
}

TEST(GLDevice, AFinishedTextureHasItsMipmapsThoughNoFrameShowsIt) {
  const GLContext context(kSceneWidth, kSceneHeight);
  const auto device = SceneDevice();
  device->FinishTexture(4);
  EXPECT_EQ(LevelWidth(4, 1), 64);
  EXPECT_EQ(LevelWidth(4, 7), 1);
  device->FinishTexture(4);
  device->FinishTexture(4000);
  EXPECT_EQ(LevelWidth(5, 1), 0) << "another one waits";
}

TEST(GLDevice, MipmapsThatAnImageBringsAreUploadedAtOnce) {
  const GLContext context(kSceneWidth, kSceneHeight);
  const auto device = SceneDevice();
  ZOVEngine::Image image = SceneImage(4);
  ZOVEngine::MakeMipmaps(&image);
  image.mipmaps[0] = image.mipmaps[0] < 128 ? 255 : 0;  // none that a driver would make
  device->UploadTexture(4, image);
  for (int again = 0; again < 2; ++again) {
    const std::vector<ZOVEngine::MipmapLevel> levels = ZOVEngine::ListMipmaps(image);
    ASSERT_EQ(levels.size(), 7u);
    for (std::size_t i = 0; i < levels.size(); ++i) {
      const std::vector<std::uint8_t> texels = LevelTexels(4, static_cast<GLint>(i) + 1);
      ASSERT_EQ(LevelWidth(4, static_cast<GLint>(i) + 1), levels[i].width);
      EXPECT_EQ(std::memcmp(texels.data(), levels[i].pixels, texels.size()), 0) << i;
    }
    Frame frame = OneQuad(Program::kDefault);
    frame.commands[0].texture = 4;
    device->Execute(frame);  // leaves them as they are
    device->FinishTexture(4);
  }
}

TEST(GLDevice, MipmapsAreThoseThatADriverMakes) {
  const GLContext context(kSceneWidth, kSceneHeight);
  const auto device = SceneDevice();
  for (std::uint32_t number = 0; number < kSceneTextures; ++number) {
    device->FinishTexture(number);
    ZOVEngine::Image image = SceneImage(number);
    ZOVEngine::MakeMipmaps(&image);
    GLint level = 0;
    for (const ZOVEngine::MipmapLevel& map : ZOVEngine::ListMipmaps(image)) {
      const std::vector<std::uint8_t> texels = LevelTexels(number, ++level);
      ASSERT_EQ(LevelWidth(number, level), map.width);
      for (std::size_t i = 0; i < texels.size(); ++i) {
        ASSERT_NEAR(texels[i], map.pixels[i], 4) << number << " level " << level;
      }
    }
  }
}

TEST(GLDevice, ATextureThatIsReplacedGetsItsMipmapsAtOnce) {
  const GLContext context(kSceneWidth, kSceneHeight);
  const auto device = SceneDevice();
  device->UploadTexture(4, SceneImage(5));
  EXPECT_EQ(LevelWidth(4, 0), SceneImage(5).width);
  EXPECT_EQ(LevelWidth(4, 1), std::max(SceneImage(5).width / 2, 1));
}

TEST(GLDevice, ATextureCanBeReplaced) {
  const GLContext context(kSceneWidth, kSceneHeight);
  const auto device = SceneDevice();
  device->Execute(OneQuad(Program::kDefault));
  const Picture before = context.ReadBack();
  device->UploadTexture(0, SceneImage(4));
  device->Execute(OneQuad(Program::kDefault));
  EXPECT_GT(Compare(before, context.ReadBack()).largest, 30);
  EXPECT_EQ(LevelWidth(0, 0), SceneImage(4).width);
}

TEST(GLDevice, ATextureUploadedTwiceInARowLeavesTheTextAsItIs) {
  const GLContext context(kSceneWidth, kSceneHeight);
  const auto device = SceneDevice();
  device->UploadTexture(3, SceneImage(3));
  device->Execute(OneText());
  const Picture before = context.ReadBack();
  EXPECT_FALSE(IsBlack(before));
  device->UploadTexture(3, SceneImage(3));
  device->Execute(OneText());
  EXPECT_EQ(Compare(before, context.ReadBack()).largest, 0);
}

TEST(GLDevice, AnImageWithoutPixelsChangesNothing) {
  const GLContext context(kSceneWidth, kSceneHeight);
  const auto device = SceneDevice();
  ZOVEngine::Image broken;
  broken.width = broken.height = 100;
  device->UploadTexture(0, broken);
  device->UploadTexture(0, ZOVEngine::Image());
  EXPECT_EQ(LevelWidth(0, 0), SceneImage(0).width);
}

TEST(GLDevice, GlyphNamesAreNeverZero) {
  const GLContext context(kSceneWidth, kSceneHeight);
  const auto device = SceneDevice();
  const std::uint8_t texel = 255;
  EXPECT_NE(device->UploadGlyph(0, 0, nullptr), 0u);
  EXPECT_NE(device->UploadGlyph(1, 1, &texel), 0u);
}

TEST(GLDevice, BrokenVertexShaderPrintsItsLine) {
  const GLContext context(kSceneWidth, kSceneHeight);
  const auto device = SceneDevice();
  const std::string printed =
      PrintedBy(device.get(), "#version 330\nvoid main() { nonsense; }", kPlainFragment);
  const std::string line = LineWith(printed, "Error: Vertex shader compilation failed.");
  EXPECT_GT(line.size(), std::string("Error: Vertex shader compilation failed.").size());
  EXPECT_EQ(printed.find("Error: Fragment"), std::string::npos);
  EXPECT_NE(printed.find("Error: Shader program linking failed."), std::string::npos);
}

TEST(GLDevice, BrokenFragmentShaderPrintsItsLineWithAShortenedLog) {
  const GLContext context(kSceneWidth, kSceneHeight);
  const auto device = SceneDevice();
  std::string source = "#version 330\nvoid main() {";
  for (int i = 0; i < 100; ++i) source += "\nnonsense" + std::to_string(i) + ";";
  const std::string printed = PrintedBy(device.get(), kPlainVertex, source + "}");
  const std::string start = "Error: Fragment shader compilation failed.";
  const std::string line = LineWith(printed, start);
  EXPECT_GT(line.size(), start.size() + 400);
  EXPECT_LE(line.size(), start.size() + 512);
  EXPECT_EQ(std::count(printed.begin(), printed.end(), '\n'), 2);
}

TEST(GLDevice, SourcesThatDoNotFitTogetherPrintTheLinkLineOnly) {
  const GLContext context(kSceneWidth, kSceneHeight);
  const auto device = SceneDevice();
  const std::string printed =
      PrintedBy(device.get(), kPlainVertex,
                "#version 330\nin vec3 at;\nout vec4 r;\nvoid main() { r = vec4(at, 1.0); }");
  EXPECT_EQ(printed.find("Error: Shader program linking failed."), 0u);
  EXPECT_EQ(std::count(printed.begin(), printed.end(), '\n'), 1);
}

TEST(GLDevice, GoodSourcesPrintNothing) {
  const GLContext context(kSceneWidth, kSceneHeight);
  const auto device = SceneDevice();
  EXPECT_EQ(PrintedBy(device.get(), ShaderSource("default.vert"), ShaderSource("default.frag")),
            "");
  device->Execute(OneQuad(Program::kDefault));
  EXPECT_FALSE(IsBlack(context.ReadBack()));
}

TEST(GLDevice, ABrokenProgramDrawsNothingAndTheOthersGoOn) {
  const GLContext context(kSceneWidth, kSceneHeight);
  const auto device = SceneDevice();
  Frame frame = OneQuad(Program::kDefault);
  PrintedBy(device.get(), "nonsense", "");
  device->Execute(frame);
  EXPECT_TRUE(IsBlack(context.ReadBack()));
  frame.commands.push_back(QuadCommand(0, 0, 100, 100, 0, Program::kLight));
  device->Execute(frame);
  const Picture picture = context.ReadBack();
  EXPECT_FALSE(IsBlack(picture));
  EXPECT_EQ(picture.At(kSceneWidth / 2 - 40, kSceneHeight / 2)[1], 0);
}

TEST(GLDevice, BrokenProgramsOfAllKindsDrawNothing) {
  const GLContext context(kSceneWidth, kSceneHeight);
  const auto device = SceneDevice();
  testing::internal::CaptureStdout();
  for (const Program program :
       {Program::kDefault, Program::kFont, Program::kInstance, Program::kLight}) {
    device->CompileProgram(program, "", "");
  }
  testing::internal::GetCapturedStdout();
  Frame frame = OneQuad(Program::kLight);
  frame.glyphs.push_back({1, 0, 0, 1, 300, 300});
  frame.instances.push_back(ZOVEngine::Matrix4x4::Scale(300.0f, 300.0f));
  frame.commands.resize(3);
  frame.commands[1].kind = ZOVEngine::DrawCommand::Kind::kText;
  frame.commands[1].program = Program::kFont;
  frame.commands[2].kind = ZOVEngine::DrawCommand::Kind::kInstances;
  frame.commands[2].program = Program::kInstance;
  frame.commands[1].count = frame.commands[2].count = 1;
  device->Execute(frame);
  EXPECT_TRUE(IsBlack(context.ReadBack()));
}

TEST(GLDevice, ProgramsOfTheBareInterfaceDrawTheSame) {
  const GLContext context(kSceneWidth, kSceneHeight);
  const auto device = SceneDevice();
  ZOVEngine::SeedRand(21);
  Frame frame = EmptyFrame();
  AddRandomQuads(&frame, 40);
  device->Execute(frame);
  const Picture own = context.ReadBack();
  EXPECT_EQ(PrintedBy(device.get(), kPlainVertex, kPlainFragment), "");
  device->Execute(frame);
  EXPECT_EQ(Mismatch("bareinterface", context.ReadBack(), own, {3, 0.05}), "");
  EXPECT_EQ(device->Counters().draw_calls, 40u);
}

TEST(GLDevice, CommandsThatReachOutOfTheFrameAreLeftOut) {
  const GLContext context(kSceneWidth, kSceneHeight);
  const auto device = SceneDevice();
  Frame frame = OneQuad(Program::kDefault);
  frame.commands.resize(1);
  auto& command = frame.commands[0];
  command.first = 5;
  command.count = 7;
  for (const auto kind :
       {ZOVEngine::DrawCommand::Kind::kMesh, ZOVEngine::DrawCommand::Kind::kOutline,
        ZOVEngine::DrawCommand::Kind::kText, ZOVEngine::DrawCommand::Kind::kInstances}) {
    command.kind = kind;
    device->Execute(frame);
    EXPECT_TRUE(IsBlack(context.ReadBack()));
  }
}

TEST(GLDevice, NothingIsDrawnBeforeResourcesExistAndAfterRelease) {
  const GLContext context(kSceneWidth, kSceneHeight);
  const auto bare = ZOVEngine::MakeGLDevice(KeepBackBuffer, KeepInterval);
  bare->Start();
  bare->Execute(OneQuad(Program::kDefault));
  EXPECT_TRUE(IsBlack(context.ReadBack()));
  bare->Release();
  const auto device = SceneDevice();
  device->Release();
  device->Execute(OneQuad(Program::kDefault));
  EXPECT_TRUE(IsBlack(context.ReadBack()));
}

TEST(GLDevice, ReleaseDeletesArraysAndBuffersAndLeavesTextures) {
  const GLContext context(kSceneWidth, kSceneHeight);
  const auto device = SceneDevice();
  device->Execute(OneQuad(Program::kDefault));
  GLint array = 0;
  GLint buffer = 0;
  glGetIntegerv(GL_VERTEX_ARRAY_BINDING, &array);
  glGetIntegerv(GL_ARRAY_BUFFER_BINDING, &buffer);
  EXPECT_TRUE(glIsVertexArray(static_cast<GLuint>(array)));
  EXPECT_TRUE(glIsBuffer(static_cast<GLuint>(buffer)));
  device->Release();
  EXPECT_FALSE(glIsVertexArray(static_cast<GLuint>(array)));
  EXPECT_FALSE(glIsBuffer(static_cast<GLuint>(buffer)));
  EXPECT_TRUE(glIsTexture(3));
  glGetIntegerv(GL_VERTEX_ARRAY_BINDING, &array);
  EXPECT_EQ(array, 0);
}

TEST(GLDevice, ResourcesCanBeCreatedAgain) {
  const GLContext context(kSceneWidth, kSceneHeight);
  const auto device = SceneDevice();
  device->Execute(OneQuad(Program::kDefault));
  const Picture before = context.ReadBack();
  device->Release();
  device->CreateResources(SceneProjection());
  device->Execute(OneQuad(Program::kDefault));
  EXPECT_EQ(Compare(before, context.ReadBack()).largest, 0);
}

TEST(GLDevice, ProgramsCompiledAfterTheResourcesDraw) {
  const GLContext context(kSceneWidth, kSceneHeight);
  const auto device = SceneDevice();
  const std::uint32_t name = device->CompileProgram(Program::kLight, ShaderSource("light.vert"),
                                                    ShaderSource("light.frag"));
  EXPECT_TRUE(glIsProgram(name));
  device->Execute(OneQuad(Program::kLight));
  EXPECT_FALSE(IsBlack(context.ReadBack()));
}

TEST(GLDevice, ParticlesAndSpritesAreLitByTheSameLines) {
  const std::string start = "// What the lamps add up to";
  const auto lighting = [&start](const std::string& source) {
    return source.substr(source.find(start), source.find("void main()") - source.find(start));
  };
  const std::string sprites = lighting(ShaderSource("light.frag"));
  EXPECT_GT(sprites.size(), 1000u);
  EXPECT_EQ(sprites, lighting(ShaderSource("instance.frag")));
}

TEST(GLDevice, ShadersDeclareTheirInterface) {
  const GLContext context(kSceneWidth, kSceneHeight);
  const auto device = SceneDevice();
  const auto has = [&device](Program program, const char* name, const std::string& uniforms) {
    const std::string base(name);
    const GLuint id =
        device->CompileProgram(program, ShaderSource(base + ".vert"), ShaderSource(base + ".frag"));
    return glGetUniformLocation(id, uniforms.c_str()) >= 0;
  };
  for (const char* uniform : {"view", "ratio", "translate", "rotate", "scale", "ourColour"}) {
    EXPECT_TRUE(has(Program::kDefault, "default", uniform)) << uniform;
    EXPECT_TRUE(has(Program::kLight, "light", uniform)) << uniform;
  }
  for (const char* uniform :
       {"view", "ratio", "ourColour", "viewPos", "material.specular", "material.shine", "size",
        "lights[0].position", "lights[63].ambient", "lights[9].diffuse", "lights[9].specular",
        "lights[9].ambientStr", "lights[9].diffuseStr", "lights[63].specularStr"}) {
    EXPECT_TRUE(has(Program::kInstance, "instance", uniform)) << uniform;
    EXPECT_TRUE(has(Program::kLight, "light", uniform)) << uniform;
  }
  for (const char* uniform : {"view", "ratio", "textColour"}) {
    EXPECT_TRUE(has(Program::kFont, "font", uniform)) << uniform;
  }
}

}  // namespace carapace_test
