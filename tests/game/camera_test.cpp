#include "game/camera.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/reports.h"

namespace ZOVEngine {
namespace {

using carapace_test::ReadRecord;
using ::testing::Each;

TEST(Camera, ANewCameraIsInactiveAndStill) {
  const Camera camera(nullptr);
  EXPECT_FALSE(camera.m_active);
  EXPECT_FALSE(camera.m_init);
  EXPECT_EQ(camera.m_elapsed, 0.0f);
  EXPECT_EQ(camera.m_offset, Vector3D(0, 0, 0));
  EXPECT_FALSE(camera.m_shaking);
  EXPECT_EQ(camera.m_shake_duration, 0.0f);
  EXPECT_EQ(camera.m_shakemag, 1.0f);
  EXPECT_EQ(camera.m_xlimit, 1);
  EXPECT_EQ(camera.m_ylimit, 1);
  EXPECT_THAT(camera.m_at_limit, Each(false));
}

TEST(Camera, ReadsItsFourFields) {
  Camera camera(nullptr);
  ReadRecord(R"({"m_offset": [1, 2, 3], "m_shakemag": 4.5, "m_xlimit": -6, "m_ylimit": 7})",
             camera);
  EXPECT_EQ(camera.m_offset, Vector3D(1, 2, 3));
  EXPECT_EQ(camera.m_shakemag, 4.5f);
  EXPECT_EQ(camera.m_xlimit, -6);
  EXPECT_EQ(camera.m_ylimit, 7);
  EXPECT_FALSE(camera.m_active) << "a file does not switch a camera on";
}

}  // namespace
}  // namespace ZOVEngine
