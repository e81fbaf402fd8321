#pragma once

#include "objects/logiccomponent.h"

namespace ZOVEngine {

/// Emits particles from a circle around its object.
///
/// Known to the files, the tables and the passes by its name; it has no fields and no behaviour
/// yet.
class ParticleSystemC final : public EmptyLogicComponent {
  RTTR_ENABLE(EmptyLogicComponent)

 public:
  using EmptyLogicComponent::EmptyLogicComponent;
};

}  // namespace ZOVEngine
