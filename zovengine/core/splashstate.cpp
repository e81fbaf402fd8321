#include "core/splashstate.h"

#include "core/loadscreen.h"

void SplashState::Enter() {
  m_path = "Level Editor/Levels/SplashScreen/SplashScreen.json";
  ZOVEngine::LoadScreen(m_path);
}
