#include "render/gl/glcells.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "render/gl/lightfields.h"

namespace carapace_test {

namespace {

using ZOVEngine::CellCutter;
using ZOVEngine::LightField;
using ZOVEngine::LitCell;
using ZOVEngine::StreamVertex;
using ZOVEngine::WorldBox;

/// The corners of an upright quad, upper right first and clockwise.
void UprightQuad(float width, float height, StreamVertex out[4]) {
  const float x[4] = {0.5f, 0.5f, -0.5f, -0.5f};
  const float y[4] = {0.5f, -0.5f, -0.5f, 0.5f};
  for (int i = 0; i < 4; ++i) {
    out[i] = {{x[i] * width, y[i] * height, 0.0f}, {x[i] + 0.5f, 0.5f - y[i]}, {1, 1, 1, 1}, 0, {}};
  }
}

float Distance(const ZOVEngine::LightRecord& light, float x, float y) {
  return std::hypot(light.position.x - x, light.position.y - y);
}

float DistanceToOrigin(const WorldBox& box) {
  return std::hypot(std::clamp(0.0f, box.left, box.right), std::clamp(0.0f, box.bottom, box.top));
}

float Area(const std::vector<LitCell>& cells) {
  float area = 0.0f;
  for (const LitCell& cell : cells) area += (cell.s1 - cell.s0) * (cell.t1 - cell.t0);
  return area;
}

}  // namespace

TEST(BoundsTest, TheBoxHoldsAllVerticesAndTouchesTheOutermost) {
  StreamVertex vertices[3] = {};
  const float kPlaces[3][2] = {{-3, 8}, {5, -2}, {1, 1}};
  for (int i = 0; i < 3; ++i) std::copy_n(kPlaces[i], 2, vertices[i].position);
  const WorldBox box = ZOVEngine::Bounds(vertices, 3);
  EXPECT_EQ(box.left, -3.0f);
  EXPECT_EQ(box.right, 5.0f);
  EXPECT_EQ(box.bottom, -2.0f);
  EXPECT_EQ(box.top, 8.0f);
}

TEST(CellCutterTest, SmallAndTurnedQuadsAreNotCut) {
  StreamVertex quad[4];
  UprightQuad(100, 100, quad);
  EXPECT_FALSE(CellCutter::CanCut(quad));
  UprightQuad(1000, 30, quad);
  EXPECT_TRUE(CellCutter::CanCut(quad));
  quad[0].position[0] += 40.0f;
  EXPECT_FALSE(CellCutter::CanCut(quad));
  UprightQuad(1000, 0, quad);
  EXPECT_FALSE(CellCutter::CanCut(quad));
  UprightQuad(1000, 1000, quad);
  quad[2].uv[0] = 0.7f;
  EXPECT_FALSE(CellCutter::CanCut(quad));
}

TEST(CellCutterTest, CellsCoverTheQuadOnceAndNameAllLightsThatReachThem) {
  ZOVEngine::SeedRand(31);
  ZOVEngine::Frame frame;
  AddRandomLights(&frame, 14);
  LightField field = Field(frame.lights);
  StreamVertex quad[4];
  UprightQuad(9600, 5400, quad);
  CellCutter cutter;
  const auto& cells = cutter.Cut(quad, &field);
  EXPECT_GT(cells.size(), 100u);
  EXPECT_NEAR(Area(cells), 1.0f, 1e-4f);
  for (int i = 0; i < 4000; ++i) {
    const float x = RandomFloat(-1500, 1500);
    const float y = RandomFloat(-1000, 1000);
    const float s = 0.5f - y / 5400.0f;
    const float t = 0.5f - x / 9600.0f;
    int holders = 0;
    for (const LitCell& cell : cells) {
      if (s < cell.s0 || s >= cell.s1 || t < cell.t0 || t >= cell.t1) continue;
      ++holders;
      ASSERT_LE(cell.near.count, ZOVEngine::kNearLights);
      for (std::size_t light = 0; light < frame.lights.size(); ++light) {
        if (Distance(frame.lights[light], x, y) > kReach - 0.1f) continue;
        bool listed = false;
        for (int k = 0; k < cell.near.count; ++k) listed |= LightIn(cell.near, k) == light;
        EXPECT_TRUE(listed) << x << ' ' << y;
      }
    }
    EXPECT_EQ(holders, 1) << x << ' ' << y;
  }
}

TEST(CellCutterTest, NeighbouringCellsShareTheirEdgesExactly) {
  LightField field = Field({LightAt(13, -7), LightAt(600, 300)});
  StreamVertex quad[4];
  UprightQuad(1923.7f, 1081.3f, quad);
  CellCutter cutter;
  for (const LitCell& cell : cutter.Cut(quad, &field)) {
    StreamVertex corners[4];
    ZOVEngine::PlaceCell(quad, cell, corners);
    EXPECT_EQ(corners[0].position[0], corners[1].position[0]);
    EXPECT_EQ(corners[2].position[0], corners[3].position[0]);
    EXPECT_EQ(corners[1].position[1], corners[2].position[1]);
    EXPECT_EQ(corners[3].position[1], corners[0].position[1]);
  }
}

TEST(CellCutterTest, TheGridIsFineWhereLightFallsAndCoarseElsewhere) {
  LightField field = Field({LightAt(0, 0)});
  StreamVertex quad[4];
  UprightQuad(9600, 5400, quad);
  CellCutter cutter;
  int lit = 0;
  const std::vector<LitCell>& cells = cutter.Cut(quad, &field);
  for (const LitCell& cell : cells) {
    StreamVertex corners[4];
    ZOVEngine::PlaceCell(quad, cell, corners);
    // The coarse cells round the lit part touch the light's circle.
    if (DistanceToOrigin(ZOVEngine::Bounds(corners, 4)) > kReach - 0.1f) continue;
    ++lit;
    EXPECT_LE((cell.t1 - cell.t0) * 9600.0f, 80.5f);
  }
  EXPECT_GE(lit, 8) << "600 units in rows of 80";
  EXPECT_LE(cells.size(), 40u) << "the field alone has 67 rows of 80";
}

TEST(CellCutterTest, NeighboursInARowWithTheSameLightsAreJoined) {
  LightField field = Field(Crowd(3), 5000.0f);
  StreamVertex quad[4];
  UprightQuad(800, 800, quad);
  CellCutter cutter;
  const std::vector<LitCell>& cells = cutter.Cut(quad, &field);
  EXPECT_EQ(cells.size(), 10u) << "ten rows of 80 units, each one cell";
  for (const LitCell& cell : cells) {
    EXPECT_EQ(cell.s0, 0.0f);
    EXPECT_EQ(cell.s1, 1.0f);
  }
}

TEST(CellCutterTest, AQuadOfAnySizeHasNoMoreThanFortyEightRows) {
  StreamVertex quad[4];
  CellCutter cutter;
  for (const float side : {1e6f, 1e30f, std::numeric_limits<float>::infinity()}) {
    LightField field = Field(Crowd(1), 1e5f);
    UprightQuad(side, side, quad);
    EXPECT_LE(cutter.Cut(quad, &field).size(), std::size_t{50 * 50}) << side;
  }
}

TEST(CellCutterTest, ACellKeepsTheTintOfItsQuadAndItsShareOfTheTexture) {
  StreamVertex quad[4];
  UprightQuad(200, 100, quad);
  for (StreamVertex& corner : quad) corner.tint[1] = 0.25f;
  StreamVertex placed[4];
  const LitCell cell{0.5f, 1.0f, 0.25f, 0.75f, {}};
  ZOVEngine::PlaceCell(quad, cell, placed);
  // s runs down from the upper right corner, t to the left.
  EXPECT_EQ(placed[0].position[0], 50.0f);
  EXPECT_EQ(placed[0].position[1], 0.0f);
  EXPECT_EQ(placed[2].position[0], -50.0f);
  EXPECT_EQ(placed[2].position[1], -50.0f);
  EXPECT_EQ(placed[0].uv[0], 0.75f);
  EXPECT_EQ(placed[0].uv[1], 0.5f);
  EXPECT_EQ(placed[2].uv[0], 0.25f);
  EXPECT_EQ(placed[2].uv[1], 1.0f);
  for (const StreamVertex& corner : placed) EXPECT_EQ(corner.tint[1], 0.25f);
}

}  // namespace carapace_test
