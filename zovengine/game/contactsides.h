#pragma once

#include "core/contactinfo.h"
#include "objects/gameobjfactory.h"

namespace ZOVEngine {

/// The two objects of a contact, for a component that cannot know which of them is its own.
///
/// The end of a contact is told a step late, so a side may have been destroyed meanwhile: then it
/// is null, and BothActive is false. Ask that first; the other queries need both sides.
struct ContactSides {
  explicit ContactSides(const ContactInfo& contact)
      : a(FindSide(contact.objectA)), b(FindSide(contact.objectB)) {}

  bool BothActive() const { return a != nullptr && b != nullptr && a->active && b->active; }
  bool Include(const GameObj* object) const { return a == object || b == object; }
  template <class T>
  bool EitherHas() const {
    return a->HasComponent<T>() || b->HasComponent<T>();
  }
  template <class T>
  bool BothHave() const {
    return a->HasComponent<T>() && b->HasComponent<T>();
  }
  /// The side for which `is_wanted` holds while the other side has a component of this type, A
  /// first; null if none.
  template <class Test>
  GameObj* PartnerOf(ComponentType type, Test is_wanted) const {
    if (b->HasComponent(type) && is_wanted(*a)) return a;
    if (a->HasComponent(type) && is_wanted(*b)) return b;
    return nullptr;
  }

  GameObj* a;
  GameObj* b;

 private:
  static GameObj* FindSide(std::uint32_t id) {
    const auto& objects = g_game_obj_factory->m_objects;
    return id < objects.size() ? objects[id] : nullptr;
  }
};

}  // namespace ZOVEngine
