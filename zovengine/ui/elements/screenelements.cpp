#include "ui/elements/screenelements.h"

#include <algorithm>
#include <array>

#include "game/objectquery.h"
#include "game/turns/gamecontroller.h"
#include "render/components/font.h"
#include "render/components/render.h"
#include "ui/elements/uielement.h"
#include "ui/interfacestate.h"
#include "ui/screens/mainmenucontroller.h"

namespace ZOVEngine {
namespace {

constexpr std::array<std::string_view, 5> kWithoutBackdrop = {"ui_default", "ui_quit_confirm",
                                                              "ui_quit_mainmenu_confirm",
                                                              "ui_level_end", "ui_pause_glossary"};

void Show(UIElement* element, bool shown) {
  if (auto* render = FindComponent<Render>(element->m_owner)) {
    if (shown) render->m_active = true;
    render->m_visible = shown;
  }
  if (auto* font = FindComponent<Font>(element->m_owner)) font->m_active = shown;
}

void ShowSwitch(UIElement* element, bool GameController::*flag) {
  ShowOnScreen(element, "ui_options");
  const GameController* game = FindController(element->m_owner);
  auto* render = FindComponent<Render>(element->m_owner);
  if (game == nullptr || render == nullptr) return;
  render->m_tex = game->*flag ? "Menu_Options_On" : "Menu_Options_Off";
}

}  // namespace

void ShowOnScreen(UIElement* element, std::string_view state) {
  if (const GameController* game = FindController(element->m_owner)) {
    Show(element, game->m_ui_state == state);
  }
}

void ShowOnPage(UIElement* element, std::string_view state) {
  if (const MainMenuController* menu = FindMenuController(element->m_owner)) {
    Show(element, menu->m_ui_state == state);
  }
}

void ShowTitle(UIElement* element) {
  if (const MainMenuController* menu = FindMenuController(element->m_owner)) {
    Show(element, menu->m_ui_state == "menu_default" || menu->m_ui_state == "menu_slide");
  }
}

void ShowMenuBackdrop(UIElement* element) {
  if (const MainMenuController* menu = FindMenuController(element->m_owner)) {
    Show(element, menu->m_ui_state == "menu_howtoplay" || menu->m_ui_state == "menu_credits");
  }
}

void ShowBehindScreens(UIElement* element) {
  const GameController* game = FindController(element->m_owner);
  if (game == nullptr) return;
  Show(element, std::find(kWithoutBackdrop.begin(), kWithoutBackdrop.end(), game->m_ui_state) ==
                    kWithoutBackdrop.end());
}

void ShowMusicSwitch(UIElement* element) {
  ShowSwitch(element, &GameController::m_music_on);
}

void ShowEffectsSwitch(UIElement* element) {
  ShowSwitch(element, &GameController::m_sfx_on);
}

}  // namespace ZOVEngine
