#include "core/mainmenustate.h"

#include "core/loadscreen.h"

void MainMenuState::Enter() {
  m_path = "Level Editor/Levels/MainMenu/MainMenu.json";
  ZOVEngine::LoadScreen(m_path);
}
