#include "objects/parallellists.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/reports.h"

namespace ZOVEngine {
namespace {

using carapace_test::ReportOf;
using ::testing::HasSubstr;

TEST(ParallelLists, GiveTheEntryOfEachName) {
  const std::vector<int> numbers = {7, 8};
  EXPECT_EQ(EntryBeside("names", numbers, 0, "numbers"), 7);
  EXPECT_EQ(EntryBeside("names", numbers, 1, "numbers"), 8);
  EXPECT_TRUE(EntryBeside("names", std::vector<bool>{true}, 0, "flags"));
}

TEST(ParallelLists, AListShorterThanTheNamesIsReportedByItsKey) {
  const JsonTrail::FileScope file("groups.json");
  EXPECT_THAT(ReportOf([] { EntryBeside("names", std::vector<int>{7}, 1, "numbers"); }),
              HasSubstr("groups.json: key \"numbers\": shorter than \"names\""));
}

TEST(ParallelLists, AReportBehindNamesTheListThatWasReadLast) {
  const JsonTrail::FileScope file("groups.json");
  EntryBeside("names", std::vector<int>{7}, 0, "numbers");
  EXPECT_THAT(ReportOf([] { FailReading("no good"); }), HasSubstr("key \"numbers\": no good"));
}

}  // namespace
}  // namespace ZOVEngine
