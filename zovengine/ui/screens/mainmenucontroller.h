#pragma once

#include "objects/logiccomponent.h"

namespace ZOVEngine {

/// Holds the interface state of the main menu.
///
/// It can be read from files and has its turn in a step, but no fields and no behaviour yet.
class MainMenuController final : public EmptyLogicComponent {
  RTTR_ENABLE(EmptyLogicComponent)

 public:
  using EmptyLogicComponent::EmptyLogicComponent;
};

}  // namespace ZOVEngine
