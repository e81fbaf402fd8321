#pragma once

#include "core/base/vector3d.h"
#include "objects/fieldbounds.h"
#include "objects/logiccomponent.h"

namespace ZOVEngine {

class Unit;
struct ContactSides;

/// What tells a weapon from others: its name and the texture of its gun in the interface, the sheet
/// of its muzzle flash, and the label that rises beside a unit that shows its weapon, with its size
/// in the unit's scale. A gun has two textures, with "_Green" and "_Red" behind its name; a flash
/// has as many frames as the "Sheet_Unit_Fire_" that it stands in for.
struct WeaponLook {
  const char* name;
  const char* gun;
  const char* flash;
  const char* label;
  float label_width;
  float label_height = 1.104f;
};

/// What all kinds of shot share: sleep, launch, range, and what they fly through.
///
/// A shot is a child of its unit, asleep (switched off) until it is fired. It flies by the physics
/// alone and ends by going back to sleep: at its unit when its range is out, where it is after a
/// hit. Nothing tells the turn controller, which waits until no body moves. An object may hold
/// several shots: all of them are fired, in the order of their tables.
class Shot : public QuietComponent {
  RTTR_ENABLE(QuietComponent)

 public:
  using QuietComponent::QuietComponent;

  ZOV_DECLARE_FIELDS()
  /// Measures the Light and puts the shot to sleep.
  void Init() override;
  /// Passes through what the kind flies through; anything else is hit.
  void OnCollisionEnter(ContactInfo* contact) override;

  /// Wakes the shot at `position` (unit: world units) without any motion and sends it off along
  /// `direction`, whose length counts: five steps of force, which bring a body of mass 1 without
  /// drag to about 0.83 of the speed.
  virtual void Fire(const Vector3D& position, const Vector3D& direction);

  virtual WeaponLook Look() const = 0;
  /// Whether a second muzzle effect follows the shot after a while.
  virtual bool HasLateMuzzleEffect() const { return false; }
  /// What a destructible thing loses when the shot touches it.
  virtual int Wear() const { return 0; }

  float m_max_range = 2000.0f;  ///< ends the flight (unit: world units)
  float m_curr_range = 0.0f;    ///< flown so far (unit: world units)
  float m_speed = 1000.0f;      ///< of the launch (unit: world units per second)
  float m_base_light = 0.0f;    ///< strength of the Light at rest, for the kinds that change it

 protected:
  /// Whether the contact is to be ignored: for every kind one with a hazard that lets things pass,
  /// or of something switched off.
  virtual bool PassesThrough(const ContactSides& sides) const;
  /// Has the contact ignored, and returns true, if the shot passes through. A kind that answers
  /// OnCollisionStay with it is not pushed aside as long as it passes through something.
  bool IgnoreIfPassable(const ContactSides& sides, ContactInfo* contact) const;
  /// What a contact does that the shot does not pass through.
  virtual void Hit(const ContactSides& sides, ContactInfo* contact) = 0;

  /// Adds a step to the range: true with range left; otherwise the shot has ended.
  bool FlyOn(float dt);
  /// FlyOn for the kinds that also end with the level.
  void FlyUntilLevelEnd(float dt);
  /// Ends the flight and puts the shot to sleep where its unit is.
  void EndShot();
  /// Ends the flight at a unit that takes `damage`.
  void EndAtUnit(Unit* unit, int damage);
  /// Ends the flight of the kinds that go off at whatever they hit.
  void EndWithBang();

  /// The direction of flight as a rotation, 0 being upwards (unit: degrees).
  float FlightAngle() const;
  /// Turns the shot into its flight and returns that angle.
  float PointAhead();
  /// Turns the shot by one step of the kinds that spin.
  void Spin();

  /// The unit of a contact of this kind of shot, or null.
  Unit* HitUnit(const ContactSides& sides) const;
  /// Whether the shot's unit is a boss that takes part in the contact.
  bool TouchesOwnBoss(const ContactSides& sides) const;

 private:
  float Speed() const;
  bool IsLevelOver() const;
};

template <class Visitor>
void Shot::Fields(Visitor& visit) {
  visit("m_max_range", &Shot::m_max_range, "Max Range", FieldBounds{0.0, 5000.0});
  visit("m_curr_range", &Shot::m_curr_range);
  visit("m_speed", &Shot::m_speed, "Speed", FieldBounds{0.0, 1.0e5});
}

}  // namespace ZOVEngine
