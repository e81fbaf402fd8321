// The device with and without the picture of the ground that it keeps: every pixel must be the same
// but for rounding.

#include <GL/glew.h>
#include <gtest/gtest.h>

#include "render/gl/context/glscene.h"
#include "support/picture.h"

namespace carapace_test {
namespace {

using ZOVEngine::DrawCommand;
using ZOVEngine::Frame;
using ZOVEngine::GLDevice;
using ZOVEngine::GLOptions;
using ZOVEngine::Program;

constexpr float kSide = 120.0f;
constexpr int kWide = 16, kHigh = 9;  ///< tiles

/// A shader form for few lights and one for many may round a pixel differently, as may a viewport
/// at another place.
constexpr Tolerance kRounding{1, 1e-4};

GLOptions Keeping(bool keeps) {
  GLOptions options;
  options.keep_ground = keeps;
  return options;
}

/// A background, a floor of tiles of all textures, two layers deep in places, and sprites and text
/// on it, in the light of `lights` lamps.
Frame LevelFrame(int lights) {
  ZOVEngine::SeedRand(11);
  Frame frame = EmptyFrame();
  frame.commands.push_back(QuadCommand(0, 0, 9600, 5400, 3, Program::kLight));
  frame.commands.back().window = {0, 5, 0, 5};
  for (int i = 0; i < kWide * kHigh + 20; ++i) {
    const float x = (static_cast<float>(i % kWide) - 7.5f) * kSide;
    const float y = (static_cast<float>(i / kWide % kHigh) - 4.0f) * kSide;
    frame.commands.push_back(QuadCommand(x, y, kSide, kSide,
                                         static_cast<std::uint32_t>(i * 5) % kSceneTextures,
                                         i % 7 ? Program::kLight : Program::kDefault));
  }
  frame.ground = static_cast<std::uint32_t>(frame.commands.size());
  AddRandomQuads(&frame, 20);
  AddRandomQuads(&frame, 20, Program::kLight);
  AddRandomLights(&frame, lights);
  return frame;
}

/// The frames of a game: lights move, come and go, tiles change, the view shakes and rests.
std::vector<Frame> Game() {
  std::vector<Frame> frames(3, LevelFrame(6));
  const auto next = [&frames]() -> Frame& { return frames.emplace_back(Frame(frames.back())); };
  for (int i = 0; i < 4; ++i) next().lights[2].position.x += 25.0f;
  for (const float x : {-850.0f, 850.0f, -850.0f}) next().lights[3].position.x = x;
  next().lights.push_back(LightAt(-700, 300));
  next().lights[0].diffuseStr = 0.1f;
  next().lights.erase(frames.back().lights.begin() + 1);
  next().commands[20].texture = 9;
  next().commands[60].placement.rotate_radians = 0.4f;
  next().commands[60].colour[3] = 0.5f;
  next().commands.back().placement.translate.x += 40.0f;  // a sprite, not of the ground
  next().view.m[3] = 3.5f;
  next().view.m[3] = -2.25f;
  next().lights[1].position.y -= 80.0f;
  for (int i = 0; i < 20; ++i) {
    next().lights.push_back(LightAt(-800.0f + 80.0f * static_cast<float>(i), 0));
  }
  next().commands.erase(frames.back().commands.begin() + 30);
  frames.back().ground -= 1;
  next().ground = 0;
  next().ground = 1;
  next();
  return frames;
}

/// What is seen after each frame.
template <typename BeforeFrame>
std::vector<Picture> Play(const std::vector<Frame>& frames, bool keeps, BeforeFrame before) {
  const GLContext context(kSceneWidth, kSceneHeight);
  const auto device = SceneDevice(Keeping(keeps));
  device->ResetViewport(kSceneWidth, kSceneHeight, 16.0 / 9.0);
  std::vector<Picture> pictures;
  for (std::size_t i = 0; i < frames.size(); ++i) {
    before(i, device.get());
    device->Execute(frames[i]);
    EXPECT_EQ(device->Counters().redundant_binds, 0u);
    pictures.push_back(context.ReadBack());
  }
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
  device->Release();
  return pictures;
}

template <typename BeforeFrame>
void ExpectSamePictures(const std::vector<Frame>& frames, BeforeFrame before) {
  const std::vector<Picture> kept = Play(frames, true, before);
  const std::vector<Picture> drawn = Play(frames, false, before);
  for (std::size_t i = 0; i < frames.size(); ++i) {
    const PictureDifference difference = Compare(kept[i], drawn[i]);
    EXPECT_LE(difference.largest, kRounding.largest) << "frame " << i;
    EXPECT_LE(difference.mean, kRounding.mean) << "frame " << i;
  }
}

void DoNothing(std::size_t, GLDevice*) {}

TEST(KeptGround, ShowsTheSamePixelsInEveryFrame) {
  ExpectSamePictures(Game(), DoNothing);
}

TEST(KeptGround, ShowsATextureThatComesLater) {
  ExpectSamePictures(std::vector<Frame>(6, LevelFrame(3)), [](std::size_t frame, GLDevice* device) {
    if (frame == 2) device->UploadTexture(4, SceneImage(8));
    if (frame == 4) device->UploadTexture(0, SceneImage(2));
  });
}

TEST(KeptGround, FollowsTheViewport) {
  ExpectSamePictures(std::vector<Frame>(8, LevelFrame(3)), [](std::size_t frame, GLDevice* device) {
    if (frame == 2) device->SetViewport(30, 20, 300, 200);
    if (frame == 4) device->SetViewport(60, 10, 300, 200);
    if (frame == 6) device->ResetViewport(kSceneWidth, kSceneHeight, 1.0);
  });
}

TEST(KeptGround, ReachesBeyondTheWindowWithTheViewport) {
  std::vector<Frame> frames(5, LevelFrame(3));
  frames[4].lights[0].position.x += 60.0f;
  ExpectSamePictures(frames, [](std::size_t frame, GLDevice* device) {
    if (frame == 1) device->SetViewport(-70, -30, kSceneWidth + 20, kSceneHeight + 90);
  });
}

TEST(KeptGround, IsDrawnAnewWithNewResourcesAndPrograms) {
  ExpectSamePictures(std::vector<Frame>(8, LevelFrame(3)), [](std::size_t frame, GLDevice* device) {
    ZOVEngine::Matrix4x4 wider = SceneProjection();
    wider.at[0][0] *= 0.5f;
    if (frame == 3) device->CreateResources(wider);
    if (frame == 5) {
      device->CompileProgram(Program::kLight, ShaderSource("default.vert"),
                             ShaderSource("default.frag"));
    }
  });
}

TEST(KeptGround, AViewportWithoutPixelsDoesNoHarm) {
  ExpectSamePictures(std::vector<Frame>(6, LevelFrame(3)), [](std::size_t frame, GLDevice* device) {
    if (frame == 2) device->SetViewport(0, 0, 0, 0);
    if (frame == 4) device->SetViewport(0, 0, kSceneWidth, kSceneHeight);
  });
}

/// The draw calls of each frame.
std::vector<std::uint32_t> CountDraws(const std::vector<Frame>& frames) {
  const GLContext context(kSceneWidth, kSceneHeight);
  const auto device = SceneDevice(Keeping(true));
  device->ResetViewport(kSceneWidth, kSceneHeight, 16.0 / 9.0);
  std::vector<std::uint32_t> draws;
  for (const Frame& frame : frames) {
    device->Execute(frame);
    draws.push_back(device->Counters().draw_calls);
  }
  return draws;
}

TEST(KeptGround, IsNotDrawnWhileNothingChanges) {
  Frame sprites = LevelFrame(3);
  sprites.commands.erase(sprites.commands.begin(), sprites.commands.begin() + sprites.ground);
  sprites.ground = 0;
  const std::uint32_t of_sprites = CountDraws({sprites}).front();
  const std::vector<std::uint32_t> draws = CountDraws(std::vector<Frame>(4, LevelFrame(3)));
  EXPECT_GT(draws[0], of_sprites);
  EXPECT_EQ(draws[1], draws[0]) << "into the picture";
  EXPECT_EQ(draws[2], of_sprites);
  EXPECT_EQ(draws[3], of_sprites);
}

TEST(KeptGround, ASmallChangeDrawsTheRunsThatItTouches) {
  std::vector<Frame> frames(4, LevelFrame(0));
  frames[3].commands[1].texture = 6;
  const std::vector<std::uint32_t> draws = CountDraws(frames);
  EXPECT_GT(draws[3], draws[2]);
  EXPECT_LT(draws[3], draws[0]);
}

TEST(KeptGround, HasItsBackgroundUnderASpriteThatLeaves) {
  std::vector<Frame> frames(6, LevelFrame(3));
  for (std::size_t i = 0; i < frames.size(); ++i) {
    frames[i].commands.erase(frames[i].commands.begin() + 40, frames[i].commands.begin() + 60);
    frames[i].ground -= 20;
    if (i > 2) continue;
    frames[i].commands.push_back(QuadCommand(0, 0, 9600, 5400, 0));  // covers all
  }
  ExpectSamePictures(frames, DoNothing);
}

TEST(KeptGround, AViewThatMovesIsDrawnOnceAFrame) {
  std::vector<Frame> frames(4, LevelFrame(3));
  for (std::size_t i = 1; i < frames.size(); ++i) frames[i].view.m[3] = static_cast<float>(i);
  const std::vector<std::uint32_t> draws = CountDraws(frames);
  for (const std::uint32_t count : draws) EXPECT_EQ(count, draws[0]);
}

}  // namespace
}  // namespace carapace_test
