#include "editor/canvas/canvasview.h"

#include "editor/editorview.h"

namespace ZOVEngine {

CanvasView::CanvasView() : m_units_per_pixel(WorldUnitsPerPixel()) {
  const Vector3D origin = WorldToWindow(Vector3D());
  m_origin = ImVec2(origin.x, origin.y);
  const Vector3D middle = WorldToWindow(EditorCameraPosition());
  constexpr float kHalfWidth = kPictureWidth / 2.0f, kHalfHeight = kPictureHeight / 2.0f;
  m_least = ImVec2(middle.x - kHalfWidth, middle.y - kHalfHeight);
  m_most = ImVec2(middle.x + kHalfWidth, middle.y + kHalfHeight);
}

}  // namespace ZOVEngine
