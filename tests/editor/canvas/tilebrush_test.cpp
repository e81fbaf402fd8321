#include "editor/canvas/tilebrush.h"

#include <gtest/gtest.h>

#include "editor/editortest.h"
#include "editor/editorview.h"
#include "support/imguiframe.h"

namespace ZOVEngine {
namespace {

using carapace_test::ImGuiContextForTest;

class TileBrushTest : public carapace_test::EditorTest {
 protected:
  TileBrushTest() {
    EXPECT_TRUE(editor->Open("Level01"));
    m_cells = TilePlaces(g_editor.m_tile_map, false);
    g_editor.m_tile_map.m_tile_tex = "Tile_Wall";
  }

  TileLook Look(int column, int row) { return editor->tiles.Look(m_cells.At(column, row)); }
  bool IsWall(int column, int row) { return IsWallTexture(Look(column, row).texture); }

  /// A frame with the mouse in the middle of a cell, the left button down or up.
  void Frame(int column, int row, bool down) {
    const TilePlace place = m_cells.At(column, row);
    const Vector3D at =
        WorldToWindow(Vector3D(static_cast<float>(place.x), static_cast<float>(place.y), 0.0f));
    ImGuiContextForTest::MoveMouse(at.x, at.y);
    ImGuiContextForTest::HoldMouse(down);
    ImGui::NewFrame();
    m_brush.Show(*editor);
    ImGui::Render();
  }

  /// A stroke from one cell to another.
  void Stroke(int column, int row, int to_column, int to_row) {
    Frame(column, row, false);
    Frame(column, row, true);
    Frame(to_column, to_row, true);
    Frame(to_column, to_row, false);
  }

