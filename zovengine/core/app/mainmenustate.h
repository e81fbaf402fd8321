#pragma once

#include <string>

#include "core/app/screenstate.h"
#include "ui/buttons/button.h"
#include "ui/screens/mainmenucontroller.h"

/// The main menu. Broadcasts go to every MainMenuController, then to every Button.
class MainMenuState final
    : public ZOVEngine::ScreenState<ZOVEngine::MainMenuController, ZOVEngine::Button> {
 public:
  void Enter() override;

  std::string m_path;
};
