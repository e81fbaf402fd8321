#include "editor/canvas/overlays.h"

#include <algorithm>
#include <cmath>

#include "editor/canvas/energyreach.h"
#include "editor/canvas/objectbounds.h"
#include "editor/editordata.h"
#include "editor/leveleditor.h"
#include "game/hazards/deathfield.h"
#include "game/hazards/environmentblackhole.h"
#include "game/hazards/environmentdamage.h"
#include "game/hazards/environmentrough.h"
#include "game/objectquery.h"
#include "game/units/enemy.h"
#include "game/units/player.h"
#include "physics/components/colliderholder.h"
#include "physics/components/rigidbody.h"
#include "physics/components/transform.h"
#include "render/components/light.h"
#include "render/components/render.h"

namespace ZOVEngine {
namespace {

/// The colour of a line and of the area inside it.
struct Tint {
  ImU32 line, area;
};
constexpr Tint kHole = {IM_COL32(190, 120, 255, 255), IM_COL32(190, 120, 255, 30)};
constexpr Tint kHarm = {IM_COL32(255, 80, 100, 255), IM_COL32(255, 80, 100, 40)};
constexpr Tint kMud = {IM_COL32(220, 170, 90, 255), IM_COL32(220, 170, 90, 40)};
constexpr Tint kEnergy = {IM_COL32(80, 230, 180, 230), IM_COL32(80, 230, 180, 18)};
constexpr ImU32 kGrid = IM_COL32(150, 170, 220, 60), kCollider = IM_COL32(120, 255, 150, 220);
constexpr ImU32 kMark = IM_COL32(255, 240, 170, 220);
constexpr ImU32 kAim = IM_COL32(255, 90, 90, 190);
constexpr float kBossSpread = 0.25f;  ///< of a boss's outer shots (unit: radians)
constexpr float kParallel = 1e-4f;    ///< a direction has less than this along an axis
constexpr float kEndless = 1e6f;      ///< a length beyond every map (unit: world units)

void DrawShape(iCollider* shape, const Transform& transform, CanvasPainter& painter,
               const Tint& tint) {
  shape->UpdateCollider(transform);
  if (const auto* circle = dynamic_cast<const CircleCollider*>(shape)) {
    if (tint.area != 0) painter.Disc(circle->m_center, circle->m_radius, tint.area);
    painter.Circle(circle->m_center, circle->m_radius, tint.line, 1.0f);
  } else if (const auto* polygon = dynamic_cast<const PolygonCollider*>(shape)) {
    const std::vector<Vector3D>& vertices = polygon->m_world_vertices;
    if (tint.area != 0) painter.Fill(vertices.data(), vertices.size(), tint.area);
    painter.Outline(vertices.data(), vertices.size(), tint.line, 1.0f);
  }
}

void DrawCollider(GameObj* object, CanvasPainter& painter, const Tint& tint) {
  auto* holder = FindComponent<ColliderHolder>(object);
  const auto* transform = FindComponent<Transform>(object);
  if (holder == nullptr || transform == nullptr || holder->m_collider == nullptr) return;
  DrawShape(holder->m_collider.get(), *transform, painter, tint);
}

void DrawColliders(CanvasPainter& painter) {
  for (ColliderHolder* holder : ComponentTable<ColliderHolder>().Components()) {
    DrawCollider(holder->m_owner, painter, {kCollider, 0});
  }
}

void DrawGrid(CanvasPainter& painter) {
  const TileMapInfo& map = g_editor.m_tile_map;
  const auto size = static_cast<float>(map.m_tile_size);
  if (size <= 0.0f) return;
  const float x = size * static_cast<float>(map.m_width) * 0.5f;
  const float y = size * static_cast<float>(map.m_height) * 0.5f;
  for (std::int32_t i = 0; i <= map.m_width; ++i) {
    const float at = static_cast<float>(i) * size - x;
    painter.HairLine(Vector3D(at, -y, 0.0f), Vector3D(at, y, 0.0f), kGrid);
  }
  for (std::int32_t i = 0; i <= map.m_height; ++i) {
    const float at = static_cast<float>(i) * size - y;
    painter.HairLine(Vector3D(-x, at, 0.0f), Vector3D(x, at, 0.0f), kGrid);
  }
}

void DrawHoles(CanvasPainter& painter) {
  for (EnvironmentBlackhole* hole : ComponentTable<EnvironmentBlackhole>().Components()) {
    const auto* transform = FindComponent<Transform>(hole->m_owner);
    if (transform == nullptr || hole->m_suction_range <= 0.0f) continue;
    painter.Disc(transform->m_world_pos, hole->m_suction_range, kHole.area);
    painter.Circle(transform->m_world_pos, hole->m_suction_range, kHole.line);
    DrawCollider(hole->m_owner, painter, {kHole.line, 0});
  }
}

template <class Zone>
void DrawZones(CanvasPainter& painter, const Tint& tint) {
  for (Zone* zone : ComponentTable<Zone>().Components()) {
    DrawCollider(zone->m_owner, painter, tint);
  }
}

void DrawHazards(CanvasPainter& painter) {
  DrawHoles(painter);
  DrawZones<EnvironmentDamage>(painter, kHarm);
  DrawZones<DeathField>(painter, kHarm);
  DrawZones<EnvironmentRough>(painter, kMud);
}

/// Marks what has neither image nor collider, where the mouse can take it, and every light.
void DrawMarks(const SceneIndex& index, CanvasPainter& painter) {
  const std::vector<SceneEntry>& entries = index.Entries();
  for (std::uint32_t i = 0; i < entries.size(); ++i) {
    const SceneEntry& entry = entries[i];
    if (entry.unit != i || entry.is_level || entry.is_interface) continue;
    if (entry.transform == nullptr || entry.collider != nullptr) continue;
    if (HasVisibleImage(entry) && !entry.object->HasComponent<Light>()) continue;
    const Vector3D& place = entry.transform->m_world_pos;
    painter.Circle(place, kHandlePixels * painter.View().UnitsPerPixel(), kMark, 1.0f);
    painter.Dot(place, 2.0f, kMark);
  }
}

/// How far it is from `from` along `direction` to where the map ends, or a shot has no end.
float DistanceToEdge(const Vector3D& from, const Vector3D& direction) {
  const TileMapInfo& map = g_editor.m_tile_map;
  const float size = static_cast<float>(map.m_tile_size) * 0.5f;
  const float x = size * static_cast<float>(map.m_width);
  const float y = size * static_cast<float>(map.m_height);
  const auto along = [](float at, float step, float edge) {
    return std::abs(step) < kParallel ? kEndless : (std::copysign(edge, step) - at) / step;
  };
  return std::max(0.0f, std::min(along(from.x, direction.x, x), along(from.y, direction.y, y)));
}

/// How far it is from `from` along `direction` to an upright square around `middle`; infinite if
/// the ray misses it.
float DistanceToSquare(const Vector3D& from, const Vector3D& direction, const Vector3D& middle,
                       float half) {
  float enter = 0.0f, leave = kEndless;
  for (const int axis : {0, 1}) {
    const float step = direction.v[axis], gap = middle.v[axis] - from.v[axis];
    if (std::abs(step) < kParallel) {
      if (std::abs(gap) > half) return kEndless;
      continue;
    }
    const float one = (gap - half) / step, other = (gap + half) / step;
    enter = std::max(enter, std::min(one, other));
    leave = std::min(leave, std::max(one, other));
  }
  return enter <= leave ? enter : kEndless;
}

}  // namespace

void Overlays::Draw(const LevelEditor& editor, const SceneIndex& index, CanvasPainter& painter) {
  const EditorOverlays& shown = editor.overlays;
  if (shown.grid) DrawGrid(painter);
  if (shown.hazards) DrawHazards(painter);
  if (shown.energy) DrawEnergy(editor, index, painter);
  if (shown.colliders) DrawColliders(painter);
  if (shown.aims) DrawAims(painter);
  DrawMarks(index, painter);
}

void Overlays::DrawEnergy(const LevelEditor& editor, const SceneIndex& index,
                          CanvasPainter& painter) {
  for (const SceneEntry* entry : index.Selected(editor.selection)) {
    const auto* player = FindComponent<Player>(entry->object);
    const auto* body = FindComponent<RigidBody>(entry->object);
    if (player == nullptr || body == nullptr || entry->transform == nullptr) continue;
    const float reach = Reach(*player, *body);
    painter.Disc(entry->transform->m_world_pos, reach, kEnergy.area);
    painter.Circle(entry->transform->m_world_pos, reach, kEnergy.line);
  }
}

void Overlays::DrawAims(CanvasPainter& painter) {
  const auto enemies = ComponentTable<Enemy>().Components();
  if (enemies.empty()) return;
  FindWalls();
  for (const Enemy* enemy : enemies) {
    const auto* transform = FindComponent<Transform>(enemy->m_owner);
    if (transform == nullptr) continue;
    DrawAim(*transform, 0.0f, painter);
    if (!enemy->m_boss) continue;
    DrawAim(*transform, -kBossSpread, painter);
    DrawAim(*transform, kBossSpread, painter);
  }
}

void Overlays::DrawAim(const Transform& transform, float spread, CanvasPainter& painter) const {
  const Vector3D& from = transform.m_world_pos;
  const float angle = DegreesToRadians(transform.m_world_rotate + 90.0f) + spread;
  const Vector3D direction(std::cos(angle), std::sin(angle), 0.0f);
  const float half = static_cast<float>(g_editor.m_tile_map.m_tile_size) * 0.5f;
  float length = DistanceToEdge(from, direction);
  for (const Vector3D& wall : m_walls) {
    length = std::min(length, DistanceToSquare(from, direction, wall, half));
  }
  painter.DashedLine(from, from + direction * length, kAim);
}

void Overlays::FindWalls() {
  m_walls.clear();
  for (const Render* render : ComponentTable<Render>().Components()) {
    if (!render->m_tile || !render->m_owner->active || IsFloorTexture(render->m_tex)) continue;
    const auto* transform = FindComponent<Transform>(render->m_owner);
    if (transform != nullptr) m_walls.push_back(transform->m_world_pos);
  }
}

float Overlays::Reach(const Player& player, const RigidBody& body) {
  const Drive drive = {player.m_movement_limit, player.m_movement_mag, body.m_inv_mass,
                       body.m_drag};
  if (!(drive == m_drive)) {
    m_drive = drive;
    m_reach = EnergyReach(player, body);
  }
  return m_reach;
}

}  // namespace ZOVEngine
