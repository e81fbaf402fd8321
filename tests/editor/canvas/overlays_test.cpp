#include "editor/canvas/overlays.h"

#include "editor/canvas/canvasstage.h"

namespace ZOVEngine {
namespace {

class OverlaysTest : public carapace_test::CanvasStage {
 protected:
  /// The vertices that a frame draws over the picture with the overlays as they are.
  int Drawn() {
    ImGui::NewFrame();
    canvas->Show(*editor);
    const int vertices = ImGui::GetBackgroundDrawList()->VtxBuffer.Size;
    for (const ImDrawCmd& command : ImGui::GetBackgroundDrawList()->CmdBuffer) {
      if (command.ElemCount > 0) clip = command.ClipRect;
    }
    ImGui::Render();
    return vertices;
  }
  /// How many more vertices are drawn with the overlay than without it.
  int Gain(bool EditorOverlays::*overlay) {
    editor->overlays.*overlay = false;
    const int without = Drawn();
    editor->overlays.*overlay = true;
    const int with = Drawn();
    editor->overlays.*overlay = false;
    return with - without;
  }

  ImVec4 clip;  ///< of what was drawn last (unit: pixels)
};

TEST_F(OverlaysTest, EachIsDrawnWhenItIsSwitchedOnOnly) {
  ASSERT_TRUE(editor->Open("Level02"));
  editor->selection = {Path("player1")};
  Frame();
  EXPECT_GT(Gain(&EditorOverlays::grid), 0);
  EXPECT_GT(Gain(&EditorOverlays::colliders), 0);
  EXPECT_GT(Gain(&EditorOverlays::patrols), 0);
  EXPECT_GT(Gain(&EditorOverlays::hazards), 0);
  EXPECT_GT(Gain(&EditorOverlays::aims), 0);
  EXPECT_GT(Gain(&EditorOverlays::energy), 0);
}

TEST_F(OverlaysTest, TheEnergyIsThatOfSelectedPlayerUnits) {
  editor->selection = {Path("enemy1")};
  EXPECT_EQ(Gain(&EditorOverlays::energy), 0);
}

TEST_F(OverlaysTest, NothingIsDrawnOutsideThePicture) {
  editor->overlays.grid = true;
  EXPECT_GT(Drawn(), 0);
  EXPECT_FLOAT_EQ(clip.x, 250.0f);
  EXPECT_FLOAT_EQ(clip.y, 0.0f);
  EXPECT_FLOAT_EQ(clip.z, 1530.0f);
  EXPECT_FLOAT_EQ(clip.w, 720.0f);
}

TEST_F(OverlaysTest, AnAimEndsAtAWall) {
  for (const char* unit : {"enemy1", "enemy2"}) {
    world.Find(unit)->GetComponent<Transform>()->m_local_pos.x = 700.0f;
  }
  world.Step();
  const int free = Gain(&EditorOverlays::aims);
  const TilePlaces cells(g_editor.m_tile_map, false);
  TileStroke stroke(&editor->tiles);
  for (int row = 0; row < 18; ++row) stroke.Paint(cells.At(26, row), NewTile("Tile_Wall"));
  editor->Do(stroke.End("Wall"));
  world.Step();
  EXPECT_LT(Gain(&EditorOverlays::aims), free / 2) << "a dashed line has fewer dashes";
}

TEST_F(OverlaysTest, ALightIsMarkedWhereItStands) {
  editor->overlays = {false, false, false, false, false, false};
  const int with = Drawn();
  for (const PlacedObject& placed : LevelObjects()) {
    if (placed.object->name != "lamp") continue;
    placed.object->GetComponent<Transform>()->m_local_pos.x = 5000.0f;
  }
  world.Step();
  EXPECT_LT(Drawn(), with);
}

TEST_F(OverlaysTest, PaintHasNoMark) {
  editor->overlays = {false, false, false, false, false, false};
  const int with = Drawn();
  for (const PlacedObject& placed : LevelObjects()) {
    if (placed.object->name != "decal") continue;
    placed.object->GetComponent<Transform>()->m_local_pos.x = 5000.0f;
  }
  world.Step();
  EXPECT_EQ(Drawn(), with);
}

TEST_F(OverlaysTest, ASelectedObjectIsOutlined) {
  editor->selection.clear();
  const int without = Drawn();
  editor->selection = {Path("player1")};
  EXPECT_GT(Drawn(), without);
}

}  // namespace
}  // namespace ZOVEngine
