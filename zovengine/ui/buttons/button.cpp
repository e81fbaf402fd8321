#include "ui/buttons/button.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iostream>
#include <string_view>

#include "core/messages.h"
#include "core/statemachine.h"
#include "game/objectquery.h"
#include "game/turns/gamecontroller.h"
#include "objects/fields.h"
#include "physics/components/transform.h"
#include "platform/inputsystem.h"
#include "render/components/render.h"
#include "ui/buttons/clickhandlers.h"
#include "ui/elements/uielement.h"
#include "ui/interfacestate.h"

namespace ZOVEngine {
namespace {

/// Of the height of a button: its art has a margin above and below.
constexpr float kTargetHeight = 0.8f;
constexpr float kEndFadeSpeed = 2.0f;  ///< of the alpha (unit: per second)
constexpr const char* kPreview = "menu_levelselect_preview";

constexpr std::array<std::string_view, 4> kKeyHints = {"ui_skip", "ui_cycle_right", "ui_cycle_left",
                                                       "ui_undo"};

struct LevelPreview {
  std::string_view click_name;
  const char* texture;
};
constexpr std::array<LevelPreview, 4> kPreviews = {{{"menu_level_01", "Menu_Preview_Level01"},
                                                    {"menu_level_02", "Menu_Preview_Level02"},
                                                    {"menu_level_03", "Menu_Preview_Level03"},
                                                    {"menu_level_04", "Menu_Preview_Level04"}}};

struct EndPlace {
  std::string_view click_name;
  Vector3D position;  ///< (unit: world units)
};

}  // namespace

template <class Visitor>
void Button::Fields(Visitor& visit) {
  visit("m_click_name", &Button::m_click_name);
  visit("m_usable_state", &Button::m_usable_state);
  visit("m_default_tex", &Button::m_default_tex);
  visit("m_highlight_tex", &Button::m_highlight_tex);
  visit("m_click_tex", &Button::m_click_tex);
}
ZOV_COMPONENT_FILE(Button)

void Button::Init() {
  m_init = true;
  if (const auto* render = FindComponent<Render>(m_owner)) m_default_tex = render->m_tex;
  m_end_fade_started = m_end_fade_done = false;
}

void Button::Destroy() {
  std::cout << "Button Destroy" << '\n';
}

void Button::Update(float dt) {
  m_dt = dt;
  const bool live = InterfaceState(m_owner) == m_usable_state;
  auto* render = FindComponent<Render>(m_owner);
  if (render == nullptr) return;
  if (!live) {
    Hide();
    return;
  }
  render->m_visible = true;
  if (g_state_machine->m_current == kDefaultState) FollowLevelEnd();
  if (!m_clicked) Hover();
  if (m_clicked) render->m_tex = m_click_tex;
  if (!m_hover && !m_clicked) render->m_tex = m_default_tex;
  m_clicked = false;
}

void Button::Hide() {
  m_hover = m_clicked = false;
  Render& render = *m_owner->GetComponent<Render>();
  render.m_tex = m_default_tex;
  render.m_visible = std::find(kKeyHints.begin(), kKeyHints.end(), m_click_name) != kKeyHints.end();
}

void Button::FollowLevelEnd() {
  GameController* game = FindController(m_owner);
  if (game == nullptr) return;
  if (!game->AllEnemiesDead() && game->AllPlayersDead()) TakePlaceOfDefeat();
  if (game->m_state == TURN_LEVEL_END && game->m_banner_done) FadeIn();
}

/// A lost level offers no way on: that button goes off the screen, the others close the gap.
void Button::TakePlaceOfDefeat() {
  static const std::array<EndPlace, 3> places = {
      {{"ui_end_mainmenu", Vector3D(0.0f, -190.0f, 1.0f)},
       {"ui_end_restart", Vector3D(0.0f, -70.0f, 1.0f)},
       {"ui_end_gotonext", Vector3D(10000.0f, -70.0f, 1.0f)}}};
  auto* transform = FindComponent<Transform>(m_owner);
  if (transform == nullptr) return;
  for (const EndPlace& place : places) {
    if (place.click_name == m_click_name) transform->m_local_pos = place.position;
  }
}

void Button::FadeIn() {
  if (!m_end_fade_started) {
    m_end_fade_started = true;
  } else if (!m_end_fade_done) {
    float& alpha = m_owner->GetComponent<Render>()->m_colour[3];
    alpha += kEndFadeSpeed * m_dt;
    if (alpha >= 1.0f) {
      alpha = 1.0f;
      m_end_fade_done = true;
    }
  }
}

void Button::Hover() {
  m_hover = IsUnderMouse();
  if (!m_hover) return;
  m_owner->GetComponent<Render>()->m_tex = m_highlight_tex;
  ShowPreview();
}

/// Buttons stay where they are on the screen, so the camera plays no part.
bool Button::IsUnderMouse() const {
  const auto* transform = FindComponent<Transform>(m_owner);
  if (transform == nullptr) return false;
  const Vector3D mouse = GetCursorScreenPosition();
  const Vector3D& place = transform->m_world_pos;
  const Vector3D& size = transform->m_world_scale;
  return std::abs(mouse.x - place.x) <= std::abs(size.x) * 0.5f &&
         std::abs(mouse.y - place.y) <= std::abs(size.y * kTargetHeight) * 0.5f;
}

void Button::ShowPreview() {
  const auto* preview =
      std::find_if(kPreviews.begin(), kPreviews.end(),
                   [this](const LevelPreview& level) { return level.click_name == m_click_name; });
  if (preview == kPreviews.end() || m_owner->parent == nullptr) return;
  ForEachChildWith<UIElement>(m_owner->parent, kPreview, [preview](UIElement* element) {
    auto* render = FindComponent<Render>(element->m_owner);
    if (render != nullptr && element->m_ui_element_name == kPreview)
      render->m_tex = preview->texture;
  });
}

void Button::OnMessage(Message* message) {
  if (message->id != kMouseButton) return;
  const auto& event = dynamic_cast<const MouseButton&>(*message);
  if (event.button != 0 || !m_hover || InterfaceState(m_owner) != m_usable_state) return;
  if (event.pressed == 0) CallClickHandler(this);
  m_clicked = true;
}

}  // namespace ZOVEngine
