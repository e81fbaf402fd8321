#include "support/gamewatch.h"

namespace carapace_test {

using namespace ZOVEngine;

namespace {

bool IsControlled(std::uint32_t state) {
  return state == TURN_PLAYER_MOVE || state == TURN_PLAYER_AIM;
}

bool IsEnemyPhase(std::uint32_t state) {
  return state < TURN_PLAYER_NEXT;
}

bool IsWait(std::uint32_t state) {
  return state == TURN_PLAYER_NEXT || state == TURN_PLAYER_SELECT;
}

}  // namespace

void GameWatch::Look(const GameController& controller, bool paused) {
  if (paused) return;
  const Turn turn{controller.m_round, controller.m_state, controller.m_selected};
  m_still = turn == m_turn && !IsControlled(turn.state) ? m_still + 1 : 0;
  const bool over = turn.state == TURN_LEVEL_END;
  m_enemy_phase.Count(IsEnemyPhase(turn.state), over, &m_enemy_phases);
  // What follows the enemies is the first selection of the player's, which waits for nothing.
  const bool follows_control = m_wait.steps > 0 || IsControlled(m_turn.state);
  m_wait.Count(IsWait(turn.state) && follows_control, over, &m_waits);
  m_turn = turn;
}

void GameWatch::Stretch::Count(bool lasts, bool cut_off, std::vector<int>* lengths) {
  if (lasts) {
    ++steps;
    return;
  }
  if (steps > 0 && !cut_off) lengths->push_back(steps);
  steps = 0;
}

std::string GameWatch::Place() const {
  return "round " + std::to_string(m_turn.round) + ", state " + std::to_string(m_turn.state) +
         (m_turn.selected != nullptr ? ", " + m_turn.selected->name : "");
}

}  // namespace carapace_test
