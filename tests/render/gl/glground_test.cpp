#include "render/gl/glground.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>

#include "render/gl/glframes.h"
#include "render/gl/glprogram.h"

namespace carapace_test {
namespace {

using namespace ZOVEngine;

constexpr float kReach = 100.0f;
constexpr float kHalfHeight = 540.0f;  ///< of what the screen shows at depth 0 (unit: world units)
/// How far a box may be from the exact one, in clip space.
constexpr float kSlack = 2e-3f;

/// Three tiles of 60 units in a row, then a sprite that is not of the ground; two lights far apart.
Frame Scene() {
  Frame frame = EmptyFrame();
  for (const float x : {-600.0f, 0.0f, 600.0f}) {
    frame.commands.push_back(QuadCommand(x, 0, 60, 60, 1, Program::kLight));
  }
  frame.ground = 3;
  frame.commands.push_back(QuadCommand(0, 0, 60, 60, 2));
  frame.lights = {LightAt(-600, 0), LightAt(0, 300), LightAt(600, 0)};
  return frame;
}

class GroundWatchTest : public testing::Test {
 protected:
  GroundWatchTest() { Compare(m_frame); }

  bool Compare(const Frame& frame) { return m_watch.Compare(frame, SceneProjection(), kReach); }

  /// The number of changed boxes, or nothing when the ground is different everywhere.
  std::optional<std::size_t> BoxesAfter(const Frame& frame) {
    if (!Compare(frame)) return std::nullopt;
    return m_watch.Changed().size();
  }

  bool Covers(float x, float y) const {
    const float clip_x = x / (kHalfHeight * 16.0f / 9.0f);
    const float clip_y = y / kHalfHeight;
    for (const ScreenBox& box : m_watch.Changed()) {
      if (box.left <= clip_x + kSlack && clip_x <= box.right + kSlack &&
          box.bottom <= clip_y + kSlack && clip_y <= box.top + kSlack)
        return true;
    }
    return false;
  }

