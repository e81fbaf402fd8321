#pragma once

#include <cstdint>
#include <iosfwd>
#include <map>
#include <string>
#include <vector>

#include "support/autoplayer.h"
#include "support/gameinput.h"

namespace carapace_test {

/// A game that was once played: what its user did at which step, and what became of it.
///
/// As text: a line "LEVEL SEED", then one for each input, "STEP KIND A B", where a direction that
/// is held for B steps on end is one line, lines "STEP h HASH" for states on the way, and at last
/// "STEP end won|lost|open".
struct RecordedGame {
  std::string level;
  std::uint32_t seed = 0;
  std::map<int, std::vector<GameInput>> inputs;  ///< by the step that they come before
  std::map<int, std::uint64_t> hashes;           ///< by the number of steps run
  int steps = 0;
  std::string outcome;  ///< "won", "lost" or "open"

  /// Lets the automatic player play, until the level is over or `most_steps` are run.
  static RecordedGame Play(const std::string& level, std::uint32_t seed, AutoPlayer::Style style,
                           int most_steps);
  /// Reads what Write wrote. Anything else gives a game without a level.
  static RecordedGame Read(std::istream& in);
  void Write(std::ostream& out) const;

  /// Plays it again by its inputs alone. Empty if all states and the outcome are the same, or what
  /// was different first.
  std::string Replay() const;
};

/// The files of the games that the repository keeps, in the order of their names.
std::vector<std::string> RecordedGameFiles();

}  // namespace carapace_test
