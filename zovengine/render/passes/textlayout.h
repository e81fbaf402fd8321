#pragma once

#include <string>
#include <vector>

#include "core/base/vector3d.h"
#include "render/frame.h"
#include "render/images/glyphs.h"

namespace ZOVEngine {

/// Appends the characters of `text` to `out`, left to right from the base line at `position`;
/// `scale` 1 is the size of the glyph bitmaps (unit: world units a pixel).
///
/// There are no line breaks and no kerning: each character moves the pen by the whole pixels of its
/// advance. A character that `glyphs` lacks enters it as an empty record, which shows and moves
/// nothing. Characters without extent are left out of `out`.
void LayOutText(const std::string& text, Vector3D position, float scale, GlyphMap* glyphs,
                std::vector<GlyphQuad>* out);

}  // namespace ZOVEngine
