#pragma once

#include <memory>

#include "game/shots/woundingshot.h"
#include "objects/componentmanager.h"
#include "physics/components/rigidbody.h"

namespace ZOVEngine {

/// A shot that goes off at whatever it hits first and acts on all bodies in reach.
class AreaShot : public WoundingShot {
  RTTR_ENABLE(WoundingShot)

 public:
  using WoundingShot::WoundingShot;

  ZOV_DECLARE_FIELDS()
  template <class Visitor>
  static void Inspected(Visitor& visit);

  void Init() override;
  /// None: what the damage does comes with the effect on all in reach.
  int Wear() const override { return 0; }

  float m_aoe = 200.0f;  ///< reach (unit: world units)
  std::shared_ptr<ComponentManager<RigidBody>> m_bodies;

 protected:
  /// Fetches the tables that the shot acts on.
  virtual void FetchTables();
  /// Fetches them for a contact, which in a pause reaches a shot that was never stepped.
  void RequireTables();
  /// Whether an object is in reach; one at exactly that distance is.
  bool Reaches(GameObj* object) const;
};

template <class Visitor>
void AreaShot::Fields(Visitor& visit) {
  WoundingShot::Fields(visit);
  visit("m_aoe", &AreaShot::m_aoe);
}

template <class Visitor>
void AreaShot::Inspected(Visitor& visit) {
  WoundingShot::Inspected(visit);
  visit("m_aoe", &AreaShot::m_aoe, "");
}

}  // namespace ZOVEngine
