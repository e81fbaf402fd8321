#include "editor/leveleditor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "core/statemachine.h"
#include "editor/editordata.h"
#include "game/levels/levelsave.h"
#include "physics/components/transform.h"
#include "support/world.h"

namespace ZOVEngine {
namespace {

using carapace_test::Files;
using carapace_test::ShippedFile;
using carapace_test::World;

Files LevelFiles(const std::string& level) {
  const LevelPaths paths(level);
  Files files;
  for (const std::string& path : {paths.level, paths.tile_map, paths.tiles, paths.objects}) {
    files[path] = ShippedFile(path);
  }
  return files;
}

/// The program in its editor's state, with the files of one shipped level, and a session.
class LevelEditorTest : public ::testing::Test {
 protected:
  explicit LevelEditorTest(const std::string& level = "Level01")
      : files(LevelFiles(level)), world(files) {
    g_editor = EditorData();
    ChangeState(kLevelEditorState, "");
    world.Step();
    editor = std::make_unique<LevelEditor>();
  }
  ~LevelEditorTest() override {
    editor.reset();
    g_editor = EditorData();
  }

  /// The files of the level as they are now.
  Files Now() {
    Files now;
    for (const auto& [path, text] : files) now[path] = world.Directory().Read(path);
    return now;
  }

  /// Moves an object by (x, y), as a drag does.
  void Move(const ObjectPath& path, float x, float y) {
    ObjectGesture gesture;
    gesture.Begin({path});
    ObjectAt(path)->GetComponent<Transform>()->m_local_pos += Vector3D(x, y, 0.0f);
    world.Step();
    editor->Do(gesture.End(&editor->document, "Move"));
  }

  Files files;
  World world;
  std::unique_ptr<LevelEditor> editor;
};

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

}  // namespace
}  // namespace ZOVEngine
