#pragma once

#include "objects/logiccomponent.h"

namespace ZOVEngine {

/// A clickable sprite whose action is chosen by its name.
///
/// Known to the files, the tables and the passes by its name; it has no fields and no behaviour
/// yet.
class Button final : public EmptyLogicComponent {
  RTTR_ENABLE(EmptyLogicComponent)

 public:
  using EmptyLogicComponent::EmptyLogicComponent;
};

}  // namespace ZOVEngine
