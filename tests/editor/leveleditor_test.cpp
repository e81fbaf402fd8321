#include "editor/leveleditor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "editor/editordata.h"
#include "editor/editortest.h"
#include "editor/editorview.h"
#include "editor/palette.h"
#include "game/levels/levelsave.h"
#include "physics/components/transform.h"
#include "render/rendersystem.h"
#include "support/wholetiles.h"

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

TEST_F(LevelEditorTest, ANewLevelIsEmptyAndOnDisk) {
  ASSERT_TRUE(editor->Create({"Fresh", 20, 10, 60}));
  EXPECT_EQ(g_editor.m_level_name, "Fresh");
  EXPECT_EQ(g_editor.m_tile_map.m_width, 20);
  EXPECT_FALSE(editor->IsChanged());
  EXPECT_THAT(FindLevels().levels, ::testing::Contains("Fresh"));
}

TEST_F(LevelEditorTest, ScreensOfTheGameAreListedApartFromLevels) {
  const std::string folder = std::string(kLevelsFolder) + "/MenuLike/";
  world.Directory().Write(folder + "MenuLike.json", "{}");
  world.Directory().Write(folder + "Entity/Units.json",
                          R"({"GameObjFactory": [{"components": ["MainMenuController"]}]})");
  const std::string broken = std::string(kLevelsFolder) + "/Broken/Broken.json";
  world.Directory().Write(broken, "{}");
  const LevelNames names = FindLevels();
  EXPECT_THAT(names.levels, ::testing::IsSupersetOf({"Broken", "Level01"}));
  EXPECT_THAT(names.levels, ::testing::Not(::testing::Contains("MenuLike")));
  EXPECT_THAT(names.screens, ::testing::Contains("MenuLike"));
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

constexpr const char* kPaletteHazard = "Resources/Archetypes/Palette/hazard_destructible.json";

TEST_F(LevelEditorTest, TilesAreWholeWhateverIsDrawnLast) {
  ASSERT_TRUE(editor->Open("Level01"));
  g_render_system->m_hides = IsGameInterface;
  rapidjson::Document hazard;
  hazard.Parse(carapace_test::ShippedFile(kPaletteHazard).c_str());
  const ObjectPath root = FindLevelRoot(editor->document);
  editor->Do(editor->scene.Insert(root, {ToText(hazard["Objects"][1])}, "Insert",
                                  editor->document.Children(root)->Size()));
  for (int i = 0; i < 20; ++i) {
    world.Step();
    carapace_test::ExpectWholeTiles(world.device.frame);
  }
}

}  // namespace
}  // namespace ZOVEngine
