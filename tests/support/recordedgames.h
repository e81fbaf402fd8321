#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "autoplay/recordedgame.h"

namespace carapace_test {

/// Games of shipped levels, each played in a world of its own.

/// Lets the automatic player play a level and records it with its states.
ZOVEngine::RecordedGame RecordGame(const std::string& level, std::uint32_t seed,
                                   const ZOVEngine::RecordedGame::Plan& plan = {});
/// Plays a game again. Empty if it goes as it went, or the first difference.
std::string PlayAgain(const ZOVEngine::RecordedGame& game);

/// The files of the games that the repository keeps, in the order of their names.
std::vector<std::string> RecordedGameFiles();
/// The game of a file; one without a level if it cannot be read.
ZOVEngine::RecordedGame ReadGame(const std::string& file);

}  // namespace carapace_test
