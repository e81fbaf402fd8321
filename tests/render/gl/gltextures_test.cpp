#include "render/gl/gltextures.h"

#include <gtest/gtest.h>

#include <vector>

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
  int unit_of_six = -1;
  for (GLuint texture = 1; texture <= 8; ++texture) {
    const int unit = units.Take(texture);
    if (texture == 6) unit_of_six = unit;
  }
  units.StartRun();
  EXPECT_EQ(units.Take(9), unit_of_six);
}

/// The units that hold a texture of odd sides after one run of these textures; odd numbers have
/// such sides.
unsigned OddUnits(const std::vector<GLuint>& textures) {
  TextureUnits units;
  for (GLuint texture = 0; texture < 20; ++texture) {
    const int side = texture % 2 != 0 ? 100 : 64;
    units.NoteSize(texture, side, side);
  }
  units.StartRun();
  unsigned odd = 0;
  for (const GLuint texture : textures) {
    const int unit = units.Take(texture);
    if (texture % 2 != 0) odd |= 1u << unit;
  }
  return odd;
}

TEST(TextureUnitsTest, InWhateverOrderTexturesComeTheirShapesStandInTheSame) {
  for (const std::vector<GLuint>& textures :
       {std::vector<GLuint>{1, 3, 5, 2, 4}, {2, 1, 4, 3, 5}, {4, 5, 2, 1, 3}}) {
    EXPECT_EQ(OddUnits(textures), 0b111u);
  }
  EXPECT_EQ(OddUnits({2, 4, 6, 8, 10, 12, 14, 1}), 1u);
  EXPECT_EQ(OddUnits({1, 3, 5, 7, 9, 11, 13, 2}), 0b1111111u);
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
