#include "core/base/wholefile.h"

#include <array>
#include <fstream>

namespace ZOVEngine {
namespace {

constexpr std::size_t kBlock = std::size_t{1} << 16;  ///< bytes that are read at once

}  // namespace

std::string ReadRest(std::istream& stream) {
  std::string text;
  std::array<char, kBlock> block;
  do {
    stream.read(block.data(), block.size());
    text.append(block.data(), static_cast<std::size_t>(stream.gcount()));
  } while (stream);
  return text;
}

std::optional<std::string> ReadWholeFile(const std::filesystem::path& path) {
  std::error_code ignored;
  if (!std::filesystem::is_regular_file(path, ignored)) return std::nullopt;
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::nullopt;
  std::string text = ReadRest(file);
  if (file.bad()) return std::nullopt;
  return text;
}

}  // namespace ZOVEngine
