#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "autoplay/autoplayer.h"
#include "game/levelplay.h"
#include "game/objectquery.h"
#include "game/turns/gamecontroller.h"
#include "game/units/enemy.h"
#include "game/units/player.h"
#include "physics/components/transform.h"
#include "support/levelgame.h"

namespace carapace_test {
namespace {

using namespace ZOVEngine;
using ::testing::SizeIs;

constexpr std::uint32_t kLevel02Seed = 3;

class Level02 : public LevelPlayTest {
 protected:
  Level02() : LevelPlayTest("Level02") {}
};

TEST(Level02Files, LoadingThemComplainsOfNothing) {
  ExpectLoadsQuietly("Level02");
}

TEST_F(Level02, TwoStandAgainstThree) {
  EXPECT_THAT(Controller().m_players, SizeIs(2));
  EXPECT_THAT(Controller().m_enemies, SizeIs(3));
}

TEST_F(Level02, TheFirstVolleyKillsNobody) {
  ExpectTheFirstVolleyKillsNobody();
}

TEST_F(Level02, APushSendsTheFirstEnemyIntoTheHole) {
  Fire(0, false, PlaceOf(EnemyAt(0)));
  EXPECT_FALSE(EnemyAt(0)->GetComponent<Enemy>()->m_alive);
}

TEST_F(Level02, AShotTakesOneOfItsHealth) {
  const int before = HealthOf(0);
  Fire(0, true, PlaceOf(EnemyAt(0)));
  EXPECT_EQ(HealthOf(0), before - 1);
}

TEST_F(Level02, ANeedleGoesThroughTheTwoInLine) {
  const int nearer = HealthOf(1);
  const int farther = HealthOf(2);
  Fire(1, true, PlaceOf(EnemyAt(1)));
  EXPECT_EQ(HealthOf(1), nearer - 1);
  EXPECT_EQ(HealthOf(2), farther - 1);
}

TEST_F(Level02, APushSendsTheNearerOfTheTwoOntoTheZone) {
  Fire(1, false, PlaceOf(EnemyAt(1)));
  EXPECT_EQ(EnemyAt(1)->GetComponent<Enemy>()->m_status, "damaged");
}

TEST(Level02Games, AreWonByPlayingAndLostBySkipping) {
  int won = 0;
  for (std::uint32_t seed = 1; seed <= 12 && won == 0; ++seed) {
    LevelGame game("Level02", seed);
    AutoPlayer player;
    player.Play(30);
    won += player.HasWon() ? 1 : 0;
  }
  EXPECT_GT(won, 0);
  LevelGame game("Level02", kLevel02Seed);
  AutoPlayer player(AutoPlayer::Style::kSkip);
  player.Play(60);
  EXPECT_TRUE(player.HasLost());
}

}  // namespace
}  // namespace carapace_test
