#include "render/gl/gltileorder.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace ZOVEngine {

namespace {

/// How far a tile may lie off its cell (unit: sides of a tile). Tiles are placed in whole units.
constexpr float kOffLattice = 1e-3f;

bool IsTile(const DrawCommand& command) {
  const Placement& at = command.placement;
  return command.program == Program::kLight && command.kind == DrawCommand::Kind::kQuad &&
         at.rotate_radians == 0.0f && at.scale.x > 0.0f && at.scale.y > 0.0f;
}

bool IsWhole(float number) {
  return std::abs(number - std::round(number)) <= kOffLattice;
}

bool SharesLattice(const Placement& a, const Placement& b) {
  return a.scale.x == b.scale.x && a.scale.y == b.scale.y && a.translate.z == b.translate.z &&
         IsWhole((b.translate.x - a.translate.x) / a.scale.x) &&
         IsWhole((b.translate.y - a.translate.y) / a.scale.y);
}

/// The end, up to `limit`, of the tiles that begin at `first`; `first` itself when there is no
/// tile.
std::size_t EndOfTiles(const std::vector<DrawCommand>& commands, std::size_t first,
                       std::size_t limit) {
  std::size_t end = first;
  while (end < limit && IsTile(commands[end]) &&
         SharesLattice(commands[first].placement, commands[end].placement)) {
    ++end;
  }
  return end;
}

}  // namespace

WorldBox Bounds(const Placement& upright) {
  const float wide = 0.5f * std::abs(upright.scale.x);
  const float high = 0.5f * std::abs(upright.scale.y);
  const Vector3D& middle = upright.translate;
  return {middle.x - wide, middle.x + wide, middle.y - high, middle.y + high};
}

void TileOrder::Build(const std::vector<DrawCommand>& commands, std::size_t ground,
                      const LightField& lights) {
  m_order.resize(commands.size());
  std::iota(m_order.begin(), m_order.end(), 0u);
  m_classes.resize(commands.size());
  SortTiles(commands, 0, ground, lights);
  SortTiles(commands, ground, commands.size(), lights);
}

void TileOrder::SortTiles(const std::vector<DrawCommand>& commands, std::size_t first,
                          std::size_t end, const LightField& lights) {
  while (first < end) {
    const std::size_t end_of_tiles = EndOfTiles(commands, first, end);
    if (end_of_tiles > first + 1) Sort(commands, first, end_of_tiles, lights);
    first = std::max(end_of_tiles, first + 1);
  }
}

void TileOrder::Sort(const std::vector<DrawCommand>& commands, std::size_t first, std::size_t end,
                     const LightField& lights) {
  for (std::size_t i = first; i < end; ++i) {
    m_classes[i] = lights.Near(Bounds(commands[i].placement)).Class();
  }
  std::size_t next = first;
  for (int c = 0; c < kLightClasses; ++c) {
    for (std::size_t i = first; i < end; ++i) {
      if (m_classes[i] == static_cast<LightClass>(c))
        m_order[next++] = static_cast<std::uint32_t>(i);
    }
  }
}

}  // namespace ZOVEngine
