#pragma once

#include <cstdint>
#include <vector>

#include "render/images/image.h"

namespace ZOVEngine {

/// One of the levels of a texture.
struct MipmapLevel {
  int width = 0;
  int height = 0;
  const std::uint8_t* pixels = nullptr;  ///< of the image that it was listed from
};

/// Fills `image->mipmaps`: each level halves the one before, sides rounded down, to one pixel.
///
/// A pixel is the level before at the place of its middle, with linear filtering, which is how
/// drivers make them. Alpha is a channel like the others. An image without pixels gets none.
void MakeMipmaps(Image* image);

/// The levels in `image.mipmaps`, from the one of half the size on.
std::vector<MipmapLevel> ListMipmaps(const Image& image);

}  // namespace ZOVEngine
