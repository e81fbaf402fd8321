#pragma once

#include <cstdint>
#include <string>

namespace ZOVEngine {

class GameController;

/// Levels that are run without the main loop: as fast as the machine can, one step at a call. All
/// of it acts on the engine of g_engine.

/// Leaves the screen that runs, ends a pause, and enters the level of this file with random numbers
/// of its own. Returns after the level's first step: it is loaded and built. No level may run
/// before.
void EnterLevel(const std::string& level_file, std::uint32_t seed);

/// One fixed step, as the main loop makes it.
void StepEngine();

/// The turn controller of the level that runs; null in a level without one.
GameController* FindTurnController();

}  // namespace ZOVEngine
