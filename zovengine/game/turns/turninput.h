#pragma once

#include <cstdint>

namespace ZOVEngine {

class GameController;
struct Message;

/// Duration of the push that a held movement key gives in each step (unit: seconds).
inline constexpr float kDrivePushTime = 0.1f;
/// The energy that each of these pushes costs.
inline constexpr float kEnergyPerPush = 0.016f;

/// What input does to a turn: the firing click, the movement keys, the keys of the level, and a
/// lost focus.
///
/// A view of the controller without state of its own, made for one message. Messages arrive in the
/// middle of a step, from the window and the input system, and they arrive in a pause too, when the
/// controller is not updated.
class TurnInput {
 public:
  /// `game` must outlive this.
  explicit TurnInput(GameController* game) : m_game(*game) {}

  /// Carries out `message`; a message of another kind has no effect.
  void Take(Message* message);

 private:
  bool IsPlayersTurn() const;
  void FireSelected();
  void PushSelected(std::uint32_t direction);
  void TakeKey(std::uint64_t key);
  void TakeUnitKey(std::uint64_t key);
  void ToggleScreen();
  void LoseFocus();
  void ToggleDebug();
  void SkipUnit();
  void HealPlayers();
  void KillEnemies();
  void SwitchWeapon();
  void UndoMove();

  GameController& m_game;
};

}  // namespace ZOVEngine
