// What light costs: a full screen of lit ground with 40 sprites and 16 lights over it, beside the
// same frame without light. A frame counts from its first command until the picture is finished.
// The last line gives the ratio.

#include <GL/glew.h>

#include "glbench.h"

namespace carapace_bench {

namespace {

constexpr int kSprites = 40;
constexpr int kLights = 16;

BenchWindow& Window() {
  static BenchWindow window;
  static const bool uploaded = [] {
    for (std::uint32_t i = 0; i < 4; ++i) window.device->UploadTexture(i, NoiseImage(256, i));
    return true;
  }();
  benchmark::DoNotOptimize(uploaded);
  return window;
}

void AddLights(ZOVEngine::Frame* frame) {
  Numbers numbers;
  for (int i = 0; i < kLights; ++i) {
    ZOVEngine::LightRecord& light = frame->lights.emplace_back();
    // One in each field of a grid of four by four, somewhere in the field.
    light.position = ZOVEngine::Vector3D(
        -720.0f + 480.0f * static_cast<float>(i % 4) + numbers.Between(-150, 150),
        -405.0f + 270.0f * static_cast<float>(i / 4) + numbers.Between(-80, 80), 1.0f);
    light.ambient = light.diffuse = light.specular = ZOVEngine::Vector3D(1.0f, 0.8f, 0.6f);
    light.ambientStr = 0.1f;
    light.diffuseStr = light.specularStr = 0.6f;
  }
}

ZOVEngine::Frame MakeFrame(ZOVEngine::Program program) {
  Numbers numbers;
  ZOVEngine::Frame frame = EmptyFrame();
  AddLights(&frame);
  for (int i = 0; i <= kSprites; ++i) {
    ZOVEngine::DrawCommand& command = frame.commands.emplace_back();
    command.program = program;
    command.texture = static_cast<std::uint32_t>(i % 4);
    command.placement.translate =
        ZOVEngine::Vector3D(numbers.Between(-900, 900), numbers.Between(-500, 500), 1.0f);
    command.placement.rotate_radians = numbers.Between(0.0f, 6.28f);
    command.placement.scale = ZOVEngine::Vector3D(90.0f, 90.0f, 1.0f);
  }
  ZOVEngine::DrawCommand& ground = frame.commands.front();
  ground.placement = {ZOVEngine::Vector3D(), 0.0f, ZOVEngine::Vector3D(9600.0f, 5400.0f, 1.0f)};
  ground.window = {0.0f, 5.0f, 0.0f, 5.0f};
  return frame;
}

void DrawFrames(benchmark::State& state, ZOVEngine::Program program) {
  BenchWindow& window = Window();
  const ZOVEngine::Frame frame = MakeFrame(program);
  for (int i = 0; i < 3; ++i) window.device->Execute(frame);  // drivers build shaders at first use
  glFinish();
  for (auto _ : state) {
    window.device->Execute(frame);
    glFinish();
  }
  state.counters["draws"] = window.device->Counters().draw_calls;
}

void Unlit(benchmark::State& state) {
  DrawFrames(state, ZOVEngine::Program::kDefault);
}
void Lit(benchmark::State& state) {
  DrawFrames(state, ZOVEngine::Program::kLight);
}

void Arguments(benchmark::internal::Benchmark* bench) {
  bench->Arg(kLights)->ArgName("lights")->Unit(benchmark::kMillisecond);
  bench->UseRealTime()->Iterations(1)->Repetitions(60)->ReportAggregatesOnly();
}

BENCHMARK(Unlit)->Apply(Arguments);
BENCHMARK(Lit)->Apply(Arguments);

}  // namespace

}  // namespace carapace_bench

int main(int argc, char** argv) {
  auto medians = carapace_bench::RunAll(argc, argv);
  const std::string arguments = "/lights:" + std::to_string(carapace_bench::kLights);
  std::printf("16 lights: %.2f of the time without light\n",
              medians["Lit" + arguments].real / medians["Unlit" + arguments].real);
}
