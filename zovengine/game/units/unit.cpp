#include "game/units/unit.h"

#include <algorithm>
#include <climits>

#include "audio/audiosource.h"
#include "core/base/random.h"
#include "game/objectquery.h"
#include "game/shots/projectilebounce.h"
#include "game/shots/projectiledefault.h"
#include "game/shots/projectileexplosion.h"
#include "game/shots/projectilepierce.h"
#include "game/shots/projectilepush.h"
#include "game/shots/projectileswap.h"
#include "game/shots/projectilevacuum.h"
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

bool IsUnit(const GameObj& object) {
  return object.HasComponent<Player>() || object.HasComponent<Enemy>();
}

int AfterDamage(int health, std::int64_t damage) {
  const std::int64_t left = std::int64_t{health} - damage;
  return static_cast<int>(std::clamp<std::int64_t>(left, INT_MIN, INT_MAX));
}

int* HealthOf(GameObj* object) {
  if (auto* player = FindComponent<Player>(object)) return &player->m_health;
  if (auto* enemy = FindComponent<Enemy>(object)) return &enemy->m_health;
  return nullptr;
}

std::string* StatusOf(GameObj* object) {
  if (auto* player = FindComponent<Player>(object)) return &player->m_status;
  if (auto* enemy = FindComponent<Enemy>(object)) return &enemy->m_status;
  return nullptr;
}

void Paint(GameObj* object, float value) {
  auto* render = FindComponent<Render>(object);
  if (render == nullptr) return;
  for (std::size_t channel = 0; channel < 3; ++channel) render->m_colour[channel] = value;
}

void PaintUnit(GameObj* unit, float value) {
  Paint(unit, value);
  for (const char* name : kBarrelNames) {
    ForEachChildNamed(unit, name, [value](GameObj* barrel) { Paint(barrel, value); });
  }
}

void FlashUnit(GameObj* unit) {
  PaintUnit(unit, kFlash);
}

template <class Unit>
void BindUnit(Unit* unit) {
  GameObj* object = unit->m_owner;
  unit->m_init = true;
  if (auto* state = FindComponent<StateC>(object)) {
    state->m_state = "spawn";
    PlaySound(object, "unit_spawn.ogg");
  }
  ForEachChildWith<Transform>(object, kBarName, [unit](const Transform* bar) {
    unit->m_hp_bar_width = bar->m_world_scale.x;
    unit->m_hp_bar_scale = bar->m_local_scale.x;
    unit->m_hp_bar_left = bar->m_local_pos.x - bar->m_world_scale.x * 0.5f;
    unit->m_hp_bar_x = bar->m_local_pos.x;
  });
  ForEachChildWith<ParticleSystemC>(object, "unit_damaged",
                                    [](ParticleSystemC* smoke) { smoke->m_emitting = false; });
}

namespace {

template <class Unit>
void RunFlash(Unit* unit, float dt) {
  if (unit->m_owner->template GetComponent<Render>()->m_colour[0] < kFlash ||
      unit->m_flash_timer > kFlashTime) {
    PaintUnit(unit->m_owner, 1.0f);
    unit->m_flash_timer = 0.0f;
  } else {
    unit->m_flash_timer += dt;
  }
}

void ShowStatus(GameObj* unit, const std::string& status) {
  GameObj* sparks = FirstChildNamed(unit, "electricvfx");
  if (sparks == nullptr) return;
  if (auto* render = FindComponent<Render>(sparks)) render->m_visible = status == "damaged";
}

template <class Unit>
void EndWeaponLabel(Unit* unit) {
  ForEachChildWith<Render>(unit->m_owner, kLabelName, [](Render* label) {
    label->m_colour[3] = 0.0f;
    label->m_owner->SetActive(false);
  });
  unit->m_label_timer = 0.0f;
  unit->m_show_weapon_label = false;
}

template <class Unit>
void RunWeaponLabel(Unit* unit) {
  unit->m_label_timer += unit->m_dt;
  if (unit->m_label_timer >= kLabelTime) {
    EndWeaponLabel(unit);
    return;
  }
  ForEachChildWith<Render>(unit->m_owner, kLabelName, [unit](Render* label) {
    if (label->m_colour[3] <= 0.0f) {
      label->m_owner->SetActive(false);
    } else {
      label->m_colour[3] -= unit->m_dt * kLabelFade;
    }
    if (auto* place = FindComponent<Transform>(label->m_owner)) place->m_local_pos.y += kLabelRise;
  });
}

/// Hides the texts on a unit when a screen covers the level or the level is over.
void FadeTexts(GameObj* unit, const GameController* controller) {
  const bool live = controller == nullptr || (controller->m_ui_state == "ui_default" &&
                                              controller->m_state != TURN_LEVEL_END);
  if (live) return;
  for (GameObj* child : unit->children) {
    if (auto* font = FindComponent<Font>(child)) font->m_colour[3] = 0.0f;
  }
}

}  // namespace

