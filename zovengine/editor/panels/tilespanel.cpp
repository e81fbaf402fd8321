#include "editor/panels/tilespanel.h"

#include <imgui.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "editor/editordata.h"
#include "editor/leveleditor.h"
#include "editor/panels/assetlist.h"
#include "editor/panels/flow.h"
#include "editor/panels/textfield.h"
#include "editor/tiles.h"
#include "render/rendersystem.h"

namespace ZOVEngine {
namespace {

constexpr const char* kTilePrefix = "Tile_";
constexpr const char* kPlatePrefix = "Tile_Floor_";
constexpr float kSwatch = 56.0f;  ///< side of a texture's image (unit: pixels)

/// What a tool does, in words.
const char* ModeNote(const std::string& mode) {
  if (mode == "Erase") {
    return "Takes away the uppermost tile under the mouse. A stroke that began on a wall leaves "
           "floors alone, and the other way round.";
  }
  if (mode == "Rotate Tile") {
    return "Gives the uppermost tile under the mouse a quarter turn. A stroke turns each tile "
           "once, "
           "walls or floors like the one that it began on.";
  }
  if (mode == "Draw Row") return "Fills the row under the mouse from edge to edge.";
  if (mode == "Draw Column") return "Fills the column under the mouse from top to bottom.";
  return "Paints what is under the mouse.";
}

void ShowModes(TileMapInfo& map) {
  bool first = true;
  for (const std::string& mode : map.m_modes) {
    if (!std::exchange(first, false)) FlowTo(RadioWidth(mode.c_str()));
    if (ImGui::RadioButton(mode.c_str(), map.m_mode == mode)) map.m_mode = mode;
    HoverText(ModeNote(mode));
  }
}

float SwatchWidth() {
  return kSwatch + 2.0f * ImGui::GetStyle().FramePadding.x;
}

/// The textures of tiles: the plain floor and the wall, then the other plates by their names.
std::vector<std::string> TileTextures() {
  std::vector<std::string> keys;
  for (const auto& [key, number] : g_render_system->m_textures) {
    if (number != 0 && key.rfind(kTilePrefix, 0) == 0) keys.push_back(key);
  }
  std::stable_partition(keys.begin(), keys.end(),
                        [](const std::string& key) { return key.rfind(kPlatePrefix, 0) != 0; });
  return keys;
}

/// The last part of a key, cut to the width of a swatch.
void ShowName(const std::string& key, float width) {
  const std::string prefix = key.rfind(kPlatePrefix, 0) == 0 ? kPlatePrefix : kTilePrefix;
  const ImVec2 from = ImGui::GetCursorScreenPos();
  const float height = ImGui::GetTextLineHeight();
  ImGui::Dummy(ImVec2(width, height));
  const ImVec4 clip(from.x, from.y, from.x + width, from.y + height);
  ImGui::GetWindowDrawList()->AddText(ImGui::GetFont(), ImGui::GetFontSize(), from,
                                      ImGui::GetColorU32(ImGuiCol_Text),
                                      key.c_str() + prefix.size(), nullptr, 0.0f, &clip);
}

/// True if the texture was chosen.
bool ShowSwatch(const std::string& key, bool chosen) {
  ImGui::PushID(key.c_str());
  if (chosen) ImGui::PushStyleColor(ImGuiCol_Button, ImGui::GetColorU32(ImGuiCol_CheckMark));
  ImGui::BeginGroup();
  const ImVec2 rim = ImGui::GetStyle().FramePadding, from = ImGui::GetCursorPos();
  const float width = SwatchWidth();
  const bool clicked = ImGui::Button("##texture", ImVec2(width, kSwatch + 2.0f * rim.y));
  HoverText(key + (IsFloorTexture(key) ? ": a plate of two by two cells" : ": a wall"));
  const ImVec2 below = ImGui::GetCursorPos();
  ImGui::SetCursorPos(ImVec2(from.x + rim.x, from.y + rim.y));
  ShowTexture(key, kSwatch);
  ImGui::SetCursorPos(below);
  ShowName(key, width);
  ImGui::EndGroup();
  if (chosen) ImGui::PopStyleColor();
  ImGui::PopID();
  return clicked;
}

void ShowTextures(TileMapInfo& map) {
  bool first = true;
  for (const std::string& key : TileTextures()) {
    if (!std::exchange(first, false)) FlowTo(SwatchWidth());
    if (ShowSwatch(key, key == map.m_tile_tex)) map.m_tile_tex = key;
  }
}

/// A new level's brush has no texture of the game yet.
void ChooseSomeTexture(TileMapInfo& map) {
  const auto chosen = g_render_system->m_textures.find(map.m_tile_tex);
  if (chosen != g_render_system->m_textures.end() && chosen->second != 0) return;
  const std::vector<std::string> keys = TileTextures();
  if (!keys.empty()) map.m_tile_tex = keys.front();
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
