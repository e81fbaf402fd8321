#pragma once

#include <string>

#include "objects/gamecomponentbase.h"

namespace ZOVEngine {

/// The named state of an object; the units' animation switch.
///
/// The drawing code knows "default", "damaged", "move", "spawn", "death", "once" and "loop".
class StateC final : public GameComponentBase {
  RTTR_ENABLE(GameComponentBase)

 public:
  using GameComponentBase::GameComponentBase;

  template <class Visitor>
  static void Fields(Visitor& visit);
  void Unserialize(const Value& value) override;
  void Serialize(Writer& writer) override;

  std::string m_state;
};

}  // namespace ZOVEngine
