#include "render/passes/textpass.h"

#include "game/camera.h"
#include "objects/componentmanager.h"
#include "render/components/font.h"
#include "render/painter.h"
#include "render/passes/placement.h"
#include "render/passes/textlayout.h"

namespace ZOVEngine {
namespace {

/// Where a text starts. A text without a parent stands at twice its coordinates, deliberately:
/// level data relies on it.
Vector3D TextPosition(GameObj* object, const Transform& own, float view_depth) {
  GameObj* anchor = object->parent != nullptr ? object->parent : object;
  Vector3D position = RequireTransform(anchor, "text").m_world_pos + own.m_local_pos;
  if (object->parent != nullptr && object->parent->HasComponent<Camera>()) position.z -= view_depth;
  return position;
}

}  // namespace

void TextPass(ComponentArray<Font> fonts, float view_depth, GlyphMap* glyphs, Painter& painter) {
  std::vector<GlyphQuad>& quads = painter.GetFrame().glyphs;
  for (const Font* font : fonts) {
    if (!font->m_active) continue;
    const Transform& transform = RequireTransform(font->m_owner, "Font");
    const auto first = static_cast<std::uint32_t>(quads.size());
    LayOutText(font->m_text, TextPosition(font->m_owner, transform, view_depth),
               transform.m_world_scale.x, glyphs, &quads);
    painter.DrawText(first, font->m_colour);
  }
}

}  // namespace ZOVEngine
