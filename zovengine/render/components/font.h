#pragma once

#include <array>
#include <string>

#include "jsonunserializer.h"
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

  void Unserialize(const Value& value) override {
    ReadValue(value, "m_text", &m_text);
    ReadVector4(value, "m_colour", &m_colour);
  }
  void Serialize(Writer& writer) override {
    WriteValue(writer, "m_text", m_text);
    WriteVector4(writer, "m_colour", m_colour);
  }

  std::string m_text = "text";
  std::array<float, 4> m_colour = {1.0f, 1.0f, 1.0f, 1.0f};  ///< r, g, b, a
};

}  // namespace ZOVEngine
