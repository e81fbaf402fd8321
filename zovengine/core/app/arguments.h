#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace ZOVEngine {

/// The request that the program's arguments make. Without arguments the game starts with the splash
/// screen.
enum class StartRequest {
  kPlay,   ///< start the game
  kHelp,   ///< the use is printed; end with success
  kWrong,  ///< the fault is printed; end with kWrongUse
};

/// Exit status after arguments that cannot be followed.
inline constexpr int kWrongUse = 2;

/// Reads the program's arguments, without its name: none, "--help", "--edit", which
/// starts the level editor by its own settings file, or "--level" and the path of a
/// level file, which then becomes the first screen. The use goes to `out` on request, to `errors`
/// with arguments of another form. A level file that cannot be opened is named on
/// `errors`.
StartRequest ReadArguments(const std::vector<std::string>& arguments, std::ostream& out,
                           std::ostream& errors);

}  // namespace ZOVEngine
