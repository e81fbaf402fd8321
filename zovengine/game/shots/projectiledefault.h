#pragma once

#include "game/shots/woundingshot.h"

namespace ZOVEngine {

/// The basic shot: wounds the first unit that it hits.
///
/// Walls do not end it: it rebounds by the physics until its range is out or the level is over. It
/// passes through hazards, through other basic and exploding shots, and near the muzzle through the
/// boss that fired it.
class ProjectileDefault final : public WoundingShot {
  RTTR_ENABLE(WoundingShot)

 public:
  using WoundingShot::WoundingShot;

  void Update(float dt) override;
  void OnCollisionStay(ContactInfo* contact) override;
  WeaponLook Look() const override {
    return {"BASIC", "Gun_Basic", "Sheet_Fire_Basic", "WeaponFloat_Basic", 2.32f};
  }

 private:
  bool PassesThrough(const ContactSides& sides) const override;
  void Hit(const ContactSides& sides, ContactInfo* contact) override;
};

}  // namespace ZOVEngine
