#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "support/autoplayer.h"
#include "support/levelgame.h"
#include "support/recordedgame.h"

namespace carapace_test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsSupersetOf;
using ::testing::StartsWith;
using ZOVEngine::GameObj;

constexpr int kMostRounds = 30;

/// A game of the first level with a seed of its own.
struct Game : LevelGame {
  explicit Game(std::uint32_t seed, AutoPlayer::Style style = AutoPlayer::Style::kFight)
      : LevelGame("Level01", seed), player(&world, style) {}

  AutoPlayer player;
};

/// How many of the games with the seeds from 1 to `seeds` are won.
int CountWon(int seeds, AutoPlayer::Style style) {
  int won = 0;
  for (int seed = 1; seed <= seeds; ++seed) {
    Game game(static_cast<std::uint32_t>(seed), style);
    game.player.Play(kMostRounds);
    won += game.player.HasWon() ? 1 : 0;
  }
  return won;
}

TEST(Round, TheFirstLevelCanBeWonByWhoFights) {
  EXPECT_GE(CountWon(10, AutoPlayer::Style::kFight), 3);
}

TEST(Round, TheFirstLevelIsNotWonByWhoSkips) {
  EXPECT_EQ(CountWon(10, AutoPlayer::Style::kSkip), 0);
  Game game(1, AutoPlayer::Style::kSkip);
  EXPECT_TRUE(game.player.Play(kMostRounds)) << "it comes to no end";
  EXPECT_TRUE(game.player.HasLost());
}

TEST(Round, BothWeaponsOfATankAreFired) {
  Game game(1);
  std::set<std::string> flown;
  while (game.player.Step()) {
    for (GameObj* unit : AutoPlayer::Controller()->m_players) {
      for (GameObj* child : unit->children) {
        if (child->active && child->name.ends_with("Projectile")) flown.insert(child->name);
      }
    }
  }
  EXPECT_THAT(flown, ElementsAre("Weapon0Projectile", "Weapon1Projectile"));
}

TEST(Round, TheSameSeedGivesTheSameStateAtEveryStep) {
  std::vector<std::uint64_t> hashes;
  {
    Game game(3);
    for (int step = 0; step < 300 && game.player.Step(); ++step) {
      hashes.push_back(game.world.Hash());
    }
  }
  Game game(3);
  for (std::size_t step = 0; step < hashes.size(); ++step) {
    ASSERT_TRUE(game.player.Step());
    ASSERT_EQ(game.world.Hash(), hashes[step]) << "step " << step;
  }
}

class RecordedGames : public ::testing::TestWithParam<std::string> {};

TEST_P(RecordedGames, GoAsTheyWent) {
  std::ifstream in(GetParam());
  const RecordedGame game = RecordedGame::Read(in);
  ASSERT_GT(game.steps, 1000);
  ASSERT_GT(game.hashes.size(), 4u);
  EXPECT_EQ(game.Replay(), "");
}

INSTANTIATE_TEST_SUITE_P(Round, RecordedGames, ::testing::ValuesIn(RecordedGameFiles()),
                         [](const auto& test) {
                           return std::filesystem::path(test.param).stem().string();
                         });

/// In the game that is skipped every input counts; elsewhere the cursor often moves in vain.
TEST(RecordedGame, AnotherInputOrStateIsNoticed) {
  const std::vector<std::string> files = RecordedGameFiles();
  const auto skipped = std::ranges::find_if(
      files, [](const std::string& file) { return file.ends_with("level01_skips.txt"); });
  ASSERT_NE(skipped, files.end());
  std::ifstream in(*skipped);
  const RecordedGame game = RecordedGame::Read(in);
  RecordedGame other = game;
  other.hashes.begin()->second ^= 1;
  EXPECT_THAT(other.Replay(), StartsWith("another state after"));
  other = game;
  other.inputs.begin()->second.clear();
  EXPECT_NE(other.Replay(), "");
}

TEST(RecordedGame, AsTextItIsTheSame) {
  std::ifstream in(RecordedGameFiles().front());
  const RecordedGame game = RecordedGame::Read(in);
  std::stringstream text;
  game.Write(text);
  const RecordedGame again = RecordedGame::Read(text);
  EXPECT_EQ(again.level, game.level);
  EXPECT_EQ(again.seed, game.seed);
  EXPECT_EQ(again.inputs, game.inputs);
  EXPECT_EQ(again.hashes, game.hashes);
  EXPECT_EQ(again.steps, game.steps);
  EXPECT_EQ(again.outcome, game.outcome);
}

TEST(RecordedGame, EveryOutcomeIsAmongTheGames) {
  std::set<std::string> outcomes;
  for (const std::string& file : RecordedGameFiles()) {
    std::ifstream in(file);
    outcomes.insert(RecordedGame::Read(in).outcome);
  }
  EXPECT_THAT(outcomes, IsSupersetOf({"won", "lost"}));
}

}  // namespace
}  // namespace carapace_test
