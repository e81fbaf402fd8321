// Submitting many sprites: this engine's device beside SDL's renderer on OpenGL, in one run.
//
// Timed is the main thread from an array of sprites until all drawing commands are with the driver;
// showing the picture is not. The last lines give the ratios: ours to SDL's.

#include <GL/glew.h>

#include "glbench.h"

namespace carapace_bench {

namespace {

constexpr int kTextures = 8;
constexpr int kTextureSide = 64;
constexpr float kSpriteSide = 24.0f;  // (unit: pixels)
constexpr float kUnitsPerPixel = 1080.0f / kHeight;

struct Sprite {
  float x, y;  // (unit: pixels, from the upper left corner)
  float angle;
  std::uint32_t texture;
};

std::vector<Sprite> MakeSprites(int count, int textures) {
  Numbers numbers;
  std::vector<Sprite> sprites;
  for (int i = 0; i < count; ++i) {
    sprites.push_back(
        {numbers.Between(0.0f, kWidth), numbers.Between(0.0f, kHeight),
         numbers.Between(0.0f, 6.28f),
         static_cast<std::uint32_t>(numbers.Between(0.0f, static_cast<float>(textures)))});
  }
  return sprites;
}

BenchWindow& OurWindow() {
  static BenchWindow window;
  static const bool uploaded = [] {
    for (std::uint32_t i = 0; i < kTextures; ++i) {
      window.device->UploadTexture(i, NoiseImage(kTextureSide, i));
    }
    return true;
  }();
  benchmark::DoNotOptimize(uploaded);
  return window;
}

/// SDL's renderer with the same textures.
struct Peer {
  Peer() {
    SDL_SetHint(SDL_HINT_RENDER_DRIVER, "opengl");
    SDL_SetHint(SDL_HINT_RENDER_BATCHING, "1");
    SDL_SetHint(SDL_HINT_RENDER_SCALE_QUALITY, "linear");
    window = SDL_CreateWindow("peer", 0, 0, kWidth, kHeight, SDL_WINDOW_OPENGL | SDL_WINDOW_HIDDEN);
    renderer = SDL_CreateRenderer(window, -1, SDL_RENDERER_ACCELERATED);
    for (std::uint32_t i = 0; i < kTextures; ++i) {
      const ZOVEngine::Image image = NoiseImage(kTextureSide, i);
      SDL_Texture* texture = SDL_CreateTexture(
          renderer, SDL_PIXELFORMAT_RGBA32, SDL_TEXTUREACCESS_STATIC, kTextureSide, kTextureSide);
      SDL_UpdateTexture(texture, nullptr, image.pixels.data(), 4 * kTextureSide);
      SDL_SetTextureBlendMode(texture, SDL_BLENDMODE_BLEND);
      textures.push_back(texture);
    }
  }

  SDL_Window* window;
  SDL_Renderer* renderer;
  std::vector<SDL_Texture*> textures;
};

void Fill(const std::vector<Sprite>& sprites, ZOVEngine::Frame* frame) {
  frame->Clear();
  const float side = kSpriteSide * kUnitsPerPixel;
  for (const Sprite& sprite : sprites) {
    ZOVEngine::DrawCommand& command = frame->commands.emplace_back();
    command.texture = sprite.texture;
    command.placement.translate = ZOVEngine::Vector3D(
        (sprite.x - kWidth / 2) * kUnitsPerPixel, (kHeight / 2 - sprite.y) * kUnitsPerPixel, 1.0f);
    command.placement.rotate_radians = sprite.angle;
    command.placement.scale = ZOVEngine::Vector3D(side, side, 1.0f);
  }
}

void OurSprites(benchmark::State& state) {
  BenchWindow& window = OurWindow();
  window.MakeCurrent();
  const auto sprites =
      MakeSprites(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
  static ZOVEngine::Frame frame = EmptyFrame();  // a game keeps its frame, too
  for (auto _ : state) {
    Fill(sprites, &frame);
    window.device->Execute(frame);
    state.PauseTiming();
    window.device->Present();
    glFinish();
    state.ResumeTiming();
  }
  const ZOVEngine::DeviceCounters counters = window.device->Counters();
  state.counters["draws"] = counters.draw_calls;
  state.counters["texture_binds"] = counters.texture_binds;
  state.counters["redundant_binds"] = counters.redundant_binds;
}

void PeerSprites(benchmark::State& state) {
  static Peer peer;
  const auto sprites =
      MakeSprites(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
  SDL_SetRenderDrawColor(peer.renderer, 0, 0, 0, 255);
  for (auto _ : state) {
    SDL_RenderClear(peer.renderer);
    for (const Sprite& sprite : sprites) {
      const SDL_FRect box{sprite.x - kSpriteSide / 2, sprite.y - kSpriteSide / 2, kSpriteSide,
                          kSpriteSide};
      SDL_RenderCopyExF(peer.renderer, peer.textures[sprite.texture], nullptr, &box,
                        static_cast<double>(sprite.angle) * -57.29578, nullptr, SDL_FLIP_NONE);
    }
    SDL_RenderFlush(peer.renderer);
    state.PauseTiming();
    SDL_RenderPresent(peer.renderer);
    glFinish();
    state.ResumeTiming();
  }
}

void Arguments(benchmark::internal::Benchmark* bench) {
  bench->Args({2000, 1})->Args({2000, kTextures})->Args({10000, 1})->Args({10000, kTextures});
  bench->ArgNames({"sprites", "textures"})->Unit(benchmark::kMillisecond);
  // One frame a repetition, so that the median is that of single frames.
  bench->Iterations(1)->Repetitions(150)->ReportAggregatesOnly();
}

BENCHMARK(OurSprites)->Apply(Arguments);
BENCHMARK(PeerSprites)->Apply(Arguments);

}  // namespace

}  // namespace carapace_bench

int main(int argc, char** argv) {
  auto medians = carapace_bench::RunAll(argc, argv);
  for (const int sprites : {2000, 10000}) {
    for (const int textures : {1, 8}) {
      const std::string arguments =
          "/sprites:" + std::to_string(sprites) + "/textures:" + std::to_string(textures);
      const auto& ours = medians["OurSprites" + arguments];
      const auto& peer = medians["PeerSprites" + arguments];
      std::printf("%5d sprites, %d textures: %.2f of SDL's time (main thread's CPU: %.2f)\n",
                  sprites, textures, ours.real / peer.real, ours.cpu / peer.cpu);
    }
  }
}
