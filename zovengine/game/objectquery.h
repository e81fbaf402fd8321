#pragma once

#include <string_view>

#include "objects/componentmanager.h"

namespace ZOVEngine {

class GameController;

/// The component of type T of `object`, or null if it has none.
template <class T>
T* FindComponent(GameObj* object) {
  return object->HasComponent<T>() ? object->GetComponent<T>() : nullptr;
}

/// Calls `visit` with each child of this name, in child order.
template <class Visitor>
void ForEachChildNamed(GameObj* object, std::string_view name, Visitor visit) {
  for (GameObj* child : object->children) {
    if (child->name == name) visit(child);
  }
}

/// Calls `visit` with the T of each child of this name that has one, in child order.
template <class T, class Visitor>
void ForEachChildWith(GameObj* object, std::string_view name, Visitor visit) {
  ForEachChildNamed(object, name, [&visit](GameObj* child) {
    if (T* component = FindComponent<T>(child)) visit(component);
  });
}

/// The first child of this name, or null.
GameObj* FirstChildNamed(GameObj* object, std::string_view name);

/// The turn controller above `object`, found by CurrGC from the object up its parents; null when
/// there is none, so check.
GameController* FindController(GameObj* object);

/// True for a unit, and for any other object with a body and a shape: what a hole swallows and a
/// swap carries.
bool IsMovable(const GameObj& object);

/// Asks for a sound of the object, if it has an AudioSource.
void PlaySound(GameObj* object, const char* name);
/// Sets the state of an object that has a StateC.
void SetState(GameObj* object, const char* state);

}  // namespace ZOVEngine
