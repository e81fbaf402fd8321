#include "game/turns/turnmachine.h"

#include <cmath>
#include <iostream>

#include "core/base/random.h"
#include "core/engine.h"
#include "core/messages.h"
#include "game/objectquery.h"
#include "game/turns/gamecontroller.h"
#include "game/turns/turnselection.h"
#include "game/units/aicomp.h"
#include "game/units/enemy.h"
#include "game/units/player.h"
#include "game/units/unit.h"
#include "objects/statec.h"
#include "physics/components/transform.h"
#include "ui/elements/uielement.h"

namespace ZOVEngine {

bool g_player_move_printed = false;

namespace {

constexpr float kDrivingSpeed = 10.0f;  ///< that is heard (unit: world units per second)
constexpr float kShotPerLine = 1.6f;    ///< width of a shot to the width of the aim line
constexpr float kLineAlpha = 0.25f;

}  // namespace

void TurnMachine::Step() {
  if (!IsHeldBack()) RunTurn();
}

/// The turn waits while the selected unit spawns, its ring closes in, or it is a boss that dies. A
/// boss that is dead keeps `m_dying`, and holds nothing.
bool TurnMachine::IsHeldBack() const {
  if (m_game.m_selected == nullptr) return false;
  const auto* state = FindComponent<StateC>(m_game.m_selected);
  const bool spawns =
      m_game.m_selected->HasComponent<UIElement>() && state && state->m_state == "spawn";
  const auto* enemy = FindComponent<Enemy>(m_game.m_selected);
  const bool dies = enemy != nullptr && enemy->m_boss && enemy->m_dying && enemy->m_alive;
  return spawns || IsRingClosing(m_game) || dies;
}

void TurnMachine::RunTurn() {
  switch (m_game.m_state) {
    case TURN_ENEMY_MOVE:
      EnemyMove();
      break;
    case TURN_PLAYER_MOVE:
      PlayerMove();
      break;
    case TURN_PLAYER_AIM:
      PlayerAim();
      break;
    default:
      if (m_game.AllBodiesAtRest()) RunAtRest();
  }
}

/// The states that wait until everything that was pushed or shot has slowed down.
void TurnMachine::RunAtRest() {
  switch (m_game.m_state) {
    case TURN_ENEMY_NEXT:
      EnemyNext();
      break;
    case TURN_ENEMY_SHOOT:
      EnemyShoot();
      break;
    case TURN_ENEMY_SELECT:
      EnemySelect();
      break;
    case TURN_ENEMY_AIM:
      EnemyAim();
      break;
    case TURN_PLAYER_NEXT:
      PlayerNext();
      break;
    case TURN_PLAYER_SELECT:
      PlayerSelect();
      break;
    default:
      break;
  }
}

void TurnMachine::EnemyNext() {
  if (m_game.AllEnemiesActed()) {
    EndEnemyTurn();
    return;
  }
  std::cout << "Enemy Turn Begin" << '\n';
  m_game.m_state = TURN_ENEMY_SELECT;
}

void TurnMachine::EndEnemyTurn() {
  std::cout << "Enemy Turn End" << '\n';
  m_game.ResetEnemies();
  m_game.m_state = TURN_PLAYER_NEXT;
}

/// A boss that has died never ends its change of phase, so only a living one is waited for.
void TurnMachine::EnemyShoot() {
  Enemy& enemy = *m_game.m_selected->GetComponent<Enemy>();
  if (enemy.m_boss && enemy.m_alive && enemy.m_phase_change && !enemy.m_phase_ready) return;
  std::cout << "Enemy Shoot" << '\n';
  if (!enemy.m_fired) enemy.Fire();
  m_game.m_state = TURN_ENEMY_MOVE;
}

void TurnMachine::EnemySelect() {
  std::cout << "Enemy Unit Select" << '\n';
  for (GameObj* object : m_game.m_enemies) {
    const Enemy& enemy = *object->GetComponent<Enemy>();
    if (!enemy.m_alive || enemy.m_moved) continue;
    if (SelectUnit(&m_game, object))
      m_game.m_state = m_game.m_round == 0 ? TURN_ENEMY_MOVE : TURN_ENEMY_SHOOT;
    return;
  }
  m_game.m_state = TURN_LEVEL_END;
}

void TurnMachine::EnemyMove() {
  const Enemy& enemy = *m_game.m_selected->GetComponent<Enemy>();
  if (m_game.AllBodiesAtRest()) StepMove();
  const Vector3D& velocity = m_game.m_selected->GetComponent<RigidBody>()->m_vel;
  const bool drives = std::abs(velocity.x) > kDrivingSpeed || std::abs(velocity.y) > kDrivingSpeed;
  if (!enemy.m_moved && drives) PlaySound(m_game.m_owner, "tank_move.ogg");
}

void TurnMachine::StepMove() {
  if (m_game.AllEnemiesActed()) {
    EndEnemyTurn();
    return;
  }
  Enemy& enemy = *m_game.m_selected->GetComponent<Enemy>();
  if (auto* mover = FindComponent<AIComp>(m_game.m_selected)) {
    mover->MoveAlongWaypoints();
  } else {
    enemy.m_moved = true;
  }
  if (enemy.m_moved) m_game.m_state = TURN_ENEMY_AIM;
}

void TurnMachine::EnemyAim() {
  std::cout << "Enemy Aim" << '\n';
  Enemy& enemy = *m_game.m_selected->GetComponent<Enemy>();
  if (!m_game.m_players.empty()) enemy.m_target = DrawTarget();
  if (enemy.m_target != nullptr) {
    const Vector3D& goal = enemy.m_target->GetComponent<Transform>()->m_world_pos;
    const Vector3D& own = m_game.m_selected->GetComponent<Transform>()->m_world_pos;
    enemy.m_turning = true;
    enemy.m_aim_angle = Heading(goal - own);
  }
  m_game.m_state = TURN_ENEMY_NEXT;
}

/// A random living player unit. There is one: a level without any has ended before.
GameObj* TurnMachine::DrawTarget() const {
  GameObj* drawn = nullptr;
  do {
    drawn = m_game.m_players[static_cast<std::size_t>(Rand()) % m_game.m_players.size()];
  } while (!drawn->GetComponent<Player>()->m_alive);
  return drawn;
}

/// The first living player unit that has not acted in this round, or null.
GameObj* TurnMachine::FirstPlayerToAct() const {
  for (GameObj* object : m_game.m_players) {
    const Player& player = *object->GetComponent<Player>();
    if (player.m_alive && !player.m_acted) return object;
  }
  return nullptr;
}

void TurnMachine::PlayerNext() {
  if (FirstPlayerToAct() != nullptr) {
    std::cout << "Player Turn Begin" << '\n';
    m_game.m_state = TURN_PLAYER_SELECT;
    return;
  }
  std::cout << "Player Turn End" << '\n';
  for (GameObj* object : m_game.m_players) {
    Player& player = *object->GetComponent<Player>();
    if (player.m_alive) player.m_acted = false;
  }
  ++m_game.m_round;
  m_game.m_state = TURN_ENEMY_NEXT;
}

void TurnMachine::PlayerSelect() {
  std::cout << "Player Unit Select" << '\n';
  GameObj* unit = FirstPlayerToAct();
  if (unit == nullptr) {
    m_game.m_state = m_game.AllPlayersDead() ? TURN_LEVEL_END : TURN_ENEMY_NEXT;
    return;
  }
  if (!SelectUnit(&m_game, unit)) return;
  Player& player = *unit->GetComponent<Player>();
  player.m_movement_curr = player.m_movement_limit;
  m_game.m_state = TURN_PLAYER_MOVE;
}

void TurnMachine::PlayerMove() {
  Player& player = *m_game.m_selected->GetComponent<Player>();
  AimSelected();
  if (!g_player_move_printed) std::cout << "Player Move" << '\n';
  g_player_move_printed = true;
  // A unit has acted from its first step of control on.
  player.m_acted = true;
  if (player.m_movement_curr <= 0.0f) m_game.m_state = TURN_PLAYER_AIM;
  if (!player.m_alive) m_game.m_state = TURN_PLAYER_NEXT;
}

void TurnMachine::PlayerAim() {
  if (m_game.m_selected->GetComponent<Player>()->m_alive) {
    AimSelected();
  } else {
    m_game.m_state = TURN_PLAYER_NEXT;
  }
}

/// Turns the selected unit to the mouse and draws its aim line.
void TurnMachine::AimSelected() {
  Player& player = *m_game.m_selected->GetComponent<Player>();
  player.AimAt(m_game.MouseWorldPos());
  GameObj* shot = player.HeldShot();
  const auto* size = shot ? FindComponent<Transform>(shot) : nullptr;
  const float width = size ? size->m_world_scale.x : 1.0f;
  Vector3D end = m_game.MouseWorldPos();
  if (m_game.m_camera != nullptr)
    end.z += m_game.m_camera->GetComponent<Transform>()->m_world_pos.z;
  DrawLine line(m_game.m_selected->GetComponent<Transform>()->m_world_pos, end,
                width / kShotPerLine, 255.0f, 255.0f, 255.0f, kLineAlpha);
  g_engine->Broadcast(&line);
}

}  // namespace ZOVEngine
