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

/// The second level as it is shipped, before the player's first turn.
class Level02 : public ::testing::Test {
 protected:
  Level02() { m_world.Step(); }

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

  LevelGame m_game{"Level02", kSeed};
  World& m_world = m_game.world;
};

TEST(Level02Files, LoadingThemComplainsOfNothing) {
  const std::string output = OutputOf([] {
    LevelGame game("Level02", kSeed);
    game.world.Step(2);
  });
  EXPECT_THAT(output, Not(HasSubstr("Cant find Key: m_")));
  EXPECT_THAT(output, Not(HasSubstr(" not found")));
  EXPECT_THAT(output, Not(HasSubstr("Not Object")));
}

TEST_F(Level02, TwoStandAgainstThree) {
  EXPECT_THAT(Controller().m_players, SizeIs(2));
  EXPECT_THAT(Controller().m_enemies, SizeIs(3));
}

TEST_F(Level02, TheFirstVolleyKillsNobody) {
  AutoPlayer player(&m_world, AutoPlayer::Style::kSkip);
  ASSERT_FALSE(player.Play(2)) << "the enemies fire in the second round";
  for (GameObj* unit : Controller().m_players) {
    EXPECT_TRUE(unit->GetComponent<Player>()->m_alive) << unit->name;
  }
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
    AutoPlayer player(&game.world);
    player.Play(30);
    won += player.HasWon() ? 1 : 0;
  }
  EXPECT_GT(won, 0);
  LevelGame game("Level02", kSeed);
  AutoPlayer player(&game.world, AutoPlayer::Style::kSkip);
  player.Play(60);
  EXPECT_TRUE(player.HasLost());
}

}  // namespace
}  // namespace carapace_test
