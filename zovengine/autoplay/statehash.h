#pragma once

#include <cstdint>

namespace ZOVEngine {

/// Hashes by which two runs of a game are compared. Both read the objects of g_game_obj_factory.

/// Of the whole state: the records of all objects as they would be saved, and the bits of their
/// transforms. A sound that is requested while it plays counts too, so two runs agree only if their
/// mixers do.
std::uint64_t HashState();

/// Of the places of all bodies alone, by which a game is decided: the same in a window with sound.
std::uint64_t HashPlaces();

}  // namespace ZOVEngine
