#include "core/app/winmain.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>
#include <typeinfo>
#include <utility>
#include <vector>

#include "audio/audiosystem.h"
#include "core/app/builtintables.h"
#include "core/app/logicsystem.h"
#include "core/app/logictables.h"
#include "core/base/clock.h"
#include "objects/componentclasses.h"
#include "physics/collidersystem.h"
#include "physicssystem.h"
#include "platform/inputsystem.h"
#include "platform/windowsystem.h"
#include "render/graphicsfiles.h"
#include "render/picturefiles.h"
#include "render/rendersystem.h"
#include "support/reports.h"
#include "support/world.h"

namespace ZOVEngine {
namespace {

using carapace_test::ComponentClassNames;
using carapace_test::Files;
using carapace_test::OnePixel;
using carapace_test::OutputOf;
using carapace_test::Record;
using carapace_test::TransformAt;
using carapace_test::World;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

constexpr const char* kSplashObjects = "Level Editor/Levels/SplashScreen/Entity/Units.json";

std::string ObjectFile(const std::string& records) {
  return "{\"GameObjFactory\": [" + records + "]}";
}

template <class T>
bool IsA(const System* system) {
  return typeid(*system) == typeid(T);
}

TEST(WinMain, TheEightSystemsStandInTheirOrder) {
  const World world;
  const std::vector<System*>& systems = g_engine->systems;
  ASSERT_EQ(systems.size(), 8u);
  EXPECT_TRUE(IsA<GameObjFactory>(systems[0]));
  EXPECT_TRUE(IsA<WindowSystem>(systems[1]));
  EXPECT_TRUE(IsA<InputSystem>(systems[2]));
  EXPECT_TRUE(IsA<LogicSystem>(systems[3]));
  EXPECT_TRUE(IsA<PhysicsSystem>(systems[4]));
  EXPECT_TRUE(IsA<ColliderSystem>(systems[5]));
  EXPECT_TRUE(IsA<RenderSystem>(systems[6]));
  EXPECT_TRUE(IsA<AudioSystem>(systems[7]));
}

TEST(WinMain, EachSystemIsReachedThroughItsOwnPointer) {
  const World world;
  const std::vector<System*>& systems = g_engine->systems;
  EXPECT_EQ(g_game_obj_factory, systems[0]);
  EXPECT_EQ(g_window_system, systems[1]);
  EXPECT_EQ(g_input_system, systems[2]);
  EXPECT_EQ(g_logic_system, systems[3]);
  EXPECT_EQ(g_physics_system, systems[4]);
  EXPECT_EQ(g_collider_system, systems[5]);
  EXPECT_EQ(g_render_system, systems[6]);
  EXPECT_EQ(g_state_machine, &g_logic_system->m_machine);
}

TEST(WinMain, TheEngineStartsRunningAndUnpaused) {
  const World world;
  EXPECT_TRUE(g_engine->running);
  EXPECT_FALSE(g_engine->paused);
}

/// `images`, and settings whose textures they are.
Files WithImages(const Files& images) {
  std::vector<std::string> paths;
  for (const auto& [path, content] : images) paths.push_back(path);
  Files files = carapace_test::WithShaders(carapace_test::Config(paths));
  files.insert(images.begin(), images.end());
  return files;
}

/// The engine after its systems were made and before any Init.
class CreatedEngine {
 public:
  explicit CreatedEngine(const Files& files = {}) {
    for (const auto& [path, text] : World::BaseFiles()) m_directory.Write(path, text);
    for (const auto& [path, text] : files) m_directory.Write(path, text);
    g_native = &m_native;
    g_gl_device = &m_device;
    CreateEngine();
  }
  ~CreatedEngine() {
    DestroyEngine();
    g_gl_device = nullptr;
  }
  CreatedEngine(const CreatedEngine&) = delete;
  CreatedEngine& operator=(const CreatedEngine&) = delete;

