#pragma once

namespace ZOVEngine {

class GameController;
class GameObj;

/// True once "Player Move" was printed, which is done once in a run of the program.
extern bool g_player_move_printed;

/// Leads the round: every enemy fires, moves and aims, then every player unit has its turn.
///
/// A view of the controller, which holds the state (`GameController::m_state`, a TurnState) and all
/// else that lasts; made for one step. Nothing reports the end of a shot or a push: the states
/// before control wait until everything on the map has slowed down. The machine knows neither the
/// level's start nor its end; the controller tests for the end before each step of the machine.
class TurnMachine {
 public:
  /// `game` must outlive this.
  explicit TurnMachine(GameController* game) : m_game(*game) {}

  /// Runs the present state once, unless a gate holds the turn.
  void Step();

 private:
  bool IsHeldBack() const;
  void RunTurn();
  void RunAtRest();
  void EnemyNext();
  void EnemyShoot();
  void EnemySelect();
  void EnemyMove();
  void EnemyAim();
  void PlayerNext();
  void PlayerSelect();
  void PlayerMove();
  void PlayerAim();
  void EndEnemyTurn();
  void StepMove();
  GameObj* DrawTarget() const;
  GameObj* FirstPlayerToAct() const;
  void AimSelected();

  GameController& m_game;
};

}  // namespace ZOVEngine
