#pragma once

#include "game/hazards/statuszone.h"

namespace ZOVEngine {

/// A zone that wounds units that stand in it at each of their turns.
class EnvironmentDamage final : public StatusZone {
  RTTR_ENABLE(StatusZone)

 public:
  using StatusZone::StatusZone;

  /// Switches the zone and its animation on.
  void Init() override;
  const char* Status() const override { return "damaged"; }
};

}  // namespace ZOVEngine
