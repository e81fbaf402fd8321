#include <cmath>
#include <cstdio>
#include <optional>
#include <unordered_set>

#include "editor/levelrulesreport.h"
#include "game/levels/tilemap.h"
#include "game/levels/truncate.h"

namespace ZOVEngine {
namespace {

/// The textures of what drifts in space under the station begin so: it is no floor and may lie
/// anywhere.
constexpr const char* kSpacePrefix = "Space_";

/// What lies on a cell.
enum class Cell : std::uint8_t { kSpace, kFloor, kWall };

/// The cells of a map of allowed sizes.
class Board {
 public:
  Board(int width, int height, int size)
      : m_width(width), m_height(height), m_size(size), m_cells(Count(), Cell::kSpace) {}

  /// The middle of the upper left cell, as the game computes it: in whole numbers.
  int FirstX() const { return m_size / 2 - m_size * m_width / 2; }
  int FirstY() const { return m_size / 2 + m_size * m_height / 2 - m_size; }
  int Width() const { return m_width; }
  int Height() const { return m_height; }
  int Size() const { return m_size; }

  bool Contains(std::int64_t column, std::int64_t row) const {
    return column >= 0 && row >= 0 && column < m_width && row < m_height;
  }
  std::size_t Index(int column, int row) const {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(m_width) +
           static_cast<std::size_t>(column);
  }
  Cell& At(int column, int row) { return m_cells[Index(column, row)]; }
  /// By index, whether a cell is reached from one of `starts` (indices) without crossing a wall.
  std::vector<bool> WithoutWalls(std::vector<std::size_t> starts) const {
    std::vector<bool> reached(m_cells.size(), false);
    const auto width = static_cast<std::size_t>(m_width);
    while (!starts.empty()) {
      const std::size_t index = starts.back();
      starts.pop_back();
      if (reached[index] || m_cells[index] == Cell::kWall) continue;
      reached[index] = true;
      if (index % width > 0) starts.push_back(index - 1);
      if (index % width + 1 < width) starts.push_back(index + 1);
      if (index >= width) starts.push_back(index - width);
      if (index + width < m_cells.size()) starts.push_back(index + width);
    }
    return reached;
  }
  /// The column and the row of a place, as parts of cells: whole numbers are their edges.
  float ColumnOf(float x) const {
    const auto size = static_cast<float>(m_size);
    return (x - static_cast<float>(FirstX())) / size + 0.5f;
  }
  float RowOf(float y) const {
    const auto size = static_cast<float>(m_size);
    return (static_cast<float>(FirstY()) - y) / size + 0.5f;
  }
  /// The index of the cell of a place; none for one off the map.
  std::optional<std::size_t> IndexAt(float x, float y) const {
    const float column = std::floor(ColumnOf(x));
    const float row = std::floor(RowOf(y));
    const bool is_within = column >= 0.0f && row >= 0.0f && column < static_cast<float>(m_width) &&
                           row < static_cast<float>(m_height);
    if (!is_within) return std::nullopt;
    return Index(static_cast<int>(column), static_cast<int>(row));
  }
  bool IsWall(std::size_t index) const { return m_cells[index] == Cell::kWall; }

 private:
  std::size_t Count() const {
    return static_cast<std::size_t>(m_width) * static_cast<std::size_t>(m_height);
  }

  int m_width;
  int m_height;
  int m_size;
  std::vector<Cell> m_cells;
};

std::string Point(const Vector3D& place) {
  char text[64];
  std::snprintf(text, sizeof text, "(%g, %g)", static_cast<double>(place.x),
                static_cast<double>(place.y));
  return text;
}

bool IsWholeNumber(float value) {
  return std::abs(value - std::round(value)) < 0.01f;
}

/// The rules of a map whose sizes are sound.
class MapRules {
 public:
  MapRules(const LevelView& level, Board board, LevelReport* report)
      : m_level(level), m_board(std::move(board)), m_report(*report) {}

  void Check() {
    for (const ObjectView& tile : m_level.tiles.All()) {
      if (tile.parent == nullptr) TakeTile(tile);
    }
    for (const ObjectView& object : m_level.objects.All()) {
      if (object.IsUnit()) CheckPlaces(object);
    }
    if (m_has_floor) CheckHull();
    CheckCover();
  }

