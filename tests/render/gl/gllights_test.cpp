#include "render/gl/gllights.h"

#include <gtest/gtest.h>

#include "render/gl/lightfields.h"

namespace carapace_test {

using ZOVEngine::LightClass;
using ZOVEngine::LightField;
using ZOVEngine::NearLights;

TEST(LightFieldTest, ALightIsNearUpToItsReach) {
  const LightField field = Field({LightAt(0, 0)});
  EXPECT_EQ(field.Near({299, 400, -10, 10}).count, 1);
  EXPECT_EQ(field.Near({301, 400, -10, 10}).count, 0);
  EXPECT_EQ(field.Near({-50, 50, -10, 10}).count, 1);
  EXPECT_EQ(field.Near({220, 400, 220, 400}).count, 0);
  EXPECT_EQ(field.Near({210, 400, 210, 400}).count, 1);
}

TEST(LightFieldTest, ShortListsAreFilledWithTheDarkLight) {
  const LightField field = Field({LightAt(5000, 0), LightAt(0, 0)});
  const NearLights near = field.Near({-1, 1, -1, 1});
  EXPECT_EQ(LightIn(near, 0), 1u);
  for (int i = 1; i < ZOVEngine::kNearLights; ++i) {
    EXPECT_EQ(LightIn(near, i), static_cast<std::uint32_t>(ZOVEngine::kMaxLights));
  }
}

TEST(LightFieldTest, ClassesHoldAllThatReach) {
  const LightClass kExpected[] = {LightClass::kNone,  LightClass::kTwo,   LightClass::kTwo,
                                  LightClass::kFour,  LightClass::kFour,  LightClass::kEight,
                                  LightClass::kEight, LightClass::kEight, LightClass::kEight,
                                  LightClass::kEvery};
  for (int i = 0; i < 10; ++i) {
    EXPECT_EQ(Field(Crowd(i)).Near({-1, 1, -1, 1}).Class(), kExpected[i]) << i;
  }
}

TEST(LightFieldTest, LightsBeyondTheSixtyFourthAreNotSeen) {
  EXPECT_EQ(Field(Crowd(70)).Size(), 64);
  EXPECT_EQ(Field(Crowd(70)).Near({-1, 1, -1, 1}).count, 64);
}

TEST(LightFieldTest, WithoutAKnownReachEveryLightIsNearEverything) {
  EXPECT_EQ(Field(Crowd(3), 0.0f).Near({9000, 9001, 0, 1}).count, 3);
}

TEST(PackLightsTest, PackedLightsCarryColoursTimesStrengths) {
  std::vector<float> packed;
  ZOVEngine::PackLights({LightAt(10, 20)}, &packed);
  ASSERT_EQ(packed.size(), 12u);
  const float kExpected[] = {
      10, 20, 1, 0.5f * 0.6f * 0.5f, 0.12f, 0.08f, 0.04f, 0.24f, 0.72f, 0.56f, 0.4f, 0.3f};
  for (std::size_t i = 0; i < 12; ++i) EXPECT_NEAR(packed[i], kExpected[i], 1e-6f) << i;
}

}  // namespace carapace_test
