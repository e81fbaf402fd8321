#include "game/movers/pathgrid.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "game/objectquery.h"
#include "physics/components/transform.h"
#include "platform/windowsystem.h"

namespace ZOVEngine {
namespace {

constexpr std::int32_t kCellSize = 60;  ///< (unit: world units)

std::int32_t WindowWidth() {
  return static_cast<std::int32_t>(g_window_system->m_size.x);
}

std::int32_t WindowHeight() {
  return static_cast<std::int32_t>(g_window_system->m_size.y);
}

/// Half of an odd size is deliberately cut to whole pixels.
float HalfWidth() {
  const std::int32_t half = WindowWidth() / 2;
  return static_cast<float>(half);
}

float HalfHeight() {
  const std::int32_t half = WindowHeight() / 2;
  return static_cast<float>(half);
}

/// False for a position or size that is not finite.
bool IsFinite(const Transform& transform) {
  return std::isfinite((transform.m_world_pos + transform.m_world_scale).Length());
}

/// The cells, of `count`, that the interval from `begin` to `end` overlaps.
struct CellRange {
  CellRange(float begin, float end, std::int32_t cell_size, std::int32_t count) {
    const auto size = static_cast<float>(cell_size);
    const auto limit = static_cast<float>(count);
    first = static_cast<std::size_t>(std::clamp(std::floor(begin / size), 0.0f, limit));
    past = static_cast<std::size_t>(std::clamp(std::ceil(end / size), 0.0f, limit));
  }
  std::size_t first;
  std::size_t past;
};

}  // namespace

PathGrid& PathGrid::Shared() {
  static PathGrid grid;
  return grid;
}

void PathGrid::Build(const std::vector<GameObj*>& tiles) {
  Clear();
  m_cell_size = kCellSize;
  m_width = (WindowWidth() + m_cell_size - 1) / m_cell_size;
  m_height = (WindowHeight() + m_cell_size - 1) / m_cell_size;
  MakeNodes();
  Connect(BlockedBy(tiles));
  m_built = true;
}

void PathGrid::Clear() {
  m_nodes.clear();
  m_width = m_height = 0;
  m_built = false;
}

void PathGrid::MakeNodes() {
  const auto size = static_cast<float>(m_cell_size);
  m_nodes.resize(static_cast<std::size_t>(m_width));
  for (std::size_t x = 0; x < m_nodes.size(); ++x) {
    for (std::size_t y = 0; y < static_cast<std::size_t>(m_height); ++y) {
      auto node = std::make_unique<PathNode>();
      const auto column = static_cast<float>(x);
      const auto row = static_cast<float>(y);
      node->grid_pos = Vector3D(column, row, 1.0f);
      node->world_pos =
          Vector3D((column + 0.5f) * size - HalfWidth(), HalfHeight() - (row + 0.5f) * size, 1.0f);
      m_nodes[x].push_back(std::move(node));
    }
  }
}

/// By [column][row].
std::vector<std::vector<bool>> PathGrid::BlockedBy(const std::vector<GameObj*>& tiles) const {
  std::vector<std::vector<bool>> blocked(static_cast<std::size_t>(m_width),
                                         std::vector<bool>(static_cast<std::size_t>(m_height)));
  for (GameObj* tile : tiles) {
    const auto* transform = FindComponent<Transform>(tile);
    if (transform == nullptr || !IsFinite(*transform)) continue;
    const Vector3D half = transform->m_world_scale * 0.5f;
    const float left = HalfWidth() + transform->m_world_pos.x;
    const float down = HalfHeight() - transform->m_world_pos.y;
    const CellRange columns(left - half.x, left + half.x, m_cell_size, m_width);
    const CellRange rows(down - half.y, down + half.y, m_cell_size, m_height);
    for (std::size_t x = columns.first; x < columns.past; ++x) {
      for (std::size_t y = rows.first; y < rows.past; ++y) blocked[x][y] = true;
    }
  }
  return blocked;
}

/// A blocked cell has neighbours too, so that an object in it can leave it.
void PathGrid::Connect(const std::vector<std::vector<bool>>& blocked) {
  const auto is_free = [&](std::int32_t x, std::int32_t y) {
    return x >= 0 && y >= 0 && x < m_width && y < m_height &&
           !blocked[static_cast<std::size_t>(x)][static_cast<std::size_t>(y)];
  };
  const auto touch = [&](std::int32_t x, std::int32_t y, std::int32_t dx, std::int32_t dy) {
    if (!is_free(x + dx, y + dy)) return;
    if (dx != 0 && dy != 0 && (!is_free(x + dx, y) || !is_free(x, y + dy))) return;
    const auto at = [&](std::int32_t column, std::int32_t row) {
      return m_nodes[static_cast<std::size_t>(column)][static_cast<std::size_t>(row)].get();
    };
    at(x, y)->neighbours.push_back(at(x + dx, y + dy));
  };
  for (std::int32_t x = 0; x < m_width; ++x) {
    for (std::int32_t y = 0; y < m_height; ++y) {
      for (std::int32_t side = 0; side < 9; ++side) {
        if (side != 4) touch(x, y, side % 3 - 1, side / 3 - 1);
      }
    }
  }
}

Vector3D PathGrid::WorldToGrid(const Vector3D& position) const {
  const auto size = static_cast<float>(m_cell_size);
  const auto x = static_cast<std::int32_t>((HalfWidth() + position.x) / size);
  const auto y = static_cast<std::int32_t>(-((position.y - HalfHeight()) / size));
  return Vector3D(static_cast<float>(x), static_cast<float>(y), 1.0f);
}

PathNode* PathGrid::NodeAt(const Vector3D& position) const {
  if (!m_built || !IsInWindow(position)) return nullptr;
  const Vector3D cell = WorldToGrid(position);
  const auto x = static_cast<std::size_t>(std::max(cell.x, 0.0f));
  const auto y = static_cast<std::size_t>(std::max(cell.y, 0.0f));
  if (x >= m_nodes.size() || y >= m_nodes[x].size()) return nullptr;
  return m_nodes[x][y].get();
}

bool PathGrid::IsInWindow(const Vector3D& position) {
  return std::abs(position.x) <= HalfWidth() && std::abs(position.y) <= HalfHeight();
}

PathGridUse::PathGridUse() {
  PathGrid::Shared().m_cell_size = kCellSize;
  ++PathGrid::Shared().m_users;
}

PathGridUse::~PathGridUse() {
  if (--PathGrid::Shared().m_users == 0) PathGrid::Shared().Clear();
}

float Heuristic(const Vector3D& a, const Vector3D& b) {
  const double dx = std::abs(static_cast<double>(a.x) - static_cast<double>(b.x));
  const double dy = std::abs(static_cast<double>(a.y) - static_cast<double>(b.y));
  const double less = std::min(dx, dy);
  return static_cast<float>(std::max(dx, dy) + less * std::numbers::sqrt2 - less);
}

}  // namespace ZOVEngine
