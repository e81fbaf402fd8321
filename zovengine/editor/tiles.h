#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "core/base/vector3d.h"
#include "editor/history.h"

namespace ZOVEngine {

class GameObj;
struct TileMapInfo;

/// A place for a tile: a cell of the map, or a floor plate over two by two cells.
///
/// A tile in the middle of a cell becomes a wall when the level is played; plates have their middle
/// on a corner of cells, where the level makes no collider.
struct TilePlace {
  std::int32_t x = 0;     ///< of the middle (unit: world units)
  std::int32_t y = 0;     ///< of the middle (unit: world units)
  std::int32_t size = 0;  ///< (unit: world units)
  bool operator==(const TilePlace&) const = default;
};

struct TilePlaceHash {
  std::size_t operator()(const TilePlace& place) const;
};

/// What lies on a place; an empty texture is nothing.
struct TileLook {
  std::string texture;
  std::string highlight;  ///< the texture of a selected tile
  std::array<float, 4> colour = {1.0f, 1.0f, 1.0f, 1.0f};
  float rotation = 0.0f;  ///< (unit: degrees)
  bool operator==(const TileLook&) const = default;
};

/// A tile as the tools paint it: walls give back more light than floors.
TileLook NewTile(const std::string& texture);

/// The sides of a cell at which walls stand, as bits.
enum WallSide : unsigned { kWallNorth = 1, kWallEast = 2, kWallSouth = 4, kWallWest = 8 };
/// The texture of a wall that joins the walls at `sides`, a sum of WallSide: "Tile_Wall" for one
/// that stands alone, else "Wall_" with the letters of the sides.
std::string WallTexture(unsigned sides);
/// True for "Tile_Wall" and the textures of joined walls.
bool IsWallTexture(const std::string& texture);

/// One place of a stroke.
struct TileChange {
  TilePlace place;
  TileLook before, after;
};

/// The textures that tile tools paint on plates, not on cells: those of floors.
bool IsFloorTexture(const std::string& texture);

/// The places of the open map for one kind of tile, by their column and row, the upper left first.
class TilePlaces {
 public:
  /// The cells of `map`, or its plates, which leave the outermost cells to a ring of walls.
  TilePlaces(const TileMapInfo& map, bool plates);
  std::int32_t Columns() const { return m_columns; }
  std::int32_t Rows() const { return m_rows; }
  TilePlace At(std::int32_t column, std::int32_t row) const;
  /// Column and row under a point of the level; nothing outside the map.
  struct Cell {
    std::int32_t column = 0, row = 0;
    bool operator==(const Cell&) const = default;
  };
  std::optional<Cell> CellAt(const Vector3D& world) const;

 private:
  std::int32_t m_columns = 0, m_rows = 0, m_size = 0;
  std::int32_t m_x = 0, m_y = 0;  ///< the middle of the first place (unit: world units)
};

/// The tile objects of the live scene by their places. They are the truth about tiles; an erased
/// one is switched off and stays, so that a stroke that is undone leaves the order of the file as
/// it was.
class TileBook {
 public:
  /// What lies on a place.
  TileLook Look(const TilePlace& place);
  /// Lays `look` on a place, with a new object if there was never one.
  void Lay(const TilePlace& place, const TileLook& look);
  /// The number of tiles that a save writes.
  std::size_t Count();

 private:
  /// Finds the tiles anew if the scene was built since the last call.
  void Refresh();
  GameObj* Find(const TilePlace& place);

  std::unordered_map<TilePlace, GameObj*, TilePlaceHash> m_tiles;
  std::uint64_t m_clear_count = static_cast<std::uint64_t>(-1);
};

/// A stroke of a tile tool, from the press of the button to its release. It keeps the walls joined:
/// whenever a cell becomes a wall, or ceases to be one, the walls beside it get the textures that
/// fit their neighbours.
class TileStroke {
 public:
  explicit TileStroke(TileBook* book) : m_book(book) {}
  /// Changes a place now. A place that the stroke has changed before keeps its first `before`.
  void Paint(const TilePlace& place, const TileLook& look);
  bool HasChanged(const TilePlace& place) const;
  /// The command of the stroke, or null if it changed nothing. The stroke is over.
  std::unique_ptr<EditCommand> End(const std::string& label);

 private:
  void Change(const TilePlace& place, const TileLook& look);
  bool IsWall(const TilePlace& place) const;
  void JoinWall(const TilePlace& place);

  TileBook* m_book;
  std::vector<TileChange> m_changes;
  std::unordered_map<TilePlace, std::size_t, TilePlaceHash> m_index;  ///< in `m_changes`
};

}  // namespace ZOVEngine
