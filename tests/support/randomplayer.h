#pragma once

#include <cstdint>
#include <random>

#include "game/turns/gamecontroller.h"
#include "support/world.h"

namespace carapace_test {

/// Plays a level without sense: drives anywhere, points anywhere, fires, skips, switches, undoes,
/// pauses and loses the focus, now and then out of its turn as well. It never restarts a level and
/// never stays in a pause or in control for long. The same seed gives the same game.
class RandomPlayer {
 public:
  RandomPlayer(World* world, std::uint32_t seed) : m_world(*world), m_random(seed) {}

  /// Acts, then runs one step of the game. False once the level is over.
  bool Step();

 private:
  void Act(const ZOVEngine::GameController& controller);
  void PlayTurn(const ZOVEngine::GameController& controller);
  void Drive();
  void Press(std::uint64_t key);
  void Click();
  void Point();
  bool Chance(int one_in);
  int Below(int end);

  World& m_world;
  std::mt19937 m_random;
  int m_turn_steps = 0;  ///< left of this turn
  std::uint32_t m_direction = 0;
};

}  // namespace carapace_test
