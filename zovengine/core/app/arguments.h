#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "core/app/trialmain.h"

namespace ZOVEngine {

/// The use that the program's arguments make of it. Without arguments the game starts with the
/// splash screen.
enum class StartRequest {
  kPlay,   ///< start the game
  kTrial,  ///< let the automatic player try a level
  kHelp,   ///< the use is printed; end with success
  kWrong,  ///< the fault is printed; end with kWrongUse
};

/// The arguments as they were read.
struct Arguments {
  StartRequest request = StartRequest::kPlay;
  TrialRequest trial;  ///< of kTrial
};

/// Exit status after arguments that cannot be followed.
inline constexpr int kWrongUse = 2;

/// The most games that a trial may be asked for.
inline constexpr int kMostTrialGames = 10000;

/// Reads the program's arguments, without its name: none, "--help", "--edit", which starts the
/// level editor by its own settings, "--level" and the path of a level file, which then becomes the
/// first screen, or "--trial" and such a path, with "--seeds" and a number from 1 to
/// kMostTrialGames and "--replay" and a path behind it, in any order. The use goes to `out` on
/// request, to `errors` with arguments of another form. A level file that cannot be opened is named
/// on `errors`.
Arguments ReadArguments(const std::vector<std::string>& arguments, std::ostream& out,
                        std::ostream& errors);

}  // namespace ZOVEngine
