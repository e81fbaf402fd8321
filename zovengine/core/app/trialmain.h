#pragma once

#include <iosfwd>
#include <string>

namespace ZOVEngine {

/// A request to let the automatic player find out whether a level can be won.
struct TrialRequest {
  std::string level_file;
  int games = 20;           ///< with the seeds from 1 on
  std::string replay_file;  ///< of the first game won; empty for none
};

/// Plays the games of the request without window and sound, as fast as the machine can.
///
/// Each game prints its line to `out` when it is over, such as "game 3 seed 3 won 7 rounds" (won,
/// lost, or open after 60 rounds), and the last line is the sum: "won 12 of 20, rounds median 8".
/// The replay file, a recorded game with the places of the bodies, is written before the line of
/// its game. The engine's own output is dropped; a fault is said on `errors`. Returns the exit code
/// of the program: a failure for a level without a turn controller, or a replay that cannot be
/// written.
int TrialMain(const TrialRequest& request, std::ostream& out, std::ostream& errors);

}  // namespace ZOVEngine
