#include "render/images/imagequeue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "render/images/mipmaps.h"

namespace carapace_test {
namespace {

using namespace ZOVEngine;

const std::string kTextures = CARAPACE_SOURCE_DIR "/Resources/Textures/";
const std::string kWall = kTextures + "Tile_Wall.png";
const std::string kGlow = kTextures + "Particle_Glow.png";
const std::string kNone = kTextures + "no such image.png";

TEST(ImageQueue, AnImageIsTakenByItsPositionInAnyOrder) {
  ImageQueue queue({kWall, kNone, kGlow});
  const auto glow = queue.Take(2);
  const auto wall = queue.Take(0);
  ASSERT_TRUE(wall && glow);
  EXPECT_FALSE(queue.Take(1));
  EXPECT_EQ(wall->pixels, LoadImage(kWall)->pixels);
  EXPECT_EQ(glow->pixels, LoadImage(kGlow)->pixels);
  EXPECT_EQ(glow->width, LoadImage(kGlow)->width);
}

/// The position of a decoded image, for which this waits.
std::size_t WaitForDecoded(const ImageQueue& queue) {
  std::optional<std::size_t> found;
  while (!(found = queue.FindDecoded())) std::this_thread::yield();
  return *found;
}

TEST(ImageQueue, TheWorkerBeginsWithTheFirstAndGoesOnInTheOrderOfTheList) {
  ImageQueue queue({kGlow, kGlow, kGlow, kGlow}, {2, 9, 1});
  for (const std::size_t position : {2u, 1u, 0u, 3u}) {
    EXPECT_EQ(WaitForDecoded(queue), position);
    EXPECT_TRUE(queue.Take(position));
  }
  EXPECT_FALSE(queue.FindDecoded());
}

TEST(ImageQueue, AnImageComesWithItsMipmaps) {
  std::optional<Image> expected = LoadImage(kGlow);
  MakeMipmaps(&*expected);
  ImageQueue queue({kGlow});
  EXPECT_EQ(queue.Take(0)->mipmaps, expected->mipmaps);
  EXPECT_FALSE(expected->mipmaps.empty());
}

TEST(ImageQueue, AnEmptyPathIsNeverDecoded) {
  ImageQueue queue({"", kGlow, ""}, {0});
  EXPECT_EQ(WaitForDecoded(queue), 1u);
  EXPECT_TRUE(queue.Take(1));
  EXPECT_FALSE(queue.FindDecoded());
}

TEST(ImageQueue, PreferredImagesComeNextInTheOrderInWhichTheyWereAskedFor) {
  constexpr std::size_t kCount = ImageQueue::kMostAhead + 10;
  ImageQueue queue(std::vector<std::string>(kCount, kGlow));
  // The worker waits for a place with the last ten still to come.
  while (queue.FindDecoded() != 0u) std::this_thread::yield();
  for (const std::size_t position : {kCount - 1, kCount, kCount - 3, kCount - 1}) {
    queue.Prefer(position);
  }
  std::vector<std::size_t> order;
  for (std::size_t i = 0; i < kCount; ++i) {
    order.push_back(WaitForDecoded(queue));
    EXPECT_TRUE(queue.Take(order.back()));
  }
  const auto place = [&order](std::size_t position) {
    return std::find(order.begin(), order.end(), position) - order.begin();
  };
  EXPECT_LT(place(kCount - 1), place(kCount - 3));
  EXPECT_LT(place(kCount - 3), place(kCount - 4));
}

TEST(ImageQueue, AnImageBeyondThePlacesIsDecodedByTheConsumer) {
  constexpr std::size_t kCount = ImageQueue::kMostAhead + 10;
  ImageQueue queue(std::vector<std::string>(kCount, kGlow));
  EXPECT_TRUE(queue.Take(kCount - 1)) << "though the worker waits for a place before";
}

TEST(ImageQueue, MoreThanItsPlacesComeThrough) {
  constexpr std::size_t kCount = 3 * ImageQueue::kMostAhead;
  ImageQueue queue(std::vector<std::string>(kCount, kGlow));
  for (std::size_t i = 0; i < kCount; ++i) EXPECT_TRUE(queue.Take(i));
}

TEST(ImageQueue, WhatNobodyTakesIsLeft) {
  { ImageQueue queue(std::vector<std::string>(3 * ImageQueue::kMostAhead, kGlow)); }
  { ImageQueue queue({}); }
  ImageQueue queue({kNone, kGlow});
  EXPECT_FALSE(queue.Take(0));
}

}  // namespace
}  // namespace carapace_test