 private:
  carapace_test::TempDirectory m_directory;
  carapace_test::FakeNative m_native;
  carapace_test::FakeDevice m_device;
};

template <class T>
bool IsRegistered() {
  return g_component_tables->count(&typeid(T)) == 1;
}

template <class... T>
constexpr std::size_t CountClasses(TypeList<T...>) {
  return sizeof...(T);
}

TEST(WinMain, ConstructorsRegisterTheTablesOfTheirSystems) {
  const CreatedEngine engine;
  LogicTables::ForEach([]<class T>() {
    EXPECT_EQ(IsRegistered<T>(), !BuiltInTables::Contains<T>()) << ClassName<T>();
  });
  carapace_test::SystemTables::ForEach(
      []<class T>() { EXPECT_TRUE(IsRegistered<T>()) << ClassName<T>(); });
  EXPECT_EQ(g_component_tables->size(),
            ComponentClassNames().size() - CountClasses(BuiltInTables()));
}

TEST(WinMain, TheFactorysInitRegistersItsOwnTables) {
  const CreatedEngine engine;
  BuiltInTables::ForEach([]<class T>() { EXPECT_FALSE(IsRegistered<T>()) << ClassName<T>(); });
  g_game_obj_factory->Init();
  BuiltInTables::ForEach([]<class T>() { EXPECT_TRUE(IsRegistered<T>()) << ClassName<T>(); });
  EXPECT_EQ(g_component_tables->size(), ComponentClassNames().size());
}

/// A system that calls a function in its Init.
class Probe final : public UnpausedSystem {
 public:
  explicit Probe(std::function<void()> look) : m_look(std::move(look)) {}
  void Init() override { m_look(); }
  void Update(float) override {}
  void SendMessage(Message*) override {}

 private:
  std::function<void()> m_look;
};

TEST(WinMain, TheTexturesAreBegunBeforeTheWindowOpens) {
  const CreatedEngine engine(WithImages({{"Resources/Textures/early.tga", OnePixel(1, 2, 3)}}));
  bool begun = false;
  Probe probe([&] {
    EXPECT_EQ(g_window_system->m_window, nullptr);
    begun = g_render_system->m_textures.count("early") == 1;
  });
  std::vector<System*>& systems = g_engine->systems;
  systems.insert(systems.begin() + 1, &probe);
  InitSystems();
  std::erase(systems, &probe);
  EXPECT_TRUE(begun);
}

/// How long a rest of 20 milliseconds takes (unit: nanoseconds).
std::int64_t RestTwentyMilliseconds() {
  const std::int64_t start = NowNanoseconds();
  RestStep(20'000'000);
  return NowNanoseconds() - start;
}

TEST(WinMain, TexturesComeBetweenTheStepsAndTheTimeOfTheStepIsKept) {
  Files images;
  for (int i = 0; i < 40; ++i) {
    images["Resources/Textures/" + std::to_string(i) + ".tga"] = OnePixel(1, 2, 3);
  }
  const World world(WithImages(images));
  EXPECT_GE(RestTwentyMilliseconds(), 20'000'000);
  for (int i = 0; i < 5000 && world.device.textures.size() < 40; ++i) RestStep(1'000'000);
  EXPECT_EQ(world.device.textures.size(), 40u) << "without a frame";
  EXPECT_GE(RestTwentyMilliseconds(), 20'000'000) << "with nothing left to come";
  RestStep(0);
  RestStep(-5);
}

TEST(WinMain, TheStartClearsTheLevelPath) {
  const CreatedEngine engine;
  g_state_machine->m_levelPath = "left over";
  InitSystems();
  EXPECT_EQ(g_state_machine->m_levelPath, "");
}

TEST(WinMain, ABroadcastBeforeTheStatesAreMadeIsDropped) {
  const CreatedEngine engine;
  KeyUp message(65);
  EXPECT_TRUE(g_logic_system->m_machine.m_states.empty());
  g_engine->Broadcast(&message);
  EXPECT_TRUE(g_engine->running);
}

TEST(WinMain, TheFirstScreenIsLoadedBeforeTheLaterSystemsStart) {
  World world(
      Files{{kSplashObjects, ObjectFile(Record("logo", {{"Transform", TransformAt(3, 4)}}))}});
  // The start of the physics system derives the world transforms once, so the object was there.
  EXPECT_EQ(world.Find("logo")->GetComponent<Transform>()->m_world_pos, Vector3D(3, 4, 1));
}

TEST(WinMain, TheHeadOfAStepDerivesWorldTransforms) {
  World world;
  world.LoadObjects(Record("thing", {{"Transform", TransformAt(3, 4)}}));
  Transform& transform = *world.Find("thing")->GetComponent<Transform>();
  EXPECT_EQ(transform.m_world_pos, Vector3D(0, 0, 1));
  BeginStep();
  EXPECT_EQ(transform.m_world_pos, Vector3D(3, 4, 1));
}

TEST(WinMain, WorldTransformsAreDerivedInEveryStepPausedOrNot) {
  for (const bool paused : {false, true}) {
    World world;
    g_engine->paused = paused;
    world.LoadObjects(Record("thing", {{"Transform", TransformAt(3, 4)}}));
    world.Step();
    EXPECT_EQ(world.Find("thing")->GetComponent<Transform>()->m_world_pos, Vector3D(3, 4, 1));
  }
}

TEST(WinMain, TheSystemsAreDeletedInTheirOrder) {
  World world;
  const std::string output = OutputOf([&] { world.Shutdown(); });
  std::size_t last = 0;
  for (const char* name :
       {"WindowSystem", "InputSystem", "PhysicsSystem", "ColliderSystem", "RenderSystem"}) {
    const std::size_t at = output.find(std::string("Destructor of ") + name + "\n");
    ASSERT_NE(at, std::string::npos) << name;
    EXPECT_GE(at, last) << name;
    last = at;
  }
}

/// A system of a tool, which notes whether it outlives the window.
class Tool final : public UnpausedSystem {
 public:
  explicit Tool(bool* had_window) : m_had_window(had_window) {}
  ~Tool() override { *m_had_window = g_window_system != nullptr; }
  void Init() override {}
  void Update(float) override {}
  void SendMessage(Message*) override {}

