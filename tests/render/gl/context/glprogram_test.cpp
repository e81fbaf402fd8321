#include "render/gl/glprogram.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "render/gl/context/glscene.h"
#include "render/gl/glstate.h"

namespace carapace_test {

namespace {

using ZOVEngine::GLProgram;
using ZOVEngine::LightClass;
using ZOVEngine::LinkProgram;
using ZOVEngine::Matrix4x4;
using ZOVEngine::ProgramSet;
using ZOVEngine::Vector3D;

/// A program of the shipped sources of this name.
GLuint Shipped(const std::string& name) {
  bool linked = false;
  const GLuint program =
      LinkProgram(ShaderSource(name + ".vert"), ShaderSource(name + ".frag"), true, &linked);
  EXPECT_TRUE(linked) << name;
  return program;
}

ProgramSet ShippedSet(const std::string& name, bool by_number = false, bool stream = true) {
  return {ShaderSource(name + ".vert"), ShaderSource(name + ".frag"), by_number, stream};
}

/// The program in use, asked for its uniforms.
template <std::size_t N>
std::array<float, N> Floats(const GLProgram& program, const char* uniform) {
  std::array<float, N> out{};
  glGetUniformfv(program.Name(), glGetUniformLocation(program.Name(), uniform), out.data());
  return out;
}

GLint Int(const GLProgram& program, const char* uniform) {
  GLint out = -1;
  glGetUniformiv(program.Name(), glGetUniformLocation(program.Name(), uniform), &out);
  return out;
}

void ExpectMatrix(const GLProgram& program, const char* uniform, const Matrix4x4& expected) {
  const auto columns = Floats<16>(program, uniform);
  for (std::size_t row = 0; row < 4; ++row) {
    for (std::size_t column = 0; column < 4; ++column) {
      EXPECT_NEAR(columns[4 * column + row], expected.at[row][column], 1e-5f)
          << uniform << ' ' << row << ' ' << column;
    }
  }
}

class GLProgramTest : public testing::Test {
 protected:
  GLProgramTest() : m_context(64, 64) {
    glewExperimental = GL_TRUE;
    glewInit();
  }

  /// The shipped program of this name, in use.
  GLProgram Use(const std::string& name) {
    GLProgram program(Shipped(name));
    glUseProgram(program.Name());
    return program;
  }

