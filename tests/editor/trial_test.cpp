#include "editor/trial.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>
#include <vector>

#include "support/tempdirectory.h"

namespace ZOVEngine {
namespace {

using Stage = Trial::Stage;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

constexpr auto kPatience = std::chrono::seconds(20);

/// A trial whose child is a shell script: $2 is the level file, $4 the number of games and $6 the
/// replay.
class TrialTest : public ::testing::Test {
 protected:
  static std::vector<std::string> Script(const std::string& script) {
    return {"/bin/sh", "-c", script, "script"};
  }

  /// Polls until `done`; false if it takes too long.
  template <class Condition>
  static bool PollUntil(Trial* trial, Condition done) {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (std::chrono::steady_clock::now() < end) {
      trial->Poll();
      if (done()) return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return false;
  }

  static bool PollToEnd(Trial* trial) {
    return PollUntil(trial, [trial] { return !trial->IsRunning(); });
  }

  static bool PollToGame(Trial* trial, int games) {
    return PollUntil(trial, [=] { return trial->GetProgress().games == games; });
  }

  static std::ptrdiff_t CountDescriptors() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
  }

  /// The id that a script has written; the process with it may be gone.
  pid_t ReadProcessId() const {
    pid_t id = 0;
    std::ifstream(m_directory.Path() / "pid") >> id;
    return id;
  }

