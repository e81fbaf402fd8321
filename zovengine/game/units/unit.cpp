#include "game/units/unit.h"

#include <algorithm>
#include <climits>

#include "audio/audiosource.h"
#include "core/base/random.h"
#include "core/engine.h"
#include "game/componentkinds.h"
#include "game/objectquery.h"
#include "game/shots/shot.h"
#include "game/turns/gamecontroller.h"
#include "game/units/enemy.h"
#include "game/units/player.h"
#include "objects/statec.h"
#include "physics/components/colliderholder.h"
#include "physics/components/transform.h"
#include "render/components/animation.h"
#include "render/components/font.h"
#include "render/components/particlesystemc.h"
#include "render/components/render.h"
#include "ui/elements/uielement.h"

namespace ZOVEngine {
namespace {

constexpr float kFlash = 100000.0f;     ///< r, g, b of a unit that burns white
constexpr float kFlashTime = 0.09f;     ///< (unit: seconds)
constexpr float kLabelTime = 3.0f;      ///< (unit: seconds)
constexpr float kLabelFade = 0.5f;      ///< alpha a second
constexpr float kLabelRise = 1.0f;      ///< (unit: world units a step)
constexpr float kLabelOffset = 120.0f;  ///< beside the unit (unit: world units)
constexpr float kDeathScale = 3.0f;     ///< the death sheet is painted three times as wide
constexpr float kKeepScale = 0.33f;     ///< undoes it for what must keep its size
constexpr const char* kLabelName = "WeaponText";
constexpr const char* kBarName = "ui_hp_frame_filled";
constexpr const char* kFireName = "unit_fire";
constexpr const char* kCommonFire = "Sheet_Unit_Fire_";  ///< then the side's colour

void ScaleBy(GameObj* object, float factor) {
  if (auto* transform = FindComponent<Transform>(object)) transform->m_local_scale *= factor;
}

void SetVisible(GameObj* unit, const char* name, bool visible) {
  ForEachChildWith<Render>(unit, name, [visible](Render* render) { render->m_visible = visible; });
}

void HideBarrels(GameObj* unit) {
  for (const char* name : kBarrelNames) SetVisible(unit, name, false);
}

}  // namespace

Unit* FindUnit(GameObj* object) {
  if (auto* player = FindComponent<Player>(object)) return player;
  return FindComponent<Enemy>(object);
}

bool IsUnit(const GameObj& object) {
  return object.HasComponent<Player>() || object.HasComponent<Enemy>();
}

int AfterDamage(int health, std::int64_t damage) {
  const std::int64_t left = std::int64_t{health} - damage;
  return static_cast<int>(std::clamp<std::int64_t>(left, INT_MIN, INT_MAX));
}

void PaintObject(GameObj* object, float value) {
  auto* render = FindComponent<Render>(object);
  if (render == nullptr) return;
  for (std::size_t channel = 0; channel < 3; ++channel) render->m_colour[channel] = value;
}

void ShrinkHits(GameObj* shot) {
  ForEachChildNamed(shot, "bullet_hit", [](GameObj* hit) { ScaleBy(hit, kKeepScale); });
}

void Unit::LoseHealth(std::int64_t damage) {
  if (!g_engine->step_paused) m_health = AfterDamage(m_health, damage);
}

void Unit::TakeHit(std::int64_t damage) {
  LoseHealth(damage);
  Flash();
}

void Unit::Paint(float value) {
  PaintObject(m_owner, value);
  for (const char* name : kBarrelNames) {
    ForEachChildNamed(m_owner, name, [value](GameObj* barrel) { PaintObject(barrel, value); });
  }
}

void Unit::Flash() {
  Paint(kFlash);
}

void Unit::Bind() {
  m_init = true;
  if (auto* state = FindComponent<StateC>(m_owner)) {
    state->m_state = "spawn";
    PlaySound(m_owner, "unit_spawn.ogg");
  }
  ForEachChildWith<Transform>(m_owner, kBarName, [this](const Transform* bar) {
    m_hp_bar_width = bar->m_world_scale.x;
    m_hp_bar_scale = bar->m_local_scale.x;
    m_hp_bar_left = bar->m_local_pos.x - bar->m_world_scale.x * 0.5f;
    m_hp_bar_x = bar->m_local_pos.x;
  });
  ForEachChildWith<ParticleSystemC>(m_owner, "unit_damaged",
                                    [](ParticleSystemC* smoke) { smoke->m_emitting = false; });
}

bool Unit::RunUpkeep(const GameController* controller) {
  RunFlash();
  ShowStatus();
  if (m_show_weapon_label) RunWeaponLabel();
  FadeTexts(controller);
  const auto* state = FindComponent<StateC>(m_owner);
  if (state != nullptr && state->m_state == "spawn") {
    HideBarrels(m_owner);
    return false;
  }
  const auto* element = FindComponent<UIElement>(m_owner);
  return element == nullptr || element->m_ui_element_name != "ui_selection_circle";
}

void Unit::RunFlash() {
  if (m_owner->GetComponent<Render>()->m_colour[0] < kFlash || m_flash_timer > kFlashTime) {
    Paint(1.0f);
    m_flash_timer = 0.0f;
  } else {
    m_flash_timer += m_dt;
  }
}

void Unit::ShowStatus() {
  GameObj* sparks = FirstChildNamed(m_owner, "electricvfx");
  if (sparks == nullptr) return;
  if (auto* render = FindComponent<Render>(sparks)) render->m_visible = m_status == "damaged";
}

void Unit::RunWeaponLabel() {
  m_label_timer += m_dt;
  if (m_label_timer >= kLabelTime) {
    EndWeaponLabel();
    return;
  }
  ForEachChildWith<Render>(m_owner, kLabelName, [this](Render* label) {
    if (label->m_colour[3] <= 0.0f) {
      label->m_owner->SetActive(false);
    } else {
      label->m_colour[3] -= m_dt * kLabelFade;
    }
    if (auto* place = FindComponent<Transform>(label->m_owner)) place->m_local_pos.y += kLabelRise;
  });
}

void Unit::EndWeaponLabel() {
  ForEachChildWith<Render>(m_owner, kLabelName, [](Render* label) {
    label->m_colour[3] = 0.0f;
    label->m_owner->SetActive(false);
  });
  m_label_timer = 0.0f;
  m_show_weapon_label = false;
}

/// Hides the texts on a unit when a screen covers the level or the level is over.
void Unit::FadeTexts(const GameController* controller) {
  const bool live = controller == nullptr || (controller->m_ui_state == "ui_default" &&
                                              controller->m_state != TURN_LEVEL_END);
  if (live) return;
  for (GameObj* child : m_owner->children) {
    if (auto* font = FindComponent<Font>(child)) font->m_colour[3] = 0.0f;
  }
}

void Unit::ShowHeldBarrel() {
  SetVisible(m_owner, kBarrelNames[0], m_selected_first_weapon);
  SetVisible(m_owner, kBarrelNames[1], !m_selected_first_weapon);
}

void Unit::RunAlive() {
  TwitchIdly();
  Smoke();
  ShowHealth();
}

/// Now and then an idle unit plays its "once" sheet. Both moduli are deliberate: they make the
/// chance about 14 in 5000.
void Unit::TwitchIdly() {
  const bool twitch = (Rand() % 5000) % 362 == 0;
  auto* state = FindComponent<StateC>(m_owner);
  if (!twitch || state == nullptr || state->m_state != "default") return;
  state->m_state = "once";
  m_owner->GetComponent<Render>()->m_visible = true;
}

/// A hurt unit smokes from then on.
void Unit::Smoke() {
  if (!m_owner->HasComponent<StateC>() || m_health >= m_max_health) return;
  for (GameObj* child : m_owner->children) {
    if (auto* smoke = FindComponent<ParticleSystemC>(child)) {
      smoke->m_active = true;
      smoke->m_emitting = true;
    }
  }
}

/// The bar keeps its left edge while it shrinks; more health than the maximum makes it wider.
void Unit::ShowHealth() {
  ForEachChildWith<Font>(m_owner, "hp_font",
                         [this](Font* font) { font->m_text = std::to_string(m_health); });
  const float part =
      std::max(static_cast<float>(m_health) / static_cast<float>(m_max_health), 0.0f);
  const float width = part * m_hp_bar_width;
  ForEachChildWith<Transform>(m_owner, kBarName, [this, part, width](Transform* bar) {
    bar->m_world_scale.x = width;
    bar->m_local_scale.x = part * m_hp_bar_scale;
    bar->m_local_pos.x = m_hp_bar_left + width * 0.5f;
  });
}

void Unit::FallApart() {
  Paint(1.0f);
  StopColliding();
  StartDeathSheet();
  for (GameObj* child : m_owner->children) {
    ShrinkHits(child);
    if (child->name == "electricvfx" || child->name == kLabelName) ScaleBy(child, kKeepScale);
  }
  HideMarks();
  m_alive = false;
}

void Unit::StartDeathSheet() {
  SetState(m_owner, "death");
  ScaleBy(m_owner, kDeathScale);
  PlaySound(m_owner, "unit_death.ogg");
  HideBarrels(m_owner);
}

void Unit::HideMarks() {
  SetVisible(m_owner, "ui_selected", false);
  for (GameObj* child : m_owner->children) {
    if (auto* font = FindComponent<Font>(child)) font->m_text.clear();
    if (child->name == "ui_hp_frame" || child->name == "ui_hp_frame_empty") {
      if (auto* frame = FindComponent<Transform>(child)) frame->m_local_scale /= kDeathScale;
    }
  }
  ForEachChildWith<Transform>(m_owner, kBarName,
                              [](Transform* bar) { bar->m_local_scale.x = 0.0f; });
}

void Unit::StopColliding() {
  if (auto* holder = FindComponent<ColliderHolder>(m_owner)) holder->m_active = false;
}

GameObj* Unit::HeldShot() const {
  return FirstChildNamed(m_owner,
                         m_selected_first_weapon ? "Weapon0Projectile" : "Weapon1Projectile");
}

/// Of several shots in one object the last launches it: each begins by dropping the forces that
/// wait.
void Unit::FireHeldWeapon(const Vector3D& muzzle, const Vector3D& direction) {
  GameObj* held = HeldShot();
  if (held == nullptr) return;
  ForEachKind<Shot>(held, [&](Shot* shot) {
    shot->Fire(muzzle, direction);
    if (shot->HasLateMuzzleEffect()) m_pierce_pending = true;
  });
}

GameObj* Unit::FirstBarrel() const {
  for (GameObj* child : m_owner->children) {
    if (child->name == kBarrelNames[0] || child->name == kBarrelNames[1]) return child;
  }
  return nullptr;
}

void Unit::ShowMuzzleFire(const char* flash) {
  ForEachChildWith<Animation>(m_owner, kFireName, [flash](Animation* sprite) {
    const bool common = sprite->m_once.starts_with(kCommonFire);
    sprite->m_once_instead = common ? flash : nullptr;
  });
  PlayOnce(kFireName);
  PlaySound(m_owner, "unit_fire.ogg");
}

void Unit::PlayOnce(const char* name) {
  ForEachChildWith<Animation>(m_owner, name, [](const Animation* sprite) {
    SetState(sprite->m_owner, "once");
    if (auto* render = FindComponent<Render>(sprite->m_owner)) render->m_visible = true;
  });
}

namespace {

const std::string& KindName(const Shot& shot) {
  return g_game_obj_factory->TypeName(&typeid(shot));
}

/// The shot in `held` that names the weapon: of several the last by class name. Null without one.
const Shot* FindNamingShot(GameObj* held) {
  const Shot* naming = nullptr;
  ForEachKind<Shot>(held, [&naming](const Shot* shot) {
    if (naming == nullptr || KindName(*naming) < KindName(*shot)) naming = shot;
  });
  return naming;
}

}  // namespace

const char* Unit::HeldFlash() const {
  GameObj* held = HeldShot();
  const Shot* shot = held != nullptr ? FindNamingShot(held) : nullptr;
  return shot != nullptr ? shot->Look().flash : nullptr;
}

void Unit::ShowWeaponLabel() {
  m_show_weapon_label = true;
  GameObj* held = HeldShot();
  if (const Shot* shot = held != nullptr ? FindNamingShot(held) : nullptr) {
    const WeaponLook look = shot->Look();
    m_weapon_label_tex = look.label;
    m_weapon_label_size = {look.label_width, look.label_height};
  }
  ForEachChildWith<Render>(m_owner, kLabelName, [this](Render* label) {
    label->m_owner->SetActive(true);
    label->m_tex = m_weapon_label_tex;
    label->m_colour[3] = 1.0f;
    auto* transform = FindComponent<Transform>(label->m_owner);
    if (transform == nullptr) return;
    transform->m_local_scale = Vector3D(m_weapon_label_size[0], m_weapon_label_size[1], 1.0f);
    transform->m_local_pos = Vector3D(kLabelOffset, 0.0f, 0.0f);
  });
  m_label_timer = 0.0f;
}

}  // namespace ZOVEngine
