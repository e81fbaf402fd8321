#include "core/app/mainmenustate.h"

#include "core/app/loadscreen.h"

void MainMenuState::Enter() {
  m_path = "Level Editor/Levels/MainMenu/MainMenu.json";
  ZOVEngine::LoadScreen(m_path);
}
