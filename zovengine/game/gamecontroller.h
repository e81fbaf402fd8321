#pragma once

#include "objects/logiccomponent.h"

namespace ZOVEngine {

/// The turn controller in the root object of a level.
///
/// Known to the files, the tables and the passes by its name; it has no fields and no behaviour
/// yet.
class GameController final : public EmptyLogicComponent {
  RTTR_ENABLE(EmptyLogicComponent)

 public:
  using EmptyLogicComponent::EmptyLogicComponent;
};

}  // namespace ZOVEngine
