#include "render/gl/glprogram.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <iostream>

#include "render/gl/glstate.h"

namespace ZOVEngine {

namespace {

constexpr GLsizei kLogLength = 512;
constexpr int kShineDoublings = 6;
constexpr float kMaterialShine = 1 << kShineDoublings;
constexpr int kLightsInClass[kLightClasses] = {0, 2, 4, 8, 0};

void PrintFailure(const char* sentence, std::string log) {
  std::replace(log.begin(), log.end(), '\n', ' ');
  log.erase(log.find_last_not_of(" \0", std::string::npos, 2) + 1);
  std::cout << sentence << log << std::endl;
}

std::string ShaderLog(GLuint shader) {
  char log[kLogLength + 1] = {};
  glGetShaderInfoLog(shader, kLogLength + 1, nullptr, log);
  return log;
}

std::string ProgramLog(GLuint program) {
  char log[kLogLength + 1] = {};
  glGetProgramInfoLog(program, kLogLength + 1, nullptr, log);
  return log;
}

GLuint CompileStage(GLenum stage, const std::string& source, const char* sentence) {
  const GLuint shader = glCreateShader(stage);
  const char* text = source.c_str();
  glShaderSource(shader, 1, &text, nullptr);
  glCompileShader(shader);
  GLint compiled = GL_FALSE;
  glGetShaderiv(shader, GL_COMPILE_STATUS, &compiled);
  if (!compiled && sentence) PrintFailure(sentence, ShaderLog(shader));
  return shader;
}

/// `source` with `prologue` behind its #version line, where extensions must stand.
std::string WithPrologue(const std::string& source, const std::string& prologue) {
  const std::size_t version = source.find("#version");
  const std::size_t end = version == std::string::npos ? version : source.find('\n', version);
  if (end == std::string::npos) return source;
  return source.substr(0, end + 1) + prologue + source.substr(end + 1);
}

bool SetIfChanged(void* last, const void* value, std::size_t bytes) {
  if (std::memcmp(last, value, bytes) == 0) return false;
  std::memcpy(last, value, bytes);
  return true;
}

Matrix4x4 TurnMatrix(float radians) {
  Matrix4x4 turn = Matrix4x4::Identity();
  turn.at[0][0] = turn.at[1][1] = std::cos(radians);
  turn.at[1][0] = std::sin(radians);
  turn.at[0][1] = -turn.at[1][0];
  return turn;
}

Matrix4x4 MoveMatrix(const Vector3D& by) {
  Matrix4x4 move = Matrix4x4::Identity();
  for (int i = 0; i < 3; ++i) move.at[i][3] = by.v[i];
  return move;
}

Matrix4x4 ScaleMatrix(const Vector3D& by) {
  Matrix4x4 scale = Matrix4x4::Identity();
  for (int i = 0; i < 3; ++i) scale.at[i][i] = by.v[i];
  return scale;
}

}  // namespace

GLuint LinkProgram(const std::string& vertex_source, const std::string& fragment_source,
                   bool report, bool* linked) {
  const GLuint vertex = CompileStage(GL_VERTEX_SHADER, vertex_source,
                                     report ? "Error: Vertex shader compilation failed." : nullptr);
  const GLuint fragment =
      CompileStage(GL_FRAGMENT_SHADER, fragment_source,
                   report ? "Error: Fragment shader compilation failed." : nullptr);
  const GLuint program = glCreateProgram();
  glAttachShader(program, vertex);
  glAttachShader(program, fragment);
  glLinkProgram(program);
  GLint status = GL_FALSE;
  glGetProgramiv(program, GL_LINK_STATUS, &status);
  *linked = status != GL_FALSE;
  if (!*linked && report) {
    PrintFailure("Error: Shader program linking failed.", ProgramLog(program));
  }
  glDeleteShader(vertex);
  glDeleteShader(fragment);
  return program;
}

GLProgram::GLProgram(GLuint name) : m_name(name) {
  static constexpr const char* kNames[kUniformCount] = {
      "view",           "ratio",     "translate", "rotate",
      "scale",          "ourColour", "viewPos",   "material.specular",
      "material.shine", "size",      "picture",   "pictures",
      "lamps"};
  for (std::size_t i = 0; i < kUniformCount; ++i) m_at[i] = glGetUniformLocation(name, kNames[i]);
  if (m_at[kColour] < 0) m_at[kColour] = glGetUniformLocation(name, "textColour");
}

void GLProgram::SetConstants() {
  constexpr float kWhite[4] = {1.0f, 1.0f, 1.0f, 1.0f};
  constexpr GLint kUnits[kSpriteUnits] = {0, 1, 2, 3, 4, 5, 6, 7};
  glUniform3f(m_at[kSpecular], kMaterialSpecular, kMaterialSpecular, kMaterialSpecular);
  glUniform1f(m_at[kShine], kMaterialShine);
  if (m_at[kSamplers] >= 0) glUniform1iv(m_at[kSamplers], kSpriteUnits, kUnits);
  SetColour(kWhite);
}

void GLProgram::SetProjection(const Matrix4x4& projection) {
  if (SetIfChanged(&m_last_projection, &projection, sizeof projection)) {
    glUniformMatrix4fv(m_at[kRatio], 1, GL_TRUE, projection.m);
  }
}

void GLProgram::SetView(const Matrix4x4& view, const Vector3D& view_pos) {
  if (SetIfChanged(&m_last_view, &view, sizeof view)) {
    glUniformMatrix4fv(m_at[kView], 1, GL_TRUE, view.m);
  }
  if (SetIfChanged(&m_last_view_pos, &view_pos, sizeof view_pos)) {
    glUniform3fv(m_at[kViewPos], 1, view_pos.v);
  }
}

void GLProgram::SetLights(const std::vector<LightRecord>& lights) {
  if (m_at[kSize] < 0) return;
  for (std::size_t i = 0; i < lights.size(); ++i) {
    const LightLocations& at = LocateLight(i);
    glUniform3fv(at[0], 1, lights[i].position.v);
    glUniform3fv(at[1], 1, lights[i].ambient.v);
    glUniform3fv(at[2], 1, lights[i].diffuse.v);
    glUniform3fv(at[3], 1, lights[i].specular.v);
    glUniform1f(at[4], lights[i].ambientStr);
    glUniform1f(at[5], lights[i].diffuseStr);
    glUniform1f(at[6], lights[i].specularStr);
  }
  const int size = static_cast<int>(lights.size());
  if (SetIfChanged(&m_last_size, &size, sizeof size)) glUniform1i(m_at[kSize], size);
}

void GLProgram::SetPackedLights(int size, const std::vector<float>& packed) {
  if (m_at[kSize] >= 0 && SetIfChanged(&m_last_size, &size, sizeof size))
    glUniform1i(m_at[kSize], size);
  if (m_at[kPackedLights] >= 0 && size > 0)
    glUniform4fv(m_at[kPackedLights], 3 * size, packed.data());
}

void GLProgram::SetPlacement(const Placement& placement) {
  glUniformMatrix4fv(m_at[kTranslate], 1, GL_TRUE, MoveMatrix(placement.translate).m);
  glUniformMatrix4fv(m_at[kRotate], 1, GL_TRUE, TurnMatrix(placement.rotate_radians).m);
  glUniformMatrix4fv(m_at[kScale], 1, GL_TRUE, ScaleMatrix(placement.scale).m);
}

void GLProgram::SetColour(const float colour[4]) {
  if (SetIfChanged(m_last_colour.data(), colour, sizeof m_last_colour)) {
    glUniform4fv(m_at[kColour], 1, colour);
  }
}

void GLProgram::SetUnit(int unit) {
  if (m_at[kSampler] >= 0 && SetIfChanged(&m_last_unit, &unit, sizeof unit))
    glUniform1i(m_at[kSampler], unit);
}

float GLProgram::LightReach() const {
  const GLint at = glGetUniformLocation(m_name, "lightReach");
  float reach = 0.0f;
  if (at >= 0) glGetUniformfv(m_name, at, &reach);
  return reach;
}

const GLProgram::LightLocations& GLProgram::LocateLight(std::size_t light) {
  static constexpr const char* kMembers[7] = {"].position",   "].ambient",    "].diffuse",
                                              "].specular",   "].ambientStr", "].diffuseStr",
                                              "].specularStr"};
  while (m_lights.size() <= light) {
    const std::string entry = "lights[" + std::to_string(m_lights.size());
    LightLocations& at = m_lights.emplace_back();
    for (std::size_t i = 0; i < at.size(); ++i) {
      at[i] = glGetUniformLocation(m_name, (entry + kMembers[i]).c_str());
    }
  }
  return m_lights[light];
}

ProgramSet::ProgramSet(const std::string& vertex_source, const std::string& fragment_source,
                       bool by_number, bool stream)
    : m_vertex_source(vertex_source), m_fragment_source(fragment_source), m_by_number(by_number) {
  bool linked = false;
  m_name = LinkProgram(vertex_source, fragment_source, true, &linked);
  if (!linked) return;
  m_plain = std::make_unique<GLProgram>(m_name);
  m_streams = stream && vertex_source.find("STREAMED") != std::string::npos &&
              fragment_source.find("STREAMED") != std::string::npos;
}

void ProgramSet::Try(LightClass lights, bool one_texture, Form* form) const {
  form->tried = true;
  const std::string prologue = Prologue(lights, one_texture);
  bool linked = false;
  const GLuint name = LinkProgram(WithPrologue(m_vertex_source, prologue),
                                  WithPrologue(m_fragment_source, prologue), false, &linked);
  if (linked) {
    form->program = std::make_unique<GLProgram>(name);
  } else {
    glDeleteProgram(name);
  }
}

std::string ProgramSet::Prologue(LightClass lights, bool one_texture) const {
  std::string text;
  if (m_by_number) text += "#extension GL_ARB_gpu_shader5 : require\n#define INDEXED\n";
  text +=
      "#define STREAMED\n#define SLOTS " + std::to_string(one_texture ? 1 : kSpriteUnits) + "\n";
  text += "#define NEAR " + std::to_string(kLightsInClass[static_cast<int>(lights)]) + "\n";
  text += "#define SHINE_DOUBLINGS " + std::to_string(kShineDoublings) + "\n";
  if (lights == LightClass::kEvery) text += "#define EVERY_LAMP\n";
  return text + "#line 2\n";
}

}  // namespace ZOVEngine
