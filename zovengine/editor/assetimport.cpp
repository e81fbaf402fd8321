#include "editor/assetimport.h"

#include <array>
#include <filesystem>
#include <iostream>
#include <string_view>
#include <system_error>
#include <utility>

#include "render/rendersystem.h"

namespace ZOVEngine {
namespace {

constexpr std::array<std::pair<std::string_view, std::string_view>, 9> kKinds = {
    {{"json", "json"},
     {"object", "object"},
     {"dds", "image"},
     {"png", "image"},
     {"jpg", "image"},
     {"JPG", "image"},
     {"ogg", "sound"},
     {"mp3", "sound"},
     {"wav", "sound"}}};

/// What follows the last of these separators; all of a path without one. Its length is limited by
/// the code of the path's last character, so a long name is cut.
std::string TailBehind(const std::string& path, const char* separators) {
  if (path.empty()) return "";
  const std::size_t last = path.find_last_of(separators);
  const std::size_t from = last == std::string::npos ? 0 : last + 1;
  return path.substr(from, static_cast<unsigned char>(path.back()));
}

bool CopyInto(const std::string& target, const std::string& path) {
  std::error_code fault;
  if (!std::filesystem::is_regular_file(path, fault)) return false;
  return std::filesystem::copy_file(path, target, fault);
}

/// Copies a file; true if it is new in the folder now.
bool Import(const std::string& dest, const std::string& path) {
  const std::string target = dest + "/" + DroppedName(path);
  std::error_code fault;
  if (std::filesystem::exists(std::filesystem::symlink_status(target, fault))) {
    std::cout << "File Exist!" << '\n';
    return false;
  }
  return CopyInto(target, path);
}

void AddTexture(const std::string& name) {
  g_render_system->m_texture_paths.push_back(name);
  g_render_system->LoadTextures();
}

}  // namespace

std::string ClassifyFile(const std::string& path) {
  if (path.find('.') == std::string::npos) return "Invalid";
  const std::string ending = TailBehind(path, ".");
  for (const auto& [known, kind] : kKinds) {
    if (ending == known) return std::string(kind);
  }
  return "Invalid";
}

std::string DroppedName(const std::string& path) {
  return TailBehind(path, "\\/");
}

void ImportDroppedFiles(const std::string& dest, const std::vector<std::string>& files) {
  for (const std::string& path : files) {
    const std::string kind = ClassifyFile(path);
    if (kind != "image" && kind != "sound") continue;
    if (Import(dest, path) && kind == "image") AddTexture(DroppedName(path));
  }
}

}  // namespace ZOVEngine
