#include "game/levels/tilemap.h"

#include <cstdlib>
#include <iostream>

namespace ZOVEngine {
namespace {

/// The fault of a size that is not within 0 and `largest`.
std::optional<TileMapFault> FindFault(const char* key, std::int64_t size, std::int64_t largest) {
  if (size >= 0 && size <= largest) return std::nullopt;
  return TileMapFault{key,
                      std::to_string(size) + " is not within 0 and " + std::to_string(largest)};
}

/// The entries of `array`, which may have at most `most`; `what` names it in reports.
Value::ConstArray ReadEntries(const Value& array, std::uint32_t most, const std::string& what) {
  if (!array.IsArray()) FailReading(what + ": expected an array");
  if (array.Size() > most) {
    FailReading(what + ": " + std::to_string(array.Size()) + " entries, but the map has room for " +
                std::to_string(most));
  }
  return array.GetArray();
}

}  // namespace

std::optional<TileMapFault> FindSizeFault(std::int64_t width, std::int64_t height,
                                          std::int64_t tile_size) {
  if (auto fault = FindFault("Width", width, kMaxTileSide)) return fault;
  if (auto fault = FindFault("Height", height, kMaxTileSide)) return fault;
  if (width * height > kMaxTileCells) {
    return TileMapFault{"Height", std::to_string(width) + " by " + std::to_string(height) +
                                      " tiles are above the limit of " +
                                      std::to_string(kMaxTileCells)};
  }
  return FindFault("TileSize", tile_size, kMaxTileSize);
}

void TileMap::Load(const std::string& path) {
  JsonDocument document;
  document.Open(path);
  document.Parse();
  const Value& root = document.Root();
  ReadValue(root, "Width", &m_width);
  ReadValue(root, "Height", &m_height);
  ReadValue(root, "TileSize", &m_tileSize);
  CheckSizes();
  ReadTileObjects(root);
  ReadGrid(root);
  TraceGrid();
}

void TileMap::CheckSizes() const {
  const auto fault = FindSizeFault(m_width, m_height, m_tileSize);
  if (!fault) return;
  JsonTrail::EnterKey(fault->key);
  FailReading(fault->text);
}

void TileMap::ReadTileObjects(const Value& root) {
  m_tileObjects.clear();
  const Value* names = FindValue(root, "TileObjects");
  if (names == nullptr) return;
  JsonTrail::EnterKey("TileObjects");
  if (!names->IsObject()) FailReading("expected an object");
  for (const auto& [key, name] : names->GetObject()) {
    if (!name.IsString()) FailReading(std::string(key.GetString()) + ": expected a string");
    // Unlike atoi, which reads the same numbers, this is defined for those too large for an int.
    const auto index = static_cast<std::int32_t>(std::strtol(key.GetString(), nullptr, 10));
    m_tileObjects[index] = std::string(name.GetString(), name.GetStringLength());
  }
}

void TileMap::ReadGrid(const Value& root) {
  m_grid.assign(m_width, std::vector<std::int32_t>(m_height, 0));
  const Value* rows = FindValue(root, "TileMap");
  if (rows == nullptr) return;
  JsonTrail::EnterKey("TileMap");
  std::size_t r = 0;
  for (const Value& row : ReadEntries(*rows, m_height, "the rows")) {
    std::size_t c = 0;
    for (const Value& index : ReadEntries(row, m_width, "row " + std::to_string(r))) {
      m_grid[c++][r] = ToInt(index);
    }
    ++r;
  }
}

void TileMap::TraceGrid() const {
  for (std::size_t r = 0; r < m_height; ++r) {
    for (std::size_t c = 0; c < m_width; ++c) std::cout << m_grid[c][r] << ", ";
  }
  std::cout << '\n';
}

}  // namespace ZOVEngine
