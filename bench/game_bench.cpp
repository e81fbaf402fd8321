// A step of the first level while a shot is in the air, and loading and restarting that level.
//
// Timed is the processor time of the main thread. A step is its head, the logic, the physics and
// the collision system, with a player's turn going on and the aim line out; textures and sounds are
// not loaded. As soon as a shot has ended the same unit fires the next one, in another direction.
// `allocations` is the mean number a step, and how many steps had any; particles that fly for the
// first time get their lists of forces then, in the steps before the timed ones. Needs a display
// for the hidden window that the cursor belongs to: tools/screen gives one.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iostream>
#include <vector>

#include "allocations.h"
#include "audio/audiosystem.h"
#include "core/app/logicsystem.h"
#include "core/app/winmain.h"
#include "core/base/random.h"
#include "core/engine.h"
#include "core/statemachine.h"
#include "game/turns/gamecontroller.h"
#include "game/units/enemy.h"
#include "game/units/player.h"
#include "objects/gameobjfactory.h"
#include "physics/collidersystem.h"
#include "physics/components/rigidbody.h"
#include "physicssystem.h"
#include "platform/native.h"
#include "platform/windowsystem.h"
#include "render/rendersystem.h"
#include "repository.h"
#include "threadclock.h"

namespace {

using namespace ZOVEngine;
using carapace_bench::ThreadMicroseconds;

constexpr float kStep = 1.0f / 60.0f;
constexpr int kMostStepsToATurn = 3600;
constexpr int kWarmUp = 3000;  ///< steps
constexpr int kSteps = 3000;
constexpr int kLoads = 60;
constexpr double kStepTarget = 300.0;  ///< (unit: microseconds)
constexpr double kLoadTarget = 5.0;    ///< (unit: milliseconds)
constexpr std::uint32_t kSeed = 7;

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

/// The engine as far as a step of a level needs it, without picture and sound.
class Stage {
 public:
  Stage() {
    std::cout.setstate(std::ios::failbit);  // what the engine prints is not for here
    g_native = m_native.get();
    g_native->OpenWindow({"bench", "bench", {1280, 720}});
    g_engine = new Engine;
    g_engine->systems.push_back(new GameObjFactory);
    g_engine->systems.push_back(new WindowSystem);
    g_engine->systems.push_back(new LogicSystem);
    g_engine->systems.push_back(new PhysicsSystem);
    g_engine->systems.push_back(new ColliderSystem);
    g_engine->systems.push_back(new RenderSystem);  // these two for their components alone
    g_engine->systems.push_back(new AudioSystem);
    g_window_system->m_size = Vector3D(1280.0f, 720.0f, 0.0f);
    g_start_state = kDefaultState;
    g_game_obj_factory->Init();
    g_logic_system->Init();
    g_physics_system->Init();
    g_collider_system->Init();
  }
  ~Stage() {
    DestroyEngine();
    g_native = nullptr;
  }
  Stage(const Stage&) = delete;
  Stage& operator=(const Stage&) = delete;

  void Step() {
    g_physics_system->UpdateWorldTransforms();
    g_logic_system->Update(kStep);
    g_physics_system->Update(kStep);
    g_collider_system->Update(kStep);
  }

  /// Plays until it is a player's turn. False if that does not come.
  bool ReachPlayersTurn() {
    Step();
    SeedRand(kSeed);
    for (int i = 0; i < kMostStepsToATurn; ++i) {
      if (Controller().m_state == TURN_PLAYER_MOVE) return true;
      Step();
    }
    return false;
  }

  /// Fires a shot of the acting unit unless one is in the air.
  void KeepAShotFlying() {
    GameObj* unit = Controller().m_selected;
    const auto flies = [](const GameObj* child) {
      return child->active && child->name.find("Projectile") != std::string::npos;
    };
    if (std::any_of(unit->children.begin(), unit->children.end(), flies)) return;
    const float angle = 0.7f * static_cast<float>(++m_shots);
    unit->GetComponent<Player>()->Fire(
        Vector3D(1000.0f * std::cos(angle), 1000.0f * std::sin(angle), 1.0f));
  }

