#include "editor/panels/assetlist.h"

#include <imgui.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <utility>

#include "editor/panels/textfield.h"
#include "render/rendersystem.h"

namespace ZOVEngine {
namespace {

namespace fs = std::filesystem;

constexpr float kListHeight = 320.0f;    // of an open list (unit: pixels)
constexpr float kListWidth = 300.0f;     // (unit: pixels)
constexpr float kListThumbnail = 26.0f;  // in a list (unit: pixels)
constexpr float kPlaceholderRounding = 6.0f;
constexpr float kLargePicture = 200.0f;  // of the texture under the mouse (unit: pixels)

struct ImageSize {
  std::uint32_t width = 0;
  std::uint32_t height = 0;
};

/// The sizes in the head of a PNG file; zero if it is none.
ImageSize ReadImageSize(const std::string& path) {
  constexpr std::size_t kWidthAt = 16;
  constexpr std::size_t kHeadSize = 24;
  std::array<char, kHeadSize> head{};
  std::ifstream file(path, std::ios::binary);
  if (!file.read(head.data(), kHeadSize) || head[1] != 'P' || head[2] != 'N') return {};
  const auto number = [&head](std::size_t from) {
    std::uint32_t value = 0;
    for (std::size_t i = from; i < from + 4; ++i) {
      value = value << 8U | static_cast<unsigned char>(head[i]);
    }
    return value;
  };
  return {number(kWidthAt), number(kWidthAt + 4)};
}

std::optional<std::uint32_t> FindTexture(const std::string& key) {
  const auto found = g_render_system->m_textures.find(key);
  // An unknown key that something has tried to draw is in the map with the number 0, the empty one
  // of sprites without an image among them.
  if (key.empty() || found == g_render_system->m_textures.end()) return std::nullopt;
  if (found->second >= g_render_system->m_texture_paths.size()) return std::nullopt;
  if (g_render_system->m_texture_paths[found->second].find(key) == std::string::npos) {
    return std::nullopt;
  }
  return found->second;
}

/// The sizes of a texture's image, read once.
ImageSize SizeOfTexture(std::uint32_t number) {
  static std::map<std::string, ImageSize> sizes;
  const std::string& path = g_render_system->m_texture_paths[number];
  const auto known = sizes.find(path);
  if (known != sizes.end()) return known->second;
  return sizes[path] = ReadImageSize(path);
}

/// The renderer's number of a texture is its name in OpenGL.
ImTextureID TextureId(std::uint32_t number) {
  return reinterpret_cast<ImTextureID>(  // NOLINT(performance-no-int-to-ptr)
      static_cast<std::uintptr_t>(number));
}

/// The largest size of this shape in a square.
ImVec2 FitInto(float side, ImageSize size, int frames) {
  const float width = static_cast<float>(size.width) / static_cast<float>(frames);
  const auto height = static_cast<float>(size.height);
  if (width <= 0.0f || height <= 0.0f) return ImVec2(side, side);
  const float scale = side / std::max(width, height);
  return ImVec2(width * scale, height * scale);
}

/// What a list of choices lasts for: the text of its search, while it is open.
std::string& OpenSearch() {
  static std::string search;
  return search;
}

/// A button that opens a list; true while the list is open.
bool BeginList(const char* label, const std::string& shown) {
  const float width = ImGui::CalcItemWidth();
  if (ImGui::Button((shown + "###" + label).c_str(), ImVec2(width, 0.0f))) {
    OpenSearch().clear();
    ImGui::OpenPopup(label);
  }
  HoverText(shown);
  ImGui::SetNextWindowSize(ImVec2(kListWidth, kListHeight));
  if (!ImGui::BeginPopup(label)) return false;
  if (ImGui::IsWindowAppearing()) ImGui::SetKeyboardFocusHere();
  ImGui::SetNextItemWidth(-1.0f);
  TextField("##search", &OpenSearch(), "Search");
  // The field alone would take the key, and the next click would only close the list.
  if (ImGui::IsKeyPressed(ImGui::GetKeyIndex(ImGuiKey_Escape), false)) ImGui::CloseCurrentPopup();
  ImGui::BeginChild("list");
  return true;
}

void EndList() {
  ImGui::EndChild();
  ImGui::EndPopup();
}

bool ChooseFrom(const std::vector<std::string>& names, bool as_textures, std::string* chosen) {
  bool changed = false;
  for (const std::string& name : names) {
    // A row without a name would have no id, over which ImGui ends the program.
    if (name.empty() || !ContainsIgnoringCase(name, OpenSearch())) continue;
    ImGui::PushID(name.c_str());
    if (as_textures) {
      const ImVec2 from = ImGui::GetCursorPos();
      ShowTexture(name, kListThumbnail, FrameCount(name));
      ImGui::SetCursorPos(
          ImVec2(from.x + kListThumbnail + ImGui::GetStyle().ItemSpacing.x, from.y));
    }
    const float height = as_textures ? kListThumbnail : 0.0f;
    if (ImGui::Selectable(name.c_str(), name == *chosen, 0, ImVec2(0.0f, height))) {
      *chosen = name;
      changed = true;
    }
    ImGui::PopID();
  }
  return changed;
}

}  // namespace

std::vector<AssetFile> AssetFiles(const std::string& folder,
                                  const std::vector<std::string>& endings) {
  std::vector<AssetFile> files;
  std::error_code failed;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder, failed)) {
    const std::string ending = entry.path().extension().string();
    if (std::find(endings.begin(), endings.end(), ending) == endings.end()) continue;
    std::error_code no_size;
    const std::uintmax_t size = entry.file_size(no_size);
    files.push_back({folder + "/" + entry.path().filename().string(),
                     entry.path().filename().string(), no_size ? 0 : size});
  }
  std::sort(files.begin(), files.end(),
            [](const AssetFile& a, const AssetFile& b) { return a.name < b.name; });
  return files;
}

