#include "objects/fields.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>

#include "support/reports.h"

namespace ZOVEngine {
namespace {

using testing::ElementsAre;

/// A component with a field of each type that files can hold.
struct Everything {
  template <class Visitor>
  static void Fields(Visitor& visit) {
    visit("flag", &Everything::flag);
    visit("whole", &Everything::whole);
    visit("natural", &Everything::natural);
    visit("real", &Everything::real);
    visit("text", &Everything::text);
    visit("place", &Everything::place);
    visit("pair", &Everything::pair);
    visit("whole_pair", &Everything::whole_pair);
    visit("colour", &Everything::colour);
    visit("range", &Everything::range);
    visit("places", &Everything::places);
  }

  bool flag = false;
  int whole = 0;
  unsigned natural = 0;
  float real = 0.0f;
  std::string text;
  Vector3D place;
  std::array<float, 2> pair = {};
  std::array<int, 2> whole_pair = {};
  std::array<float, 4> colour = {};
  std::array<Vector3D, 2> range = {};
  std::vector<Vector3D> places;
};

constexpr const char* kText =
    R"({"flag": true, "whole": -3, "natural": 4, "real": 0.5, "text": "five", "place": [6, 7, 8],
        "pair": [9, 10], "whole_pair": [-1, 11], "colour": [0.1, 0.2, 0.3, 0.4], "range": [[1, 2, 3], [4, 5, 6]],
        "places": [[7, 8, 9]]})";

/// The text of `component` as a writer puts it.
template <class T>
std::string WrittenText(const T& component) {
  JsonWriter writer;
  writer.Out().json->StartObject();
  WriteFields(writer.Out(), component);
  writer.Out().json->EndObject();
  return writer.Text();
}

template <class T>
T Read(const std::string& text) {
  JsonDocument document;
  document.ParseText(text, "thing.json");
  T component;
  ReadFields(document.Root(), &component);
  return component;
}

/// A component whose file is written in another order than it is read, with a field that is
/// checked.
struct Ordered {
  template <class Visitor>
  static void Fields(Visitor& visit) {
    visit.Checked("first", &Ordered::first, [](int value) {
      if (value < 0) FailReading("expected no negative number");
    });
    visit("second", &Ordered::second);
  }
  template <class Visitor>
  static void Written(Visitor& visit) {
    visit("second", &Ordered::second);
    visit.Checked("first", &Ordered::first, [](int) { FAIL() << "a writer checks nothing"; });
  }

  int first = 0;
  int second = 0;
};

TEST(Fields, OneListReadsEveryType) {
  const Everything read = Read<Everything>(kText);
  EXPECT_TRUE(read.flag);
  EXPECT_EQ(read.whole, -3);
  EXPECT_EQ(read.natural, 4u);
  EXPECT_EQ(read.real, 0.5f);
  EXPECT_EQ(read.text, "five");
  EXPECT_EQ(read.place, Vector3D(6, 7, 8));
  EXPECT_THAT(read.pair, ElementsAre(9.0f, 10.0f));
  EXPECT_THAT(read.whole_pair, ElementsAre(-1, 11));
  EXPECT_THAT(read.colour, ElementsAre(0.1f, 0.2f, 0.3f, 0.4f));
  EXPECT_THAT(read.range, ElementsAre(Vector3D(1, 2, 3), Vector3D(4, 5, 6)));
  EXPECT_THAT(read.places, ElementsAre(Vector3D(7, 8, 9)));
}

TEST(Fields, TheSameListWritesThemInItsOrder) {
  const std::string once = WrittenText(Read<Everything>(kText));
  EXPECT_EQ(WrittenText(Read<Everything>(once)), once);
  std::size_t last = 0;
  for (const char* key : {"flag", "whole", "natural", "real", "text", "place", "pair", "whole_pair",
                          "colour", "range", "places"}) {
    const std::size_t at = once.find("\"" + std::string(key) + "\"");
    ASSERT_NE(at, std::string::npos) << key;
    EXPECT_GE(at, last) << key;
    last = at;
  }
}

TEST(Fields, ASecondListGivesTheOrderOfWriting) {
  const std::string text = WrittenText(Read<Ordered>(R"({"first": 1, "second": 2})"));
  EXPECT_LT(text.find("\"second\": 2"), text.find("\"first\": 1"));
}

TEST(Fields, KeysAreMissedInTheOrderOfTheList) {
  EXPECT_EQ(carapace_test::OutputOf([] { Read<Ordered>("{}"); }),
            "Cant find Key: first\nCant find Key: second\n");
}

TEST(Fields, ACheckedFieldIsReportedByItsKey) {
  EXPECT_THAT(carapace_test::ReportOf([] { Read<Ordered>(R"({"first": -1})"); }),
              testing::HasSubstr("thing.json: key \"first\": expected no negative number"));
}

TEST(Fields, EachTypeHasItsEditor) {
  EXPECT_STREQ(FieldEditor<bool>(), "bool");
  EXPECT_STREQ(FieldEditor<int>(), "int");
  EXPECT_STREQ(FieldEditor<unsigned>(), "unsigned");
  EXPECT_STREQ(FieldEditor<float>(), "float");
  EXPECT_STREQ(FieldEditor<std::string>(), "std::string");
  EXPECT_STREQ(FieldEditor<Vector3D>(), "Vector3");
  EXPECT_STREQ(FieldEditor<std::vector<Vector3D>>(), "Vector3");
}

}  // namespace
}  // namespace ZOVEngine
