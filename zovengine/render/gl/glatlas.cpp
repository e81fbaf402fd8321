#include "render/gl/glatlas.h"

#include <algorithm>
#include <cstddef>

namespace ZOVEngine {

namespace {

constexpr GLuint kFirstPage = 0x70000000u;
constexpr int kPageSide = 512;
constexpr int kBorder = 1;  // (unit: texels)

/// The bitmap with its edge texels repeated once outwards on all sides.
std::vector<std::uint8_t> WithBorder(int width, int height, const std::uint8_t* coverage) {
  std::vector<std::uint8_t> padded;
  padded.reserve(static_cast<std::size_t>(width + 2 * kBorder) *
                 static_cast<std::size_t>(height + 2 * kBorder));
  for (int y = -kBorder; y < height + kBorder; ++y) {
    const std::uint8_t* row =
        coverage + static_cast<std::ptrdiff_t>(std::clamp(y, 0, height - 1)) * width;
    for (int x = -kBorder; x < width + kBorder; ++x) {
      padded.push_back(row[std::clamp(x, 0, width - 1)]);
    }
  }
  return padded;
}

}  // namespace

std::uint32_t GlyphAtlas::Add(GLState& state, int width, int height, const std::uint8_t* coverage) {
  GlyphRectangle& rectangle = m_rectangles.emplace_back();
  const auto number = static_cast<std::uint32_t>(m_rectangles.size());
  if (width <= 0 || height <= 0 || !coverage) return number;
  const int wide = width + 2 * kBorder;
  const int high = height + 2 * kBorder;
  int left = 0;
  int top = 0;
  if (!PlaceOnShelf(wide, high, &left, &top)) {
    OpenPage(state, std::max(wide, high));
    PlaceOnShelf(wide, high, &left, &top);
  }
  state.EditTexture(m_page);
  glPixelStorei(GL_UNPACK_ALIGNMENT, 1);  // rows of single bytes
  glTexSubImage2D(GL_TEXTURE_2D, 0, left, top, wide, high, GL_RED, GL_UNSIGNED_BYTE,
                  WithBorder(width, height, coverage).data());
  const auto across = [this](int texel) {
    return static_cast<float>(texel) / static_cast<float>(m_side);
  };
  rectangle = {m_page, across(left + kBorder), across(left + kBorder + width),
               across(top + kBorder), across(top + kBorder + height)};
  return number;
}

const GlyphRectangle& GlyphAtlas::Find(std::uint32_t glyph) const {
  static const GlyphRectangle kNone;
  return glyph == 0 || glyph > m_rectangles.size() ? kNone : m_rectangles[glyph - 1];
}

void GlyphAtlas::OpenPage(GLState& state, int needed_side) {
  m_side = kPageSide;
  while (m_side < needed_side) m_side *= 2;
  m_shelf_left = m_shelf_top = m_shelf_height = 0;
  m_page = kFirstPage + m_pages++;
  state.EditTexture(m_page);
  const std::vector<std::uint8_t> blank(static_cast<std::size_t>(m_side * m_side));
  glTexImage2D(GL_TEXTURE_2D, 0, GL_R8, m_side, m_side, 0, GL_RED, GL_UNSIGNED_BYTE, blank.data());
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
}

bool GlyphAtlas::PlaceOnShelf(int width, int height, int* left, int* top) {
  if (m_shelf_left + width > m_side) {
    m_shelf_top += m_shelf_height;
    m_shelf_left = m_shelf_height = 0;
  }
  if (m_shelf_left + width > m_side || m_shelf_top + height > m_side) return false;
  *left = m_shelf_left;
  *top = m_shelf_top;
  m_shelf_left += width;
  m_shelf_height = std::max(m_shelf_height, height);
  return true;
}

}  // namespace ZOVEngine
