#pragma once

#include <string>

#include "core/app/screenstate.h"
#include "ui/screens/splashcontroller.h"

/// The logo sequence at the start of the program. Broadcasts go to every SplashController.
class SplashState final : public ZOVEngine::ScreenState<ZOVEngine::SplashController> {
 public:
  void Enter() override;

  std::string m_path;
};
