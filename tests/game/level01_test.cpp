#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <vector>

#include "audio/audiosource.h"
#include "core/messages.h"
#include "game/hazards/environmentblackhole.h"
#include "game/hazards/environmentdamage.h"
#include "game/hazards/environmentdestructible.h"
#include "game/hazards/environmentrough.h"
#include "game/objectquery.h"
#include "game/turns/gamecontroller.h"
#include "game/units/enemy.h"
#include "game/units/player.h"
#include "objects/gameobjfactory.h"
#include "physics/components/colliderholder.h"
#include "physics/components/rigidbody.h"
#include "physics/components/transform.h"
#include "render/components/particle.h"
#include "render/components/render.h"
#include "support/levelgame.h"
#include "support/reports.h"
#include "ui/elements/uielement.h"

namespace carapace_test {
namespace {

using namespace ZOVEngine;
using ::testing::HasSubstr;
using ::testing::IsSupersetOf;
using ::testing::Not;
using ::testing::SizeIs;

constexpr std::uint32_t kSeed = 1;

/// The first level as it is shipped, entered from the menu, after its first step.
class Level01 : public ::testing::Test {
 protected:
  GameController& Controller() { return *m_world.Find("level")->GetComponent<GameController>(); }

  static const Vector3D& PlaceOf(GameObj* object) {
    return object->GetComponent<Transform>()->m_world_pos;
  }

  static std::multiset<std::string> ChildrenOf(GameObj* object) {
    std::multiset<std::string> names;
    for (GameObj* child : object->children) names.insert(child->name);
    return names;
  }

  /// The strips that show where a unit would fire, as far as they are seen.
  static std::vector<GameObj*> SightsOf(GameObj* unit) {
    std::vector<GameObj*> seen;
    for (GameObj* child : unit->children) {
      const auto* render = FindComponent<Render>(child);
      const bool shown = render != nullptr && render->m_tex == "UI_Sight" && render->m_visible;
      if (shown && child->active) seen.push_back(child);
    }
    return seen;
  }

  static bool IsInWall(const Vector3D& place) {
    return std::ranges::any_of(
        ComponentTable<ColliderHolder>().Components(), [&](const ColliderHolder* holder) {
          const Vector3D& min = holder->m_collider->m_min;
          const Vector3D& max = holder->m_collider->m_max;
          return holder->m_owner->name == "tile_collider" && min.x <= place.x && place.x <= max.x &&
                 min.y <= place.y && place.y <= max.y;
        });
  }

  /// How many can be met: examples of the glossary have no shape.
  template <class T>
  static std::ptrdiff_t Count() {
    return std::ranges::count_if(ComponentTable<T>().Components(), [](const T* component) {
      return component->m_owner->template HasComponent<ColliderHolder>();
    });
  }

