#pragma once

#include <SDL2/SDL.h>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "core/base/matrix4x4.h"
#include "platform/gldriver.h"
#include "render/gldevice.h"

namespace carapace_bench {

inline constexpr int kWidth = 1280;
inline constexpr int kHeight = 720;

/// A hidden window with a GL context, in which `Device` draws with the shipped shaders.
///
/// The shaders are read from the working directory or the folders above it, so that a benchmark
/// runs from anywhere in the repository.
class BenchWindow {
 public:
  BenchWindow() {
    ZOVEngine::PrepareGLDriver();
    SDL_Init(SDL_INIT_VIDEO);
    window =
        SDL_CreateWindow("bench", 0, 0, kWidth, kHeight, SDL_WINDOW_OPENGL | SDL_WINDOW_HIDDEN);
    m_context = SDL_GL_CreateContext(window);
    if (!m_context) {
      std::fprintf(stderr, "No GL context: %s\n", SDL_GetError());
      std::exit(1);
    }
    s_window = window;
    SDL_GL_SetSwapInterval(0);
    device = ZOVEngine::MakeGLDevice([] { SDL_GL_SwapWindow(s_window); }, SetInterval);
    StartDevice();
  }

  void MakeCurrent() { SDL_GL_MakeCurrent(window, m_context); }

  SDL_Window* window = nullptr;
  std::unique_ptr<ZOVEngine::GLDevice> device;

 private:
  static void SetInterval(int interval) { SDL_GL_SetSwapInterval(interval); }

  static std::string Source(const std::string& name) {
    std::string path = "Resources/Shaders/" + name;
    for (int up = 0; up < 4; ++up, path = "../" + path) {
      std::ifstream file(path, std::ios::binary);
      if (file) return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }
    std::fprintf(stderr, "No shader %s: run inside the repository\n", name.c_str());
    std::exit(1);
  }

  static ZOVEngine::Matrix4x4 Projection() {
    const float high = 1.0f / std::tan(0.39269909f);
    ZOVEngine::Matrix4x4 out;
    out.at[0][0] = high * static_cast<float>(kHeight) / static_cast<float>(kWidth);
    out.at[1][1] = high;
    out.at[2][2] = -1.0f;
    out.at[2][3] = -0.2f;
    out.at[3][2] = -1.0f;
    return out;
  }

  void StartDevice() {
    using ZOVEngine::Program;
    const std::string trouble = device->Start();
    if (!trouble.empty()) {
      std::fprintf(stderr, "%s\n", trouble.c_str());
      std::exit(1);
    }
    device->CompileProgram(Program::kDefault, Source("default.vert"), Source("default.frag"));
    device->CompileProgram(Program::kInstance, Source("instance.vert"), Source("instance.frag"));
    device->CompileProgram(Program::kLight, Source("light.vert"), Source("light.frag"));
    device->CompileProgram(Program::kFont, Source("font.vert"), Source("font.frag"));
    device->CreateResources(Projection());
    device->ResetViewport(kWidth, kHeight, 1.0);
  }

  static inline SDL_Window* s_window = nullptr;
  SDL_GLContext m_context = nullptr;
};

/// A frame seen from where 1080 units fill the height of the window.
inline ZOVEngine::Frame EmptyFrame() {
  ZOVEngine::Frame frame;
  frame.view = ZOVEngine::Matrix4x4::Identity();
  frame.view.m[11] = -1303.5f;
  frame.view_pos = ZOVEngine::Vector3D(0.0f, 0.0f, -1303.5f);
  return frame;
}

/// Random pixels, some of them transparent, in a square picture.
inline ZOVEngine::Image NoiseImage(int side, std::uint32_t seed) {
  ZOVEngine::Image image;
  image.width = image.height = side;
  for (int i = 0; i < 4 * side * side; ++i) {
    seed = seed * 1664525u + 1013904223u;
    image.pixels.push_back(static_cast<std::uint8_t>(seed >> 24));
  }
  return image;
}

/// Numbers from a small generator, the same in every run.
class Numbers {
 public:
  float Between(float low, float high) {
    m_state = m_state * 1664525u + 1013904223u;
    return low + (high - low) * static_cast<float>(m_state >> 8) / 16777216.0f;
  }

 private:
  std::uint32_t m_state = 12345;
};

/// Prints as usual and remembers the medians of repeated benchmarks.
class MedianReporter : public benchmark::ConsoleReporter {
 public:
  struct Times {
    double real = 0.0;
    double cpu = 0.0;
  };

  void ReportRuns(const std::vector<Run>& runs) override {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Aggregate || run.aggregate_name != "median") continue;
      medians[run.run_name.function_name + "/" + run.run_name.args] = {run.GetAdjustedRealTime(),
                                                                       run.GetAdjustedCPUTime()};
    }
  }

  std::map<std::string, Times> medians;
};

/// Runs all registered benchmarks and returns their medians by "name/arguments".
inline std::map<std::string, MedianReporter::Times> RunAll(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) std::exit(1);
  MedianReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  return reporter.medians;
}

}  // namespace carapace_bench
