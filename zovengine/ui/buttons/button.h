#pragma once

#include "objects/logiccomponent.h"

namespace ZOVEngine {

/// A clickable sprite whose action is chosen by its name.
///
/// It can be read from files and has its turn in a step, but no fields and no behaviour yet.
class Button final : public EmptyLogicComponent {
  RTTR_ENABLE(EmptyLogicComponent)

 public:
  using EmptyLogicComponent::EmptyLogicComponent;
};

}  // namespace ZOVEngine
