#pragma once

#include "game/hazards/passablehazard.h"

namespace ZOVEngine {

/// Base of the zones that give a status to the units in them.
///
/// A unit that touches the zone has the zone's status until it leaves; then it has "default", even
/// if it stands in a second zone, until that zone's next Stay.
class StatusZone : public PassableHazard {
  RTTR_ENABLE(PassableHazard)

 public:
  using PassableHazard::PassableHazard;

  void Unserialize(const Value&) override {}
  void Serialize(Writer&) override {}
  /// Switches the zone on.
  void Init() override;
  void Update(float dt) override;
  void OnCollisionEnter(ContactInfo* contact) override;
  void OnCollisionStay(ContactInfo* contact) override;
  void OnCollisionExit(ContactInfo* contact) override;

  /// What the zone makes of `Unit::m_status`.
  virtual const char* Status() const = 0;

 private:
  void Mark(const ContactInfo& contact, const char* status) const;
};

}  // namespace ZOVEngine
