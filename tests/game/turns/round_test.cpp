#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "autoplay/autoplayer.h"
#include "autoplay/levelrun.h"
#include "game/turns/gamecontroller.h"
#include "support/levelgame.h"
#include "support/recordedgames.h"

namespace carapace_test {
namespace {

using ::testing::ElementsAre;
using ZOVEngine::AutoPlayer;
using ZOVEngine::GameObj;
using ZOVEngine::RecordedGame;

constexpr int kMostRounds = 30;

/// A game of the first level with a seed of its own.
struct Game : LevelGame {
  explicit Game(std::uint32_t seed, AutoPlayer::Style style = AutoPlayer::Style::kFight)
      : LevelGame("Level01", seed), player(style) {}

  AutoPlayer player;
};

/// How many of the games with the seeds from 1 to `seeds` are won; it stops counting at `enough`.
int CountWon(int seeds, AutoPlayer::Style style, int enough) {
  int won = 0;
  for (int seed = 1; seed <= seeds && won < enough; ++seed) {
    Game game(static_cast<std::uint32_t>(seed), style);
    game.player.Play(kMostRounds);
    won += game.player.HasWon() ? 1 : 0;
  }
  return won;
}

TEST(Round, TheFirstLevelCanBeWonByWhoFights) {
  EXPECT_GE(CountWon(10, AutoPlayer::Style::kFight, 3), 3);
}

TEST(Round, TheFirstLevelIsNotWonByWhoSkips) {
  EXPECT_EQ(CountWon(6, AutoPlayer::Style::kSkip, 1), 0);
  Game game(1, AutoPlayer::Style::kSkip);
  EXPECT_TRUE(game.player.Play(kMostRounds)) << "it comes to no end";
  EXPECT_TRUE(game.player.HasLost());
}

TEST(Round, BothWeaponsOfATankAreFired) {
  Game game(1);
  std::set<std::string> flown;
  while (game.player.Step()) {
    for (GameObj* unit : ZOVEngine::FindTurnController()->m_players) {
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
  const RecordedGame game = ReadGame(GetParam());
  ASSERT_GT(game.steps, 1000);
  ASSERT_GT(game.hashes.size(), 4u);
  EXPECT_EQ(PlayAgain(game), "");
}

INSTANTIATE_TEST_SUITE_P(Round, RecordedGames, ::testing::ValuesIn(RecordedGameFiles()),
                         [](const auto& test) {
                           return std::filesystem::path(test.param).stem().string();
                         });

}  // namespace
}  // namespace carapace_test
