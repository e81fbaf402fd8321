#pragma once

#include <string>

namespace ZOVEngine {

/// An image of the game as a panel shows it.
struct Thumbnail {
  void* texture = nullptr;  ///< for ImGui; null if there is no such image, or not yet
  float right = 1.0f;       ///< where the image ends in the texture: a sheet's first frame
};

/// The image of this texture key. `frames` is the number of frames of a sheet.
Thumbnail FindThumbnail(const std::string& key, int frames = 1);

}  // namespace ZOVEngine
