#include "core/app/logicsystem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "core/base/profile.h"
#include "core/engine.h"
#include "game/camera.h"
#include "game/turns/gamecontroller.h"
#include "render/components/particlefountain.h"
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
using ::testing::ElementsAre;
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

/// Asks a question at each birth of a particle, which is in the middle of the walk of the tables.
class BirthWatch final : public System {
  RTTR_ENABLE(System)

 public:
  explicit BirthWatch(std::function<bool()> question) : m_question(std::move(question)) {}

  void Update(float) override {}
  void Init() override {}
  void SendMessage(Message* message) override {
    if (message->id == kAddForceToObject) answers.push_back(m_question());
  }

  std::vector<bool> answers;

 private:
  std::function<bool()> m_question;
};

/// A system that the engine owns.
BirthWatch& WatchBirths(std::function<bool()> question) {
  auto* watch = new BirthWatch(std::move(question));
  g_engine->systems.push_back(watch);
  return *watch;
}

TEST(LogicSystem, TheElapsedTimeIsRecordedAfterAllComponents) {
  carapace_test::Fountain fountain;
  BirthWatch& watch = WatchBirths([] { return ProfileTable().count("Logic") != 0; });
  for (const bool paused : {false, true}) {
    g_engine->paused = paused;
    ProfileTable().erase("Logic");
    fountain.System().m_emit_accumulator = 1.5f;
    watch.answers.clear();
    fountain.scene.world.Step();
    EXPECT_THAT(watch.answers, ElementsAre(false)) << paused;
    EXPECT_EQ(ProfileTable().count("Logic"), 1u) << paused;
  }
}

TEST(LogicSystem, APauseInitialisesTheControllerBeforeItWalksTheTables) {
  carapace_test::Fountain fountain;
  World& world = fountain.scene.world;
  for (const auto& [path, text] : kEmptyLevel) world.Directory().Write(path, text);
  world.LoadObjects(kGameController);
  const GameController& controller = *world.Find("controller")->GetComponent<GameController>();
  BirthWatch& watch = WatchBirths([&] { return controller.m_init; });
  g_engine->paused = true;
  fountain.System().m_emit_accumulator = 1.5f;
  world.Step();
  EXPECT_THAT(watch.answers, ElementsAre(true));
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
