#include "objects/jsontrail.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "jsonunserializer.h"
#include "support/reports.h"

namespace ZOVEngine {
namespace {

using carapace_test::ReportOf;
using ::testing::HasSubstr;

TEST(JsonTrail, OutsideOfAnyFileThereIsNoPlace) {
  EXPECT_EQ(JsonTrail::Describe(), "");
}

TEST(JsonTrail, ThePlaceIsFileObjectComponentAndKey) {
  const JsonTrail::FileScope file("Units.json");
  EXPECT_EQ(JsonTrail::Describe(), "Units.json");
  const JsonTrail::ObjectScope object("start");
  JsonTrail::EnterComponent("Render");
  JsonTrail::EnterKey("m_tex");
  EXPECT_EQ(JsonTrail::Describe(),
            "Units.json: object \"start\": component \"Render\": key \"m_tex\"");
}

TEST(JsonTrail, AnInnerObjectGivesItsParentBack) {
  const JsonTrail::FileScope file("Units.json");
  const JsonTrail::ObjectScope outer("outer");
  JsonTrail::EnterComponent("Render");
  JsonTrail::EnterKey("m_tex");
  {
    const JsonTrail::ObjectScope inner("inner");
    EXPECT_EQ(JsonTrail::Describe(), "Units.json: object \"inner\"");
  }
  EXPECT_EQ(JsonTrail::Describe(), "Units.json: object \"outer\"");
}

TEST(JsonTrail, AFileReadFromWithinAnotherGivesThePlaceBack) {
  const JsonTrail::FileScope outer("Level.json");
  {
    const JsonTrail::FileScope inner("Units.json");
    const JsonTrail::ObjectScope object("beetle");
    EXPECT_EQ(JsonTrail::Describe(), "Units.json: object \"beetle\"");
  }
  EXPECT_EQ(JsonTrail::Describe(), "Level.json");
}

TEST(JsonTrail, ANewComponentForgetsTheKey) {
  const JsonTrail::FileScope file("Units.json");
  JsonTrail::EnterComponent("Render");
  JsonTrail::EnterKey("m_tex");
  JsonTrail::EnterComponent("Light");
  EXPECT_EQ(JsonTrail::Describe(), "Units.json: component \"Light\"");
}

TEST(JsonTrail, AReportQuotesThePlace) {
  const JsonTrail::FileScope file("Units.json");
  EXPECT_THAT(ReportOf([] { FailReading("expected a number"); }),
              HasSubstr("] Units.json: expected a number ("));
  EXPECT_EQ(JsonTrail::Describe(), "Units.json");
}

TEST(JsonTrail, AReportWithoutAPlaceIsTheComplaintAlone) {
  EXPECT_THAT(ReportOf([] { FailReading("expected a number"); }),
              HasSubstr("] expected a number ("));
}

}  // namespace
}  // namespace ZOVEngine
