#include "core/statemachine.h"

#include "objects/gameobjfactory.h"
#include "zovassert.h"

namespace ZOVEngine {

StateMachine* g_state_machine = nullptr;
std::int32_t g_start_state = kSplashState;
std::string g_current_level_path = "Level Editor/Levels/Level01/Level01.json";

State& StateMachine::At(std::int32_t id) const {
  const auto state = m_states.find(id);
  ZOV_ASSERT(state != m_states.end(), "No state of id " + std::to_string(id));
  return *state->second;
}

void StateMachine::Step(float dt) {
  if (m_current != m_next) {
    At(m_current).Exit();
    if (m_next == kReenterState) {
      m_next = m_current;
    } else {
      m_current = m_next;
    }
    At(m_current).Enter();
  }
  At(m_current).Update(dt);
}

void ChangeState(std::int32_t id, const std::string& path) {
  g_state_machine->m_next = id;
  if (!path.empty()) g_state_machine->m_levelPath = path;
  g_game_obj_factory->ClearObjects();
}

}  // namespace ZOVEngine
