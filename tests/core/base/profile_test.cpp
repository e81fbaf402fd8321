#include "core/base/profile.h"

#include <gtest/gtest.h>

namespace ZOVEngine {
namespace {

TEST(Profile, ARecordIsMadeAtItsFirstUse) {
  ProfileTable().erase("test entry");
  RecordProfile("test entry", 2.5f, true);
  ASSERT_EQ(ProfileTable().count("test entry"), 1u);
  const ProfileRecord& record = ProfileTable()["test entry"];
  EXPECT_EQ(record.name, "test entry");
  EXPECT_EQ(record.value, 2.5f);
  EXPECT_TRUE(record.isSystemTime);
}

TEST(Profile, ALaterRecordOverwritesValueAndFlag) {
  RecordProfile("test entry", 2.5f, true);
  const std::size_t size = ProfileTable().size();
  RecordProfile("test entry", -1.0f, false);
  EXPECT_EQ(ProfileTable().size(), size);
  EXPECT_EQ(ProfileTable()["test entry"].value, -1.0f);
  EXPECT_FALSE(ProfileTable()["test entry"].isSystemTime);
}

TEST(Profile, ElapsedTimeIsSecondsAndSystemTime) {
  constexpr std::int64_t kTwoSeconds = 2'000'000'000;
  RecordElapsed("test elapsed", NowNanoseconds() - kTwoSeconds);
  const ProfileRecord& record = ProfileTable()["test elapsed"];
  EXPECT_TRUE(record.isSystemTime);
  EXPECT_GE(record.value, 2.0f);
  EXPECT_LT(record.value, 60.0f);
}

}  // namespace
}  // namespace ZOVEngine
