// Files that are read and written back: the same keys, in the documented order.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "game/levels/levelobjects.h"
#include "jsonunserializer.h"
#include "objects/gameobjfactory.h"
#include "support/reports.h"
#include "support/world.h"

namespace ZOVEngine {
namespace {

using carapace_test::KeysOf;
using carapace_test::OutputOf;
using carapace_test::Record;
using carapace_test::ShippedFile;
using carapace_test::TransformAt;
using carapace_test::World;
using ::testing::ElementsAre;

std::string WriteBack() {
  JsonWriter writer;
  WriteLevelObjects(writer.Out());
  return writer.Text();
}

class ShippedScreen : public ::testing::TestWithParam<std::string> {
 protected:
  std::string Path() const { return "Level Editor/Levels/" + GetParam() + "/Entity/Units.json"; }
};

TEST_P(ShippedScreen, IsReadWithoutComplaintAndComesBackToTheByte) {
  World world;
  const std::string text = ShippedFile(Path());
  world.Directory().Write("screen.json", text);
  EXPECT_EQ(OutputOf([] { g_game_obj_factory->LoadObjects("screen.json"); }), "");
  EXPECT_EQ(WriteBack(), text);
}

INSTANTIATE_TEST_SUITE_P(All, ShippedScreen, ::testing::Values("SplashScreen", "MainMenu"),
                         [](const auto& test) { return test.param; });

TEST(RoundTrip, TheKeysOfARecordAreSortedWhateverTheInput) {
  World world;
  world.LoadObjects(R"({"Childs": [], "StateC": {"m_state": "loop"},
      "Transform": )" +
                    TransformAt(1, 2) + R"(, "components": ["Transform", "StateC"],
      "active": true, "future": 1, "name": "a"})");
  EXPECT_THAT(
      KeysOf(WriteBack()),
      ElementsAre("GameObjFactory", "GameObjFactory.name", "GameObjFactory.active",
                  "GameObjFactory.components", "GameObjFactory.Transform",
                  "GameObjFactory.Transform.m_pos", "GameObjFactory.Transform.m_scale",
                  "GameObjFactory.Transform.m_rotate", "GameObjFactory.Transform.m_world_scale",
                  "GameObjFactory.Transform.m_world_rotate", "GameObjFactory.Transform.m_world_pos",
                  "GameObjFactory.Transform.m_rotate_with_parent", "GameObjFactory.StateC",
                  "GameObjFactory.StateC.m_state", "GameObjFactory.Childs"));
}

TEST(RoundTrip, AnObjectWithoutChildrenWritesAnEmptyArray) {
  World world;
  world.LoadObjects(Record("a", {}));
  EXPECT_EQ(WriteBack(),
            "{\n    \"GameObjFactory\": [\n        {\n            \"name\": \"a\",\n"
            "            \"active\": true,\n            \"components\": [],\n"
            "            \"Childs\": []\n        }\n    ]\n}");
}

TEST(RoundTrip, AnArchetypeIsWrittenLikeAnObject) {
  World world;
  GameObj* archetype = g_game_obj_factory->m_archetypeObjects.front();
  JsonWriter writer;
  WriteObject(writer.Out(), archetype);
  const std::vector<std::string> keys = KeysOf(writer.Text());
  EXPECT_EQ(keys.front(), "name");
  EXPECT_EQ(std::count(keys.begin(), keys.end(), "Transform.m_pos"), 1);
  EXPECT_EQ(keys.back(), "Childs");
}

TEST(RoundTrip, ActivityOfAnObjectIsSavedAndThatOfItsComponentsIsNot) {
  World world;
  world.LoadObjects(Record("a", {{"Transform", TransformAt(0, 0)}}));
  world.Find("a")->SetActive(false);
  world.Directory().Write("saved.json", WriteBack());
  g_game_obj_factory->ClearObjects();
  g_game_obj_factory->LoadObjects("saved.json");
  EXPECT_FALSE(world.Find("a")->active);
  EXPECT_TRUE(g_game_obj_factory->Table(world.Find("a")->components[0]).Get(0u)->m_active);
}

}  // namespace
}  // namespace ZOVEngine
