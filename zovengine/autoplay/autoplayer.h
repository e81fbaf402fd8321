#pragma once

#include <string>
#include <vector>

#include "autoplay/gameinput.h"
#include "core/base/vector3d.h"

namespace ZOVEngine {

class GameController;
class GameObj;

/// Plays the level that runs as a user would, by the cursor and by the messages of keys and buttons
/// alone.
///
/// In its turn a unit looks for a place near by from which it sees an enemy and which no enemy aims
/// at, drives there while its energy lasts, waits until all is at rest, and fires at the nearest
/// enemy that it sees; in every second round with its second weapon. It knows what a user sees:
/// where units, walls and hazards are and in which direction the enemies' barrels point. It draws
/// no random number, so the seed of the level settles a game. The level must have a turn
/// controller, and g_engine a step behind it in this level.
class AutoPlayer {
 public:
  /// How the turns are played.
  enum class Style { kFight, kSkip };

  explicit AutoPlayer(Style style = Style::kFight) : m_style(style) {}

  /// Decides, then runs one step of the engine. False, and no step, once the level is over.
  bool Step();
  /// Plays until the level is over or `rounds` rounds are finished; `most_steps` bounds a game that
  /// hangs. True if the level is over.
  bool Play(int rounds, int most_steps = 200000);

  /// True when all enemies, or all player units, are dead. Losing wins a tie, as in the game.
  bool HasWon() const;
  bool HasLost() const;
  /// "won", "lost", or "open" while both sides live.
  std::string Outcome() const;
  /// Finished rounds.
  int Rounds() const;
  int Shots() const { return m_shots; }
  /// The inputs that it made before the last step.
  const std::vector<GameInput>& Inputs() const { return m_inputs; }

 private:
  using Point = Vector3D;

  /// The parts of a turn.
  enum class Phase { kPlan, kDrive, kSettle, kAim };

  void Decide(GameController& controller);
  void BeginTurn(const GameController& controller);
  void Plan(GameController& controller);
  void Drive(GameController& controller);
  void AimAndFire(GameController& controller);

  float Score(const Point& place, const GameController& controller) const;
  bool IsClear(const Point& from, const Point& to) const;
  bool IsAimedAt(const Point& place, const GameController& controller) const;
  GameObj* ChooseTarget(const Point& from, const GameController& controller) const;
  void PointAt(const Point& place, const GameController& controller);

  void Press(const GameInput& input);

  Style m_style;
  Phase m_phase = Phase::kPlan;
  const GameObj* m_unit = nullptr;  ///< the unit whose turn it is
  int m_round = -1;
  int m_direction = -1;   ///< of the drive, as in PlayerDirectionKey
  int m_drive_steps = 0;  ///< left of the drive
  int m_drives = 0;       ///< of this turn
  int m_aim_steps = 0;
  int m_shots = 0;
  std::vector<GameInput> m_inputs;
};

}  // namespace ZOVEngine
