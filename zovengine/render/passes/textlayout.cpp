#include "render/passes/textlayout.h"

namespace ZOVEngine {
namespace {

constexpr unsigned kAdvanceShift = 6;  // 1/64 pixels to pixels

GlyphQuad PlaceGlyph(const Character& g, const Vector3D& pen, float scale) {
  GlyphQuad quad;
  quad.texture = g.TextureID;
  quad.x = pen.x + static_cast<float>(g.BearingX) * scale;
  quad.y = pen.y - static_cast<float>(g.SizeY - g.BearingY) * scale;
  quad.z = pen.z;
  quad.width = static_cast<float>(g.SizeX) * scale;
  quad.height = static_cast<float>(g.SizeY) * scale;
  return quad;
}

}  // namespace

void LayOutText(const std::string& text, Vector3D position, float scale, GlyphMap* glyphs,
                std::vector<GlyphQuad>* out) {
  for (const char c : text) {
    const Character& g = (*glyphs)[static_cast<signed char>(c)];
    if (g.SizeX != 0 && g.SizeY != 0) out->push_back(PlaceGlyph(g, position, scale));
    position.x += static_cast<float>(g.Advance >> kAdvanceShift) * scale;
  }
}

}  // namespace ZOVEngine
