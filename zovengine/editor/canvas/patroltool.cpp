#include "editor/canvas/patroltool.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "editor/canvas/keys.h"
#include "editor/leveleditor.h"
#include "game/objectquery.h"
#include "game/units/enemy.h"
#include "physics/components/transform.h"

namespace ZOVEngine {
namespace {

constexpr float kWaypointReach =
    8.0f;  ///< how near the mouse must be to a waypoint or a leg (unit: pixels)
constexpr float kKnot = 6.0f, kLitKnot = 8.0f;  ///< radius of a waypoint's mark (unit: pixels)
constexpr ImU32 kPath = IM_COL32(255, 140, 90, 255), kLead = IM_COL32(255, 140, 90, 150);
constexpr ImU32 kLitWaypoint = IM_COL32(255, 255, 255, 255);

float PixelsBetween(const Vector3D& a, const Vector3D& b) {
  return std::hypot(a.x - b.x, a.y - b.y);
}

float DistanceToLeg(const Vector3D& point, const Vector3D& a, const Vector3D& b) {
  const float dx = b.x - a.x, dy = b.y - a.y, length = dx * dx + dy * dy;
  if (length <= 0.0f) return PixelsBetween(point, a);
  const float t = std::clamp(((point.x - a.x) * dx + (point.y - a.y) * dy) / length, 0.0f, 1.0f);
  return PixelsBetween(point, Vector3D(a.x + dx * t, a.y + dy * t, 0.0f));
}

const Transform* FindPlace(const Enemy& enemy) {
  return FindComponent<Transform>(enemy.m_owner);
}

/// Whether the enemy's body covers the point.
bool Covers(const Enemy& enemy, const Vector3D& point) {
  const Transform& place = *FindPlace(enemy);
  return PixelsBetween(point, place.m_world_pos) <= std::abs(place.m_world_scale.x) * 0.5f;
}

/// Changes the path of an enemy as one gesture.
template <class Change>
void EditPath(LevelEditor& editor, Enemy* enemy, const std::string& verb, Change change) {
  ObjectGesture gesture;
  gesture.Begin({PathTo(enemy->m_owner)}, "Enemy");
  change(enemy->m_waypoints);
  const std::string label = verb + " waypoint of " + enemy->m_owner->name;
  if (auto command = gesture.End(&editor.document, label)) editor.Do(std::move(command));
}

void InsertKnot(LevelEditor& editor, Enemy* enemy, std::size_t place, const Vector3D& point) {
  Vector3D knot = PresentGrid(editor).Position(point);
  knot.z = 1.0f;
  EditPath(editor, enemy, "Add", [&](std::vector<Vector3D>& path) {
    path.insert(path.begin() + static_cast<std::ptrdiff_t>(place), knot);
  });
}

}  // namespace

PatrolTool::Knot PatrolTool::KnotAt(const Vector3D& point, float reach) {
  Knot nearest;
  const bool under_enemies = ImGui::GetIO().KeyCtrl;
  for (Enemy* enemy : ComponentTable<Enemy>().Components()) {
    if (FindPlace(*enemy) == nullptr || (Covers(*enemy, point) && !under_enemies)) continue;
    for (std::size_t i = 0; i < enemy->m_waypoints.size(); ++i) {
      const float distance = PixelsBetween(point, enemy->m_waypoints[i]);
      if (distance > reach) continue;
      reach = distance;
      nearest = {enemy, i};
    }
  }
  return nearest;
}

PatrolTool::Knot PatrolTool::LegAt(const Vector3D& point, float reach) {
  for (Enemy* enemy : ComponentTable<Enemy>().Components()) {
    if (FindPlace(*enemy) == nullptr || Covers(*enemy, point)) continue;
    Vector3D from = FindPlace(*enemy)->m_world_pos;
    for (std::size_t i = 0; i < enemy->m_waypoints.size(); ++i) {
      if (DistanceToLeg(point, from, enemy->m_waypoints[i]) <= reach) return {enemy, i};
      from = enemy->m_waypoints[i];
    }
  }
  return {};
}

void PatrolTool::Drop() {
  if (IsBusy()) m_gesture.Cancel();
  m_gesture = ObjectGesture();
  m_watch.reset();
  m_knot = {};
}

bool PatrolTool::Update(LevelEditor& editor, const CanvasView& view, bool free) {
  const Vector3D mouse = view.ToWorld(ImGui::GetIO().MousePos);
  if (IsBusy()) {
    Drag(editor, mouse);
    return true;
  }
  m_knot = {};
  if (!free || !editor.overlays.patrols) return false;
  m_knot = KnotAt(mouse, kWaypointReach * view.UnitsPerPixel());
  return Press(editor, mouse, view.UnitsPerPixel()) || m_knot.enemy != nullptr;
}

void PatrolTool::Drag(LevelEditor& editor, const Vector3D& mouse) {
  if (ImGui::GetIO().MouseDown[1] || IsPressed(CanvasKey::kEscape)) {
    Drop();
    return;
  }
  if (m_knot.place < m_knot.enemy->m_waypoints.size() && ImGui::IsMousePosValid()) {
    Vector3D& knot = m_knot.enemy->m_waypoints[m_knot.place];
    const Vector3D place = PresentGrid(editor).Position(mouse);
    knot = Vector3D(place.x, place.y, knot.z);
  }
  if (ImGui::GetIO().MouseDown[0]) return;
  const std::string label = "Move waypoint of " + m_knot.enemy->m_owner->name;
  if (auto command = m_gesture.End(&editor.document, label)) editor.Do(std::move(command));
  Drop();
}

bool PatrolTool::Press(LevelEditor& editor, const Vector3D& mouse, float pixel) {
  if (ImGui::IsMouseDoubleClicked(0) && m_knot.enemy == nullptr) {
    return AddKnot(editor, mouse, pixel);
  }
  if (!ImGui::IsMouseClicked(0) || m_knot.enemy == nullptr) return false;
  m_gesture.Begin({PathTo(m_knot.enemy->m_owner)}, "Enemy");
  m_watch.emplace();
  return true;
}

bool PatrolTool::AddKnot(LevelEditor& editor, const Vector3D& mouse, float pixel) {
  if (ImGui::GetIO().KeyCtrl) {
    GameObj* selected = ObjectAt(editor.Primary());
    Enemy* enemy = selected != nullptr ? FindComponent<Enemy>(selected) : nullptr;
    if (enemy == nullptr) return false;
    InsertKnot(editor, enemy, enemy->m_waypoints.size(), mouse);
    return true;
  }
  const Knot leg = LegAt(mouse, kWaypointReach * pixel);
  if (leg.enemy == nullptr) return false;
  InsertKnot(editor, leg.enemy, leg.place, mouse);
  return true;
}

bool PatrolTool::RunDelete(LevelEditor& editor) {
  if (m_knot.enemy == nullptr || IsBusy() || ImGui::GetIO().WantTextInput) return false;
  if (!IsPressed(CanvasKey::kDelete)) return false;
  EditPath(editor, m_knot.enemy, "Remove", [this](std::vector<Vector3D>& path) {
    path.erase(path.begin() + static_cast<std::ptrdiff_t>(m_knot.place));
  });
  m_knot = {};
  return true;
}

void PatrolTool::Draw(CanvasPainter& painter) const {
  for (Enemy* enemy : ComponentTable<Enemy>().Components()) {
    if (enemy->m_waypoints.empty() || FindPlace(*enemy) == nullptr) continue;
    const std::vector<Vector3D>& path = enemy->m_waypoints;
    painter.DashedLine(FindPlace(*enemy)->m_world_pos, path.front(), kLead);
    for (std::size_t i = 1; i < path.size(); ++i) painter.Line(path[i - 1], path[i], kPath);
    for (std::size_t i = 0; i < path.size(); ++i) {
      const bool lit = enemy == m_knot.enemy && i == m_knot.place;
      painter.Dot(path[i], lit ? kLitKnot : kKnot, lit ? kLitWaypoint : kPath);
    }
  }
}

}  // namespace ZOVEngine
