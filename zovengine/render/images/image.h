#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace ZOVEngine {

/// The largest width and height of a picture that is read (unit: pixels).
inline constexpr int kMaxImageSide = 4096;

/// A decoded picture: 8-bit RGBA, rows from the top, no padding.
struct Image {
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> pixels;  ///< 4 * width * height bytes
};

/// Decodes the picture file at `path`. Empty when the file is absent, is no picture, is larger than
/// kMaxImageSide in a direction, or states sizes that its own length belies: such a header is found
/// out before memory is asked for.
std::optional<Image> LoadImage(const std::string& path);

/// True when no pixel lets anything shine through; also without any pixel.
bool IsOpaque(const Image& image);

}  // namespace ZOVEngine
