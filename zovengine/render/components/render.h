#pragma once

#include <array>
#include <string>

#include "objects/gamecomponentbase.h"

namespace ZOVEngine {

/// The look of an object: texture, colour, program and the pass that draws it.
///
/// Switching the object on or off writes `m_visible` as well. The alpha of the colour is the value
/// of all fades; r, g, b far above 1 make a white flash. The order of creation is the stacking
/// order.
class Render final : public GameComponentBase {
  RTTR_ENABLE(GameComponentBase)

 public:
  using GameComponentBase::GameComponentBase;

  ZOV_DECLARE_FIELDS()
  void OwnerSetActive(bool value) override { m_visible = value; }

  bool m_tile = false;          ///< drawn by the tile pass and by no other
  bool m_visible = true;        ///< every pass skips the object when false
  float m_zLayer = 0.0f;        ///< passes through files only
  bool m_debug_outline = true;  ///< not persisted
  std::string m_tex = "default";
  std::string m_hl_tex = "default";  ///< while the object is the selected unit
  std::array<float, 4> m_colour = {1.0f, 1.0f, 1.0f, 1.0f};  ///< r, g, b, a
  /// "default" picks the default program, "instanced" marks a particle, anything else the lit
  /// program.
  std::string m_shader = "default";
};

}  // namespace ZOVEngine
