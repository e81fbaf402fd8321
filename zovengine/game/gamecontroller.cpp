#include "game/gamecontroller.h"

#include <ctime>

#include "audio/audiosource.h"
#include "core/random.h"
#include "core/statemachine.h"
#include "game/camera.h"
#include "game/enemy.h"
#include "game/player.h"
#include "objects/gameobjfactory.h"
#include "objects/reflection.h"
#include "objects/statec.h"
#include "ui/splashcontroller.h"

RTTR_REGISTRATION {
  using ZOVEngine::GameController;
  ZOVEngine::ComponentRegistration<GameController>("GameController")
      .Field("m_level_theme", &GameController::m_level_theme, "std::string", "Level Theme")
      .Field("m_level_map", &GameController::m_level_map, "std::string", "Level Map")
      .Field("m_debug", &GameController::m_debug, "bool", "Debug");
}

namespace ZOVEngine {

void GameController::Unserialize(const Value& value) {
  ReadValue(value, "m_level_theme", &m_level_theme);
  ReadValue(value, "m_level_map", &m_level_map);
}

void GameController::Serialize(Writer& writer) {
  WriteValue(writer, "m_level_theme", m_level_theme);
  WriteValue(writer, "m_level_map", m_level_map);
}

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
      if (child->HasComponent<StateC>()) child->GetComponent<StateC>()->m_state = "spawn";
    }
    if (child->HasComponent<Player>()) {
      m_players.push_back(child);
      if (child->HasComponent<StateC>()) child->GetComponent<StateC>()->m_state = "spawn";
    }
  }
}

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
}

}  // namespace ZOVEngine
