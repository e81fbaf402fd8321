#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace ZOVEngine {

/// A file of the game's assets.
struct AssetFile {
  std::string path;         ///< from the working directory
  std::string name;         ///< of the file
  std::uintmax_t size = 0;  ///< (unit: bytes)
};

/// The files in a folder with one of these endings, in alphabetical order; empty if there is no
/// such folder.
std::vector<AssetFile> AssetFiles(const std::string& folder,
                                  const std::vector<std::string>& endings);
/// The names of the sounds in a folder of "Resources/Sound": "BGM" or "SFX".
std::vector<std::string> SoundNames(const std::string& folder);
/// The keys of all textures that the game has loaded or is loading, in alphabetical order.
std::vector<std::string> TextureKeys();

/// Shows a texture of the game as large as fits into a square of this side, its sheet's first frame
/// if it has several frames. A key that is none shows an empty frame, an image that is still to be
/// loaded a plain square; it is loaded before those that nobody looks at.
void ShowTexture(const std::string& key, float side, int frames = 1);
/// The number of frames of a sheet whose frames are square; 1 for other textures.
int FrameCount(const std::string& key);

/// The width and the height of a texture, "64 x 32, "; empty if they are not known.
std::string ImageSizeText(const std::string& key);

/// A button with a texture and its key, which opens a list of all textures with a search. Returns
/// true when the author has chosen one.
bool PickTexture(const char* label, std::string* key);
/// The same for a name of a list.
bool PickName(const char* label, std::string* name, const std::vector<std::string>& names);

}  // namespace ZOVEngine
