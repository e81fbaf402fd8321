#pragma once

#include <string>
#include <vector>

namespace ZOVEngine {

class GameObj;
struct TileMap;

/// Builds the tiles of the level file at `level_path`: loads its tile objects into `tiles` and its
/// tile map into `map`, and merges the tiles into as few colliders as it can.
///
/// A level whose tile objects' file does not exist has no tiles, and one whose tiles are loaded
/// already, by the editor for instance, keeps them: both end here without a word, `map` and `tiles`
/// as they were. An absent level file ends the program. Tiles are matched with cells by their world
/// positions as the file has them; a tile on no cell is drawn and does not collide, and of several
/// on one cell the first does.
void BuildTiles(const std::string& level_path, TileMap* map, std::vector<GameObj*>* tiles);

}  // namespace ZOVEngine
