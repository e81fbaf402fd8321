#pragma once

#include <cmath>
#include <cstdint>

#include "core/base/matrix4x4.h"
#include "core/base/random.h"
#include "render/frame.h"

namespace carapace_test {

/// How many textures the frames draw with.
inline constexpr std::uint32_t kSceneTextures = 12;

/// The game's projection at an aspect of 16 to 9.
inline ZOVEngine::Matrix4x4 SceneProjection() {
  const float near = 0.1f;
  const float far = 3000.0f;
  const float high = 1.0f / std::tan(0.39269909f);
  ZOVEngine::Matrix4x4 out;
  out.at[0][0] = high * 9.0f / 16.0f;
  out.at[1][1] = high;
  out.at[2][2] = -(far + near) / (far - near);
  out.at[2][3] = -2.0f * far * near / (far - near);
  out.at[3][2] = -1.0f;
  return out;
}

/// Random floats from the engine's own generator, so that a scene is the same everywhere. Draw them
/// one by one: compilers differ in the order in which they evaluate arguments.
inline float RandomFloat(float low, float high) {
  return low + (high - low) * static_cast<float>(ZOVEngine::Rand()) / 32767.0f;
}

/// A frame seen from 1303.5 units away, so that 1080 units fill the height.
inline ZOVEngine::Frame EmptyFrame() {
  ZOVEngine::Frame frame;
  frame.view = ZOVEngine::Matrix4x4::Identity();
  frame.view.m[11] = -1303.5f;
  frame.view_pos = ZOVEngine::Vector3D(0.0f, 0.0f, -1303.5f);
  return frame;
}

inline ZOVEngine::DrawCommand QuadCommand(
    float x, float y, float width, float height, std::uint32_t texture,
    ZOVEngine::Program program = ZOVEngine::Program::kDefault) {
  ZOVEngine::DrawCommand command;
  command.program = program;
  command.texture = texture;
  command.placement.translate = ZOVEngine::Vector3D(x, y, 1.0f);
  command.placement.scale = ZOVEngine::Vector3D(width, height, 1.0f);
  return command;
}

inline void SetColour(ZOVEngine::DrawCommand* command, float r, float g, float b, float a) {
  const float colour[4] = {r, g, b, a};
  for (int i = 0; i < 4; ++i) command->colour[i] = colour[i];
}

/// `count` sprites at random places, turned and tinted at random.
inline void AddRandomQuads(ZOVEngine::Frame* frame, int count,
                           ZOVEngine::Program program = ZOVEngine::Program::kDefault) {
  for (int i = 0; i < count; ++i) {
    const float height = RandomFloat(20, 260);
    const float width = RandomFloat(20, 260);
    const float y = RandomFloat(-500, 500);
    const float x = RandomFloat(-900, 900);
    auto& command = frame->commands.emplace_back(QuadCommand(
        x, y, width, height, static_cast<std::uint32_t>(i * 7) % kSceneTextures, program));
    if (i % 3) command.placement.rotate_radians = RandomFloat(-3.0f, 3.0f);
    const float alpha = RandomFloat(0.3f, 1);
    const float blue = RandomFloat(0, 1);
    const float green = RandomFloat(0, 1);
    const float red = RandomFloat(0, 1);
    SetColour(&command, red, green, blue, alpha);
  }
}

inline ZOVEngine::LightRecord LightAt(float x, float y) {
  ZOVEngine::LightRecord light;
  light.position = ZOVEngine::Vector3D(x, y, 1.0f);
  light.ambient = ZOVEngine::Vector3D(0.3f, 0.2f, 0.1f);
  light.diffuse = ZOVEngine::Vector3D(0.9f, 0.7f, 0.5f);
  light.specular = ZOVEngine::Vector3D(0.5f, 0.8f, 1.0f);
  light.ambientStr = 0.4f;
  light.diffuseStr = 0.8f;
  light.specularStr = 0.6f;
  return light;
}

inline void AddRandomLights(ZOVEngine::Frame* frame, int count) {
  for (int i = 0; i < count; ++i) {
    const float y = RandomFloat(-500, 500);
    const float x = RandomFloat(-900, 900);
    auto& light = frame->lights.emplace_back(LightAt(x, y));
    const float blue = RandomFloat(0, 1);
    const float green = RandomFloat(0, 1);
    const float red = RandomFloat(0, 1);
    light.diffuse = ZOVEngine::Vector3D(red, green, blue);
    light.position.z = RandomFloat(-20, 60);
  }
}

}  // namespace carapace_test
