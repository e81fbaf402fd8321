#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "autoplay/autoplayer.h"
#include "game/turns/gamecontroller.h"
#include "game/units/enemy.h"
#include "game/units/player.h"
#include "physics/components/transform.h"
#include "support/levelgame.h"
#include "support/reports.h"

namespace carapace_test {

/// Loading the level's files, and its first steps, print no complaint.
inline void ExpectLoadsQuietly(const std::string& level) {
  using ::testing::HasSubstr;
  using ::testing::Not;
  const std::string output = OutputOf([&level] {
    LevelGame game(level, 1);
    game.world.Step(2);
  });
  EXPECT_THAT(output, Not(HasSubstr("Cant find Key: m_")));
  EXPECT_THAT(output, Not(HasSubstr(" not found")));
  EXPECT_THAT(output, Not(HasSubstr("Not Object")));
}

/// A level as it is shipped, before the player's first turn, and what a player does in it.
class LevelPlayTest : public ::testing::Test {
 protected:
  static constexpr std::uint32_t kSeed = 3;
  static constexpr int kMostSteps = 3000;  ///< that anything here may take

  explicit LevelPlayTest(const std::string& level) : m_game(level, kSeed) { m_world.Step(); }

  ZOVEngine::GameController& Controller() {
    return *m_world.Find("level")->GetComponent<ZOVEngine::GameController>();
  }
  ZOVEngine::GameObj* PlayerAt(std::size_t index) { return Controller().m_players[index]; }
  ZOVEngine::GameObj* EnemyAt(std::size_t index) { return Controller().m_enemies[index]; }
  int HealthOf(std::size_t enemy) {
    return EnemyAt(enemy)->GetComponent<ZOVEngine::Enemy>()->m_health;
  }

  static const ZOVEngine::Vector3D& PlaceOf(ZOVEngine::GameObj* object) {
    return object->GetComponent<ZOVEngine::Transform>()->m_world_pos;
  }

  /// Skips turns until it is this unit's, which keeps it.
  void SkipToTurnOf(ZOVEngine::GameObj* unit) {
    ZOVEngine::AutoPlayer player(ZOVEngine::AutoPlayer::Style::kSkip);
    for (int step = 0; step < kMostSteps; ++step) {
      if (Controller().m_selected == unit && Controller().m_state == ZOVEngine::TURN_PLAYER_MOVE)
        return;
      player.Step();
    }
    FAIL() << unit->name << " has no turn";
  }

  /// In its turn the unit fires one of its weapons at a place; then all comes to rest.
  void Fire(std::size_t player, bool first_weapon, const ZOVEngine::Vector3D& at) {
    SkipToTurnOf(PlayerAt(player));
    auto* unit = PlayerAt(player)->GetComponent<ZOVEngine::Player>();
    unit->m_selected_first_weapon = first_weapon;
    unit->Fire(at);
    m_world.Step(10);
    for (int step = 0; step < kMostSteps && !Controller().AllBodiesAtRest(); ++step) m_world.Step();
    m_world.Step(2);
  }

  /// Skips until the enemies have fired once: no unit of the player dies of it.
  void ExpectTheFirstVolleyKillsNobody() {
    ZOVEngine::AutoPlayer player(ZOVEngine::AutoPlayer::Style::kSkip);
    ASSERT_FALSE(player.Play(2)) << "the enemies fire in the second round";
    for (ZOVEngine::GameObj* unit : Controller().m_players) {
      EXPECT_TRUE(unit->GetComponent<ZOVEngine::Player>()->m_alive) << unit->name;
    }
  }

  LevelGame m_game;
  World& m_world = m_game.world;
};

}  // namespace carapace_test