template <class Unit>
bool RunUpkeep(Unit* unit, const GameController* controller, float dt) {
  GameObj* object = unit->m_owner;
  RunFlash(unit, dt);
  ShowStatus(object, unit->m_status);
  if (unit->m_show_weapon_label) RunWeaponLabel(unit);
  FadeTexts(object, controller);
  const auto* state = FindComponent<StateC>(object);
  if (state != nullptr && state->m_state == "spawn") {
    HideBarrels(object);
    return false;
  }
  const auto* element = FindComponent<UIElement>(object);
  return element == nullptr || element->m_ui_element_name != "ui_selection_circle";
}

template <class Unit>
void ShowHeldBarrel(Unit* unit) {
  SetVisible(unit->m_owner, kBarrelNames[0], unit->m_selected_first_weapon);
  SetVisible(unit->m_owner, kBarrelNames[1], !unit->m_selected_first_weapon);
}

namespace {

/// Now and then an idle unit plays its "once" sheet. Both moduli are deliberate: they make the
/// chance about 14 in 5000.
void TwitchIdly(GameObj* unit) {
  const bool twitch = (Rand() % 5000) % 362 == 0;
  auto* state = FindComponent<StateC>(unit);
  if (!twitch || state == nullptr || state->m_state != "default") return;
  state->m_state = "once";
  unit->GetComponent<Render>()->m_visible = true;
}

/// A hurt unit smokes from then on.
template <class Unit>
void Smoke(Unit* unit) {
  GameObj* object = unit->m_owner;
  if (!object->template HasComponent<StateC>() || unit->m_health >= unit->m_max_health) return;
  for (GameObj* child : object->children) {
    if (auto* smoke = FindComponent<ParticleSystemC>(child)) {
      smoke->m_active = true;
      smoke->m_emitting = true;
    }
  }
}

/// The bar keeps its left edge while it shrinks; more health than the maximum makes it wider.
template <class Unit>
void ShowHealth(Unit* unit) {
  GameObj* object = unit->m_owner;
  ForEachChildWith<Font>(object, "hp_font",
                         [unit](Font* font) { font->m_text = std::to_string(unit->m_health); });
  const float part =
      std::max(static_cast<float>(unit->m_health) / static_cast<float>(unit->m_max_health), 0.0f);
  const float width = part * unit->m_hp_bar_width;
  ForEachChildWith<Transform>(object, kBarName, [=](Transform* bar) {
    bar->m_world_scale.x = width;
    bar->m_local_scale.x = part * unit->m_hp_bar_scale;
    bar->m_local_pos.x = unit->m_hp_bar_left + width * 0.5f;
  });
}

}  // namespace

template <class Unit>
void RunAlive(Unit* unit) {
  TwitchIdly(unit->m_owner);
  Smoke(unit);
  ShowHealth(unit);
}

void StartDeathSheet(GameObj* unit) {
  SetState(unit, "death");
  ScaleBy(unit, kDeathScale);
  PlaySound(unit, "unit_death.ogg");
  HideBarrels(unit);
}

void ShrinkHits(GameObj* shot) {
  ForEachChildNamed(shot, "bullet_hit", [](GameObj* hit) { ScaleBy(hit, kKeepScale); });
}

void StopColliding(GameObj* unit) {
  if (auto* holder = FindComponent<ColliderHolder>(unit)) holder->m_active = false;
}

void HideMarks(GameObj* unit) {
  SetVisible(unit, "ui_selected", false);
  for (GameObj* child : unit->children) {
    if (auto* font = FindComponent<Font>(child)) font->m_text.clear();
    if (child->name == "ui_hp_frame" || child->name == "ui_hp_frame_empty") {
      if (auto* frame = FindComponent<Transform>(child)) frame->m_local_scale /= kDeathScale;
    }
  }
  ForEachChildWith<Transform>(unit, kBarName, [](Transform* bar) { bar->m_local_scale.x = 0.0f; });
}

template <class Unit>
void FallApart(Unit* unit) {
  GameObj* object = unit->m_owner;
  PaintUnit(object, 1.0f);
  StopColliding(object);
  StartDeathSheet(object);
  for (GameObj* child : object->children) {
    ShrinkHits(child);
    if (child->name == "electricvfx" || child->name == kLabelName) ScaleBy(child, kKeepScale);
  }
  HideMarks(object);
  unit->m_alive = false;
}

template <class Unit>
GameObj* HeldShot(Unit* unit) {
  return FirstChildNamed(unit->m_owner,
                         unit->m_selected_first_weapon ? "Weapon0Projectile" : "Weapon1Projectile");
}

