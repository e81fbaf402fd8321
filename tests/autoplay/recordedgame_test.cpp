#include "autoplay/recordedgame.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "support/recordedgames.h"

namespace ZOVEngine {
namespace {

using carapace_test::PlayAgain;
using carapace_test::ReadGame;
using carapace_test::RecordedGameFiles;
using ::testing::IsSupersetOf;
using ::testing::SizeIs;
using ::testing::StartsWith;

/// In the game that is skipped every input counts; elsewhere the cursor often moves in vain.
RecordedGame ReadSkippedGame() {
  const std::vector<std::string> files = RecordedGameFiles();
  const auto skipped = std::ranges::find_if(
      files, [](const std::string& file) { return file.ends_with("level01_skips.txt"); });
  return skipped == files.end() ? RecordedGame() : ReadGame(*skipped);
}

RecordedGame ReadText(const std::string& text) {
  std::istringstream in(text);
  return RecordedGame::Read(in);
}

std::string Text(const RecordedGame& game) {
  std::ostringstream out;
  game.Write(out);
  return out.str();
}

TEST(RecordedGame, AnotherInputOrStateIsNoticed) {
  const RecordedGame game = ReadSkippedGame();
  ASSERT_EQ(game.level, "Level01");
  RecordedGame other = game;
  other.hashes.begin()->second ^= 1;
  EXPECT_THAT(PlayAgain(other), StartsWith("another state after"));
  other = game;
  other.inputs.begin()->second.clear();
  EXPECT_NE(PlayAgain(other), "");
}

TEST(RecordedGame, AsTextItIsTheSame) {
  const RecordedGame game = ReadGame(RecordedGameFiles().front());
  const RecordedGame again = ReadText(Text(game));
  EXPECT_EQ(again.level, game.level);
  EXPECT_EQ(again.seed, game.seed);
  EXPECT_EQ(again.inputs, game.inputs);
  EXPECT_EQ(again.hashes, game.hashes);
  EXPECT_EQ(again.steps, game.steps);
  EXPECT_EQ(again.outcome, game.outcome);
}

TEST(RecordedGame, EveryOutcomeIsAmongTheGames) {
  std::set<std::string> outcomes;
  for (const std::string& file : RecordedGameFiles()) outcomes.insert(ReadGame(file).outcome);
  EXPECT_THAT(outcomes, IsSupersetOf({"won", "lost"}));
}

TEST(RecordedGame, ADirectionThatIsHeldIsOneLine) {
  const std::string text = "Level 1\n3 d 2 4\n3 c 10 -20\n9 end open\n";
  const RecordedGame game = ReadText(text);
  for (int step = 3; step < 7; ++step) EXPECT_EQ(game.inputs.count(step), 1u) << step;
  EXPECT_THAT(game.inputs, SizeIs(4));
  EXPECT_EQ(Text(game), text);
}

TEST(RecordedGame, TheNameOfALevelMayHaveBlanks) {
  const std::string text = "My second level 12\n9 p ffffffffffffffff\n9 end won\n";
  const RecordedGame game = ReadText(text);
  EXPECT_EQ(game.level, "My second level");
  EXPECT_EQ(game.seed, 12u);
  EXPECT_EQ(game.places.at(9), 0xffffffffffffffffull);
  EXPECT_EQ(Text(game), text);
}

TEST(RecordedGame, AnyOtherTextGivesAGameWithoutALevel) {
  for (const char* text : {"", "Level\n9 end won\n", "Level one\n9 end won\n", "Level 1\n",
                           "Level 1\n9 end\n", "Level 1\nx c 1 2\n9 end won\n",
                           "Level 1\n1 c 1\n9 end won\n", "Level 1\n1 z 1 2\n9 end won\n",
                           "Level 1\n1 cc 1 2\n9 end won\n", "Level 1\n1 h\n9 end won\n",
                           "Level 1\n1 d 2 999999999\n9 end won\n", "{\"GameObjFactory\": []}\n"}) {
    EXPECT_EQ(ReadText(text).level, "") << text;
  }
}

TEST(RecordedGame, ALimitOfRoundsLeavesTheGameOpen) {
  const RecordedGame game = carapace_test::RecordGame(
      "Level01", 1,
      {.style = AutoPlayer::Style::kSkip, .marks = RecordedGame::Marks::kPlaces, .most_rounds = 1});
  EXPECT_EQ(game.outcome, "open");
  EXPECT_GT(game.steps, 60);
  EXPECT_THAT(game.hashes, SizeIs(0));
  EXPECT_EQ(game.places.count(game.steps), 1u);
  EXPECT_EQ(PlayAgain(game), "");
}

TEST(RecordedGame, APlaceThatIsElsewhereIsNoticed) {
  RecordedGame game = carapace_test::RecordGame(
      "Level01", 1, {.marks = RecordedGame::Marks::kPlaces, .most_steps = 20});
  game.places.begin()->second ^= 1;
  EXPECT_EQ(PlayAgain(game), "another state after 20 steps");
}

}  // namespace
}  // namespace ZOVEngine
