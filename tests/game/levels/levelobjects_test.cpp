#include "game/levels/levelobjects.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "jsonunserializer.h"
#include "objects/gameobjfactory.h"
#include "support/world.h"

namespace ZOVEngine {
namespace {

using carapace_test::Record;
using carapace_test::TransformAt;
using carapace_test::World;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::string Written() {
  JsonWriter writer;
  WriteLevelObjects(writer.Out());
  return writer.Text();
}

/// The names of the records that would be saved, as "parent>child" for children.
void AppendNames(const Value& records, const std::string& prefix, std::vector<std::string>* out) {
  for (const Value& record : records.GetArray()) {
    const std::string name = prefix + record["name"].GetString();
    out->push_back(name);
    AppendNames(record["Childs"], name + ">", out);
  }
}

std::vector<std::string> WrittenNames() {
  JsonDocument document;
  document.ParseText(Written(), "written");
  std::vector<std::string> names;
  AppendNames(document.Root()["GameObjFactory"], "", &names);
  return names;
}

std::string Tile(const std::string& name) {
  return Record(name, {{"Transform", TransformAt(0, 0)}, {"Render", R"({"m_tile": true})"}});
}

TEST(LevelObjects, ALevelWithoutObjectsIsAnEmptyArray) {
  World world;
  EXPECT_EQ(Written(), "{\n    \"GameObjFactory\": []\n}");
}

TEST(LevelObjects, ObjectsAreWrittenInTheFactorysOrder) {
  World world;
  world.LoadObjects(Record("b", {}) + "," + Record("a", {}) + "," + Record("c", {}));
  EXPECT_THAT(WrittenNames(), ElementsAre("b", "a", "c"));
}

TEST(LevelObjects, NamesOfTheEditorsOwnThingsAreLeftOut) {
  World world;
  for (const char* name : {"tile", "tile_collider", "particle_test", "LECamera"}) {
    world.LoadObjects(Record(name, {}));
  }
  EXPECT_THAT(WrittenNames(), IsEmpty());
}

TEST(LevelObjects, NamesThatOnlyLookLikeThemAreKept) {
  World world;
  for (const char* name : {"Tile", "tiles", "tilecollider", "lecamera", "particle_test2", ""}) {
    world.LoadObjects(Record(name, {}));
  }
  EXPECT_THAT(WrittenNames(),
              ElementsAre("Tile", "tiles", "tilecollider", "lecamera", "particle_test2", ""));
}

TEST(LevelObjects, TheMergedCollidersOfATileMapAreLeftOut) {
  World world;
  g_game_obj_factory->Instantiate("tilecollider", true);
  EXPECT_THAT(WrittenNames(), IsEmpty());
}

TEST(LevelObjects, AnObjectWithATileFlagIsLeftOutWhateverItsName) {
  World world;
  world.LoadObjects(Tile("floor") + "," +
                    Record("wall", {{"Transform", TransformAt(0, 0)}, {"Render", "{}"}}));
  EXPECT_THAT(WrittenNames(), ElementsAre("wall"));
}

TEST(LevelObjects, AChildIsWrittenWithinItsParentOnly) {
  World world;
  world.LoadObjects(Record("a", {}, {Record("b", {}, {Record("c", {})})}) + "," + Record("d", {}));
  EXPECT_THAT(WrittenNames(), ElementsAre("a", "a>b", "a>b>c", "d"));
}

TEST(LevelObjects, TheFilterDoesNotReachChildren) {
  World world;
  world.LoadObjects(Record("a", {}, {Record("tile", {}), Tile("floor")}));
  EXPECT_THAT(WrittenNames(), ElementsAre("a", "a>tile", "a>floor"));
}

TEST(LevelObjects, ArchetypesAreNotWritten) {
  World world;
  EXPECT_FALSE(g_game_obj_factory->m_archetypeObjects.empty());
  EXPECT_THAT(WrittenNames(), IsEmpty());
}

TEST(LevelObjects, WhatIsWrittenLoadsAgain) {
  World world;
  world.LoadObjects(Record("a", {{"Transform", TransformAt(1, 2, 3, 4, 5)}},
                           {Record("b", {{"StateC", R"({"m_state": "loop"})"}}, {}, false)}));
  const std::string first = Written();
  world.Directory().Write("saved.json", first);
  g_game_obj_factory->ClearObjects();
  g_game_obj_factory->LoadObjects("saved.json");
  EXPECT_EQ(Written(), first);
  EXPECT_FALSE(world.Find("b")->active);
}

}  // namespace
}  // namespace ZOVEngine
