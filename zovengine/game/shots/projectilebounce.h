#pragma once

#include "game/shots/shot.h"

namespace ZOVEngine {

/// A shot that grows with every rebound: a direct hit does the least damage, each wall adds one up
/// to the most. It shines the brighter the more dangerous it is, and ends at the first unit that it
/// hits.
class ProjectileBounce final : public Shot {
  RTTR_ENABLE(Shot)

 public:
  explicit ProjectileBounce(GameObj* owner);

  ZOV_DECLARE_FIELDS()
  void Update(float dt) override;
  void Fire(const Vector3D& position, const Vector3D& direction) override;
  WeaponLook Look() const override {
    return {"BOUNCE", "Gun_Bounce", "Sheet_Fire_Bounce", "WeaponFloat_Bounce", 3.104f};
  }

  int m_min_damage = 0;   ///< of a hit without a rebound
  int m_max_damage = 3;   ///< of a hit after many
  int m_curr_damage = 0;  ///< of the next hit

 private:
  void Hit(const ContactSides& sides, ContactInfo* contact) override;
};

}  // namespace ZOVEngine
