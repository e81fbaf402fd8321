#include "editor/leveltext.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editor/editortest.h"
#include "editor/twins.h"

namespace ZOVEngine {
namespace {

class LevelTextTest : public carapace_test::EditorTest {
 protected:
  /// Replaces the first `from` in the level's object file.
  void Damage(const std::string& from, const std::string& to) {
    const std::string path = LevelPaths("Level01").objects;
    std::string text = files[path];
    const std::size_t at = text.find(from);
    ASSERT_NE(at, std::string::npos);
    world.Directory().Write(path, text.replace(at, from.size(), to));
    m_damaged = text;
  }

  std::string m_damaged;
};

TEST_F(LevelTextTest, TheTextInMemoryIsThatOfTheFiles) {
  ASSERT_TRUE(editor->Open("Level01"));
  const LevelText text = OpenLevelText(*editor);
  const LevelPaths paths("Level01");
  EXPECT_EQ(text.level, files[paths.level]);
  EXPECT_EQ(text.map, files[paths.tile_map]);
  EXPECT_EQ(text.tiles, files[paths.tiles]);
  EXPECT_EQ(text.objects, editor->document.Text()) << "without the twins, so that addresses agree";
  EXPECT_EQ(TextWithTwins(editor->document), files[paths.objects]);
}

TEST_F(LevelTextTest, AnObjectThatCannotBeReadIsLeftOutAndTheFileStays) {
  Damage("\"m_health\": 3", "\"m_health\": \"three\"");
  ASSERT_TRUE(editor->Open("Level01"));
  EXPECT_EQ(world.Directory().Read(LevelPaths("Level01").objects), m_damaged);
  EXPECT_TRUE(FatalProblems(editor->document).empty());
  EXPECT_THAT(editor->log.Lines().front().text, ::testing::StartsWith("Left out: "));
  EXPECT_GT(LevelObjects().size(), 50u);
}

TEST_F(LevelTextTest, AnUnknownComponentLeavesItsObjectOut) {
  Damage("\"AudioSource\"\n", "\"AudioSauce\"\n");
  EXPECT_TRUE(editor->Open("Level01"));
  EXPECT_TRUE(FatalProblems(editor->document).empty());
}

TEST_F(LevelTextTest, AFileThatIsNoJsonIsNoLevel) {
  Damage("{", "");
  EXPECT_FALSE(editor->Open("Level01"));
  EXPECT_TRUE(editor->log.Lines().back().fault);
}

TEST_F(LevelTextTest, AChangeThatWouldEndTheProgramIsRefused) {
  ASSERT_TRUE(editor->Open("Level01"));
  const std::string before = editor->document.Text();
  const ObjectPath unit = PathTo(world.Find("player1"));
  EXPECT_EQ(editor->scene.RemoveComponent(unit, "Transform"), nullptr);
  EXPECT_NE(editor->scene.Fault(), "");
  EXPECT_EQ(editor->scene.Insert({}, {R"({"name": 1, "components": 7})"}, "Paste"), nullptr);
  EXPECT_EQ(editor->document.Text(), before);
  world.Step(3);
}

}  // namespace
}  // namespace ZOVEngine
