#pragma once

#include "core/base/vector3d.h"
#include "objects/gamecomponentbase.h"

namespace ZOVEngine {

/// A point light that follows its object. Colours are r, g, b; the strengths scale them.
///
/// A light on an object whose Render is invisible is off; one without a Render stays on. A new
/// light is black and so without effect.
class Light final : public GameComponentBase {
  RTTR_ENABLE(GameComponentBase)

 public:
  using GameComponentBase::GameComponentBase;

  ZOV_DECLARE_FIELDS()

  Vector3D m_pos;  ///< offset from the object's world position (unit: world units)
  Vector3D m_diffuse;
  Vector3D m_specular;
  Vector3D m_ambient;
  float m_diffuseStr = 0.0f;
  float m_specularStr = 0.0f;
  float m_ambientStr = 0.0f;
};

}  // namespace ZOVEngine
