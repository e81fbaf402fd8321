#include "core/app/leveleditorstate.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "core/app/screens.h"
#include "core/engine.h"
#include "core/messages.h"
#include "editor/editordata.h"
#include "objects/gameobjfactory.h"
#include "physics/components/transform.h"
#include "platform/inputsystem.h"
#include "platform/virtualkeys.h"
#include "platform/windowsystem.h"
#include "render/rendersystem.h"
#include "support/imguiframe.h"
#include "support/reports.h"
#include "ui/screens/splashcontroller.h"

namespace ZOVEngine {
namespace {

using carapace_test::ImGuiContextForTest;
using carapace_test::OutputOf;
using carapace_test::Record;
using carapace_test::TransformAt;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::SizeIs;

constexpr const char* kLevel = "Level Editor/Levels/Mine/";

/// A program that stands in the editor, with the mouse in the middle of the picture.
class LevelEditorStateTest : public carapace_test::ScreenTest {
 protected:
  LevelEditorStateTest() {
    g_editor = EditorData();
    MouseIntoPicture();
    Enter(kLevelEditorState);
  }
  ~LevelEditorStateTest() override { g_editor = EditorData(); }

  static void MouseIntoPicture() { ImGuiContextForTest::MoveMouse(890.0f, 360.0f); }
  static void MouseOutOfPicture() { ImGuiContextForTest::MoveMouse(1900.0f, 1000.0f); }

  Vector3D& Camera() { return world.Find("LECamera")->GetComponent<Transform>()->m_local_pos; }

  void RightButton(std::uint32_t pressed) { world.Send(MouseButton(1, pressed, Vector3D())); }

  /// Opens a level of 2 by 1 tiles with one unit, whose folders exist.
  void OpenLevel() {
    for (const char* folder : {"Map", "Entity"}) {
      std::filesystem::create_directories(world.Directory().Path() / kLevel / folder);
    }
    g_editor.m_level_open = true;
    g_editor.m_level_name = "Mine";
    TileMapInfo& map = g_editor.m_tile_map;
    map.m_map_dir = std::string(kLevel) + "Map/";
    map.m_map_name = "Mine";
    map.m_width = 2;
    map.m_height = 1;
    map.m_tile_size = 60;
    world.LoadObjects(Tile() + "," + Record("unit", {{"Transform", TransformAt(0, 0)}}));
  }

  static std::string Tile() {
    return Record("tile", {{"Transform", TransformAt(0, 0)}, {"Render", R"({"m_tile": true})"}});
  }

  bool IsSaved() { return world.Directory().Has(std::string(kLevel) + "Mine.json"); }

