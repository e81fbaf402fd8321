#pragma once

#include <string>

#include "core/contactinfo.h"
#include "game/objectquery.h"
#include "game/units/unit.h"
#include "objects/gameobjfactory.h"
#include "physics/components/colliderholder.h"
#include "physics/components/rigidbody.h"

namespace ZOVEngine {

/// The two objects of a contact.
struct ContactSides {
  explicit ContactSides(const ContactInfo& contact)
      : a(g_game_obj_factory->m_objects.at(contact.objectA)),
        b(g_game_obj_factory->m_objects.at(contact.objectB)) {}

  bool BothActive() const { return a->active && b->active; }
  template <class T>
  bool EitherHas() const {
    return a->HasComponent<T>() || b->HasComponent<T>();
  }
  template <class T>
  bool BothHave() const {
    return a->HasComponent<T>() && b->HasComponent<T>();
  }
  /// The side for which `is_wanted` holds while the other side has a T, A first; null if none.
  template <class T, class Test>
  GameObj* PartnerOf(Test is_wanted) const {
    if (b->HasComponent<T>() && is_wanted(a)) return a;
    if (a->HasComponent<T>() && is_wanted(b)) return b;
    return nullptr;
  }

  GameObj* a;
  GameObj* b;
};

/// True for what a hole swallows and a swap carries: units, and things that have a body and a
/// shape.
inline bool IsCarriable(const GameObj& object) {
  return IsUnit(object) ||
         (object.HasComponent<RigidBody>() && object.HasComponent<ColliderHolder>());
}

/// Sets the status of a unit that touches an active zone of type Zone.
template <class Zone>
void MarkUnit(const ContactInfo& contact, const char* status) {
  const ContactSides sides(contact);
  if (!sides.BothActive()) return;
  GameObj* unit = sides.PartnerOf<Zone>([](const GameObj* object) { return IsUnit(*object); });
  if (unit != nullptr) FindUnit(unit)->m_status = status;
}

}  // namespace ZOVEngine
