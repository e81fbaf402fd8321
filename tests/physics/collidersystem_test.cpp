#include "physics/collidersystem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <rttr/type>

#include <memory>

#include "support/reports.h"
#include "support/world.h"

namespace ZOVEngine {
namespace {

using carapace_test::Files;
using carapace_test::OutputOf;
using carapace_test::Record;
using carapace_test::World;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Pair;

constexpr const char* kFile = "Resources/CollisionInfo.json";

Files CollisionInfo(const std::string& text) {
  return {{kFile, text}};
}

/// The text without white space.
std::string Dense(std::string text) {
  std::erase_if(text, [](char c) { return c == ' ' || c == '\n'; });
  return text;
}

TEST(ColliderSystemFile, FillsBothMaps) {
  World world(CollisionInfo(R"({"str_grp": ["Wall", "Default"], "int_grp": [2, 1],
                                "str_bm": ["Wall", "Ghost"], "int_bm": [7, -1]})"));
  EXPECT_THAT(g_collider_system->m_groups, ElementsAre(Pair("Default", 1), Pair("Wall", 2)));
  EXPECT_THAT(g_collider_system->m_masks, ElementsAre(Pair("Ghost", -1), Pair("Wall", 7)));
}

TEST(ColliderSystemFile, TheEntriesOfANewSystemGiveWayToTheFile) {
  World world(CollisionInfo(R"({"str_grp": ["Wall"], "int_grp": [2], "str_bm": ["Wall"],
                                "int_bm": [7]})"));
  EXPECT_EQ(g_collider_system->m_masks.count("Default"), 0u);
}

TEST(ColliderSystemFile, CategoriesAreReadAsFarAsTheGroupsReach) {
  World world(CollisionInfo(R"({"str_grp": ["A"], "int_grp": [1, 2, 3],
                                "str_bm": ["X", "Y", "Z"], "int_bm": [4, 5, 6]})"));
  EXPECT_THAT(g_collider_system->m_groups, ElementsAre(Pair("A", 1)));
  EXPECT_THAT(g_collider_system->m_masks, ElementsAre(Pair("X", 4)));
}

TEST(ColliderSystemFile, TheTeardownWritesItBackSorted) {
  World world(CollisionInfo(R"({"str_grp": ["Wall", "Barrier"], "int_grp": [2, 3],
                                "str_bm": ["Zone", "Ghost"], "int_bm": [7, 0]})"));
  const std::string output = OutputOf([&] { world.Shutdown(); });
  EXPECT_THAT(output, HasSubstr("Destructor of ColliderSystem\n"));
  EXPECT_EQ(Dense(world.Directory().Read(kFile)),
            R"({"str_grp":["Barrier","Wall"],"int_grp":[3,2],)"
            R"("str_bm":["Ghost","Zone"],"int_bm":[0,7]})");
}

TEST(ColliderSystemFile, TheShippedFileComesBackAsItIs) {
  World world;
  world.Shutdown();
  EXPECT_EQ(Dense(world.Directory().Read(kFile)), Dense(carapace_test::ShippedFile(kFile)));
}

TEST(ColliderSystemFile, ACategoryThatWasAddedIsWritten) {
  World world;
  g_collider_system->m_masks["New"] = 0;
  world.Shutdown();
  EXPECT_THAT(world.Directory().Read(kFile), HasSubstr("\"New\""));
}

TEST(ColliderSystemFile, MissingListsArePrintedAndEmpty) {
  std::string output;
  {
    std::unique_ptr<World> world;
    output = OutputOf([&] { world = std::make_unique<World>(CollisionInfo("{}")); });
    EXPECT_THAT(g_collider_system->m_groups, IsEmpty());
    EXPECT_THAT(g_collider_system->m_masks, IsEmpty());
  }
  for (const char* key : {"str_grp", "int_grp", "str_bm", "int_bm"}) {
    EXPECT_THAT(output, HasSubstr(std::string("Cant find Key: ") + key + "\n"));
  }
}

TEST(ColliderSystemFile, AMalformedFileLeavesEmptyMaps) {
  World world(CollisionInfo("{\"str_grp\": ["));
  EXPECT_THAT(g_collider_system->m_groups, IsEmpty());
  EXPECT_THAT(g_collider_system->m_masks, IsEmpty());
}

TEST(ColliderSystemDeathTest, AListShorterThanTheGroupsEndsTheProgram) {
  const char* const kFiles[] = {
      R"({"str_grp": ["A"], "int_grp": [], "str_bm": ["A"], "int_bm": [1]})",
      R"({"str_grp": ["A"], "int_grp": [1], "str_bm": [], "int_bm": [1]})",
      R"({"str_grp": ["A"], "int_grp": [1], "str_bm": ["A"], "int_bm": []})",
      R"({"str_grp": ["A"], "int_grp": [1], "str_bm": ["A"]})"};
  for (const char* text : kFiles) {
    EXPECT_DEATH(World world(CollisionInfo(text)), "");
  }
}

TEST(ColliderSystemDeathTest, AMissingFileEndsTheProgram) {
  carapace_test::TempDirectory directory;
  EXPECT_DEATH(
      {
        GameObjFactory factory;
        ColliderSystem system;
      },
      "Resources/CollisionInfo\\.jsonfile not found");
}

TEST(ColliderSystem, SetDebugReachesEveryHolderByName) {
  World world;
  world.LoadObjects(Record("a", {{"ColliderHolder", "{}"}}) + "," +
                    Record("b", {{"ColliderHolder", "{}"}}));
  const rttr::type type = rttr::type::get_by_name("ZOVEngine::ColliderSystem");
  EXPECT_EQ(type.get_metadata("systemname").to_string(), "ColliderSystem");
  type.get_method("SetDebug").invoke(*g_collider_system, true);
  EXPECT_TRUE(world.Find("a")->GetComponent<ColliderHolder>()->m_debug);
  EXPECT_TRUE(world.Find("b")->GetComponent<ColliderHolder>()->m_debug);
}

}  // namespace
}  // namespace ZOVEngine
