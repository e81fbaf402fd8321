#include "support/picture.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <sstream>

#define STB_IMAGE_WRITE_STATIC
#define STB_IMAGE_WRITE_IMPLEMENTATION
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-function"
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"
#include <stb/stb_image_write.h>
#pragma GCC diagnostic pop

#include "render/images/image.h"

namespace carapace_test {

namespace {

constexpr int kBrighter = 16;

std::string OutputPath(const std::string& name) {
  const std::filesystem::path folder = std::filesystem::path(CARAPACE_BUILD_DIR) / "pictures";
  std::error_code ignored;
  std::filesystem::create_directories(folder, ignored);
  return (folder / name).string();
}

Picture DifferenceOf(const Picture& a, const Picture& b) {
  Picture out(a.width, a.height);
  for (std::size_t i = 0; i < out.bytes.size(); ++i) {
    out.bytes[i] =
        static_cast<std::uint8_t>(std::min(255, kBrighter * std::abs(a.bytes[i] - b.bytes[i])));
  }
  return out;
}

Picture CommittedPicture(const std::string& name) {
  // Appended piece by piece: g++ 12 sees an overrun in a chain of + when it optimises.
  std::string path = CARAPACE_SOURCE_DIR "/tests/render/pictures/";
  path += name;
  path += ".png";
  const auto image = ZOVEngine::LoadImage(path);
  if (!image) return Picture();
  Picture picture(image->width, image->height);
  for (std::size_t i = 0; i < picture.bytes.size(); ++i) {
    picture.bytes[i] = image->pixels[i / 3 * 4 + i % 3];
  }
  return picture;
}

}  // namespace

Picture::Picture(int width_, int height_)
    : width(width_), height(height_), bytes(3u * static_cast<std::size_t>(width_ * height_)) {}

const std::uint8_t* Picture::At(int x, int y) const {
  return bytes.data() + 3 * (y * width + x);
}

PictureDifference Compare(const Picture& a, const Picture& b) {
  if (a.width != b.width || a.height != b.height || a.bytes.empty()) return {255, 255.0};
  PictureDifference difference;
  double sum = 0.0;
  for (std::size_t i = 0; i < a.bytes.size(); ++i) {
    const int apart = std::abs(a.bytes[i] - b.bytes[i]);
    difference.largest = std::max(difference.largest, apart);
    sum += apart;
  }
  difference.mean = sum / static_cast<double>(a.bytes.size());
  return difference;
}

std::string Mismatch(const std::string& name, const Picture& picture, const Picture& expected,
                     const Tolerance& tolerance) {
  const PictureDifference apart = Compare(picture, expected);
  if (apart.largest <= tolerance.largest && apart.mean <= tolerance.mean) return "";
  SavePicture(OutputPath(name + ".png"), picture);
  if (picture.bytes.size() == expected.bytes.size() && picture.width == expected.width) {
    SavePicture(OutputPath(name + "_expected.png"), expected);
    SavePicture(OutputPath(name + "_difference.png"), DifferenceOf(picture, expected));
  }
  std::ostringstream text;
  text << name << ": largest difference " << apart.largest << " (allowed " << tolerance.largest
       << "), mean " << apart.mean << " (allowed " << tolerance.mean << "); see "
       << OutputPath(name + ".png");
  return text.str();
}

std::string MismatchWithCommitted(const std::string& name, const Picture& picture,
                                  const Tolerance& tolerance) {
  return Mismatch(name, picture, CommittedPicture(name), tolerance);
}

bool SavePicture(const std::string& path, const Picture& picture) {
  return stbi_write_png(path.c_str(), picture.width, picture.height, 3, picture.bytes.data(),
                        3 * picture.width) != 0;
}

}  // namespace carapace_test
