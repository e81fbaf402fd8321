#include "core/base/random.h"

namespace ZOVEngine {
namespace {

// Multiplier and increment of Knuth and Lewis for modulus 2^32; the low bits of such a generator
// have short periods, so only bits 16 to 30 are handed out.
constexpr std::uint32_t kMultiplier = 1664525u;
constexpr std::uint32_t kIncrement = 1013904223u;

std::uint32_t g_random_state = 1u;

}  // namespace

int Rand() {
  g_random_state = g_random_state * kMultiplier + kIncrement;
  return static_cast<int>((g_random_state >> 16) & static_cast<std::uint32_t>(kRandMax));
}

void SeedRand(std::uint32_t seed) {
  g_random_state = seed;
}

}  // namespace ZOVEngine
