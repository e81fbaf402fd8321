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

constexpr std::uint32_t kLevel03Seed = 3;

class Level03 : public LevelPlayTest {
 protected:
  Level03() : LevelPlayTest("Level03") {}
};

TEST(Level03Files, LoadingThemComplainsOfNothing) {
  ExpectLoadsQuietly("Level03");
}

TEST_F(Level03, ThreeStandAgainstFour) {
  EXPECT_THAT(Controller().m_players, SizeIs(3));
  EXPECT_THAT(Controller().m_enemies, SizeIs(4));
}

TEST_F(Level03, TheFirstVolleyKillsNobody) {
  ExpectTheFirstVolleyKillsNobody();
}

TEST_F(Level03, APullDragsTheFirstEnemyIntoTheHole) {
  Fire(0, true, PlaceOf(EnemyAt(0)));
  EXPECT_FALSE(EnemyAt(0)->GetComponent<Enemy>()->m_alive);
}

TEST_F(Level03, ASwapTradesPlacesWithTheEnemyInTheShelter) {
  SkipToTurnOf(PlayerAt(1));
  const Vector3D mine = PlaceOf(PlayerAt(1));
  const Vector3D shelter = PlaceOf(EnemyAt(1));
  Fire(1, true, shelter);
  EXPECT_LT((PlaceOf(PlayerAt(1)) - shelter).Length(), 5.0f);
  EXPECT_LT((PlaceOf(EnemyAt(1)) - mine).Length(), 5.0f);
}

TEST_F(Level03, OneBlastHurtsThePair) {
  const int third = HealthOf(2);
  const int fourth = HealthOf(3);
  Fire(2, true, PlaceOf(EnemyAt(2)));
  EXPECT_EQ(HealthOf(2), third - 2);
  EXPECT_EQ(HealthOf(3), fourth - 2);
}

TEST_F(Level03, TheHoleInTheMiddleSwallowsAShot) {
  SkipToTurnOf(PlayerAt(1));
  const int before = HealthOf(1);
  Fire(1, false, Vector3D(-20.0f, 70.0f, 0.0f));
  EXPECT_EQ(HealthOf(1), before);
  EXPECT_FALSE(FirstChildNamed(PlayerAt(1), "Weapon1Projectile")->active);
  EXPECT_LT(PlaceOf(FirstChildNamed(PlayerAt(1), "Weapon1Projectile")).x, 0.0f);
}

TEST(Level03Games, AreWonByPlayingAndLostBySkipping) {
  int won = 0;
  for (std::uint32_t seed = 1; seed <= 12 && won == 0; ++seed) {
    LevelGame game("Level03", seed);
    AutoPlayer player;
    player.Play(30);
    won += player.HasWon() ? 1 : 0;
  }
  EXPECT_GT(won, 0);
  LevelGame game("Level03", kLevel03Seed);
  AutoPlayer player(AutoPlayer::Style::kSkip);
  player.Play(60);
  EXPECT_TRUE(player.HasLost());
}

}  // namespace
}  // namespace carapace_test
