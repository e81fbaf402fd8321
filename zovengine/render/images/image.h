#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace ZOVEngine {

/// The largest width and height of an image that is read (unit: pixels).
inline constexpr int kMaxImageSide = 4096;

/// A decoded image: 8-bit RGBA, rows from the top, no padding.
struct Image {
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> pixels;   ///< 4 * width * height bytes
  std::vector<std::uint8_t> mipmaps;  ///< behind one another, by MakeMipmaps; may be empty
};

/// Decodes the image file at `path`. Empty when the file is absent, is no image, is larger than
/// kMaxImageSide in a direction, or states a size that its own length belies; such a header is
/// refused before any memory is allocated for it.
std::optional<Image> LoadImage(const std::string& path);

/// True when the alpha of every pixel is 255; also without any pixel.
bool IsOpaque(const Image& image);

}  // namespace ZOVEngine
