#include "editor/canvas/handles.h"

#include <algorithm>
#include <cmath>

#include "editor/editordata.h"
#include "physics/components/transform.h"

namespace ZOVEngine {
namespace {

constexpr float kArrow = 72.0f;      ///< length (unit: pixels)
constexpr float kGap = 14.0f;        ///< of an arrow from the middle (unit: pixels)
constexpr float kReach = 8.0f;       ///< how near the mouse must be to a handle (unit: pixels)
constexpr float kLeastRing = 48.0f;  ///< radius (unit: pixels)
constexpr float kSquare = 5.0f;      ///< half the side of a square handle (unit: pixels)
constexpr ImU32 kRed = IM_COL32(255, 96, 96, 255), kGreen = IM_COL32(110, 235, 120, 255);
constexpr ImU32 kBlue = IM_COL32(96, 190, 255, 255), kAmber = IM_COL32(255, 201, 77, 255);
constexpr ImU32 kLit = IM_COL32(255, 255, 255, 255);

float Distance(const Vector3D& a, const Vector3D& b) {
  return std::hypot(a.x - b.x, a.y - b.y);
}

float DistanceToSegment(const Vector3D& point, const Vector3D& a, const Vector3D& b) {
  const float dx = b.x - a.x, dy = b.y - a.y;
  const float length = dx * dx + dy * dy;
  if (length <= 0.0f) return Distance(point, a);
  const float t = std::clamp(((point.x - a.x) * dx + (point.y - a.y) * dy) / length, 0.0f, 1.0f);
  return Distance(point, Vector3D(a.x + dx * t, a.y + dy * t, 0.0f));
}

ImU32 Colour(Handle handle, Handle lit, ImU32 plain) {
  return handle == lit ? kLit : plain;
}

}  // namespace

Vector3D PivotPoint(const std::vector<const SceneEntry*>& objects) {
  Vector3D sum;
  for (const SceneEntry* entry : objects) sum += entry->transform->m_world_pos;
  return objects.empty() ? sum : sum / static_cast<float>(objects.size());
}

Handles::Handles(const std::vector<const SceneEntry*>& selected, std::uint32_t mode,
                 const CanvasView& view)
    : m_mode(mode),
      m_pixel(view.UnitsPerPixel()),
      m_shown(!selected.empty()),
      m_single(selected.size() == 1) {
  if (!m_shown) return;
  Enclose(selected);
  if (!m_single) return;
  m_bounds.middle = selected.front()->transform->m_world_pos;
}

void Handles::Enclose(const std::vector<const SceneEntry*>& selected) {
  m_bounds = FindBounds(*selected.front(), m_pixel);
  if (!m_single) {
    Vector3D least = m_bounds.middle, most = m_bounds.middle;
    for (const SceneEntry* entry : selected) {
      for (const Vector3D& corner : FindBounds(*entry, m_pixel).Corners()) {
        least = Vector3D(std::min(least.x, corner.x), std::min(least.y, corner.y), 0.0f);
        most = Vector3D(std::max(most.x, corner.x), std::max(most.y, corner.y), 0.0f);
      }
    }
    m_bounds = {(least + most) * 0.5f, (most.x - least.x) * 0.5f, (most.y - least.y) * 0.5f, 0.0f};
  }
  const float diagonal = std::hypot(m_bounds.half_width, m_bounds.half_height);
  m_radius = std::max(kLeastRing * m_pixel, diagonal);
}

Vector3D Handles::ArrowTip(float x, float y) const {
  return m_bounds.middle + Vector3D(x, y, 0.0f) * (kArrow * m_pixel);
}

std::array<Vector3D, 4> Handles::EdgeMiddles() const {
  const std::array<Vector3D, 4> corner = m_bounds.Corners();
  return {(corner[1] + corner[2]) * 0.5f, (corner[3] + corner[0]) * 0.5f,
          (corner[2] + corner[3]) * 0.5f, (corner[0] + corner[1]) * 0.5f};
}

Handle Handles::At(const Vector3D& point) const {
  if (!m_shown) return Handle::kNone;
  if (m_mode == EDIT_MOVE) return ArrowAt(point);
  if (m_mode == EDIT_SCALE) return SquareAt(point);
  const float off = std::abs(Distance(point, m_bounds.middle) - m_radius);
  return off <= kReach * m_pixel ? Handle::kRing : Handle::kNone;
}

Handle Handles::ArrowAt(const Vector3D& point) const {
  const float reach = kReach * m_pixel, gap = kGap * m_pixel;
  const Vector3D right = m_bounds.middle + Vector3D(gap, 0.0f, 0.0f);
  const Vector3D up = m_bounds.middle + Vector3D(0.0f, gap, 0.0f);
  if (DistanceToSegment(point, right, ArrowTip(1.0f, 0.0f)) <= reach) return Handle::kAxisX;
  if (DistanceToSegment(point, up, ArrowTip(0.0f, 1.0f)) <= reach) return Handle::kAxisY;
  return Handle::kNone;
}

Handle Handles::SquareAt(const Vector3D& point) const {
  const float reach = kReach * m_pixel;
  for (const Vector3D& corner : m_bounds.Corners()) {
    if (Distance(point, corner) <= reach) return Handle::kCorner;
  }
  if (!m_single) return Handle::kNone;
  const std::array<Vector3D, 4> edges = EdgeMiddles();
  for (std::size_t i = 0; i < edges.size(); ++i) {
    if (Distance(point, edges[i]) > reach) continue;
    return i < 2 ? Handle::kVerticalEdge : Handle::kHorizontalEdge;
  }
  return Handle::kNone;
}

void Handles::Draw(CanvasPainter& painter, Handle lit) const {
  if (!m_shown) return;
  if (m_mode == EDIT_MOVE) {
    DrawArrows(painter, lit);
  } else if (m_mode == EDIT_SCALE) {
    DrawSquares(painter, lit);
  } else {
    DrawRing(painter, lit);
  }
}

void Handles::DrawArrows(CanvasPainter& painter, Handle lit) const {
  const float gap = kGap * m_pixel;
  const ImU32 red = Colour(Handle::kAxisX, lit, kRed), green = Colour(Handle::kAxisY, lit, kGreen);
  const Vector3D right = ArrowTip(1.0f, 0.0f), up = ArrowTip(0.0f, 1.0f);
  painter.Line(m_bounds.middle + Vector3D(gap, 0.0f, 0.0f), right, red, 3.0f);
  painter.Line(m_bounds.middle + Vector3D(0.0f, gap, 0.0f), up, green, 3.0f);
  painter.ArrowHead(m_bounds.middle, right, red);
  painter.ArrowHead(m_bounds.middle, up, green);
  painter.Dot(m_bounds.middle, kSquare, Colour(Handle::kBody, lit, kAmber));
}

void Handles::DrawRing(CanvasPainter& painter, Handle lit) const {
  const ImU32 blue = Colour(Handle::kRing, lit, kBlue);
  painter.Circle(m_bounds.middle, m_radius, blue, 3.0f);
  const float angle = m_bounds.angle + kPi / 2.0f;
  const Vector3D along(std::cos(angle), std::sin(angle), 0.0f);
  painter.Dot(m_bounds.middle + along * m_radius, kSquare, blue);
  painter.Dot(m_bounds.middle, 3.0f, kAmber);
}

void Handles::DrawSquares(CanvasPainter& painter, Handle lit) const {
  for (const Vector3D& corner : m_bounds.Corners()) {
    painter.Square(corner, kSquare, Colour(Handle::kCorner, lit, kAmber));
  }
  if (!m_single) return;
  const std::array<Vector3D, 4> edges = EdgeMiddles();
  for (std::size_t i = 0; i < edges.size(); ++i) {
    const bool vertical = i < 2;
    const Handle handle = vertical ? Handle::kVerticalEdge : Handle::kHorizontalEdge;
    painter.Square(edges[i], kSquare - 1.0f, Colour(handle, lit, vertical ? kRed : kGreen));
  }
}

}  // namespace ZOVEngine
