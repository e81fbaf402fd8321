#include "ui/screens/mainmenucontroller.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "audio/audiosource.h"
#include "core/messages.h"
#include "core/statemachine.h"
#include "game/objectquery.h"
#include "physics/components/transform.h"
#include "render/components/render.h"
#include "ui/screens/splashcontroller.h"

namespace ZOVEngine {
namespace {

constexpr float kTitleHeight = 200.0f;  ///< where the title stops (unit: world units)
constexpr float kTitleSpeed = 170.0f;   ///< (unit: world units per second)
constexpr float kFadeSpeed = 4.0f;      ///< of the buttons' alpha (unit: per second)
/// The fade runs on past full alpha, deliberately: the second half of its time shows nothing.
constexpr float kFadeEnd = 2.0f;

constexpr const char* kTheme = "maintheme01.ogg";
constexpr std::array<std::string_view, 3> kExamples = {"EnvDestructible", "EnvDamage",
                                                       "EnvBlackhole"};
constexpr std::array<std::string_view, 5> kFadingButtons = {
    "menu_play", "menu_howtoplay", "menu_glossary", "menu_quit", "menu_credits"};

template <std::size_t N>
bool Contains(const std::array<std::string_view, N>& names, const std::string& name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

}  // namespace

void MainMenuController::Init() {
  m_init = true;
  m_ui_state = "menu_slide";
  m_launch = false;
  m_level_path = "Level Editor/Levels/Level01/Level01.json";
  m_slide_done = m_buttons_done = false;
  PlaySound(m_owner, kTheme);
  if (g_menu_entry_click) PlaySound(m_owner, "button_click.ogg");
  for (GameObj* child : m_owner->children) {
    if (Contains(kExamples, child->name)) child->SetActive(false);
  }
}

void MainMenuController::Update(float dt) {
  if (!m_init) Init();
  if (m_launch) {
    Launch();
    return;
  }
  if (!m_slide_done) SlideTitle(dt);
  if (m_slide_done && !m_buttons_done) FadeButtonsIn(dt);
}

/// The theme loops. Its stop is still pending when the source is destroyed, which carries it out.
void MainMenuController::Launch() {
  if (auto* source = FindComponent<AudioSource>(m_owner)) source->StopSound(kTheme);
  g_current_level_path = m_level_path;
  ChangeState(kDefaultState, "");
}

void MainMenuController::SlideTitle(float dt) {
  ForEachChildWith<Transform>(m_owner, "game_logo", [&](Transform* title) {
    if (title->m_local_pos.y > kTitleHeight) {
      title->m_local_pos.y = kTitleHeight;
      m_ui_state = "menu_default";
      m_slide_done = true;
    } else {
      title->m_local_pos.y += dt * kTitleSpeed;
    }
  });
}

void MainMenuController::FadeButtonsIn(float dt) {
  for (GameObj* child : m_owner->children) {
    if (!Contains(kFadingButtons, child->name) || !child->HasComponent<Render>()) continue;
    Render& render = *child->GetComponent<Render>();
    float& alpha = render.m_colour[3];
    if (alpha >= kFadeEnd) {
      alpha = kFadeEnd;
      m_buttons_done = true;
    } else {
      render.m_visible = true;
      alpha += dt * kFadeSpeed;
    }
  }
}

void MainMenuController::OnMessage(Message* message) {
  if (message->id == kCurrMC) dynamic_cast<CurrMC&>(*message).objectId = m_owner->id;
}

void MainMenuController::LaunchLevel(const std::string& path) {
  m_level_path = path;
  m_launch = true;
}

}  // namespace ZOVEngine
