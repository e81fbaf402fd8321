#include "render/passes/crosshairpass.h"

#include <gtest/gtest.h>

#include <cmath>

#include "platform/windowsystem.h"
#include "render/passes/expect.h"
#include "support/scene.h"

namespace carapace_test {
namespace {

using namespace ZOVEngine;

class Crosshair : public testing::Test {
 protected:
  void TearDown() override { g_show_system_cursor = false; }

  DrawCommand Last() {
    scene.Draw();
    return scene.Frame().commands.back();
  }

  /// The turn of one frame, as far as floats of this size tell it: the angle grows without end,
  /// from test to test of a process too.
  static void ExpectOneTurn(float before, float after) {
    const float resolution = 4.0f * (std::nextafter(after, 2.0f * after) - after);
    EXPECT_NEAR(after, before + 0.3f * 0.017453292f, resolution);
  }

  Scene scene;
};

TEST_F(Crosshair, ComesLastAtTheCursorAndWhite) {
  scene.AddSprite("sprite", "one");
  scene.world.native.cursor = {640, 360};
  const DrawCommand draw = Last();
  EXPECT_EQ(draw.texture, 12u);
  EXPECT_EQ(draw.program, Program::kDefault);
  ExpectVector(draw.placement.translate, 0.0f, 0.0f, 1.0f);
  ExpectVector(draw.placement.scale, 64.0f, 64.0f, 1.0f);
  ExpectColour(draw, 1.0f, 1.0f, 1.0f, 1.0f);
}

TEST_F(Crosshair, FollowsTheCursorInUnitsOfTheMonitorWithYUpwards) {
  // 320 of 720 lines of the window are 480 of 1080.
  scene.world.native.cursor = {640 + 320, 360 + 320};
  ExpectVector(Last().placement.translate, 480.0f, -480.0f, 1.0f);
}

TEST_F(Crosshair, TurnsByThreeTenthsOfADegreeAFrame) {
  const float before = Last().placement.rotate_radians;
  const float after = Last().placement.rotate_radians;
  ExpectOneTurn(before, after);
}

TEST_F(Crosshair, ShowsItsWholeTextureWhateverAnimationWasDrawn) {
  GameObj* animated = scene.AddAnimated("animated", "loop");
  Of<Animation>(animated).m_currStep = 0.5f;
  const DrawCommand draw = Last();
  EXPECT_EQ(draw.window.u_left, 0.0f);
  EXPECT_EQ(draw.window.u_right, 1.0f);
}

TEST_F(Crosshair, HidesTheSystemsCursorInEveryFrame) {
  for (int frame = 0; frame < 2; ++frame) {
    scene.world.native.cursor_visible = true;
    scene.world.Step();
    EXPECT_FALSE(scene.world.native.cursor_visible) << frame;
  }
}

TEST_F(Crosshair, TheSwitchShowsTheSystemsCursorInItsPlace) {
  g_show_system_cursor = true;
  scene.world.native.cursor_visible = false;
  scene.world.Step();
  EXPECT_TRUE(scene.world.native.cursor_visible);
  EXPECT_EQ(scene.Frame().commands.size(), 1u);
}

TEST_F(Crosshair, DoesNotTurnWhileItIsNotDrawn) {
  const float before = Last().placement.rotate_radians;
  g_show_system_cursor = true;
  scene.world.Step(10);
  g_show_system_cursor = false;
  ExpectOneTurn(before, Last().placement.rotate_radians);
}

}  // namespace
}  // namespace carapace_test