  LevelGame m_game{"Level01", kSeed};
  World& m_world = m_game.world;
};

TEST(Level01Files, LoadingThemComplainsOfNothing) {
  const std::string output = OutputOf([] {
    LevelGame game("Level01", kSeed);
    game.world.Step(2);
  });
  EXPECT_THAT(output, Not(HasSubstr("Cant find Key: m_")));
  EXPECT_THAT(output, Not(HasSubstr(" not found")));
  EXPECT_THAT(output, Not(HasSubstr("Not Object")));
}

TEST_F(Level01, TwoTanksStandAgainstTwo) {
  EXPECT_THAT(Controller().m_players, SizeIs(2));
  EXPECT_THAT(Controller().m_enemies, SizeIs(2));
  EXPECT_NE(Controller().m_camera, nullptr);
}

TEST_F(Level01, EveryTankHasTheChildrenThatTheGameLooksFor) {
  std::vector<GameObj*> tanks = Controller().m_players;
  tanks.insert(tanks.end(), Controller().m_enemies.begin(), Controller().m_enemies.end());
  ASSERT_THAT(tanks, SizeIs(4));
  for (GameObj* tank : tanks) {
    EXPECT_THAT(ChildrenOf(tank),
                IsSupersetOf({"Weapon0Barrel", "Weapon1Barrel", "Weapon0Projectile",
                              "Weapon1Projectile", "electricvfx", "WeaponText", "unit_fire",
                              "ui_selected", "ui_hp_frame", "ui_hp_frame_filled",
                              "ui_hp_frame_empty", "hp_font", "turn_font", "unit_damaged"}))
        << tank->name;
    for (GameObj* child : tank->children) {
      if (child->name != "Weapon0Projectile" && child->name != "Weapon1Projectile") continue;
      EXPECT_THAT(ChildrenOf(child),
                  IsSupersetOf({"bullet_trail", "bullet_feedback", "bullet_hit"}))
          << tank->name << "/" << child->name;
      EXPECT_FALSE(child->active) << "a shot sleeps until it is fired";
    }
  }
}

TEST_F(Level01, ThereAreWallsAndNoHazards) {
  EXPECT_EQ(Count<EnvironmentBlackhole>() + Count<EnvironmentDamage>() + Count<EnvironmentRough>() +
                Count<EnvironmentDestructible>(),
            0);
  EXPECT_EQ(m_world.Find("MovableBarrier"), nullptr);
}

TEST_F(Level01, FromTheStartEachTankSeesTheEnemyAcross) {
  EXPECT_TRUE(IsInWall(Vector3D(-540.0f, 0.0f, 1.0f))) << "the wall between the players";
  for (std::size_t k = 0; k < 2; ++k) {
    const Vector3D& from = PlaceOf(Controller().m_enemies[k]);
    const Vector3D path = PlaceOf(Controller().m_players[k]) - from;
    for (float part = 0.0f; part <= 1.0f; part += 0.005f) {
      ASSERT_FALSE(IsInWall(from + path * part)) << "a wall between the two";
    }
  }
}

TEST_F(Level01, TheMusicPlaysAndTheTanksAreHeardToSpawn) {
  m_world.Step();
  EXPECT_EQ(m_world.mixer.CountPlays("Resources/Sound/BGM/maintheme03.ogg"), 1);
  EXPECT_EQ(m_world.mixer.CountPlays("Resources/Sound/SFX/unit_spawn.ogg"), 4);
}

TEST_F(Level01, TheHealthBarFillsItsFrameAndFollowsTheTank) {
  m_world.Step(3);
  GameObj* tank = Controller().m_players.front();
  for (GameObj* child : tank->children) {
    if (child->name != "ui_hp_frame_filled") continue;
    const auto* bar = child->GetComponent<Transform>();
    EXPECT_NEAR(bar->m_world_scale.x, 73.0f, 0.5f);
    EXPECT_NEAR(bar->m_world_pos.x, PlaceOf(tank).x, 0.5f);
    EXPECT_GT(bar->m_world_pos.y, PlaceOf(tank).y + 45.0f);
  }
}

/// Down the hall, where nothing is in its way.
TEST_F(Level01, AFullBarCarriesATankTwoHundredToThreeHundredUnitsAndItRestsWithinTwoSeconds) {
  GameObj* tank = Controller().m_players.front();
  const auto* player = tank->GetComponent<Player>();
  const float start = PlaceOf(tank).y;
  const int steps = static_cast<int>(player->m_movement_limit / 0.016f);
  for (int step = 0; step < steps; ++step) {
    m_world.Send(
        AddForceToObject(tank->id, Vector3D(0.0f, -1.0f, 0.0f), player->m_movement_mag, 0.1f));
    m_world.Step();
  }
  m_world.Step(120);
  EXPECT_GT(start - PlaceOf(tank).y, 200.0f);
  EXPECT_LT(start - PlaceOf(tank).y, 300.0f);
  EXPECT_LT(tank->GetComponent<RigidBody>()->m_vel.Length(), 3.0f);
}

/// Past the other tank to the lower wall, and up again to the upper one.
TEST_F(Level01, AShotFliesFourteenHundredUnits) {
  GameObj* tank = Controller().m_players.front();
  m_world.Step(60);
  tank->GetComponent<Player>()->Fire(PlaceOf(tank) + Vector3D(20.0f, -100.0f, 0.0f));
  GameObj* shot = nullptr;
  for (GameObj* child : tank->children) {
    if (child->name == "Weapon0Projectile") shot = child;
  }
  ASSERT_NE(shot, nullptr);
  float flown = 0.0f;
  for (int step = 0; step < 300 && shot->active; ++step) {
    m_world.Step();
    flown += shot->GetComponent<RigidBody>()->m_vel.Length() / 60.0f;
  }
  EXPECT_GT(flown, 1400.0f);
  EXPECT_FALSE(shot->active) << "its range or a tank ends it";
}

TEST_F(Level01, OneEnemyMovesAndThenItIsThePlayersTurn) {
  const Vector3D first = PlaceOf(Controller().m_enemies[0]);
  const Vector3D second = PlaceOf(Controller().m_enemies[1]);
  for (int step = 0; step < 1200 && Controller().m_state != TURN_PLAYER_MOVE; ++step) {
    m_world.Step();
  }
  EXPECT_EQ(Controller().m_state, TURN_PLAYER_MOVE);
  EXPECT_GT((PlaceOf(Controller().m_enemies[0]) - first).Length(), 60.0f);
  EXPECT_LT((PlaceOf(Controller().m_enemies[1]) - second).Length(), 1.0f) << "it has no patrol";
  EXPECT_EQ(Controller().m_selected, Controller().m_players.front());
}

TEST_F(Level01, TheSightOfAnEnemyLiesAlongItsHeading) {
  for (int step = 0; step < 1200 && Controller().m_state != TURN_PLAYER_MOVE; ++step) {
    m_world.Step();
  }
  for (GameObj* enemy : Controller().m_enemies) {
    ASSERT_THAT(SightsOf(enemy), SizeIs(1)) << "one of two weapons is held";
    const auto* sight = SightsOf(enemy).front()->GetComponent<Transform>();
    const float turn = enemy->GetComponent<Transform>()->m_world_rotate;
    EXPECT_NE(turn, 90.0f) << "it has turned to a player";
    EXPECT_NEAR(std::remainder(sight->m_world_rotate - turn, 360.0f), 0.0f, 0.1f);
    const Vector3D ahead = sight->m_world_pos - PlaceOf(enemy);
    const float bearing = std::atan2(ahead.y, ahead.x) * 57.29578f - 90.0f;
    EXPECT_NEAR(std::remainder(bearing - turn, 360.0f), 0.0f, 0.1f);
  }
}

TEST_F(Level01, TheSightOfAnEnemyVanishesWithIt) {
  m_world.Step(60);
  GameObj* enemy = Controller().m_enemies.front();
  ASSERT_THAT(SightsOf(enemy), SizeIs(1));
  enemy->GetComponent<Enemy>()->m_health = 0;
  m_world.Step(2);
  EXPECT_THAT(SightsOf(enemy), SizeIs(0));
}

TEST_F(Level01, AClickFiresAndTheTurnWaitsForTheShot) {
  for (int step = 0; step < 1200 && Controller().m_state != TURN_PLAYER_MOVE; ++step) {
    m_world.Step();
  }
  ASSERT_EQ(Controller().m_state, TURN_PLAYER_MOVE);
  m_world.Step(30);  // until the selection ring has closed
  m_world.Send(MouseButton(0, 1, Vector3D()));
  m_world.Step(10);
  GameObj* shooter = Controller().m_players.front();
  EXPECT_EQ(Controller().m_selected, shooter);
  EXPECT_EQ(Controller().m_state, TURN_PLAYER_SELECT) << "the next tank waits";
  for (int step = 0; step < 600 && Controller().m_selected == shooter; ++step) m_world.Step();
  EXPECT_EQ(Controller().m_selected, Controller().m_players.back());
}

TEST_F(Level01, WithoutAHandOnTheKeysItsTanksStayWhereTheyAre) {
  m_world.Step(60);
  std::vector<Vector3D> before;
  for (GameObj* tank : Controller().m_players) before.push_back(PlaceOf(tank));
  m_world.Step(300);
  for (std::size_t k = 0; k < before.size(); ++k) {
    EXPECT_LT((PlaceOf(Controller().m_players[k]) - before[k]).Length(), 1.0f);
    EXPECT_EQ(Controller().m_players[k]->GetComponent<Player>()->m_health, 5);
  }
}

}  // namespace
}  // namespace carapace_test