  /// Nobody dies of what is fired here.
  void Heal() {
    for (GameObj* unit : Controller().m_players) unit->GetComponent<Player>()->m_health = 1000;
    for (GameObj* unit : Controller().m_enemies) unit->GetComponent<Enemy>()->m_health = 1000;
  }

  /// Leaves the level and enters it again, up to the end of its first update.
  void Restart() {
    ChangeState(kReenterState, "");
    g_logic_system->Update(kStep);
  }

  int Shots() const { return m_shots; }

 private:
  static GameController& Controller() {
    return *ComponentTable<GameController>().Components().front();
  }

  std::unique_ptr<Native> m_native = MakeSdlNative();
  int m_shots = 0;
};

struct Result {
  double median = 0.0;       ///< (unit: microseconds)
  double p99 = 0.0;          ///< (unit: microseconds)
  double allocations = 0.0;  ///< a step
  int allocating = 0;        ///< steps with any
  int shots = 0;
} g_steps;

double g_load = 0.0;     ///< the first, from nothing (unit: milliseconds)
double g_restart = 0.0;  ///< median (unit: milliseconds)

void TimeSteps(Stage* stage) {
  std::vector<double> times;
  times.reserve(kSteps);
  const int shots_before = stage->Shots();
  for (int i = 0; i < kSteps; ++i) {
    stage->Heal();
    stage->KeepAShotFlying();
    const std::size_t before = carapace_bench::AllocationCount();
    const double start = ThreadMicroseconds();
    stage->Step();
    times.push_back(ThreadMicroseconds() - start);
    const std::size_t count = carapace_bench::AllocationCount() - before;
    g_steps.allocations += static_cast<double>(count) / kSteps;
    g_steps.allocating += count > 0 ? 1 : 0;
  }
  g_steps.shots = stage->Shots() - shots_before;
  std::sort(times.begin(), times.end());
  g_steps.median = times[kSteps / 2];
  g_steps.p99 = times[kSteps * 99 / 100];
}

void StepWithAShot(benchmark::State& state) {
  for (auto _ : state) {
    Stage stage;
    if (!stage.ReachPlayersTurn()) return state.SkipWithError("no player's turn");
    for (int i = 0; i < kWarmUp; ++i) {
      stage.Heal();
      stage.KeepAShotFlying();
      stage.Step();
    }
    TimeSteps(&stage);
    state.SetIterationTime(g_steps.median * 1e-6);
  }
}

void LoadAndRestart(benchmark::State& state) {
  for (auto _ : state) {
    const double begin = ThreadMicroseconds();
    Stage stage;
    const double engine = ThreadMicroseconds();
    stage.Step();
    const double loaded = ThreadMicroseconds();
    std::vector<double> restarts;
    for (int i = 0; i < kLoads; ++i) {
      const double start = ThreadMicroseconds();
      stage.Restart();
      restarts.push_back(ThreadMicroseconds() - start);
      stage.Step();
    }
    g_load = (loaded - begin) * 1e-3;
    state.counters["engine_ms"] = (engine - begin) * 1e-3;
    g_restart = Median(restarts) * 1e-3;
    state.SetIterationTime(g_restart * 1e-3);
  }
}

BENCHMARK(StepWithAShot)->UseManualTime()->Iterations(1)->Unit(benchmark::kMicrosecond);
BENCHMARK(LoadAndRestart)->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  carapace_bench::EnterRepository();
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  std::printf(
      "a step with a shot in the air: %.0f us (target: at most %.0f), 99th percentile %.0f us;\n"
      "%d shots, %.3f allocations a step, in %d of %d steps\n",
      g_steps.median, kStepTarget, g_steps.p99, g_steps.shots, g_steps.allocations,
      g_steps.allocating, kSteps);
  std::printf(
      "a restart of the level: %.2f ms (target: at most %.1f); the first load with the engine's "
      "start and a window: %.2f ms\n",
      g_restart, kLoadTarget, g_load);
}
