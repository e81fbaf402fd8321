#pragma once

#include <array>

#include "objects/gamecomponentbase.h"

namespace ZOVEngine {

/// The age and the rates of change of one particle; its emitter writes them at birth. Not
/// persisted.
class Particle final : public GameComponentBase {
  RTTR_ENABLE(GameComponentBase)

 public:
  using GameComponentBase::GameComponentBase;

  void Unserialize(const Value&) override {}
  void Serialize(Writer&) override {}

  float m_age = 0.0f;       ///< (unit: seconds)
  float m_lifetime = 0.0f;  ///< (unit: seconds)
  Vector3D m_size_step;     ///< change of the local scale per second
  std::array<float, 4> m_colour_step = {0.0f, 0.0f, 0.0f,
                                        0.0f};  ///< change of the colour per second
  float m_distance = 0.0f;                      ///< length of path so far (unit: world units)
  float m_max_distance = 0.0f;                  ///< (unit: world units)
};

}  // namespace ZOVEngine
