#pragma once

#include <string>

#include "core/app/stateforward.h"
#include "core/statemachine.h"
#include "ui/buttons/button.h"
#include "ui/screens/mainmenucontroller.h"

/// The main menu. Broadcasts go to every MainMenuController, then to every Button.
class MainMenuState final : public ZOVEngine::State {
 public:
  void Enter() override;
  void Update(float) override {}
  void Exit() override {}
  void SendMessage(ZOVEngine::Message* message) override { m_receivers.Send(message); }

  std::string m_path;

 private:
  ZOVEngine::Forwarder<ZOVEngine::MainMenuController, ZOVEngine::Button> m_receivers;
};
