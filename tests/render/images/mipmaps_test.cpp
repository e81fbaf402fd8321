#include "render/images/mipmaps.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <utility>
#include <vector>

namespace carapace_test {
namespace {

using namespace ZOVEngine;
using ::testing::ElementsAre;
using ::testing::Pair;

/// An image of one value for each pixel; the other channels follow from the first.
Image Gray(int width, int height, const std::vector<int>& values) {
  Image image;
  image.width = width;
  image.height = height;
  for (const int value : values) {
    for (int channel = 0; channel < 4; ++channel) {
      image.pixels.push_back(static_cast<std::uint8_t>(value + channel));
    }
  }
  return image;
}

std::vector<std::pair<int, int>> Sizes(int width, int height) {
  Image image = Gray(width, height, std::vector<int>(static_cast<std::size_t>(width * height)));
  MakeMipmaps(&image);
  std::vector<std::pair<int, int>> sizes;
  for (const MipmapLevel& level : ListMipmaps(image)) sizes.emplace_back(level.width, level.height);
  return sizes;
}

/// The values of a level, after a look at the other channels.
std::vector<int> Values(const MipmapLevel& level) {
  std::vector<int> values;
  for (int i = 0; i < level.width * level.height; ++i) {
    values.push_back(level.pixels[4 * i]);
    for (int channel = 0; channel < 4; ++channel) {
      EXPECT_EQ(level.pixels[4 * i + channel], values.back() + channel);
    }
  }
  return values;
}

std::vector<int> FirstLevel(Image image) {
  MakeMipmaps(&image);
  return Values(ListMipmaps(image).at(0));
}

TEST(Mipmaps, EachLevelHalvesTheOneBeforeDownToAPixel) {
  EXPECT_THAT(Sizes(8, 4), ElementsAre(Pair(4, 2), Pair(2, 1), Pair(1, 1)));
  EXPECT_THAT(Sizes(5, 3), ElementsAre(Pair(2, 1), Pair(1, 1)));
  EXPECT_THAT(Sizes(1, 6), ElementsAre(Pair(1, 3), Pair(1, 1)));
}

TEST(Mipmaps, APixelIsTheRoundedMeanOfFour) {
  EXPECT_THAT(FirstLevel(Gray(4, 2,
                              {0, 1, 100, 200,  //
                               1, 1, 250, 250})),
              ElementsAre(1, 200));
}

TEST(Mipmaps, InAnOddRowTheNeighboursCountByTheirDistance) {
  EXPECT_THAT(FirstLevel(Gray(3, 1, {0, 90, 200})), ElementsAre(90));
  // The middles lie at 3/4 and at 3 1/4.
  EXPECT_THAT(FirstLevel(Gray(5, 1, {0, 100, 0, 40, 80})), ElementsAre(75, 50));
}

TEST(Mipmaps, InAnOddColumnToo) {
  EXPECT_THAT(FirstLevel(Gray(1, 5, {0, 100, 0, 40, 80})), ElementsAre(75, 50));
}

TEST(Mipmaps, ALevelIsMadeOfTheOneBefore) {
  Image image = Gray(4, 1, {0, 100, 50, 150});
  MakeMipmaps(&image);
  EXPECT_THAT(Values(ListMipmaps(image).at(0)), ElementsAre(50, 100));
  EXPECT_THAT(Values(ListMipmaps(image).at(1)), ElementsAre(75));
}

TEST(Mipmaps, FullAndEmptyStayWhatTheyAre) {
  Image white = Gray(7, 5, std::vector<int>(35, 252));
  MakeMipmaps(&white);
  for (const MipmapLevel& level : ListMipmaps(white)) {
    for (const int value : Values(level)) EXPECT_EQ(value, 252);
  }
}

TEST(Mipmaps, APixelAndAnImageWithoutPixelsHaveNone) {
  Image pixel = Gray(1, 1, {7});
  Image none;
  for (Image* image : {&pixel, &none}) {
    image->mipmaps = {1, 2, 3, 4};  // of another image
    MakeMipmaps(image);
    EXPECT_TRUE(image->mipmaps.empty());
    EXPECT_TRUE(ListMipmaps(*image).empty());
  }
}

}  // namespace
}  // namespace carapace_test
