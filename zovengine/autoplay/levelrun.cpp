#include "autoplay/levelrun.h"

#include "core/base/random.h"
#include "core/engine.h"
#include "core/statemachine.h"
#include "game/turns/gamecontroller.h"
#include "objects/gameobjfactory.h"
#include "physicssystem.h"

namespace ZOVEngine {

void EnterLevel(const std::string& level_file, std::uint32_t seed) {
  // Once for what draws before the level's controller starts, and once for after, since the
  // controller seeds from the time of day.
  SeedRand(seed);
  g_engine->paused = false;
  g_current_level_path = level_file;
  ChangeState(kDefaultState, "");
  StepEngine();
  SeedRand(seed);
}

void StepEngine() {
  RunStep(*g_engine, [] { g_physics_system->UpdateWorldTransforms(); });
}

GameController* FindTurnController() {
  for (GameObj* object : g_game_obj_factory->m_objects) {
    if (object->HasComponent<GameController>()) return object->GetComponent<GameController>();
  }
  return nullptr;
}

}  // namespace ZOVEngine
