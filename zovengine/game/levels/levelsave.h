#pragma once

#include <cstdint>
#include <string>

namespace ZOVEngine {

/// Where the files of a level lie, by the level's name.
struct LevelPaths {
  explicit LevelPaths(const std::string& level_name);

  std::string level;     ///< the level file, which names the other three
  std::string tile_map;  ///< size of the map
  std::string tiles;     ///< the tile objects
  std::string objects;   ///< all other objects
};

/// A tile map as the editor holds it: where it is saved and how large it is.
struct TileMapPlan {
  std::string directory;       ///< as it stands before a file's name, with a slash at its end
  std::string name;            ///< of the map's file, without ending
  std::int32_t width = 0;      ///< columns
  std::int32_t height = 0;     ///< rows
  std::int32_t tile_size = 0;  ///< side of a tile (unit: world units)
};

/// The three parts of saving the level that is loaded. Each file is written beside its target and
/// renamed over it, so a save that fails leaves the old one; false then. No folder is made.

/// Writes the size of the map, and beside it, as "tiles.json", the active tile objects, at most as
/// many as the map has cells. Sizes that TileMap::Load would refuse are refused here with a line on
/// standard output, and no file is touched.
bool SaveTileMap(const TileMapPlan& plan);
/// Writes the level's other objects: those without a parent, except the editor's own.
bool SaveUnits(const std::string& level_name);
/// Writes the graphics settings, which list the imported textures, and the level file with the
/// present background.
bool SaveLevelIndex(const std::string& level_name);

}  // namespace ZOVEngine
