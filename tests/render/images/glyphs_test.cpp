#include "render/images/glyphs.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/fakedevice.h"
#include "support/reports.h"
#include "support/tempdirectory.h"

namespace carapace_test {
namespace {

using namespace ZOVEngine;

/// A font of ready-made bitmaps, one bit a pixel, 48 high, that has the one letter A: ten pixels
/// wide, three rows.
constexpr const char* kBitmapFont = R"(STARTFONT 2.1
FONT -test-test-medium-r-normal--48-480-72-72-c-120-iso10646-1
SIZE 48 72 72
FONTBOUNDINGBOX 10 3 1 0
STARTPROPERTIES 4
PIXEL_SIZE 48
POINT_SIZE 480
FONT_ASCENT 40
FONT_DESCENT 8
ENDPROPERTIES
CHARS 1
STARTCHAR A
ENCODING 65
SWIDTH 250 0
DWIDTH 12 0
BBX 10 3 1 0
BITMAP
8040
FFC0
0000
ENDCHAR
ENDFONT
)";

class GlyphTest : public testing::Test {
 protected:
  std::string Load(const std::string& path) {
    return OutputOf([&] {
      GlyphLoader loader;
      loader.Open(path);
      loader.Load(&device, &glyphs);
    });
  }
  std::size_t Count(const std::string& text, const std::string& line) {
    std::size_t count = 0;
    for (std::size_t at = text.find(line); at != std::string::npos;
         at = text.find(line, at + line.size())) {
      ++count;
    }
    return count;
  }

  TempDirectory directory;
  FakeDevice device;
  GlyphMap glyphs;
};

constexpr const char* kFontError = "ERROR: Failed to load font \n";
constexpr const char* kGlyphError = "ERROR: Failed to load glyph\n";

TEST_F(GlyphTest, TheGamesFontGives128GlyphsAndNoError) {
  directory.Write("font.ttf", ShippedFile("Resources/Fonts/Play-Bold.ttf"));
  EXPECT_EQ(Load("font.ttf"), "");
  EXPECT_EQ(glyphs.size(), 128u);
  EXPECT_EQ(device.glyphs.size(), 128u);
}

TEST_F(GlyphTest, ALetterHasTheSizeOfItsBitmapAtFortyEightPixels) {
  directory.Write("font.ttf", ShippedFile("Resources/Fonts/Play-Bold.ttf"));
  Load("font.ttf");
  const Character& h = glyphs.at('H');
  const FakeDevice::Glyph& bitmap = device.glyphs.at(h.TextureID);
  EXPECT_EQ(bitmap.width, h.SizeX);
  EXPECT_EQ(bitmap.height, h.SizeY);
  EXPECT_EQ(h.BearingY, h.SizeY);
  EXPECT_GT(h.SizeY, 24);
  EXPECT_LT(h.SizeY, 48);
  EXPECT_GT(h.Advance >> 6, static_cast<std::uint32_t>(h.SizeX));
}

TEST_F(GlyphTest, TheStemOfALetterIsFullyCovered) {
  directory.Write("font.ttf", ShippedFile("Resources/Fonts/Play-Bold.ttf"));
  Load("font.ttf");
  const FakeDevice::Glyph& bitmap = device.glyphs.at(glyphs.at('l').TextureID);
  EXPECT_EQ(*std::max_element(bitmap.coverage.begin(), bitmap.coverage.end()), 255);
}

TEST_F(GlyphTest, ALetterWithADescenderReachesBelowTheBaseLine) {
  directory.Write("font.ttf", ShippedFile("Resources/Fonts/Play-Bold.ttf"));
  Load("font.ttf");
  EXPECT_GT(glyphs.at('g').SizeY, glyphs.at('g').BearingY);
}

TEST_F(GlyphTest, ASpaceHasAnAdvanceAndNoExtent) {
  directory.Write("font.ttf", ShippedFile("Resources/Fonts/Play-Bold.ttf"));
  Load("font.ttf");
  EXPECT_EQ(glyphs.at(' ').SizeX, 0);
  EXPECT_EQ(glyphs.at(' ').SizeY, 0);
  EXPECT_GT(glyphs.at(' ').Advance, 64u);
}

TEST_F(GlyphTest, AMissingFontPrintsItsLineAndOneForEachCharacter) {
  const std::string output = Load("absent.ttf");
  EXPECT_EQ(Count(output, kFontError), 1u);
  EXPECT_EQ(Count(output, kGlyphError), 128u);
  EXPECT_EQ(output.find(kFontError), 0u);
  EXPECT_TRUE(glyphs.empty());
}

TEST_F(GlyphTest, GarbageIsNoFont) {
  directory.Write("font.ttf", std::string(3000, 'x'));
  EXPECT_EQ(Count(Load("font.ttf"), kFontError), 1u);
}

TEST_F(GlyphTest, AnEmptyFileIsNoFont) {
  directory.Write("font.ttf", "");
  EXPECT_EQ(Count(Load("font.ttf"), kFontError), 1u);
}

TEST_F(GlyphTest, AFolderIsNoFont) {
  EXPECT_EQ(Count(Load("."), kFontError), 1u);
}

TEST_F(GlyphTest, ACutFontNeverCrashesAndCountsItsLosses) {
  const std::string whole = ShippedFile("Resources/Fonts/Play-Bold.ttf");
  for (std::size_t part = 1; part < 16; ++part) {
    glyphs.clear();
    directory.Write("font.ttf", whole.substr(0, whole.size() * part / 16));
    const std::string output = Load("font.ttf");
    EXPECT_EQ(glyphs.size() + Count(output, kGlyphError), 128u) << part;
  }
}

TEST_F(GlyphTest, AFontOfBitmapsIsWidenedToBytes) {
  directory.Write("font.bdf", kBitmapFont);
  Load("font.bdf");
  const Character& a = glyphs.at('A');
  EXPECT_EQ(a.SizeX, 10);
  EXPECT_EQ(a.SizeY, 3);
  EXPECT_EQ(a.BearingX, 1);
  EXPECT_EQ(a.BearingY, 3);
  EXPECT_EQ(a.Advance >> 6, 12u);
  const std::vector<std::uint8_t>& coverage = device.glyphs.at(a.TextureID).coverage;
  ASSERT_EQ(coverage.size(), 30u);
  EXPECT_EQ(coverage[0], 255);
  EXPECT_EQ(coverage[1], 0);
  EXPECT_EQ(coverage[9], 255);
  EXPECT_EQ(std::count(coverage.begin() + 10, coverage.begin() + 20, 255), 10);
  EXPECT_EQ(std::count(coverage.begin() + 20, coverage.end(), 0), 10);
}

}  // namespace
}  // namespace carapace_test
