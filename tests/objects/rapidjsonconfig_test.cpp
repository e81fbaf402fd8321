#include "objects/rapidjsonconfig.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <rapidjson/document.h>

#include <string>

#include "objects/jsontrail.h"
#include "support/reports.h"

namespace ZOVEngine {
namespace {

using carapace_test::ReportOf;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

const rapidjson::Value kNumber(5);

TEST(RapidJsonConfig, AFailedAssertionIsAReportWithTheLibrarysPlace) {
  EXPECT_THAT(
      ReportOf([] { kNumber.GetString(); }),
      AllOf(HasSubstr("] JSON assertion IsString() (document.h, Line "), Not(HasSubstr("/"))));
}

TEST(RapidJsonConfig, TheReportNamesTheFileThatIsBeingRead) {
  const JsonTrail::FileScope file("Units.json");
  EXPECT_THAT(ReportOf([] { kNumber.GetString(); }),
              HasSubstr("] Units.json: JSON assertion IsString() ("));
}

TEST(RapidJsonConfig, AnAssertionThatHoldsReportsNothing) {
  EXPECT_EQ(ReportOf([] { EXPECT_EQ(kNumber.GetInt(), 5); }), "");
}

TEST(RapidJsonConfig, TheLibraryTakesStandardStrings) {
  const std::string key = "with";
  rapidjson::Document document;
  document.Parse(R"({"with": 1})");
  EXPECT_TRUE(document.HasMember(key));
}

}  // namespace
}  // namespace ZOVEngine
