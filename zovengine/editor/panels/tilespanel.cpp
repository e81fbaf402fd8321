#include "editor/panels/tilespanel.h"

#include <imgui.h>

#include <utility>

#include "editor/editordata.h"
#include "editor/leveleditor.h"
#include "editor/panels/flow.h"
#include "editor/thumbnail.h"
#include "render/rendersystem.h"

namespace ZOVEngine {
namespace {

constexpr const char* kTilePrefix = "Tile_";
constexpr float kSwatch = 72.0f;  ///< side of a texture's image (unit: pixels)

void ShowModes(TileMapInfo& map) {
  bool first = true;
  for (const std::string& mode : map.m_modes) {
    if (!std::exchange(first, false)) FlowTo(RadioWidth(mode.c_str()));
    if (ImGui::RadioButton(mode.c_str(), map.m_mode == mode)) map.m_mode = mode;
  }
}

/// True if the texture was chosen.
bool ShowTexture(const std::string& key, bool chosen) {
  const Thumbnail image = FindThumbnail(key);
  ImGui::PushID(key.c_str());
  if (chosen) ImGui::PushStyleColor(ImGuiCol_Button, ImGui::GetColorU32(ImGuiCol_CheckMark));
  ImGui::BeginGroup();
  const bool clicked = ImGui::ImageButton(image.texture, ImVec2(kSwatch, kSwatch));
  ImGui::TextUnformatted(key.c_str() + std::string(kTilePrefix).size());
  ImGui::EndGroup();
  if (chosen) ImGui::PopStyleColor();
  ImGui::PopID();
  return clicked;
}

void ShowTextures(TileMapInfo& map) {
  for (const auto& [key, number] : g_render_system->m_textures) {
    if (number == 0 || key.rfind(kTilePrefix, 0) != 0) continue;
    if (ShowTexture(key, key == map.m_tile_tex)) map.m_tile_tex = key;
    ImGui::SameLine();
  }
  ImGui::NewLine();
}

/// A new level's brush has no texture of the game yet.
void ChooseSomeTexture(TileMapInfo& map) {
  if (FindThumbnail(map.m_tile_tex).texture != nullptr) return;
  for (const auto& [key, number] : g_render_system->m_textures) {
    if (number != 0 && key.rfind(kTilePrefix, 0) == 0) map.m_tile_tex = key;
  }
}

}  // namespace

void TilesPanel::Show(LevelEditor& editor) {
  if (!editor.IsOpen()) {
    ImGui::TextDisabled("Open a level, or make one, to paint its tiles.");
    return;
  }
  editor.tiles_in_hand = true;
  TileMapInfo& map = g_editor.m_tile_map;
  ChooseSomeTexture(map);
  ShowModes(map);
  ShowTextures(map);
  ImGui::PushStyleColor(ImGuiCol_Text, ImGui::GetColorU32(ImGuiCol_TextDisabled));
  ImGui::TextWrapped(
      "%d by %d cells of %d units. Floors are plates of two by two cells; all other tiles are "
      "walls. "
      "While this tab is open, the left button paints.",
      map.m_width, map.m_height, map.m_tile_size);
  ImGui::PopStyleColor();
}

}  // namespace ZOVEngine
