#include "render/gl/gloccluders.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <vector>

#include "render/gl/glframes.h"

namespace carapace_test {

namespace {

using ZOVEngine::Frame;
using ZOVEngine::Matrix4x4;
using ZOVEngine::Occluders;
using ZOVEngine::ScreenBox;
using ZOVEngine::ScreenMap;

Occluders Made(const std::vector<ScreenBox>& boxes) {
  Occluders cover;
  for (const ScreenBox& box : boxes) cover.Add(box);
  cover.Build();
  return cover;
}

bool Holds(const std::vector<ScreenBox>& boxes, float x, float y) {
  return std::any_of(boxes.begin(), boxes.end(), [x, y](const ScreenBox& box) {
    return box.left <= x && x <= box.right && box.bottom <= y && y <= box.top;
  });
}

/// A rectangle whose edges lie on a lattice of an eighth of the screen, exact in floats.
ScreenBox RandomBox() {
  const auto edge = [] { return 0.25f * static_cast<float>(ZOVEngine::Rand() % 11) - 1.5f; };
  const float x = edge();
  const float y = edge();
  return {x, x + 0.25f * static_cast<float>(1 + ZOVEngine::Rand() % 6), y,
          y + 0.25f * static_cast<float>(1 + ZOVEngine::Rand() % 6)};
}

/// Whether a lattice of points in the part of `box` on the screen lies in the rectangles.
bool IsCovered(const std::vector<ScreenBox>& boxes, const ScreenBox& box) {
  for (float x = std::max(box.left, -1.0f) + 0.05f; x < std::min(box.right, 1.0f); x += 0.1f) {
    for (float y = std::max(box.bottom, -1.0f) + 0.05f; y < std::min(box.top, 1.0f); y += 0.1f) {
      if (!Holds(boxes, x, y)) return false;
    }
  }
  return true;
}

}  // namespace

TEST(OccludersTest, WhatLiesInARectangleIsHidden) {
  const Occluders cover = Made({{-0.5f, 0.5f, -0.4f, 0.4f}});
  EXPECT_TRUE(cover.Hides({-0.3f, 0.3f, -0.2f, 0.2f}));
  EXPECT_FALSE(cover.Hides({-0.6f, 0.3f, -0.2f, 0.2f}));
  EXPECT_FALSE(cover.Hides({-0.3f, 0.6f, -0.2f, 0.2f}));
  EXPECT_FALSE(cover.Hides({-0.3f, 0.3f, -0.5f, 0.2f}));
  EXPECT_FALSE(cover.Hides({-0.3f, 0.3f, -0.2f, 0.5f}));
  EXPECT_FALSE(cover.Hides({0.6f, 0.7f, 0.6f, 0.7f}));
}

TEST(OccludersTest, AtTheOuterEdgeABoxMayBeSeen) {
  const Occluders cover = Made({{-0.5f, 0.5f, -0.4f, 0.4f}});
  EXPECT_FALSE(cover.Hides({-0.5f, 0.5f, -0.4f, 0.4f}));
  EXPECT_FALSE(cover.Hides({0.0f, 0.49999f, 0.0f, 0.3f}));
  EXPECT_TRUE(cover.Hides({0.0f, 0.4999f, 0.0f, 0.3f}));
}

TEST(OccludersTest, NeighboursHideWhatLiesUnderBoth) {
  const ScreenBox across{-0.4f, 0.4f, -0.1f, 0.1f};
  EXPECT_TRUE(Made({{-0.5f, 0, -0.5f, 0.5f}, {0, 0.5f, -0.5f, 0.5f}}).Hides(across));
  EXPECT_TRUE(Made({{-0.5f, 0.2f, -0.5f, 0.5f}, {0, 0.5f, -0.2f, 0.2f}}).Hides(across));
  EXPECT_FALSE(Made({{-0.5f, 0, -0.5f, 0.5f}, {1e-6f, 0.5f, -0.5f, 0.5f}}).Hides(across));
}

TEST(OccludersTest, TheScreensEdgeEndsWhatCanBeSeen) {
  const Occluders whole = Made({{-1.0f, 1.0f, -1.0f, 1.0f}});
  EXPECT_TRUE(whole.Hides({-5.0f, 5.0f, -5.0f, 5.0f}));
  const Occluders nothing = Made({});
  EXPECT_TRUE(nothing.Hides({1.0f, 1.5f, -1.0f, 1.0f}));
  EXPECT_TRUE(nothing.Hides({-1.0f, 1.0f, -3.0f, -1.0f}));
  EXPECT_FALSE(nothing.Hides({0.99f, 1.5f, -1.0f, 1.0f}));
  // A strip at the left is bare, an eighth of a pixel where 1,280 make a row: it may show.
  EXPECT_FALSE(Made({{-0.9998f, 1.0f, -1.0f, 1.0f}}).Hides({-5.0f, 5.0f, -5.0f, 5.0f}));
}

TEST(OccludersTest, WhatIsNoRectangleNeitherHidesNorIsHidden) {
  const float none = std::numeric_limits<float>::quiet_NaN();
  const float endless = std::numeric_limits<float>::infinity();
  const ScreenBox inside{-0.1f, 0.1f, -0.1f, 0.1f};
  EXPECT_FALSE(Made({{none, 1.0f, -1.0f, 1.0f}}).Hides(inside));
  EXPECT_FALSE(Made({{-endless, endless, -1.0f, 1.0f}}).Hides(inside));
  EXPECT_FALSE(Made({{1.0f, -1.0f, -1.0f, 1.0f}}).Hides(inside));
  const Occluders whole = Made({{-1.0f, 1.0f, -1.0f, 1.0f}, {none, none, none, none}});
  EXPECT_TRUE(whole.Hides(inside));
  EXPECT_FALSE(whole.Hides({none, 0.1f, -0.1f, 0.1f}));
  EXPECT_FALSE(whole.Hides({-0.1f, endless, -0.1f, 0.1f}));
}

TEST(OccludersTest, OfTooManyDifferentEdgesNothingIsHidden) {
  std::vector<ScreenBox> boxes{{-1.0f, 1.0f, -1.0f, 1.0f}};
  const ScreenBox inside{-0.1f, 0.1f, -0.1f, 0.1f};
  for (int i = 0; i < 79; ++i) boxes.push_back({-1.0f, 0.01f * static_cast<float>(i), -1.0f, 1.0f});
  EXPECT_TRUE(Made(boxes).Hides(inside));
  for (int i = 0; i < 90; ++i)
    boxes.push_back({-1.0f, 0.003f + 0.01f * static_cast<float>(i), 0, 1});
  EXPECT_FALSE(Made(boxes).Hides(inside));
}

TEST(OccludersTest, IsForgottenWhenCleared) {
  Occluders cover = Made({{-1.0f, 1.0f, -1.0f, 1.0f}});
  cover.Clear();
  cover.Build();
  EXPECT_FALSE(cover.Hides({-0.1f, 0.1f, -0.1f, 0.1f}));
}

TEST(OccludersTest, HidesWhatALookAtEachPointSaysIsHidden) {
  ZOVEngine::SeedRand(71);
  int hidden = 0;
  for (int scene = 0; scene < 2000; ++scene) {
    std::vector<ScreenBox> boxes;
    for (int i = ZOVEngine::Rand() % 14; i >= 0; --i) boxes.push_back(RandomBox());
    const Occluders cover = Made(boxes);
    ScreenBox asked = RandomBox();
    asked = {asked.left + 0.01f, asked.right - 0.01f, asked.bottom + 0.01f, asked.top - 0.01f};
    const bool covered = IsCovered(boxes, asked);
    EXPECT_EQ(cover.Hides(asked), covered) << scene;
    hidden += covered ? 1 : 0;
  }
  EXPECT_GT(hidden, 200);
  EXPECT_LT(hidden, 1800);
}

TEST(ScreenMapTest, TheHeightOfAThousandAndEightyFillsTheScreen) {
  const Frame frame = EmptyFrame();
  const ScreenMap map(SceneProjection(), frame.view);
  ScreenBox box;
  ASSERT_TRUE(map.Find({-960, 480, -540, 270}, 0.0f, &box));
  EXPECT_NEAR(box.left, -1.0f, 0.001f);
  EXPECT_NEAR(box.right, 0.5f, 0.001f);
  EXPECT_NEAR(box.bottom, -1.0f, 0.001f);
  EXPECT_NEAR(box.top, 0.5f, 0.001f);
  ScreenBox nearer;
  ASSERT_TRUE(map.Find({-960, 480, -540, 270}, 300.0f, &nearer));
  EXPECT_NEAR(nearer.right, 0.5f * 1303.5f / 1003.5f, 0.001f);
}

TEST(ScreenMapTest, FindsNothingBehindTheEyeBeyondTheFarPlaneAndInATurnedView) {
  Frame frame = EmptyFrame();
  ScreenBox box;
  const ScreenMap map(SceneProjection(), frame.view);
  EXPECT_FALSE(map.Find({-1, 1, -1, 1}, 1304.0f, &box));
  EXPECT_FALSE(map.Find({-1, 1, -1, 1}, -1800.0f, &box));
  EXPECT_FALSE(ScreenMap().Find({-1, 1, -1, 1}, 0.0f, &box));
  const ScreenMap turned(SceneProjection(), frame.view * Matrix4x4::Rotation(10.0f));
  EXPECT_FALSE(turned.Find({-1, 1, -1, 1}, 0.0f, &box));
}

}  // namespace carapace_test
