#include "game/levels/tilemap.h"

#include <cstdlib>
#include <iostream>

namespace ZOVEngine {
namespace {

void CheckBound(const char* key, std::uint64_t value, std::uint64_t largest) {
  if (value <= largest) return;
  JsonTrail::EnterKey(key);
  FailReading(std::to_string(value) + " is above the limit of " + std::to_string(largest));
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
  CheckBound("Width", m_width, kMaxTileCells);
  CheckBound("Height", m_height, kMaxTileCells);
  if (std::uint64_t{m_width} * m_height > kMaxTileCells) {
    JsonTrail::EnterKey("Height");
    FailReading(std::to_string(m_width) + " by " + std::to_string(m_height) +
                " tiles are above the limit of " + std::to_string(kMaxTileCells));
  }
  if (m_tileSize < 0 || m_tileSize > kMaxTileSize) {
    JsonTrail::EnterKey("TileSize");
    FailReading(std::to_string(m_tileSize) + " is not within 0 and " +
                std::to_string(kMaxTileSize));
  }
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
