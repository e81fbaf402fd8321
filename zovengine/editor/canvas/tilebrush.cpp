#include "editor/canvas/tilebrush.h"

#include <imgui.h>

#include <algorithm>
#include <cstdlib>
#include <string>

#include "editor/editordata.h"
#include "editor/editorview.h"
#include "editor/leveleditor.h"
#include "editor/thumbnail.h"

namespace ZOVEngine {
namespace {

constexpr float kQuarterTurn = 90.0f;
constexpr ImU32 kGhostTint = IM_COL32(255, 255, 255, 150);
constexpr ImU32 kGhostEdge = IM_COL32(255, 201, 77, 255);
constexpr ImU32 kEraseEdge = IM_COL32(255, 90, 95, 255);

bool Is(const char* mode) {
  return g_editor.m_tile_map.m_mode == mode;
}

/// True for the tools that work on tiles that are there.
bool IsForTiles() {
  return Is("Erase") || Is("Rotate Tile");
}

bool CanPaint() {
  return !ImGui::GetIO().WantCaptureMouse && MouseInViewport();
}

std::size_t Room() {
  const TileMapInfo& map = g_editor.m_tile_map;
  return static_cast<std::size_t>(std::max(map.m_width, 0)) *
         static_cast<std::size_t>(std::max(map.m_height, 0));
}

ImVec2 Corner(const TilePlace& place, float x, float y) {
  const float half = static_cast<float>(place.size) / 2.0f;
  const Vector3D at = WorldToWindow(Vector3D(static_cast<float>(place.x) + x * half,
                                             static_cast<float>(place.y) + y * half, 0.0f));
  return ImVec2(at.x, at.y);
}

}  // namespace

void TileBrush::Show(LevelEditor& editor) {
  const bool plates = !IsForTiles() && IsFloorTexture(g_editor.m_tile_map.m_tile_tex);
  const TilePlaces places(g_editor.m_tile_map, plates);
  const auto cell = places.CellAt(EditorMouseWorld());
  if (cell && CanPaint()) {
    if (ImGui::IsMouseClicked(ImGuiMouseButton_Left)) m_painting = true;
    DrawPreview(places, *cell);
  }
  if (!m_painting) return;
  if (cell && MouseInViewport()) PaintLine(editor, places, *cell);
  if (!ImGui::IsMouseDown(ImGuiMouseButton_Left)) EndStroke(editor);
}

/// Paints every cell between the last one of the stroke and `to`, so that a fast mouse leaves no
/// gaps.
void TileBrush::PaintLine(LevelEditor& editor, const TilePlaces& places, const Cell& to) {
  const Cell from = m_last.value_or(to);
  const int steps = std::max(std::abs(to.column - from.column), std::abs(to.row - from.row));
  for (int i = 0; i <= steps; ++i) {
    const int whole = std::max(steps, 1);
    PaintCell(editor, places,
              {from.column + (to.column - from.column) * i / whole,
               from.row + (to.row - from.row) * i / whole});
  }
  m_last = to;
}

void TileBrush::PaintCell(LevelEditor& editor, const TilePlaces& places, const Cell& cell) {
  if (Is("Draw Row")) {
    for (int column = 0; column < places.Columns(); ++column) {
      PaintPlace(editor, places.At(column, cell.row));
    }
  } else if (Is("Draw Column")) {
    for (int row = 0; row < places.Rows(); ++row) PaintPlace(editor, places.At(cell.column, row));
  } else {
    PaintPlace(editor, places.At(cell.column, cell.row));
  }
}

/// The tile under the middle of a cell on which a tool works that needs one: the uppermost, which
/// is the wall, unless the stroke began with the other kind.
std::optional<TilePlace> TileBrush::FindTile(const TilePlace& cell) const {
  const TilePlaces plates(g_editor.m_tile_map, true);
  const auto plate =
      plates.CellAt(Vector3D(static_cast<float>(cell.x), static_cast<float>(cell.y), 0.0f));
  const auto is_meant = [this](const TilePlace& place) {
    return (m_size == 0 || m_size == place.size) && !m_book->Look(place).texture.empty();
  };
  if (is_meant(cell)) return cell;
  if (!plate) return std::nullopt;
  const TilePlace place = plates.At(plate->column, plate->row);
  return is_meant(place) ? std::optional(place) : std::nullopt;
}

/// Erases or turns the tile under a cell.
void TileBrush::ChangeTile(const TilePlace& cell) {
  const std::optional<TilePlace> place = FindTile(cell);
  if (!place) return;
  m_size = place->size;
  if (Is("Erase")) return m_stroke.Paint(*place, TileLook());
  if (m_stroke.HasChanged(*place)) return;
  TileLook look = m_book->Look(*place);
  look.rotation -= kQuarterTurn;
  if (look.rotation <= -360.0f) look.rotation += 360.0f;
  m_stroke.Paint(*place, look);
}

void TileBrush::PaintPlace(LevelEditor& editor, const TilePlace& place) {
  if (IsForTiles()) return ChangeTile(place);
  const TileLook look = m_book->Look(place);
  if (look.texture.empty() && m_book->Count() >= Room()) {
    if (!m_full) editor.log.Fault("The map holds no more tiles than it has cells.");
    m_full = true;
    return;
  }
  m_stroke.Paint(place, NewTile(g_editor.m_tile_map.m_tile_tex));
}

void TileBrush::EndStroke(LevelEditor& editor) {
  m_painting = m_full = false;
  m_last.reset();
  m_size = 0;
  editor.Do(m_stroke.End(g_editor.m_tile_map.m_mode));
}

void TileBrush::DrawPreview(const TilePlaces& places, const Cell& cell) const {
  ImDrawList& draw = *ImGui::GetBackgroundDrawList();
  const bool row = Is("Draw Row"), column = Is("Draw Column");
  TilePlace first = places.At(row ? 0 : cell.column, column ? 0 : cell.row);
  TilePlace last =
      places.At(row ? places.Columns() - 1 : cell.column, column ? places.Rows() - 1 : cell.row);
  if (IsForTiles()) first = last = FindTile(first).value_or(first);
  const ImVec2 from = Corner(first, -1.0f, 1.0f), to = Corner(last, 1.0f, -1.0f);
  if (!IsForTiles() && !row && !column) {
    const Thumbnail image = FindThumbnail(g_editor.m_tile_map.m_tile_tex);
    if (image.texture != nullptr)
      draw.AddImage(image.texture, from, to, {0, 0}, {1, 1}, kGhostTint);
  }
  draw.AddRect(from, to, Is("Erase") ? kEraseEdge : kGhostEdge, 0.0f, 0, 2.0f);
}

}  // namespace ZOVEngine
