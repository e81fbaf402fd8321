#include "render/gl/gltileorder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "render/gl/glframes.h"
#include "render/gl/lightfields.h"

namespace carapace_test {
namespace {

using namespace ZOVEngine;
using ::testing::ElementsAre;

constexpr float kSide = 60.0f;

DrawCommand Tile(float column, float row) {
  return QuadCommand(column * kSide, row * kSide, kSide, kSide, 0, Program::kLight);
}

/// The order of `commands`, of which `ground` are the ground, in the light of one lamp at the
/// origin.
std::vector<std::uint32_t> Order(const std::vector<DrawCommand>& commands, std::size_t ground = 0) {
  TileOrder order;
  order.Build(commands, ground, Field({LightAt(0, 0)}));
  return order.Order();
}

TEST(TileOrder, DarkTilesComeBeforeLitOnesAndEachKindInItsOrder) {
  EXPECT_THAT(Order({Tile(0, 0), Tile(20, 0), Tile(1, 0), Tile(21, 0)}), ElementsAre(1, 3, 0, 2));
}

TEST(TileOrder, TheGroundStaysBeforeTheRest) {
  EXPECT_THAT(Order({Tile(0, 0), Tile(20, 0), Tile(1, 0), Tile(21, 0)}, 3),
              ElementsAre(1, 0, 2, 3));
  EXPECT_THAT(Order({Tile(0, 0), Tile(1, 0), Tile(2, 0), Tile(20, 0)}, 2), ElementsAre(0, 1, 3, 2));
}

TEST(TileOrder, TilesInOneCellKeepTheirOrder) {
  EXPECT_THAT(Order({Tile(20, 0), Tile(1, 0), Tile(20, 0), Tile(1, 0)}), ElementsAre(0, 2, 1, 3));
}

TEST(TileOrder, WhatLiesOffTheLatticeStaysWhereItIs) {
  EXPECT_THAT(Order({Tile(0, 0), Tile(20.5f, 0), Tile(1, 0), Tile(20, 0)}),
              ElementsAre(0, 1, 3, 2));
}

TEST(TileOrder, AnotherSizeDepthTurnOrProgramEndsTheTiles) {
  DrawCommand larger = Tile(20, 0);
  larger.placement.scale.x *= 2.0f;
  DrawCommand nearer = Tile(20, 0);
  nearer.placement.translate.z += 1.0f;
  DrawCommand turned = Tile(20, 0);
  turned.placement.rotate_radians = 0.1f;
  DrawCommand unlit = Tile(20, 0);
  unlit.program = Program::kDefault;
  DrawCommand mirrored = Tile(20, 0);
  mirrored.placement.scale.x = -kSide;
  for (const DrawCommand& other : {larger, nearer, turned, unlit, mirrored}) {
    EXPECT_THAT(Order({Tile(0, 0), other, Tile(1, 0)}), ElementsAre(0, 1, 2));
  }
}

TEST(TileOrder, AFrameWithoutCommandsHasNone) {
  EXPECT_THAT(Order({}), ElementsAre());
}

TEST(TileOrder, AShorterFrameLeavesNothingOfALongerOne) {
  TileOrder order;
  const LightField dark = Field({});
  order.Build({Tile(0, 0), Tile(1, 0)}, 0, dark);
  order.Build({Tile(0, 0)}, 0, dark);
  EXPECT_THAT(order.Order(), ElementsAre(0));
}

}  // namespace
}  // namespace carapace_test
