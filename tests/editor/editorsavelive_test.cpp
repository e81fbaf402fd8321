#include "editor/editorsave.h"

#include <gtest/gtest.h>

#include "editor/editordata.h"
#include "objects/gameobjfactory.h"
#include "support/world.h"

namespace ZOVEngine {
namespace {

using carapace_test::Record;
using carapace_test::World;

std::string Sprite(const std::string& name, bool tile,
                   const std::vector<std::string>& children = {}) {
  return Record(name, {{"Render", std::string(R"({"m_tile": )") + (tile ? "true}" : "false}")}},
                children);
}

/// Sets the editor's data back at both ends.
class EditorSaveTest : public ::testing::Test {
 protected:
  EditorSaveTest() { g_editor = EditorData(); }
  ~EditorSaveTest() override { g_editor = EditorData(); }
};

TEST_F(EditorSaveTest, OnlyAnOpenLevelIsSaved) {
  int saves = 0;
  g_editor.m_save = [&saves] { ++saves; };
  SaveOpenLevel();
  EXPECT_EQ(saves, 0);
  g_editor.m_level_open = true;
  SaveOpenLevel();
  EXPECT_EQ(saves, 1);
}

TEST_F(EditorSaveTest, ALiveLevelIsSavedUnderItsNameAndItsMapUnderItsOwn) {
  World world(
      carapace_test::Files{{"Level Editor/Levels/Mine/Entity/old", "x"}, {"elsewhere/old", "x"}});
  g_editor.m_level_name = "Mine";
  g_editor.m_tile_map.m_map_dir = "elsewhere/";
  g_editor.m_tile_map.m_map_name = "plan";
  EXPECT_TRUE(SaveLiveLevel());
  for (const char* file :
       {"elsewhere/plan.json", "elsewhere/tiles.json", "Level Editor/Levels/Mine/Entity/Units.json",
        "Level Editor/Levels/Mine/Mine.json"}) {
    EXPECT_TRUE(world.Directory().Has(file)) << file;
  }
}

TEST_F(EditorSaveTest, OneFileThatFailsIsToldAndTheOthersAreSaved) {
  World world(carapace_test::Files{{"Level Editor/Levels/Mine/Entity/old", "x"}});
  g_editor.m_level_name = "Mine";
  g_editor.m_tile_map.m_map_dir = "nowhere/";
  EXPECT_FALSE(SaveLiveLevel());
  EXPECT_TRUE(world.Directory().Has("Level Editor/Levels/Mine/Entity/Units.json"));
  EXPECT_TRUE(world.Directory().Has("Level Editor/Levels/Mine/Mine.json"));
}

TEST(DestroyTiles, TakesEveryTileWhateverItsNameAndNothingElse) {
  World world;
  world.LoadObjects(Sprite("tile", true) + "," + Sprite("unit", false) + "," +
                    Sprite("floor", true, {Sprite("moss", false), Sprite("tile", true)}) + "," +
                    Record("bare", {}) + "," + Sprite("tile", true) + "," + Sprite("last", true));
  DestroyTiles();
  ASSERT_EQ(g_game_obj_factory->m_objects.size(), 2u);
  for (const char* name : {"unit", "bare"}) {
    const GameObj* left = world.Find(name);
    ASSERT_NE(left, nullptr) << name;
    EXPECT_EQ(g_game_obj_factory->m_objects[left->id], left);
  }
}

}  // namespace
}  // namespace ZOVEngine
