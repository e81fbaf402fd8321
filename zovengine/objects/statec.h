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

  ZOV_DECLARE_FIELDS()

  std::string m_state;
};

}  // namespace ZOVEngine
