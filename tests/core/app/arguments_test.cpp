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

constexpr const char* kUse =
    "usage: carapace [--level FILE | --edit | --trial FILE [--seeds N] [--replay OUT]]\n";

/// Reads arguments with streams of its own, and undoes what they asked for.
class ArgumentsTest : public ::testing::Test {
 protected:
  void TearDown() override {
    g_start_state = m_start_state;
    g_current_level_path = m_level_path;
  }

  StartRequest Read(const std::vector<std::string>& arguments) {
    const Arguments read = ReadArguments(arguments, m_out, m_errors);
    m_trial = read.trial;
    return read.request;
  }

  TrialRequest m_trial;  ///< of the last Read
  std::ostringstream m_out;
  std::ostringstream m_errors;

 private:
  const decltype(g_start_state) m_start_state = g_start_state;
  const std::string m_level_path = g_current_level_path;
};

TEST_F(ArgumentsTest, NoneStartTheGameWhereItStartsAnyway) {
  const auto start = g_start_state;
  EXPECT_EQ(Read({}), StartRequest::kPlay);
  EXPECT_EQ(g_start_state, start);
  EXPECT_EQ(m_out.str() + m_errors.str(), "");
}

TEST_F(ArgumentsTest, HelpPrintsTheUseToTheOutput) {
  EXPECT_EQ(Read({"--help"}), StartRequest::kHelp);
  EXPECT_THAT(m_out.str(), StartsWith(kUse));
  EXPECT_EQ(m_errors.str(), "");
}

TEST_F(ArgumentsTest, TheEditorStartsByItsOwnSettings) {
  const std::string settings = std::exchange(g_settings_path, "");
  EXPECT_EQ(Read({"--edit"}), StartRequest::kPlay);
  EXPECT_EQ(g_settings_path, kEditorSettingsPath);
  g_settings_path = settings;
}

TEST_F(ArgumentsTest, OtherFormsPrintTheUseToTheErrors) {
  const std::vector<std::vector<std::string>> forms = {{"nonsense"},
                                                       {"--level"},
                                                       {"--level", "a", "b"},
                                                       {"--help", "me"},
                                                       {"a", "--level"},
                                                       {""},
                                                       {"--trial"},
                                                       {"--trial", "a", "--seeds"},
                                                       {"--trial", "a", "b", "c"},
                                                       {"--seeds", "3"},
                                                       {"--level", "a", "--seeds", "3"},
                                                       {"--trial", "a", "--replay", ""}};
  for (const auto& form : forms) {
    m_errors.str("");
    EXPECT_EQ(Read(form), StartRequest::kWrong) << form[0];
    EXPECT_THAT(m_errors.str(), StartsWith(kUse)) << form[0];
  }
  EXPECT_EQ(m_out.str(), "");
}

TEST_F(ArgumentsTest, ALevelBecomesTheFirstScreen) {
  const carapace_test::TempDirectory directory;
  const std::string path = directory.Path() / "level.json";
  std::ofstream(path) << "{}";
  EXPECT_EQ(Read({"--level", path}), StartRequest::kPlay);
  EXPECT_EQ(g_start_state, kDefaultState);
  EXPECT_EQ(g_current_level_path, path);
  EXPECT_EQ(m_out.str() + m_errors.str(), "");
}

TEST_F(ArgumentsTest, ATrialIsOfTwentyGamesAndLeavesTheStartAlone) {
  const carapace_test::TempDirectory directory;
  const auto start = g_start_state;
  directory.Write("level.json", "{}");
  EXPECT_EQ(Read({"--trial", "level.json"}), StartRequest::kTrial);
  EXPECT_EQ(m_trial.level_file, "level.json");
  EXPECT_EQ(m_trial.games, 20);
  EXPECT_EQ(m_trial.replay_file, "");
  EXPECT_EQ(g_start_state, start);
  EXPECT_EQ(m_out.str() + m_errors.str(), "");
}

TEST_F(ArgumentsTest, ATrialTakesItsOptionsInAnyOrder) {
  const carapace_test::TempDirectory directory;
  directory.Write("level.json", "{}");
  const std::vector<std::vector<std::string>> forms = {
      {"--trial", "level.json", "--seeds", "7", "--replay", "out.txt"},
      {"--trial", "level.json", "--replay", "out.txt", "--seeds", "7"}};
  for (const auto& form : forms) {
    EXPECT_EQ(Read(form), StartRequest::kTrial);
    EXPECT_EQ(m_trial.games, 7);
    EXPECT_EQ(m_trial.replay_file, "out.txt");
  }
}

TEST_F(ArgumentsTest, ATrialNeedsANumberOfGames) {
  const carapace_test::TempDirectory directory;
  directory.Write("level.json", "{}");
  for (const char* number : {"0", "-1", "10001", "7x", "", "seven", "99999999999"}) {
    EXPECT_EQ(Read({"--trial", "level.json", "--seeds", number}), StartRequest::kWrong) << number;
  }
  EXPECT_EQ(Read({"--trial", "level.json", "--seeds", "10000"}), StartRequest::kTrial);
}

TEST_F(ArgumentsTest, ALevelFileThatCannotBeOpenedIsNamed) {
  const auto start = g_start_state;
  const carapace_test::TempDirectory directory;
  const std::string missing = directory.Path() / "nope.json";
  const std::string folder = directory.Path();
  for (const std::string& path : {missing, folder, std::string()}) {
    m_errors.str("");
    EXPECT_EQ(Read({"--level", path}), StartRequest::kWrong);
    EXPECT_EQ(m_errors.str(), "carapace: cannot open the level file \"" + path + "\"\n");
    m_errors.str("");
    EXPECT_EQ(Read({"--trial", path}), StartRequest::kWrong);
    EXPECT_EQ(m_errors.str(), "carapace: cannot open the level file \"" + path + "\"\n");
  }
  EXPECT_EQ(g_start_state, start);
  EXPECT_EQ(m_out.str(), "");
}

}  // namespace
}  // namespace ZOVEngine
