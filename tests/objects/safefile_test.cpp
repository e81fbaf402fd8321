#include "objects/safefile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>
#include <string>

#include "support/tempdirectory.h"

namespace ZOVEngine {
namespace {

using carapace_test::TempDirectory;

std::size_t CountEntries(const std::filesystem::path& folder) {
  const std::filesystem::directory_iterator entries(folder);
  return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
}

TEST(SafeFile, WritesANewFile) {
  const TempDirectory directory;
  EXPECT_TRUE(ReplaceFile("a.json", "text"));
  EXPECT_EQ(directory.Read("a.json"), "text");
  EXPECT_EQ(CountEntries(directory.Path()), 1u);
}

TEST(SafeFile, ReplacesAnOldFileByAShorterText) {
  const TempDirectory directory;
  directory.Write("a.json", "a long old text");
  EXPECT_TRUE(ReplaceFile("a.json", "new"));
  EXPECT_EQ(directory.Read("a.json"), "new");
  EXPECT_EQ(CountEntries(directory.Path()), 1u);
}

TEST(SafeFile, AnEmptyTextAndBytesOfAnyKindAreWritten) {
  const TempDirectory directory;
  EXPECT_TRUE(ReplaceFile("empty", ""));
  EXPECT_EQ(directory.Read("empty"), "");
  const std::string bytes("\0\r\n\xFF", 4);
  EXPECT_TRUE(ReplaceFile("bytes", bytes));
  EXPECT_EQ(directory.Read("bytes"), bytes);
}

TEST(SafeFile, AFailureLeavesTheTargetAndNothingBesideIt) {
  const TempDirectory directory;
  // A folder with something in it cannot be replaced by a file.
  directory.Write("taken/inside", "kept");
  EXPECT_FALSE(ReplaceFile("taken", "text"));
  EXPECT_EQ(directory.Read("taken/inside"), "kept");
  EXPECT_FALSE(ReplaceFile("no/folder", "text"));
  EXPECT_EQ(CountEntries(directory.Path()), 1u);
}

}  // namespace
}  // namespace ZOVEngine
