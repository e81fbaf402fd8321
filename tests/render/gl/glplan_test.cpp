#include "render/gl/glplan.h"

#include <gtest/gtest.h>

namespace carapace_test {

using ZOVEngine::Stream;

TEST(StreamTest, GrabbedRecordsFollowEachOther) {
  Stream<int> stream;
  int* first = stream.Grab(2);
  first[0] = 1;
  first[1] = 2;
  *stream.Grab(1) = 3;
  ASSERT_EQ(stream.Size(), 3u);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(stream.Data()[i], i + 1);
  EXPECT_EQ(stream.Bytes(), 3 * sizeof(int));
}

TEST(StreamTest, GrowingKeepsWhatWasWritten) {
  Stream<int> stream;
  for (int i = 0; i < 10000; ++i) *stream.Grab(1) = i;
  for (int i = 0; i < 10000; ++i) ASSERT_EQ(stream.Data()[i], i);
}

TEST(StreamTest, DroppedRecordsAreOverwrittenByTheNextOnes) {
  Stream<int> stream;
  *stream.Grab(1) = 1;
  stream.Grab(5);
  stream.Drop(5);
  EXPECT_EQ(stream.Size(), 1u);
  *stream.Grab(1) = 2;
  EXPECT_EQ(stream.Data()[1], 2);
}

TEST(StreamTest, ClearedItKeepsItsMemory) {
  Stream<int> stream;
  stream.Grab(1000);
  const int* before = stream.Data();
  stream.Clear();
  EXPECT_EQ(stream.Size(), 0u);
  EXPECT_EQ(stream.Grab(1000), before);
}

}  // namespace carapace_test
