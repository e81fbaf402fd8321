#pragma once

#include <memory>

#include "game/hazards/environmentdestructible.h"
#include "game/shots/areashot.h"

namespace ZOVEngine {

/// A shot that bursts at whatever it hits: units, destructible things and loose bodies in reach are
/// wounded and blown away, its own shooter too.
///
/// A boss never hits itself with the shell, but the blast spares nobody.
class ProjectileExplosion final : public AreaShot {
  RTTR_ENABLE(AreaShot)

 public:
  using AreaShot::AreaShot;

  ZOV_DECLARE_FIELDS()
  template <class Visitor>
  static void Inspected(Visitor& visit);

  void Update(float dt) override;
  void OnCollisionStay(ContactInfo* contact) override;
  WeaponLook Look() const override {
    return {"EXPLOSION", "Gun_Explode", "Sheet_Fire_Explosion", "WeaponFloat_Explosion", 3.813f};
  }

  float m_knockback = 10.0f;  ///< the blast is this times 100, at all distances
  std::shared_ptr<ComponentManager<EnvironmentDestructible>> m_destructibles;

 private:
  void FetchTables() override;
  bool PassesThrough(const ContactSides& sides) const override;
  void Hit(const ContactSides& sides, ContactInfo* contact) override;
  void PlaceTrail(const Vector3D& place);
  void Crack(EnvironmentDestructible* destructible) const;
  void Blast(RigidBody* body) const;
};

}  // namespace ZOVEngine
