#pragma once

#include <filesystem>
#include <istream>
#include <optional>
#include <string>

namespace ZOVEngine {

/// Everything that is left in `stream`, up to its end or its first error, byte by byte as it
/// stands.
std::string ReadRest(std::istream& stream);

/// The bytes of a regular file; none for one that is absent, of another kind (a folder, a device)
/// or not readable.
std::optional<std::string> ReadWholeFile(const std::filesystem::path& path);

}  // namespace ZOVEngine
