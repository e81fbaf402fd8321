#pragma once

#include <string>

#include "core/statemachine.h"

/// The logo sequence at the start of the program. Broadcasts go to every SplashController.
class SplashState final : public ZOVEngine::State {
 public:
  void Enter() override;
  void Update(float) override {}
  void Exit() override {}
  void SendMessage(ZOVEngine::Message* message) override;

  std::string m_path;
};
