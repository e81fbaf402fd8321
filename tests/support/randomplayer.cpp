#include "support/randomplayer.h"

#include "autoplay/levelrun.h"
#include "core/engine.h"
#include "core/messages.h"
#include "platform/virtualkeys.h"

namespace carapace_test {

using namespace ZOVEngine;

namespace {

constexpr int kLongestTurn = 240;  ///< (unit: steps)

bool IsControlled(const GameController& controller) {
  return controller.m_state == TURN_PLAYER_MOVE || controller.m_state == TURN_PLAYER_AIM;
}

}  // namespace

bool RandomPlayer::Step() {
  const GameController& controller = *FindTurnController();
  if (controller.m_state == TURN_LEVEL_END) return false;
  if (!g_engine->paused) {
    Act(controller);
  } else if (Chance(30)) {
    Press(kVkEscape);
  }
  m_world.Step();
  return true;
}

void RandomPlayer::Act(const GameController& controller) {
  if (Chance(500)) Press(kVkEscape);
  if (Chance(2000)) m_world.Send(GameLoseFocus());
  if (IsControlled(controller)) {
    PlayTurn(controller);
    return;
  }
  m_turn_steps = Below(kLongestTurn);
  if (Chance(1500)) Press(kVkF);
  if (Chance(100)) Press(kVkQ);
  if (Chance(100)) Press(kVkR);
  if (Chance(100)) Click();
  if (Chance(20)) Drive();
}

void RandomPlayer::PlayTurn(const GameController& controller) {
  if (Chance(20)) m_direction = static_cast<std::uint32_t>(Below(4));
  if (Chance(15)) Point();
  if (Chance(60)) Press(kVkQ);
  if (Chance(150)) Press(kVkR);
  if (--m_turn_steps > 0) {
    Drive();
    return;
  }
  // Some shots are fired while bodies still move, others at rest.
  if (Below(2) == 0 && !controller.AllBodiesAtRest()) return;
  Point();
  if (Chance(8)) {
    Press(kVkF);
  } else {
    Click();
  }
}

void RandomPlayer::Drive() {
  m_world.Send(PlayerDirectionKey(m_direction, 1));
}

void RandomPlayer::Press(std::uint64_t key) {
  m_world.Send(KeyUp(key));
}

void RandomPlayer::Click() {
  m_world.Send(MouseButton(0, 1, Vector3D(0, 0, 1)));
}

void RandomPlayer::Point() {
  m_world.native.cursor = {Below(1280), Below(720)};
}

bool RandomPlayer::Chance(int one_in) {
  return Below(one_in) == 0;
}

int RandomPlayer::Below(int end) {
  return std::uniform_int_distribution<int>(0, end - 1)(m_random);
}

}  // namespace carapace_test