  ImGuiContextForTest m_context;
  TilePlaces m_cells{TileMapInfo(), false};
  TileBrush m_brush{&editor->tiles};
};

TEST_F(TileBrushTest, AFastStrokeLeavesNoGapsAndIsOneGesture) {
  Stroke(8, 10, 12, 10);
  for (int column = 8; column <= 12; ++column) EXPECT_TRUE(IsWall(column, 10));
  EXPECT_EQ(editor->history.Size(), 1u);
  EXPECT_EQ(editor->history.Label(0), "Draw Single");
  editor->Undo();
  EXPECT_EQ(Look(10, 10), TileLook());
}

TEST_F(TileBrushTest, EraseClearsACell) {
  g_editor.m_tile_map.m_mode = "Erase";
  ASSERT_TRUE(IsWall(0, 5));
  Stroke(0, 5, 0, 5);
  EXPECT_EQ(Look(0, 5), TileLook());
}

/// The plate over the cell (1, 1), with a wall upon it.
TilePlace LayWallOnPlate(TileBook& tiles, const TilePlaces& cells) {
  const TilePlaces plates(g_editor.m_tile_map, true);
  const TilePlace plate = plates.At(0, 0);
  tiles.Lay(plate, NewTile("Tile_Floor"));
  tiles.Lay(cells.At(1, 1), NewTile("Tile_Wall"));
  return plate;
}

TEST_F(TileBrushTest, EraseTakesTheUppermostTileWhateverTextureIsChosen) {
  const TilePlace plate = LayWallOnPlate(editor->tiles, m_cells);
  g_editor.m_tile_map.m_mode = "Erase";
  for (const char* texture : {"Tile_Wall", "Tile_Floor"}) {
    g_editor.m_tile_map.m_tile_tex = texture;
    Stroke(1, 1, 1, 1);
    EXPECT_EQ(Look(1, 1), TileLook());
    EXPECT_EQ(editor->tiles.Look(plate).texture, "Tile_Floor") << "the wall alone";
    Stroke(1, 1, 1, 1);
    EXPECT_EQ(editor->tiles.Look(plate), TileLook()) << "then the floor";
    LayWallOnPlate(editor->tiles, m_cells);
  }
}

TEST_F(TileBrushTest, AStrokeThatErasesFloorsLeavesWalls) {
  const TilePlace plate = LayWallOnPlate(editor->tiles, m_cells);
  g_editor.m_tile_map.m_mode = "Erase";
  Stroke(2, 1, 1, 1);
  EXPECT_EQ(editor->tiles.Look(plate), TileLook());
  EXPECT_TRUE(IsWall(1, 1));
}

TEST_F(TileBrushTest, RotateTurnsAPlateOnceThoughAWallIsChosen) {
  const TilePlace plate = LayWallOnPlate(editor->tiles, m_cells);
  g_editor.m_tile_map.m_mode = "Rotate Tile";
  Stroke(2, 1, 2, 2);
  EXPECT_EQ(editor->tiles.Look(plate).rotation, -90.0f);
  EXPECT_EQ(Look(1, 1).rotation, 0.0f);
}

TEST_F(TileBrushTest, ARowFillsTheMapFromEdgeToEdge) {
  g_editor.m_tile_map.m_mode = "Draw Row";
  Stroke(10, 9, 10, 9);
  for (int column = 0; column < 32; ++column) EXPECT_TRUE(IsWall(column, 9));
  EXPECT_EQ(editor->history.Size(), 1u);
}

TEST_F(TileBrushTest, AColumnFillsTheMapFromTopToBottom) {
  g_editor.m_tile_map.m_mode = "Draw Column";
  Stroke(10, 9, 10, 9);
  for (int row = 0; row < 18; ++row) EXPECT_TRUE(IsWall(10, row));
}

TEST_F(TileBrushTest, RotateTurnsATileOnceAStroke) {
  g_editor.m_tile_map.m_mode = "Rotate Tile";
  const float before = Look(0, 5).rotation;
  Frame(0, 5, false);
  for (int i = 0; i < 5; ++i) Frame(0, 5, true);
  Frame(0, 5, false);
  EXPECT_EQ(Look(0, 5).rotation, before - 90.0f);
  Stroke(10, 10, 10, 10);
  EXPECT_EQ(Look(10, 10), TileLook()) << "an empty cell stays empty";
}

TEST_F(TileBrushTest, AFloorIsPaintedAsAPlate) {
  g_editor.m_tile_map.m_tile_tex = "Tile_Floor";
  const TilePlaces plates(g_editor.m_tile_map, true);
  const auto plate = plates.CellAt(Vector3D(-840.0f, 420.0f, 0.0f));
  ASSERT_TRUE(plate);
  const TilePlace place = plates.At(plate->column, plate->row);
  ASSERT_EQ(editor->tiles.Look(place), TileLook());
  Stroke(1, 1, 1, 1);
  EXPECT_EQ(editor->tiles.Look(place).texture, "Tile_Floor");
}

TEST_F(TileBrushTest, AStrokeThatEndsOutsideThePictureIsAGestureToo) {
  Frame(8, 10, false);
  Frame(8, 10, true);
  ImGuiContextForTest::MoveMouse(5.0f, 1070.0f);
  ImGuiContextForTest::HoldMouse(false);
  ImGui::NewFrame();
  m_brush.Show(*editor);
  ImGui::Render();
  EXPECT_EQ(editor->history.Size(), 1u);
}

TEST_F(TileBrushTest, TheMapHoldsNoMoreTilesThanItHasCells) {
  g_editor.m_tile_map.m_width = 20;  // 360 cells, of which the level's tiles take most
  m_cells = TilePlaces(g_editor.m_tile_map, false);
  g_editor.m_tile_map.m_mode = "Draw Row";
  for (int row = 4; row < 16; ++row) Stroke(8, row, 8, row);
  EXPECT_EQ(editor->tiles.Count(), 20u * 18u);
  EXPECT_TRUE(editor->log.Lines().back().fault);
}

}  // namespace
}  // namespace ZOVEngine
