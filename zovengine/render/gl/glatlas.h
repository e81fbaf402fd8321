#pragma once

#include <GL/glew.h>

#include <cstdint>
#include <vector>

#include "render/gl/glstate.h"

namespace ZOVEngine {

/// Keeps the coverage bitmaps of all glyphs on few textures, so that a text is one draw.
///
/// Each glyph is surrounded by a copy of its edge texels: sampled between its texels' edges it
/// gives what a texture of its own would give with linear filtering and clamping to the edge. Pages
/// have texture names far above the positions of the list of textures, and are never freed.
class GlyphAtlas {
 public:
  /// Where a glyph lies. A glyph without texels has page 0 and draws nothing.
  struct Spot {
    GLuint page = 0;
    float u_left = 0.0f;
    float u_right = 0.0f;
    float v_top = 0.0f;
    float v_bottom = 0.0f;
  };

  /// Adds a bitmap (one byte a pixel, rows from the top) and returns its number, counted from 1.
  std::uint32_t Add(GLState& state, int width, int height, const std::uint8_t* coverage);

  /// Where the glyph of this number lies; an empty spot for a number that was never given.
  const Spot& Find(std::uint32_t glyph) const;

 private:
  void OpenPage(GLState& state, int needed_side);
  bool PlaceOnShelf(int width, int height, int* left, int* top);

  std::vector<Spot> m_spots;
  GLuint m_page = 0;
  GLuint m_pages = 0;
  int m_side = 0;
  int m_shelf_left = 0;
  int m_shelf_top = 0;
  int m_shelf_height = 0;
};

}  // namespace ZOVEngine
