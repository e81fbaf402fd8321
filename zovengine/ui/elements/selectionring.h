#pragma once

namespace ZOVEngine {

class UIElement;

/// The ring around the selected unit, whose child it is. The turn machine waits for it to close in,
/// and switches it by the element's name.

/// Closes in on the unit step by step; arrived, it becomes the unit's outline, which a boss has
/// not, and the unit shows the label of its weapon, once.
void CloseRing(UIElement* element);
/// Opens wide, unseen, ready for the next selection.
void ResetRing(UIElement* element);

}  // namespace ZOVEngine
