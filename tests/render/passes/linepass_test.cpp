#include "render/passes/linepass.h"

#include <gtest/gtest.h>

#include <cmath>

#include "render/passes/expect.h"
#include "support/scene.h"

namespace carapace_test {
namespace {

using namespace ZOVEngine;

constexpr float kStepSeconds = 1.0f / 60.0f;

DrawLine WhiteLine(const Vector3D& start, const Vector3D& end, float width) {
  return DrawLine(start, end, width, 255.0f, 255.0f, 255.0f, 255.0f);
}

// --- Lines of one frame ---

TEST(LinePass, ALineIsAYellowTexturedQuadBetweenItsEnds) {
  Scene scene;
  scene.world.Send(
      DrawLine({10.0f, 20.0f, 3.0f}, {40.0f, 60.0f, 9.0f}, 4.0f, 255.0f, 128.0f, 0.0f, 1.0f));
  const DrawCommand draw = scene.DrawOne();
  EXPECT_EQ(draw.kind, DrawCommand::Kind::kQuad);
  EXPECT_EQ(draw.program, Program::kDefault);
  EXPECT_EQ(draw.texture, 11u);
  ExpectVector(draw.placement.translate, 25.0f, 40.0f, 3.0f);
  ExpectVector(draw.placement.scale, 4.0f, 50.0f, 0.0f);
  EXPECT_FLOAT_EQ(draw.placement.rotate_radians, -std::atan2(30.0f, 40.0f));
  ExpectColour(draw, 255.0f, 128.0f, 0.0f, 1.0f);
}

TEST(LinePass, ALineIsDrawnInOneFrameOnly) {
  Scene scene;
  scene.world.Send(WhiteLine({}, {1.0f, 0.0f, 0.0f}, 1.0f));
  EXPECT_EQ(scene.Draw().size(), 1u);
  EXPECT_TRUE(scene.Draw().empty());
}

TEST(LinePass, LinesKeepTheOrderInWhichTheyWereAskedFor) {
  Scene scene;
  for (const float width : {3.0f, 1.0f, 2.0f}) {
    scene.world.Send(WhiteLine({}, {1.0f, 0.0f, 0.0f}, width));
  }
  const std::vector<DrawCommand> draws = scene.Draw();
  ASSERT_EQ(draws.size(), 3u);
  EXPECT_EQ(draws[0].placement.scale.x, 3.0f);
  EXPECT_EQ(draws[1].placement.scale.x, 1.0f);
  EXPECT_EQ(draws[2].placement.scale.x, 2.0f);
}

TEST(LinePass, ALineWithoutLengthHasNoExtent) {
  Scene scene;
  scene.world.Send(WhiteLine({7.0f, 7.0f, 1.0f}, {7.0f, 7.0f, 1.0f}, 5.0f));
  const DrawCommand draw = scene.DrawOne();
  EXPECT_EQ(draw.placement.scale.y, 0.0f);
  EXPECT_EQ(draw.placement.rotate_radians, 0.0f);
}

TEST(LinePass, ShowsTheWindowThatAnAnimationLeftInTheSharedQuad) {
  Scene scene;
  GameObj* animated = scene.AddAnimated("animated", "loop");
  Of<Animation>(animated).m_time_per_frame = 100.0f;
  Of<Animation>(animated).m_currStep = 0.5f;
  scene.world.Send(WhiteLine({}, {1.0f, 0.0f, 0.0f}, 1.0f));
  const DrawCommand line = scene.Draw().back();
  EXPECT_EQ(line.window.u_left, 0.5f);
  EXPECT_EQ(line.window.u_right, 0.75f);
}

// --- Timed lines ---

TimedLineRecord TimedLine(float width, float life_time) {
  return {{0.0f, 0.0f, 1.0f}, {10.0f, 0.0f, 1.0f}, width, life_time, {0.2f, 0.4f, 0.6f}, 0.0f};
}

TEST(TimedLinePass, ALineAgesByTheStepAndIsOpaque) {
  Scene scene;
  scene.System().m_timed_lines = {TimedLine(2.0f, 1.0f)};
  const DrawCommand draw = scene.DrawOne();
  EXPECT_EQ(scene.System().m_timed_lines[0].elapsed, kStepSeconds);
  ExpectColour(draw, 0.2f, 0.4f, 0.6f, 1.0f);
}

TEST(TimedLinePass, ALineWhoseTimeIsExactlyOverIsGone) {
  Scene scene;
  scene.System().m_timed_lines = {TimedLine(2.0f, kStepSeconds)};
  EXPECT_TRUE(scene.Draw().empty());
  EXPECT_TRUE(scene.System().m_timed_lines.empty());
}

TEST(TimedLinePass, ALineOfHalfASecondIsDrawnInTwentyNineSteps) {
  Scene scene;
  scene.System().m_timed_lines = {TimedLine(2.0f, 0.5f)};
  int drawn = 0;
  while (!scene.System().m_timed_lines.empty() && drawn < 100) {
    drawn += static_cast<int>(scene.Draw().size());
  }
  EXPECT_EQ(drawn, 29);
}

TEST(TimedLinePass, RemovalKeepsTheOrder) {
  Scene scene;
  scene.System().m_timed_lines = {TimedLine(1.0f, 1.0f), TimedLine(2.0f, 0.0f),
                                  TimedLine(3.0f, 1.0f)};
  const std::vector<DrawCommand> draws = scene.Draw();
  ASSERT_EQ(draws.size(), 2u);
  EXPECT_EQ(draws[0].placement.scale.x, 1.0f);
  EXPECT_EQ(draws[1].placement.scale.x, 3.0f);
}

}  // namespace
}  // namespace carapace_test
