#include "core/mainmenustate.h"

#include "core/loadscreen.h"
#include "core/stateforward.h"
#include "ui/button.h"
#include "ui/mainmenucontroller.h"

void MainMenuState::Enter() {
  m_path = "Level Editor/Levels/MainMenu/MainMenu.json";
  ZOVEngine::LoadScreen(m_path);
}

void MainMenuState::SendMessage(ZOVEngine::Message* message) {
  ZOVEngine::ForwardTo<ZOVEngine::MainMenuController>(message);
  ZOVEngine::ForwardTo<ZOVEngine::Button>(message);
}
