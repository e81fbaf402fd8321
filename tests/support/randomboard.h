#pragma once

#include <cstdint>
#include <string>

#include "support/world.h"

namespace carapace_test {

/// A level that nobody made: the map of a shipped level, and on it units, hazards and loose bodies
/// of all shipped levels, in random number, place, health and armament.
///
/// At least one unit of each side stands on it; often there is a boss, sometimes two. Enemies that
/// walk have a patrol of points far enough apart, as a level must give them. The same seed makes
/// the same board.
struct RandomBoard {
  explicit RandomBoard(std::uint32_t seed);

  std::string level;  ///< whose map it is
  Files files;        ///< its objects in place of the level's own
};

}  // namespace carapace_test
