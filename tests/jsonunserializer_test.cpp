#include "jsonunserializer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

#include "support/reports.h"
#include "support/tempdirectory.h"

namespace ZOVEngine {
namespace {

using carapace_test::KeysOf;
using carapace_test::OutputOf;
using carapace_test::ReportOf;
using carapace_test::TempDirectory;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kLargest = std::numeric_limits<float>::max();

/// A document of one object that is read by its keys.
class ReadTest : public ::testing::Test {
 protected:
  const Value& Parse(const std::string& text) {
    document.ParseText(text, "test.json");
    return document.Root();
  }

  /// Reads the key "k" of {"k": json} into a copy of `before`.
  template <class T>
  T Read(const std::string& json, T before) {
    ReadValue(Parse("{\"k\": " + json + "}"), "k", &before);
    return before;
  }

  template <class T>
  std::string ReportOfReading(const std::string& json) {
    return ReportOf([&] { Read<T>(json, T()); });
  }

  JsonDocument document;
};

// Missing keys

TEST_F(ReadTest, AMissingKeyIsPrintedAndKeepsTheValue) {
  const Value& root = Parse("{}");
  bool flag = true;
  int number = -4;
  unsigned count = 5;
  float fraction = 1.5f;
  std::string text = "before";
  EXPECT_EQ(OutputOf([&] {
              ReadValue(root, "m_flag", &flag);
              ReadValue(root, "m_number", &number);
              ReadValue(root, "m_count", &count);
              ReadValue(root, "m_fraction", &fraction);
              ReadValue(root, "m_text", &text);
            }),
            "Cant find Key: m_flag\nCant find Key: m_number\nCant find Key: m_count\n"
            "Cant find Key: m_fraction\nCant find Key: m_text\n");
  EXPECT_TRUE(flag);
  EXPECT_EQ(number, -4);
  EXPECT_EQ(count, 5u);
  EXPECT_EQ(fraction, 1.5f);
  EXPECT_EQ(text, "before");
}

TEST_F(ReadTest, AMissingVectorKeepsItsValue) {
  const Value& root = Parse("{}");
  std::array<float, 2> pair = {1, 2};
  std::array<float, 4> colour = {1, 2, 3, 4};
  std::array<Vector3D, 2> range = {Vector3D(1, 2, 3), Vector3D(4, 5, 6)};
  EXPECT_EQ(OutputOf([&] {
              ReadVector2(root, "m_pair", &pair);
              ReadVector4(root, "m_colour", &colour);
              ReadVector3DPair(root, "m_range", &range);
            }),
            "Cant find Key: m_pair\nCant find Key: m_colour\nCant find Key: m_range\n");
  EXPECT_THAT(pair, ElementsAre(1, 2));
  EXPECT_THAT(colour, ElementsAre(1, 2, 3, 4));
  EXPECT_THAT(range, ElementsAre(Vector3D(1, 2, 3), Vector3D(4, 5, 6)));
}

TEST_F(ReadTest, AMissingVector3DHasAComplaintOfItsOwn) {
  Vector3D vector(1, 2, 3);
  EXPECT_EQ(OutputOf([&] { ReadVector3D(Parse("{}"), "m_pos", &vector); }), "m_pos not found\n");
  EXPECT_EQ(vector, Vector3D(1, 2, 3));
}

TEST_F(ReadTest, ArraysTakeTheirEntriesAsFieldsTakeThem) {
  const Value& root = Parse(R"({"flags": [true, 1, false], "reals": [1, 0.5], "whole": [-1, 2]})");
  std::vector<bool> flags = {true};
  std::vector<float> reals;
  std::array<int, 2> whole = {};
  ReadBoolArray(root, "flags", &flags);
  ReadFloatArray(root, "reals", &reals);
  ReadIntPair(root, "whole", &whole);
  EXPECT_THAT(flags, ElementsAre(true, false, false));
  EXPECT_THAT(reals, ElementsAre(1.0f, 0.5f));
  EXPECT_THAT(whole, ElementsAre(-1, 2));
}

TEST_F(ReadTest, AMissingArrayIsEmptied) {
  const Value& root = Parse("{}");
  std::vector<Vector3D> places = {Vector3D(1, 2, 3)};
  std::vector<std::string> texts = {"before"};
  std::vector<int> numbers = {4};
  EXPECT_EQ(OutputOf([&] {
              ReadVector3DArray(root, "m_places", &places);
              ReadStringArray(root, "m_texts", &texts);
              ReadIntArray(root, "m_numbers", &numbers);
            }),
            "Cant find Key: m_places\nCant find Key: m_texts\nCant find Key: m_numbers\n");
  EXPECT_THAT(places, IsEmpty());
  EXPECT_THAT(texts, IsEmpty());
  EXPECT_THAT(numbers, IsEmpty());
}

TEST_F(ReadTest, InAValueThatIsNoObjectEveryKeyIsMissing) {
  for (const char* text : {"[1, 2]", "5", "null", "\"text\"", "true"}) {
    int number = 3;
    EXPECT_EQ(OutputOf([&] { ReadValue(Parse(text), "k", &number); }), "Cant find Key: k\n");
    EXPECT_EQ(number, 3);
  }
}

TEST_F(ReadTest, AKeyThatIsThereIsReadInSilence) {
  EXPECT_EQ(OutputOf([&] { EXPECT_EQ(Read<int>("7", 0), 7); }), "");
}

// bool

TEST_F(ReadTest, ABoolIsTrueForJsonTrueOnly) {
  EXPECT_TRUE(Read<bool>("true", false));
  for (const char* json : {"false", "1", "0", "\"true\"", "null", "[true]", "{}", "1.0"}) {
    EXPECT_FALSE(Read<bool>(json, true)) << json;
  }
}

// int and unsigned

TEST_F(ReadTest, AnIntTakesTheLow32Bits) {
  EXPECT_EQ(Read<int>("7", 0), 7);
  EXPECT_EQ(Read<int>("-7", 0), -7);
  EXPECT_EQ(Read<int>("2147483647", 0), 2147483647);
  EXPECT_EQ(Read<int>("-2147483648", 0), std::numeric_limits<int>::min());
  EXPECT_EQ(Read<int>("4294967295", 0), -1);
  EXPECT_EQ(Read<int>("4294967298", 0), 2);
  EXPECT_EQ(Read<int>("-4294967298", 0), -2);
  EXPECT_EQ(Read<int>("18446744073709551615", 0), -1);
}

TEST_F(ReadTest, AnUnsignedTakesTheLow32Bits) {
  EXPECT_EQ(Read<unsigned>("7", 0), 7u);
  EXPECT_EQ(Read<unsigned>("4294967295", 0), 4294967295u);
  EXPECT_EQ(Read<unsigned>("-1", 0), 4294967295u);
  EXPECT_EQ(Read<unsigned>("4294967298", 0), 2u);
}

TEST_F(ReadTest, ADoubleIsNotConvertedToAnInt) {
  // 1.5 is 3FF8000000000000, 0.1 is 3FB999999999999A.
  EXPECT_EQ(Read<int>("1.5", 9), 0);
  EXPECT_EQ(Read<int>("1.0", 9), 0);
  EXPECT_EQ(Read<unsigned>("0.1", 9), 0x9999999Au);
  EXPECT_EQ(Read<int>("0.1", 9), static_cast<int>(0x9999999Au));
}

// float

TEST_F(ReadTest, AFloatTakesAnyKindOfNumber) {
  EXPECT_EQ(Read<float>("1.25", 0.0f), 1.25f);
  EXPECT_EQ(Read<float>("-3", 0.0f), -3.0f);
  EXPECT_EQ(Read<float>("3", 0.0f), 3.0f);
  EXPECT_EQ(Read<float>("4294967295", 0.0f), 4294967295.0f);
  EXPECT_EQ(Read<float>("-9007199254740993", 0.0f), -9007199254740993.0f);
  EXPECT_EQ(Read<float>("18446744073709551615", 0.0f), 18446744073709551615.0f);
  EXPECT_EQ(Read<float>("0.1", 0.0f), 0.1f);
  EXPECT_EQ(Read<float>("1e-300", 1.0f), 0.0f);
}

TEST_F(ReadTest, ANumberBeyondAFloatIsAnInfinity) {
  EXPECT_EQ(Read<float>("3.4028234663852887e38", 0.0f), kLargest);
  EXPECT_EQ(Read<float>("-3.4028235e38", 0.0f), -kLargest);
  EXPECT_EQ(Read<float>("3.4028236e38", 0.0f), kInfinity);
  EXPECT_EQ(Read<float>("1e300", 0.0f), kInfinity);
  EXPECT_EQ(Read<float>("-1e300", 0.0f), -kInfinity);
}

// string

TEST_F(ReadTest, AStringIsItsBytes) {
  EXPECT_EQ(Read<std::string>("\"Beetle\"", ""), "Beetle");
  EXPECT_EQ(Read<std::string>("\"\"", "before"), "");
  EXPECT_EQ(Read<std::string>("\"K\xC3\xA4"
                              "fer \xF0\x9F\x90\x9E\"",
                              ""),
            "K\xC3\xA4"
            "fer \xF0\x9F\x90\x9E");
  EXPECT_EQ(Read<std::string>("\"K\\u00e4fer\"", ""),
            "K\xC3\xA4"
            "fer");
  EXPECT_EQ(Read<std::string>("\"not utf-8: \xFF\xFE\"", ""), "not utf-8: \xFF\xFE");
  EXPECT_EQ(Read<std::string>("\"a\\u0000b\"", ""), std::string("a\0b", 3));
}

// vectors and arrays

TEST_F(ReadTest, VectorsAreArraysOfNumbers) {
  const Value& root = Parse(
      R"({"two": [1, 2.5], "three": [1, 2, -3.5], "four": [1, 2, 3, 4],
          "pair": [[1, 2, 3], [4, 5, 6]], "list": [[1, 2, 3], [4, 5, 6], [7, 8, 9]],
          "texts": ["a", "", "c"], "numbers": [1, -2, 3], "nothing": []})");
  std::array<float, 2> two{};
  ReadVector2(root, "two", &two);
  EXPECT_THAT(two, ElementsAre(1, 2.5f));
  Vector3D three;
  ReadVector3D(root, "three", &three);
  EXPECT_EQ(three, Vector3D(1, 2, -3.5f));
  std::array<float, 4> four{};
  ReadVector4(root, "four", &four);
  EXPECT_THAT(four, ElementsAre(1, 2, 3, 4));
  std::array<Vector3D, 2> pair;
  ReadVector3DPair(root, "pair", &pair);
  EXPECT_THAT(pair, ElementsAre(Vector3D(1, 2, 3), Vector3D(4, 5, 6)));
  std::vector<Vector3D> list = {Vector3D(9, 9, 9)};
  ReadVector3DArray(root, "list", &list);
  EXPECT_THAT(list, ElementsAre(Vector3D(1, 2, 3), Vector3D(4, 5, 6), Vector3D(7, 8, 9)));
  std::vector<std::string> texts = {"before"};
  ReadStringArray(root, "texts", &texts);
  EXPECT_THAT(texts, ElementsAre("a", "", "c"));
  std::vector<int> numbers = {9};
  ReadIntArray(root, "numbers", &numbers);
  EXPECT_THAT(numbers, ElementsAre(1, -2, 3));
  ReadStringArray(root, "nothing", &texts);
  EXPECT_THAT(texts, IsEmpty());
}

// Values of another type

TEST_F(ReadTest, AValueOfAnotherTypeIsReportedWithItsPlace) {
  EXPECT_THAT(ReportOfReading<int>("\"seven\""),
              AllOf(HasSubstr("test.json"), HasSubstr("key \"k\""), HasSubstr("number")));
  for (const char* json : {"\"1\"", "null", "[]", "{}", "true"}) {
    EXPECT_THAT(ReportOfReading<int>(json), HasSubstr("\"k\"")) << json;
    EXPECT_THAT(ReportOfReading<unsigned>(json), HasSubstr("\"k\"")) << json;
    EXPECT_THAT(ReportOfReading<float>(json), HasSubstr("\"k\"")) << json;
  }
  for (const char* json : {"1", "null", "[]", "{}", "true"}) {
    EXPECT_THAT(ReportOfReading<std::string>(json), HasSubstr("\"k\"")) << json;
  }
}

TEST_F(ReadTest, AnArrayOfTheWrongFormIsReportedWithItsPlace) {
  const auto report = [&](const std::string& json, const auto& read) {
    const Value& root = Parse("{\"k\": " + json + "}");
    return ReportOf([&] { read(root); });
  };
  const auto vector3 = [](const Value& root) {
    Vector3D out;
    ReadVector3D(root, "k", &out);
  };
  const auto vector4 = [](const Value& root) {
    std::array<float, 4> out{};
    ReadVector4(root, "k", &out);
  };
  const auto pair = [](const Value& root) {
    std::array<Vector3D, 2> out;
    ReadVector3DPair(root, "k", &out);
  };
  const auto list = [](const Value& root) {
    std::vector<Vector3D> out;
    ReadVector3DArray(root, "k", &out);
  };
  const auto texts = [](const Value& root) {
    std::vector<std::string> out;
    ReadStringArray(root, "k", &out);
  };
  for (const char* json : {"[]", "[1, 2]", "[1, 2, 3, 4]", "[1, 2, \"3\"]", "5", "null", "{}",
                           "[1, 2, null]", "[[1], 2, 3]"}) {
    EXPECT_THAT(report(json, vector3), HasSubstr("key \"k\"")) << json;
  }
  for (const char* json : {"[]", "[1, 2, 3]", "[1, 2, 3, false]", "\"red\""}) {
    EXPECT_THAT(report(json, vector4), HasSubstr("key \"k\"")) << json;
  }
  for (const char* json : {"[]", "[1, 2]", "[[1, 2, 3]]", "[[1, 2, 3], [4, 5]]", "7"}) {
    EXPECT_THAT(report(json, pair), HasSubstr("key \"k\"")) << json;
  }
  for (const char* json : {"{}", "5", "[5]", "[[1, 2]]", "[[1, 2, 3], null]"}) {
    EXPECT_THAT(report(json, list), HasSubstr("key \"k\"")) << json;
  }
  for (const char* json : {"{}", "5", "[5]", "\"one\"", "[\"a\", null]"}) {
    EXPECT_THAT(report(json, texts), HasSubstr("key \"k\"")) << json;
  }
}

TEST_F(ReadTest, ARequiredKeyThatIsMissingIsReported) {
  const Value& root = Parse("{\"a\": 1}");
  EXPECT_EQ(RequireValue(root, "a").GetInt(), 1);
  EXPECT_THAT(ReportOf([&] { RequireValue(root, "b"); }),
              AllOf(HasSubstr("test.json"), HasSubstr("\"b\"")));
}

TEST_F(ReadTest, FindValueTellsWhatIsThere) {
  const Value& root = Parse("{\"a\": null}");
  EXPECT_TRUE(HasKey(root, "a"));
  EXPECT_FALSE(HasKey(root, "b"));
  EXPECT_EQ(FindValue(root, "b"), nullptr);
  EXPECT_NE(FindValue(root, "a"), nullptr);
}

using ReadDeathTest = ReadTest;

TEST_F(ReadDeathTest, AValueOfAnotherTypeEndsTheProgram) {
  EXPECT_REPORT_ENDS_PROGRAM(Read<float>("\"fast\"", 0.0f), "test\\.json: key \"k\"");
}

TEST_F(ReadDeathTest, AnAssertionOfTheJsonLibraryIsTheEnginesReport) {
  EXPECT_REPORT_ENDS_PROGRAM(Parse("{}")["absent"].GetInt(), "JSON assertion");
}

// Documents

class JsonDocumentTest : public ::testing::Test {
 protected:
  /// Parses the text as a file and tells whether its root is an object.
  bool IsRead(const std::string& text) {
    directory.Write("file.json", text);
    JsonDocument document;
    document.Open("file.json");
    document.Parse();
    if (!document.Root().IsObject()) {
      EXPECT_TRUE(document.Root().IsNull() || text[0] != '{');
    }
    return document.Root().IsObject();
  }

