#pragma once

#include "objects/logiccomponent.h"

namespace ZOVEngine {

/// Holds the interface state of the main menu.
///
/// Known to the files, the tables and the passes by its name; it has no fields and no behaviour
/// yet.
class MainMenuController final : public EmptyLogicComponent {
  RTTR_ENABLE(EmptyLogicComponent)

 public:
  using EmptyLogicComponent::EmptyLogicComponent;
};

}  // namespace ZOVEngine
