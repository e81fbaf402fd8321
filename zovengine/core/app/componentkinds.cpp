#include "game/componentkinds.h"

#include <type_traits>

#include "core/app/logictables.h"
#include "game/hazards/passablehazard.h"
#include "game/hazards/statuszone.h"
#include "game/shots/shot.h"

namespace ZOVEngine {
namespace {

template <class Base>
std::vector<ComponentType> FindKinds() {
  std::vector<ComponentType> kinds;
  LogicTables::ForEach([&kinds]<class T>() {
    if (std::is_base_of_v<Base, T>) kinds.push_back(&typeid(T));
  });
  return kinds;
}

}  // namespace

template <class Base>
const std::vector<ComponentType>& ComponentKinds() {
  static const std::vector<ComponentType> kinds = FindKinds<Base>();
  return kinds;
}

template const std::vector<ComponentType>& ComponentKinds<PassableHazard>();
template const std::vector<ComponentType>& ComponentKinds<Shot>();
template const std::vector<ComponentType>& ComponentKinds<StatusZone>();

}  // namespace ZOVEngine
