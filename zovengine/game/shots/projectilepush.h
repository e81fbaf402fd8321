#pragma once

#include "game/shots/woundingshot.h"

namespace ZOVEngine {

/// A shot that shoves: it ends at whatever it hits first and wounds it if it is a unit.
///
/// The shove is the impulse of the contact itself, by the shot's mass and speed.
class ProjectilePush final : public WoundingShot {
  RTTR_ENABLE(WoundingShot)

 public:
  using WoundingShot::WoundingShot;

  void Update(float dt) override;
  WeaponLook Look() const override {
    return {"PUSH", "Gun_Push", "Sheet_Fire_Push", "WeaponFloat_Push", 2.32f};
  }

 private:
  void Hit(const ContactSides& sides, ContactInfo* contact) override;
};

}  // namespace ZOVEngine
