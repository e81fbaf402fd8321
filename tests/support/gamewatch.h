#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "game/turns/gamecontroller.h"

namespace carapace_test {

/// Watches a game from outside, step by step: how long its enemy phases and the waits after the
/// player's shots last, and whether its turns stand still. All times are steps, 60 a second.
///
/// An enemy phase lasts from the last unit of the player to the first that the player controls; the
/// spawn at the start counts to the first phase. A wait lasts from a unit's turn, when it has fired
/// or skipped, to the moment when all is at rest and the next one is selected or the enemies begin.
/// A phase or a wait that the end of the level cuts off does not count.
class GameWatch {
 public:
  /// Looks at the game after a step of it. `paused` steps count for nothing.
  void Look(const ZOVEngine::GameController& controller, bool paused = false);

  const std::vector<int>& EnemyPhases() const { return m_enemy_phases; }
  const std::vector<int>& Waits() const { return m_waits; }
  /// How many steps on end the same unit was in the same state of its turn, neither in the player's
  /// control nor paused.
  int StandsStill() const { return m_still; }
  /// Where the turns are, for a message.
  std::string Place() const;

 private:
  /// What of a game tells that its turns go on.
  struct Turn {
    int round = 0;
    std::uint32_t state = 0;
    const ZOVEngine::GameObj* selected = nullptr;

    bool operator==(const Turn&) const = default;
  };

  /// A stretch of steps that is measured.
  struct Stretch {
    /// Counts a step of it, or its end, after which its length stands in `lengths`.
    void Count(bool lasts, bool cut_off, std::vector<int>* lengths);

    int steps = 0;
  };

  Turn m_turn;
  Stretch m_enemy_phase;
  Stretch m_wait;
  int m_still = 0;
  std::vector<int> m_enemy_phases;
  std::vector<int> m_waits;
};

}  // namespace carapace_test