std::vector<std::string> SoundNames(const std::string& folder) {
  std::vector<std::string> names;
  for (AssetFile& file : AssetFiles("Resources/Sound/" + folder, {".ogg", ".mp3", ".wav"})) {
    names.push_back(std::move(file.name));
  }
  return names;
}

std::vector<std::string> TextureKeys() {
  std::vector<std::string> keys;
  for (const auto& [key, number] : g_render_system->m_textures) {
    if (FindTexture(key)) keys.push_back(key);
  }
  return keys;
}

void ShowTexture(const std::string& key, float side, int frames) {
  const std::optional<std::uint32_t> number = FindTexture(key);
  const ImVec2 from = ImGui::GetCursorScreenPos();
  ImGui::Dummy(ImVec2(side, side));
  ImDrawList* draw = ImGui::GetWindowDrawList();
  const ImVec2 to(from.x + side, from.y + side);
  if (!number) {
    draw->AddRect(from, to, ImGui::GetColorU32(ImGuiCol_Border));
    return;
  }
  if (!g_render_system->RequestTexture(*number)) {
    draw->AddRectFilled(from, to, ImGui::GetColorU32(ImGuiCol_Button), kPlaceholderRounding);
    return;
  }
  const ImVec2 size = FitInto(side, SizeOfTexture(*number), frames);
  const ImVec2 at(from.x + (side - size.x) / 2.0f, from.y + (side - size.y) / 2.0f);
  draw->AddImage(TextureId(*number), at, ImVec2(at.x + size.x, at.y + size.y), ImVec2(0.0f, 0.0f),
                 ImVec2(1.0f / static_cast<float>(frames), 1.0f));
}

int FrameCount(const std::string& key) {
  const std::optional<std::uint32_t> number = FindTexture(key);
  if (!number || key.compare(0, 6, "Sheet_") != 0) return 1;
  const ImageSize size = SizeOfTexture(*number);
  return size.height == 0 ? 1 : std::max(1, static_cast<int>(size.width / size.height));
}

std::string ImageSizeText(const std::string& key) {
  const std::optional<std::uint32_t> number = FindTexture(key);
  const ImageSize size = number ? SizeOfTexture(*number) : ImageSize();
  if (size.width == 0) return "";
  return std::to_string(size.width) + " x " + std::to_string(size.height) + ", ";
}

bool PickTexture(const char* label, std::string* key) {
  ImGui::PushID(label);
  const float side = ImGui::GetFrameHeight();
  const float width = ImGui::CalcItemWidth();
  ShowTexture(*key, side, FrameCount(*key));
  if (ImGui::IsItemHovered()) {
    ImGui::BeginTooltip();
    ShowTexture(*key, kLargePicture);
    ImGui::EndTooltip();
  }
  ImGui::SameLine(0.0f, 4.0f);
  ImGui::SetNextItemWidth(width - side - 4.0f);
  bool changed = false;
  if (BeginList("textures", key->empty() ? "(none)" : *key)) {
    changed = ChooseFrom(TextureKeys(), true, key);
    EndList();
  }
  ImGui::PopID();
  return changed;
}

bool PickName(const char* label, std::string* name, const std::vector<std::string>& names) {
  ImGui::PushID(label);
  bool changed = false;
  if (BeginList("names", name->empty() ? "(none)" : *name)) {
    changed = ChooseFrom(names, false, name);
    EndList();
  }
  ImGui::PopID();
  return changed;
}

}  // namespace ZOVEngine
