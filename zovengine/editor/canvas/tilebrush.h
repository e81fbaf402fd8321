#pragma once

#include <optional>

#include "editor/tiles.h"

namespace ZOVEngine {

class LevelEditor;

/// The tile tools at work in the picture: the five modes of `g_editor.m_tile_map`, with a preview
/// of what a press would paint.
///
/// A stroke lasts from the press of the left button to its release and is one gesture. "Draw Row"
/// and "Draw Column" fill the line of the map under the mouse. "Erase" and "Rotate Tile" work on
/// the uppermost tile under the mouse, and for the rest of the stroke on tiles of its size: walls,
/// or the plates of floors. "Rotate Tile" gives each tile that the stroke touches a quarter turn.
class TileBrush {
 public:
  explicit TileBrush(TileBook* book) : m_stroke(book), m_book(book) {}

  /// Paints with what the mouse did since the last frame and draws the preview; between NewFrame
  /// and Render, while the tile tools are in hand.
  void Show(LevelEditor& editor);

 private:
  using Cell = TilePlaces::Cell;

  void PaintLine(LevelEditor& editor, const TilePlaces& places, const Cell& to);
  void PaintCell(LevelEditor& editor, const TilePlaces& places, const Cell& cell);
  void PaintPlace(LevelEditor& editor, const TilePlace& place);
  void ChangeTile(const TilePlace& cell);
  std::optional<TilePlace> FindTile(const TilePlace& cell) const;
  void DrawPreview(const TilePlaces& places, const Cell& cell) const;
  void EndStroke(LevelEditor& editor);

  TileStroke m_stroke;
  TileBook* m_book;
  bool m_painting = false;
  bool m_full = false;         ///< the author was told that the map holds no more tiles
  std::optional<Cell> m_last;  ///< of the stroke
  std::int32_t m_size = 0;     ///< of the tiles that the stroke changes; 0 before its first
};

}  // namespace ZOVEngine
