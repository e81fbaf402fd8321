#include "render/gl/gltextures.h"

#include <gtest/gtest.h>

namespace carapace_test {

using ZOVEngine::TextureUnits;

TEST(TextureUnitsTest, EightTexturesFitIntoARunAndANinthDoesNot) {
  TextureUnits units;
  units.StartFrame();
  units.StartRun();
  unsigned seen = 0;
  for (GLuint texture = 10; texture < 18; ++texture) seen |= 1u << units.Take(texture);
  EXPECT_EQ(seen, 255u);
  EXPECT_EQ(units.UsedCount(), 8);
  EXPECT_EQ(units.Take(18), -1);
  EXPECT_EQ(units.Take(12), 2);
}

TEST(TextureUnitsTest, WhatIsOnAUnitIsNotBoundAgain) {
  TextureUnits units;
  units.StartRun();
  const int unit = units.Take(5);
  EXPECT_EQ(units.Binds().size(), 1u);
  units.StartFrame();
  units.StartRun();
  EXPECT_EQ(units.Take(5), unit);
  EXPECT_TRUE(units.Binds().empty());
}

TEST(TextureUnitsTest, TextureZeroIsOnEveryUnitFromTheStart) {
  TextureUnits units;
  units.StartRun();
  EXPECT_GE(units.Take(0), 0);
  EXPECT_TRUE(units.Binds().empty());
}

TEST(TextureUnitsTest, OnlyWhatWasNotedAsOpaqueLastIsOpaque) {
  TextureUnits units;
  EXPECT_FALSE(units.IsOpaque(0));
  units.NoteOpaque(7, true);
  EXPECT_TRUE(units.IsOpaque(7));
  EXPECT_FALSE(units.IsOpaque(6));
  EXPECT_FALSE(units.IsOpaque(8));
  units.NoteOpaque(7, false);
  EXPECT_FALSE(units.IsOpaque(7));
  units.NoteOpaque(4000000000u, true);
  EXPECT_FALSE(units.IsOpaque(4000000000u));
}

TEST(TextureUnitsTest, TheLeastRecentlyUsedTextureGivesWay) {
  TextureUnits units;
  units.StartRun();
  for (GLuint texture = 1; texture <= 8; ++texture) units.Take(texture);
  units.StartRun();
  const int kept = units.Take(1);
  units.StartRun();
  EXPECT_EQ(units.Take(9), 1);
  EXPECT_EQ(units.Take(1), kept);
}

TEST(TextureUnitsTest, ATextureOfTheSameShapeGivesWayFirst) {
  TextureUnits units;
  for (GLuint texture = 1; texture <= 9; ++texture) {
    units.NoteSize(texture, texture == 6 || texture == 9 ? 100 : 64, 64);
  }
  units.StartRun();
  for (GLuint texture = 1; texture <= 8; ++texture) units.Take(texture);
  units.StartRun();
  EXPECT_EQ(units.Take(9), 5);
}

TEST(TextureUnitsTest, AUnitCanBeTakenByNumber) {
  TextureUnits units;
  units.StartRun();
  units.TakeUnit(0, 42);
  ASSERT_EQ(units.Binds().size(), 1u);
  EXPECT_EQ(units.Binds()[0].unit, 0);
  EXPECT_EQ(units.Binds()[0].texture, 42u);
  EXPECT_EQ(units.Take(42), 0);
}

TEST(TextureUnits, KnowWhatWasOnThemAtTheStartOfTheFrame) {
  TextureUnits units;
  units.StartFrame();
  units.TakeUnit(2, 7);
  EXPECT_EQ(units.AtStart()[2], 0u);
  units.StartFrame();
  units.TakeUnit(2, 9);
  EXPECT_EQ(units.AtStart()[2], 7u);
}

}  // namespace carapace_test
