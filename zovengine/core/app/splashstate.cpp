#include "core/app/splashstate.h"

#include "core/app/loadscreen.h"

void SplashState::Enter() {
  m_path = "Level Editor/Levels/SplashScreen/SplashScreen.json";
  ZOVEngine::LoadScreen(m_path);
}
