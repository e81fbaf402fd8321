#include "ui/elements/hud.h"

#include <algorithm>
#include <string>

#include "game/componentkinds.h"
#include "game/objectquery.h"
#include "game/shots/projectileexplosion.h"
#include "game/shots/projectilevacuum.h"
#include "game/turns/gamecontroller.h"
#include "game/units/enemy.h"
#include "game/units/player.h"
#include "physics/components/transform.h"
#include "platform/inputsystem.h"
#include "render/components/font.h"
#include "render/components/render.h"
#include "ui/elements/uielement.h"

namespace ZOVEngine {
namespace {

constexpr float kDimmed = 0.3f;            ///< alpha of what is not live or not in hand
constexpr float kBarEasing = 0.45f;        ///< of the distance that the bar still has to go, a step
constexpr float kReachPerBlast = 1.6f;     ///< size of the circle over the reach of an explosion
constexpr float kReachPerVacuum = 1.75f;   ///< and over that of a vacuum
constexpr float kReachTurnPerStep = 0.3f;  ///< of the circle (unit: degrees)

constexpr const char* kShotNames[] = {"Weapon0Projectile", "Weapon1Projectile"};

/// The controller of a level with a selected unit, or null.
GameController* FindSelecting(UIElement* element) {
  GameController* game = FindController(element->m_owner);
  return game != nullptr && game->m_selected != nullptr ? game : nullptr;
}

const Enemy* FindBoss(GameObj* unit) {
  const auto* enemy = FindComponent<Enemy>(unit);
  return enemy != nullptr && enemy->m_boss ? enemy : nullptr;
}

/// The first shot of a weapon's object, in the order of their tables; null without one.
const Shot* FindShot(GameObj* unit, int weapon) {
  const Shot* first = nullptr;
  if (GameObj* object = FirstChildNamed(unit, kShotNames[weapon])) {
    ForEachKind<Shot>(object, [&first](const Shot* shot) {
      if (first == nullptr) first = shot;
    });
  }
  return first;
}

/// Of a shot that is both, the vacuum counts.
float FindReach(GameObj* shot) {
  if (const auto* vacuum = FindComponent<ProjectileVacuum>(shot)) {
    return vacuum->m_aoe * kReachPerVacuum;
  }
  if (const auto* blast = FindComponent<ProjectileExplosion>(shot)) {
    return blast->m_aoe * kReachPerBlast;
  }
  return 0.0f;
}

/// The share of its energy that a unit has left, at least 0; may be above 1. A unit that cannot
/// move has none.
float EnergyLeft(const Player& player) {
  if (player.m_movement_limit == 0.0f) return 0.0f;
  return std::max(0.0f, player.m_movement_curr / player.m_movement_limit);
}

}  // namespace

bool IsLevelLive(const GameController& game) {
  return game.m_ui_state == "ui_default" && game.m_state != TURN_LEVEL_END;
}

void ShowText(UIElement* element) {
  const GameController* game = FindController(element->m_owner);
  auto* font = FindComponent<Font>(element->m_owner);
  if (game != nullptr && font != nullptr) font->m_colour[3] = IsLevelLive(*game) ? 1.0f : 0.0f;
}

void ShowRound(UIElement* element) {
  ShowText(element);
  const GameController* game = FindController(element->m_owner);
  auto* font = FindComponent<Font>(element->m_owner);
  if (game != nullptr && font != nullptr) font->m_text = std::to_string(game->m_round + 1);
}

void ShowEnergy(UIElement* element) {
  const GameController* game = FindSelecting(element);
  if (game == nullptr) return;
  const auto* player = FindComponent<Player>(game->m_selected);
  if (player == nullptr) return;
  if (auto* bar = FindComponent<Transform>(element->m_owner)) {
    const float width = EnergyLeft(*player) * element->m_bar_scale;
    bar->m_local_scale.x = width;
    bar->m_local_pos.x -= (bar->m_local_pos.x - width * 0.5f - element->m_bar_left) * kBarEasing;
  }
  if (auto* render = FindComponent<Render>(element->m_owner)) {
    render->m_colour[3] = IsLevelLive(*game) ? 1.0f : kDimmed;
  }
}

template <int weapon>
void NameWeapon(UIElement* element) {
  const GameController* game = FindSelecting(element);
  auto* font = FindComponent<Font>(element->m_owner);
  if (game == nullptr || font == nullptr) return;
  if (const Enemy* boss = FindBoss(game->m_selected)) {
    font->m_text = weapon == 1 && !boss->m_phase_two ? "BASIC" : "EXPLOSION";
  } else if (const Shot* shot = FindShot(game->m_selected, weapon)) {
    font->m_text = shot->Look().name;
  }
  font->m_colour[3] = IsLevelLive(*game) ? 1.0f : 0.0f;
}

template <int weapon>
void ShowWeapon(UIElement* element) {
  const GameController* game = FindSelecting(element);
  auto* render = FindComponent<Render>(element->m_owner);
  if (game == nullptr || render == nullptr) return;
  bool bright = true;
  if (FindBoss(game->m_selected) != nullptr) {
    render->m_tex = "Gun_Boss";
  } else {
    const bool is_player = game->m_selected->HasComponent<Player>();
    if (const Shot* shot = FindShot(game->m_selected, weapon)) {
      render->m_tex = std::string(shot->Look().gun) + (is_player ? "_Green" : "_Red");
    }
    const Unit* unit = FindUnit(game->m_selected);
    bright = unit != nullptr && unit->m_selected_first_weapon == (weapon == 0);
  }
  render->m_colour[3] = bright && IsLevelLive(*game) ? 1.0f : kDimmed;
}

template void NameWeapon<0>(UIElement*);
template void NameWeapon<1>(UIElement*);
template void ShowWeapon<0>(UIElement*);
template void ShowWeapon<1>(UIElement*);

void ShowReach(UIElement* element) {
  auto* circle = FindComponent<Transform>(element->m_owner);
  if (circle == nullptr) return;
  circle->m_local_pos = GetCursorScreenPosition();
  const GameController* game = FindSelecting(element);
  if (game == nullptr) return;
  const auto* player = FindComponent<Player>(game->m_selected);
  if (player == nullptr) {
    circle->m_local_scale = Vector3D(0.0f, 0.0f, 1.0f);
    return;
  }
  GameObj* shot = player->HeldShot();
  const float reach = shot == nullptr ? 0.0f : FindReach(shot);
  circle->m_local_scale = Vector3D(reach, reach, 1.0f);
  circle->m_local_rotate += kReachTurnPerStep;
}

}  // namespace ZOVEngine
