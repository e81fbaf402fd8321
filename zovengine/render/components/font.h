#pragma once

#include <array>
#include <string>

#include "objects/gamecomponentbase.h"

namespace ZOVEngine {

/// A line of text on an object, drawn with the game's one font.
///
/// The object's world x scale is the size (1 is 48 pixels a line); the text starts at the parent's
/// world position plus the object's own local position, so text on a root object lands at twice its
/// coordinates. There are no line breaks.
class Font final : public GameComponentBase {
  RTTR_ENABLE(GameComponentBase)

 public:
  using GameComponentBase::GameComponentBase;

  ZOV_DECLARE_FIELDS()

  std::string m_text = "text";
  std::array<float, 4> m_colour = {1.0f, 1.0f, 1.0f, 1.0f};  ///< r, g, b, a
};

}  // namespace ZOVEngine
