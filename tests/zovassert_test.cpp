#include "zovassert.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <ctime>
#include <sstream>
#include <string>
#include <vector>

#include "support/tempdirectory.h"

namespace ZOVEngine {
namespace {

using carapace_test::TempDirectory;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::MatchesRegex;
using ::testing::StartsWith;

/// A form of a report that comes back, for tests that look at several in one process.
struct Left {};

class ZOVAssertTest : public ::testing::Test {
 protected:
  ~ZOVAssertTest() override { SetAssertBox(nullptr); }

  /// Makes a report; returns what the box showed as "title|text".
  std::string Report(const std::string& file, std::uint32_t line, const std::string& message) {
    std::string shown;
    SetAssertBox([&](const std::string& title, const std::string& text) {
      shown = title + "|" + text;
      throw Left();
    });
    EXPECT_THROW(ZOVAssert(file, line, message), Left);
    return shown;
  }

  std::vector<std::string> LogLines() const {
    std::vector<std::string> lines;
    std::istringstream log(directory.Read("log_file.log"));
    for (std::string line; std::getline(log, line);) lines.push_back(line);
    return lines;
  }

  TempDirectory directory;
};

using ZOVAssertDeathTest = ZOVAssertTest;

TEST_F(ZOVAssertTest, TheLogGetsOneLineWithTimeMessageFileAndLine) {
  Report("beetle.cpp", 42, "Something Wrong");
  ASSERT_EQ(LogLines().size(), 1u);
  // The form of ctime without its line end: "Wed Jun 30 21:49:08 1993".
  EXPECT_THAT(LogLines()[0], MatchesRegex("\\[[A-Z][a-z][a-z] [A-Z][a-z][a-z] [ 0-9][0-9] "
                                          "[0-9][0-9]:[0-9][0-9]:[0-9][0-9] [0-9]+\\] "
                                          "Something Wrong \\(beetle.cpp, Line 42\\)"));
}

TEST_F(ZOVAssertTest, TheTimeIsTheLocalTime) {
  const auto now_text = [] {
    const std::time_t now = std::time(nullptr);
    const std::string text = std::ctime(&now);
    return "[" + text.substr(0, text.find('\n')) + "]";
  };
  const std::string before = now_text();
  Report("a.cpp", 1, "x");
  const std::string after = now_text();
  EXPECT_THAT(LogLines()[0], ::testing::AnyOf(StartsWith(before), StartsWith(after)));
}

TEST_F(ZOVAssertTest, TheLogGrowsOldestFirst) {
  Report("a.cpp", 1, "first");
  Report("b.cpp", 2, "second");
  ASSERT_EQ(LogLines().size(), 2u);
  EXPECT_THAT(LogLines()[0], EndsWith("] first (a.cpp, Line 1)"));
  EXPECT_THAT(LogLines()[1], EndsWith("] second (b.cpp, Line 2)"));
}

TEST_F(ZOVAssertTest, TheBoxShowsTheLineBetweenTwoFixedTexts) {
  const std::string shown = Report("a.cpp", 1, "first");
  EXPECT_EQ(shown, "Error|ZOV assertion is called: \n\n " + LogLines()[0] +
                       "\n Error logged in log_file.log ");
}

TEST_F(ZOVAssertTest, ALogThatCannotBeOpenedLosesTheLineAndShowsTheBox) {
  directory.Write("log_file.log/in-the-way", "");
  EXPECT_THAT(Report("a.cpp", 1, "first"), HasSubstr("] first (a.cpp, Line 1)\n"));
}

TEST_F(ZOVAssertTest, TheMacroDoesNothingForATrueCondition) {
  ZOV_ASSERT(1 + 1 == 2, "never");
  EXPECT_FALSE(directory.Has("log_file.log"));
}

TEST_F(ZOVAssertTest, TheMacroCutsThePathDownToTheFileName) {
  SetAssertBox([](const std::string&, const std::string&) { throw Left(); });
  const int line = __LINE__ + 1;
  EXPECT_THROW(ZOV_ASSERT(1 + 1 == 3, "wrong sum"), Left);
  EXPECT_THAT(LogLines()[0],
              EndsWith("] wrong sum (zovassert_test.cpp, Line " + std::to_string(line) + ")"));
}

TEST_F(ZOVAssertTest, TheFunctionDoesNotCutThePath) {
  Report("some/where/a.cpp", 1, "first");
  EXPECT_THAT(LogLines()[0], EndsWith("(some/where/a.cpp, Line 1)"));
}

TEST_F(ZOVAssertTest, ASourceFileNameIsWhatFollowsTheLastSeparator) {
  EXPECT_STREQ(SourceFileName("c:\\engine\\objects\\gameobj.h"), "gameobj.h");
  EXPECT_STREQ(SourceFileName("/home/engine/gameobj.h"), "gameobj.h");
  EXPECT_STREQ(SourceFileName("c:/mixed\\gameobj.h"), "gameobj.h");
  EXPECT_STREQ(SourceFileName("gameobj.h"), "gameobj.h");
  EXPECT_STREQ(SourceFileName("folder/"), "");
}

TEST_F(ZOVAssertDeathTest, TheReportEndsTheProcess) {
  EXPECT_EXIT(ZOVAssert("a.cpp", 1, "the end"), ::testing::KilledBySignal(SIGABRT),
              "the end \\(a\\.cpp, Line 1\\)");
}

TEST_F(ZOVAssertDeathTest, ABoxThatReturnsDoesNotLetTheProgramGoOn) {
  SetAssertBox([](const std::string&, const std::string&) {});
  EXPECT_EXIT(
      {
        ZOVAssert("a.cpp", 1, "the end");
        std::exit(0);
      },
      ::testing::KilledBySignal(SIGABRT), "zovassert\\.cpp.*false");
}

TEST_F(ZOVAssertDeathTest, TwoFailingRunsLeaveTwoLines) {
  EXPECT_DEATH(ZOVAssert("a.cpp", 1, "first run"), "first run");
  EXPECT_DEATH(ZOVAssert("a.cpp", 1, "second run"), "second run");
  ASSERT_EQ(LogLines().size(), 2u);
  EXPECT_THAT(LogLines()[0], HasSubstr("first run"));
  EXPECT_THAT(LogLines()[1], HasSubstr("second run"));
}

}  // namespace
}  // namespace ZOVEngine
