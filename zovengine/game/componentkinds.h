#pragma once

#include <vector>

#include "objects/gameobjfactory.h"

namespace ZOVEngine {

/// The classes of logic components that derive from Base, in the order of their tables. It is made
/// from the one list of tables, in core/app, for the bases PassableHazard, Shot and
/// StatusZone.
template <class Base>
const std::vector<ComponentType>& ComponentKinds();

/// True for a level object with a component whose class derives from Base.
template <class Base>
bool HasKind(const GameObj& object) {
  for (const ComponentType kind : ComponentKinds<Base>()) {
    if (object.HasComponent(kind)) return true;
  }
  return false;
}

/// Calls `visit` with each component of a level object whose class derives from Base, in the order
/// of their tables.
template <class Base, class Visitor>
void ForEachKind(GameObj* object, Visitor visit) {
  for (const ComponentType kind : ComponentKinds<Base>()) {
    if (!object->HasComponent(kind)) continue;
    visit(static_cast<Base*>(g_game_obj_factory->Table(kind).Get(object)));
  }
}

}  // namespace ZOVEngine
