#include "render/gl/glstate.h"

#include <gtest/gtest.h>

#include "render/gl/glprogram.h"
#include "support/glcontext.h"

namespace carapace_test {

namespace {

using ZOVEngine::GLState;

GLuint Bound(GLenum what) {
  GLint name = -1;
  glGetIntegerv(what, &name);
  return static_cast<GLuint>(name);
}

GLuint BoundTexture(int unit) {
  GLint active = 0;
  glGetIntegerv(GL_ACTIVE_TEXTURE, &active);
  glActiveTexture(GL_TEXTURE0 + static_cast<GLenum>(unit));
  const GLuint name = Bound(GL_TEXTURE_BINDING_2D);
  glActiveTexture(static_cast<GLenum>(active));
  return name;
}

/// The driver is asked for what is bound.
class GLStateTest : public testing::Test {
 protected:
  GLStateTest() : m_context(64, 64) {
    glewExperimental = GL_TRUE;
    glewInit();
    glGenVertexArrays(2, m_arrays);
  }

  GLContext m_context;
  GLuint m_arrays[2] = {};
  GLState m_state;
};

}  // namespace

TEST_F(GLStateTest, EachKindOfBindReachesTheDriver) {
  bool linked = false;
  const GLuint program = ZOVEngine::LinkProgram(ShaderSource("default.vert"),
                                                ShaderSource("default.frag"), true, &linked);
  m_state.UseProgram(program);
  m_state.UseVertexArray(m_arrays[0]);
  m_state.UseArrayBuffer(5);
  m_state.UseUploadBuffer(6);
  m_state.UseTexture(3, 7);
  EXPECT_EQ(Bound(GL_VERTEX_ARRAY_BINDING), m_arrays[0]);
  EXPECT_EQ(Bound(GL_ARRAY_BUFFER_BINDING), 5u);
  EXPECT_EQ(Bound(GL_COPY_WRITE_BUFFER_BINDING), 6u);
  EXPECT_EQ(BoundTexture(3), 7u);
  EXPECT_EQ(Bound(GL_CURRENT_PROGRAM), program);
  EXPECT_EQ(m_state.CurrentProgram(), program);
}

TEST_F(GLStateTest, TexturesOfDifferentUnitsStayApart) {
  for (int unit = 0; unit < ZOVEngine::kTextureUnits; ++unit) {
    m_state.UseTexture(unit, 20u + static_cast<GLuint>(unit));
  }
  m_state.UseTexture(4, 99);
  for (int unit = 0; unit < ZOVEngine::kTextureUnits; ++unit) {
    EXPECT_EQ(BoundTexture(unit), unit == 4 ? 99u : 20u + static_cast<GLuint>(unit)) << unit;
  }
}

TEST_F(GLStateTest, TheTextureToEditIsOnTheActiveUnit) {
  m_state.EditTexture(7);
  m_state.UseTexture(3, 8);
  m_state.EditTexture(7);
  EXPECT_EQ(Bound(GL_TEXTURE_BINDING_2D), 7u);
  EXPECT_EQ(BoundTexture(3), 8u);
  EXPECT_EQ(m_state.Counters().texture_binds, 2u);
}

TEST_F(GLStateTest, WhatIsInUseIsNotBoundAgain) {
  m_state.UseTexture(2, 7);
  m_state.UseVertexArray(m_arrays[0]);
  m_state.UseTexture(2, 7);
  m_state.UseVertexArray(m_arrays[0]);
  EXPECT_EQ(m_state.Counters().texture_binds, 1u);
  EXPECT_EQ(m_state.Counters().vertex_array_binds, 1u);
  EXPECT_EQ(m_state.Counters().redundant_binds, 0u);
}

TEST_F(GLStateTest, ABindOfWhatIsBoundCountsAsRedundant) {
  m_state.BindTexture(2, 7);
  EXPECT_EQ(m_state.Counters().redundant_binds, 0u);
  m_state.BindTexture(2, 7);
  EXPECT_EQ(m_state.Counters().redundant_binds, 1u);
  m_state.UseTexture(2, 7);
  EXPECT_EQ(m_state.Counters().redundant_binds, 1u);
  EXPECT_EQ(m_state.Counters().texture_binds, 2u);
  m_state.BindProgram(0);
  m_state.BindVertexArray(0);
  EXPECT_EQ(m_state.Counters().redundant_binds, 3u);
}

TEST_F(GLStateTest, ANewCountStartsAtNothingAndKeepsTheBinds) {
  m_state.UseTexture(2, 7);
  m_state.CountDraw(false);
  m_state.CountDraw(true);
  EXPECT_EQ(m_state.Counters().draw_calls, 2u);
  EXPECT_EQ(m_state.Counters().text_draw_calls, 1u);
  m_state.ResetCounters();
  EXPECT_EQ(m_state.Counters().draw_calls, 0u);
  EXPECT_EQ(m_state.Counters().texture_binds, 0u);
  m_state.UseTexture(2, 7);
  EXPECT_EQ(m_state.Counters().texture_binds, 0u);
}

}  // namespace carapace_test