  TempDirectory directory;
};

TEST_F(JsonDocumentTest, AnAbsentFileIsReportedByItsPathAndFileNotFound) {
  JsonDocument document;
  EXPECT_THAT(ReportOf([&] { document.Open("folder/none.json"); }),
              HasSubstr("] folder/none.jsonfile not found (jsonunserializer.cpp, Line "));
}

TEST_F(JsonDocumentTest, ASoundFileIsRead) {
  directory.Write("file.json", R"({"name": "Carapace", "size": [1, 2]})");
  JsonDocument document;
  document.Open("file.json");
  document.Parse();
  ASSERT_TRUE(document.Root().IsObject());
  EXPECT_STREQ(document.Root()["name"].GetString(), "Carapace");
  EXPECT_EQ(document.Path(), "file.json");
}

TEST_F(JsonDocumentTest, AMalformedFileLeavesANullRoot) {
  for (const char* text : {"",
                           " ",
                           "{",
                           "{\"a\"",
                           "{\"a\":",
                           "{\"a\": 1",
                           "{\"a\": 1}}",
                           "{\"a\": 1} x",
                           "{'a': 1}",
                           "{\"a\": NaN}",
                           "{\"a\": Infinity}",
                           "{\"a\": -Infinity}",
                           "{\"a\": 1e999}",
                           "{\"a\": -1e999}",
                           "{\"a\": 01}",
                           "{\"a\": .5}",
                           "{\"a\": 1,}",
                           "[1, 2",
                           "{\"a\": tru}",
                           "{\"a\": \"unfinished}",
                           "{\"a\": \"\\x\"}",
                           "{\"a\": \"\\ud800\"}",
                           "// comment\n{}"}) {
    EXPECT_FALSE(IsRead(text)) << text;
  }
}

TEST_F(JsonDocumentTest, AParsedDocumentCanReadAnotherFile) {
  directory.Write("one.json", "{\"a\": 1}");
  directory.Write("two.json", "{\"b\": ");
  JsonDocument document;
  document.Open("one.json");
  document.Parse();
  document.Open("two.json");
  document.Parse();
  EXPECT_TRUE(document.Root().IsNull()) << "nothing of the first file is left";
}

TEST_F(JsonDocumentTest, NestingIsReadDownToItsLimit) {
  const auto nested = [](int depth) {
    const auto count = static_cast<std::size_t>(depth - 1);
    return "{\"a\": " + std::string(count, '[') + std::string(count, ']') + "}";
  };
  EXPECT_TRUE(IsRead(nested(kMaxJsonDepth)));
  EXPECT_FALSE(IsRead(nested(kMaxJsonDepth + 1)));
}

TEST_F(JsonDocumentTest, AHundredThousandLevelsAreMalformedAndNoOverflow) {
  constexpr std::size_t kDepth = 100'000;
  std::string objects;
  for (std::size_t i = 0; i < kDepth; ++i) objects += "{\"a\":";
  EXPECT_FALSE(IsRead(std::string(kDepth, '[') + std::string(kDepth, ']')));
  EXPECT_FALSE(IsRead(std::string(kDepth, '[')));
  EXPECT_FALSE(IsRead(objects + "1" + std::string(kDepth, '}')));
  EXPECT_FALSE(IsRead(objects));
}

TEST_F(JsonDocumentTest, AnyFileCutShortIsMalformed) {
  const std::string whole = R"({"name": "x", "list": [1, 2.5, "three", null, {"a": true}]})";
  ASSERT_TRUE(IsRead(whole));
  for (std::size_t size = 0; size < whole.size(); ++size) {
    EXPECT_FALSE(IsRead(whole.substr(0, size))) << whole.substr(0, size);
  }
}

// Writing

/// The text that the body writes into the braces of one object.
std::string Written(const std::function<void(Writer&)>& body) {
  JsonWriter writer;
  writer.Out().json->StartObject();
  body(writer.Out());
  writer.Out().json->EndObject();
  return writer.Text();
}

TEST(JsonWrite, ValuesHaveTheirJsonForm) {
  EXPECT_EQ(Written([](Writer& w) {
              WriteValue(w, "flag", true);
              WriteValue(w, "number", -4);
              WriteValue(w, "count", 4294967295u);
              WriteValue(w, "fraction", 0.5f);
              WriteValue(w, "text", std::string("a \"b\"\n"));
            }),
            "{\n    \"flag\": true,\n    \"number\": -4,\n    \"count\": 4294967295,\n"
            "    \"fraction\": 0.5,\n    \"text\": \"a \\\"b\\\"\\n\"\n}");
}

TEST(JsonWrite, AFloatIsWrittenAsADouble) {
  EXPECT_EQ(Written([](Writer& w) { WriteValue(w, "f", 0.1f); }),
            "{\n    \"f\": 0.10000000149011612\n}");
  EXPECT_EQ(Written([](Writer& w) { WriteValue(w, "f", 3.0f); }), "{\n    \"f\": 3.0\n}");
}

TEST(JsonWrite, AFloatThatJsonCannotSayIsWrittenAsOneThatItCan) {
  JsonDocument document;
  document.ParseText(Written([](Writer& w) {
                       WriteValue(w, "nan", std::nanf(""));
                       WriteValue(w, "up", kInfinity);
                       WriteValue(w, "down", -kInfinity);
                     }),
                     "written");
  float nan = 1.0f;
  float up = 0.0f;
  float down = 0.0f;
  ReadValue(document.Root(), "nan", &nan);
  ReadValue(document.Root(), "up", &up);
  ReadValue(document.Root(), "down", &down);
  EXPECT_EQ(nan, 0.0f);
  EXPECT_EQ(up, kLargest);
  EXPECT_EQ(down, -kLargest);
}

/// The text without the white space between its marks.
std::string Dense(std::string text) {
  std::erase_if(text, [](char c) { return c == ' ' || c == '\n'; });
  return text;
}

TEST(JsonWrite, VectorsAreNestedArrays) {
  EXPECT_EQ(Dense(Written([](Writer& w) {
              WriteVector2(w, "two", {1, 2});
              WriteVector3D(w, "three", Vector3D(1, 2, 3));
              WriteVector4(w, "four", {1, 2, 3, 4});
              WriteVector3DPair(w, "pair", {Vector3D(1, 2, 3), Vector3D(4, 5, 6)});
              WriteVector3DArray(w, "list", {Vector3D(7, 8, 9)});
              WriteStringArray(w, "texts", {"a", ""});
              WriteIntArray(w, "numbers", {1, -2});
              WriteIntPair(w, "whole", {-1, 2});
              WriteFloatArray(w, "reals", {0.5f});
              WriteBoolArray(w, "flags", {true, false});
              WriteVector3DArray(w, "nothing", {});
            })),
            "{\"two\":[1.0,2.0],\"three\":[1.0,2.0,3.0],\"four\":[1.0,2.0,3.0,4.0],"
            "\"pair\":[[1.0,2.0,3.0],[4.0,5.0,6.0]],\"list\":[[7.0,8.0,9.0]],"
            "\"texts\":[\"a\",\"\"],\"numbers\":[1,-2],\"whole\":[-1,2],\"reals\":[0.5],"
            "\"flags\":[true,false],\"nothing\":[]}");
}

TEST(JsonWrite, WhatIsWrittenIsReadBack) {
  const std::vector<std::string> texts = {
      "K\xC3\xA4"
      "fer",
      std::string("a\0b", 3), "\t\\\"", "/"};
  const std::vector<Vector3D> places = {Vector3D(0.1f, -1e-30f, 1e30f), Vector3D()};
  JsonDocument document;
  document.ParseText(Written([&](Writer& w) {
                       WriteStringArray(w, "texts", texts);
                       WriteVector3DArray(w, "places", places);
                     }),
                     "written");
  std::vector<std::string> texts_read;
  std::vector<Vector3D> places_read;
  ReadStringArray(document.Root(), "texts", &texts_read);
  ReadVector3DArray(document.Root(), "places", &places_read);
  EXPECT_EQ(texts_read, texts);
  EXPECT_EQ(places_read, places);
}

class JsonWriterTest : public ::testing::Test {
 protected:
  static void WriteSmallObject(JsonWriter& writer) {
    writer.Out().json->StartObject();
    WriteValue(writer.Out(), "a", 1);
    writer.Out().json->EndObject();
  }

