#include "render/components/imodel.h"

#include "jsonunserializer.h"

namespace ZOVEngine {
namespace {

constexpr unsigned kNumbersPerRow = 9;  // x, y, z, u, v, r, g, b, a

Vertex Corner(float x, float y, float u, float v) {
  Vertex vertex;
  vertex.position = Vector3D(x, y, 1.0f);
  vertex.u = u;
  vertex.v = v;
  return vertex;
}

Vertex ToVertex(const Value& row) {
  if (!row.IsArray() || row.Size() != kNumbersPerRow) FailReading("expected rows of 9 numbers");
  Vertex vertex;
  vertex.position = Vector3D(ToFloat(row[0]), ToFloat(row[1]), ToFloat(row[2]));
  vertex.u = ToFloat(row[3]);
  vertex.v = ToFloat(row[4]);
  vertex.r = static_cast<std::uint8_t>(ToInt(row[5]));
  vertex.g = static_cast<std::uint8_t>(ToInt(row[6]));
  vertex.b = static_cast<std::uint8_t>(ToInt(row[7]));
  vertex.a = static_cast<std::uint8_t>(ToInt(row[8]));
  return vertex;
}

void WriteRow(Writer& writer, const Vertex& vertex) {
  writer.json->StartArray();
  for (const float component : vertex.position.v) WriteFloat(writer, component);
  WriteFloat(writer, vertex.u);
  WriteFloat(writer, vertex.v);
  for (const std::uint8_t channel : {vertex.r, vertex.g, vertex.b, vertex.a}) {
    writer.json->Uint(channel);
  }
  writer.json->EndArray();
}

}  // namespace

iModel::iModel(GameObj* owner)
    : GameComponentBase(owner),
      m_vertices{Corner(-0.5f, 0.5f, 0.0f, 0.0f), Corner(0.5f, 0.5f, 1.0f, 0.0f),
                 Corner(0.5f, -0.5f, 1.0f, 1.0f), Corner(-0.5f, -0.5f, 0.0f, 1.0f)},
      m_index_buffer{0, 1, 3, 1, 2, 3} {}

// Written by hand: a vertex is a row of numbers, not a list of keys.
void iModel::Unserialize(const Value& value) {
  if (const Value* rows = FindOrComplain(value, "m_vertices")) {
    if (!rows->IsArray()) FailReading("expected an array of rows");
    m_vertices.clear();
    for (const Value& row : rows->GetArray()) m_vertices.push_back(ToVertex(row));
  }
  if (const Value* indices = FindOrComplain(value, "m_index_buffer")) {
    if (!indices->IsArray()) FailReading("expected an array of integers");
    m_index_buffer.clear();
    for (const Value& index : indices->GetArray()) {
      m_index_buffer.push_back(static_cast<std::uint32_t>(ToInt(index)));
    }
  }
}

void iModel::Serialize(Writer& writer) {
  WriteKey(writer, "m_vertices");
  writer.json->StartArray();
  for (const Vertex& vertex : m_vertices) WriteRow(writer, vertex);
  writer.json->EndArray();
  WriteKey(writer, "m_index_buffer");
  writer.json->StartArray();
  for (const std::uint32_t index : m_index_buffer) writer.json->Uint(index);
  writer.json->EndArray();
}

}  // namespace ZOVEngine
