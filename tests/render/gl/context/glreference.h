#pragma once

#include <GL/glew.h>

#include <cmath>
#include <map>
#include <string>
#include <vector>

#include "render/frame.h"
#include "render/images/image.h"
#include "support/glcontext.h"

namespace carapace_test {

/// Draws a frame with one call for each command; tests compare the device with it.
///
/// One draw call for every command and every glyph, a buffer upload before each, every uniform
/// looked up by name at each use, a texture object for every glyph. Uses the shipped shaders as
/// they are, and nothing of the device's own code. It needs a context of its own.
class PlainRenderer {
 public:
  void Start(const ZOVEngine::Matrix4x4& projection) {
    const char* kNames[] = {"default", "font", "instance", "light"};
    for (int i = 0; i < 4; ++i) m_programs[i] = Link(kNames[i]);
    m_projection = projection;
    GLuint array = 0;
    glGenVertexArrays(1, &array);
    glBindVertexArray(array);
    glGenBuffers(1, &m_vertices);
    glGenBuffers(1, &m_indices);
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, m_indices);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glClearColor(0.0f, 0.0f, 0.0f, 1.0f);
  }

  void UploadTexture(std::uint32_t position, const ZOVEngine::Image& image) {
    glGenTextures(1, &m_textures[position]);
    glBindTexture(GL_TEXTURE_2D, m_textures[position]);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, image.width, image.height, 0, GL_RGBA, GL_UNSIGNED_BYTE,
                 image.pixels.data());
    glGenerateMipmap(GL_TEXTURE_2D);
  }

  std::uint32_t UploadGlyph(int width, int height, const std::uint8_t* coverage) {
    GLuint name = 0;
    glGenTextures(1, &name);
    glBindTexture(GL_TEXTURE_2D, name);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RED, width, height, 0, GL_RED, GL_UNSIGNED_BYTE, coverage);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    m_glyphs.push_back(name);
    return static_cast<std::uint32_t>(m_glyphs.size());
  }

  void Draw(const ZOVEngine::Frame& frame) {
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    for (const GLuint program : m_programs) SetFrameValues(program, frame);
    for (const ZOVEngine::DrawCommand& command : frame.commands) DrawOne(frame, command);
  }

 private:
  using Command = ZOVEngine::DrawCommand;
  struct Vertex {
    float x, y, z, u, v;
  };

  static GLuint Stage(GLenum kind, const std::string& source) {
    const GLuint shader = glCreateShader(kind);
    const char* text = source.c_str();
    glShaderSource(shader, 1, &text, nullptr);
    glCompileShader(shader);
    return shader;
  }

  static GLuint Link(const std::string& name) {
    const GLuint program = glCreateProgram();
    glAttachShader(program, Stage(GL_VERTEX_SHADER, ShaderSource(name + ".vert")));
    glAttachShader(program, Stage(GL_FRAGMENT_SHADER, ShaderSource(name + ".frag")));
    glLinkProgram(program);
    return program;
  }

  GLint At(const std::string& uniform) const {
    return glGetUniformLocation(m_current, uniform.c_str());
  }

  void Use(GLuint program) {
    m_current = program;
    glUseProgram(program);
  }

  void SetMatrix(const char* uniform, const ZOVEngine::Matrix4x4& matrix) const {
    glUniformMatrix4fv(At(uniform), 1, GL_TRUE, matrix.m);
  }

  void SetFrameValues(GLuint program, const ZOVEngine::Frame& frame) {
    Use(program);
    SetMatrix("view", frame.view);
    SetMatrix("ratio", m_projection);
    glUniform3fv(At("viewPos"), 1, frame.view_pos.v);
    glUniform3f(At("material.specular"), 0.5f, 0.5f, 0.5f);
    glUniform1f(At("material.shine"), 64.0f);
    glUniform1i(At("size"), static_cast<GLint>(frame.lights.size()));
    for (std::size_t i = 0; i < frame.lights.size(); ++i) SetLight(i, frame.lights[i]);
  }

  void SetLight(std::size_t i, const ZOVEngine::LightRecord& light) const {
    const std::string entry = "lights[" + std::to_string(i) + "].";
    glUniform3fv(At(entry + "position"), 1, light.position.v);
    glUniform3fv(At(entry + "ambient"), 1, light.ambient.v);
    glUniform3fv(At(entry + "diffuse"), 1, light.diffuse.v);
    glUniform3fv(At(entry + "specular"), 1, light.specular.v);
    glUniform1f(At(entry + "ambientStr"), light.ambientStr);
    glUniform1f(At(entry + "diffuseStr"), light.diffuseStr);
    glUniform1f(At(entry + "specularStr"), light.specularStr);
  }

  void SetPlacement(const ZOVEngine::Placement& placement) const {
    using ZOVEngine::Matrix4x4;
    const auto& [move, angle, size] = placement;
    Matrix4x4 translate = Matrix4x4::Translation(move.x, move.y);
    translate.m[11] = move.z;
    Matrix4x4 rotate = Matrix4x4::Identity();
    rotate.m[0] = rotate.m[5] = std::cos(angle);
    rotate.m[1] = -std::sin(angle);
    rotate.m[4] = std::sin(angle);
    Matrix4x4 scale = Matrix4x4::Scale(size.x, size.y);
    scale.m[10] = size.z;
    SetMatrix("translate", translate);
    SetMatrix("rotate", rotate);
    SetMatrix("scale", scale);
  }

  void UploadVertices(const std::vector<Vertex>& vertices) const {
    glBindBuffer(GL_ARRAY_BUFFER, m_vertices);
    glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(vertices.size() * sizeof(Vertex)),
                 vertices.data(), GL_DYNAMIC_DRAW);
    glVertexAttribPointer(0, 3, GL_FLOAT, GL_FALSE, sizeof(Vertex), nullptr);
    glVertexAttribPointer(1, 2, GL_FLOAT, GL_FALSE, sizeof(Vertex),
                          reinterpret_cast<const void*>(12));
    glEnableVertexAttribArray(0);
    glEnableVertexAttribArray(1);
  }

  void UploadQuad(const ZOVEngine::TextureWindow& w) const {
    UploadVertices({{0.5f, 0.5f, 0.0f, w.u_right, w.v_top},
                    {0.5f, -0.5f, 0.0f, w.u_right, w.v_bottom},
                    {-0.5f, -0.5f, 0.0f, w.u_left, w.v_bottom},
                    {-0.5f, 0.5f, 0.0f, w.u_left, w.v_top}});
    UploadIndices({0, 1, 3, 1, 2, 3});
  }

  static void UploadIndices(const std::vector<std::uint32_t>& indices) {
    glBufferData(GL_ELEMENT_ARRAY_BUFFER,
                 static_cast<GLsizeiptr>(indices.size() * sizeof(std::uint32_t)), indices.data(),
                 GL_DYNAMIC_DRAW);
  }

  void DrawOne(const ZOVEngine::Frame& frame, const Command& command) {
    if (command.kind == Command::Kind::kText) return DrawText(frame, command);
    Use(m_programs[static_cast<int>(command.program)]);
    glBindTexture(GL_TEXTURE_2D, m_textures[command.texture]);
    glUniform4fv(At("ourColour"), 1, command.colour);
    if (command.kind == Command::Kind::kInstances) return DrawInstances(frame, command);
    SetPlacement(command.placement);
    if (command.kind == Command::Kind::kQuad) {
      UploadQuad(command.window);
      glDrawElements(GL_TRIANGLES, 6, GL_UNSIGNED_INT, nullptr);
    } else {
      DrawMesh(frame, command);
    }
  }

  void DrawMesh(const ZOVEngine::Frame& frame, const Command& command) const {
    std::vector<Vertex> vertices;
    for (std::size_t i = command.base_vertex; i < frame.vertices.size(); ++i) {
      const ZOVEngine::MeshVertex& v = frame.vertices[i];
      vertices.push_back({v.position.x, v.position.y, v.position.z, v.u, v.v});
    }
    UploadVertices(vertices);
    const auto first = frame.indices.begin() + command.first;
    UploadIndices({first, first + command.count});
    const bool outline = command.kind == Command::Kind::kOutline;
    glDrawElements(outline ? GL_LINES : GL_TRIANGLES, static_cast<GLsizei>(command.count),
                   GL_UNSIGNED_INT, nullptr);
  }

  void DrawText(const ZOVEngine::Frame& frame, const Command& command) {
    Use(m_programs[static_cast<int>(ZOVEngine::Program::kFont)]);
    glUniform4fv(At("textColour"), 1, command.colour);
    for (std::uint32_t i = 0; i < command.count; ++i) {
      const ZOVEngine::GlyphQuad& g = frame.glyphs[command.first + i];
      if (g.texture == 0) continue;
      glBindTexture(GL_TEXTURE_2D, m_glyphs[g.texture - 1]);
      const float right = g.x + g.width;
      const float top = g.y + g.height;
      UploadVertices({{g.x, top, g.z, 0, 0},
                      {g.x, g.y, g.z, 0, 1},
                      {right, g.y, g.z, 1, 1},
                      {g.x, top, g.z, 0, 0},
                      {right, g.y, g.z, 1, 1},
                      {right, top, g.z, 1, 0}});
      glDrawArrays(GL_TRIANGLES, 0, 6);
    }
  }

  void DrawInstances(const ZOVEngine::Frame& frame, const Command& command) const {
    UploadQuad(command.window);
    for (std::uint32_t i = 0; i < command.count; ++i) {
      const ZOVEngine::Matrix4x4& model = frame.instances[command.first + i];
      for (GLuint column = 0; column < 4; ++column) {
        glDisableVertexAttribArray(2 + column);
        glVertexAttrib4f(2 + column, model.at[0][column], model.at[1][column], model.at[2][column],
                         model.at[3][column]);
      }
      glDrawElements(GL_TRIANGLES, 6, GL_UNSIGNED_INT, nullptr);
    }
  }

  GLuint m_programs[4] = {};
  GLuint m_current = 0;
  GLuint m_vertices = 0;
  GLuint m_indices = 0;
  ZOVEngine::Matrix4x4 m_projection;
  std::map<std::uint32_t, GLuint> m_textures;
  std::vector<GLuint> m_glyphs;
};

}  // namespace carapace_test
