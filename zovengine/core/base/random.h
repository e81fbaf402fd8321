#pragma once

#include <cstdint>

namespace ZOVEngine {

/// The largest value that Rand() returns; the range formulas of the game divide by it.
inline constexpr int kRandMax = 32767;

/// The engine's one source of random numbers: a 32-bit linear congruential generator of which the
/// upper bits are used. It is the same on every machine, so a seed and an input replay a game.
/// Returns an int from 0 to kRandMax.
int Rand();

/// Seeds the generator; equal seeds give equal sequences. A program that never seeds starts at 1.
void SeedRand(std::uint32_t seed);

}  // namespace ZOVEngine
