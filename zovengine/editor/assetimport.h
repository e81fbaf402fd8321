#pragma once

#include <string>
#include <vector>

namespace ZOVEngine {

/// The kind of a file by what follows the last "." of its path: "json", "object", "image", "sound",
/// or "Invalid" for everything else. The case of the letters counts.
std::string ClassifyFile(const std::string& path);

/// The file name of a dropped path: what follows the last separator, a back-slash or the system's
/// own. Deliberately cut at a length that the path's last character gives by its code.
std::string DroppedName(const std::string& path);

/// Copies dropped images and sounds into the folder `dest`, in the order of the list, and adds an
/// image's bare name to the list of textures, which are loaded anew.
///
/// A file that the folder has already prints "File Exist!" and is left alone. Files of other kinds
/// and copies that fail are passed over.
void ImportDroppedFiles(const std::string& dest, const std::vector<std::string>& files);

}  // namespace ZOVEngine
