#include "editor/panels/tilespanel.h"

#include <imgui.h>

#include <utility>

#include "editor/editordata.h"
#include "editor/leveleditor.h"
#include "editor/panels/assetlist.h"
#include "editor/panels/flow.h"
#include "editor/panels/textfield.h"
#include "render/rendersystem.h"

namespace ZOVEngine {
namespace {

constexpr const char* kTilePrefix = "Tile_";
constexpr float kSwatch = 72.0f;  ///< side of a texture's image (unit: pixels)

/// What a tool does, in words.
const char* ModeNote(const std::string& mode) {
  if (mode == "Erase") {
    return "Takes away the uppermost tile under the mouse. A stroke that began on a wall leaves\n"
           "floors alone, and the other way round.";
  }
  if (mode == "Rotate Tile") {
    return "Gives the uppermost tile under the mouse a quarter turn. A stroke turns each tile\n"
           "once, walls or floors like the one that it began on.";
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

/// True if the texture was chosen.
bool ShowSwatch(const std::string& key, bool chosen) {
  ImGui::PushID(key.c_str());
  if (chosen) ImGui::PushStyleColor(ImGuiCol_Button, ImGui::GetColorU32(ImGuiCol_CheckMark));
  ImGui::BeginGroup();
  const ImVec2 rim = ImGui::GetStyle().FramePadding, from = ImGui::GetCursorPos();
  const bool clicked =
      ImGui::Button("##texture", ImVec2(kSwatch + 2.0f * rim.x, kSwatch + 2.0f * rim.y));
  const ImVec2 below = ImGui::GetCursorPos();
  ImGui::SetCursorPos(ImVec2(from.x + rim.x, from.y + rim.y));
  ShowTexture(key, kSwatch);
  ImGui::SetCursorPos(below);
  ImGui::TextUnformatted(key.c_str() + std::string(kTilePrefix).size());
  ImGui::EndGroup();
  if (chosen) ImGui::PopStyleColor();
  ImGui::PopID();
  return clicked;
}

void ShowTextures(TileMapInfo& map) {
  for (const auto& [key, number] : g_render_system->m_textures) {
    if (number == 0 || key.rfind(kTilePrefix, 0) != 0) continue;
    if (ShowSwatch(key, key == map.m_tile_tex)) map.m_tile_tex = key;
    ImGui::SameLine();
  }
  ImGui::NewLine();
}

/// A new level's brush has no texture of the game yet.
void ChooseSomeTexture(TileMapInfo& map) {
  const auto chosen = g_render_system->m_textures.find(map.m_tile_tex);
  if (chosen != g_render_system->m_textures.end() && chosen->second != 0) return;
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