  carapace_test::TempDirectory m_directory;
};

TEST_F(TrialTest, TheGamesAreCountedAndTheFirstWonIsKept) {
  Trial trial(
      Script("echo 'game 1 seed 1 lost 5 rounds'; echo 'game 2 seed 2 open 60 rounds';"
             "echo recorded >$6; echo 'game 3 seed 3 won 7 rounds';"
             "echo 'game 4 seed 4 won 4 rounds'; echo 'won 2 of 4, rounds median 7'"));
  trial.Start("level.json", 4);
  EXPECT_TRUE(trial.IsRunning());
  ASSERT_TRUE(PollToEnd(&trial));
  const Trial::Progress& progress = trial.GetProgress();
  EXPECT_EQ(progress.stage, Stage::kFinished) << progress.message;
  EXPECT_EQ(progress.seeds, 4);
  EXPECT_EQ(progress.games, 4);
  EXPECT_EQ(progress.won, 2);
  EXPECT_EQ(progress.lost, 1);
  EXPECT_EQ(progress.open, 1);
  EXPECT_THAT(progress.rounds, ElementsAre(5, 60, 7, 4));
  EXPECT_EQ(progress.first_won_seed, 3);
  EXPECT_EQ(progress.message, "");
  std::string text;
  std::getline(std::ifstream(progress.replay_file), text);
  EXPECT_EQ(text, "recorded");
}

TEST_F(TrialTest, TheCommandGetsTheLevelAndTheNumberOfGames) {
  Trial trial(Script("echo \"$1 $2 $3 $4 $5\" >arguments"));
  trial.Start("a level.json", 12);
  ASSERT_TRUE(PollToEnd(&trial));
  EXPECT_EQ(m_directory.Read("arguments"), "--trial a level.json --seeds 12 --replay\n");
}

TEST_F(TrialTest, BeforeAGameIsWonThereIsNoReplay) {
  Trial trial(Script("echo 'game 1 seed 1 lost 5 rounds'"));
  trial.Start("level.json", 1);
  ASSERT_TRUE(PollToEnd(&trial));
  EXPECT_EQ(trial.GetProgress().stage, Stage::kFinished);
  EXPECT_FALSE(trial.GetProgress().first_won_seed.has_value());
  EXPECT_EQ(trial.GetProgress().replay_file, "");
}

TEST_F(TrialTest, ALineThatComesInPiecesIsCountedOnceItIsWhole) {
  Trial trial(
      Script("printf 'game 1 se'; touch begun; until [ -e go ]; do sleep 0.01; done;"
             "printf 'ed 1 won 7 rounds\\ngame 2'; touch more;"
             "until [ -e on ]; do sleep 0.01; done; echo ' seed 2 lost 3 rounds'"));
  trial.Start("level.json", 2);
  ASSERT_TRUE(PollUntil(&trial, [this] { return m_directory.Has("begun"); }));
  trial.Poll();
  EXPECT_EQ(trial.GetProgress().games, 0);
  m_directory.Write("go", "");
  ASSERT_TRUE(PollToGame(&trial, 1));
  ASSERT_TRUE(PollUntil(&trial, [this] { return m_directory.Has("more"); }));
  trial.Poll();
  EXPECT_EQ(trial.GetProgress().games, 1);
  m_directory.Write("on", "");
  ASSERT_TRUE(PollToEnd(&trial));
  EXPECT_EQ(trial.GetProgress().stage, Stage::kFinished);
  EXPECT_THAT(trial.GetProgress().rounds, ElementsAre(7, 3));
}

TEST_F(TrialTest, ALastLineWithoutAnEndCounts) {
  Trial trial(Script("printf 'game 1 seed 1 won 7 rounds'"));
  trial.Start("level.json", 1);
  ASSERT_TRUE(PollToEnd(&trial));
  EXPECT_EQ(trial.GetProgress().stage, Stage::kFinished);
}

TEST_F(TrialTest, AChildThatDiesFailsWithItsLastWords) {
  Trial trial(Script("echo 'game 1 seed 1 won 7 rounds'; echo 'no such map' >&2; kill -9 $$"));
  trial.Start("level.json", 2);
  ASSERT_TRUE(PollToEnd(&trial));
  EXPECT_EQ(trial.GetProgress().stage, Stage::kFailed);
  EXPECT_EQ(trial.GetProgress().message, "no such map");
  EXPECT_EQ(trial.GetProgress().won, 1);
}

TEST_F(TrialTest, AChildThatEndsTooSoonOrWithAnErrorFails) {
  for (const char* script : {"", "echo 'game 1 seed 1 won 7 rounds'",
                             "echo 'game 1 seed 1 won 7 rounds'; "
                             "echo 'game 2 seed 2 won 7 rounds'; exit 1"}) {
    Trial trial(Script(script));
    trial.Start("level.json", 2);
    ASSERT_TRUE(PollToEnd(&trial));
    EXPECT_EQ(trial.GetProgress().stage, Stage::kFailed) << script;
    EXPECT_NE(trial.GetProgress().message, "") << script;
  }
}

TEST_F(TrialTest, RubbishIsNoGame) {
  Trial trial(
      Script("printf 'game\\ngame 1\\ngame 2 seed 2 won 7 rounds\\ngame 1 seed 1 drawn 7 rounds\\n"
             "game 1 seed 1 won -7 rounds\\ngame 1 seed 1 won 7 rounds more\\n\\n\\001\\377\\n"
             "game 1 seed 99999999999 won 7 rounds\\ngame 1 seed 1 lost 3 rounds\\n"
             "game 1 seed 1 lost 3 rounds\\ngame 2 seed 2 lost 3 rounds\\n'"));
  trial.Start("level.json", 1);
  ASSERT_TRUE(PollToEnd(&trial));
  EXPECT_EQ(trial.GetProgress().stage, Stage::kFinished);
  EXPECT_EQ(trial.GetProgress().games, 1);
  EXPECT_EQ(trial.GetProgress().won, 0);
  EXPECT_THAT(trial.GetProgress().rounds, ElementsAre(3));
}

TEST_F(TrialTest, AChildThatPrintsWithoutEndHoldsUpNoPoll) {
  Trial trial({"/bin/sh", "-c", "yes | tr -d '\\n'"});
  trial.Start("level.json", 1);
  for (int i = 0; i < 200; ++i) trial.Poll();
  EXPECT_TRUE(trial.IsRunning());
  trial.Stop();
  EXPECT_EQ(trial.GetProgress().stage, Stage::kIdle);
}

TEST_F(TrialTest, StopEndsTheChildInTheMiddleAndKeepsTheCount) {
  Trial trial(
      Script("echo $$ >pid; echo 'game 1 seed 1 won 7 rounds'; trap '' TERM;"
             "while :; do sleep 1; done"));
  trial.Start("level.json", 20);
  ASSERT_TRUE(PollToGame(&trial, 1));
  EXPECT_EQ(kill(ReadProcessId(), 0), 0);
  trial.Stop();
  EXPECT_NE(kill(ReadProcessId(), 0), 0) << "neither running nor a zombie";
  EXPECT_EQ(trial.GetProgress().stage, Stage::kIdle);
  EXPECT_EQ(trial.GetProgress().won, 1);
  trial.Poll();
  trial.Stop();
  EXPECT_EQ(trial.GetProgress().stage, Stage::kIdle);
}

TEST_F(TrialTest, TheDestructorEndsTheChildAndRemovesTheReplay) {
  std::string replay;
  {
    Trial trial(Script("echo $$ >pid; echo x >$6; echo 'game 1 seed 1 won 7 rounds'; sleep 100"));
    trial.Start("level.json", 2);
    ASSERT_TRUE(PollToGame(&trial, 1));
    replay = trial.GetProgress().replay_file;
    EXPECT_TRUE(std::filesystem::exists(replay));
  }
  EXPECT_NE(kill(ReadProcessId(), 0), 0);
  EXPECT_FALSE(std::filesystem::exists(std::filesystem::path(replay).parent_path()));
}

TEST_F(TrialTest, ASecondStartEndsTheFirstAndCountsAnew) {
  Trial trial(Script("echo $$ >pid; echo x >$6; echo 'game 1 seed 1 won 7 rounds'; sleep $2"));
  trial.Start("100", 2);
  ASSERT_TRUE(PollToGame(&trial, 1));
  const pid_t first = ReadProcessId();
  const std::string first_replay = trial.GetProgress().replay_file;
  trial.Start("0", 1);
  EXPECT_NE(kill(first, 0), 0);
  EXPECT_FALSE(std::filesystem::exists(first_replay));
  EXPECT_EQ(trial.GetProgress().games, 0);
  ASSERT_TRUE(PollToEnd(&trial));
  EXPECT_EQ(trial.GetProgress().stage, Stage::kFinished);
  EXPECT_EQ(trial.GetProgress().games, 1);
}

TEST_F(TrialTest, ACommandThatIsNotThereFails) {
  Trial trial({"/no/such/program"});
  trial.Start("level.json", 1);
  EXPECT_EQ(trial.GetProgress().stage, Stage::kFailed);
  EXPECT_THAT(trial.GetProgress().message, HasSubstr("/no/such/program"));
  trial.Poll();
  EXPECT_FALSE(trial.IsRunning());
}

TEST_F(TrialTest, AChildWithoutAPlaceInTheTerminalCannotReadIt) {
  Trial trial(Script("cat >read; echo 'game 1 seed 1 lost 1 rounds'"));
  trial.Start("level.json", 1);
  ASSERT_TRUE(PollToEnd(&trial));
  EXPECT_EQ(m_directory.Read("read"), "");
}

TEST_F(TrialTest, NoDescriptorIsLeftOpen) {
  const std::ptrdiff_t before = CountDescriptors();
  {
    Trial trial(Script("echo 'game 1 seed 1 won 7 rounds'; sleep $2"));
    trial.Start("0", 1);
    ASSERT_TRUE(PollToEnd(&trial));
    EXPECT_EQ(CountDescriptors(), before);
    trial.Start("100", 1);
    trial.Start("100", 1);
    ASSERT_TRUE(PollToGame(&trial, 1));
    EXPECT_EQ(CountDescriptors(), before + 1);
  }
  EXPECT_EQ(CountDescriptors(), before);
  Trial missing({"/no/such/program"});
  missing.Start("level.json", 1);
  EXPECT_EQ(CountDescriptors(), before);
}

}  // namespace
}  // namespace ZOVEngine
