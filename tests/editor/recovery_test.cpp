#include "editor/recovery.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editor/editortest.h"

namespace ZOVEngine {
namespace {

using RecoveryTest = carapace_test::EditorTest;

TEST_F(RecoveryTest, TheLastTenSavesAreKept) {
  ASSERT_TRUE(editor->Open("Level01"));
  for (int i = 0; i < 13; ++i) ASSERT_TRUE(editor->Save());
  const std::vector<std::string> backups = Backups("Level01");
  ASSERT_EQ(backups.size(), 10u);
  EXPECT_EQ(world.Directory().Read(backups.back() + "/Entity/Units.json"),
            files[LevelPaths("Level01").objects]);
}

TEST_F(RecoveryTest, UnsavedWorkIsKeptAMinuteAfterItBegan) {
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

TEST_F(RecoveryTest, ADamagedRecoveryFileIsToldAndStays) {
  world.Directory().Write("Level Editor/Recovery/Level01.json", "{\"units\": {}}");
  EXPECT_FALSE(Recover(*editor, "Level01"));
  EXPECT_TRUE(editor->log.Lines().back().fault);
  EXPECT_EQ(RecoverableLevels(), std::vector<std::string>{"Level01"});
}

}  // namespace
}  // namespace ZOVEngine