namespace {

template <class Shot>
void FireIfPresent(GameObj* object, const Vector3D& muzzle, const Vector3D& direction) {
  if (auto* shot = FindComponent<Shot>(object)) shot->Fire(muzzle, direction);
}

}  // namespace

template <class Unit>
bool FireHeldWeapon(Unit* unit, const Vector3D& muzzle, const Vector3D& direction) {
  GameObj* shot = HeldShot(unit);
  if (shot == nullptr) return false;
  FireIfPresent<ProjectileDefault>(shot, muzzle, direction);
  FireIfPresent<ProjectilePush>(shot, muzzle, direction);
  FireIfPresent<ProjectileSwap>(shot, muzzle, direction);
  FireIfPresent<ProjectileBounce>(shot, muzzle, direction);
  FireIfPresent<ProjectileExplosion>(shot, muzzle, direction);
  FireIfPresent<ProjectileVacuum>(shot, muzzle, direction);
  FireIfPresent<ProjectilePierce>(shot, muzzle, direction);
  return shot->HasComponent<ProjectilePierce>();
}

void PlayOnce(GameObj* unit, const char* name) {
  ForEachChildWith<Animation>(unit, name, [](const Animation* sprite) {
    SetState(sprite->m_owner, "once");
    if (auto* render = FindComponent<Render>(sprite->m_owner)) render->m_visible = true;
  });
}

void ShowMuzzleFire(GameObj* unit) {
  PlayOnce(unit, "unit_fire");
  PlaySound(unit, "unit_fire.ogg");
}

GameObj* FirstBarrel(GameObj* unit) {
  for (GameObj* child : unit->children) {
    if (child->name == kBarrelNames[0] || child->name == kBarrelNames[1]) return child;
  }
  return nullptr;
}

namespace {

/// The label of a kind of weapon: texture and size in the unit's scale.
struct WeaponLabel {
  bool (*is_carried)(const GameObj& shot);
  const char* texture;
  float width;
};

template <class Shot>
bool Carries(const GameObj& shot) {
  return shot.HasComponent<Shot>();
}

constexpr float kLabelHeight = 1.104f;
/// Of several kinds in one shot the last counts.
constexpr WeaponLabel kWeaponLabels[] = {
    {Carries<ProjectileBounce>, "WeaponFloat_Bounce", 3.104f},
    {Carries<ProjectileDefault>, "WeaponFloat_Basic", 2.32f},
    {Carries<ProjectileExplosion>, "WeaponFloat_Explosion", 3.813f},
    {Carries<ProjectilePierce>, "WeaponFloat_Pierce", 3.104f},
    {Carries<ProjectilePush>, "WeaponFloat_Push", 2.32f},
    {Carries<ProjectileSwap>, "WeaponFloat_Swap", 2.32f},
    {Carries<ProjectileVacuum>, "WeaponFloat_Vacuum", 3.104f},
};

}  // namespace

template <class Unit>
void StartWeaponLabel(Unit* unit) {
  unit->m_show_weapon_label = true;
  if (const GameObj* shot = HeldShot(unit)) {
    for (const WeaponLabel& label : kWeaponLabels) {
      if (!label.is_carried(*shot)) continue;
      unit->m_weapon_label_tex = label.texture;
      unit->m_weapon_label_size = {label.width, kLabelHeight};
    }
  }
  ForEachChildWith<Render>(unit->m_owner, kLabelName, [unit](Render* label) {
    label->m_owner->SetActive(true);
    label->m_tex = unit->m_weapon_label_tex;
    label->m_colour[3] = 1.0f;
    auto* transform = FindComponent<Transform>(label->m_owner);
    if (transform == nullptr) return;
    transform->m_local_scale =
        Vector3D(unit->m_weapon_label_size[0], unit->m_weapon_label_size[1], 1.0f);
    transform->m_local_pos = Vector3D(kLabelOffset, 0.0f, 0.0f);
  });
  unit->m_label_timer = 0.0f;
}

// Made here for the two kinds of unit that there are.
template void BindUnit(Player*);
template void BindUnit(Enemy*);
template bool RunUpkeep(Player*, const GameController*, float);
template bool RunUpkeep(Enemy*, const GameController*, float);
template void ShowHeldBarrel(Player*);
template void ShowHeldBarrel(Enemy*);
template void RunAlive(Player*);
template void RunAlive(Enemy*);
template void FallApart(Player*);
template void FallApart(Enemy*);
template GameObj* HeldShot(Player*);
template GameObj* HeldShot(Enemy*);
template bool FireHeldWeapon(Player*, const Vector3D&, const Vector3D&);
template bool FireHeldWeapon(Enemy*, const Vector3D&, const Vector3D&);
template void StartWeaponLabel(Player*);
template void StartWeaponLabel(Enemy*);

}  // namespace ZOVEngine
