#pragma once

namespace ZOVEngine {

class UIElement;

/// The live examples of the glossary: a crystal, a damaging zone and a hole that are awake only
/// while the glossary shows its page on a level's surroundings, and then stand in their places on
/// it. They are children of one object, as is the glossary's image.

/// An example in the glossary of a pause; its hole turns.
void ShowPauseExample(UIElement* element);
/// An example in the glossary of the menu.
void ShowMenuExample(UIElement* element);

}  // namespace ZOVEngine
