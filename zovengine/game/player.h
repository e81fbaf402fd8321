#pragma once

#include "objects/logiccomponent.h"

namespace ZOVEngine {

/// A unit that the user drives.
///
/// Known to the files, the tables and the passes by its name; it has no fields and no behaviour
/// yet.
class Player final : public EmptyLogicComponent {
  RTTR_ENABLE(EmptyLogicComponent)

 public:
  using EmptyLogicComponent::EmptyLogicComponent;
};

}  // namespace ZOVEngine
