#include "ui/buttons/clickhandlers.h"

#include <iostream>
#include <utility>

#include "core/base/literal.h"
#include "core/engine.h"
#include "core/messages.h"
#include "core/statemachine.h"
#include "game/objectquery.h"
#include "game/turns/gamecontroller.h"
#include "render/components/render.h"
#include "ui/buttons/button.h"
#include "ui/buttons/glossarytabs.h"
#include "ui/interfacestate.h"
#include "ui/screens/mainmenucontroller.h"

namespace ZOVEngine {
namespace {

constexpr std::uint32_t kEffects = 0;  ///< channel of Mute
constexpr std::uint32_t kMusic = 1;    ///< channel of Mute

void Report(Button* button) {
  std::cout << "Button without a handler: " << button->m_owner->name << '\n';
}

void Click(Button* button) {
  PlaySound(button->m_owner, "button_click.ogg");
}

/// Shows another screen of the level, with a click.
template <Literal state>
void ShowScreen(Button* button) {
  Click(button);
  if (GameController* game = FindController(button->m_owner)) game->m_ui_state = state.text;
}

/// Shows another page of the menu, with a click.
template <Literal state>
void ShowPage(Button* button) {
  Click(button);
  if (MainMenuController* menu = FindMenuController(button->m_owner)) menu->m_ui_state = state.text;
}

template <Literal path>
void Launch(Button* button) {
  Click(button);
  if (MainMenuController* menu = FindMenuController(button->m_owner)) menu->LaunchLevel(path.text);
}

void Resume(Button* button) {
  ShowScreen<"ui_default">(button);
  g_engine->paused = !g_engine->paused;
}

void QuitToMenu(Button* button) {
  Click(button);
  if (GameController* game = FindController(button->m_owner)) game->RequestQuitToMenu();
}

void QuitProgram(Button* button) {
  Click(button);
  g_engine->running = false;
}

void Restart(Button* button) {
  Click(button);
  if (GameController* game = FindController(button->m_owner)) game->RequestRestart();
  g_engine->paused = false;
}

/// Exchanges the looks of "on" and "off", of which the one at rest is shown.
void SwapToggleTextures(Button* button) {
  auto* render = FindComponent<Render>(button->m_owner);
  if (render == nullptr) return;
  const std::string shown = button->m_click_tex;
  button->m_click_tex = button->m_default_tex;
  button->m_highlight_tex = button->m_default_tex = render->m_tex = shown;
}

/// The flag is sent before it is inverted, so the first click mutes.
template <bool GameController::*flag, std::uint32_t channel>
void Toggle(Button* button) {
  GameController* game = FindController(button->m_owner);
  if (game == nullptr) return;
  SwapToggleTextures(button);
  Mute mute(game->*flag, channel);
  g_engine->Broadcast(&mute);
  game->*flag = !(game->*flag);
}

/// The level after the last one is the first; after an unknown one it is that one again. The end of
/// a level may have been left for another window, which pauses.
void GoToNextLevel(Button* button) {
  static const std::unordered_map<std::string, std::string> next = {
      {"Level Editor/Levels/Level00/Level00.json", "Level Editor/Levels/Level01/Level01.json"},
      {"Level Editor/Levels/Level01/Level01.json", "Level Editor/Levels/Level02/Level02.json"},
      {"Level Editor/Levels/Level02/Level02.json", "Level Editor/Levels/Level03/Level03.json"},
      {"Level Editor/Levels/Level03/Level03.json", "Level Editor/Levels/Level04/Level04.json"},
      {"Level Editor/Levels/Level04/Level04.json", "Level Editor/Levels/Level01/Level01.json"}};
  Click(button);
  GameController* game = FindController(button->m_owner);
  if (game == nullptr) return;
  if (const auto found = next.find(g_current_level_path); found != next.end()) {
    g_current_level_path = game->m_level_map = found->second;
  }
  game->RequestRestart();
  g_engine->paused = false;
}

/// Opens a page of the glossary whose pieces are children of the screen's root, or lie beside the
/// tab: a level's root has its units below it, and its glossary below the camera, over all of them.
void OpenGlossary(void (*show)(GameObj*, const std::string&), const Button& tab, GameObj* root,
                  const char* glossary) {
  show(root, glossary);
  GameObj* holder = tab.m_owner->parent;
  if (holder != nullptr && holder != root) show(holder, glossary);
}

void OpenPauseGlossary(void (*show)(GameObj*, const std::string&), const Button& tab) {
  if (const GameController* game = FindController(tab.m_owner)) {
    OpenGlossary(show, tab, game->m_owner, kPauseGlossary);
  }
}

void OpenMenuGlossary(void (*show)(GameObj*, const std::string&), const Button& tab) {
  if (const MainMenuController* menu = FindMenuController(tab.m_owner)) {
    OpenGlossary(show, tab, menu->m_owner, kMenuGlossary);
  }
}

void OpenWeapons(Button* button) {
  Click(button);
  OpenPauseGlossary(ShowWeaponsTab, *button);
}

/// The click is asked for under a misspelt name, deliberately: no such sound is heard.
void OpenSurroundings(Button* button) {
  PlaySound(button->m_owner, "button_click.pgg");
  OpenPauseGlossary(ShowSurroundingsTab, *button);
}

void OpenMenuWeapons(Button* button) {
  Click(button);
  OpenMenuGlossary(ShowWeaponsTab, *button);
}

void OpenMenuSurroundings(Button* button) {
  Click(button);
  OpenMenuGlossary(ShowSurroundingsTab, *button);
}

const std::unordered_map<std::string, ClickHandler> g_click_handlers = {
    {"default", Report},

    {"ui_pause_resume", Resume},
    {"ui_pause_options", ShowScreen<"ui_options">},
    {"ui_options_back", ShowScreen<"ui_pause">},
    {"ui_quit_no", ShowScreen<"ui_pause">},
    {"ui_pause_howtoplay_back", ShowScreen<"ui_pause">},
    {"ui_pause_glossary_back", ShowScreen<"ui_pause">},
    {"ui_pause_credits_back", ShowScreen<"ui_pause">},
    {"ui_options_music", Toggle<&GameController::m_music_on, kMusic>},
    {"ui_options_sfx", Toggle<&GameController::m_sfx_on, kEffects>},
    {"ui_pause_quittomenu", ShowScreen<"ui_quit_mainmenu_confirm">},
    {"ui_pause_quittomenu_yes", QuitToMenu},
    {"ui_end_mainmenu", QuitToMenu},
    {"ui_pause_quittomenu_no", ShowScreen<"ui_pause">},
    {"ui_pause_quit", ShowScreen<"ui_quit_confirm">},
    {"ui_quit_yes", QuitProgram},
    {"menu_quit_yes", QuitProgram},
    {"ui_pause_howtoplay", ShowScreen<"ui_how_to_play">},
    {"ui_pause_glossary", ShowScreen<"ui_pause_glossary">},
    {"ui_pause_glossary_weapons", OpenWeapons},
    {"ui_pause_glossary_enviro", OpenSurroundings},
    {"ui_pause_credits", ShowScreen<"ui_pause_credits">},
    {"ui_end_restart", Restart},
    {"ui_end_gotonext", GoToNextLevel},

    {"menu_play", ShowPage<"menu_level_select">},
    {"menu_howtoplay", ShowPage<"menu_howtoplay">},
    {"menu_glossary", ShowPage<"menu_glossary">},
    {"menu_back", ShowPage<"menu_default">},
    {"menu_level_back", ShowPage<"menu_default">},
    {"menu_glossary_back", ShowPage<"menu_default">},
    {"menu_credits_back", ShowPage<"menu_default">},
    {"menu_quit_no", ShowPage<"menu_default">},
    {"menu_quit", ShowPage<"menu_quit">},
    {"menu_level_01", Launch<"Level Editor/Levels/Level01/Level01.json">},
    {"menu_level_02", Launch<"Level Editor/Levels/Level02/Level02.json">},
    {"menu_level_03", Launch<"Level Editor/Levels/Level03/Level03.json">},
    {"menu_level_04", Launch<"Level Editor/Levels/Level04/Level04.json">},
    {"menu_glossary_weapons", OpenMenuWeapons},
    {"menu_glossary_enviro", OpenMenuSurroundings},
    {"menu_credits", ShowPage<"menu_credits">},
};

}  // namespace

const std::unordered_map<std::string, ClickHandler>& ClickHandlers() {
  return g_click_handlers;
}

void CallClickHandler(Button* button) {
  const auto found = g_click_handlers.find(button->m_click_name);
  if (found != g_click_handlers.end()) found->second(button);
}

}  // namespace ZOVEngine
