#pragma once

#include "game/shots/shot.h"
#include "objects/fieldbounds.h"

namespace ZOVEngine {

/// A shot with a damage of its own. The files have it before the speed, the inspector behind it.
class WoundingShot : public Shot {
  RTTR_ENABLE(Shot)

 public:
  using Shot::Shot;

  ZOV_DECLARE_FIELDS()
  template <class Visitor>
  static void Inspected(Visitor& visit);

  int Wear() const override { return m_damage; }

  int m_damage = 1;
};

template <class Visitor>
void WoundingShot::Fields(Visitor& visit) {
  visit("m_max_range", &WoundingShot::m_max_range);
  visit("m_curr_range", &WoundingShot::m_curr_range);
  visit("m_damage", &WoundingShot::m_damage);
  visit("m_speed", &WoundingShot::m_speed);
}

template <class Visitor>
void WoundingShot::Inspected(Visitor& visit) {
  Shot::Fields(visit);
  visit("m_damage", &WoundingShot::m_damage, "Damage", FieldBounds{0.0, 99.0});
}

}  // namespace ZOVEngine
