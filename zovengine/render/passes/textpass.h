#pragma once

#include "objects/componentarray.h"
#include "render/images/glyphs.h"

namespace ZOVEngine {

class Font;
class Painter;

/// Draws the texts of the active ones of `fonts`. `view_depth` is the z of the view's translation,
/// which is taken off the texts that hang on a camera. `glyphs` grows by the characters that it
/// lacks.
void TextPass(ComponentArray<Font> fonts, float view_depth, GlyphMap* glyphs, Painter& painter);

}  // namespace ZOVEngine
