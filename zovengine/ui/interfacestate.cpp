#include "ui/interfacestate.h"

#include "core/messages.h"
#include "core/statemachine.h"
#include "game/objectquery.h"
#include "game/turns/gamecontroller.h"
#include "objects/gameobjfactory.h"
#include "ui/screens/mainmenucontroller.h"

namespace ZOVEngine {
namespace {

MainMenuController* FindAnswering(const CurrMC& query) {
  const auto& objects = g_game_obj_factory->m_objects;
  if (query.objectId >= objects.size()) return nullptr;
  return FindComponent<MainMenuController>(objects[query.objectId]);
}

}  // namespace

MainMenuController* FindMenuController(GameObj* object) {
  CurrMC query;
  object->SendToComponentsRecursive(&query);
  if (MainMenuController* menu = FindAnswering(query)) return menu;
  for (GameObj* at = object->parent; at != nullptr; at = at->parent) at->SendToComponents(&query);
  return FindAnswering(query);
}

const std::string& InterfaceState(GameObj* object) {
  static const std::string none;
  switch (g_state_machine->m_current) {
    case kDefaultState: {
      const GameController* game = FindController(object);
      return game == nullptr ? none : game->m_ui_state;
    }
    case kMainMenuState: {
      const MainMenuController* menu = FindMenuController(object);
      return menu == nullptr ? none : menu->m_ui_state;
    }
    default:
      return none;
  }
}

}  // namespace ZOVEngine
