#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "core/base/noncopyable.h"

struct FT_LibraryRec_;
struct FT_FaceRec_;

namespace ZOVEngine {

class GLDevice;

/// The record of one glyph. A new one has no size, no advance and no texture.
struct Character {
  std::uint32_t TextureID = 0;  ///< name of the glyph's texture
  std::int32_t SizeX = 0;       ///< width of the bitmap (unit: pixels)
  std::int32_t SizeY = 0;       ///< rows of the bitmap (unit: pixels)
  std::int32_t BearingX = 0;    ///< left edge of the bitmap from the pen (unit: pixels)
  std::int32_t BearingY = 0;    ///< upper edge of the bitmap above the base line (unit: pixels)
  std::uint32_t Advance = 0;    ///< of the pen (unit: 1/64 pixel)
};

/// Glyphs by character. The keys are signed on every machine, so a byte above 127 is negative.
using GlyphMap = std::map<signed char, Character>;

/// Reads the glyphs of a font file: Open, then Load once; the destructor closes the file.
///
/// A font that cannot be read prints its error lines on standard output and leaves no glyphs;
/// nothing here stops the program.
class GlyphLoader : private NonCopyable {
 public:
  GlyphLoader() = default;
  ~GlyphLoader();

  /// Opens the first face of the file at 48 pixels. Failures print "ERROR: Could not initialise
  /// FreeType library" and "ERROR: Failed to load font ".
  void Open(const std::string& path);
  /// Uploads the glyphs 0 to 127 and inserts their records. A glyph that fails prints "ERROR:
  /// Failed to load glyph" and is left out; without a face that is every one.
  void Load(GLDevice* device, GlyphMap* glyphs);

 private:
  bool LoadGlyph(unsigned char c, GLDevice* device, GlyphMap* glyphs);

  FT_LibraryRec_* m_library = nullptr;
  FT_FaceRec_* m_face = nullptr;
};

}  // namespace ZOVEngine
