#include "render/gl/gllights.h"

#include <gtest/gtest.h>

#include <cmath>

#include "glscene.h"
#include "render/gl/glcells.h"

namespace carapace_test {

namespace {

using ZOVEngine::LightClass;
using ZOVEngine::LightField;
using ZOVEngine::NearLights;
using ZOVEngine::StreamVertex;

constexpr float kReach = 300.0f;

std::uint32_t LampAt(const NearLights& near, int i) {
  return near.packed[i / 4] >> (8 * (i % 4)) & 255u;
}

LightField FieldOf(const std::vector<ZOVEngine::LightRecord>& lights, float reach = kReach) {
  LightField field;
  field.Gather(lights, reach);
  return field;
}

std::vector<ZOVEngine::LightRecord> Crowd(int count) {
  std::vector<ZOVEngine::LightRecord> lights;
  for (int i = 0; i < count; ++i) lights.push_back(LightAt(0, 0));
  return lights;
}

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

}  // namespace

TEST(GLLights, ALightIsNearUpToItsReach) {
  const LightField field = FieldOf({LightAt(0, 0)});
  EXPECT_EQ(field.Near({299, 400, -10, 10}).count, 1);
  EXPECT_EQ(field.Near({301, 400, -10, 10}).count, 0);
  EXPECT_EQ(field.Near({-50, 50, -10, 10}).count, 1);
  EXPECT_EQ(field.Near({220, 400, 220, 400}).count, 0);
  EXPECT_EQ(field.Near({210, 400, 210, 400}).count, 1);
}

TEST(GLLights, ShortListsAreFilledWithTheDarkLamp) {
  const LightField field = FieldOf({LightAt(5000, 0), LightAt(0, 0)});
  const NearLights near = field.Near({-1, 1, -1, 1});
  EXPECT_EQ(LampAt(near, 0), 1u);
  for (int i = 1; i < ZOVEngine::kNearLamps; ++i) {
    EXPECT_EQ(LampAt(near, i), static_cast<std::uint32_t>(ZOVEngine::kMaxLights));
  }
}

TEST(GLLights, ClassesHoldAllThatReach) {
  const LightClass kExpected[] = {LightClass::kNone,  LightClass::kTwo,   LightClass::kTwo,
                                  LightClass::kFour,  LightClass::kFour,  LightClass::kEight,
                                  LightClass::kEight, LightClass::kEight, LightClass::kEight,
                                  LightClass::kEvery};
  for (int i = 0; i < 10; ++i) {
    EXPECT_EQ(FieldOf(Crowd(i)).Near({-1, 1, -1, 1}).Class(), kExpected[i]) << i;
  }
}

TEST(GLLights, LightsBeyondTheSixtyFourthAreNotSeen) {
  EXPECT_EQ(FieldOf(Crowd(70)).Size(), 64);
  EXPECT_EQ(FieldOf(Crowd(70)).Near({-1, 1, -1, 1}).count, 64);
}

TEST(GLLights, WithoutAKnownReachEveryLightIsNearEverything) {
  EXPECT_EQ(FieldOf(Crowd(3), 0.0f).Near({9000, 9001, 0, 1}).count, 3);
}

TEST(GLLights, LampsCarryColoursTimesStrengths) {
  std::vector<float> lamps;
  ZOVEngine::PackLamps({LightAt(10, 20)}, &lamps);
  ASSERT_EQ(lamps.size(), 12u);
  const float kExpected[] = {
      10, 20, 1, 0.5f * 0.6f * 0.5f, 0.12f, 0.08f, 0.04f, 0.24f, 0.72f, 0.56f, 0.4f, 0.3f};
  for (std::size_t i = 0; i < 12; ++i) EXPECT_NEAR(lamps[i], kExpected[i], 1e-6f) << i;
}

TEST(GLLights, SmallAndTurnedQuadsAreNotCut) {
  StreamVertex quad[4];
  UprightQuad(100, 100, quad);
  EXPECT_FALSE(ZOVEngine::CellCutter::CanCut(quad));
  UprightQuad(1000, 30, quad);
  EXPECT_TRUE(ZOVEngine::CellCutter::CanCut(quad));
  quad[0].place[0] += 40.0f;
  EXPECT_FALSE(ZOVEngine::CellCutter::CanCut(quad));
  UprightQuad(1000, 0, quad);
  EXPECT_FALSE(ZOVEngine::CellCutter::CanCut(quad));
  UprightQuad(1000, 1000, quad);
  quad[2].uv[0] = 0.7f;
  EXPECT_FALSE(ZOVEngine::CellCutter::CanCut(quad));
}

TEST(GLLights, CellsCoverTheQuadOnceAndNameAllLampsThatReachThem) {
  ZOVEngine::SeedRand(31);
  ZOVEngine::Frame frame;
  AddRandomLights(&frame, 14);
  LightField field = FieldOf(frame.lights);
  StreamVertex quad[4];
  UprightQuad(9600, 5400, quad);
  ZOVEngine::CellCutter cutter;
  const auto& cells = cutter.Cut(quad, &field);
  EXPECT_GT(cells.size(), 100u);
  float area = 0.0f;
  for (const ZOVEngine::LitCell& cell : cells) area += (cell.s1 - cell.s0) * (cell.t1 - cell.t0);
  EXPECT_NEAR(area, 1.0f, 1e-4f);
  for (int i = 0; i < 4000; ++i) {
    const float x = RandomFloat(-1500, 1500);
    const float y = RandomFloat(-1000, 1000);
    const float s = 0.5f - y / 5400.0f;
    const float t = 0.5f - x / 9600.0f;
    int holders = 0;
    for (const ZOVEngine::LitCell& cell : cells) {
      if (s < cell.s0 || s >= cell.s1 || t < cell.t0 || t >= cell.t1) continue;
      ++holders;
      ASSERT_LE(cell.near.count, ZOVEngine::kNearLamps);
      for (std::size_t lamp = 0; lamp < frame.lights.size(); ++lamp) {
        if (Distance(frame.lights[lamp], x, y) > kReach - 0.1f) continue;
        bool listed = false;
        for (int k = 0; k < cell.near.count; ++k) listed |= LampAt(cell.near, k) == lamp;
        EXPECT_TRUE(listed) << x << ' ' << y;
      }
    }
    EXPECT_EQ(holders, 1) << x << ' ' << y;
  }
}

TEST(GLLights, NeighbouringCellsShareTheirEdgesExactly) {
  LightField field = FieldOf({LightAt(13, -7), LightAt(600, 300)});
  StreamVertex quad[4];
  UprightQuad(1923.7f, 1081.3f, quad);
  ZOVEngine::CellCutter cutter;
  for (const ZOVEngine::LitCell& cell : cutter.Cut(quad, &field)) {
    StreamVertex corners[4];
    ZOVEngine::PlaceCell(quad, cell, corners);
    EXPECT_EQ(corners[0].place[0], corners[1].place[0]);
    EXPECT_EQ(corners[2].place[0], corners[3].place[0]);
    EXPECT_EQ(corners[1].place[1], corners[2].place[1]);
    EXPECT_EQ(corners[3].place[1], corners[0].place[1]);
  }
}

}  // namespace carapace_test
