#include "ui/screens/splashcontroller.h"

#include "core/messages.h"
#include "core/statemachine.h"
#include "objects/componentmanager.h"
#include "render/components/render.h"

namespace ZOVEngine {

bool g_menu_entry_click = false;

namespace {

/// The alpha of a stage's object, or null when the stage cannot run.
float* FindAlpha(GameObj* object) {
  if (object == nullptr || !object->HasComponent<Render>()) return nullptr;
  return &object->GetComponent<Render>()->m_colour[3];
}

void SetAlpha(GameObj* object, float value) {
  if (float* alpha = FindAlpha(object)) *alpha = value;
}

}  // namespace

void SplashController::Init() {
  m_init = true;
  for (GameObj* child : m_owner->children) {
    if (child->name == "zarn_logo") m_first_logo = child;
    if (child->name == "game_logo") m_game_logo = child;
    if (child->name == "team_logo") m_team_logo = child;
    if (child->name == "start") m_start = child;
  }
}

void SplashController::Update(float dt) {
  if (!m_init) Init();
  if (!m_first_done) UpdateFade(m_first_logo, dt, &m_first_done);
  if (m_first_done && !m_team_done) UpdateFade(m_team_logo, dt, &m_team_done);
  if (m_first_done && m_team_done && !m_game_done) UpdateGameLogo(dt);
  if (m_first_done && m_team_done && m_game_done) UpdatePrompt(dt);
}

void SplashController::UpdateFade(GameObj* logo, float dt, bool* done) {
  float* alpha = FindAlpha(logo);
  if (alpha == nullptr) return;
  if (!m_fading_out) {
    if (*alpha < 1.0f) {
      *alpha += dt / m_fade_time;
    } else {
      m_fading_out = true;
    }
  } else if (*alpha > 0.0f) {
    *alpha -= dt / m_fade_time;
  } else {
    *done = true;
    m_fading_out = false;
  }
}

void SplashController::UpdateGameLogo(float dt) {
  float* alpha = FindAlpha(m_game_logo);
  if (alpha == nullptr) return;
  if (!m_fading_out && *alpha < 1.0f) *alpha += dt / m_fade_time;
  if (*alpha >= 1.0f) {
    m_fading_out = true;
    m_game_done = true;
  }
}

void SplashController::UpdatePrompt(float dt) {
  float* alpha = FindAlpha(m_start);
  if (alpha == nullptr) return;
  m_blink_timer += dt;
  if (m_blink_timer <= m_blink_time) return;
  if (*alpha == 0.0f) {
    *alpha = 1.0f;
    m_blink_timer = 0.0f;
  } else if (*alpha == 1.0f) {
    *alpha = 0.0f;
    m_blink_timer = 0.0f;
  }
}

void SplashController::OnMessage(Message* message) {
  if (message->id != kKeyUp) return;
  if (m_first_done && m_team_done && m_game_done) {
    g_menu_entry_click = true;
    ChangeState(kMainMenuState, "");
  } else if (!m_first_done) {
    SetAlpha(m_first_logo, 0.0f);
    m_first_done = true;
  } else if (!m_team_done) {
    SetAlpha(m_team_logo, 0.0f);
    m_team_done = true;
  } else {
    m_game_done = true;
    SetAlpha(m_game_logo, 1.0f);
  }
}

}  // namespace ZOVEngine