  ImGuiContextForTest context;
};

TEST_F(LevelEditorStateTest, EnteringMakesAnActiveCameraAndPausesTheEngine) {
  ASSERT_THAT(g_game_obj_factory->m_objects, SizeIs(1));
  EXPECT_EQ(g_editor.m_editor_camera, world.Find("LECamera"));
  EXPECT_TRUE(g_editor.m_editor_camera->active);
  EXPECT_TRUE(g_engine->paused);
}

TEST_F(LevelEditorStateTest, EnteringEndsADrag) {
  g_editor.m_dragging = true;
  Enter(kSplashState);
  Enter(kLevelEditorState);
  EXPECT_FALSE(g_editor.m_dragging);
}

TEST_F(LevelEditorStateTest, BroadcastsReachNoController) {
  world.LoadObjects(Record("stray", {{"SplashController", "{}"}}));
  world.Send(KeyUp(65));
  EXPECT_FALSE(world.Find("stray")->GetComponent<SplashController>()->m_first_done);
}

TEST_F(LevelEditorStateTest, TheRightButtonDragsTheView) {
  world.native.cursor = {100, 100};
  RightButton(1);
  EXPECT_TRUE(g_editor.m_dragging);
  EXPECT_FLOAT_EQ(Camera().x, 0.0f) << "the first step only remembers the place";
  const float before = GetCursorScreenPosition().x;
  world.native.cursor = {140, 100};
  const float moved = GetCursorScreenPosition().x - before;
  ASSERT_GT(moved, 0.0f);
  RightButton(1);
  EXPECT_FLOAT_EQ(Camera().x, -moved);
  EXPECT_FLOAT_EQ(Camera().y, 0.0f);
  RightButton(1);
  EXPECT_FLOAT_EQ(Camera().x, -moved) << "a mouse at rest moves nothing";
}

TEST_F(LevelEditorStateTest, ReleasingEndsTheDragInThePictureAndOutsideIt) {
  for (const bool outside : {false, true}) {
    MouseIntoPicture();
    RightButton(1);
    ASSERT_TRUE(g_editor.m_dragging);
    if (outside) MouseOutOfPicture();
    RightButton(0);
    EXPECT_FALSE(g_editor.m_dragging) << outside;
  }
}

TEST_F(LevelEditorStateTest, AHeldButtonOutsideThePictureEndsTheDragToo) {
  RightButton(1);
  MouseOutOfPicture();
  RightButton(1);
  EXPECT_FALSE(g_editor.m_dragging);
}

TEST_F(LevelEditorStateTest, TheLeftButtonStartsNoDragButStepsOneThatRuns) {
  world.Send(MouseButton(0, 1, Vector3D()));
  EXPECT_FALSE(g_editor.m_dragging);
  world.native.cursor = {100, 100};
  RightButton(1);
  world.native.cursor = {140, 100};
  world.Send(MouseButton(0, 1, Vector3D()));
  EXPECT_LT(Camera().x, 0.0f);
}

TEST_F(LevelEditorStateTest, TheWheelZoomsInThePictureOnly) {
  world.Send(MouseScroll(0));
  EXPECT_FLOAT_EQ(Camera().z, 15.0f);
  world.Send(MouseScroll(1));
  world.Send(MouseScroll(1));
  EXPECT_FLOAT_EQ(Camera().z, -15.0f);
  MouseOutOfPicture();
  world.Send(MouseScroll(0));
  EXPECT_FLOAT_EQ(Camera().z, -15.0f);
}

TEST_F(LevelEditorStateTest, TheArrowKeysMoveTheView) {
  world.Send(KeyDown(kVkRight));
  world.Send(KeyDown(kVkRight));
  world.Send(KeyDown(kVkLeft));
  world.Send(KeyDown(kVkDown));
  world.Send(KeyDown(kVkDown));
  world.Send(KeyDown(kVkUp));
  EXPECT_FLOAT_EQ(Camera().x, 10.0f);
  EXPECT_FLOAT_EQ(Camera().y, -10.0f);
}

TEST_F(LevelEditorStateTest, CResetsTheViewItsDepthIncluded) {
  Camera() = Vector3D(5.0f, -7.0f, 30.0f);
  world.Send(KeyDown('C'));
  EXPECT_EQ(Camera(), Vector3D(0.0f, 0.0f, 0.0f));
}

TEST_F(LevelEditorStateTest, WRAndEChooseTheEditMode) {
  const std::pair<char, std::uint32_t> rows[] = {{'R', 1}, {'E', 2}, {'W', 0}};
  for (const auto& [key, mode] : rows) {
    world.Send(KeyDown(static_cast<std::uint64_t>(key)));
    EXPECT_NE(g_editor.m_edit_mode, mode) << "on release, not before";
    world.Send(KeyUp(static_cast<std::uint64_t>(key)));
    EXPECT_EQ(g_editor.m_edit_mode, mode);
  }
}

TEST_F(LevelEditorStateTest, F7AndF8SwitchBetweenWindowAndFullScreen) {
  world.Send(KeyUp(kVkF8));
  EXPECT_TRUE(g_window_state.fullscreen);
  world.Send(KeyUp(kVkF7));
  EXPECT_FALSE(g_window_state.fullscreen);
}

TEST_F(LevelEditorStateTest, WhileAPanelHasTheMouseTheViewStaysAndKeysWork) {
  g_editor.m_mouse_captured = true;
  world.Send(MouseScroll(0));
  RightButton(1);
  EXPECT_EQ(Camera(), Vector3D(0.0f, 0.0f, 0.0f));
  EXPECT_FALSE(g_editor.m_dragging);
  world.Send(KeyDown(kVkRight));
  EXPECT_EQ(Camera(), Vector3D(10.0f, 0.0f, 0.0f));
}

TEST_F(LevelEditorStateTest, WhileAPanelHoldsTheKeyboardNothingHappens) {
  g_editor.m_input_captured = true;
  world.Send(KeyDown(kVkRight));
  world.Send(KeyDown(kVkControl));
  world.Send(MouseScroll(0));
  world.Send(KeyUp('R'));
  RightButton(1);
  EXPECT_EQ(Camera(), Vector3D(0.0f, 0.0f, 0.0f));
  EXPECT_FALSE(g_editor.m_ctrl_down);
  EXPECT_FALSE(g_editor.m_dragging);
  EXPECT_EQ(g_editor.m_edit_mode, 0u);
}

TEST_F(LevelEditorStateTest, ControlAndSSaveWithTheNextMessageOnce) {
  OpenLevel();
  world.Send(KeyDown(kVkControl));
  EXPECT_FALSE(IsSaved());
  world.native.Press('S');
  EXPECT_FALSE(IsSaved()) << "the key state alone is no message";
  world.Send(KeyDown('S'));
  EXPECT_TRUE(IsSaved());
  EXPECT_FALSE(g_editor.m_ctrl_down);
  std::filesystem::remove(world.Directory().Path() / kLevel / "Mine.json");
  world.Send(KeyDown('S'));
  EXPECT_FALSE(IsSaved()) << "Control must come again";
}

TEST_F(LevelEditorStateTest, TheReleaseOfControlSavesNothing) {
  OpenLevel();
  world.Send(KeyDown(kVkControl));
  world.native.Press('S');
  world.Send(KeyUp(kVkControl));
  EXPECT_FALSE(IsSaved());
  EXPECT_FALSE(g_editor.m_ctrl_down);
}

TEST_F(LevelEditorStateTest, WithoutALevelControlAndSOnlyForgetControl) {
  world.Send(KeyDown(kVkControl));
  world.native.Press('S');
  world.Send(MouseScroll(0));
  EXPECT_FALSE(g_editor.m_ctrl_down);
  EXPECT_FALSE(world.Directory().Has("Level Editor/Levels//.json"));
}

TEST_F(LevelEditorStateTest, ASavedLevelHasItsTilesItsUnitsAndNotTheEditorsCamera) {
  OpenLevel();
  world.Send(KeyUp(kVkF5));
  const std::string folder = kLevel;
  EXPECT_THAT(world.Directory().Read(folder + "Map/tiles.json"), HasSubstr("\"tile\""));
  const std::string units = world.Directory().Read(folder + "Entity/Units.json");
  EXPECT_THAT(units, HasSubstr("\"unit\""));
  EXPECT_THAT(units, Not(HasSubstr("LECamera")));
  EXPECT_THAT(units, Not(HasSubstr("\"tile\"")));
}

TEST_F(LevelEditorStateTest, F5LeavesForTheSplashScreenInASmallWindow) {
  OpenLevel();
  world.Send(KeyUp(kVkF5));
  EXPECT_TRUE(IsSaved());
  EXPECT_FALSE(g_editor.m_level_open);
  EXPECT_FALSE(g_engine->paused);
  EXPECT_EQ(g_editor.m_editor_camera, nullptr);
  EXPECT_EQ(g_window_state.windowedWidth, 1280);
  EXPECT_EQ(g_window_state.windowedHeight, 720);
  world.Step();
  EXPECT_EQ(g_state_machine->m_current, kSplashState);
  EXPECT_NE(world.Find("splash"), nullptr);
  EXPECT_EQ(world.Find("unit"), nullptr);
}

TEST_F(LevelEditorStateTest, F5WithoutALevelWritesNoFile) {
  world.Send(KeyUp(kVkF5));
  EXPECT_FALSE(world.Directory().Has("Level Editor/Levels//.json"));
  EXPECT_FALSE(IsSaved());
}

TEST_F(LevelEditorStateTest, DroppedFilesAreImportedWhileALevelIsOpen) {
  world.Directory().Write("assets/note.txt", "");
  world.Directory().Write("boom.ogg", "sound");
  g_editor.m_asset_dir = "assets";
  DroppedFile drop;
  drop.files = {"boom.ogg"};
  world.Send(drop);
  EXPECT_FALSE(world.Directory().Has("assets/boom.ogg"));
  g_editor.m_level_open = true;
  world.Send(drop);
  EXPECT_TRUE(world.Directory().Has("assets/boom.ogg"));
}

}  // namespace
}  // namespace ZOVEngine
