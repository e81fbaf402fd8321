#include "core/splashstate.h"

#include "core/loadscreen.h"
#include "core/stateforward.h"
#include "ui/splashcontroller.h"

void SplashState::Enter() {
  m_path = "Level Editor/Levels/SplashScreen/SplashScreen.json";
  ZOVEngine::LoadScreen(m_path);
}

void SplashState::SendMessage(ZOVEngine::Message* message) {
  ZOVEngine::ForwardTo<ZOVEngine::SplashController>(message);
}
