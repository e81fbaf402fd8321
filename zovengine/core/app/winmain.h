#pragma once

#include <cstdint>

#include "core/engine.h"

namespace ZOVEngine {

/// Builds g_engine and its eight systems, in their order, each with its constructor's side effects.
/// The seams g_native and g_gl_device must be set and must outlive the systems, and so must g_mixer
/// in a program with sound.
void CreateEngine();

/// Calls Init of every system in order; that of the logic system enters the first state.
void InitSystems();

/// Deletes the systems that were added behind the eight, the last one first, then the eight in
/// order, the factory and with it all objects first, and then the engine.
void DestroyEngine();

/// The head of every fixed step: derives the world transforms.
void BeginStep();

/// The rest between two steps (unit: nanoseconds): textures come in it, and the thread sleeps.
void RestStep(std::int64_t nanoseconds);

/// The whole run of the program on the real window, GL context and clock. Returns the exit code
/// when the teardown is done.
int WinMain();

}  // namespace ZOVEngine
