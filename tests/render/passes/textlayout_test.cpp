#include "render/passes/textlayout.h"

#include <gtest/gtest.h>

#include "render/passes/letters.h"

namespace carapace_test {
namespace {

using namespace ZOVEngine;

std::vector<GlyphQuad> LayOut(const std::string& text, GlyphMap* glyphs, float scale = 1.0f) {
  std::vector<GlyphQuad> out;
  LayOutText(text, Vector3D(100.0f, 50.0f, 3.0f), scale, glyphs, &out);
  return out;
}

TEST(TextLayout, PutsAGlyphByItsBearingsUnderAndOverTheBaseLine) {
  GlyphMap glyphs = Letters();
  const std::vector<GlyphQuad> quads = LayOut("a", &glyphs);
  ASSERT_EQ(quads.size(), 1u);
  EXPECT_EQ(quads[0].texture, 71u);
  EXPECT_EQ(quads[0].x, 102.0f);
  EXPECT_EQ(quads[0].y, 45.0f);
  EXPECT_EQ(quads[0].z, 3.0f);
  EXPECT_EQ(quads[0].width, 10.0f);
  EXPECT_EQ(quads[0].height, 20.0f);
}

TEST(TextLayout, TheScaleAppliesToBearingsSizesAndAdvance) {
  GlyphMap glyphs = Letters();
  const std::vector<GlyphQuad> quads = LayOut("aa", &glyphs, 0.5f);
  EXPECT_EQ(quads[0].x, 101.0f);
  EXPECT_EQ(quads[0].y, 47.5f);
  EXPECT_EQ(quads[0].width, 5.0f);
  EXPECT_EQ(quads[0].height, 10.0f);
  EXPECT_EQ(quads[1].x, 107.0f);
}

TEST(TextLayout, ThePenMovesByTheWholePixelsOfTheAdvance) {
  GlyphMap glyphs = Letters();
  const std::vector<GlyphQuad> quads = LayOut("bb", &glyphs);
  EXPECT_EQ(quads[1].x - quads[0].x, 9.0f);
}

TEST(TextLayout, AGlyphWithoutExtentMovesThePenAndShowsNothing) {
  GlyphMap glyphs = Letters();
  const std::vector<GlyphQuad> quads = LayOut(" b", &glyphs);
  ASSERT_EQ(quads.size(), 1u);
  EXPECT_EQ(quads[0].x, 105.0f);
}

TEST(TextLayout, ALineBreakIsAGlyphLikeAnyOther) {
  GlyphMap glyphs = Letters();
  glyphs['\n'] = {74, 0, 0, 0, 0, 7 * 64};
  const std::vector<GlyphQuad> quads = LayOut("b\nb", &glyphs);
  ASSERT_EQ(quads.size(), 2u);
  EXPECT_EQ(quads[1].x - quads[0].x, 16.0f);
  EXPECT_EQ(quads[1].y, quads[0].y);
}

TEST(TextLayout, AnEmptyTextShowsNothing) {
  GlyphMap glyphs = Letters();
  EXPECT_TRUE(LayOut("", &glyphs).empty());
}

TEST(TextLayout, AByteAbove127MovesNothingAndEntersTheMapUnderANegativeKey) {
  GlyphMap glyphs = Letters();
  const std::vector<GlyphQuad> quads = LayOut(
      "b\xc3\xa9"
      "b",
      &glyphs);
  ASSERT_EQ(quads.size(), 2u);
  EXPECT_EQ(quads[1].x - quads[0].x, 9.0f);
  EXPECT_EQ(glyphs.size(), 5u);
  EXPECT_LT(glyphs.begin()->first, 0);
  EXPECT_EQ(glyphs.begin()->second.Advance, 0u);
}

TEST(TextLayout, AnAdvanceWithTheHighestBitIsUnsigned) {
  GlyphMap glyphs;
  glyphs['a'] = {71, 1, 1, 0, 1, 0x80000000u};
  const std::vector<GlyphQuad> quads = LayOut("aa", &glyphs);
  EXPECT_EQ(quads[1].x, 100.0f + 33554432.0f);
}

}  // namespace
}  // namespace carapace_test
