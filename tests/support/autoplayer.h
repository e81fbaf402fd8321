#pragma once

#include <cstdint>
#include <vector>

#include "game/turns/gamecontroller.h"
#include "support/gameinput.h"
#include "support/world.h"

namespace carapace_test {

/// Plays a level as a user would, by the cursor and by the messages of keys and buttons alone.
///
/// In its turn a unit looks for a place near by from which it sees an enemy and which no enemy aims
/// at, drives there while its energy lasts, waits until all is at rest, and fires at the nearest
/// enemy that it sees; in every second round with its second weapon. It knows what a user sees:
/// where units, walls and hazards are and which way the enemies' barrels point. It makes no random
/// choice, so a game is settled by the seed of the level.
class AutoPlayer {
 public:
  /// How the turns are played.
  enum class Style { kFight, kSkip };

  explicit AutoPlayer(World* world, Style style = Style::kFight);

  /// Decides, then runs one step of the game. False once the level is over.
  bool Step();
  /// Plays until the level is over or `rounds` rounds are finished; `most_steps` bounds a game that
  /// hangs. True if the level is over.
  bool Play(int rounds, int most_steps = 200000);

  /// True when all enemies, or all player units, are dead. Losing wins a tie, as in the game.
  bool HasWon() const;
  bool HasLost() const;
  /// Finished rounds.
  int Rounds() const;
  int Shots() const { return m_shots; }
  /// What it pressed and where it pointed before the last step.
  const std::vector<GameInput>& Inputs() const { return m_inputs; }
  /// The turn controller of the level; null before it is loaded.
  static ZOVEngine::GameController* Controller();

 private:
  using Point = ZOVEngine::Vector3D;

  /// What a turn is at.
  enum class Phase { kPlan, kDrive, kSettle, kAim };

  void Decide(ZOVEngine::GameController& controller);
  void BeginTurn(const ZOVEngine::GameController& controller);
  void Plan(ZOVEngine::GameController& controller);
  void Drive(ZOVEngine::GameController& controller);
  void AimAndFire(ZOVEngine::GameController& controller);

  float ScoreOf(const Point& place, const ZOVEngine::GameController& controller) const;
  bool IsClear(const Point& from, const Point& to) const;
  bool IsAimedAt(const Point& place, const ZOVEngine::GameController& controller) const;
  ZOVEngine::GameObj* ChooseTarget(const Point& from,
                                   const ZOVEngine::GameController& controller) const;
  void PointAt(const Point& place, const ZOVEngine::GameController& controller);

  void Press(const GameInput& input);

  World& m_world;
  Style m_style;
  Phase m_phase = Phase::kPlan;
  const ZOVEngine::GameObj* m_unit = nullptr;  ///< whose turn it is
  int m_round = -1;
  int m_direction = -1;   ///< of the drive, as in PlayerDirectionKey
  int m_drive_steps = 0;  ///< left of the drive
  int m_drives = 0;       ///< of this turn
  int m_aim_steps = 0;
  int m_shots = 0;
  std::vector<GameInput> m_inputs;
};

}  // namespace carapace_test
