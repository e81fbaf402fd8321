#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "core/random.h"
#include "core/statemachine.h"
#include "game/levelsave.h"
#include "support/autoplayer.h"
#include "support/world.h"

namespace carapace_test {
namespace {

constexpr int kMostRounds = 30;

/// What a player's program reads, with the first level.
Files FirstLevel() {
  Files files = World::ShippedFiles();
  const ZOVEngine::LevelPaths paths("Level01");
  for (const std::string& path : {paths.level, paths.tile_map, paths.tiles, paths.objects}) {
    files[path] = ShippedFile(path);
  }
  return files;
}

/// A game of the first level with a seed of its own.
class Game {
 public:
  explicit Game(std::uint32_t seed, AutoPlayer::Style style = AutoPlayer::Style::kFight)
      : player(&world, style) {
    // Once for what draws before the controller starts, and once for after, since the controller
    // seeds from the time of day.
    ZOVEngine::SeedRand(seed);
    ZOVEngine::g_current_level_path = ZOVEngine::LevelPaths("Level01").level;
    ZOVEngine::ChangeState(ZOVEngine::kDefaultState, "");
    world.Step();
    ZOVEngine::SeedRand(seed);
  }

  World world{FirstLevel()};
  AutoPlayer player;
};

TEST(Round, TheFirstLevelIsPlayedToAVictory) {
  Game game(2);
  EXPECT_TRUE(game.player.Play(kMostRounds)) << "it comes to no end";
  EXPECT_TRUE(game.player.HasWon());
  EXPECT_GT(game.player.Shots(), 0);
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

}  // namespace
}  // namespace carapace_test
