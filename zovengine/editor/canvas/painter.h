#pragma once

#include <vector>

#include "core/base/noncopyable.h"
#include "editor/canvas/canvasview.h"

namespace ZOVEngine {

/// Draws lines and marks over the picture of the level and nowhere else.
///
/// Points are the level's, widths are pixels; what lies outside of the picture is left out. Each
/// line has a dark rim, so that it is seen on light and on dark ground. One lives for one frame,
/// between ImGui's NewFrame and Render. ImGui ends the program when a list has more than 65,535
/// vertices, so a painter that has used up its share leaves out the rest.
class CanvasPainter : private NonCopyable {
 public:
  /// The shares of the list's vertices: for what helps, and for what the author works with.
  static constexpr int kOverlayVertices = 45'000, kToolVertices = 60'000;

  CanvasPainter(const CanvasView& view, int most_vertices);
  ~CanvasPainter();

  void Line(const Vector3D& from, const Vector3D& to, ImU32 colour, float width = 2.0f);
  /// A thin line without a rim, for what is drawn in great numbers.
  void HairLine(const Vector3D& from, const Vector3D& to, ImU32 colour);
  void DashedLine(const Vector3D& from, const Vector3D& to, ImU32 colour);
  /// A line through all points and back to the first.
  void Outline(const Vector3D* points, std::size_t count, ImU32 colour, float width = 2.0f);
  void Fill(const Vector3D* points, std::size_t count, ImU32 colour);
  /// `radius` is in world units.
  void Circle(const Vector3D& middle, float radius, ImU32 colour, float width = 2.0f);
  void Disc(const Vector3D& middle, float radius, ImU32 colour);
  /// A square, and a round mark, of a fixed size on the screen (unit of `half`: pixels).
  void Square(const Vector3D& middle, float half, ImU32 colour);
  void Dot(const Vector3D& middle, float half, ImU32 colour);
  /// The head of an arrow that points from `from` to `tip`.
  void ArrowHead(const Vector3D& from, const Vector3D& tip, ImU32 colour);
  void Text(const Vector3D& place, ImU32 colour, const char* text);

  const CanvasView& View() const { return m_view; }

 private:
  void Map(const Vector3D* points, std::size_t count);
  bool IsSeen() const;
  bool HasRoom() const { return m_list->VtxBuffer.Size < m_most_vertices; }
  /// Whether there is room, and the segment or the circle reaches into the picture.
  bool Accepts(const ImVec2& a, const ImVec2& b) const;
  bool Accepts(const ImVec2& middle, float radius) const;

  const CanvasView& m_view;
  ImDrawList* m_list;
  int m_most_vertices;           ///< in the list, with what others drew before
  std::vector<ImVec2> m_points;  ///< of the shape that is drawn (unit: pixels)
};

}  // namespace ZOVEngine
