#include "game/movers/pathfinding.h"

#include <algorithm>
#include <limits>
#include <unordered_set>

#include "core/engine.h"
#include "core/messages.h"
#include "game/movers/leg.h"
#include "game/objectquery.h"
#include "objects/fields.h"
#include "physics/components/transform.h"

namespace ZOVEngine {
namespace {

constexpr float kLineDepth = 2.0f;

void Show(const Vector3D& start, const Vector3D& end) {
  DrawLine line(start, end, 1.0f, 255.0f, 255.0f, 255.0f, 1.0f);
  g_engine->Broadcast(&line);
}

/// A binary heap with the least `f` on top. Each comparison reads `f` anew, so a cell that changes
/// while it is inside changes its rank; the paths rely on the very order that this gives.
class OpenList {
 public:
  bool IsEmpty() const { return m_nodes.empty(); }

  void Push(PathNode* node) {
    std::size_t at = m_nodes.size();
    m_nodes.push_back(node);
    while (at > 0 && m_nodes[(at - 1) / 2]->f > m_nodes[at]->f) {
      std::swap(m_nodes[(at - 1) / 2], m_nodes[at]);
      at = (at - 1) / 2;
    }
  }

  PathNode* Pop() {
    PathNode* top = m_nodes.front();
    m_nodes.front() = m_nodes.back();
    m_nodes.pop_back();
    std::size_t at = 0;
    for (std::size_t child = LesserChild(0); child < m_nodes.size(); child = LesserChild(at)) {
      if (m_nodes[at]->f <= m_nodes[child]->f) break;
      std::swap(m_nodes[at], m_nodes[child]);
      at = child;
    }
    return top;
  }

 private:
  /// The left one of two equals; past the end if there is none.
  std::size_t LesserChild(std::size_t at) const {
    const std::size_t left = 2 * at + 1;
    const std::size_t right = left + 1;
    return right < m_nodes.size() && m_nodes[right]->f < m_nodes[left]->f ? right : left;
  }

  std::vector<PathNode*> m_nodes;
};

void ResetNodes(const PathGrid& grid) {
  for (const auto& column : grid.m_nodes) {
    for (const auto& node : column) {
      node->g = node->h = std::numeric_limits<float>::max();
      node->f = 0.0f;
      node->closed = false;
    }
  }
}

/// True if `end` can be reached from `start` through neighbours, by a flood from `start`.
bool AreConnected(const PathNode* start, const PathNode* end) {
  std::unordered_set<const PathNode*> seen = {start};
  std::vector<const PathNode*> rest = {start};
  while (!rest.empty()) {
    const PathNode* node = rest.back();
    rest.pop_back();
    for (const PathNode* next : node->neighbours) {
      if (seen.insert(next).second) rest.push_back(next);
    }
  }
  return seen.contains(end);
}

}  // namespace

Pathfinding::Pathfinding(GameObj* owner, float curr_move, float max_time, float speed,
                         float snapping)
    : QuietComponent(owner),
      m_curr_move(curr_move),
      m_max_time_move(max_time),
      m_speed(speed),
      m_snappingDist(snapping) {}

template <class Visitor>
void Pathfinding::Fields(Visitor& visit) {
  visit("m_curr_move", &Pathfinding::m_curr_move, "Curr Mov", FieldBounds{0.0, 60.0});
  visit("m_max_time_move", &Pathfinding::m_max_time_move, "Max Time", FieldBounds{0.0, 60.0});
  visit("m_speed", &Pathfinding::m_speed, "Speed", FieldBounds{0.0, 5000.0});
  visit("m_snappingDist", &Pathfinding::m_snappingDist, "Snapping distance",
        FieldBounds{0.0, 200.0});
  visit("m_reached", &Pathfinding::m_reached, "Reached");
  visit("m_drawPath", &Pathfinding::m_drawPath, "Draw");
}
ZOV_COMPONENT_FIELDS(Pathfinding)

void Pathfinding::Init() {
  m_init = true;
  m_target = nullptr;
  m_found = false;
}

void Pathfinding::SetTarget(GameObj* target) {
  if (!m_init) Init();
  m_target = target;
  m_found = false;
}

void Pathfinding::Update(float dt) {
  if (!m_init) Init();
  if (!m_active) return;
  if (!m_found) {
    Search();
    return;
  }
  const Vector3D position = m_owner->GetComponent<Transform>()->m_world_pos;
  if (m_drawPath) Draw(position);
  Follow(position, dt);
}

void Pathfinding::Draw(const Vector3D& position) const {
  if (m_path.size() < 2) return;
  Show(position, m_path.front());
  for (std::size_t i = 1; i < m_path.size(); ++i) {
    const Vector3D& start = m_path[i - 1];
    const Vector3D& end = m_path[i];
    Show(Vector3D(start.x, start.y, kLineDepth), Vector3D(end.x, end.y, kLineDepth));
  }
}

void Pathfinding::Follow(const Vector3D& position, float dt) {
  // Past the last point is the arrival.
  if (m_curr_move >= m_max_time_move || m_curr_index >= m_path.size()) {
    Finish();
    return;
  }
  const Vector3D offset = m_path[m_curr_index] - position;
  if (m_snappingDist > offset.Length()) {
    ++m_curr_index;
    return;
  }
  PushAlong(*m_owner, offset, m_speed, kMoverPushTime);
  m_curr_move += dt;
}

void Pathfinding::Finish() {
  m_reached = true;
  m_curr_move = 0.0f;
}

void Pathfinding::Search() {
  const PathGrid& grid = PathGrid::Shared();
  if (!grid.m_built || m_target == nullptr) return;
  const auto* own = FindComponent<Transform>(m_owner);
  const auto* goal = FindComponent<Transform>(m_target);
  if (own == nullptr || goal == nullptr) return;
  PathNode* start = grid.NodeAt(own->m_world_pos);
  PathNode* end = grid.NodeAt(goal->m_world_pos);
  if (start == nullptr || end == nullptr) return;
  ResetNodes(grid);
  m_path.clear();
  m_curr_index = 0;
  SearchFrom(start, end);
}

/// A* (Hart, Nilsson and Raphael 1968), in two points deliberately unrefined: a cell's cost is
/// overwritten without a comparison, and a cell can be open several times, each of which expands it
/// anew. The resulting paths rest on both.
///
/// Without a path to the target it would expand cells for very long, so a flood tests that first.
void Pathfinding::SearchFrom(PathNode* start, PathNode* end) {
  start->h = Heuristic(start->grid_pos, end->grid_pos);
  start->g = 0.0f;
  end->g = start->h;
  start->parent = end->parent = nullptr;
  if (!AreConnected(start, end)) return;
  OpenList open;
  open.Push(start);
  while (!open.IsEmpty()) {
    PathNode* node = open.Pop();
    node->closed = true;
    if (node == end) {
      TakePath(start, end);
      return;
    }
    for (PathNode* next : node->neighbours) {
      if (next->closed) continue;
      next->g = node->g + Heuristic(node->grid_pos, next->grid_pos);
      next->h = Heuristic(next->grid_pos, end->grid_pos);
      next->f = next->g + next->h;
      next->parent = node;
      open.Push(next);
    }
  }
}

void Pathfinding::TakePath(const PathNode* start, const PathNode* end) {
  for (const PathNode* node = end; node != start; node = node->parent) {
    m_path.push_back(node->world_pos);
  }
  std::reverse(m_path.begin(), m_path.end());
  m_found = true;
}

}  // namespace ZOVEngine
