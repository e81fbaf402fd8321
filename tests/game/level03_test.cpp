#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "game/objectquery.h"
#include "game/turns/gamecontroller.h"
#include "game/units/enemy.h"
#include "game/units/player.h"
#include "physics/components/transform.h"
#include "support/autoplayer.h"
#include "support/levelgame.h"
#include "support/reports.h"

namespace carapace_test {
namespace {

using namespace ZOVEngine;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::SizeIs;

constexpr std::uint32_t kSeed = 3;
constexpr int kMostSteps = 3000;  ///< that anything here may take

/// The third level as it is shipped, before the player's first turn.
class Level03 : public ::testing::Test {
 protected:
  Level03() { m_world.Step(); }

  GameController& Controller() { return *m_world.Find("level")->GetComponent<GameController>(); }
  GameObj* PlayerAt(std::size_t index) { return Controller().m_players[index]; }
  GameObj* EnemyAt(std::size_t index) { return Controller().m_enemies[index]; }
  int HealthOf(std::size_t enemy) { return EnemyAt(enemy)->GetComponent<Enemy>()->m_health; }

  static const Vector3D& PlaceOf(GameObj* object) {
    return object->GetComponent<Transform>()->m_world_pos;
  }

  /// Skips turns until it is this unit's, which keeps it.
  void SkipToTurnOf(GameObj* unit) {
    AutoPlayer player(&m_world, AutoPlayer::Style::kSkip);
    for (int step = 0; step < kMostSteps; ++step) {
      if (Controller().m_selected == unit && Controller().m_state == TURN_PLAYER_MOVE) return;
      player.Step();
    }
    FAIL() << unit->name << " has no turn";
  }

  /// In its turn the unit fires one of its weapons at a place; then all comes to rest.
  void Fire(std::size_t player, bool first_weapon, const Vector3D& at) {
    SkipToTurnOf(PlayerAt(player));
    auto* unit = PlayerAt(player)->GetComponent<Player>();
    unit->m_selected_first_weapon = first_weapon;
    unit->Fire(at);
    m_world.Step(10);
    for (int step = 0; step < kMostSteps && !Controller().AllBodiesAtRest(); ++step) m_world.Step();
    m_world.Step(2);
  }

  LevelGame m_game{"Level03", kSeed};
  World& m_world = m_game.world;
};

TEST(Level03Files, LoadingThemComplainsOfNothing) {
  const std::string output = OutputOf([] {
    LevelGame game("Level03", kSeed);
    game.world.Step(2);
  });
  EXPECT_THAT(output, Not(HasSubstr("Cant find Key: m_")));
  EXPECT_THAT(output, Not(HasSubstr(" not found")));
  EXPECT_THAT(output, Not(HasSubstr("Not Object")));
}

TEST_F(Level03, ThreeStandAgainstFour) {
  EXPECT_THAT(Controller().m_players, SizeIs(3));
  EXPECT_THAT(Controller().m_enemies, SizeIs(4));
}

TEST_F(Level03, TheFirstVolleyKillsNobody) {
  AutoPlayer player(&m_world, AutoPlayer::Style::kSkip);
  ASSERT_FALSE(player.Play(2)) << "the enemies fire in the second round";
  for (GameObj* unit : Controller().m_players) {
    EXPECT_TRUE(unit->GetComponent<Player>()->m_alive) << unit->name;
  }
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
    AutoPlayer player(&game.world);
    player.Play(30);
    won += player.HasWon() ? 1 : 0;
  }
  EXPECT_GT(won, 0);
  LevelGame game("Level03", kSeed);
  AutoPlayer player(&game.world, AutoPlayer::Style::kSkip);
  player.Play(60);
  EXPECT_TRUE(player.HasLost());
}

}  // namespace
}  // namespace carapace_test
