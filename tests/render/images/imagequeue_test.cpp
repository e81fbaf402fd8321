#include "render/images/imagequeue.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace carapace_test {
namespace {

using namespace ZOVEngine;

const std::string kTextures = CARAPACE_SOURCE_DIR "/Resources/Textures/";
const std::string kWall = kTextures + "Tile_Wall.png";
const std::string kGlow = kTextures + "Particle_Glow.png";
const std::string kNone = kTextures + "no such picture.png";

TEST(ImageQueue, ThePicturesComeInTheOrderOfTheList) {
  ImageQueue queue({kWall, kNone, kGlow});
  const auto wall = queue.Take();
  const auto none = queue.Take();
  const auto glow = queue.Take();
  ASSERT_TRUE(wall && glow);
  EXPECT_FALSE(none);
  EXPECT_EQ(wall->pixels, LoadImage(kWall)->pixels);
  EXPECT_EQ(glow->pixels, LoadImage(kGlow)->pixels);
  EXPECT_EQ(glow->width, LoadImage(kGlow)->width);
}

TEST(ImageQueue, MoreThanItsPlacesComeThrough) {
  ImageQueue queue(std::vector<std::string>(3 * ImageQueue::kMostAhead, kGlow));
  for (int i = 0; i < 3 * ImageQueue::kMostAhead; ++i) EXPECT_TRUE(queue.Take());
}

TEST(ImageQueue, WhatNobodyTakesIsLeft) {
  { ImageQueue queue(std::vector<std::string>(3 * ImageQueue::kMostAhead, kGlow)); }
  { ImageQueue queue({}); }
  ImageQueue queue({kNone, kGlow});
  EXPECT_FALSE(queue.Take());
}

}  // namespace
}  // namespace carapace_test
