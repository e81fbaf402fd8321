#include "render/gl/glstate.h"

namespace ZOVEngine {

void GLState::BindProgram(GLuint name) {
  Count(m_program == name);
  ++m_counters.program_binds;
  m_program = name;
  glUseProgram(name);
}

void GLState::BindVertexArray(GLuint name) {
  Count(m_vertex_array == name);
  ++m_counters.vertex_array_binds;
  m_vertex_array = name;
  glBindVertexArray(name);
}

void GLState::BindTexture(int unit, GLuint name) {
  GLuint& bound = m_textures[static_cast<std::size_t>(unit)];
  Count(bound == name);
  ++m_counters.texture_binds;
  bound = name;
  ActivateUnit(unit);
  glBindTexture(GL_TEXTURE_2D, name);
}

void GLState::BindArrayBuffer(GLuint name) {
  Count(m_array_buffer == name);
  m_array_buffer = name;
  glBindBuffer(GL_ARRAY_BUFFER, name);
}

void GLState::BindUploadBuffer(GLuint name) {
  Count(m_upload_buffer == name);
  m_upload_buffer = name;
  glBindBuffer(GL_COPY_WRITE_BUFFER, name);
}

void GLState::ActivateUnit(int unit) {
  if (m_active_unit == unit) return;
  m_active_unit = unit;
  glActiveTexture(GL_TEXTURE0 + static_cast<GLenum>(unit));
}

}  // namespace ZOVEngine
