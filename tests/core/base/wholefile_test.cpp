#include "core/base/wholefile.h"

#include <gtest/gtest.h>

#include <sstream>

#include "support/tempdirectory.h"

namespace ZOVEngine {
namespace {

using carapace_test::TempDirectory;

TEST(WholeFile, EveryByteIsReadAsItStands) {
  const TempDirectory files;
  const std::string text("a\r\n\0b\x1a\xff\n", 8);
  files.Write("bytes", text);
  EXPECT_EQ(ReadWholeFile(files.Path() / "bytes"), text);
}

TEST(WholeFile, AnEmptyOneIsReadAsNothing) {
  const TempDirectory files;
  files.Write("empty", "");
  EXPECT_EQ(ReadWholeFile(files.Path() / "empty"), "");
}

TEST(WholeFile, TheBlocksOfALongOneAreJoined) {
  for (const std::size_t size : {65535u, 65536u, 65537u, 200000u}) {
    std::string text(size, 'x');
    text[size / 2] = 'y';
    text.back() = 'z';
    std::istringstream stream(text);
    EXPECT_EQ(ReadRest(stream), text) << size;
  }
}

TEST(WholeFile, OfAStreamOnlyTheRestIsRead) {
  std::istringstream stream("first rest");
  std::string word;
  stream >> word;
  EXPECT_EQ(ReadRest(stream), " rest");
}

TEST(WholeFile, WhatIsNoRegularFileIsNotRead) {
  const TempDirectory files;
  EXPECT_EQ(ReadWholeFile(files.Path()), std::nullopt) << "a folder";
  EXPECT_EQ(ReadWholeFile(files.Path() / "absent"), std::nullopt);
  EXPECT_EQ(ReadWholeFile("/dev/zero"), std::nullopt) << "a device without an end";
}

}  // namespace
}  // namespace ZOVEngine
