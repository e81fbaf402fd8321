#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace carapace_test {

/// A picture of the screen: 8-bit RGB, rows from the top.
struct Picture {
  Picture() = default;
  /// All black (unit: pixels).
  Picture(int width_, int height_);

  /// The pixel's three channels.
  const std::uint8_t* At(int x, int y) const;

  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> bytes;
};

/// How far two pictures of the same size are apart, over all channels of all pixels (0 to 255).
struct PictureDifference {
  int largest = 0;
  double mean = 0.0;
};

/// What a comparison allows.
struct Tolerance {
  int largest = 2;
  double mean = 0.05;
};

/// The difference; 255 throughout when the sizes differ.
PictureDifference Compare(const Picture& a, const Picture& b);

/// Empty when the pictures are within the tolerance. Else says how far they are apart, after
/// writing both and their difference, made brighter, into the build tree under `name`.
std::string Mismatch(const std::string& name, const Picture& picture, const Picture& expected,
                     const Tolerance& tolerance);

/// As Mismatch, against the committed picture tests/render/pictures/`name`.png.
std::string MismatchWithCommitted(const std::string& name, const Picture& picture,
                                  const Tolerance& tolerance);

/// Writes a PNG file. False when it cannot be written.
bool SavePicture(const std::string& path, const Picture& picture);

}  // namespace carapace_test
