#pragma once

#include <cstdint>
#include <vector>

#include "core/base/vector3d.h"
#include "objects/gamecomponentbase.h"

namespace ZOVEngine {

/// A vertex of a model. The colour passes through files only.
struct Vertex {
  Vector3D position;
  std::uint8_t r = 255, g = 255, b = 255, a = 255;
  float u = 0.0f;
  float v = 0.0f;
};

/// The geometry of a sprite: a triangle list in the object's own space.
///
/// A new model is the unit square at z = 1, from its upper left corner clockwise. A model with
/// exactly one vertex stands for the renderer's shared quad.
class iModel final : public GameComponentBase {
  RTTR_ENABLE(GameComponentBase)

 public:
  explicit iModel(GameObj* owner);

  void Unserialize(const Value& value) override;
  void Serialize(Writer& writer) override;

  std::vector<Vertex> m_vertices;
  std::vector<std::uint32_t> m_index_buffer;
};

}  // namespace ZOVEngine
