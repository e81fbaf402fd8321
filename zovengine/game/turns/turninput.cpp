#include <rttr/type>

#include <array>
#include <iostream>

#include "core/engine.h"
#include "core/messages.h"
#include "game/objectquery.h"
#include "game/turns/gamecontroller.h"
#include "game/units/enemy.h"
#include "game/units/player.h"
#include "game/units/unit.h"
#include "physics/components/transform.h"

namespace ZOVEngine {
namespace {

/// Virtual-key codes.
enum Key : std::uint64_t {
  kKeyEscape = 27,
  kKeySpace = 32,
  kKeyB = 66,
  kKeyF = 70,
  kKeyG = 71,
  kKeyH = 72,
  kKeyQ = 81,
  kKeyR = 82,
};

/// By PlayerDirectionKey::direction.
constexpr std::array kDirections = {Vector3D(0.0f, 1.0f, 0.0f), Vector3D(0.0f, -1.0f, 0.0f),
                                    Vector3D(-1.0f, 0.0f, 0.0f), Vector3D(1.0f, 0.0f, 0.0f)};
constexpr float kPushTime = 0.1f;  ///< (unit: seconds)
constexpr float kSlowedPushTime = 0.05f;
constexpr float kEnergyPerPush = 0.016f;
constexpr int kCheatHealth = 100;
constexpr const char* kClick = "button_click.ogg";

template <class M>
M& As(Message* message) {
  return dynamic_cast<M&>(*message);
}

template <class Unit>
void SwitchWeaponOf(Unit* unit) {
  if (unit == nullptr) return;
  unit->m_selected_first_weapon = !unit->m_selected_first_weapon;
  unit->ShowWeaponLabel();
}

}  // namespace

void GameController::OnMessage(Message* message) {
  switch (message->id) {
    case kMouseButton: {
      const auto& click = As<MouseButton>(message);
      if (click.button == 0 && click.pressed != 0) FireSelected();
      break;
    }
    case kPlayerDirectionKey:
      PushSelected(As<PlayerDirectionKey>(message).direction);
      break;
    case kKeyUp:
      TakeKey(As<KeyUp>(message).key);
      break;
    case kSelectedUnit:
      if (m_selected != nullptr) As<SelectedUnit>(message).objectId = m_selected->id;
      break;
    case kCurrGC:
      As<CurrGC>(message).objectId = m_owner->id;
      break;
    case kGameLoseFocus:
      if (As<GameLoseFocus>(message).lost != 0) LoseFocus();
      break;
    default:
      break;
  }
}

/// A button under the cursor does not keep a unit from firing; another screen does.
void GameController::FireSelected() {
  if (!IsPlayersTurn() || IsRingClosing() || m_ui_state != "ui_default") return;
  std::cout << "Player Shoot" << '\n';
  Player& player = *m_selected->GetComponent<Player>();
  player.Fire(MouseWorldPos());
  player.m_acted = true;
  m_state = TURN_PLAYER_NEXT;
}

/// Energy is spent by the time that a key is held: a slowed unit pays the same for half the push.
/// The release of a key counts as one more step of holding it.
void GameController::PushSelected(std::uint32_t direction) {
  if (m_selected == nullptr || m_state != TURN_PLAYER_MOVE || IsRingClosing()) return;
  if (direction >= kDirections.size()) return;
  Player& player = *m_selected->GetComponent<Player>();
  AddForceToObject push(m_selected->id, kDirections[direction], player.m_movement_mag,
                        player.m_status == "slowed" ? kSlowedPushTime : kPushTime);
  g_engine->Broadcast(&push);
  PlaySound(m_owner, "tank_move.ogg");
  player.m_movement_curr -= kEnergyPerPush;
}

void GameController::TakeKey(std::uint64_t key) {
  switch (key) {
    case kKeyEscape:
      ToggleScreen();
      break;
    case kKeySpace:
      RequestRestart();
      break;
    case kKeyB:
      ToggleDebug();
      break;
    case kKeyF:
      SkipUnit();
      break;
    case kKeyG:
      HealPlayers();
      break;
    case kKeyH:
      KillEnemies();
      break;
    case kKeyQ:
      SwitchWeapon();
      break;
    case kKeyR:
      UndoMove();
      break;
    default:
      break;
  }
}

/// Pauses, or goes back to the level from whatever screen covers it.
void GameController::ToggleScreen() {
  if (m_ui_state == "ui_default") {
    PlaySound(m_owner, kClick);
    m_ui_state = "ui_pause";
  } else {
    m_ui_state = "ui_default";
  }
  g_engine->paused = !g_engine->paused;
}

void GameController::LoseFocus() {
  m_ui_state = "ui_pause";
  g_engine->paused = true;
}

void GameController::ToggleDebug() {
  m_debug = !m_debug;
  for (System* system : g_engine->systems) {
    const rttr::method set_debug = rttr::type::get(*system).get_method("SetDebug");
    if (set_debug.is_valid()) set_debug.invoke(*system, m_debug);
  }
}

/// Ends the turn of a player unit, in whatever state the machine is.
void GameController::SkipUnit() {
  PlaySound(m_owner, kClick);
  auto* player = m_selected ? FindComponent<Player>(m_selected) : nullptr;
  if (player == nullptr) return;
  player->m_acted = true;
  m_state = TURN_PLAYER_NEXT;
}

void GameController::HealPlayers() {
  for (GameObj* object : m_players) {
    Player& player = *object->GetComponent<Player>();
    player.m_health = player.m_max_health = kCheatHealth;
  }
}

void GameController::KillEnemies() {
  for (GameObj* object : m_enemies) object->GetComponent<Enemy>()->m_health = 0;
}

void GameController::SwitchWeapon() {
  if (!IsPlayersTurn()) return;
  SwitchWeaponOf(FindComponent<Player>(m_selected));
  SwitchWeaponOf(FindComponent<Enemy>(m_selected));
  PlaySound(m_owner, kClick);
}

/// Brings the unit back to where its turn began, with full energy. Forces that still act on it go
/// on.
void GameController::UndoMove() {
  if (!IsPlayersTurn()) return;
  m_selected->GetComponent<Transform>()->SetLocalPosition(m_turn_start_pos);
  if (auto* player = FindComponent<Player>(m_selected)) {
    player->m_movement_curr = player->m_movement_limit;
  }
  RigidBody& body = *m_selected->GetComponent<RigidBody>();
  body.m_vel = body.m_prev_vel = Vector3D();
  m_state = TURN_PLAYER_MOVE;
}

}  // namespace ZOVEngine
