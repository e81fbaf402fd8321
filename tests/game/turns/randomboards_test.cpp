#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <tuple>

#include "autoplay/levelrun.h"
#include "core/engine.h"
#include "game/componentkinds.h"
#include "game/shots/shot.h"
#include "game/turns/gamecontroller.h"
#include "physics/components/rigidbody.h"
#include "render/components/particle.h"
#include "support/levelgame.h"
#include "support/randomboard.h"
#include "support/randomplayer.h"
#include "support/reports.h"

namespace carapace_test {
namespace {

using ZOVEngine::GameController;
using ZOVEngine::GameObj;

constexpr int kStandstill = 60 * 60;  ///< (unit: steps)
/// As long as a range of 3000 lasts at 3 units a second (unit: steps).
constexpr int kLongestFlight = 3000 * 60 / 3;
constexpr int kRounds = 8;
constexpr int kMostSteps = 120000;

/// A number from the environment, or what every run takes.
int Setting(const char* name, int usual) {
  const char* text = std::getenv(name);
  return text == nullptr ? usual : std::atoi(text);
}

/// What changes when the turn machine goes on.
auto TurnMark(const GameController& controller) {
  return std::tuple(controller.m_state, controller.m_selected, controller.m_round);
}

/// True while nothing is to be expected of the machine: a unit is controlled, the level is over, or
/// the engine is paused.
bool MayStandStill(const GameController& controller) {
  return controller.m_state >= ZOVEngine::TURN_PLAYER_MOVE || ZOVEngine::g_engine->paused;
}

/// True while a shot is in the air. One that rebounds from loose bodies grows slow, and the turn
/// waits until its range is out.
bool IsShotFlying(const GameController& controller) {
  for (const auto* body : controller.m_rigid_bodies->Components()) {
    if (body->m_active && body->m_vel.Length() >= 3.0f &&
        ZOVEngine::HasKind<ZOVEngine::Shot>(*body->m_owner)) {
      return true;
    }
  }
  return false;
}

std::string Describe(const GameController& controller) {
  std::string text = "state " + std::to_string(controller.m_state) + ", round " +
                     std::to_string(controller.m_round) + ", selected " +
                     (controller.m_selected ? controller.m_selected->name : "nothing");
  for (const auto* body : controller.m_rigid_bodies->Components()) {
    if (!body->m_active || body->m_owner->HasComponent<ZOVEngine::Particle>()) continue;
    if (body->m_vel.Length() < 3.0f && std::abs(body->m_rot_vel) < 3.0f) continue;
    text += ", " + body->m_owner->name + " moves at " + std::to_string(body->m_vel.Length()) +
            " and turns at " + std::to_string(body->m_rot_vel);
  }
  return text;
}

/// Plays a random board at random. Returns how the machine stood still, or nothing.
std::string PlayBoard(std::uint32_t seed) {
  const RandomBoard board(seed);
  LevelGame game(board.level, seed, board.files);
  RandomPlayer player(&game.world, seed);
  const GameController& controller = *ZOVEngine::FindTurnController();
  auto mark = TurnMark(controller);
  int still = 0;
  int flight = 0;
  for (int step = 0; step < kMostSteps && controller.m_round < kRounds && player.Step(); ++step) {
    if (MayStandStill(controller)) continue;
    if (TurnMark(controller) != mark) still = flight = 0;
    mark = TurnMark(controller);
    const bool flying = IsShotFlying(controller);
    flight += flying ? 1 : 0;
    still = flying ? 0 : still + 1;
    if (still == kStandstill || flight == kLongestFlight) return Describe(controller);
  }
  return "";
}

TEST(RandomBoards, NoTurnStandsStill) {
  // Two boards on which a boss dies before others of its side.
  const int boards = Setting("CARAPACE_BOARDS", 2);
  const int first = Setting("CARAPACE_BOARDS_SEED", 8);
  for (int seed = first; seed < first + boards; ++seed) {
    std::string fault;
    OutputOf([&] { fault = PlayBoard(static_cast<std::uint32_t>(seed)); });
    EXPECT_EQ(fault, "") << "board " << seed;
  }
}

}  // namespace
}  // namespace carapace_test
