#include <cmath>
#include <iostream>
#include <string>
#include <string_view>

#include "audio/audiosource.h"
#include "core/base/random.h"
#include "core/engine.h"
#include "core/messages.h"
#include "core/statemachine.h"
#include "game/camera.h"
#include "game/objectquery.h"
#include "game/turns/gamecontroller.h"
#include "game/units/aicomp.h"
#include "game/units/enemy.h"
#include "game/units/player.h"
#include "game/units/unit.h"
#include "objects/statec.h"
#include "physics/components/transform.h"
#include "render/components/font.h"
#include "render/components/light.h"
#include "ui/elements/uielement.h"
#include "ui/screens/splashcontroller.h"

namespace ZOVEngine {

bool g_player_move_printed = false;

namespace {

constexpr const char* kRing = "ui_selection_circle";
constexpr const char* kRingOff = "ui_selection_circle_off";
constexpr float kClosedRing = 2.0f;     ///< local scale of a ring that no longer holds the turn up
constexpr float kSelectedLight = 1.5f;  ///< of a unit's light while it acts
constexpr float kReleasedLight = 0.6666667f;
constexpr float kDrivingSpeed = 10.0f;  ///< that is heard (unit: world units per second)
constexpr float kShotPerLine = 1.6f;    ///< width of a shot to the width of the aim line
constexpr float kLineAlpha = 0.25f;

/// The name of an object as a piece of interface; empty for an object that is none.
std::string_view ElementNameOf(GameObj* object) {
  const auto* element = FindComponent<UIElement>(object);
  return element == nullptr ? std::string_view() : element->m_ui_element_name;
}

void Rename(GameObj* object, const char* element_name) {
  object->GetComponent<UIElement>()->m_ui_element_name = element_name;
}

/// Numbers the label of a unit and counts it.
void NumberLabel(GameObj* unit, int* count) {
  const std::string number = std::to_string(*count);
  ForEachChildWith<Font>(unit, "turn_font", [&](Font* font) { font->m_text = number; });
  ++*count;
}

void ScaleLight(GameObj* object, float factor) {
  if (auto* light = FindComponent<Light>(object)) light->m_diffuseStr *= factor;
}

}  // namespace

void GameController::Update(float) {
  if (!m_init) Init();
  if (m_restart) {
    ChangeState(kReenterState, "");
    return;
  }
  if (m_quit_to_menu) {
    g_menu_entry_click = false;
    ChangeState(kMainMenuState, "");
    return;
  }
  if (m_camera != nullptr) m_camera->GetComponent<Camera>()->m_active = true;
  RenumberLabels();
  CheckLevelEnd();
  if (!IsHeldBack()) RunTurn();
}

void GameController::RenumberLabels() {
  int players = 1;
  int enemies = 1;
  for (GameObj* child : m_owner->children) {
    if (!child->active) continue;
    const auto* player = FindComponent<Player>(child);
    const auto* enemy = FindComponent<Enemy>(child);
    if (player != nullptr && player->m_alive) NumberLabel(child, &players);
    if (enemy != nullptr && enemy->m_alive) NumberLabel(child, &enemies);
  }
}

/// Asks for the sounds afresh in every step of the level's end. Defeat wins a tie.
void GameController::CheckLevelEnd() {
  const bool lost = AllPlayersDead();
  if (!lost && !AllEnemiesDead()) return;
  if (auto* source = FindComponent<AudioSource>(m_owner)) {
    source->StopSound(m_level_theme);
    source->StopSound(lost ? "victory.ogg" : "defeat.ogg");
    source->PlaySound(lost ? "defeat.ogg" : "victory.ogg");
  }
  m_state = TURN_LEVEL_END;
}

/// The turn waits while the selected unit spawns, its ring closes in, or it is a boss that dies.
bool GameController::IsHeldBack() const {
  if (m_selected == nullptr) return false;
  const auto* state = FindComponent<StateC>(m_selected);
  const bool spawns = m_selected->HasComponent<UIElement>() && state && state->m_state == "spawn";
  const auto* enemy = FindComponent<Enemy>(m_selected);
  return spawns || IsRingClosing() || (enemy != nullptr && enemy->m_boss && enemy->m_dying);
}

bool GameController::IsRingClosing() const {
  if (m_selected == nullptr) return false;
  for (GameObj* child : m_selected->children) {
    if (ElementNameOf(child) != kRing) continue;
    const auto* transform = FindComponent<Transform>(child);
    if (transform != nullptr && transform->m_local_scale.x > kClosedRing) return true;
  }
  return false;
}

void GameController::RunTurn() {
  switch (m_state) {
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
      if (AllBodiesAtRest()) RunAtRest();
  }
}

/// The states that wait for what was pushed or shot before.
void GameController::RunAtRest() {
  switch (m_state) {
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

void GameController::EnemyNext() {
  if (AllEnemiesActed()) {
    EndEnemyTurn();
    return;
  }
  std::cout << "Enemy Turn Begin" << '\n';
  m_state = TURN_ENEMY_SELECT;
}

void GameController::EndEnemyTurn() {
  std::cout << "Enemy Turn End" << '\n';
  ResetEnemies();
  m_state = TURN_PLAYER_NEXT;
}

void GameController::EnemyShoot() {
  Enemy& enemy = *m_selected->GetComponent<Enemy>();
  if (enemy.m_boss && enemy.m_phase_change && !enemy.m_phase_ready) return;
  std::cout << "Enemy Shoot" << '\n';
  if (!enemy.m_fired) enemy.Fire();
  m_state = TURN_ENEMY_MOVE;
}

void GameController::EnemySelect() {
  std::cout << "Enemy Unit Select" << '\n';
  for (GameObj* object : m_enemies) {
    const Enemy& enemy = *object->GetComponent<Enemy>();
    if (!enemy.m_alive || enemy.m_moved) continue;
    if (Select(object)) m_state = m_round == 0 ? TURN_ENEMY_MOVE : TURN_ENEMY_SHOOT;
    return;
  }
  m_state = TURN_LEVEL_END;
}

void GameController::EnemyMove() {
  const Enemy& enemy = *m_selected->GetComponent<Enemy>();
  if (AllBodiesAtRest()) StepMove();
  const Vector3D& velocity = m_selected->GetComponent<RigidBody>()->m_vel;
  const bool drives = std::abs(velocity.x) > kDrivingSpeed || std::abs(velocity.y) > kDrivingSpeed;
  if (!enemy.m_moved && drives) PlaySound(m_owner, "tank_move.ogg");
}

void GameController::StepMove() {
  if (AllEnemiesActed()) {
    EndEnemyTurn();
    return;
  }
  Enemy& enemy = *m_selected->GetComponent<Enemy>();
  if (auto* mover = FindComponent<AIComp>(m_selected)) {
    mover->MoveAlongWaypoints();
  } else {
    enemy.m_moved = true;
  }
  if (enemy.m_moved) m_state = TURN_ENEMY_AIM;
}

void GameController::EnemyAim() {
  std::cout << "Enemy Aim" << '\n';
  Enemy& enemy = *m_selected->GetComponent<Enemy>();
  if (!m_players.empty()) enemy.m_target = DrawTarget();
  if (enemy.m_target != nullptr) {
    const Vector3D& goal = enemy.m_target->GetComponent<Transform>()->m_world_pos;
    const Vector3D& own = m_selected->GetComponent<Transform>()->m_world_pos;
    enemy.m_turning = true;
    enemy.m_aim_angle = Heading(goal - own);
  }
  m_state = TURN_ENEMY_NEXT;
}

/// A living player unit by chance. There is one: a level without ends before this.
GameObj* GameController::DrawTarget() const {
  GameObj* drawn = nullptr;
  do {
    drawn = m_players[static_cast<std::size_t>(Rand()) % m_players.size()];
  } while (!drawn->GetComponent<Player>()->m_alive);
  return drawn;
}

/// The first living player unit that has not acted in this round, or null.
GameObj* GameController::FirstPlayerToAct() const {
  for (GameObj* object : m_players) {
    const Player& player = *object->GetComponent<Player>();
    if (player.m_alive && !player.m_acted) return object;
  }
  return nullptr;
}

void GameController::PlayerNext() {
  if (FirstPlayerToAct() != nullptr) {
    std::cout << "Player Turn Begin" << '\n';
    m_state = TURN_PLAYER_SELECT;
    return;
  }
  std::cout << "Player Turn End" << '\n';
  for (GameObj* object : m_players) {
    Player& player = *object->GetComponent<Player>();
    if (player.m_alive) player.m_acted = false;
  }
  ++m_round;
  m_state = TURN_ENEMY_NEXT;
}

void GameController::PlayerSelect() {
  std::cout << "Player Unit Select" << '\n';
  GameObj* unit = FirstPlayerToAct();
  if (unit == nullptr) {
    m_state = AllPlayersDead() ? TURN_LEVEL_END : TURN_ENEMY_NEXT;
    return;
  }
  if (!Select(unit)) return;
  Player& player = *unit->GetComponent<Player>();
  player.m_movement_curr = player.m_movement_limit;
  m_state = TURN_PLAYER_MOVE;
}

void GameController::PlayerMove() {
  Player& player = *m_selected->GetComponent<Player>();
  AimSelected();
  if (!g_player_move_printed) std::cout << "Player Move" << '\n';
  g_player_move_printed = true;
  // A unit has acted from its first step of control on.
  player.m_acted = true;
  if (player.m_movement_curr <= 0.0f) m_state = TURN_PLAYER_AIM;
  if (!player.m_alive) m_state = TURN_PLAYER_NEXT;
}

void GameController::PlayerAim() {
  if (m_selected->GetComponent<Player>()->m_alive) {
    AimSelected();
  } else {
    m_state = TURN_PLAYER_NEXT;
  }
}

/// Turns the selected unit to the mouse and draws the line of its aim.
void GameController::AimSelected() {
  Player& player = *m_selected->GetComponent<Player>();
  player.AimAt(MouseWorldPos());
  GameObj* shot = HeldShot(&player);
  const auto* size = shot ? FindComponent<Transform>(shot) : nullptr;
  const float width = size ? size->m_world_scale.x : 1.0f;
  Vector3D end = MouseWorldPos();
  if (m_camera != nullptr) end.z += m_camera->GetComponent<Transform>()->m_world_pos.z;
  DrawLine line(m_selected->GetComponent<Transform>()->m_world_pos, end, width / kShotPerLine,
                255.0f, 255.0f, 255.0f, kLineAlpha);
  g_engine->Broadcast(&line);
}

/// Hands control to `unit`. False if that ended the unit's turn.
bool GameController::Select(GameObj* unit) {
  ReleaseSelected();
  m_selected = unit;
  ScaleLight(unit, kSelectedLight);
  if (!SurvivesStatus(unit)) return false;
  SelectedUnit message;
  message.objectId = unit->id;
  g_engine->Broadcast(&message);
  for (GameObj* child : unit->children) {
    if (ElementNameOf(child) == kRingOff) Rename(child, kRing);
  }
  m_turn_start_pos = unit->GetComponent<Transform>()->m_world_pos;
  return true;
}

void GameController::ReleaseSelected() {
  if (m_selected == nullptr) return;
  ScaleLight(m_selected, kReleasedLight);
  for (GameObj* child : m_selected->children) {
    if (ElementNameOf(child) != kRing) continue;
    Rename(child, kRingOff);
    return;
  }
}

/// A damaged unit loses one of its health whenever it is its turn. False if that killed it.
bool GameController::SurvivesStatus(GameObj* unit) {
  if (*StatusOf(unit) != "damaged") return true;
  FlashUnit(unit);
  int& health = *HealthOf(unit);
  health = AfterDamage(health, 1);
  if (health >= 1) return true;
  m_state = unit->HasComponent<Enemy>() ? TURN_ENEMY_NEXT : TURN_PLAYER_NEXT;
  return false;
}

}  // namespace ZOVEngine
