#pragma once

#include <cstdint>
#include <iosfwd>
#include <map>
#include <string>
#include <vector>

#include "autoplay/autoplayer.h"
#include "autoplay/gameinput.h"

namespace ZOVEngine {

/// A game that was once played: its user's inputs by the step, hashes to compare with, and its end.
///
/// As text: a line "LEVEL SEED", then one for each input, "STEP KIND A B", where a direction that
/// is held for B steps on end is one line, lines "STEP h HASH" for states and "STEP p HASH" for the
/// places of the bodies on the way, and at last "STEP end won|lost|open". A level's name may have
/// blanks. Play and PlayAgain act on the level that runs, which EnterLevel entered with this seed
/// just before.
struct RecordedGame {
  /// What of the game is compared when it is played again.
  enum class Marks {
    kStates,  ///< all, to the bit: needs the same mixer
    kPlaces,  ///< the bodies' places: holds in a window with sound too
  };

  /// How a game is played.
  struct Plan {
    AutoPlayer::Style style = AutoPlayer::Style::kFight;
    Marks marks = Marks::kStates;
    int most_steps = 40000;
    int most_rounds = 1000;  ///< the game ends undecided when so many are finished
  };

  std::string level;
  std::uint32_t seed = 0;
  std::map<int, std::vector<GameInput>> inputs;  ///< by the step that they come before
  std::map<int, std::uint64_t> hashes;           ///< HashState by the number of steps run
  std::map<int, std::uint64_t> places;           ///< HashPlaces by the number of steps run
  int steps = 0;
  std::string outcome;  ///< "won", "lost" or "open"

  /// Lets the automatic player play, until the level is over or a limit of `plan` is reached.
  static RecordedGame Play(const std::string& level, std::uint32_t seed, const Plan& plan);
  /// Reads the text of Write. Any other text gives a game without a level.
  static RecordedGame Read(std::istream& in);
  void Write(std::ostream& out) const;

  /// Plays it again by its inputs alone. Empty if all that was recorded is the same, or the first
  /// difference.
  std::string PlayAgain() const;
  /// Gives the inputs of one step to the engine.
  void ApplyInputs(int step) const;
};

}  // namespace ZOVEngine
