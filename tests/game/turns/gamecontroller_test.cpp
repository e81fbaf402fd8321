#include "game/turns/gamecontroller.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rttr/type>

#include "audio/audiosource.h"
#include "core/base/random.h"
#include "core/engine.h"
#include "core/statemachine.h"
#include "game/camera.h"
#include "game/levels/tileworld.h"
#include "game/objectquery.h"
#include "game/turns/turnworld.h"
#include "objects/statec.h"
#include "render/components/font.h"
#include "render/components/particle.h"
#include "render/components/particlesystemc.h"
#include "ui/screens/splashcontroller.h"

namespace ZOVEngine {
namespace {

using carapace_test::Files;
using carapace_test::KeysOf;
using carapace_test::kPlainLevel;
using carapace_test::kPlainUnits;
using carapace_test::ObjectsFile;
using carapace_test::OutputOf;
using carapace_test::PlacedAt;
using carapace_test::PlainLevel;
using carapace_test::ReadRecord;
using carapace_test::Record;
using carapace_test::RecordOf;
using carapace_test::TileWorld;
using carapace_test::TransformOf;
using carapace_test::TurnWorld;
using carapace_test::UnitAt;
using carapace_test::UnitKind;
using carapace_test::World;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

const std::string kSounds =
    R"({"sounds": [], "loop": [], "is_3D": [], "start_play": [], "volume": [], "sound_type": []})";

/// The root object of the level "Plain".
std::string Root(const std::vector<std::string>& children = {}) {
  return Record("level",
                {{"Transform", PlacedAt(0, 0)},
                 {"GameController", R"({"m_level_theme": "theme.ogg", "m_level_map": ")" +
                                        std::string(kPlainLevel) + "\"}"},
                 {"AudioSource", kSounds}},
                children);
}

std::string UnitNamed(const std::string& name, const std::string& component) {
  return Record(name, {{"Transform", PlacedAt(0, 0)},
                       {"RigidBody", "{}"},
                       {"Render", "{}"},
                       {"iModel", "{}"},
                       {component, "{}"},
                       {"StateC", R"({"m_state": "default"})"}});
}

std::string CameraNamed(const std::string& name) {
  return Record(name, {{"Transform", PlacedAt(0, 0, 1)}, {"Camera", "{}"}});
}

/// The level "Plain" as a game runs it, before its first step.
class RunningLevel {
 public:
  explicit RunningLevel(const std::vector<std::string>& children = {},
                        const std::vector<std::string>& rows = {"xx"})
      : world(WithUnits(PlainLevel(rows), children)) {
    g_current_level_path = kPlainLevel;
    ChangeState(kDefaultState, "");
  }

  GameController& Controller() { return *world.Find("level")->GetComponent<GameController>(); }
  std::string& StateOf(const std::string& name) {
    return world.Find(name)->GetComponent<StateC>()->m_state;
  }
  std::size_t Count(const std::string& name) {
    std::size_t count = 0;
    for (const GameObj* object : g_game_obj_factory->m_objects) count += object->name == name;
    return count;
  }

  World world;

