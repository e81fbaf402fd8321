// The inputs that the fuzzers start from, and those that once broke something.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "support/fuzztargets.h"

namespace ZOVEngine {
namespace {

/// Runs every file of a corpus through a target; returns how many there were.
template <class Target>
int Replay(const std::string& corpus) {
  const auto folder = std::filesystem::path(CARAPACE_SOURCE_DIR) / "fuzz" / "corpus" / corpus;
  Target target;
  int files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    SCOPED_TRACE(entry.path().filename().string());
    std::ifstream file(entry.path(), std::ios::binary);
    target.Run({std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()});
    ++files;
  }
  return files;
}

TEST(FuzzCorpus, ObjectFilesAreSurvived) {
  EXPECT_GE(Replay<carapace_test::ObjectFileTarget>("objectfile"), 10);
}

TEST(FuzzCorpus, SettingsAreSurvived) {
  EXPECT_GE(Replay<carapace_test::SettingsTarget>("settings"), 6);
}

TEST(FuzzCorpus, ImagesAreSurvived) {
  EXPECT_GE(Replay<carapace_test::ImageTarget>("image"), 6);
}

}  // namespace
}  // namespace ZOVEngine
