#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "render/gl/glframes.h"
#include "render/gl/gloptions.h"
#include "render/gldevice.h"
#include "render/images/image.h"
#include "support/glcontext.h"

namespace carapace_test {

inline constexpr int kSceneWidth = 480;
inline constexpr int kSceneHeight = 270;

/// An image of coloured stripes and soft alpha that differs from number to number, in sizes that
/// are and that are not powers of two.
inline ZOVEngine::Image SceneImage(std::uint32_t number) {
  constexpr int kSizes[][2] = {{64, 64}, {100, 60}, {33, 17}, {1, 1}, {128, 32}, {90, 90}};
  ZOVEngine::Image image;
  image.width = kSizes[number % 6][0];
  image.height = kSizes[number % 6][1];
  const int n = static_cast<int>(number);
  for (int y = 0; y < image.height; ++y) {
    for (int x = 0; x < image.width; ++x) {
      const bool stripe = (x / 7 + y / 5 + n) % 3 == 0;
      const int values[4] = {(40 * n + 3 * x) % 256, stripe ? 230 : 60, (90 + 25 * n + 2 * y) % 256,
                             n % 4 == 1 ? 128 + (x + y) % 128 : 255};
      for (const int value : values) image.pixels.push_back(static_cast<std::uint8_t>(value));
    }
  }
  return image;
}

/// The coverage of a made-up glyph: a ring that touches the edges, so that a wrong edge shows.
inline std::vector<std::uint8_t> SceneGlyph(int width, int height) {
  std::vector<std::uint8_t> coverage;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const bool edge = x < 3 || y < 3 || x >= width - 3 || y >= height - 3;
      coverage.push_back(static_cast<std::uint8_t>(edge ? 255 - 20 * ((x + y) % 4) : 30 * (x % 3)));
    }
  }
  return coverage;
}

/// Gives a device or a reference renderer everything that the scenes draw with.
template <typename Renderer>
void UploadScene(Renderer* renderer) {
  for (std::uint32_t i = 0; i < kSceneTextures; ++i) renderer->UploadTexture(i, SceneImage(i));
  for (int i = 0; i < 20; ++i) {
    const int width = 9 + 5 * (i % 6);
    const int height = 14 + 7 * (i % 4);
    renderer->UploadGlyph(width, height, SceneGlyph(width, height).data());
  }
}

/// A device that is ready to draw scenes, in the current context.
inline std::unique_ptr<ZOVEngine::GLDevice> SceneDevice(const ZOVEngine::GLOptions& options = {}) {
  using ZOVEngine::Program;
  auto device = ZOVEngine::MakeGLDeviceWith(options, KeepBackBuffer, KeepInterval);
  device->Start();
  const std::pair<Program, const char*> kPrograms[] = {{Program::kDefault, "default"},
                                                       {Program::kInstance, "instance"},
                                                       {Program::kLight, "light"},
                                                       {Program::kFont, "font"}};
  for (const auto& [program, name] : kPrograms) {
    device->CompileProgram(program, ShaderSource(std::string(name) + ".vert"),
                           ShaderSource(std::string(name) + ".frag"));
  }
  device->CreateResources(SceneProjection());
  UploadScene(device.get());
  return device;
}

}  // namespace carapace_test
