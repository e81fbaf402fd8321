#include "game/turns/turninput.h"

#include <rttr/type>

#include <array>
#include <iostream>

#include "core/engine.h"
#include "core/messages.h"
#include "game/objectquery.h"
#include "game/turns/gamecontroller.h"
#include "game/turns/turnselection.h"
#include "game/units/enemy.h"
#include "game/units/player.h"
#include "game/units/unit.h"
#include "physics/components/transform.h"
#include "platform/virtualkeys.h"

namespace ZOVEngine {
namespace {

/// By PlayerDirectionKey::direction.
constexpr std::array kDirections = {Vector3D(0.0f, 1.0f, 0.0f), Vector3D(0.0f, -1.0f, 0.0f),
                                    Vector3D(-1.0f, 0.0f, 0.0f), Vector3D(1.0f, 0.0f, 0.0f)};
constexpr float kSlowedPushTime = 0.05f;  ///< (unit: seconds)
constexpr int kCheatHealth = 100;
constexpr const char* kClick = "button_click.ogg";

template <class M>
M& As(Message* message) {
  return dynamic_cast<M&>(*message);
}

}  // namespace

void TurnInput::Take(Message* message) {
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
    case kGameLoseFocus:
      if (As<GameLoseFocus>(message).lost != 0) LoseFocus();
      break;
    default:
      break;
  }
}

bool TurnInput::IsPlayersTurn() const {
  return m_game.m_selected != nullptr &&
         (m_game.m_state == TURN_PLAYER_MOVE || m_game.m_state == TURN_PLAYER_AIM);
}

/// A button under the cursor does not keep a unit from firing; another screen does.
void TurnInput::FireSelected() {
  if (!IsPlayersTurn() || IsRingClosing(m_game) || m_game.m_ui_state != "ui_default") return;
  std::cout << "Player Shoot" << '\n';
  Player& player = *m_game.m_selected->GetComponent<Player>();
  player.Fire(m_game.MouseWorldPos());
  player.m_acted = true;
  m_game.m_state = TURN_PLAYER_NEXT;
}

/// Energy is spent by the time that a key is held: a slowed unit pays the same for half the push.
/// The release of a key counts as one more step of holding it.
void TurnInput::PushSelected(std::uint32_t direction) {
  if (m_game.m_selected == nullptr || m_game.m_state != TURN_PLAYER_MOVE || IsRingClosing(m_game))
    return;
  if (g_engine->paused) return;
  if (direction >= kDirections.size()) return;
  Player& player = *m_game.m_selected->GetComponent<Player>();
  AddForceToObject push(m_game.m_selected->id, kDirections[direction], player.m_movement_mag,
                        player.m_status == "slowed" ? kSlowedPushTime : kDrivePushTime);
  g_engine->Broadcast(&push);
  PlaySound(m_game.m_owner, "tank_move.ogg");
  player.m_movement_curr -= kEnergyPerPush;
}

void TurnInput::TakeKey(std::uint64_t key) {
  switch (key) {
    case kVkEscape:
      ToggleScreen();
      break;
    case kVkSpace:
      m_game.RequestRestart();
      break;
    case kVkB:
      ToggleDebug();
      break;
    case kVkG:
      HealPlayers();
      break;
    case kVkH:
      KillEnemies();
      break;
    default:
      TakeUnitKey(key);
  }
}

/// The keys that act on the selected unit do nothing in a pause.
void TurnInput::TakeUnitKey(std::uint64_t key) {
  if (g_engine->paused) return;
  switch (key) {
    case kVkF:
      SkipUnit();
      break;
    case kVkQ:
      SwitchWeapon();
      break;
    case kVkR:
      UndoMove();
      break;
    default:
      break;
  }
}

/// Pauses, or returns to the level from any screen that covers it.
void TurnInput::ToggleScreen() {
  if (m_game.m_ui_state == "ui_default") {
    PlaySound(m_game.m_owner, kClick);
    m_game.m_ui_state = "ui_pause";
  } else {
    m_game.m_ui_state = "ui_default";
  }
  g_engine->paused = !g_engine->paused;
}

void TurnInput::LoseFocus() {
  m_game.m_ui_state = "ui_pause";
  g_engine->paused = true;
}

void TurnInput::ToggleDebug() {
  m_game.m_debug = !m_game.m_debug;
  for (System* system : g_engine->systems) {
    const rttr::method set_debug = rttr::type::get(*system).get_method("SetDebug");
    if (set_debug.is_valid()) set_debug.invoke(*system, m_game.m_debug);
  }
}

/// Ends the turn of a player unit, in whatever state the machine is.
void TurnInput::SkipUnit() {
  PlaySound(m_game.m_owner, kClick);
  auto* player = m_game.m_selected ? FindComponent<Player>(m_game.m_selected) : nullptr;
  if (player == nullptr) return;
  player->m_acted = true;
  m_game.m_state = TURN_PLAYER_NEXT;
}

void TurnInput::HealPlayers() {
  for (GameObj* object : m_game.m_players) {
    Player& player = *object->GetComponent<Player>();
    player.m_health = player.m_max_health = kCheatHealth;
  }
}

void TurnInput::KillEnemies() {
  for (GameObj* object : m_game.m_enemies) object->GetComponent<Enemy>()->m_health = 0;
}

void TurnInput::SwitchWeapon() {
  if (!IsPlayersTurn()) return;
  if (Unit* unit = FindUnit(m_game.m_selected)) {
    unit->m_selected_first_weapon = !unit->m_selected_first_weapon;
    unit->ShowWeaponLabel();
  }
  PlaySound(m_game.m_owner, kClick);
}

/// Puts the unit back where its turn began, with full energy. Forces that still act on it go on.
void TurnInput::UndoMove() {
  if (!IsPlayersTurn()) return;
  m_game.m_selected->GetComponent<Transform>()->SetLocalPosition(m_game.m_turn_start_pos);
  if (auto* player = FindComponent<Player>(m_game.m_selected)) {
    player->m_movement_curr = player->m_movement_limit;
  }
  RigidBody& body = *m_game.m_selected->GetComponent<RigidBody>();
  body.m_vel = body.m_prev_vel = Vector3D();
  m_game.m_state = TURN_PLAYER_MOVE;
}

}  // namespace ZOVEngine