 private:
  void TakeTile(const ObjectView& tile) {
    if (!tile.Flag("Render", "m_tile", false)) {
      return m_report.Add("tile-kind", tile, "lies among the tiles, but is none");
    }
    if (!tile.Has("Transform")) return;
    // The game finds the tiles of cells by the world places of the file.
    const Vector3D place = tile.Vector("Transform", "m_world_pos", Vector3D(0.0f, 0.0f, 1.0f));
    if (!m_places.insert(PointKey(Truncate(place.x), Truncate(place.y))).second) {
      m_report.Add("tile-twice", tile, "lies at " + Point(place) + ", where another tile lies");
    }
    PutOnBoard(tile, place);
  }

  void PutOnBoard(const ObjectView& tile, const Vector3D& place) {
    if (LiesInSpace(tile)) {
      PutWall(place);
      return;
    }
    const Vector3D size = tile.Vector("Transform", "m_scale", Vector3D(1.0f, 1.0f, 1.0f));
    const auto side = static_cast<float>(m_board.Size());
    const float left = m_board.ColumnOf(place.x - size.x / 2.0f);
    const float top = m_board.RowOf(place.y + size.y / 2.0f);
    const float right = left + size.x / side;
    const float bottom = top + size.y / side;
    const bool is_within = left > -0.01f && top > -0.01f &&
                           right < static_cast<float>(m_board.Width()) + 0.01f &&
                           bottom < static_cast<float>(m_board.Height()) + 0.01f;
    if (!is_within || !IsWholeNumber(left) || !IsWholeNumber(top) || !IsWholeNumber(right) ||
        !IsWholeNumber(bottom)) {
      m_report.Add("tile-grid", tile, "lies at " + Point(place) + ", off the grid or off the map");
    }
    if (PutWall(place) || !is_within) return;
    m_has_floor = true;
    PutFloor(ToCell(left), ToCell(top), ToCell(right), ToCell(bottom));
  }

  static bool LiesInSpace(const ObjectView& tile) {
    return tile.Text("Render", "m_tex", "").rfind(kSpacePrefix, 0) == 0;
  }

  /// Puts a wall on the cell in whose very middle the tile lies; false if there is none.
  bool PutWall(const Vector3D& place) {
    const std::int64_t dx = std::int64_t{Truncate(place.x)} - m_board.FirstX();
    const std::int64_t dy = std::int64_t{m_board.FirstY()} - Truncate(place.y);
    if (dx % m_board.Size() != 0 || dy % m_board.Size() != 0) return false;
    const std::int64_t column = dx / m_board.Size();
    const std::int64_t row = dy / m_board.Size();
    if (!m_board.Contains(column, row)) return false;
    m_board.At(static_cast<int>(column), static_cast<int>(row)) = Cell::kWall;
    return true;
  }

  static int ToCell(float edge) { return static_cast<int>(std::round(edge)); }

  /// Puts floor on the cells between these edges, which lie within the map.
  void PutFloor(int left, int top, int right, int bottom) {
    for (int row = top; row < bottom; ++row) {
      for (int column = left; column < right; ++column) {
        Cell& cell = m_board.At(column, row);
        if (cell == Cell::kSpace) cell = Cell::kFloor;
      }
    }
  }

  void CheckPlaces(const ObjectView& unit) {
    std::vector<Vector3D> places = unit.Vectors("Enemy", "m_waypoints");
    if (unit.Has("Transform")) places.insert(places.begin(), unit.Place());
    for (const Vector3D& place : places) {
      const std::optional<std::size_t> index = m_board.IndexAt(place.x, place.y);
      if (index) m_starts.push_back(*index);
      if (index && !m_board.IsWall(*index)) continue;
      m_report.Add("place-free", unit,
                   "stands or walks at " + Point(place) + ", in a wall or off the map");
    }
  }

  /// Floor beside space without a wall between them, also over a corner.
  void CheckHull() {
    for (int row = 0; row < m_board.Height(); ++row) {
      for (int column = 0; column < m_board.Width(); ++column) {
        if (m_board.At(column, row) != Cell::kFloor || !TouchesSpace(column, row)) continue;
        m_report.Add("hull", LevelFile::kTiles,
                     "the floor in row " + std::to_string(row) + ", column " +
                         std::to_string(column) + " lies open to space");
      }
    }
  }

