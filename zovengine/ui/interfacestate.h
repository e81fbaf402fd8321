#pragma once

#include <string>

namespace ZOVEngine {

class GameObj;
class MainMenuController;

/// The controller of the main menu, asked for with CurrMC from `object` down its children; null
/// when there is none, so check.
///
/// The pieces of the menu stand below the controller, so nobody answers them, and that reads as
/// object 0: deliberate, since it is the menu's root wherever that comes first in its file. If
/// object 0 is something else, the question goes on up the parents.
MainMenuController* FindMenuController(GameObj* object);

/// The interface state of the screen that `object` belongs to: the turn controller's in a level,
/// the menu controller's in the main menu, empty in any other state or without a controller.
const std::string& InterfaceState(GameObj* object);

}  // namespace ZOVEngine
