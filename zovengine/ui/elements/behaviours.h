#pragma once

#include <string>
#include <unordered_map>

namespace ZOVEngine {

class UIElement;

/// What a piece of the interface does in each step.
using ElementBehaviour = void (*)(UIElement* element);

/// The behaviours by the names that level files give their elements, filled before the program's
/// main function. A new element is a new entry.
const std::unordered_map<std::string, ElementBehaviour>& ElementBehaviours();

/// Calls the behaviour of the element's name; a name without one does nothing.
void RunElementBehaviour(UIElement* element);

}  // namespace ZOVEngine
