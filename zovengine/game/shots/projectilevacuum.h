#pragma once

#include "game/shots/areashot.h"

namespace ZOVEngine {

/// A shot that draws every body in reach towards the place where it hits something, its shooter
/// too. It wounds nobody: `m_damage` is read and written and has no other use.
class ProjectileVacuum final : public AreaShot {
  RTTR_ENABLE(AreaShot)

 public:
  using AreaShot::AreaShot;

  ZOV_DECLARE_FIELDS()
  template <class Visitor>
  static void Inspected(Visitor& visit);

  void Update(float dt) override;
  WeaponLook Look() const override {
    return {"VACUUM", "Gun_Vacuum", "Sheet_Fire_Vacuum", "WeaponFloat_Vacuum", 3.104f};
  }

  float m_suction_force = 10.0f;  ///< the pull is this times 100, at all distances

 private:
  void Hit(const ContactSides& sides, ContactInfo* contact) override;
  void Pull(RigidBody* body) const;
};

}  // namespace ZOVEngine
