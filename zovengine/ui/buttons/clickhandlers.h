#pragma once

#include <string>
#include <unordered_map>

namespace ZOVEngine {

class Button;

/// What the release of the mouse over a button does.
using ClickHandler = void (*)(Button* button);

/// The handlers by the names that level files give their buttons, filled before the program's main
/// function. A new button is a new entry.
const std::unordered_map<std::string, ClickHandler>& ClickHandlers();

/// Calls the handler of the button's `m_click_name`; a name without one does nothing.
void CallClickHandler(Button* button);

}  // namespace ZOVEngine
