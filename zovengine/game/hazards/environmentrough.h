#pragma once

#include "game/hazards/statuszone.h"

namespace ZOVEngine {

/// A zone that slows units that move in it.
class EnvironmentRough final : public StatusZone {
  RTTR_ENABLE(StatusZone)

 public:
  using StatusZone::StatusZone;

  const char* Status() const override { return "slowed"; }
};

}  // namespace ZOVEngine
