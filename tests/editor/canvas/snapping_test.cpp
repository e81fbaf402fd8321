#include "editor/canvas/snapping.h"

#include <gtest/gtest.h>

namespace ZOVEngine {
namespace {

TEST(SnapGrid, PositionsGoToHalfTilesAndKeepTheirDepth) {
  const Vector3D place = SnapGrid(60.0f).Position(Vector3D(44.0f, -46.0f, 0.3f));
  EXPECT_EQ(place, Vector3D(30.0f, -60.0f, 0.3f));
}

TEST(SnapGrid, AnOddTileHasHalvesToo) {
  EXPECT_EQ(SnapGrid(45.0f).Position(Vector3D(20.0f, 0.0f, 0.0f)).x, 22.5f);
}

TEST(SnapGrid, WithoutTilesPositionsAreFree) {
  EXPECT_EQ(SnapGrid(0.0f).Position(Vector3D(7.0f, 8.0f, 0.0f)), Vector3D(7.0f, 8.0f, 0.0f));
}

TEST(SnapGrid, AnglesGoToFifteenDegreesAndFactorsToTenths) {
  const SnapGrid grid(60.0f);
  EXPECT_EQ(grid.Angle(-38.0f), -45.0f);
  EXPECT_FLOAT_EQ(grid.Factor(1.26f), 1.3f);
}

TEST(SnapGrid, AFactorIsATenthAtLeast) {
  EXPECT_FLOAT_EQ(SnapGrid(60.0f).Factor(0.0f), 0.1f);
  EXPECT_FLOAT_EQ(SnapGrid().Factor(-3.0f), 0.1f);
}

TEST(SnapGrid, TheFreeHandSnapsNothing) {
  const SnapGrid hand;
  EXPECT_EQ(hand.Position(Vector3D(1.25f, 2.5f, 0.0f)), Vector3D(1.25f, 2.5f, 0.0f));
  EXPECT_EQ(hand.Angle(7.5f), 7.5f);
  EXPECT_EQ(hand.Factor(1.26f), 1.26f);
}

}  // namespace
}  // namespace ZOVEngine
