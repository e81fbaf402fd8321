#pragma once

#include "objects/logiccomponent.h"

namespace ZOVEngine {

/// Cover that breaks under fire.
///
/// Known to the files, the tables and the passes by its name; it has no fields and no behaviour
/// yet.
class EnvironmentDestructible final : public EmptyLogicComponent {
  RTTR_ENABLE(EmptyLogicComponent)

 public:
  using EmptyLogicComponent::EmptyLogicComponent;
};

}  // namespace ZOVEngine
