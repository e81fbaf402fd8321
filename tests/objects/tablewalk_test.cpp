#include "objects/tablewalk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/probe.h"
#include "support/world.h"

namespace ZOVEngine {
namespace {

using carapace_test::ProbeA;
using carapace_test::ProbeB;
using carapace_test::Record;
using carapace_test::World;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::string Probe(const std::string& label) {
  return Record(label, {{"ProbeA", "{\"label\": \"" + label + "\"}"}});
}

class TableWalkTest : public ::testing::Test {
 protected:
  TableWalkTest() {
    carapace_test::RegisterProbes();
    world.LoadObjects(Probe("a") + "," + Probe("b") + "," + Probe("c"));
  }

  World world;
  std::vector<std::string> seen;
};

TEST_F(TableWalkTest, VisitsInTableOrder) {
  TableWalk<ProbeA> walk;
  walk.ForEach([&](ProbeA* probe) { seen.push_back(probe->label); });
  EXPECT_THAT(seen, ElementsAre("a", "b", "c"));
}

TEST_F(TableWalkTest, ObjectsMadeOnTheWayWaitForTheNextWalk) {
  TableWalk<ProbeA> walk;
  walk.ForEach([&](ProbeA* probe) {
    seen.push_back(probe->label);
    // Enough to move the dense array.
    for (int i = 0; i < 50; ++i) world.LoadObjects(Probe("new"));
  });
  EXPECT_THAT(seen, ElementsAre("a", "b", "c"));
  EXPECT_EQ(walk.Table().Components().size(), 153u);
}

TEST_F(TableWalkTest, AClearedSceneEndsTheWalk) {
  TableWalk<ProbeA> walk;
  walk.ForEach([&](ProbeA* probe) {
    seen.push_back(probe->label);
    if (seen.size() == 2) g_game_obj_factory->ClearObjects();
  });
  EXPECT_THAT(seen, ElementsAre("a", "b"));
  seen.clear();
  walk.ForEach([&](ProbeA* probe) { seen.push_back(probe->label); });
  EXPECT_THAT(seen, IsEmpty());
}

TEST_F(TableWalkTest, AClearWithNewObjectsOfTheSameNumberEndsTheWalkToo) {
  TableWalk<ProbeA> walk;
  walk.ForEach([&](ProbeA* probe) {
    seen.push_back(probe->label);
    g_game_obj_factory->ClearObjects();
    world.LoadObjects(Probe("x") + "," + Probe("y") + "," + Probe("z"));
  });
  EXPECT_THAT(seen, ElementsAre("a"));
}

TEST_F(TableWalkTest, AWalkWithinAWalkSeesEverything) {
  TableWalk<ProbeA> walk;
  walk.ForEach([&](ProbeA* outer) {
    walk.ForEach([&](ProbeA* inner) { seen.push_back(outer->label + inner->label); });
  });
  EXPECT_THAT(seen, ElementsAre("aa", "ab", "ac", "ba", "bb", "bc", "ca", "cb", "cc"));
}

TEST_F(TableWalkTest, TheWalkOutlivesNothingButItsTable) {
  // A table that was registered anew is another table; the walk stays with the one it was given.
  TableWalk<ProbeA> walk;
  const ComponentManager<ProbeA>* before = &walk.Table();
  g_game_obj_factory->ClearObjects();
  g_game_obj_factory->RegisterComponent<ProbeA>("ProbeA");
  EXPECT_NE(FetchTable<ProbeA>().get(), before);
  EXPECT_EQ(&walk.Table(), before);
}

TEST_F(TableWalkTest, TheWalksOfAListGoTableByTable) {
  world.LoadObjects(Record("z", {{"ProbeB", R"({"label": "z"})"}}));
  TableWalks<ProbeB, ProbeA> walks;
  walks.ForEach([&](auto* probe) { seen.push_back(probe->label); });
  EXPECT_THAT(seen, ElementsAre("z", "a", "b", "c"));
}

TEST_F(TableWalkTest, SomeOfTheTablesAreWalkedInTheOrderThatIsAskedFor) {
  world.LoadObjects(Record("z", {{"ProbeB", R"({"label": "z"})"}}));
  TableWalks<ProbeB, ProbeA> walks;
  walks.ForEach(TypeList<ProbeA>(), [&](ProbeA* probe) { seen.push_back(probe->label); });
  EXPECT_THAT(seen, ElementsAre("a", "b", "c"));
  seen.clear();
  walks.ForEach(TypeList<ProbeA, ProbeB>(), [&](auto* probe) { seen.push_back(probe->label); });
  EXPECT_THAT(seen, ElementsAre("a", "b", "c", "z"));
}

TEST_F(TableWalkTest, ATablesCopyIsTakenWhenItsTurnComes) {
  TableWalks<ProbeA, ProbeB> walks;
  walks.ForEach([&](auto* probe) {
    seen.push_back(probe->label);
    if (seen.size() == 1) world.LoadObjects(Record("z", {{"ProbeB", R"({"label": "z"})"}}));
  });
  EXPECT_THAT(seen, ElementsAre("a", "b", "c", "z"));
}

}  // namespace
}  // namespace ZOVEngine