  /// A muzzle lies before its unit, so the shot of a unit that leans on a wall starts within the
  /// wall: of one tile it leaves on the other side.
  void CheckCover() {
    const std::vector<bool> ground = m_board.WithoutWalls(m_starts);
    for (int row = 0; row < m_board.Height(); ++row) {
      for (int column = 0; column < m_board.Width(); ++column) {
        if (m_board.At(column, row) != Cell::kWall || !PartsGround(ground, column, row)) continue;
        m_report.Add("cover-thin", LevelFile::kTiles,
                     "the wall in row " + std::to_string(row) + ", column " +
                         std::to_string(column) + " has ground on two opposite sides");
      }
    }
  }

  bool PartsGround(const std::vector<bool>& ground, int column, int row) const {
    const auto is_ground = [&](int c, int r) {
      return m_board.Contains(c, r) && ground[m_board.Index(c, r)];
    };
    return (is_ground(column - 1, row) && is_ground(column + 1, row)) ||
           (is_ground(column, row - 1) && is_ground(column, row + 1));
  }

  bool TouchesSpace(int column, int row) {
    for (int r = row - 1; r <= row + 1; ++r) {
      for (int c = column - 1; c <= column + 1; ++c) {
        if (m_board.Contains(c, r) && m_board.At(c, r) == Cell::kSpace) return true;
      }
    }
    return false;
  }

  const LevelView& m_level;
  Board m_board;
  LevelReport& m_report;
  std::unordered_set<std::uint64_t> m_places;
  std::vector<std::size_t> m_starts;  ///< indices of the cells of units and patrols
  bool m_has_floor = false;
};

/// The sizes of the map: true if they are sound.
bool CheckSizes(const Value& map, LevelReport* report) {
  bool is_sound = true;
  for (const char* key : {"Width", "Height", "TileSize"}) {
    const Value* size = FindValue(map, key);
    if (size != nullptr && size->IsNumber() && !size->IsDouble()) continue;
    report->Add("map-size", LevelFile::kMap, std::string("the map has no whole ") + key);
    is_sound = false;
  }
  if (!is_sound) return false;
  const auto width = static_cast<unsigned>(WholeIn(FindValue(map, "Width"), 0));
  const auto height = static_cast<unsigned>(WholeIn(FindValue(map, "Height"), 0));
  const int size = WholeIn(FindValue(map, "TileSize"), 0);
  if (const auto fault = FindSizeFault(width, height, size)) {
    report->Add("map-size", LevelFile::kMap,
                std::string("the map's ") + fault->key + " " + fault->text);
    return false;
  }
  if (width > 0 && height > 0 && size > 0) return true;
  report->Add("map-size", LevelFile::kMap, "the map has no cells");
  return false;
}

bool AreNames(const Value& names) {
  if (!names.IsObject()) return false;
  for (const auto& name : names.GetObject()) {
    if (!name.value.IsString()) return false;
  }
  return true;
}

bool IsGrid(const Value& grid, unsigned width, unsigned height) {
  if (!grid.IsArray() || grid.Size() > height) return false;
  for (const Value& row : grid.GetArray()) {
    if (!row.IsArray() || row.Size() > width) return false;
    for (const Value& cell : row.GetArray()) {
      if (!cell.IsNumber()) return false;
    }
  }
  return true;
}

void CheckGrid(const Value& map, const Board& board, LevelReport* report) {
  const Value* names = FindValue(map, "TileObjects");
  if (names != nullptr && !AreNames(*names)) {
    report->Add("map-grid", LevelFile::kMap, "the map's TileObjects are no names");
  }
  const Value* grid = FindValue(map, "TileMap");
  if (grid != nullptr &&
      !IsGrid(*grid, static_cast<unsigned>(board.Width()), static_cast<unsigned>(board.Height()))) {
    report->Add("map-grid", LevelFile::kMap, "the map's TileMap is not of its sizes");
  }
}

}  // namespace

void CheckMap(const LevelView& level, LevelReport* report) {
  const Value& map = level.map.Root();
  if (!map.IsObject() || !CheckSizes(map, report)) return;
  const Board board(WholeIn(FindValue(map, "Width"), 0), WholeIn(FindValue(map, "Height"), 0),
                    WholeIn(FindValue(map, "TileSize"), 0));
  CheckGrid(map, board, report);
  MapRules(level, board, report).Check();
}

}  // namespace ZOVEngine
