#pragma once

#include <string>

#include "core/app/stateforward.h"
#include "core/statemachine.h"
#include "ui/screens/splashcontroller.h"

/// The logo sequence at the start of the program. Broadcasts go to every SplashController.
class SplashState final : public ZOVEngine::State {
 public:
  void Enter() override;
  void Update(float) override {}
  void Exit() override {}
  void SendMessage(ZOVEngine::Message* message) override { m_receivers.Send(message); }

  std::string m_path;

 private:
  ZOVEngine::Forwarder<ZOVEngine::SplashController> m_receivers;
};
