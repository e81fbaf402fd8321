// The one source that compiles the image decoder, with the four formats of the game's data.
#include "render/images/stbimage.h"

#include <cstdlib>

#include "render/images/image.h"

namespace {

// The largest block that an image within the size limit needs: 16 bits for each of four channels,
// and a filter byte for each row. A compressed stream that swells beyond it is refused.
constexpr std::size_t kLargestBlock =
    8u * static_cast<std::size_t>(ZOVEngine::kMaxImageSide) * ZOVEngine::kMaxImageSide + (1u << 20);

void* LimitedAllocate(std::size_t size) {
  return size > kLargestBlock ? nullptr : std::calloc(size, 1);
}

void* LimitedReallocate(void* block, std::size_t size) {
  return size > kLargestBlock ? nullptr : std::realloc(block, size);
}

}  // namespace

#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_NO_STDIO
#define STBI_NO_THREAD_LOCALS
#define STBI_ONLY_PNG
#define STBI_ONLY_JPEG
#define STBI_ONLY_BMP
#define STBI_ONLY_TGA
#define STBI_MAX_DIMENSIONS 4096
#define STBI_MALLOC(size) LimitedAllocate(size)
#define STBI_REALLOC(block, size) LimitedReallocate(block, size)
#define STBI_FREE(block) std::free(block)

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-function"
#ifndef __clang__  // g++ at -O3 overlooks that a decoder in memory sets these before it reads them
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif
#include <stb/stb_image.h>
#pragma GCC diagnostic pop

namespace ZOVEngine {
namespace {

static_assert(STBI_MAX_DIMENSIONS == kMaxImageSide);

bool WithinLimits(const ImageSize& size) {
  return size.width > 0 && size.width <= kMaxImageSide && size.height > 0 &&
         size.height <= kMaxImageSide;
}

}  // namespace

bool ProbeImage(const std::vector<std::uint8_t>& file, ImageSize* size) {
  int channels = 0;
  const int known = stbi_info_from_memory(file.data(), static_cast<int>(file.size()), &size->width,
                                          &size->height, &channels);
  // A BMP with its rows from the top states a negative height.
  if (size->height < 0 && size->height >= -kMaxImageSide) size->height = -size->height;
  return known != 0 && WithinLimits(*size);
}

bool DecodeImage(const std::vector<std::uint8_t>& file, ImageSize* size,
                 std::vector<std::uint8_t>* rgba) {
  constexpr int kRgba = 4;
  int channels = 0;
  stbi_uc* pixels = stbi_load_from_memory(file.data(), static_cast<int>(file.size()), &size->width,
                                          &size->height, &channels, kRgba);
  if (pixels == nullptr) return false;
  const bool good = WithinLimits(*size);
  if (good) {
    const auto width = static_cast<std::size_t>(size->width);
    rgba->assign(pixels, pixels + width * static_cast<std::size_t>(size->height) * kRgba);
  }
  stbi_image_free(pixels);
  return good;
}

}  // namespace ZOVEngine
