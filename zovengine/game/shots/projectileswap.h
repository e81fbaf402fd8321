#pragma once

#include "game/shots/shot.h"

namespace ZOVEngine {

/// A shot that has the unit whose turn it is trade places with what it hits: a unit, or anything
/// else that can be moved. It passes into its target without a push; at walls it rebounds until its
/// range is out.
class ProjectileSwap final : public Shot {
  RTTR_ENABLE(Shot)

 public:
  using Shot::Shot;

  void Update(float dt) override;
  WeaponLook Look() const override {
    return {"SWAP", "Gun_Swap", "Sheet_Fire_Swap", "WeaponFloat_Swap", 2.32f};
  }

 private:
  void Hit(const ContactSides& sides, ContactInfo* contact) override;
};

}  // namespace ZOVEngine
