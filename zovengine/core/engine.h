#pragma once

#include <functional>
#include <vector>

#include "core/base/clock.h"
#include "core/messages.h"
#include "core/system.h"

namespace ZOVEngine {

/// Length of the one fixed step of the program (unit: seconds).
inline constexpr float kStep = 1.0f / 60.0f;

/// The most time that one look at the clock may add; what is beyond is dropped (unit: seconds).
inline constexpr float kCatchUpLimit = 0.2f;

/// The record that lives for the whole run and holds the systems.
///
/// Reached through g_engine. It owns the systems, which are created, initialised, stepped and
/// deleted in the order of `systems`. One thread uses it; there are no locks.
struct Engine {
  bool running = true;  ///< the loop ends at its next look at the clock once this is false
  bool paused = false;  ///< selects PausedUpdate instead of Update, from the next step on
  std::vector<System*> systems;
  bool step_paused = false;  ///< how the current step runs: `paused` as it was at its beginning

  /// Delivers `message` to every system in order. A message with id 0 is delivered to nobody: it
  /// clears `running`, and the current step goes on to its end.
  void Broadcast(Message* message);
};

extern Engine* g_engine;

/// Runs one fixed step: `head_of_step`, then Update or PausedUpdate of every system. `paused` is
/// read once, before the first system, so a change during the step takes effect in the next one.
void RunStep(Engine& engine, const std::function<void()>& head_of_step);

/// Runs fixed steps of kStep until `engine.running` is false at a look at the clock.
///
/// The program passes the derivation of world transforms as the head of a step. A stall longer than
/// kCatchUpLimit is seen as kCatchUpLimit. While no step is due, `rest` is asked to sleep until the
/// next one is; it may end early, since the clock alone decides. Records the rate of steps as "FPS"
/// in the profile table.
void MainLoop(Engine& engine, const Clock& clock, const Rest& rest,
              const std::function<void()>& head_of_step);

}  // namespace ZOVEngine
