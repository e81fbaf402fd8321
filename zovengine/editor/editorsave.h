#pragma once

namespace ZOVEngine {

/// Saves the open level: its map, its other objects, then the level file that names them. Nothing
/// happens while no level is open.
void SaveOpenLevel();

/// Saves the live objects as the level of `g_editor`. False if one of the files could not be
/// written; the others are.
bool SaveLiveLevel();

/// Destroys every object whose sprite is a tile.
void DestroyTiles();

}  // namespace ZOVEngine
