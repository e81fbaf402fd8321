#include "editor/testplay.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/engine.h"
#include "editor/editortest.h"
#include "editor/scene.h"
#include "game/turns/gamecontroller.h"

namespace ZOVEngine {
namespace {

class TestPlayTest : public carapace_test::EditorTest {
 protected:
  TestPlayTest() { EXPECT_TRUE(editor->Open("Level01")); }

  TestPlay m_play;
};

TEST_F(TestPlayTest, TheLevelIsPlayedAsItStandsInMemory) {
  Move(PathTo(world.Find("player1")), 60.0f, 0.0f);
  ASSERT_TRUE(m_play.Start(*editor));
  world.Step(5);
  EXPECT_EQ(g_state_machine->m_current, kDefaultState);
  EXPECT_FALSE(g_engine->paused);
  EXPECT_EQ(world.Find("player1")->GetComponent<Transform>()->m_local_pos.x, -660.0f);
  EXPECT_FALSE(world.Find("level")->GetComponent<GameController>()->m_players.empty());
  EXPECT_NE(world.Find("tile_collider"), nullptr) << "its walls stand";
  EXPECT_EQ(Now(), files) << "nothing is saved";
}

TEST_F(TestPlayTest, StoppingReturnsToTheSameViewSelectionAndHistory) {
  const ObjectPath unit = PathTo(world.Find("player1"));
  Move(unit, 60.0f, 0.0f);
  editor->selection = {unit};
  g_editor.m_editor_camera->GetComponent<Transform>()->m_local_pos = Vector3D(5.0f, 6.0f, 7.0f);
  const std::string document = editor->document.Text(), tiles = TilesText();
  ASSERT_TRUE(m_play.Start(*editor));
  world.Step(5);
  m_play.Stop();
  world.Step();
  m_play.Resume(*editor);
  world.Step();
  EXPECT_EQ(g_state_machine->m_current, kLevelEditorState);
  EXPECT_TRUE(g_engine->paused);
  EXPECT_EQ(editor->document.Text(), document);
  EXPECT_EQ(TilesText(), tiles);
  EXPECT_EQ(editor->selection, Selection{unit});
  EXPECT_EQ(g_editor.m_editor_camera->GetComponent<Transform>()->m_local_pos,
            Vector3D(5.0f, 6.0f, 7.0f));
  editor->Undo();
  EXPECT_FALSE(editor->IsChanged());
}

TEST_F(TestPlayTest, ErasedTilesAreNotThere) {
  const TilePlaces cells(g_editor.m_tile_map, false);
  TileStroke stroke(&editor->tiles);
  for (int column = 0; column < 32; ++column) {
    for (int row = 0; row < 18; ++row) stroke.Paint(cells.At(column, row), TileLook());
  }
  editor->Do(stroke.End("Erase"));
  ASSERT_TRUE(m_play.Start(*editor));
  world.Step(5);
  EXPECT_EQ(world.Find("tile_collider"), nullptr);
}

/// The text with the path of a level in place of another one.
std::string Renamed(std::string text, const std::string& from, const std::string& to) {
  for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size()) {
    text.replace(at, from.size(), to);
  }
  return text;
}

TEST_F(TestPlayTest, WhatIsPlayedIsWhatASaveWouldLeave) {
  const std::string unit = ToText(*editor->document.Find(PathTo(world.Find("player1"))));
  const ObjectPath level = PathTo(world.Find("level"));
  editor->Do(editor->scene.Insert(level, {unit}, "Insert"));
  world.Step();
  Move(editor->Primary(), 60.0f, 90.0f);
  world.Step();
  const std::string folder = (world.Directory().Path() / "copy").string();
  ASSERT_NE(WriteLevelCopy(*editor, folder), "");
  ASSERT_TRUE(editor->Save());
  const LevelPaths paths("Level01");
  EXPECT_EQ(Renamed(world.Directory().Read("copy/Units.json"), folder + "/level.json", paths.level),
            world.Directory().Read(paths.objects));
  EXPECT_EQ(world.Directory().Read("copy/tiles.json"), world.Directory().Read(paths.tiles));
}

TEST_F(TestPlayTest, WithoutALevelThereIsNothingToPlay) {
  editor->Close();
  EXPECT_FALSE(m_play.Start(*editor));
  m_play.Stop();
  EXPECT_EQ(g_state_machine->m_next, kLevelEditorState);
}

}  // namespace
}  // namespace ZOVEngine
