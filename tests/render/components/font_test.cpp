#include "render/components/font.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/inspected.h"
#include "support/reports.h"

namespace ZOVEngine {
namespace {

using carapace_test::InspectedFields;
using carapace_test::OutputOf;
using carapace_test::ReadRecord;
using carapace_test::ReportOf;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

TEST(Font, ANewOneSaysTextInWhite) {
  const Font font(nullptr);
  EXPECT_EQ(font.m_text, "text");
  EXPECT_THAT(font.m_colour, Each(1.0f));
}

TEST(Font, BytesOfATextAreKeptAsTheyAre) {
  Font font(nullptr);
  ReadRecord(
      "{\"m_text\": \"K\xC3\xA4"
      "fer\\n2\", \"m_colour\": [1, 0.5, 0.25, 0]}",
      font);
  EXPECT_EQ(font.m_text,
            "K\xC3\xA4"
            "fer\n2");
  EXPECT_THAT(font.m_colour, ElementsAre(1.0f, 0.5f, 0.25f, 0.0f));
}

TEST(Font, AColourOfThreeIsReported) {
  Font font(nullptr);
  EXPECT_THAT(ReportOf([&] { ReadRecord(R"({"m_text": "", "m_colour": [1, 1, 1]})", font); }),
              HasSubstr("key \"m_colour\": expected an array of 4 numbers"));
}

TEST(Font, TheInspectorShowsTheText) {
  EXPECT_THAT(InspectedFields("Font"), ElementsAre("m_text|std::string|Text"));
}

}  // namespace
}  // namespace ZOVEngine
