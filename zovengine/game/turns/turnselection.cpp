#include "game/turns/turnselection.h"

#include <string_view>

#include "core/engine.h"
#include "core/messages.h"
#include "game/objectquery.h"
#include "game/turns/gamecontroller.h"
#include "game/units/enemy.h"
#include "game/units/unit.h"
#include "physics/components/transform.h"
#include "render/components/light.h"
#include "ui/elements/uielement.h"

namespace ZOVEngine {
namespace {

constexpr const char* kRing = "ui_selection_circle";
constexpr const char* kRingOff = "ui_selection_circle_off";
constexpr float kClosedRing = 2.0f;     ///< local scale of a ring that no longer holds the turn
constexpr float kSelectedLight = 1.5f;  ///< of a unit's light while it acts
constexpr float kReleasedLight = 0.6666667f;

/// The name of an object as an element of the interface; empty for an object that is none.
std::string_view ElementName(GameObj* object) {
  const auto* element = FindComponent<UIElement>(object);
  return element == nullptr ? std::string_view() : element->m_ui_element_name;
}

void RenameElement(GameObj* object, const char* element_name) {
  object->GetComponent<UIElement>()->m_ui_element_name = element_name;
}

void ScaleLight(GameObj* object, float factor) {
  if (auto* light = FindComponent<Light>(object)) light->m_diffuseStr *= factor;
}

void Release(GameObj* unit) {
  ScaleLight(unit, kReleasedLight);
  for (GameObj* child : unit->children) {
    if (ElementName(child) != kRing) continue;
    RenameElement(child, kRingOff);
    return;
  }
}

/// False if the damage of its status killed the unit.
bool SurvivesStatus(GameObj* object) {
  Unit& unit = *FindUnit(object);
  if (unit.m_status != "damaged") return true;
  unit.TakeHit(1);
  return unit.m_health >= 1;
}

void OpenRings(GameObj* unit) {
  for (GameObj* child : unit->children) {
    if (ElementName(child) == kRingOff) RenameElement(child, kRing);
  }
}

}  // namespace

bool SelectUnit(GameController* game, GameObj* unit) {
  if (game->m_selected != nullptr) Release(game->m_selected);
  game->m_selected = unit;
  ScaleLight(unit, kSelectedLight);
  if (!SurvivesStatus(unit)) {
    game->m_state = unit->HasComponent<Enemy>() ? TURN_ENEMY_NEXT : TURN_PLAYER_NEXT;
    return false;
  }
  SelectedUnit message;
  message.objectId = unit->id;
  g_engine->Broadcast(&message);
  OpenRings(unit);
  game->m_turn_start_pos = unit->GetComponent<Transform>()->m_world_pos;
  return true;
}

bool IsRingClosing(const GameController& game) {
  if (game.m_selected == nullptr) return false;
  for (GameObj* child : game.m_selected->children) {
    if (ElementName(child) != kRing) continue;
    const auto* transform = FindComponent<Transform>(child);
    if (transform != nullptr && transform->m_local_scale.x > kClosedRing) return true;
  }
  return false;
}

}  // namespace ZOVEngine
