#include "core/app/arguments.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "core/statemachine.h"
#include "platform/windowsystem.h"
#include "support/tempdirectory.h"

namespace ZOVEngine {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

/// Reads arguments with streams of its own, and undoes what they asked for.
class Arguments : public ::testing::Test {
 protected:
  void TearDown() override {
    g_start_state = m_start_state;
    g_current_level_path = m_level_path;
  }

  StartRequest Read(const std::vector<std::string>& arguments) {
    return ReadArguments(arguments, m_out, m_errors);
  }

  std::ostringstream m_out;
  std::ostringstream m_errors;

 private:
  const decltype(g_start_state) m_start_state = g_start_state;
  const std::string m_level_path = g_current_level_path;
};

TEST_F(Arguments, NoneStartTheGameWhereItStartsAnyway) {
  const auto start = g_start_state;
  EXPECT_EQ(Read({}), StartRequest::kPlay);
  EXPECT_EQ(g_start_state, start);
  EXPECT_EQ(m_out.str() + m_errors.str(), "");
}

TEST_F(Arguments, HelpPrintsTheUseToTheOutput) {
  EXPECT_EQ(Read({"--help"}), StartRequest::kHelp);
  EXPECT_THAT(m_out.str(), StartsWith("usage: carapace [--level FILE | --edit]\n"));
  EXPECT_EQ(m_errors.str(), "");
}

TEST_F(Arguments, TheEditorStartsByItsOwnSettings) {
  const std::string settings = std::exchange(g_settings_path, "");
  EXPECT_EQ(Read({"--edit"}), StartRequest::kPlay);
  EXPECT_EQ(g_settings_path, kEditorSettingsPath);
  g_settings_path = settings;
}

TEST_F(Arguments, OtherFormsPrintTheUseToTheErrors) {
  const std::vector<std::vector<std::string>> forms = {
      {"nonsense"}, {"--level"}, {"--level", "a", "b"}, {"--help", "me"}, {"a", "--level"}, {""}};
  for (const auto& form : forms) {
    m_errors.str("");
    EXPECT_EQ(Read(form), StartRequest::kWrong) << form[0];
    EXPECT_THAT(m_errors.str(), StartsWith("usage: carapace [--level FILE | --edit]\n")) << form[0];
  }
  EXPECT_EQ(m_out.str(), "");
}

TEST_F(Arguments, ALevelBecomesTheFirstScreen) {
  const carapace_test::TempDirectory directory;
  const std::string path = directory.Path() / "level.json";
  std::ofstream(path) << "{}";
  EXPECT_EQ(Read({"--level", path}), StartRequest::kPlay);
  EXPECT_EQ(g_start_state, kDefaultState);
  EXPECT_EQ(g_current_level_path, path);
  EXPECT_EQ(m_out.str() + m_errors.str(), "");
}

TEST_F(Arguments, ALevelFileThatCannotBeOpenedIsNamed) {
  const auto start = g_start_state;
  const carapace_test::TempDirectory directory;
  const std::string missing = directory.Path() / "nope.json";
  const std::string folder = directory.Path();
  for (const std::string& path : {missing, folder, std::string()}) {
    m_errors.str("");
    EXPECT_EQ(Read({"--level", path}), StartRequest::kWrong);
    EXPECT_EQ(m_errors.str(), "carapace: cannot open the level file \"" + path + "\"\n");
  }
  EXPECT_EQ(g_start_state, start);
  EXPECT_EQ(m_out.str(), "");
}

}  // namespace
}  // namespace ZOVEngine
