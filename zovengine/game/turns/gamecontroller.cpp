#include "game/turns/gamecontroller.h"

#include <ctime>

#include "audio/audiosource.h"
#include "core/base/random.h"
#include "core/engine.h"
#include "core/messages.h"
#include "core/statemachine.h"
#include "game/camera.h"
#include "game/levels/levelbuilder.h"
#include "game/objectquery.h"
#include "game/turns/turninput.h"
#include "game/turns/turnmachine.h"
#include "game/units/enemy.h"
#include "game/units/player.h"
#include "objects/fields.h"
#include "objects/gameobjfactory.h"
#include "objects/statec.h"
#include "physics/components/transform.h"
#include "platform/inputsystem.h"
#include "render/components/font.h"
#include "render/components/particle.h"
#include "ui/screens/splashcontroller.h"

namespace ZOVEngine {
namespace {

/// From this speed on a body moves (unit: world units, or degrees, per second).
constexpr float kRestSpeed = 3.0f;

/// Numbers the label of a unit and counts it.
void NumberLabel(GameObj* unit, int* count) {
  const std::string number = std::to_string(*count);
  ForEachChildWith<Font>(unit, "turn_font", [&](Font* font) { font->m_text = number; });
  ++*count;
}

/// Numbers the labels of the living units among the children of `root`, each side from 1 on.
void NumberUnits(const GameObj& root) {
  int players = 1;
  int enemies = 1;
  for (GameObj* child : root.children) {
    if (!child->active) continue;
    const auto* player = FindComponent<Player>(child);
    const auto* enemy = FindComponent<Enemy>(child);
    if (player != nullptr && player->m_alive) NumberLabel(child, &players);
    if (enemy != nullptr && enemy->m_alive) NumberLabel(child, &enemies);
  }
}

}  // namespace

template <class Visitor>
void GameController::Fields(Visitor& visit) {
  visit("m_level_theme", &GameController::m_level_theme, "Level Theme");
  visit("m_level_map", &GameController::m_level_map, "Level Map");
}
template <class Visitor>
void GameController::Inspected(Visitor& visit) {
  Fields(visit);
  visit.Hidden("m_debug", &GameController::m_debug);
}
ZOV_COMPONENT_FIELDS(GameController)

void GameController::Init() {
  m_init = true;
  m_rigid_bodies = FetchTable<RigidBody>();
  ResetFields();
  StartSounds();
  BuildLevel(m_level_map);
  GatherChildren();
  SeedRand(static_cast<std::uint32_t>(std::time(nullptr)));
}

void GameController::ResetFields() {
  m_state = TURN_ENEMY_NEXT;
  m_camera = nullptr;
  m_selected = nullptr;
  m_round = 0;
  m_turn_start_pos = Vector3D();
  m_ui_state = "ui_default";
  m_music_on = m_sfx_on = true;
  m_debug = m_fade_done = m_banner_done = m_restart = m_quit_to_menu = false;
}

void GameController::StartSounds() {
  ZOV_ASSERT(m_owner->HasComponent<AudioSource>(),
             m_level_map + ": object \"" + m_owner->name +
                 "\": a GameController needs an AudioSource beside it");
  AudioSource& source = *m_owner->GetComponent<AudioSource>();
  if (g_state_machine->m_current != kLevelEditorState) source.PlaySound(m_level_theme);
  source.PlaySound("button_click.ogg");
}

void GameController::GatherChildren() {
  for (GameObj* child : m_owner->children) {
    if (child->HasComponent<Camera>()) m_camera = child;
    if (child->HasComponent<Enemy>()) {
      m_enemies.push_back(child);
      SetState(child, "spawn");
    }
    if (child->HasComponent<Player>()) {
      m_players.push_back(child);
      SetState(child, "spawn");
    }
  }
}

void GameController::Update(float) {
  if (!m_init) Init();
  if (m_restart) {
    // Once more: while the restart waited for the end of a pause, a sound may have begun anew.
    RequestRestart();
    ChangeState(kReenterState, "");
    return;
  }
  if (m_quit_to_menu) {
    g_menu_entry_click = false;
    ChangeState(kMainMenuState, "");
    return;
  }
  if (m_camera != nullptr) m_camera->GetComponent<Camera>()->m_active = true;
  NumberUnits(*m_owner);
  CheckLevelEnd();
  TurnMachine(this).Step();
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

void GameController::OnMessage(Message* message) {
  if (message->id == kCurrGC) {
    dynamic_cast<CurrGC&>(*message).objectId = m_owner->id;
  } else if (message->id == kSelectedUnit) {
    if (m_selected != nullptr) dynamic_cast<SelectedUnit&>(*message).objectId = m_selected->id;
  } else {
    TurnInput(this).Take(message);
  }
}

void GameController::BuildLevel(const std::string& level_path) {
  BuildTiles(level_path, &m_tile_map, &m_tile_objects);
}

void GameController::ResetEnemies() {
  for (GameObj* object : m_enemies) {
    Enemy& enemy = *object->GetComponent<Enemy>();
    if (enemy.m_alive) enemy.m_moved = enemy.m_fired = false;
  }
}

void GameController::RequestRestart() {
  if (auto* source = FindComponent<AudioSource>(m_owner)) source->StopAllSounds();
  m_restart = true;
}

void GameController::RequestQuitToMenu() {
  if (auto* source = FindComponent<AudioSource>(m_owner)) source->StopAllSounds();
  m_quit_to_menu = true;
  g_engine->paused = false;
}

bool GameController::AllPlayersDead() {
  return EndsWithout<Player>(m_players);
}

bool GameController::AllEnemiesDead() {
  return EndsWithout<Enemy>(m_enemies);
}

/// True if none of `units` lives; the interface then shows the level's end.
template <class Unit>
bool GameController::EndsWithout(const std::vector<GameObj*>& units) {
  for (GameObj* object : units) {
    if (object->GetComponent<Unit>()->m_alive) return false;
  }
  m_ui_state = "ui_level_end";
  return true;
}

bool GameController::AllBodiesAtRest() const {
  if (m_rigid_bodies == nullptr) return true;
  const auto moves = [](float speed) { return speed <= -kRestSpeed || speed >= kRestSpeed; };
  for (const RigidBody* body : m_rigid_bodies->Components()) {
    if (!body->m_active || body->m_owner->HasComponent<Particle>()) continue;
    if (moves(body->m_vel.x) || moves(body->m_vel.y) || moves(body->m_rot_vel)) return false;
  }
  return true;
}

bool GameController::AllEnemiesActed() const {
  for (GameObj* object : m_enemies) {
    const Enemy& enemy = *object->GetComponent<Enemy>();
    if (enemy.m_alive && !enemy.m_moved) return false;
  }
  return true;
}

Vector3D GameController::MouseWorldPos() const {
  const Vector3D mouse = GetCursorScreenPosition();
  if (m_camera == nullptr) return mouse;
  const Vector3D& view = m_camera->GetComponent<Transform>()->m_world_pos;
  return Vector3D(view.x + mouse.x, view.y + mouse.y, mouse.z);
}

}  // namespace ZOVEngine
