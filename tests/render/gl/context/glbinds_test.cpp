#include <GL/glew.h>
#include <dlfcn.h>
#include <gtest/gtest.h>

#include "render/gl/context/glscene.h"

namespace carapace_test {

namespace {

/// Counts what really reaches the driver, and asks the driver itself what was bound before.
struct Audit {
  bool on = false;
  unsigned textures = 0;
  unsigned programs = 0;
  unsigned arrays = 0;
  unsigned redundant = 0;

  void Check(unsigned* count, GLenum binding, GLuint name) {
    if (!on) return;
    GLint bound = -1;
    glGetIntegerv(binding, &bound);
    ++*count;
    if (bound == static_cast<GLint>(name)) ++redundant;
  }
};

Audit g_audit;
PFNGLUSEPROGRAMPROC g_use_program = nullptr;
PFNGLBINDVERTEXARRAYPROC g_bind_array = nullptr;

void AuditedUseProgram(GLuint name) {
  g_audit.Check(&g_audit.programs, GL_CURRENT_PROGRAM, name);
  g_use_program(name);
}

void AuditedBindVertexArray(GLuint name) {
  g_audit.Check(&g_audit.arrays, GL_VERTEX_ARRAY_BINDING, name);
  g_bind_array(name);
}

/// Puts the audit between the device and the driver for its life.
class AuditScope {
 public:
  AuditScope() {
    g_use_program = __glewUseProgram;
    g_bind_array = __glewBindVertexArray;
    __glewUseProgram = AuditedUseProgram;
    __glewBindVertexArray = AuditedBindVertexArray;
    g_audit = Audit();
    g_audit.on = true;
  }
  ~AuditScope() {
    g_audit.on = false;
    __glewUseProgram = g_use_program;
    __glewBindVertexArray = g_bind_array;
  }
};

ZOVEngine::Frame MixedFrame() {
  using ZOVEngine::Program;
  ZOVEngine::SeedRand(11);
  ZOVEngine::Frame frame = EmptyFrame();
  AddRandomLights(&frame, 6);
  frame.commands.push_back(QuadCommand(0, 0, 9600, 5400, 4, Program::kLight));
  for (int i = 0; i < 12; ++i) {
    AddRandomQuads(&frame, 15, i % 3 ? Program::kDefault : Program::kLight);
    auto& text = frame.commands.emplace_back();
    text.kind = ZOVEngine::DrawCommand::Kind::kText;
    text.program = Program::kFont;
    text.first = static_cast<std::uint32_t>(frame.glyphs.size());
    text.count = 1;
    frame.glyphs.push_back({3, 0.0f, 40.0f * static_cast<float>(i), 1.0f, 20.0f, 30.0f});
  }
  frame.instances.push_back(ZOVEngine::Matrix4x4::Scale(50.0f, 50.0f));
  auto& instances = frame.commands.emplace_back();
  instances.kind = ZOVEngine::DrawCommand::Kind::kInstances;
  instances.program = Program::kInstance;
  instances.count = 1;
  frame.commands.push_back(QuadCommand(0, 0, 64, 64, 3));
  return frame;
}

ZOVEngine::Frame ManySprites(int count, std::uint32_t textures) {
  ZOVEngine::Frame frame = EmptyFrame();
  for (int i = 0; i < count; ++i) {
    frame.commands.push_back(QuadCommand(static_cast<float>(i % 1000) - 500.0f, 0, 10, 10,
                                         static_cast<std::uint32_t>(i) * 5u % textures));
  }
  return frame;
}

void ExpectNoBindTwice(const ZOVEngine::GLOptions& options) {
  const GLContext context(kSceneWidth, kSceneHeight);
  const auto device = SceneDevice(options);
  const ZOVEngine::Frame frame = MixedFrame();
  device->Execute(frame);
  for (int i = 0; i < 3; ++i) {
    const AuditScope scope;
    device->Execute(frame);
    const ZOVEngine::DeviceCounters counters = device->Counters();
    EXPECT_GT(g_audit.textures, 0u);
    EXPECT_GT(g_audit.programs, 0u);
    EXPECT_EQ(g_audit.redundant, 0u);
    EXPECT_EQ(counters.redundant_binds, 0u);
    EXPECT_EQ(counters.texture_binds, g_audit.textures);
    EXPECT_EQ(counters.program_binds, g_audit.programs);
    EXPECT_EQ(counters.vertex_array_binds, g_audit.arrays);
  }
}

}  // namespace

TEST(GLBinds, NothingIsBoundTwiceByAnyWayOfDrawing) {
  using Choice = ZOVEngine::GLOptions::TextureChoice;
  ExpectNoBindTwice({Choice::kByNumber, true});
  ExpectNoBindTwice({Choice::kByComparison, true});
  ExpectNoBindTwice({Choice::kByDriver, false});
}

TEST(GLBinds, EightTexturesInAnyOrderAreOneDraw) {
  const GLContext context(kSceneWidth, kSceneHeight);
  const auto device = SceneDevice();
  const ZOVEngine::Frame frame = ManySprites(3000, 8);
  device->Execute(frame);
  EXPECT_EQ(device->Counters().draw_calls, 1u);
  device->Execute(frame);
  EXPECT_EQ(device->Counters().draw_calls, 1u);
  EXPECT_EQ(device->Counters().texture_binds, 0u);
}

TEST(GLBinds, ANinthTextureStartsAnotherDraw) {
  const GLContext context(kSceneWidth, kSceneHeight);
  const auto device = SceneDevice();
  ZOVEngine::Frame frame = ManySprites(8, 8);
  frame.commands.push_back(QuadCommand(0, 0, 10, 10, 8));
  device->Execute(frame);
  EXPECT_EQ(device->Counters().draw_calls, 2u);
}

TEST(GLBinds, TextsOfAllColoursInARowAreOneDraw) {
  const GLContext context(kSceneWidth, kSceneHeight);
  const auto device = SceneDevice();
  ZOVEngine::Frame frame = EmptyFrame();
  for (std::uint32_t i = 0; i < 40; ++i) {
    frame.glyphs.push_back({1 + i % 20, 10.0f * static_cast<float>(i), 0.0f, 1.0f, 9.0f, 9.0f});
    auto& text = frame.commands.emplace_back();
    text.kind = ZOVEngine::DrawCommand::Kind::kText;
    text.program = ZOVEngine::Program::kFont;
    text.first = i;
    text.count = 1;
    SetColour(&text, 1, static_cast<float>(i) / 40, 0, 1);
  }
  device->Execute(frame);
  EXPECT_EQ(device->Counters().draw_calls, 1u);
}

TEST(GLBinds, AllInstancesAreOneDraw) {
  const GLContext context(kSceneWidth, kSceneHeight);
  const auto device = SceneDevice();
  ZOVEngine::Frame frame = EmptyFrame();
  frame.instances.assign(150000, ZOVEngine::Matrix4x4::Scale(2.0f, 2.0f));
  auto& instances = frame.commands.emplace_back();
  instances.kind = ZOVEngine::DrawCommand::Kind::kInstances;
  instances.program = ZOVEngine::Program::kInstance;
  instances.count = 150000;
  device->Execute(frame);
  EXPECT_EQ(device->Counters().draw_calls, 1u);
}

TEST(GLBinds, AnUnstreamedDeviceDrawsEachCommandAlone) {
  const GLContext context(kSceneWidth, kSceneHeight);
  const auto device = SceneDevice({ZOVEngine::GLOptions::TextureChoice::kByDriver, false});
  device->Execute(ManySprites(50, 8));
  EXPECT_EQ(device->Counters().draw_calls, 50u);
}

}  // namespace carapace_test

/// Stands before the driver's own function in this program only, and passes everything on.
extern "C" void glBindTexture(GLenum target, GLuint name) {
  static const auto next =
      reinterpret_cast<void (*)(GLenum, GLuint)>(dlsym(RTLD_NEXT, "glBindTexture"));
  carapace_test::g_audit.Check(&carapace_test::g_audit.textures, GL_TEXTURE_BINDING_2D, name);
  next(target, name);
}
