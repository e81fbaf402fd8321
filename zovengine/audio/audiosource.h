#pragma once

#include "objects/gamecomponentbase.h"

namespace ZOVEngine {

/// The sounds that an object can make.
///
/// Known to the files and the tables by its name; it has no fields and no behaviour yet.
class AudioSource final : public GameComponentBase {
  RTTR_ENABLE(GameComponentBase)

 public:
  using GameComponentBase::GameComponentBase;

  void Unserialize(const Value&) override {}
  void Serialize(Writer&) override {}
};

}  // namespace ZOVEngine