  Frame m_frame = Scene();
  GroundWatch m_watch;
};

TEST_F(GroundWatchTest, TheFirstGroundIsNewEverywhere) {
  GroundWatch watch;
  EXPECT_FALSE(watch.Compare(m_frame, SceneProjection(), kReach));
}

TEST_F(GroundWatchTest, TheSameGroundHasNotChanged) {
  EXPECT_EQ(BoxesAfter(m_frame), 0u);
}

TEST_F(GroundWatchTest, WhatIsNotOfTheGroundDoesNotCount) {
  m_frame.commands[3].placement.translate.x = 200.0f;
  m_frame.commands.push_back(m_frame.commands[3]);
  EXPECT_EQ(BoxesAfter(m_frame), 0u);
}

TEST_F(GroundWatchTest, AnotherViewChangesEverything) {
  Frame moved = m_frame;
  moved.view.m[3] = 1.0f;
  EXPECT_EQ(BoxesAfter(moved), std::nullopt);
  EXPECT_EQ(BoxesAfter(moved), 0u);
  moved.view_pos.x = 1.0f;
  EXPECT_EQ(BoxesAfter(moved), std::nullopt);
}

TEST_F(GroundWatchTest, AnotherProjectionChangesEverything) {
  Matrix4x4 wider = SceneProjection();
  wider.at[0][0] *= 0.5f;
  EXPECT_FALSE(m_watch.Compare(m_frame, wider, kReach));
  EXPECT_TRUE(m_watch.Compare(m_frame, wider, kReach));
}

TEST_F(GroundWatchTest, AnotherNumberOfCommandsChangesEverything) {
  m_frame.ground = 2;
  EXPECT_EQ(BoxesAfter(m_frame), std::nullopt);
  m_frame.ground = 40;  // more than there are
  EXPECT_EQ(BoxesAfter(m_frame), std::nullopt);
  EXPECT_EQ(BoxesAfter(m_frame), 0u);
}

TEST_F(GroundWatchTest, AGroundWithoutCommandsIsNewEachTime) {
  m_frame.ground = 0;
  EXPECT_EQ(BoxesAfter(m_frame), std::nullopt);
  EXPECT_EQ(BoxesAfter(m_frame), std::nullopt);
}

TEST_F(GroundWatchTest, ACommandThatMovesChangesWhereItWasAndWhereItIs) {
  m_frame.commands[0].placement.translate.y = 300.0f;
  EXPECT_EQ(BoxesAfter(m_frame), 2u);
  EXPECT_TRUE(Covers(-629, -29));
  EXPECT_TRUE(Covers(-571, 329));
  EXPECT_FALSE(Covers(-600, 150));
  EXPECT_FALSE(Covers(0, 0));
}

TEST_F(GroundWatchTest, EveryFieldOfACommandCounts) {
  using Change = void (*)(DrawCommand*);
  const Change changes[] = {[](DrawCommand* c) { c->texture = 7; },
                            [](DrawCommand* c) { c->program = Program::kDefault; },
                            [](DrawCommand* c) { c->colour[3] = 0.5f; },
                            [](DrawCommand* c) { c->window.u_left = 0.25f; },
                            [](DrawCommand* c) { c->placement.rotate_radians = 1.0f; },
                            [](DrawCommand* c) { c->placement.scale.x = 61.0f; }};
  for (const Change change : changes) {
    change(&m_frame.commands[1]);
    EXPECT_EQ(BoxesAfter(m_frame), 1u);
    EXPECT_TRUE(Covers(0, 0));
  }
}

TEST_F(GroundWatchTest, ATurnedQuadChangesUpToItsCorners) {
  m_frame.commands[1].placement.rotate_radians = 0.785398f;
  EXPECT_EQ(BoxesAfter(m_frame), 1u);
  EXPECT_TRUE(Covers(42, 0));
}

TEST_F(GroundWatchTest, ATileNearerToTheEyeIsFoundWhereItIsSeen) {
  m_frame.commands[2].placement.translate.z = 651.75f;  // half way to the eye: twice as far out
  Compare(m_frame);
  m_frame.commands[2].texture = 5;
  m_frame.commands[2].placement.translate.x = 300.0f;
  ASSERT_EQ(BoxesAfter(m_frame), 1u);
  EXPECT_TRUE(Covers(600, 0));
}

TEST_F(GroundWatchTest, WhatIsNotAQuadChangesEverything) {
  m_frame.commands[1].kind = DrawCommand::Kind::kMesh;
  EXPECT_EQ(BoxesAfter(m_frame), std::nullopt);
  EXPECT_EQ(BoxesAfter(m_frame), std::nullopt) << "its vertices may be others";
}

TEST_F(GroundWatchTest, ALightThatMovesChangesBothItsCircles) {
  m_frame.lights[0].position.x = -300.0f;
  EXPECT_EQ(BoxesAfter(m_frame), 2u);
  for (const float x : {-600.0f, -300.0f}) {
    EXPECT_TRUE(Covers(x - 100, 100));
    EXPECT_TRUE(Covers(x + 100, -100));
  }
  EXPECT_FALSE(Covers(-450, 0));
}

TEST_F(GroundWatchTest, CirclesThatMeetAreOneBox) {
  m_frame.lights[0].position.x = -580.0f;
  EXPECT_EQ(BoxesAfter(m_frame), 1u);
  EXPECT_TRUE(Covers(-700, 0));
  EXPECT_TRUE(Covers(-480, 0));
}

TEST_F(GroundWatchTest, ALightThatGlowsDifferentlyChangesItsCircle) {
  m_frame.lights[1].diffuseStr = 0.9f;
  EXPECT_EQ(BoxesAfter(m_frame), 1u);
  EXPECT_TRUE(Covers(0, 300));
}

TEST_F(GroundWatchTest, ALightThatGoesOrComesLeavesTheOthersAlone) {
  Frame fewer = m_frame;
  fewer.lights.erase(fewer.lights.begin() + 1);
  for (const Frame* frame : {&fewer, &m_frame}) {
    EXPECT_EQ(BoxesAfter(*frame), 1u);
    EXPECT_TRUE(Covers(0, 300));
    EXPECT_FALSE(Covers(-600, 0));
    EXPECT_FALSE(Covers(600, 0));
  }
}

TEST_F(GroundWatchTest, LightsThatChangePlacesInTheListCount) {
  std::swap(m_frame.lights[0], m_frame.lights[2]);
  EXPECT_TRUE(BoxesAfter(m_frame).value_or(1) > 0) << "sums of floats depend on the order";
}

TEST_F(GroundWatchTest, OfManyChangesTheNearestAreOneBox) {
  m_frame.lights.push_back(LightAt(-600, 450));
  m_frame.lights.push_back(LightAt(600, -400));
  m_frame.lights.push_back(LightAt(600, -150));
  EXPECT_EQ(BoxesAfter(m_frame), GroundWatch::kMostBoxes);
  EXPECT_TRUE(Covers(-600, 450));
  EXPECT_TRUE(Covers(600, -400));
  EXPECT_TRUE(Covers(600, -150));
  EXPECT_FALSE(Covers(0, 0));
}

TEST_F(GroundWatchTest, LightsOfUnknownReachChangeEverything) {
  m_frame.lights[0].position.x += 1.0f;
  EXPECT_FALSE(m_watch.Compare(m_frame, SceneProjection(), 0.0f));
}

TEST_F(GroundWatchTest, ALightNowhereChangesEverythingEachTime) {
  m_frame.lights[0].position.x = std::numeric_limits<float>::quiet_NaN();
  EXPECT_EQ(BoxesAfter(m_frame), std::nullopt);
  EXPECT_EQ(BoxesAfter(m_frame), std::nullopt);
}

TEST_F(GroundWatchTest, ALightThatComesAmongTheShadedOnesCounts) {
  m_frame.lights.assign(kMaxLights, LightAt(-600, 0));
  m_frame.lights.push_back(LightAt(600, 0));
  Compare(m_frame);
  EXPECT_EQ(BoxesAfter(m_frame), 0u);
  m_frame.lights.erase(m_frame.lights.begin());
  EXPECT_TRUE(BoxesAfter(m_frame).has_value());
  EXPECT_TRUE(Covers(600, 0)) << "it was one too many before";
}

TEST(TouchedPixels, AreThoseOfTheBoxAndOneMoreOnEachSide) {
  EXPECT_EQ(TouchedPixels({-0.5f, 0.5f, 0.0f, 0.25f}, 100, 80), (PixelBox{24, 39, 52, 12}));
  EXPECT_EQ(TouchedPixels({-0.501f, 0.501f, 0.0f, 0.25f}, 100, 80), (PixelBox{23, 39, 54, 12}));
}

TEST(TouchedPixels, LieWithinTheViewport) {
  EXPECT_EQ(TouchedPixels({-9.0f, 9.0f, -3.0f, 3.0f}, 100, 80), (PixelBox{0, 0, 100, 80}));
  EXPECT_EQ(TouchedPixels({0.98f, 1.5f, -1.0f, -0.99f}, 100, 80), (PixelBox{98, 0, 2, 2}));
}

TEST(TouchedPixels, OfABoxBesideTheScreenThereAreNone) {
  for (const ScreenBox& box :
       {ScreenBox{1.5f, 2.0f, 0.0f, 1.0f}, ScreenBox{-3.0f, -1.1f, 0.0f, 1.0f},
        ScreenBox{0.0f, 1.0f, 1.0f, 2.0f}}) {
    EXPECT_EQ(TouchedPixels(box, 100, 80).width, 0);
  }
}

}  // namespace
}  // namespace carapace_test
