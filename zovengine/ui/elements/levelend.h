#pragma once

namespace ZOVEngine {

class UIElement;

/// The end of a level: it dims for two seconds, then a banner fades in for one, then the buttons.

/// The dimming sheet. It lies over the level behind every screen, with the alpha that it has, and
/// starts from nothing at the level's end.
void DimLevel(UIElement* element);
/// The banners of a won and of a lost level.
void ShowVictory(UIElement* element);
void ShowDefeat(UIElement* element);

}  // namespace ZOVEngine
