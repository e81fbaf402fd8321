#pragma once

#include "objects/logiccomponent.h"

namespace ZOVEngine {

/// A shot that goes through what it hits.
///
/// Known to the files, the tables and the passes by its name; it has no fields and no behaviour
/// yet.
class ProjectilePierce final : public EmptyLogicComponent {
  RTTR_ENABLE(EmptyLogicComponent)

 public:
  using EmptyLogicComponent::EmptyLogicComponent;
};

}  // namespace ZOVEngine
