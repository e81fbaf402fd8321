#include "editor/canvas/painter.h"

#include <algorithm>
#include <cmath>

namespace ZOVEngine {
namespace {

constexpr ImU32 kRim = IM_COL32(5, 8, 20, 200);
constexpr float kRimWidth = 2.0f;  ///< that the rim adds to a line (unit: pixels)
constexpr float kDash = 9.0f;      ///< length of a dash, and of the gap behind it (unit: pixels)
constexpr float kArrowLength = 13.0f, kArrowHalf = 6.0f;  // (unit: pixels)

}  // namespace

CanvasPainter::CanvasPainter(const CanvasView& view, int most_vertices)
    : m_view(view), m_list(ImGui::GetBackgroundDrawList()), m_most_vertices(most_vertices) {
  m_list->PushClipRect(view.Least(), view.Most());
}

CanvasPainter::~CanvasPainter() {
  m_list->PopClipRect();
}

bool CanvasPainter::Accepts(const ImVec2& a, const ImVec2& b) const {
  const ImVec2 middle((a.x + b.x) * 0.5f, (a.y + b.y) * 0.5f);
  return Accepts(middle, std::hypot(a.x - b.x, a.y - b.y) * 0.5f);
}

bool CanvasPainter::Accepts(const ImVec2& middle, float radius) const {
  return HasRoom() && m_view.Touches(middle, radius);
}

void CanvasPainter::Line(const Vector3D& from, const Vector3D& to, ImU32 colour, float width) {
  const ImVec2 a = m_view.ToWindow(from), b = m_view.ToWindow(to);
  if (!Accepts(a, b)) return;
  m_list->AddLine(a, b, kRim, width + kRimWidth);
  m_list->AddLine(a, b, colour, width);
}

void CanvasPainter::HairLine(const Vector3D& from, const Vector3D& to, ImU32 colour) {
  const ImVec2 a = m_view.ToWindow(from), b = m_view.ToWindow(to);
  if (Accepts(a, b)) m_list->AddLine(a, b, colour);
}

void CanvasPainter::DashedLine(const Vector3D& from, const Vector3D& to, ImU32 colour) {
  const ImVec2 a = m_view.ToWindow(from), b = m_view.ToWindow(to);
  const float length = std::hypot(b.x - a.x, b.y - a.y);
  if (length <= 0.0f || !Accepts(a, b)) return;
  const ImVec2 along((b.x - a.x) / length, (b.y - a.y) / length);
  for (float at = 0.0f; at < length; at += 2.0f * kDash) {
    const float end = std::min(at + kDash, length);
    const ImVec2 p(a.x + along.x * at, a.y + along.y * at);
    const ImVec2 q(a.x + along.x * end, a.y + along.y * end);
    if (Accepts(p, q)) m_list->AddLine(p, q, colour, 2.0f);
  }
}

void CanvasPainter::Map(const Vector3D* points, std::size_t count) {
  m_points.clear();
  for (std::size_t i = 0; i < count; ++i) m_points.push_back(m_view.ToWindow(points[i]));
}

bool CanvasPainter::IsSeen() const {
  if (m_points.empty() || !HasRoom()) return false;
  ImVec2 least = m_points[0], most = m_points[0];
  for (const ImVec2& point : m_points) {
    least = ImVec2(std::min(least.x, point.x), std::min(least.y, point.y));
    most = ImVec2(std::max(most.x, point.x), std::max(most.y, point.y));
  }
  return most.x >= m_view.Least().x && least.x <= m_view.Most().x && most.y >= m_view.Least().y &&
         least.y <= m_view.Most().y;
}

void CanvasPainter::Outline(const Vector3D* points, std::size_t count, ImU32 colour, float width) {
  Map(points, count);
  if (!IsSeen()) return;
  const int size = static_cast<int>(m_points.size());
  m_list->AddPolyline(m_points.data(), size, kRim, ImDrawFlags_Closed, width + kRimWidth);
  m_list->AddPolyline(m_points.data(), size, colour, ImDrawFlags_Closed, width);
}

void CanvasPainter::Fill(const Vector3D* points, std::size_t count, ImU32 colour) {
  Map(points, count);
  if (!IsSeen()) return;
  m_list->AddConvexPolyFilled(m_points.data(), static_cast<int>(m_points.size()), colour);
}

void CanvasPainter::Circle(const Vector3D& middle, float radius, ImU32 colour, float width) {
  const ImVec2 at = m_view.ToWindow(middle);
  const float pixels = radius / m_view.UnitsPerPixel();
  if (!Accepts(at, pixels)) return;
  m_list->AddCircle(at, pixels, kRim, 0, width + kRimWidth);
  m_list->AddCircle(at, pixels, colour, 0, width);
}

void CanvasPainter::Disc(const Vector3D& middle, float radius, ImU32 colour) {
  const ImVec2 at = m_view.ToWindow(middle);
  const float pixels = radius / m_view.UnitsPerPixel();
  if (Accepts(at, pixels)) m_list->AddCircleFilled(at, pixels, colour);
}

void CanvasPainter::Square(const Vector3D& middle, float half, ImU32 colour) {
  const ImVec2 at = m_view.ToWindow(middle);
  if (!Accepts(at, half)) return;
  const float rim = half + 1.0f;
  m_list->AddRectFilled(ImVec2(at.x - rim, at.y - rim), ImVec2(at.x + rim, at.y + rim), kRim);
  m_list->AddRectFilled(ImVec2(at.x - half, at.y - half), ImVec2(at.x + half, at.y + half), colour);
}

void CanvasPainter::Dot(const Vector3D& middle, float half, ImU32 colour) {
  const ImVec2 at = m_view.ToWindow(middle);
  if (!Accepts(at, half)) return;
  m_list->AddCircleFilled(at, half + 1.0f, kRim);
  m_list->AddCircleFilled(at, half, colour);
}

void CanvasPainter::ArrowHead(const Vector3D& from, const Vector3D& tip, ImU32 colour) {
  const ImVec2 a = m_view.ToWindow(from), b = m_view.ToWindow(tip);
  const float length = std::hypot(b.x - a.x, b.y - a.y);
  if (length <= 0.0f || !Accepts(b, kArrowLength)) return;
  const ImVec2 along((b.x - a.x) / length, (b.y - a.y) / length);
  const ImVec2 foot(b.x - along.x * kArrowLength, b.y - along.y * kArrowLength);
  const ImVec2 left(foot.x + along.y * kArrowHalf, foot.y - along.x * kArrowHalf);
  const ImVec2 right(foot.x - along.y * kArrowHalf, foot.y + along.x * kArrowHalf);
  m_list->AddTriangleFilled(b, left, right, colour);
  m_list->AddTriangle(b, left, right, kRim);
}

void CanvasPainter::Text(const Vector3D& place, ImU32 colour, const char* text) {
  const ImVec2 at = m_view.ToWindow(place);
  m_list->AddText(ImVec2(at.x + 1.0f, at.y + 1.0f), kRim, text);
  m_list->AddText(at, colour, text);
}

}  // namespace ZOVEngine
