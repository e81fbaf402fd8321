#include "render/images/glyphs.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_BITMAP_H

#include <cstdlib>
#include <iostream>
#include <vector>

#include "render/gldevice.h"

namespace ZOVEngine {
namespace {

constexpr unsigned kPixelHeight = 48;
constexpr int kGlyphCount = 128;
constexpr unsigned kFullCoverage = 255;

/// The rows of an 8-bit bitmap from the top, without padding, stretched to the full range of a
/// byte.
std::vector<std::uint8_t> PackRows(const FT_Bitmap& bitmap) {
  const std::size_t width = bitmap.width;
  const auto stride = static_cast<std::size_t>(std::abs(bitmap.pitch));
  const unsigned steps = bitmap.num_grays > 1 ? bitmap.num_grays - 1u : kFullCoverage;
  std::vector<std::uint8_t> out(width * bitmap.rows);
  for (std::size_t y = 0; y < bitmap.rows; ++y) {
    const std::size_t row = bitmap.pitch < 0 ? bitmap.rows - 1 - y : y;
    const unsigned char* from = bitmap.buffer + row * stride;
    for (std::size_t x = 0; x < width; ++x) {
      out[y * width + x] = static_cast<std::uint8_t>(from[x] * kFullCoverage / steps);
    }
  }
  return out;
}

/// PackRows of a bitmap of any kind; a font of ready-made bitmaps has one bit a pixel. Empty when
/// the conversion fails.
std::vector<std::uint8_t> Coverage(FT_Library library, const FT_Bitmap& bitmap) {
  if (bitmap.pixel_mode == FT_PIXEL_MODE_GRAY) return PackRows(bitmap);
  FT_Bitmap gray;
  FT_Bitmap_Init(&gray);
  std::vector<std::uint8_t> out;
  if (FT_Bitmap_Convert(library, &bitmap, &gray, 1) == 0) out = PackRows(gray);
  FT_Bitmap_Done(library, &gray);
  return out;
}

}  // namespace

GlyphLoader::~GlyphLoader() {
  if (m_face != nullptr) FT_Done_Face(m_face);
  if (m_library != nullptr) FT_Done_FreeType(m_library);
}

void GlyphLoader::Open(const std::string& path) {
  if (FT_Init_FreeType(&m_library) != 0) {
    m_library = nullptr;
    std::cout << "ERROR: Could not initialise FreeType library" << '\n';
  }
  if (m_library == nullptr || FT_New_Face(m_library, path.c_str(), 0, &m_face) != 0) {
    m_face = nullptr;
    std::cout << "ERROR: Failed to load font " << '\n';
    return;
  }
  FT_Set_Pixel_Sizes(m_face, 0, kPixelHeight);
}

void GlyphLoader::Load(GLDevice* device, GlyphMap* glyphs) {
  for (int c = 0; c < kGlyphCount; ++c) {
    if (!LoadGlyph(static_cast<unsigned char>(c), device, glyphs)) {
      std::cout << "ERROR: Failed to load glyph" << '\n';
    }
  }
}

bool GlyphLoader::LoadGlyph(unsigned char c, GLDevice* device, GlyphMap* glyphs) {
  if (m_face == nullptr || FT_Load_Char(m_face, c, FT_LOAD_RENDER) != 0) return false;
  const FT_GlyphSlot slot = m_face->glyph;
  const std::vector<std::uint8_t> coverage = Coverage(m_library, slot->bitmap);
  Character record;
  if (!coverage.empty()) {
    record.SizeX = static_cast<std::int32_t>(slot->bitmap.width);
    record.SizeY = static_cast<std::int32_t>(slot->bitmap.rows);
  }
  record.TextureID = device->UploadGlyph(record.SizeX, record.SizeY, coverage.data());
  record.BearingX = slot->bitmap_left;
  record.BearingY = slot->bitmap_top;
  record.Advance = static_cast<std::uint32_t>(slot->advance.x);
  glyphs->insert_or_assign(static_cast<signed char>(c), record);
  return true;
}

}  // namespace ZOVEngine
