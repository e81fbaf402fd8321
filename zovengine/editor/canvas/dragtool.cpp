#include "editor/canvas/dragtool.h"

#include <array>
#include <cmath>
#include <cstdio>

#include "editor/editordata.h"
#include "editor/leveleditor.h"
#include "game/objectquery.h"
#include "physics/components/transform.h"

namespace ZOVEngine {
namespace {

constexpr float kFullTurn = 360.0f;  ///< (unit: degrees)
constexpr double kRadians = 3.14159265358979323846 / 180.0;

/// How far the ancestors turn the place of an object (unit: radians).
double ParentsTurn(const Transform& transform) {
  double degrees = 0.0;
  if (!transform.m_rotate_with_parent) return degrees;
  for (GameObj* at = transform.m_owner->parent; at != nullptr; at = at->parent) {
    if (const auto* parent = FindComponent<Transform>(at)) degrees += parent->m_local_rotate;
  }
  return degrees * kRadians;
}

float Added(float value, double offset) {
  return static_cast<float>(static_cast<double>(value) + offset);
}

/// The angle within half a turn to both sides.
float Wrapped(float degrees) {
  return std::remainder(degrees, kFullTurn);
}

template <class... Numbers>
std::string Format(const char* format, Numbers... numbers) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), format, static_cast<double>(numbers)...);
  return text.data();
}

}  // namespace

bool DragTool::Begin(const std::vector<const SceneEntry*>& objects, Handle handle,
                     std::uint32_t mode, const Vector3D& mouse, const ObjectPath& grabbed) {
  m_dragged.clear();
  m_grabbed = 0;
  m_watch.reset();
  std::vector<ObjectPath> paths;
  std::vector<const SceneEntry*> free;
  for (const SceneEntry* entry : objects) {
    Transform* transform = entry->transform;
    if (transform == nullptr || !transform->CanBeDragged) continue;
    if (IsWithin(grabbed, entry->path)) m_grabbed = m_dragged.size();
    m_dragged.push_back({entry->object, transform, transform->m_local_pos, transform->m_world_pos,
                         transform->m_local_scale, transform->m_local_rotate,
                         ParentsTurn(*transform)});
    paths.push_back(entry->path);
    free.push_back(entry);
  }
  m_gesture.Begin(paths, "Transform");
  m_pivot = PivotPoint(free);
  m_handle = handle;
  m_mode = mode;
  m_start = mouse;
  m_measure.clear();
  if (!m_dragged.empty()) m_watch.emplace();
  return IsOpen();
}

void DragTool::Update(const Vector3D& mouse, const SnapGrid& grid) {
  if (!IsOpen()) return;
  if (m_mode == EDIT_MOVE) Move(mouse, grid);
  if (m_mode == EDIT_ROTATE) Turn(mouse, grid);
  if (m_mode == EDIT_SCALE) Scale(mouse, grid);
  for (const Dragged& dragged : m_dragged) dragged.transform->DeriveWorld();
}

void DragTool::Place(const Dragged& dragged, double x, double y) {
  const double cosine = std::cos(dragged.parents_turn), sine = std::sin(dragged.parents_turn);
  Vector3D position = dragged.local;
  position.x = Added(position.x, x * cosine + y * sine);
  position.y = Added(position.y, y * cosine - x * sine);
  dragged.transform->SetLocalPosition(position);
}

void DragTool::Move(const Vector3D& mouse, const SnapGrid& grid) {
  const Vector3D& from = m_dragged[m_grabbed].world;
  const Vector3D to = grid.Position(from + (mouse - m_start));
  const bool moved = !(mouse == m_start);
  // In doubles, so that what stands on the grid stands on it exactly.
  const double x = moved && m_handle != Handle::kAxisY ? double{to.x} - double{from.x} : 0.0;
  const double y = moved && m_handle != Handle::kAxisX ? double{to.y} - double{from.y} : 0.0;
  for (const Dragged& dragged : m_dragged) Place(dragged, x, y);
  m_measure = Format("%.1f, %.1f", x, y);
}

float DragTool::SnappedAngle(float free, const SnapGrid& grid) const {
  if (free == 0.0f || m_dragged.size() > 1) return grid.Angle(free);
  // A single object is brought to a multiple of the step itself.
  const float rotation = m_dragged.front().rotation;
  return grid.Angle(rotation + free) - rotation;
}

void DragTool::Turn(const Vector3D& mouse, const SnapGrid& grid) {
  const float free = Wrapped(Heading(mouse - m_pivot) - Heading(m_start - m_pivot));
  const float angle = SnappedAngle(free, grid);
  const double cosine = std::cos(angle * kRadians), sine = std::sin(angle * kRadians);
  for (const Dragged& dragged : m_dragged) {
    const double dx = double{dragged.world.x} - double{m_pivot.x};
    const double dy = double{dragged.world.y} - double{m_pivot.y};
    Place(dragged, dx * cosine - dy * sine - dx, dx * sine + dy * cosine - dy);
    Transform& transform = *dragged.transform;
    transform.m_local_rotate = angle == 0.0f ? dragged.rotation : Wrapped(dragged.rotation + angle);
    transform.m_prev_rotate = transform.m_local_rotate;
  }
  const bool single = m_dragged.size() == 1;
  m_measure = Format("%.1f deg", single ? m_dragged.front().transform->m_local_rotate : angle);
}

void DragTool::Scale(const Vector3D& mouse, const SnapGrid& grid) {
  const Vector3D from = m_start - m_pivot, to = mouse - m_pivot;
  const float reach = std::hypot(from.x, from.y);
  const bool moved = !(mouse == m_start) && reach > 0.0f;
  const float factor = moved ? grid.Factor(std::hypot(to.x, to.y) / reach) : 1.0f;
  const float x = m_handle == Handle::kHorizontalEdge ? 1.0f : factor;
  const float y = m_handle == Handle::kVerticalEdge ? 1.0f : factor;
  for (const Dragged& dragged : m_dragged) {
    Place(dragged, (dragged.world.x - m_pivot.x) * (x - 1.0f),
          (dragged.world.y - m_pivot.y) * (y - 1.0f));
    dragged.transform->m_local_scale =
        Vector3D(dragged.scale.x * x, dragged.scale.y * y, dragged.scale.z);
  }
  m_measure = Format("x %.2f", factor);
}

std::string DragTool::Label() const {
  const char* verb = m_mode == EDIT_MOVE ? "Move " : m_mode == EDIT_ROTATE ? "Turn " : "Scale ";
  if (m_dragged.size() == 1) return verb + m_dragged.front().object->name;
  return verb + std::to_string(m_dragged.size()) + " objects";
}

void DragTool::End(LevelEditor& editor) {
  if (IsOpen()) {
    if (auto command = m_gesture.End(&editor.document, Label())) editor.Do(std::move(command));
  }
  Close();
}

void DragTool::Cancel() {
  if (IsOpen()) m_gesture.Cancel();
  Close();
}

void DragTool::Close() {
  m_gesture = ObjectGesture();
  m_watch.reset();
  m_dragged.clear();
}

void Nudge(LevelEditor& editor, const std::vector<const SceneEntry*>& objects, float x, float y) {
  DragTool drag;
  if (!drag.Begin(objects, Handle::kBody, EDIT_MOVE, Vector3D(), {})) return;
  drag.Update(Vector3D(x, y, 0.0f), SnapGrid());
  drag.End(editor);
}

}  // namespace ZOVEngine
