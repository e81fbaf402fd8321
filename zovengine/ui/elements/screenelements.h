#pragma once

#include <string_view>

namespace ZOVEngine {

class UIElement;

/// The pieces that are shown in some interface states and hidden in all others: the sprite by
/// `m_visible`, the text by `m_active`. Without a controller a piece stays as it is.

/// Shown in `state` of a level.
void ShowOnScreen(UIElement* element, std::string_view state);
/// Shown in `state` of the menu.
void ShowOnPage(UIElement* element, std::string_view state);
/// The menu's title: shown while it slides in and on the first page.
void ShowTitle(UIElement* element);
/// The menu's dim sheet: shown behind how-to-play and credits.
void ShowMenuBackdrop(UIElement* element);
/// The backdrop of a level's screens: shown but in play, behind the questions whether to quit, in
/// the glossary and at the level's end.
void ShowBehindScreens(UIElement* element);
/// The switch of the music, and that of the effects: on or off, shown among the options.
void ShowMusicSwitch(UIElement* element);
void ShowEffectsSwitch(UIElement* element);

}  // namespace ZOVEngine
