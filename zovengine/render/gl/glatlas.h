#pragma once

#include <GL/glew.h>

#include <cstdint>
#include <vector>

#include "render/gl/glstate.h"

namespace ZOVEngine {

/// The rectangle of a glyph on a page of the atlas. A glyph without texels has page 0.
struct GlyphRectangle {
  GLuint page = 0;  ///< texture name
  float u_left = 0.0f;
  float u_right = 0.0f;
  float v_top = 0.0f;
  float v_bottom = 0.0f;
};

/// Keeps the coverage bitmaps of all glyphs on few textures, so that a text is one draw.
///
/// A copy of its edge texels surrounds each glyph: with linear filtering the glyph looks as if it
/// had a texture of its own, clamped to the edge. Pages have texture names far above the positions
/// of the list of textures, and are never freed.
class GlyphAtlas {
 public:
  /// Adds a bitmap (one byte a pixel, rows from the top) and returns its number, counted from 1.
  std::uint32_t Add(GLState& state, int width, int height, const std::uint8_t* coverage);

  /// The rectangle of the glyph of this number; an empty one for a number that was never given.
  const GlyphRectangle& Find(std::uint32_t glyph) const;

 private:
  void OpenPage(GLState& state, int needed_side);
  bool PlaceOnShelf(int width, int height, int* left, int* top);

  std::vector<GlyphRectangle> m_rectangles;
  GLuint m_page = 0;
  GLuint m_pages = 0;
  int m_side = 0;
  int m_shelf_left = 0;
  int m_shelf_top = 0;
  int m_shelf_height = 0;
};

}  // namespace ZOVEngine
