#pragma once

#include "objects/logiccomponent.h"

namespace ZOVEngine {

/// Searches a path over the tile grid for its object.
///
/// Known to the files, the tables and the passes by its name; it has no fields and no behaviour
/// yet.
class Pathfinding final : public EmptyLogicComponent {
  RTTR_ENABLE(EmptyLogicComponent)

 public:
  using EmptyLogicComponent::EmptyLogicComponent;
};

}  // namespace ZOVEngine