 private:
  bool* m_had_window;
};

TEST(WinMain, ToolsGoWhileThereIsAWindow) {
  World world;
  bool had_window = false;
  g_engine->systems.push_back(new Tool(&had_window));
  OutputOf([&] { world.Shutdown(); });
  EXPECT_TRUE(had_window);
}

TEST(WinMain, TheTeardownClearsEveryGlobalPointer) {
  World world;
  world.Shutdown();
  EXPECT_EQ(g_engine, nullptr);
  EXPECT_EQ(g_game_obj_factory, nullptr);
  EXPECT_EQ(g_component_tables, nullptr);
  EXPECT_EQ(g_window_system, nullptr);
  EXPECT_EQ(g_input_system, nullptr);
  EXPECT_EQ(g_logic_system, nullptr);
  EXPECT_EQ(g_state_machine, nullptr);
  EXPECT_EQ(g_physics_system, nullptr);
  EXPECT_EQ(g_collider_system, nullptr);
  EXPECT_EQ(g_render_system, nullptr);
}

TEST(WinMain, AnEngineCanBeBuiltTwiceInOneProcess) {
  { const World first; }
  World second;
  second.Step(2);
  EXPECT_TRUE(g_engine->running);
}

TEST(WinMain, ADestroyedWindowEndsTheProgramAfterTheStep) {
  World world;
  world.native.Push(NativeEventKind::kDestroy);
  world.Step();
  EXPECT_FALSE(g_engine->running);
}

TEST(WinMain, TheShippedScreensRunForASecond) {
  World world(World::ShippedFiles());
  world.Step(60);
  EXPECT_TRUE(g_engine->running);
  EXPECT_NE(world.Find("splash"), nullptr);
}

TEST(WinMain, TheSameRunGivesTheSameState) {
  std::vector<std::uint64_t> hashes;
  for (int run = 0; run < 2; ++run) {
    World world(World::ShippedFiles());
    world.Step(200);
    hashes.push_back(world.Hash());
  }
  EXPECT_EQ(hashes[0], hashes[1]);
}

}  // namespace
}  // namespace ZOVEngine
