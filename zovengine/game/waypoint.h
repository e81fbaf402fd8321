#pragma once

#include "objects/logiccomponent.h"

namespace ZOVEngine {

/// A stop on a patrol path.
///
/// Known to the files, the tables and the passes by its name; it has no fields and no behaviour
/// yet.
class Waypoint final : public EmptyLogicComponent {
  RTTR_ENABLE(EmptyLogicComponent)

 public:
  using EmptyLogicComponent::EmptyLogicComponent;
};

}  // namespace ZOVEngine
