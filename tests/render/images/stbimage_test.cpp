#include "render/images/stbimage.h"

#include <gtest/gtest.h>

#include "render/images/image.h"
#include "render/picturefiles.h"

namespace carapace_test {
namespace {

using namespace ZOVEngine;

std::vector<std::uint8_t> Bytes(const std::string& file) {
  return {file.begin(), file.end()};
}

/// An image of this size whose pixels, if there are any, are black.
std::vector<std::uint8_t> Sized(int width, int height, std::size_t pixels) {
  return Bytes(TgaFile(width, height, std::vector<std::uint8_t>(4 * pixels)));
}

TEST(StbImage, TheHeaderTellsTheSize) {
  ImageSize size;
  ASSERT_TRUE(ProbeImage(Sized(300, 7, 0), &size));
  EXPECT_EQ(size.width, 300);
  EXPECT_EQ(size.height, 7);
}

TEST(StbImage, SidesUpToTheLimitAreAccepted) {
  ImageSize size;
  EXPECT_TRUE(ProbeImage(Sized(kMaxImageSide, 1, 0), &size));
  EXPECT_TRUE(ProbeImage(Sized(1, kMaxImageSide, 0), &size));
  EXPECT_FALSE(ProbeImage(Sized(kMaxImageSide + 1, 1, 0), &size));
  EXPECT_FALSE(ProbeImage(Sized(1, kMaxImageSide + 1, 0), &size));
  EXPECT_FALSE(ProbeImage(Sized(0, 1, 0), &size));
}

TEST(StbImage, GarbageIsNoImage) {
  ImageSize size;
  std::vector<std::uint8_t> rgba;
  EXPECT_FALSE(ProbeImage(Bytes("no image at all"), &size));
  EXPECT_FALSE(DecodeImage(Bytes("no image at all"), &size, &rgba));
  EXPECT_TRUE(rgba.empty());
}

TEST(StbImage, PixelsAreRedGreenBlueAlpha) {
  ImageSize size;
  std::vector<std::uint8_t> rgba;
  ASSERT_TRUE(DecodeImage(Bytes(OnePixel(10, 20, 30)), &size, &rgba));
  EXPECT_EQ(rgba, (std::vector<std::uint8_t>{10, 20, 30, 255}));
  EXPECT_EQ(size.width, 1);
  EXPECT_EQ(size.height, 1);
}

}  // namespace
}  // namespace carapace_test
