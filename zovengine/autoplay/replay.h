#pragma once

#include <string>

#include "autoplay/recordedgame.h"
#include "core/base/noncopyable.h"

namespace ZOVEngine {

/// Shows a recorded game in the running program: gives its inputs to the level as it runs, step by
/// step, in a window of any size and with sound.
///
/// Step is called once before each step of the engine (or as the last thing in the step before),
/// for the first time before the step that enters the level: it seeds the random numbers as the
/// recording did. Steps while the engine is paused do not count. The cursor is the recorded one and
/// the user's mouse and keys play no part, but for Escape and the function keys, until the game is
/// at its end, has departed, or this object goes; then the user has them back. Needs g_engine.
class Replay : private NonCopyable {
 public:
  enum class Stage {
    kEmpty,     ///< nothing is loaded
    kShowing,   ///< the inputs are given
    kEnded,     ///< all steps were shown, and the game ended as it was recorded
    kDeparted,  ///< the level is not in the recorded state any more, or is left
  };

  Replay() = default;
  ~Replay();

  /// Reads a file of a recorded game and begins anew with it. False, and an empty replay, when the
  /// file cannot be opened or is no recorded game.
  bool Load(const std::string& file);
  /// Gives the inputs of the coming step of the engine. Does nothing unless a game is shown.
  void Step();
  /// Ends the showing and gives cursor and keys back to the user.
  void Stop();

  Stage GetStage() const { return m_stage; }
  /// The steps of the game that were given so far, and all that it has.
  int ShownSteps() const { return m_step < 0 ? 0 : m_step; }
  int AllSteps() const { return m_game.steps; }
  const RecordedGame& Game() const { return m_game; }

 private:
  bool HasDeparted() const;
  void End(Stage stage);

  RecordedGame m_game;
  Stage m_stage = Stage::kEmpty;
  int m_step = -1;  ///< of the game; -1 before the step that enters the level
};

}  // namespace ZOVEngine
