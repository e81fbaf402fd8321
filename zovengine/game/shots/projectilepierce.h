#pragma once

#include "game/shots/woundingshot.h"

namespace ZOVEngine {

/// A shot that goes through units and wounds each on its path, until something solid stops it.
///
/// It is the one kind that dies with its shooter. A unit is wounded once a contact, since only the
/// beginning of a contact counts; the lasting contact keeps the shot from being slowed.
class ProjectilePierce final : public WoundingShot {
  RTTR_ENABLE(WoundingShot)

 public:
  using WoundingShot::WoundingShot;

  void Update(float dt) override;
  void OnCollisionStay(ContactInfo* contact) override;
  WeaponLook Look() const override {
    return {"PIERCE", "Gun_Pierce", "Sheet_Fire_Pierce", "WeaponFloat_Pierce", 3.104f};
  }
  bool HasLateMuzzleEffect() const override { return true; }

 private:
  void Hit(const ContactSides& sides, ContactInfo* contact) override;
  void GoThrough(Unit* unit, ContactInfo* contact);
};

}  // namespace ZOVEngine
