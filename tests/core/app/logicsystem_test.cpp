#include "core/app/logicsystem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "core/base/profile.h"
#include "core/engine.h"
#include "game/camera.h"
#include "game/turns/gamecontroller.h"
#include "support/reports.h"
#include "support/world.h"
#include "ui/screens/splashcontroller.h"

namespace ZOVEngine {
namespace {

using carapace_test::Files;
using carapace_test::OutputOf;
using carapace_test::Record;
using carapace_test::ReportOf;
using carapace_test::TransformAt;
using carapace_test::World;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr const char* kArchetypes = "Resources/Archetypes/GameObjects";
const std::string kPlain = R"({"name": "plain", "components": [], "Childs": []})";

Files Archetype(const std::string& file, const std::string& text = kPlain) {
  return {{std::string(kArchetypes) + "/" + file, text}};
}

// The scan for archetypes

TEST(LogicSystem, TheStemOfAnArchetypeFileIsItsName) {
  World world(Archetype("beetle.json"));
  EXPECT_TRUE(g_game_obj_factory->HasArchetype("beetle"));
  EXPECT_FALSE(g_game_obj_factory->HasArchetype("plain"));
}

TEST(LogicSystem, AFileWithTwoDotsIsSkipped) {
  World world(Archetype("beetle.old.json"));
  EXPECT_FALSE(g_game_obj_factory->HasArchetype("beetle"));
  EXPECT_FALSE(g_game_obj_factory->HasArchetype("beetle.old"));
}

TEST(LogicSystem, OtherEndingsAreSkipped) {
  Files files = Archetype("beetle.txt", "no archetype at all");
  files.merge(Archetype("bug.JSON", "no archetype at all"));
  files.merge(Archetype("ant.jsonx", "no archetype at all"));
  files.merge(Archetype("json", "no archetype at all"));
  World world(files);
  for (const char* name : {"beetle", "bug", "ant", "json", ""}) {
    EXPECT_FALSE(g_game_obj_factory->HasArchetype(name)) << name;
  }
}

TEST(LogicSystem, SubDirectoriesAreNotEntered) {
  World world(Archetype("more/beetle.json"));
  EXPECT_FALSE(g_game_obj_factory->HasArchetype("beetle"));
  EXPECT_FALSE(g_game_obj_factory->HasArchetype("more"));
}

TEST(LogicSystem, AllShippedArchetypesAreLoaded) {
  World world;
  for (const char* name : {"camera", "particle_test", "tilecollider"}) {
    EXPECT_TRUE(g_game_obj_factory->HasArchetype(name)) << name;
  }
}

TEST(LogicSystem, AMissingArchetypeDirectoryIsReported) {
  World world;
  EXPECT_THAT(ReportOf([] { LogicSystem::LoadArchetypes("nowhere"); }),
              HasSubstr("nowherefile not found"));
}

// The start

TEST(LogicSystem, TheSplashStateIsEnteredAtTheStart) {
  World world;
  EXPECT_EQ(g_state_machine->m_current, 5);
  EXPECT_EQ(g_state_machine->m_next, 5);
  EXPECT_THAT(g_state_machine->m_levelPath, IsEmpty());
}

TEST(LogicSystem, TheStatesAreDefaultMenuEditorAndSplash) {
  World world;
  EXPECT_EQ(g_state_machine->m_states.size(), 4u);
  for (const int id : {0, 3, 4, 5}) EXPECT_EQ(g_state_machine->m_states.count(id), 1u) << id;
}

// The step

const std::string kControllers =
    Record("splash", {{"SplashController", "{}"}}) + "," +
    Record("view", {{"Transform", TransformAt(0, 0)}, {"Camera", "{\"m_offset\": [0, 0, 0]}"}});

TEST(LogicSystem, AStepUpdatesTheComponentsAndInitComesFirst) {
  World world;
  world.LoadObjects(kControllers);
  EXPECT_FALSE(world.Find("splash")->GetComponent<SplashController>()->m_init);
  world.Step();
  EXPECT_TRUE(world.Find("splash")->GetComponent<SplashController>()->m_init);
  EXPECT_TRUE(world.Find("view")->GetComponent<Camera>()->m_init);
}

TEST(LogicSystem, APauseStopsSplashAndCamera) {
  World world;
  g_engine->paused = true;
  world.LoadObjects(kControllers);
  world.Step(3);
  EXPECT_FALSE(world.Find("splash")->GetComponent<SplashController>()->m_init);
  EXPECT_FALSE(world.Find("view")->GetComponent<Camera>()->m_init);
}

/// A level that has no tiles and whose objects are none, so that a controller can start on it.
const Files kEmptyLevel = {
    {"Level Editor/Levels/Level01/Level01.json",
     R"({"TileMap": "none.json", "Tiles": "none.json", "Objects": "none.json"})"}};
const std::string kGameController =
    Record("controller", {{"Transform", TransformAt(0, 0)},
                          {"GameController", R"({"m_level_theme": "",
                      "m_level_map": "Level Editor/Levels/Level01/Level01.json"})"},
                          {"AudioSource", "{}"}});

TEST(LogicSystem, AControllerLoadedInAPauseIsInitialised) {
  World world(kEmptyLevel);
  g_engine->paused = true;
  world.LoadObjects(kGameController);
  world.Step();
  EXPECT_TRUE(world.Find("controller")->GetComponent<GameController>()->m_init);
}

TEST(LogicSystem, TheElapsedTimeIsRecordedPausedOrNot) {
  World world;
  for (const bool paused : {false, true}) {
    ProfileTable().erase("Logic");
    g_engine->paused = paused;
    world.Step();
    ASSERT_EQ(ProfileTable().count("Logic"), 1u) << paused;
    EXPECT_TRUE(ProfileTable()["Logic"].isSystemTime);
    EXPECT_GE(ProfileTable()["Logic"].value, 0.0f);
  }
}

TEST(LogicSystemStart, TheStateToStartInIsEntered) {
  g_start_state = kDefaultState;
  {
    World world(Files{{"Level Editor/Levels/Level01/Level01.json", R"({"Objects": "units.json"})"},
                      {"units.json", "{\"GameObjFactory\": [" + Record("first", {}) + "]}"}});
    EXPECT_EQ(g_state_machine->m_current, kDefaultState);
    EXPECT_NE(world.Find("first"), nullptr);
  }
  g_start_state = kSplashState;
  const World world;
  EXPECT_EQ(g_state_machine->m_current, kSplashState);
}

}  // namespace
}  // namespace ZOVEngine
