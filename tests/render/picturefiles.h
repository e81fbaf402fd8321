#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace carapace_test {

/// An uncompressed TGA file of 32 bits a pixel, rows from the top; `bgra` has 4 bytes a pixel.
inline std::string TgaFile(int width, int height, const std::vector<std::uint8_t>& bgra) {
  std::string file(18, '\0');
  file[2] = 2;
  file[12] = static_cast<char>(width & 255);
  file[13] = static_cast<char>(width >> 8);
  file[14] = static_cast<char>(height & 255);
  file[15] = static_cast<char>(height >> 8);
  file[16] = 32;
  file[17] = 0x28;
  return file.append(bgra.begin(), bgra.end());
}

/// A picture file of one opaque pixel.
inline std::string OnePixel(std::uint8_t r, std::uint8_t g, std::uint8_t b) {
  return TgaFile(1, 1, {b, g, r, 255});
}

}  // namespace carapace_test
