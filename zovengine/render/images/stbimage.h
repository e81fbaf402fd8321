#pragma once

#include <cstdint>
#include <vector>

namespace ZOVEngine {

/// Width and height that a picture's header states (unit: pixels).
struct PictureSize {
  int width = 0;
  int height = 0;
};

/// Reads the header of a PNG, JPEG, BMP or TGA file held in memory. False when it is none of them
/// or states a side of 0 or above kMaxImageSide.
bool ProbePicture(const std::vector<std::uint8_t>& file, PictureSize* size);

/// Decodes the file into 8-bit RGBA, rows from the top. False when it is malformed. It trusts
/// stated lengths, so the caller checks them against the file's size first.
bool DecodePicture(const std::vector<std::uint8_t>& file, PictureSize* size,
                   std::vector<std::uint8_t>* rgba);

}  // namespace ZOVEngine
