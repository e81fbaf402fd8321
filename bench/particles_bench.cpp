// A step of 20,000 live particles: the cost of their update, their motion and their drawing on the
// main thread.
//
// The systems and the device are the game's own, in a hidden window; four particle systems of
// 5,000, each with a texture of its own, are kept full, so that some 170 particles die and are born
// again in each step. Timed is the main thread until all drawing commands are with the driver;
// showing the picture is not. The last lines add up the medians.

#include <GL/glew.h>

#include "core/app/logicsystem.h"
#include "core/engine.h"
#include "glbench.h"
#include "objects/gameobjfactory.h"
#include "physics/collidersystem.h"
#include "physicssystem.h"
#include "platform/windowsystem.h"
#include "render/components/particlesystemc.h"
#include "render/passes/crosshairpass.h"
#include "render/rendersystem.h"
#include "repository.h"

namespace carapace_bench {

namespace {

using namespace ZOVEngine;

constexpr int kSystems = 4;
constexpr int kParticles = 20000;
constexpr int kSettlingSteps = 240;  // four seconds: every particle has been born again
constexpr double kTarget = 8.0;      // (unit: milliseconds a step)
constexpr const char* kTextures[kSystems] = {"Particle_Glow", "Shot_Basic", "Shot_Bounce",
                                             "Shot_Pierce"};
constexpr const char* kParts[] = {"Update", "Motion", "Picture"};

/// The engine as far as particles need it, in a level of four fountains.
class Stage {
 public:
  Stage() {
    g_gl_device = m_window.device.get();
    g_engine = new Engine;
    g_engine->systems.push_back(new GameObjFactory);
    g_engine->systems.push_back(new WindowSystem);
    g_engine->systems.push_back(new LogicSystem);
    g_engine->systems.push_back(new PhysicsSystem);
    g_engine->systems.push_back(new ColliderSystem);
    g_engine->systems.push_back(new RenderSystem);
    g_window_system->m_size = Vector3D(kWidth, kHeight, 0.0f);
    g_game_obj_factory->Init();
    g_physics_system->Init();
    g_render_system->Init();
    g_window_state.imguiLive = true;  // the frame is executed and not shown
    g_show_system_cursor = true;      // there is no cursor
    g_game_obj_factory->LoadArchetype("particle_test",
                                      "Resources/Archetypes/GameObjects/particle_test.json");
    for (int i = 0; i < kSystems; ++i) AddFountain(i);
    for (int i = 0; i < kSettlingSteps; ++i) Step();
  }

  /// The parts of a step, in the order of the game.
  void Update() {
    for (ParticleSystemC* system : ComponentTable<ParticleSystemC>().Components()) {
      system->Update(kStep);
    }
  }
  void Motion() {
    g_physics_system->UpdateWorldTransforms();
    g_physics_system->Update(kStep);
  }
  void Picture() { g_render_system->Update(kStep); }
  void FinishPicture() {
    m_window.device->Present();
    glFinish();
  }
  void Step() {
    Update();
    Motion();
    Picture();
    FinishPicture();
  }

  std::size_t Live() const { return g_render_system->LastFrame().instances.size(); }
  DeviceCounters Counters() const { return m_window.device->Counters(); }
  /// The counts of a frame that has the instances and nothing else.
  DeviceCounters InstancesAlone() {
    Frame frame = g_render_system->LastFrame();
    std::erase_if(frame.commands, [](const DrawCommand& command) {
      return command.kind != DrawCommand::Kind::kInstances;
    });
    m_window.device->Execute(frame);
    FinishPicture();
    return m_window.device->Counters();
  }

 private:
  static void AddFountain(int index) {
    auto* object = new GameObj;
    object->id = static_cast<std::uint32_t>(g_game_obj_factory->m_objects.size());
    object->name = "fountain";
    g_game_obj_factory->m_objects.push_back(object);
    object->AddComponent<Transform>();
    auto& place = *object->GetComponent<Transform>();
    place.m_local_pos = Vector3D(-600.0f + 400.0f * static_cast<float>(index), 0.0f, 1.0f);
    place.m_local_scale = Vector3D(300.0f, 300.0f, 1.0f);
    object->AddComponent<ParticleSystemC>();
    auto& system = *object->GetComponent<ParticleSystemC>();
    system.m_num_of_particles = kParticles / kSystems;
    system.m_emitter_num_particles = {kParticles, kParticles};
    system.m_arc = 360.0f;
    system.m_start_size = {Vector3D(4.0f, 4.0f, 1.0f), Vector3D(12.0f, 12.0f, 1.0f)};
    system.m_start_force_mag = {100.0f, 900.0f};
    system.m_start_torque_mag = {0.0f, 900.0f};
    system.m_start_color_max = {1.0f, 1.0f, 1.0f, 1.0f};
    system.particle_tex = kTextures[index];
  }

  BenchWindow m_window;
};

Stage& TheStage() {
  static Stage stage;
  return stage;
}

void Parts(benchmark::State& state) {
  Stage& stage = TheStage();
  void (Stage::*const parts[])() = {&Stage::Update, &Stage::Motion, &Stage::Picture};
  for (auto _ : state) {
    for (std::int64_t i = 0; i < 3; ++i) {
      if (i != state.range(0)) state.PauseTiming();
      (stage.*parts[i])();
      if (i != state.range(0)) state.ResumeTiming();
    }
    state.PauseTiming();
    stage.FinishPicture();
    state.ResumeTiming();
  }
  state.counters["live"] = static_cast<double>(stage.Live());
  state.counters["draws"] = stage.Counters().draw_calls;
  state.SetLabel(kParts[state.range(0)]);
}

// One step a repetition, so that the median is that of single steps.
BENCHMARK(Parts)
    ->ArgName("part")
    ->DenseRange(0, 2)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->Repetitions(300)
    ->ReportAggregatesOnly();

}  // namespace

}  // namespace carapace_bench

int main(int argc, char** argv) {
  carapace_bench::EnterRepository();
  const auto medians = carapace_bench::RunAll(argc, argv);
  double real = 0.0;
  double cpu = 0.0;
  for (int i = 0; i < 3; ++i) {
    const auto found = medians.find("Parts/part:" + std::to_string(i));
    if (found == medians.end()) return 0;
    std::printf("%-8s %6.2f ms (main thread's CPU: %.2f)\n", carapace_bench::kParts[i],
                found->second.real, found->second.cpu);
    real += found->second.real;
    cpu += found->second.cpu;
  }
  std::printf("%-8s %6.2f ms (main thread's CPU: %.2f; target: at most %.1f)\n", "a step", real,
              cpu, carapace_bench::kTarget);
  const carapace_bench::Stage& stage = carapace_bench::TheStage();
  std::printf("%zu live particles, %u draw calls for all of them as instances\n", stage.Live(),
              carapace_bench::TheStage().InstancesAlone().draw_calls);
}