  TempDirectory directory;
};

TEST_F(JsonWriterTest, TheFileIsThereAfterClose) {
  JsonWriter writer;
  writer.Open("out.json");
  WriteSmallObject(writer);
  EXPECT_FALSE(directory.Has("out.json"));
  EXPECT_TRUE(writer.Close());
  EXPECT_EQ(directory.Read("out.json"), "{\n    \"a\": 1\n}");
}

TEST_F(JsonWriterTest, TheDestructorCloses) {
  {
    JsonWriter writer;
    writer.Open("out.json");
    WriteSmallObject(writer);
  }
  EXPECT_TRUE(directory.Has("out.json"));
}

TEST_F(JsonWriterTest, ALongerFileIsReplacedWhole) {
  directory.Write("out.json", std::string(10000, 'x'));
  {
    JsonWriter writer;
    writer.Open("out.json");
    WriteSmallObject(writer);
  }
  EXPECT_EQ(directory.Read("out.json"), "{\n    \"a\": 1\n}");
}

TEST_F(JsonWriterTest, AWriterLeftInTheMiddleLeavesTheOldFile) {
  directory.Write("out.json", "old");
  {
    JsonWriter writer;
    writer.Open("out.json");
    writer.Out().json->StartObject();
    WriteValue(writer.Out(), "a", 1);
  }
  EXPECT_EQ(directory.Read("out.json"), "old");
}

TEST_F(JsonWriterTest, AFolderThatIsMissingIsToldAndNothingIsLeft) {
  JsonWriter writer;
  writer.Open("none/out.json");
  WriteSmallObject(writer);
  EXPECT_FALSE(writer.Close());
}

TEST_F(JsonWriterTest, OneWriterCanWriteFileAfterFile) {
  JsonWriter writer;
  writer.Open("one.json");
  WriteSmallObject(writer);
  writer.Open("two.json");
  WriteSmallObject(writer);
  writer.Close();
  EXPECT_EQ(directory.Read("one.json"), directory.Read("two.json"));
}

TEST_F(JsonWriterTest, WithoutATargetTheTextIsAllThereIs) {
  JsonWriter writer;
  WriteSmallObject(writer);
  EXPECT_TRUE(writer.Close());
  EXPECT_THAT(KeysOf(writer.Text()), ElementsAre("a"));
}

}  // namespace
}  // namespace ZOVEngine
