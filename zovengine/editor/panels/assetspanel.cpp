#include "editor/panels/assetspanel.h"

#include <imgui.h>

#include <algorithm>
#include <filesystem>

#include "editor/assetimport.h"
#include "editor/editordata.h"
#include "editor/leveleditor.h"
#include "editor/panels/flow.h"
#include "editor/panels/textfield.h"

namespace ZOVEngine {
namespace {

namespace fs = std::filesystem;

constexpr const char* kAssets = "Resources";
constexpr const char* kTextures = "Resources/Textures";
constexpr const char* kMusic = "Resources/Sound/BGM";
constexpr const char* kEffects = "Resources/Sound/SFX";
constexpr float kAssetTile = 92.0f;       // of an image (unit: pixels)
constexpr float kAssetThumbnail = 62.0f;  // (unit: pixels)
constexpr float kFolderWidth = 240.0f;
constexpr int kRefreshAfter = 60;  // (unit: frames)

/// The key of a texture by its file: the name without its ending.
std::string TextureKey(const AssetFile& file) {
  return fs::path(file.name).stem().string();
}

std::string SizeText(const AssetFile& file) {
  constexpr std::uintmax_t kKilobyte = 1024;
  return std::to_string((file.size + kKilobyte - 1) / kKilobyte) + " KB";
}

/// True if `folder` is within the assets once all its steps up are taken and links are followed.
bool IsWithinAssets(const std::string& folder) {
  std::error_code failed;
  const fs::path assets = fs::weakly_canonical(kAssets, failed);
  const fs::path wanted = fs::weakly_canonical(folder, failed);
  if (failed) return false;
  const auto [end, rest] =
      std::mismatch(assets.begin(), assets.end(), wanted.begin(), wanted.end());
  return end == assets.end();
}

/// Why the file cannot be copied to `target`; empty if it can.
std::string FaultOfImport(const std::string& path, const std::string& target) {
  const std::string kind = ClassifyFile(path);
  std::error_code failed;
  if (kind != "image" && kind != "sound") {
    return "is no image (png, jpg, dds) and no sound (ogg, mp3, wav).";
  }
  if (!fs::is_regular_file(path, failed)) return "cannot be found.";
  if (fs::exists(target, failed)) return "was not copied: there is a file " + target + ".";
  return "";
}

std::string Marked(const AssetFile& file, bool is_new) {
  return is_new ? "NEW  " + file.name : file.name;
}

}  // namespace

bool ChooseAssetFolder(LevelEditor& editor, const std::string& folder) {
  std::error_code failed;
  if (!IsWithinAssets(folder) || !fs::is_directory(folder, failed)) {
    editor.log.Fault("\"" + folder + "\" is no folder within Resources; dropped files go to " +
                     g_editor.m_asset_dir + " as before.");
    return false;
  }
  g_editor.m_asset_dir = folder;
  editor.log.Say("Dropped files go to " + folder + ".");
  return true;
}

bool ImportFile(LevelEditor& editor, const std::string& path) {
  const std::string name = DroppedName(path);
  const std::string target = g_editor.m_asset_dir + "/" + name;
  std::string fault = FaultOfImport(path, target);
  std::error_code failed;
  if (fault.empty()) {
    ImportDroppedFiles(g_editor.m_asset_dir, {path});
    if (!fs::exists(target, failed)) fault = "could not be copied to " + target + ".";
  }
  if (!fault.empty()) {
    editor.log.Fault("\"" + path + "\" " + fault);
    return false;
  }
  editor.log.Say("Copied " + name + " to " + g_editor.m_asset_dir + ".");
  return true;
}

void AssetsPanel::Show(LevelEditor& editor) {
  Refresh();
  ShowFolder(editor);
  ShowImport(editor);
  ImGui::SetNextItemWidth(kFolderWidth);
  TextField("##search", &m_search, "Search");
  FlowTo(RadioWidth("Images"));
  if (ImGui::RadioButton("Images", !m_sounds_shown)) m_sounds_shown = false;
  FlowTo(RadioWidth("Sounds"));
  if (ImGui::RadioButton("Sounds", m_sounds_shown)) m_sounds_shown = true;
  ImGui::BeginChild("assets");
  if (m_sounds_shown) {
    ShowSounds();
  } else {
    ShowImages();
  }
  ImGui::EndChild();
}

void AssetsPanel::Refresh() {
  if (m_begun && ++m_age < kRefreshAfter) return;
  m_age = 0;
  m_images = AssetFiles(kTextures, {".png", ".jpg", ".JPG", ".dds"});
  m_sounds = AssetFiles(kEffects, {".ogg", ".mp3", ".wav"});
  for (const char* folder : {kMusic, kTextures}) {
    for (AssetFile& file : AssetFiles(folder, {".ogg", ".mp3", ".wav"})) m_sounds.push_back(file);
  }
  if (m_begun) return;
  m_begun = true;
  for (const AssetFile& file : m_images) m_known.insert(file.path);
  for (const AssetFile& file : m_sounds) m_known.insert(file.path);
}

void AssetsPanel::ShowFolder(LevelEditor& editor) {
  if (m_folder_now != g_editor.m_asset_dir) m_folder = m_folder_now = g_editor.m_asset_dir;
  ImGui::AlignTextToFramePadding();
  ImGui::TextUnformatted("Dropped files go to");
  ImGui::SameLine();
  ImGui::SetNextItemWidth(kFolderWidth);
  TextField("##folder", &m_folder);
  if (ImGui::IsItemDeactivatedAfterEdit() && !ChooseAssetFolder(editor, m_folder)) {
    m_folder = g_editor.m_asset_dir;
  }
  for (const auto& [label, folder] :
       {std::pair("Images##to", kTextures), {"Effects##to", kEffects}, {"Music##to", kMusic}}) {
    FlowTo(ButtonWidth(label));
    if (ImGui::Button(label)) ChooseAssetFolder(editor, folder);
  }
}

void AssetsPanel::ShowImport(LevelEditor& editor) {
  ImGui::SetNextItemWidth(-1.0f);
  const bool entered =
      TextField("##import", &m_import, "Path of an image or a sound to copy there, then Enter",
                ImGuiInputTextFlags_EnterReturnsTrue);
  if (entered && ImportFile(editor, m_import)) m_import.clear();
}

void AssetsPanel::ShowImages() {
  const float right = ImGui::GetWindowPos().x + ImGui::GetWindowContentRegionMax().x;
  bool first = true;
  for (const AssetFile& file : m_images) {
    if (!ContainsIgnoringCase(file.name, m_search)) continue;
    const float gap = ImGui::GetStyle().ItemSpacing.x;
    if (!first && ImGui::GetItemRectMax().x + gap + kAssetTile < right) ImGui::SameLine();
    first = false;
    ShowImage(file);
  }
  if (first) ImGui::TextDisabled("No image is called that.");
}

void AssetsPanel::ShowImage(const AssetFile& file) {
  const float height = kAssetThumbnail + ImGui::GetTextLineHeight() + 4.0f;
  if (!ImGui::IsRectVisible(ImVec2(kAssetTile, height))) {
    ImGui::Dummy(ImVec2(kAssetTile, height));
    return;
  }
  ImGui::BeginGroup();
  const ImVec2 from = ImGui::GetCursorScreenPos();
  ShowTexture(TextureKey(file), kAssetThumbnail);
  const ImVec2 below(from.x, from.y + kAssetThumbnail + 2.0f);
  ImDrawList* draw = ImGui::GetWindowDrawList();
  draw->PushClipRect(below, ImVec2(from.x + kAssetTile, from.y + height), true);
  draw->AddText(below, ImGui::GetColorU32(IsNew(file) ? ImGuiCol_CheckMark : ImGuiCol_Text),
                Marked(file, IsNew(file)).c_str());
  draw->PopClipRect();
  ImGui::SetCursorScreenPos(from);
  ImGui::Dummy(ImVec2(kAssetTile, height));
  ImGui::EndGroup();
  HoverText(file.path + "\n" + ImageSizeText(TextureKey(file)) + SizeText(file));
}

void AssetsPanel::ShowSounds() {
  for (const AssetFile& file : m_sounds) {
    if (!ContainsIgnoringCase(file.name, m_search)) continue;
    const bool playing =
        m_stream != kNoStream && g_mixer != nullptr && g_mixer->IsPlaying(m_stream);
    ImGui::PushID(file.path.c_str());
    if (ImGui::Selectable(Marked(file, IsNew(file)).c_str())) Hear(file);
    ImGui::PopID();
    HoverText(file.path + "\n" + SizeText(file) +
              (playing ? "\nA click stops what is heard and plays this." : "\nA click plays it."));
    ImGui::SameLine(kFolderWidth);
    ImGui::TextDisabled("%s", SizeText(file).c_str());
  }
}

void AssetsPanel::Hear(const AssetFile& file) {
  if (g_mixer == nullptr) return;
  if (m_stream != kNoStream) g_mixer->Stop(m_stream);
  StreamRequest request;
  request.path = file.path;
  m_stream = g_mixer->Play(request);
}

}  // namespace ZOVEngine
