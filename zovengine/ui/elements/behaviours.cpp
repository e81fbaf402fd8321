#include "ui/elements/behaviours.h"

#include "core/base/literal.h"
#include "ui/elements/glossaryexamples.h"
#include "ui/elements/hud.h"
#include "ui/elements/levelend.h"
#include "ui/elements/screenelements.h"
#include "ui/elements/selectionring.h"
#include "ui/elements/uielement.h"

namespace ZOVEngine {
namespace {

/// A piece that is shown in one interface state of a level.
template <Literal state>
void Screen(UIElement* element) {
  ShowOnScreen(element, state.text);
}

/// A piece that is shown in one interface state of the menu.
template <Literal state>
void Page(UIElement* element) {
  ShowOnPage(element, state.text);
}

void DoNothing(UIElement*) {}

const std::unordered_map<std::string, ElementBehaviour> g_element_behaviours = {
    {"ui_font", ShowText},
    {"ui_element_default", DoNothing},
    {"ui_turn", ShowRound},
    {"ui_energy", ShowEnergy},
    {"ui_weapon0_font", NameWeapon<0>},
    {"ui_weapon1_font", NameWeapon<1>},
    {"ui_weapon0_tex", ShowWeapon<0>},
    {"ui_weapon1_tex", ShowWeapon<1>},
    {"ui_pause_fade", DimLevel},
    {"ui_pause", Screen<"ui_pause">},
    {"ui_options_options", Screen<"ui_options">},
    {"ui_options_music", ShowMusicSwitch},
    {"ui_options_sfx", ShowEffectsSwitch},
    {"ui_howtoplay", Screen<"ui_how_to_play">},
    {"ui_quit", Screen<"ui_quit_confirm">},
    {"ui_quit_menu", Screen<"ui_quit_mainmenu_confirm">},
    {"ui_victory", ShowVictory},
    {"ui_defeat", ShowDefeat},
    {"ui_pause_glossary", Screen<"ui_pause_glossary">},
    {"ui_pause_glossary_anim", ShowPauseExample},
    {"ui_pause_credits", Screen<"ui_pause_credits">},
    {"ui_selection_circle", CloseRing},
    {"ui_selection_circle_off", ResetRing},
    {"aoe_indicator", ShowReach},
    {"ui_splash", ShowBehindScreens},
    {"menu_title", ShowTitle},
    {"menu_quit_fade", Page<"menu_quit">},
    {"menu_splash", ShowMenuBackdrop},
    {"menu_howtoplay", Page<"menu_howtoplay">},
    {"menu_credits", Page<"menu_credits">},
    {"menu_glossary", Page<"menu_glossary">},
    {"menu_glossary_anim", ShowMenuExample},
    {"menu_levelselect_preview", Page<"menu_level_select">},
};

}  // namespace

const std::unordered_map<std::string, ElementBehaviour>& ElementBehaviours() {
  return g_element_behaviours;
}

void RunElementBehaviour(UIElement* element) {
  const auto found = g_element_behaviours.find(element->m_ui_element_name);
  if (found != g_element_behaviours.end()) found->second(element);
}

}  // namespace ZOVEngine
