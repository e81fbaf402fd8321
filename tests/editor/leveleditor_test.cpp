#include "editor/leveleditor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "editor/editordata.h"
#include "editor/editortest.h"
#include "editor/recovery.h"
#include "game/levels/levelsave.h"
#include "physics/components/transform.h"

namespace ZOVEngine {
namespace {

using carapace_test::EditorTest;
using carapace_test::Files;

using LevelEditorTest = EditorTest;

class EveryShippedLevel : public LevelEditorTest,
                          public ::testing::WithParamInterface<const char*> {
 protected:
  EveryShippedLevel() : LevelEditorTest(GetParam()) {}
};

TEST_P(EveryShippedLevel, OpenedAndSavedUnchangedDiffersInNoByte) {
  ASSERT_TRUE(editor->Open(GetParam()));
  world.Step(30);
  ASSERT_TRUE(editor->Save());
  for (const auto& [path, text] : Now()) EXPECT_TRUE(text == files[path]) << path;
}

INSTANTIATE_TEST_SUITE_P(All, EveryShippedLevel,
                         ::testing::Values("Level00", "Level01", "Level02", "Level03", "Level04"),
                         [](const auto& test) { return test.param; });

/// The lines in which two texts differ, if they have as many lines.
std::vector<std::string> DifferentLines(const std::string& a, const std::string& b) {
  std::istringstream left(a), right(b);
  std::vector<std::string> out;
  std::string x, y;
  while (std::getline(left, x) && std::getline(right, y)) {
    if (x != y) out.push_back(y.substr(y.find_first_not_of(' ')));
  }
  return out;
}

TEST_F(LevelEditorTest, ALevelChangedInOnePlaceDiffersInThatPlaceOnly) {
  ASSERT_TRUE(editor->Open("Level01"));
  const ObjectPath unit = PathTo(world.Find("player1"));
  ASSERT_FALSE(unit.empty());
  ObjectGesture gesture;
  gesture.Begin({unit});
  world.Find("player1")->GetComponent<Transform>()->m_local_pos.z = 2.0f;
  editor->Do(gesture.End(&editor->document, "Lift"));
  ASSERT_TRUE(editor->Save());
  const LevelPaths paths("Level01");
  EXPECT_THAT(DifferentLines(files[paths.objects], Now()[paths.objects]),
              ::testing::Each(::testing::StartsWith("2.0")));
  EXPECT_EQ(Now()[paths.tiles], files[paths.tiles]);
}

TEST_F(LevelEditorTest, AMoveIsUndoneAndDoneAgain) {
  ASSERT_TRUE(editor->Open("Level01"));
  const std::string before = editor->document.Text();
  const ObjectPath unit = PathTo(world.Find("player1"));
  Move(unit, 60.0f, 30.0f);
  const std::string after = editor->document.Text();
  EXPECT_NE(after, before);
  editor->Undo();
  EXPECT_EQ(editor->document.Text(), before);
  EXPECT_FALSE(editor->IsChanged());
  EXPECT_EQ(world.Find("player1")->GetComponent<Transform>()->m_local_pos.x, -720.0f);
  editor->Redo();
  EXPECT_EQ(editor->document.Text(), after);
  EXPECT_TRUE(editor->IsChanged());
}

TEST_F(LevelEditorTest, ADeletedUnitComesBackWithItsPlaceInTheFile) {
  ASSERT_TRUE(editor->Open("Level01"));
  const std::string before = editor->document.Text();
  const ObjectPath unit = PathTo(world.Find("player1"));
  editor->selection = {unit};
  editor->Do(editor->scene.Delete({unit}));
  EXPECT_EQ(world.Find("player1"), nullptr);
  EXPECT_TRUE(editor->selection.empty());
  editor->Undo();
  EXPECT_EQ(editor->document.Text(), before);
  EXPECT_EQ(PathTo(world.Find("player1")), unit);
  EXPECT_EQ(editor->selection, Selection{unit});
}

TEST_F(LevelEditorTest, ADuplicateStandsBehindItsOriginalAndIsSelected) {
  ASSERT_TRUE(editor->Open("Level01"));
  ObjectPath unit = PathTo(world.Find("player1"));
  editor->Do(editor->scene.Duplicate({unit}, 60.0f, 0.0f));
  ++unit.back();
  EXPECT_EQ(editor->selection, Selection{unit});
  EXPECT_EQ(ObjectAt(unit)->name, "player1");
  EXPECT_EQ(ObjectAt(unit)->GetComponent<Transform>()->m_local_pos.x, -660.0f);
}

TEST_F(LevelEditorTest, AnObjectCannotStandBelowItself) {
  ASSERT_TRUE(editor->Open("Level01"));
  const std::string before = editor->document.Text();
  const ObjectPath unit = PathTo(world.Find("player1"));
  ObjectPath child = unit;
  child.push_back(0);
  editor->Do(editor->scene.Reparent(unit, child));
  EXPECT_EQ(editor->document.Text(), before);
  EXPECT_EQ(editor->history.Size(), 0u);
  EXPECT_TRUE(editor->log.Lines().back().fault);
}

TEST_F(LevelEditorTest, AnObjectMovesInTheTreeToALaterParent) {
  ASSERT_TRUE(editor->Open("Level01"));
  const std::string before = editor->document.Text();
  editor->Do(editor->scene.Reparent(PathTo(world.Find("player1")), PathTo(world.Find("player2"))));
  EXPECT_EQ(world.Find("player1")->parent, world.Find("player2"));
  EXPECT_EQ(editor->selection, Selection{PathTo(world.Find("player1"))});
  editor->Undo();
  EXPECT_EQ(editor->document.Text(), before);
}

TEST_F(LevelEditorTest, ANewLevelIsEmptyAndOnDisk) {
  ASSERT_TRUE(editor->Create({"Fresh", 20, 10, 60}));
  EXPECT_EQ(g_editor.m_level_name, "Fresh");
  EXPECT_EQ(g_editor.m_tile_map.m_width, 20);
  EXPECT_FALSE(editor->IsChanged());
  EXPECT_THAT(LevelNames(), ::testing::Contains("Fresh"));
}

TEST_F(LevelEditorTest, NamesThatAreNoPlainNewOnesAreRefusedWithASentence) {
  for (const std::string& name :
       {std::string(), std::string("a/b"), std::string(".."), std::string("a.b"),
        std::string(101, 'a'), std::string("Level01"), std::string(" a"), std::string("a\\b")}) {
    EXPECT_FALSE(editor->Create({name, 20, 10, 60})) << name;
    EXPECT_TRUE(editor->log.Lines().back().fault) << name;
    EXPECT_FALSE(g_editor.m_level_open) << name;
  }
}

TEST_F(LevelEditorTest, ALevelThatCannotBeReadLeavesTheOpenOne) {
  ASSERT_TRUE(editor->Open("Level01"));
  EXPECT_FALSE(editor->Open("Nowhere"));
  EXPECT_EQ(g_editor.m_level_name, "Level01");
  EXPECT_TRUE(editor->log.Lines().back().fault);
}

TEST_F(LevelEditorTest, TheLastTenSavesAreKept) {
  ASSERT_TRUE(editor->Open("Level01"));
  for (int i = 0; i < 13; ++i) ASSERT_TRUE(editor->Save());
  const std::vector<std::string> backups = Backups("Level01");
  ASSERT_EQ(backups.size(), 10u);
  EXPECT_EQ(world.Directory().Read(backups.back() + "/Entity/Units.json"),
            files[LevelPaths("Level01").objects]);
}

TEST_F(LevelEditorTest, UnsavedWorkIsKeptAMinuteAfterItBegan) {
  ASSERT_TRUE(editor->Open("Level01"));
  Recovery recovery;
  const Recovery::Time start{};
  recovery.Step(*editor, start);
  Move(PathTo(world.Find("player1")), 60.0f, 0.0f);
  recovery.Step(*editor, start);
  recovery.Step(*editor, start + std::chrono::seconds(59));
  EXPECT_TRUE(RecoverableLevels().empty());
  recovery.Step(*editor, start + std::chrono::seconds(60));
  EXPECT_EQ(RecoverableLevels(), std::vector<std::string>{"Level01"});
  const std::string work = editor->document.Text();
  editor->Close();
  ASSERT_TRUE(Recover(*editor, "Level01"));
  EXPECT_EQ(editor->document.Text(), work);
  EXPECT_TRUE(editor->IsChanged());
  EXPECT_EQ(Now(), files) << "the level's own files are as they were";
  ASSERT_TRUE(editor->Save());
  EXPECT_TRUE(RecoverableLevels().empty());
}

TEST_F(LevelEditorTest, ADamagedRecoveryFileIsToldAndStays) {
  world.Directory().Write("Level Editor/Recovery/Level01.json", "{\"units\": {}}");
  EXPECT_FALSE(Recover(*editor, "Level01"));
  EXPECT_TRUE(editor->log.Lines().back().fault);
  EXPECT_EQ(RecoverableLevels(), std::vector<std::string>{"Level01"});
}

}  // namespace
}  // namespace ZOVEngine
