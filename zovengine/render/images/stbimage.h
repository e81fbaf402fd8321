#pragma once

#include <cstdint>
#include <vector>

namespace ZOVEngine {

/// Width and height that the header of an image file states (unit: pixels).
struct ImageSize {
  int width = 0;
  int height = 0;
};

/// Reads the header of a PNG, JPEG, BMP or TGA file held in memory. False when it is none of them
/// or states a side of 0 or above kMaxImageSide.
bool ProbeImage(const std::vector<std::uint8_t>& file, ImageSize* size);

/// Decodes the file into 8-bit RGBA, rows from the top. False when it is malformed. It trusts
/// stated lengths, so the caller checks them against the file's size first.
bool DecodeImage(const std::vector<std::uint8_t>& file, ImageSize* size,
                 std::vector<std::uint8_t>* rgba);

}  // namespace ZOVEngine
