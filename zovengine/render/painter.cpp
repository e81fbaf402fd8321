#include "render/painter.h"

#include <algorithm>

#include "render/components/imodel.h"

namespace ZOVEngine {
namespace {

constexpr std::uint32_t kQuadIndices[kQuadIndexCount] = {0, 1, 3, 1, 2, 3};
constexpr std::uint32_t kOutlineIndices[] = {0, 1, 1, 2, 2, 3, 3, 0};
constexpr std::size_t kQuadVertexCount = 4;

MeshVertex Corner(float x, float y, float u, float v) {
  return {Vector3D(x, y, 0.0f), u, v};
}

std::uint32_t Count32(std::size_t size) {
  return static_cast<std::uint32_t>(size);
}

}  // namespace

bool IsSharedQuad(const iModel& model) {
  return model.m_vertices.size() == 1;
}

void Painter::Begin(TextureMap* textures) {
  m_frame.Clear();
  m_textures = textures;
  m_has_last_lookup = false;
}

void Painter::BindTexture(const std::string& key) {
  if (!m_has_last_lookup || m_last_lookup->first != key) {
    m_last_lookup = m_textures->try_emplace(key, 0u).first;
    m_has_last_lookup = true;
  }
  m_bound = m_last_lookup->second;
}

void Painter::SetQuad(float u_left, float u_right) {
  m_quad.u_left = u_left;
  m_quad.u_right = u_right;
}

void Painter::DrawQuad(Program program, const Placement& placement, const Colour& colour) {
  Append(DrawCommand::Kind::kQuad, program, placement, colour).window = m_uploaded;
}

void Painter::DrawQuadIndices(Program program, const Placement& placement, const Colour& colour,
                              std::size_t index_count) {
  if (index_count >= kQuadIndexCount) {
    DrawQuad(program, placement, colour);
    return;
  }
  if (index_count < 3) return;
  DrawCommand& command = Append(DrawCommand::Kind::kMesh, program, placement, colour);
  command.first = Count32(m_frame.indices.size());
  command.count = 3;
  command.base_vertex = Count32(m_frame.vertices.size());
  m_frame.indices.insert(m_frame.indices.end(), kQuadIndices, kQuadIndices + 3);
  AppendQuadVertices();
}

void Painter::DrawModel(Program program, const Placement& placement, const Colour& colour,
                        const iModel& model) {
  const std::vector<std::uint32_t>& in = model.m_index_buffer;
  const std::size_t limit = model.m_vertices.size();
  const std::size_t first = m_frame.indices.size();
  for (std::size_t i = 0; i + 3 <= in.size(); i += 3) {
    if (std::max({in[i], in[i + 1], in[i + 2]}) >= limit) continue;
    m_frame.indices.insert(m_frame.indices.end(), {in[i], in[i + 1], in[i + 2]});
  }
  if (m_frame.indices.size() == first) return;
  DrawCommand& command = Append(DrawCommand::Kind::kMesh, program, placement, colour);
  command.first = Count32(first);
  command.count = Count32(m_frame.indices.size() - first);
  command.base_vertex = Count32(m_frame.vertices.size());
  AppendModelVertices(model);
}

void Painter::DrawQuadOutline(const Placement& placement, const Colour& colour) {
  DrawCommand& command = Append(DrawCommand::Kind::kOutline, Program::kDefault, placement, colour);
  AppendOutline(&command, kQuadVertexCount);
  AppendQuadVertices();
}

void Painter::DrawModelOutline(const Placement& placement, const Colour& colour,
                               const iModel& model) {
  if (model.m_vertices.size() < 2) return;
  DrawCommand& command = Append(DrawCommand::Kind::kOutline, Program::kDefault, placement, colour);
  AppendOutline(&command, model.m_vertices.size());
  AppendModelVertices(model);
}

void Painter::DrawInstances(const Colour& colour) {
  DrawCommand& command =
      Append(DrawCommand::Kind::kInstances, Program::kInstance, Placement(), colour);
  command.window = m_uploaded;
  command.count = Count32(m_frame.instances.size());
}

void Painter::DrawText(std::uint32_t first, const Colour& colour) {
  const std::uint32_t count = Count32(m_frame.glyphs.size()) - first;
  if (count == 0) return;
  DrawCommand& command = Append(DrawCommand::Kind::kText, Program::kFont, Placement(), colour);
  command.texture = 0;
  command.first = first;
  command.count = count;
}

DrawCommand& Painter::Append(DrawCommand::Kind kind, Program program, const Placement& placement,
                             const Colour& colour) {
  DrawCommand& command = m_frame.commands.emplace_back();
  command.kind = kind;
  command.program = program;
  command.texture = m_bound;
  command.placement = placement;
  std::copy(colour.begin(), colour.end(), command.colour);
  return command;
}

void Painter::AppendQuadVertices() {
  const TextureWindow& w = m_uploaded;
  m_frame.vertices.insert(
      m_frame.vertices.end(),
      {Corner(0.5f, 0.5f, w.u_right, w.v_top), Corner(0.5f, -0.5f, w.u_right, w.v_bottom),
       Corner(-0.5f, -0.5f, w.u_left, w.v_bottom), Corner(-0.5f, 0.5f, w.u_left, w.v_top)});
}

void Painter::AppendModelVertices(const iModel& model) {
  for (const Vertex& vertex : model.m_vertices) {
    m_frame.vertices.push_back({vertex.position, vertex.u, vertex.v});
  }
}

void Painter::AppendOutline(DrawCommand* command, std::size_t vertex_count) {
  command->first = Count32(m_frame.indices.size());
  command->base_vertex = Count32(m_frame.vertices.size());
  for (std::size_t i = 0; i < std::size(kOutlineIndices); i += 2) {
    const std::uint32_t from = kOutlineIndices[i];
    const std::uint32_t to = kOutlineIndices[i + 1];
    if (std::max(from, to) >= vertex_count) continue;
    m_frame.indices.insert(m_frame.indices.end(), {from, to});
  }
  command->count = Count32(m_frame.indices.size()) - command->first;
}

}  // namespace ZOVEngine
