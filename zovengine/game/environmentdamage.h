#pragma once

#include "objects/logiccomponent.h"

namespace ZOVEngine {

/// A hazard that hurts what stands on it. Drawn under units by the hazard pass.
///
/// Known to the files, the tables and the passes by its name; it has no fields and no behaviour
/// yet.
class EnvironmentDamage final : public EmptyLogicComponent {
  RTTR_ENABLE(EmptyLogicComponent)

 public:
  using EmptyLogicComponent::EmptyLogicComponent;
};

}  // namespace ZOVEngine