 private:
  static Files WithUnits(Files files, const std::vector<std::string>& children) {
    files[kPlainUnits] = ObjectsFile({Root(children)});
    return files;
  }
};

TEST(GameController, ANewControllerHasItsDefaults) {
  const GameController controller(nullptr);
  EXPECT_FALSE(controller.m_init);
  EXPECT_EQ(controller.m_rigid_bodies, nullptr);
  EXPECT_EQ(controller.m_state, TURN_ENEMY_NEXT);
  EXPECT_EQ(controller.m_level_theme, "maintheme03.ogg");
  EXPECT_EQ(controller.m_level_map, "");
  EXPECT_THAT(controller.m_tile_objects, IsEmpty());
  EXPECT_EQ(controller.m_camera, nullptr);
  EXPECT_EQ(controller.m_selected, nullptr);
  EXPECT_EQ(controller.m_ui_state, "ui_default");
  EXPECT_TRUE(controller.m_music_on);
  EXPECT_TRUE(controller.m_sfx_on);
}

TEST(GameController, ANewControllerHasNoRoundBehindItAndNoFlagSet) {
  const GameController controller(nullptr);
  EXPECT_EQ(controller.m_turn_start_pos, Vector3D());
  EXPECT_EQ(controller.m_round, 0);
  EXPECT_FALSE(controller.m_debug || controller.m_fade_done || controller.m_banner_done);
  EXPECT_FALSE(controller.m_restart || controller.m_quit_to_menu);
  EXPECT_THAT(controller.m_players, IsEmpty());
  EXPECT_THAT(controller.m_enemies, IsEmpty());
}

TEST(GameController, TheTurnStatesHaveTheirNumbers) {
  EXPECT_EQ(TURN_ENEMY_NEXT, 0u);
  EXPECT_EQ(TURN_ENEMY_SHOOT, 1u);
  EXPECT_EQ(TURN_ENEMY_SELECT, 2u);
  EXPECT_EQ(TURN_ENEMY_MOVE, 3u);
  EXPECT_EQ(TURN_ENEMY_AIM, 4u);
  EXPECT_EQ(TURN_PLAYER_NEXT, 5u);
  EXPECT_EQ(TURN_PLAYER_SELECT, 6u);
  EXPECT_EQ(TURN_PLAYER_MOVE, 7u);
  EXPECT_EQ(TURN_PLAYER_AIM, 8u);
  EXPECT_EQ(TURN_LEVEL_END, 9u);
}

// Persistence

TEST(GameController, TwoKeysAreReadAndWrittenInTheirOrder) {
  GameController controller(nullptr);
  ReadRecord(R"({"m_level_map": "a.json", "m_level_theme": "b.ogg", "m_round": 7})", controller);
  EXPECT_EQ(controller.m_level_theme, "b.ogg");
  EXPECT_EQ(controller.m_level_map, "a.json");
  EXPECT_EQ(controller.m_round, 0);
  EXPECT_THAT(KeysOf(RecordOf(controller)), ElementsAre("m_level_theme", "m_level_map"));
}

TEST(GameController, EachStringIsWrittenUnderItsOwnKey) {
  GameController controller(nullptr);
  controller.m_level_theme = "b.ogg";
  controller.m_level_map = "a.json";
  GameController copy(nullptr);
  ReadRecord(RecordOf(controller), copy);
  EXPECT_EQ(copy.m_level_theme, "b.ogg");
  EXPECT_EQ(copy.m_level_map, "a.json");
}

TEST(GameController, AMissingKeyPrintsItsLineAndKeepsTheDefault) {
  GameController controller(nullptr);
  EXPECT_EQ(OutputOf([&] { ReadRecord("{}", controller); }),
            "Cant find Key: m_level_theme\nCant find Key: m_level_map\n");
  EXPECT_EQ(controller.m_level_theme, "maintheme03.ogg");
}

/// The properties that the class itself declares and the inspector shows.
std::vector<std::string> ShownProperties(const rttr::type& type) {
  std::vector<std::string> names;
  for (const rttr::property& property : type.get_properties()) {
    if (property.get_declaring_type() != type) continue;
    if (!property.get_metadata("is_inspect").to_bool()) continue;
    names.push_back(property.get_name().to_string() + "|" +
                    property.get_metadata("typeinfo").get_value<std::string>());
  }
  return names;
}

TEST(GameController, TheInspectorShowsBothStringsAlone) {
  const rttr::type type = rttr::type::get_by_name("ZOVEngine::GameController");
  ASSERT_TRUE(type.is_valid());
  EXPECT_THAT(ShownProperties(type),
              ElementsAre("m_level_theme|std::string", "m_level_map|std::string"));
  EXPECT_FALSE(type.get_property("m_round").is_valid());
}

TEST(GameController, TheDebugFlagIsReachedByNameAndNotShown) {
  GameController controller(nullptr);
  const rttr::property flag =
      rttr::type::get_by_name("ZOVEngine::GameController").get_property("m_debug");
  ASSERT_TRUE(flag.is_valid());
  EXPECT_FALSE(flag.get_metadata("is_inspect").is_valid());
  EXPECT_TRUE(flag.set_value(controller, true));
  EXPECT_TRUE(controller.m_debug);
}

// The start of a level

TEST(GameController, TheFirstUpdateStartsTheLevel) {
  RunningLevel level;
  level.world.Step();
  EXPECT_TRUE(level.Controller().m_init);
  EXPECT_EQ(level.Count("tile"), 2u);
  EXPECT_EQ(level.Count("tile_collider"), 1u);
  EXPECT_EQ(level.Controller().m_tile_map.m_width, 2u);
  EXPECT_EQ(level.Controller().m_rigid_bodies, FetchTable<RigidBody>());
}

TEST(GameController, LaterUpdatesStartNothing) {
  RunningLevel level;
  level.world.Step();
  const std::vector<GameObj*> objects = g_game_obj_factory->m_objects;
  level.Controller().m_round = 5;
  level.world.Step(3);
  EXPECT_EQ(g_game_obj_factory->m_objects, objects);
  EXPECT_EQ(level.Controller().m_round, 5);
}

TEST(GameController, InitSetsEverythingButTheTwoKeysAnew) {
  RunningLevel level;
  level.world.Step();
  GameController& controller = level.Controller();
  controller.m_state = TURN_LEVEL_END;
  controller.m_selected = level.world.Find("level");
  controller.m_camera = level.world.Find("level");
  controller.m_round = 3;
  controller.m_turn_start_pos = Vector3D(1, 2, 3);
  controller.m_ui_state = "ui_pause";
  controller.m_music_on = controller.m_sfx_on = false;
  controller.m_debug = controller.m_fade_done = controller.m_banner_done = true;
  controller.m_restart = controller.m_quit_to_menu = true;
  controller.Init();
  EXPECT_EQ(controller.m_state, TURN_ENEMY_NEXT);
  EXPECT_EQ(controller.m_selected, nullptr);
  EXPECT_EQ(controller.m_camera, nullptr);
  EXPECT_EQ(controller.m_round, 0);
  EXPECT_EQ(controller.m_turn_start_pos, Vector3D());
  EXPECT_EQ(controller.m_ui_state, "ui_default");
  EXPECT_TRUE(controller.m_music_on && controller.m_sfx_on);
  EXPECT_FALSE(controller.m_debug || controller.m_fade_done || controller.m_banner_done);
  EXPECT_FALSE(controller.m_restart || controller.m_quit_to_menu);
  EXPECT_EQ(controller.m_level_theme, "theme.ogg");
  EXPECT_EQ(controller.m_level_map, kPlainLevel);
}

TEST(GameController, UnitsAreGatheredInTheOrderOfTheChildren) {
  RunningLevel level({UnitNamed("e1", "Enemy"), UnitNamed("p1", "Player"), UnitNamed("e2", "Enemy"),
                      UnitNamed("p2", "Player"),
                      Record("group", {}, {UnitNamed("grandchild", "Player")})});
  level.world.Step();
  const auto find = [&](const char* name) { return level.world.Find(name); };
  EXPECT_THAT(level.Controller().m_enemies, ElementsAre(find("e1"), find("e2")));
  EXPECT_THAT(level.Controller().m_players, ElementsAre(find("p1"), find("p2")));
}

TEST(GameController, UnitsSpawnAndAUnitWithoutAStateIsNoFault) {
  RunningLevel level(
      {UnitNamed("e", "Enemy"), UnitNamed("p", "Player"), UnitNamed("bystander", "Waypoint"),
       Record(
           "stateless",
           {{"Transform", PlacedAt(0, 0)}, {"Render", "{}"}, {"iModel", "{}"}, {"Player", "{}"}})});
  level.world.Step();
  EXPECT_EQ(level.StateOf("e"), "spawn");
  EXPECT_EQ(level.StateOf("p"), "spawn");
  EXPECT_EQ(level.StateOf("bystander"), "default");
  EXPECT_THAT(level.Controller().m_players, SizeIs(2));
}

TEST(GameController, UnitsSpawnWithTheLevelBeforeTheyHaveStepped) {
  RunningLevel level({UnitNamed("e", "Enemy"), UnitNamed("p", "Player")});
  g_engine->paused = true;  // the level starts, its units do not step
  level.world.Step();
  EXPECT_EQ(level.StateOf("e"), "spawn");
  EXPECT_EQ(level.StateOf("p"), "spawn");
}

TEST(GameController, OfSeveralCamerasTheLastIsTakenAndSwitchedOn) {
  RunningLevel level({CameraNamed("first"), CameraNamed("last")});
  level.world.Step();
  EXPECT_EQ(level.Controller().m_camera, level.world.Find("last"));
  EXPECT_TRUE(level.world.Find("last")->GetComponent<Camera>()->m_active);
  EXPECT_FALSE(level.world.Find("first")->GetComponent<Camera>()->m_active);
}

TEST(GameController, ACameraThatIsSwitchedOffComesOnInTheNextUpdate) {
  RunningLevel level({CameraNamed("view")});
  level.world.Step();
  level.world.Find("view")->GetComponent<Camera>()->m_active = false;
  level.world.Step();
  EXPECT_TRUE(level.world.Find("view")->GetComponent<Camera>()->m_active);
}

TEST(GameController, ALevelWithoutACameraRuns) {
  RunningLevel level;
  level.world.Step(2);
  EXPECT_EQ(level.Controller().m_camera, nullptr);
}

TEST(GameController, ALevelWithUnitsOfOneSideOnlyEndsInItsVeryFirstStep) {
  for (const bool won : {false, true}) {
    RunningLevel level({UnitNamed("unit", won ? "Player" : "Enemy")});
    level.world.Step();
    EXPECT_EQ(level.Controller().m_state, TURN_LEVEL_END) << won;
    EXPECT_EQ(level.Controller().m_ui_state, "ui_level_end") << won;
    EXPECT_EQ(level.world.mixer.CountPlays("Resources/Sound/SFX/victory.ogg"), won ? 1 : 0);
    EXPECT_EQ(level.world.mixer.CountPlays("Resources/Sound/SFX/defeat.ogg"), won ? 0 : 1);
  }
}

/// What a controller's Init asks of its AudioSource in a state.
std::map<std::string, SoundRecord> SoundsAskedForIn(std::int32_t state) {
  RunningLevel level;
  level.world.LoadObjects(Root());
  g_state_machine->m_current = state;
  level.Controller().Init();
  return level.world.Find("level")->GetComponent<AudioSource>()->sounds;
}

TEST(GameController, TheMusicAndAClickAreAskedForAtTheStart) {
  const auto sounds = SoundsAskedForIn(kDefaultState);
  EXPECT_THAT(sounds, SizeIs(2));
  EXPECT_TRUE(sounds.at("theme.ogg").start_play);
  EXPECT_TRUE(sounds.at("button_click.ogg").start_play);
}

TEST(GameController, InTheEditorOnlyTheClickIsAskedFor) {
  const auto sounds = SoundsAskedForIn(kLevelEditorState);
  EXPECT_THAT(sounds, SizeIs(1));
  EXPECT_TRUE(sounds.at("button_click.ogg").start_play);
}

TEST(GameController, WithoutAnAudioSourceTheReportNamesTheObject) {
  World world(PlainLevel({"x"}));
  world.LoadObjects(Record("root", {{"GameController", "{}"}}));
  EXPECT_REPORT_ENDS_PROGRAM(world.Step(), "object .root.: a GameController needs an AudioSource");
}

TEST(GameController, RandomNumbersAreSeededFromTheTimeOfDay) {
  RunningLevel level;
  SeedRand(1);
  const auto before = static_cast<std::uint32_t>(std::time(nullptr));
  level.world.Step();
  const auto after = static_cast<std::uint32_t>(std::time(nullptr));
  const int drawn = Rand();
  bool found = false;
  for (std::uint32_t second = before; second <= after; ++second) {
    SeedRand(second);
    found = found || Rand() == drawn;
  }
  EXPECT_TRUE(found);
}

TEST(GameController, InAPauseALevelIsStartedAndNotUpdated) {
  RunningLevel level({CameraNamed("view")});
  g_engine->paused = true;
  level.world.Step();
  EXPECT_EQ(level.Count("tile_collider"), 1u);
  EXPECT_NE(level.Controller().m_camera, nullptr);
  EXPECT_FALSE(level.world.Find("view")->GetComponent<Camera>()->m_active);
}

TEST(GameController, InAPauseItStartsBeforeTheComponentsThatAPauseUpdates) {
  Files files = PlainLevel({Record("dust", {{"Transform", PlacedAt(0, 0)},
                                            {"Render", "{}"},
                                            {"iModel", "{}"},
                                            {"ParticleSystemC", "{}"}})},
                           1, 1, 60);
  files[kPlainUnits] = ObjectsFile({Root()});
  World world(files);
  g_current_level_path = kPlainLevel;
  ChangeState(kDefaultState, "");
  g_engine->paused = true;
  world.Step();
  ASSERT_NE(world.Find("dust"), nullptr) << "it came with the tiles";
  EXPECT_TRUE(world.Find("dust")->GetComponent<ParticleSystemC>()->m_init);
}

// Leaving a level

TEST(GameController, ARestartBuildsTheLevelAgain) {
  RunningLevel level({}, {"xx", "x."});
  level.world.Step();
  level.Controller().m_round = 4;
  level.Controller().m_restart = true;
  level.world.Step();
  EXPECT_THAT(g_game_obj_factory->m_objects, IsEmpty());
  level.world.Step();
  EXPECT_EQ(g_state_machine->m_current, kDefaultState);
  EXPECT_EQ(level.Count("tile"), 3u);
  EXPECT_EQ(level.Count("tile_collider"), 2u);
  EXPECT_EQ(level.Controller().m_round, 0);
}

TEST(GameController, TheWayBackToTheMenuClearsTheClickAfterTheSplash) {
  RunningLevel level;
  level.world.Step();
  g_menu_entry_click = true;
  level.Controller().m_quit_to_menu = true;
  level.world.Step();
  EXPECT_THAT(g_game_obj_factory->m_objects, IsEmpty());
  EXPECT_FALSE(g_menu_entry_click);
  level.world.Step();
  EXPECT_EQ(g_state_machine->m_current, kMainMenuState);
}

TEST(GameController, ARestartComesBeforeTheMenu) {
  RunningLevel level;
  level.world.Step();
  level.Controller().m_restart = level.Controller().m_quit_to_menu = true;
  level.world.Step(2);
  EXPECT_EQ(g_state_machine->m_current, kDefaultState);
}

TEST(GameController, ARequestForARestartSilencesTheLevel) {
  const TurnWorld level;
  level.Sounds().sounds["theme.ogg"] = {};
  level.Controller().RequestRestart();
  EXPECT_TRUE(level.Controller().m_restart);
  EXPECT_TRUE(level.Sounds().sounds["theme.ogg"].stop_request);
}

TEST(GameController, ARequestForTheMenuSilencesTheLevelAndEndsThePause) {
  const TurnWorld level;
  level.Sounds().sounds["theme.ogg"] = {};
  g_engine->paused = true;
  level.Controller().RequestQuitToMenu();
  EXPECT_TRUE(level.Controller().m_quit_to_menu);
  EXPECT_TRUE(level.Sounds().sounds["theme.ogg"].stop_request);
  EXPECT_FALSE(g_engine->paused);
}

TEST(GameController, WithoutASourceARequestIsTakenInSilence) {
  TileWorld level(PlainLevel({"x"}));
  level.Controller().RequestRestart();
  EXPECT_TRUE(level.Controller().m_restart);
  g_engine->paused = true;
  level.Controller().RequestQuitToMenu();
  EXPECT_TRUE(level.Controller().m_quit_to_menu);
  EXPECT_FALSE(g_engine->paused);
}

// Questions

TEST(GameController, ASideIsDeadWhenNoneOfItsUnitsLives) {
  const TurnWorld level({UnitAt(UnitKind::kEnemy, "e", 0, 0), UnitAt(UnitKind::kEnemy, "e2", 0, 0),
                         UnitAt(UnitKind::kPlayer, "p", 0, 0),
                         UnitAt(UnitKind::kPlayer, "p2", 0, 0)});
  GameController& controller = level.Controller();
  level.GetPlayer("p").m_alive = level.GetEnemy("e2").m_alive = false;
  EXPECT_FALSE(controller.AllPlayersDead());
  EXPECT_FALSE(controller.AllEnemiesDead());
  EXPECT_EQ(controller.m_ui_state, "ui_default");
  level.GetPlayer("p2").m_alive = false;
  EXPECT_TRUE(controller.AllPlayersDead());
  EXPECT_EQ(controller.m_ui_state, "ui_level_end");
  controller.m_ui_state = "ui_pause";
  level.GetEnemy("e").m_alive = false;
  EXPECT_TRUE(controller.AllEnemiesDead());
  EXPECT_EQ(controller.m_ui_state, "ui_level_end");
}

TEST(GameController, AnEmptySideIsDead) {
  GameController controller(nullptr);
  EXPECT_TRUE(controller.AllPlayersDead());
  EXPECT_TRUE(controller.AllEnemiesDead());
  EXPECT_TRUE(controller.AllEnemiesActed());
}

TEST(GameController, EnemiesHaveActedWhenTheLivingOnesHaveMoved) {
  const TurnWorld level(
      {UnitAt(UnitKind::kEnemy, "e", 0, 0), UnitAt(UnitKind::kEnemy, "e2", 0, 0)});
  EXPECT_FALSE(level.Controller().AllEnemiesActed());
  level.GetEnemy("e").m_moved = true;
  EXPECT_FALSE(level.Controller().AllEnemiesActed());
  level.GetEnemy("e2").m_alive = false;
  EXPECT_TRUE(level.Controller().AllEnemiesActed());
}

TEST(GameController, OnlyLivingEnemiesAreReset) {
  const TurnWorld level(
      {UnitAt(UnitKind::kEnemy, "e", 0, 0), UnitAt(UnitKind::kEnemy, "dead", 0, 0)});
  level.GetEnemy("dead").m_alive = false;
  for (const char* name : {"e", "dead"}) {
    level.GetEnemy(name).m_moved = level.GetEnemy(name).m_fired = true;
  }
  level.Controller().ResetEnemies();
  EXPECT_FALSE(level.GetEnemy("e").m_moved || level.GetEnemy("e").m_fired);
  EXPECT_TRUE(level.GetEnemy("dead").m_moved && level.GetEnemy("dead").m_fired);
}

TEST(GameController, RestIsASpeedBelowThreeOnEveryAxisAndInTurning) {
  const TurnWorld level;
  RigidBody& body = level.GetBody("stone");
  const auto rests = [&](float x, float y, float turn) {
    body.m_vel = Vector3D(x, y, 1000);
    body.m_rot_vel = turn;
    return level.Controller().AllBodiesAtRest();
  };
  EXPECT_TRUE(rests(2.99f, -2.99f, 2.99f));
  EXPECT_FALSE(rests(3, 0, 0));
  EXPECT_FALSE(rests(-3, 0, 0));
  EXPECT_FALSE(rests(0, 3, 0));
  EXPECT_FALSE(rests(0, -3, 0));
  EXPECT_FALSE(rests(0, 0, 3));
  EXPECT_FALSE(rests(0, 0, -3));
}

TEST(GameController, ParticlesAndSwitchedOffBodiesDoNotDisturbTheRest) {
  const TurnWorld level;
  level.Disturb();
  EXPECT_FALSE(level.Controller().AllBodiesAtRest());
  level.Find("stone")->AddComponent<Particle>();
  EXPECT_TRUE(level.Controller().AllBodiesAtRest());
  level.GetBody("e").m_vel.x = 50;
  EXPECT_FALSE(level.Controller().AllBodiesAtRest());
  level.GetBody("e").m_active = false;
  EXPECT_TRUE(level.Controller().AllBodiesAtRest());
}

TEST(GameController, BeforeItsInitNothingMoves) {
  const GameController controller(nullptr);
  EXPECT_TRUE(controller.AllBodiesAtRest());
}

TEST(GameController, TheMousePointsIntoTheLevelFromTheCamerasPlace) {
  TurnWorld level;
  level.PointAt(300, -150);
  EXPECT_EQ(level.Controller().MouseWorldPos(), Vector3D(300, -150, 1));
  TransformOf(level.Find("view")).m_world_pos = Vector3D(10, 20, 5);
  EXPECT_EQ(level.Controller().MouseWorldPos(), Vector3D(310, -130, 1));
  level.Controller().m_camera = nullptr;
  EXPECT_EQ(level.Controller().MouseWorldPos(), Vector3D(300, -150, 1));
}

TEST(GameController, ItAnswersTheQueryOfWhatIsBelowIt) {
  const TurnWorld level;
  EXPECT_EQ(FindController(level.Find("p")), &level.Controller());
  EXPECT_EQ(FindController(level.Find("level")), &level.Controller());
}

TEST(GameController, WithoutASelectedUnitTheQueryStaysAsItIs) {
  const TurnWorld level;
  SelectedUnit query;
  query.objectId = 777;
  EXPECT_EQ(level.world.Send(query).objectId, 777u);
}

// The end of a level

TEST(LevelEnd, WhenBothSidesDieTogetherItIsADefeat) {
  const TurnWorld level;
  level.GetPlayer("p").m_alive = level.GetEnemy("e").m_alive = false;
  level.Turn();
  EXPECT_TRUE(level.IsAskedFor("defeat.ogg"));
  EXPECT_FALSE(level.IsAskedFor("victory.ogg"));
  EXPECT_TRUE(level.Sounds().sounds["theme.ogg"].stop_request);
  EXPECT_TRUE(level.Sounds().sounds["victory.ogg"].stop_request);
}

TEST(LevelEnd, TheDeathOfTheEnemiesIsAVictory) {
  const TurnWorld level;
  level.GetEnemy("e").m_alive = false;
  level.Turn();
  EXPECT_TRUE(level.IsAskedFor("victory.ogg"));
  EXPECT_FALSE(level.IsAskedFor("defeat.ogg"));
  EXPECT_TRUE(level.Sounds().sounds["theme.ogg"].stop_request);
  EXPECT_TRUE(level.Sounds().sounds["defeat.ogg"].stop_request);
}

TEST(LevelEnd, TheSoundsAreAskedForInEveryStep) {
  const TurnWorld level;
  level.GetEnemy("e").m_alive = false;
  level.Turn();
  level.Sounds().sounds.clear();
  level.Turn();
  EXPECT_TRUE(level.IsAskedFor("victory.ogg"));
  EXPECT_TRUE(level.Sounds().sounds["theme.ogg"].stop_request);
}

TEST(LevelEnd, ABossIsBeatenWhenItsDeathIsOverAndNotBefore) {
  TurnWorld level({UnitAt(UnitKind::kEnemy, "e", -300, 0, R"({"m_boss": true})"),
                   UnitAt(UnitKind::kPlayer, "p", 300, 0)});
  level.Key(72);
  OutputOf([&] { level.world.Step(290); });
  EXPECT_TRUE(level.GetEnemy("e").m_alive);
  EXPECT_TRUE(level.GetEnemy("e").m_dying);
  EXPECT_EQ(level.Controller().m_ui_state, "ui_default");
  OutputOf([&] { level.world.Step(20); });
  EXPECT_FALSE(level.GetEnemy("e").m_alive);
  EXPECT_EQ(level.State(), TURN_LEVEL_END);
}

TEST(LevelEnd, NothingWaitsForAShotInTheAir) {
  const TurnWorld level;
  level.Disturb();
  level.GetEnemy("e").m_alive = false;
  level.TurnFrom(TURN_ENEMY_MOVE);
  EXPECT_EQ(level.State(), TURN_LEVEL_END);
}

TEST(LevelEnd, WhatIsInTheAirFliesOn) {
  TurnWorld level;
  level.Disturb();
  level.GetEnemy("e").m_alive = false;
  const float start = TransformOf(level.Find("stone")).m_local_pos.x;
  OutputOf([&] { level.world.Step(10); });
  EXPECT_EQ(level.State(), TURN_LEVEL_END);
  EXPECT_NEAR(TransformOf(level.Find("stone")).m_local_pos.x - start, 0.5f, 1e-3f);
}

// Labels

TEST(UnitLabels, LivingUnitsAreNumberedBySideInOrder) {
  const auto label = [](const std::string& name) {
    return std::vector<std::string>{
        Record("turn_font",
               {{"Transform", PlacedAt(0, 0)}, {"Font", R"({"m_text": ")" + name + "\"}"}}),
        Record("other_font", {{"Transform", PlacedAt(0, 0)}, {"Font", R"({"m_text": "other"})"}})};
  };
  const TurnWorld level(
      {UnitAt(UnitKind::kEnemy, "e", 0, 0, "{}", label("e")),
       UnitAt(UnitKind::kPlayer, "p", 0, 0, "{}", label("p")),
       UnitAt(UnitKind::kPlayer, "dead", 0, 0, R"({"m_alive": false})", label("dead")),
       UnitAt(UnitKind::kPlayer, "off", 0, 0, "{}", label("off")),
       UnitAt(UnitKind::kPlayer, "p2", 0, 0, "{}", label("p2")),
       UnitAt(UnitKind::kEnemy, "e2", 0, 0, "{}", label("e2"))});
  level.Find("off")->active = false;
  for (GameObj* unit : level.Controller().m_players) {
    unit->children[0]->GetComponent<Font>()->m_text = "old";
  }
  level.Turn();
  const auto text_of = [&](const char* unit, std::size_t child) {
    return level.Find(unit)->children[child]->GetComponent<Font>()->m_text;
  };
  EXPECT_EQ(text_of("p", 0), "1");
  EXPECT_EQ(text_of("p2", 0), "2");
  EXPECT_EQ(text_of("e", 0), "1");
  EXPECT_EQ(text_of("e2", 0), "2");
  EXPECT_EQ(text_of("dead", 0), "old");
  EXPECT_EQ(text_of("off", 0), "old");
  EXPECT_EQ(text_of("p", 1), "other");
}

TEST(UnitLabels, ADeadEnemyIsNotCountedAndEachLabelOfAUnitIsWritten) {
  const std::string font =
      Record("turn_font", {{"Transform", PlacedAt(0, 0)}, {"Font", R"({"m_text": "old"})"}});
  const TurnWorld level({UnitAt(UnitKind::kEnemy, "dead", 0, 0, R"({"m_alive": false})", {font}),
                         UnitAt(UnitKind::kEnemy, "e", 0, 0, "{}", {font, font}),
                         UnitAt(UnitKind::kPlayer, "p", 0, 0)});
  level.Turn();
  const auto text_of = [&](const char* unit, std::size_t child) {
    return level.Find(unit)->children[child]->GetComponent<Font>()->m_text;
  };
  EXPECT_EQ(text_of("dead", 0), "old");
  EXPECT_EQ(text_of("e", 0), "1");
  EXPECT_EQ(text_of("e", 1), "1");
}

}  // namespace
}  // namespace ZOVEngine