  GLContext m_context;
};

using ProgramSetTest = GLProgramTest;

}  // namespace

// --- Uniforms ---

TEST_F(GLProgramTest, TheConstantsAreProjectionWhiteAndTheMaterial) {
  GLProgram program = Use("light");
  program.SetConstants();
  program.SetProjection(SceneProjection());
  ExpectMatrix(program, "ratio", SceneProjection());
  EXPECT_EQ(Floats<4>(program, "ourColour"), (std::array<float, 4>{1, 1, 1, 1}));
  EXPECT_EQ(Floats<3>(program, "material.specular"), (std::array<float, 3>{0.5f, 0.5f, 0.5f}));
  EXPECT_EQ(Floats<1>(program, "material.shine")[0], 64.0f);
}

TEST_F(GLProgramTest, TheViewIsAMatrixAndItsTranslation) {
  GLProgram program = Use("light");
  Matrix4x4 view = Matrix4x4::Translation(10.0f, 20.0f);
  view.m[11] = -30.0f;
  program.SetView(view, Vector3D(10.0f, 20.0f, -30.0f));
  ExpectMatrix(program, "view", view);
  EXPECT_EQ(Floats<3>(program, "viewPos"), (std::array<float, 3>{10, 20, -30}));
}

TEST_F(GLProgramTest, APlacementIsThreeMatrices) {
  GLProgram program = Use("default");
  program.SetPlacement({Vector3D(1.0f, 2.0f, 3.0f), 0.5f, Vector3D(4.0f, 5.0f, 6.0f)});
  Matrix4x4 move = Matrix4x4::Translation(1.0f, 2.0f);
  move.m[11] = 3.0f;
  ExpectMatrix(program, "translate", move);
  ExpectMatrix(program, "rotate", Matrix4x4::Rotation(0.5f * 57.2957795f));
  Matrix4x4 scale = Matrix4x4::Scale(4.0f, 5.0f);
  scale.m[10] = 6.0f;
  ExpectMatrix(program, "scale", scale);
}

TEST_F(GLProgramTest, TheColourOfTextHasANameOfItsOwn) {
  GLProgram program = Use("font");
  const float colour[4] = {0.1f, 0.2f, 0.3f, 0.4f};
  program.SetColour(colour);
  EXPECT_EQ(Floats<4>(program, "textColour"), (std::array<float, 4>{0.1f, 0.2f, 0.3f, 0.4f}));
}

TEST_F(GLProgramTest, EveryMemberOfALightIsSetByItsName) {
  GLProgram program = Use("light");
  program.SetLights({LightAt(1, 2), LightAt(3, 4)});
  EXPECT_EQ(Int(program, "size"), 2);
  EXPECT_EQ(Floats<3>(program, "lights[1].position"), (std::array<float, 3>{3, 4, 1}));
  EXPECT_EQ(Floats<3>(program, "lights[1].ambient"), (std::array<float, 3>{0.3f, 0.2f, 0.1f}));
  EXPECT_EQ(Floats<3>(program, "lights[1].diffuse"), (std::array<float, 3>{0.9f, 0.7f, 0.5f}));
  EXPECT_EQ(Floats<3>(program, "lights[1].specular"), (std::array<float, 3>{0.5f, 0.8f, 1.0f}));
  EXPECT_EQ(Floats<1>(program, "lights[1].ambientStr")[0], 0.4f);
  EXPECT_EQ(Floats<1>(program, "lights[1].diffuseStr")[0], 0.8f);
  EXPECT_EQ(Floats<1>(program, "lights[1].specularStr")[0], 0.6f);
  program.SetLights({});
  EXPECT_EQ(Int(program, "size"), 0);
}

TEST_F(GLProgramTest, MoreLightsThanTheShaderHoldsAreCountedAndDoNoHarm) {
  GLProgram program = Use("light");
  program.SetLights(std::vector<ZOVEngine::LightRecord>(70, LightAt(5, 6)));
  EXPECT_EQ(Int(program, "size"), 70);
  EXPECT_EQ(Floats<3>(program, "lights[63].position"), (std::array<float, 3>{5, 6, 1}));
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(GLProgramTest, AValueThatIsSetAlreadyIsNotSentAgain) {
  GLProgram program = Use("default");
  const float red[4] = {1.0f, 0.0f, 0.0f, 1.0f};
  const float blue[4] = {0.0f, 0.0f, 1.0f, 1.0f};
  program.SetColour(red);
  const GLint at = glGetUniformLocation(program.Name(), "ourColour");
  glUniform4fv(at, 1, blue);
  program.SetColour(red);
  EXPECT_EQ(Floats<4>(program, "ourColour")[2], 1.0f) << "what was written past it stands";
  program.SetColour(blue);
  program.SetColour(red);
  EXPECT_EQ(Floats<4>(program, "ourColour")[0], 1.0f);
}

TEST_F(GLProgramTest, UniformsThatAProgramLacksAreLeftAlone) {
  GLProgram program = Use("font");
  program.SetConstants();
  program.SetProjection(SceneProjection());
  program.SetLights({LightAt(0, 0)});
  program.SetPackedLights(1, std::vector<float>(12, 1.0f));
  program.SetPlacement({});
  program.SetUnit(3);
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(GLProgramTest, TheReachOfLightIsReadFromTheShader) {
  EXPECT_EQ(GLProgram(Shipped("light")).LightReach(), 300.0f);
  EXPECT_EQ(GLProgram(Shipped("instance")).LightReach(), 300.0f);
  EXPECT_EQ(GLProgram(Shipped("default")).LightReach(), 0.0f);
}

// --- Linking ---

TEST_F(GLProgramTest, AFailureIsReportedOnlyWhenItIsAskedFor) {
  bool linked = true;
  testing::internal::CaptureStdout();
  LinkProgram("nonsense", "nonsense", false, &linked);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_FALSE(linked);
  testing::internal::CaptureStdout();
  LinkProgram("nonsense", "nonsense", true, &linked);
  const std::string printed = testing::internal::GetCapturedStdout();
  EXPECT_NE(printed.find("Error: Vertex shader compilation failed."), std::string::npos);
  EXPECT_NE(printed.find("Error: Fragment shader compilation failed."), std::string::npos);
  EXPECT_NE(printed.find("Error: Shader program linking failed."), std::string::npos);
}

// --- Forms of a program ---

TEST_F(ProgramSetTest, EveryClassOfLightHasAFormForOneTextureAndOneForMany) {
  ProgramSet set = ShippedSet("light");
  std::vector<const GLProgram*> forms;
  for (int lights = 0; lights < ZOVEngine::kLightClasses; ++lights) {
    for (const bool one_texture : {false, true}) {
      forms.push_back(set.Streamed(static_cast<LightClass>(lights), one_texture));
      ASSERT_NE(forms.back(), nullptr) << lights;
    }
  }
  std::sort(forms.begin(), forms.end());
  EXPECT_EQ(std::adjacent_find(forms.begin(), forms.end()), forms.end());
  EXPECT_EQ(set.Streamed(LightClass::kTwo, true), set.Streamed(LightClass::kTwo, true));
}

TEST_F(ProgramSetTest, AFormOfManyTexturesSamplesTheUnitsInTheirOrder) {
  ProgramSet set = ShippedSet("default");
  GLProgram& form = *set.Streamed(LightClass::kNone, false);
  glUseProgram(form.Name());
  form.SetConstants();
  form.SetProjection(SceneProjection());
  for (int i = 0; i < ZOVEngine::kSpriteUnits; ++i) {
    EXPECT_EQ(Int(form, ("pictures[" + std::to_string(i) + "]").c_str()), i);
  }
}

TEST_F(ProgramSetTest, AFormOfOneTextureSamplesTheUnitThatIsSet) {
  ProgramSet set = ShippedSet("default");
  GLProgram& form = *set.Streamed(LightClass::kNone, true);
  glUseProgram(form.Name());
  form.SetUnit(5);
  EXPECT_EQ(Int(form, "picture"), 5);
}

TEST_F(ProgramSetTest, WithoutStreamingThereIsThePlainFormOnly) {
  ProgramSet set = ShippedSet("light", false, false);
  ASSERT_NE(set.Plain(), nullptr);
  EXPECT_EQ(set.Plain()->Name(), set.Name());
  EXPECT_EQ(set.Streamed(LightClass::kNone, false), nullptr);
}

TEST_F(ProgramSetTest, SourcesThatDoNotMentionItAreNotStreamed) {
  ProgramSet set("#version 330\nvoid main() { gl_Position = vec4(0.0); }",
                 "#version 330\nout vec4 c;\nvoid main() { c = vec4(1.0); }", false, true);
  EXPECT_NE(set.Plain(), nullptr);
  EXPECT_EQ(set.Streamed(LightClass::kNone, true), nullptr);
}

TEST_F(ProgramSetTest, AStreamedFormThatDoesNotCompileIsSilentlyLeftOut) {
  ProgramSet set("#version 330\n// STREAMED\nvoid main() { gl_Position = vec4(0.0); }",
                 "#version 330\nout vec4 c;\n#ifdef STREAMED\nnonsense\n#endif\n"
                 "void main() { c = vec4(1.0); }",
                 false, true);
  testing::internal::CaptureStdout();
  EXPECT_EQ(set.Streamed(LightClass::kNone, true), nullptr);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_NE(set.Plain(), nullptr);
}

TEST_F(ProgramSetTest, SourcesThatDoNotLinkHaveANameAndNoForm) {
  testing::internal::CaptureStdout();
  ProgramSet set("nonsense", "nonsense", false, true);
  testing::internal::GetCapturedStdout();
  EXPECT_NE(set.Name(), 0u);
  EXPECT_EQ(set.Plain(), nullptr);
  EXPECT_EQ(set.Streamed(LightClass::kNone, true), nullptr);
}

}  // namespace carapace_test
