#pragma once

#include "objects/logiccomponent.h"

namespace ZOVEngine {

/// A piece of the interface that shows itself by the interface state.
///
/// Known to the files, the tables and the passes by its name; it has no fields and no behaviour
/// yet.
class UIElement final : public EmptyLogicComponent {
  RTTR_ENABLE(EmptyLogicComponent)

 public:
  using EmptyLogicComponent::EmptyLogicComponent;
};

}  // namespace ZOVEngine
