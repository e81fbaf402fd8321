#include "editor/tiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editor/editortest.h"

namespace ZOVEngine {
namespace {

class TilesTest : public carapace_test::EditorTest {
 protected:
  TilesTest() {
    EXPECT_TRUE(editor->Open("Level01"));
    m_cells = TilePlaces(g_editor.m_tile_map, false);
  }
  /// What a save would write.
  std::string Saved() {
    EXPECT_TRUE(editor->Save());
    return world.Directory().Read(LevelPaths("Level01").tiles);
  }

  TilePlaces m_cells{g_editor.m_tile_map, false};
};

TEST(TilePlaces, CellsLieWhereTheLevelLooksForThem) {
  TileMapInfo map;
  map.m_width = map.m_height = 3;
  map.m_tile_size = 10;
  const TilePlaces cells(map, false);
  EXPECT_EQ(cells.At(0, 0), (TilePlace{-10, 10, 10}));
  EXPECT_EQ(cells.At(2, 2), (TilePlace{10, -10, 10}));
}

TEST(TilePlaces, PlatesLieOnCornersOfCells) {
  TileMapInfo map;
  map.m_width = 32;
  map.m_height = 18;
  map.m_tile_size = 60;
  const TilePlaces plates(map, true);
  EXPECT_EQ(plates.At(0, 0), (TilePlace{-840, 420, 120}));
  EXPECT_EQ(plates.At(plates.Columns() - 1, plates.Rows() - 1), (TilePlace{840, -420, 120}));
}

TEST(TilePlaces, APointLiesInTheCellThatCoversIt) {
  TileMapInfo map;
  map.m_width = 32;
  map.m_height = 18;
  map.m_tile_size = 60;
  const TilePlaces cells(map, false);
  EXPECT_EQ(cells.CellAt(Vector3D(-959.0f, 539.0f, 0.0f)), (TilePlaces::Cell{0, 0}));
  EXPECT_EQ(cells.CellAt(Vector3D(959.0f, -539.0f, 0.0f)), (TilePlaces::Cell{31, 17}));
  EXPECT_EQ(cells.CellAt(Vector3D(0.0f, 541.0f, 0.0f)), std::nullopt);
  EXPECT_EQ(TilePlaces(TileMapInfo(), false).CellAt(Vector3D()), std::nullopt);
}

TEST_F(TilesTest, AStrokeIsUndoneToTheByte) {
  TileStroke stroke(&editor->tiles);
  for (int column = 5; column < 9; ++column) {
    stroke.Paint(m_cells.At(column, 9), NewTile("Tile_Wall"));
  }
  stroke.Paint(m_cells.At(0, 5), TileLook());
  editor->Do(stroke.End("Paint"));
  EXPECT_EQ(editor->history.Size(), 1u);
  EXPECT_NE(Saved(), files[LevelPaths("Level01").tiles]);
  editor->Undo();
  EXPECT_EQ(Saved(), files[LevelPaths("Level01").tiles]);
  editor->Redo();
  // A wall stands to the left of the first one, at column 6 of the level's own.
  EXPECT_EQ(editor->tiles.Look(m_cells.At(8, 9)), NewTile("Wall_W"));
  EXPECT_EQ(editor->tiles.Look(m_cells.At(0, 5)), TileLook());
}

TEST(WallTexture, NamesTheSidesAtWhichTheWallGoesOn) {
  EXPECT_EQ(WallTexture(0), "Tile_Wall");
  EXPECT_EQ(WallTexture(kWallWest), "Wall_W");
  EXPECT_EQ(WallTexture(kWallNorth | kWallEast | kWallSouth | kWallWest), "Wall_NESW");
  EXPECT_TRUE(IsWallTexture("Tile_Wall"));
  EXPECT_TRUE(IsWallTexture(WallTexture(kWallNorth | kWallSouth)));
  EXPECT_FALSE(IsWallTexture("Tile_Floor"));
  EXPECT_FALSE(IsWallTexture(""));
}

TEST_F(TilesTest, AStrokeJoinsItsWallsToThoseBesideThem) {
  TileStroke stroke(&editor->tiles);
  const auto texture = [this](int column, int row) {
    return editor->tiles.Look(m_cells.At(column, row)).texture;
  };
  ASSERT_EQ(texture(0, 12), "Wall_NS");
  stroke.Paint(m_cells.At(1, 12), NewTile("Tile_Wall"));
  stroke.Paint(m_cells.At(2, 12), NewTile("Tile_Wall"));
  EXPECT_EQ(texture(0, 12), "Wall_NES");
  EXPECT_EQ(texture(1, 12), "Wall_EW");
  EXPECT_EQ(texture(2, 12), "Wall_W");
  EXPECT_TRUE(stroke.HasChanged(m_cells.At(0, 12)));
  stroke.Paint(m_cells.At(1, 12), TileLook());
  EXPECT_EQ(texture(0, 12), "Wall_NS");
  EXPECT_EQ(texture(2, 12), "Tile_Wall");
}

TEST_F(TilesTest, AWallPaintedOverAJoinedOneIsNoGesture) {
  TileStroke stroke(&editor->tiles);
  stroke.Paint(m_cells.At(0, 12), NewTile("Tile_Wall"));
  EXPECT_EQ(stroke.End("Paint"), nullptr);
}

TEST_F(TilesTest, AStrokeThatChangesNothingIsNoGesture) {
  TileStroke stroke(&editor->tiles);
  const TileLook there = editor->tiles.Look(m_cells.At(0, 5));
  ASSERT_FALSE(there.texture.empty());
  stroke.Paint(m_cells.At(0, 5), TileLook());
  stroke.Paint(m_cells.At(0, 5), there);
  EXPECT_EQ(stroke.End("Paint"), nullptr);
}

TEST_F(TilesTest, AStrokeIsUndoneAfterTheSceneWasBuiltAnew) {
  TileStroke stroke(&editor->tiles);
  stroke.Paint(m_cells.At(5, 9), NewTile("Tile_Wall"));
  editor->Do(stroke.End("Paint"));
  editor->Do(editor->scene.Delete({PathTo(world.Find("player1"))}));
  editor->Undo();
  editor->Undo();
  EXPECT_EQ(Saved(), files[LevelPaths("Level01").tiles]);
}

TEST_F(TilesTest, ErasedTilesAreNotSavedAndComeBackInTheirPlace) {
  TileStroke stroke(&editor->tiles);
  stroke.Paint(m_cells.At(3, 0), TileLook());
  editor->Do(stroke.End("Erase"));
  const std::size_t count = editor->tiles.Count();
  Saved();
  EXPECT_EQ(editor->tiles.Count(), count);
  editor->Undo();
  EXPECT_EQ(Saved(), files[LevelPaths("Level01").tiles]);
}

}  // namespace
}  // namespace ZOVEngine
