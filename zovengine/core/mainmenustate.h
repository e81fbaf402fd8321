#pragma once

#include <string>

#include "core/statemachine.h"

/// The main menu. Broadcasts go to every MainMenuController, then to every Button.
class MainMenuState final : public ZOVEngine::State {
 public:
  void Enter() override;
  void Update(float) override {}
  void Exit() override {}
  void SendMessage(ZOVEngine::Message* message) override;

  std::string m_path;
};
