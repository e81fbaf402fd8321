#pragma once

#include <cstdint>
#include <string>
#include <typeinfo>
#include <vector>

#include "core/base/vector3d.h"
#include "zovassert.h"

namespace ZOVEngine {

struct ContactInfo;
struct Message;

/// The run-time type descriptor by which component types are told apart.
using ComponentType = const std::type_info*;

/// A named node with a parent, children and a list of component types.
///
/// The factory owns objects; the tables own their components, keyed by the object's id. For a level
/// object the id is its index in the factory's object array, for an archetype its index in the
/// archetype array. An id is not stable: when an object is destroyed, the last object of the array
/// takes the freed id. Definitions of the component templates are in objects/componentmanager.h.
class GameObj {
 public:
  /// Gives this object a component of type T, default-made, and appends T to `components`. A second
  /// component of one type is not checked for. Throws as GetComponent when T has no table.
  template <class T>
  void AddComponent();
  /// The component of type T. Throws std::out_of_range "invalid unordered_map<K, T> key" when T was
  /// never registered and "invalid map<K, T> key" when the object has no T.
  template <class T>
  T* GetComponent();
  /// True when T is in the object's component list.
  template <class T>
  bool HasComponent() const {
    return HasComponent(&typeid(T));
  }
  bool HasComponent(ComponentType type) const {
    for (const ComponentType own : components) {
      if (own == type) return true;
    }
    return false;
  }

  /// Switches the object, each of its components and all descendants on or off, and with them the
  /// visibility of Render components. The active flags are always sought in the tables' first half.
  void SetActive(bool value);
  /// Writes `position` to the local and the previous position of the object's Transform, if it has
  /// one.
  void SetPosition(const Vector3D& position);

  /// Hands `message` to each logic component of the object, in the order of the component list.
  void SendToComponents(Message* message);
  /// SendToComponents on the object, then on all descendants, depth first.
  void SendToComponentsRecursive(Message* message);
  /// Tell each logic component that a contact began, lasts, or ended.
  void DispatchCollisionEnter(ContactInfo* contact);
  void DispatchCollisionStay(ContactInfo* contact);
  void DispatchCollisionExit(ContactInfo* contact);

  std::string GetName() const { return name; }

  bool movesWhilePaused = false;  ///< the body is integrated while the engine is paused
  GameObj* parent = nullptr;
  std::vector<GameObj*> children;  ///< in file order; the only links down
  bool isArchetype = false;        ///< decides the half of the tables that holds the components
  std::uint32_t id = 0;
  std::string name;  ///< not unique
  bool active = true;
  std::vector<ComponentType> components;  ///< in the order added
  /// The number of logic components; most objects have none, and a message then passes them by.
  std::uint32_t logicComponents = 0;
};

/// GameObj::AddComponent for code that holds a pointer: a null one ends the program with a report.
template <class T>
void AddComponent(GameObj* object) {
  ZOV_ASSERT(object != nullptr, "Game Object cannot be null ptr");
  object->AddComponent<T>();
}

}  // namespace ZOVEngine
