#pragma once

#include <cstdint>
#include <string>

#include "support/world.h"

namespace carapace_test {

/// A level as it is shipped, entered from the menu, with random numbers of its own.
///
/// The construction ends after the first step: the level is loaded, built and drawn once. `more`
/// replaces or adds files, as in World.
class LevelGame {
 public:
  LevelGame(const std::string& level, std::uint32_t seed, const Files& more = {});

  World world;
};

}  // namespace carapace_test
