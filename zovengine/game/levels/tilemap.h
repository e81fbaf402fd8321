#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "jsonunserializer.h"

namespace ZOVEngine {

/// The most cells that a tile map may have: 2048 by 2048, for instance. The screen is 32 by 18
/// tiles, so this is room for 7000 screens; a larger number in a file is a slip of its author or
/// damage, and nothing is allocated for it.
inline constexpr std::int64_t kMaxTileCells = 4'194'304;
/// The most columns, and the most rows.
inline constexpr std::int64_t kMaxTileSide = 65'535;
/// The largest tile (unit: world units). With it the extent of the largest map fits an int32.
inline constexpr std::int32_t kMaxTileSize = 16384;

/// What is wrong with the sizes of a tile map.
struct TileMapFault {
  const char* key;  ///< of the size in the file
  std::string text;
};
/// The first fault of the sizes of a map, if they are not within the bounds above. What is saved
/// and what is read is tested by it alike.
std::optional<TileMapFault> FindSizeFault(std::int64_t width, std::int64_t height,
                                          std::int64_t tile_size);

/// The plan of a level in tiles: how many there are, how large they are, and which index each cell
/// holds.
///
/// The map is centred on the world's origin; the first row is the top one. The game places its
/// tiles by the positions of the tile objects, so a map without indices is a whole map: its cells
/// are 0. Two files make a map, the one that Load reads and the tile objects beside it.
struct TileMap {
  /// Replaces this map by the file at `path`, and traces its grid to standard output: the cells row
  /// by row, each followed by ", ", then one line end.
  ///
  /// "TileObjects" and "TileMap" may be absent. A missing size prints its line and stays. An absent
  /// file ends the program, and so do, with a report of file and key: a size out of bounds, a row
  /// or a column beyond the sizes, and a value of another type. A key of "TileObjects" that is no
  /// number counts as 0.
  void Load(const std::string& path);

  std::uint32_t m_width = 0;                      ///< columns
  std::uint32_t m_height = 0;                     ///< rows
  std::int32_t m_tileSize = 0;                    ///< side of a tile (unit: world units)
  std::vector<std::vector<std::int32_t>> m_grid;  ///< tile index by [column][row]
  std::unordered_map<std::int32_t, std::string> m_tileObjects;  ///< name by tile index

 private:
  void CheckSizes() const;
  void ReadTileObjects(const Value& root);
  void ReadGrid(const Value& root);
  void TraceGrid() const;
};

}  // namespace ZOVEngine
