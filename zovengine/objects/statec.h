#pragma once

#include <string>

#include "jsonunserializer.h"
#include "objects/gamecomponentbase.h"

namespace ZOVEngine {

/// The named state of an object; the units' animation switch.
///
/// The drawing code knows "default", "damaged", "move", "spawn", "death", "once" and "loop".
class StateC final : public GameComponentBase {
  RTTR_ENABLE(GameComponentBase)

 public:
  using GameComponentBase::GameComponentBase;

  void Unserialize(const Value& value) override { ReadValue(value, "m_state", &m_state); }
  void Serialize(Writer& writer) override { WriteValue(writer, "m_state", m_state); }

  std::string m_state;
};

}  // namespace ZOVEngine
