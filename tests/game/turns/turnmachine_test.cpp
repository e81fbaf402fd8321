#include "game/turns/turnmachine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <stdexcept>

#include "core/base/random.h"
#include "game/turns/turnworld.h"
#include "game/units/aicomp.h"
#include "objects/statec.h"
#include "physics/components/colliderholder.h"
#include "ui/elements/uielement.h"

namespace ZOVEngine {
namespace {

using carapace_test::ElementNamed;
using carapace_test::OutputOf;
using carapace_test::PlacedAt;
using carapace_test::Record;
using carapace_test::TransformOf;
using carapace_test::TurnWorld;
using carapace_test::UnitAt;
using carapace_test::UnitKind;
using ::testing::IsEmpty;
using ::testing::SizeIs;

// The graph of turns

TEST(TurnMachine, EnemiesThatHaveAllActedEndTheirTurn) {
  const TurnWorld level;
  level.GetEnemy("e").m_moved = level.GetEnemy("e").m_fired = true;
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_NEXT), "Enemy Turn End\n");
  EXPECT_EQ(level.State(), TURN_PLAYER_NEXT);
  EXPECT_FALSE(level.GetEnemy("e").m_moved);
  EXPECT_FALSE(level.GetEnemy("e").m_fired);
}

TEST(TurnMachine, AnEnemyLeftToActIsToBeSelected) {
  const TurnWorld level;
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_NEXT), "Enemy Turn Begin\n");
  EXPECT_EQ(level.State(), TURN_ENEMY_SELECT);
}

TEST(TurnMachine, NoEnemyToSelectIsTheEnd) {
  const TurnWorld level;
  level.GetEnemy("e").m_moved = true;
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_SELECT), "Enemy Unit Select\n");
  EXPECT_EQ(level.State(), TURN_LEVEL_END);
  EXPECT_EQ(level.Turn(5), "");
  EXPECT_EQ(level.State(), TURN_LEVEL_END);
}

TEST(TurnMachine, InTheFirstRoundASelectedEnemyMoves) {
  const TurnWorld level;
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_SELECT), "Enemy Unit Select\n");
  EXPECT_EQ(level.State(), TURN_ENEMY_MOVE);
  EXPECT_EQ(level.Controller().m_selected, level.Find("e"));
}

TEST(TurnMachine, InLaterRoundsASelectedEnemyShoots) {
  const TurnWorld level;
  level.Controller().m_round = 1;
  level.TurnFrom(TURN_ENEMY_SELECT);
  EXPECT_EQ(level.State(), TURN_ENEMY_SHOOT);
}

TEST(TurnMachine, TheFirstLivingEnemyThatHasNotMovedIsSelected) {
  const TurnWorld level(
      {UnitAt(UnitKind::kEnemy, "dead", 0, 0), UnitAt(UnitKind::kEnemy, "moved", 0, 0),
       UnitAt(UnitKind::kEnemy, "third", 0, 0), UnitAt(UnitKind::kEnemy, "fourth", 0, 0),
       UnitAt(UnitKind::kPlayer, "p", 0, 0)});
  level.GetEnemy("dead").m_alive = false;
  level.GetEnemy("moved").m_moved = true;
  level.TurnFrom(TURN_ENEMY_SELECT);
  EXPECT_EQ(level.Controller().m_selected, level.Find("third"));
}

TEST(TurnMachine, AnEnemyThatItsDamageKillsLosesItsTurn) {
  const TurnWorld level;
  level.GetEnemy("e").m_status = "damaged";
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_SELECT), "Enemy Unit Select\n");
  EXPECT_EQ(level.GetEnemy("e").m_health, 0);
  EXPECT_EQ(level.State(), TURN_ENEMY_NEXT);
}

TEST(TurnMachine, AnEnemyShootsThenMoves) {
  const TurnWorld level;
  level.Controller().m_selected = level.Find("e");
  level.GetEnemy("e").m_target = level.Find("p");
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_SHOOT), "Enemy Shoot\n");
  EXPECT_EQ(level.State(), TURN_ENEMY_MOVE);
  EXPECT_TRUE(level.GetEnemy("e").m_fired);
}

TEST(TurnMachine, AnEnemyThatDiedAfterItsSelectionStillFiresAndDrawsATarget) {
  const TurnWorld level({UnitAt(UnitKind::kEnemy, "e", 0, 0), UnitAt(UnitKind::kEnemy, "e2", 0, 0),
                         UnitAt(UnitKind::kPlayer, "p", 0, 0)});
  Enemy& enemy = level.GetEnemy("e");
  level.Controller().m_selected = level.Find("e");
  enemy.m_target = level.Find("e2");
  enemy.m_alive = false;
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_SHOOT), "Enemy Shoot\n");
  EXPECT_TRUE(enemy.m_fired);
  EXPECT_EQ(level.Turn(2), "Enemy Aim\n");
  EXPECT_EQ(enemy.m_target, level.Find("p"));
}

TEST(TurnMachine, AnEnemyThatHasFiredDoesNotFireAgain) {
  const TurnWorld level({UnitAt(UnitKind::kEnemy, "e", 0, 0, "{}",
                                {Record("unit_fire", {{"Transform", PlacedAt(0, 0)},
                                                      {"Render", R"({"m_visible": false})"},
                                                      {"iModel", "{}"},
                                                      {"Animation", "{}"},
                                                      {"StateC", R"({"m_state": "off"})"}})}),
                         UnitAt(UnitKind::kPlayer, "p", 0, 0)});
  level.Controller().m_selected = level.Find("e");
  level.GetEnemy("e").m_target = level.Find("p");
  const std::string& fire = level.Find("unit_fire")->GetComponent<StateC>()->m_state;
  level.GetEnemy("e").m_fired = true;
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_SHOOT), "Enemy Shoot\n");
  EXPECT_EQ(fire, "off");
  level.GetEnemy("e").m_fired = false;
  level.TurnFrom(TURN_ENEMY_SHOOT);
  EXPECT_EQ(fire, "once");
}

TEST(TurnMachine, AShotWaitsForTheChangeOfABoss) {
  const TurnWorld level;
  Enemy& boss = level.GetEnemy("e");
  level.Controller().m_selected = level.Find("e");
  boss.m_boss = boss.m_phase_change = true;
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_SHOOT), "");
  EXPECT_EQ(level.State(), TURN_ENEMY_SHOOT);
  boss.m_phase_ready = true;
  EXPECT_EQ(level.Turn(), "Enemy Shoot\n");
  EXPECT_EQ(level.State(), TURN_ENEMY_MOVE);
}

TEST(TurnMachine, AShotDoesNotWaitForTheChangeOfADeadBoss) {
  const TurnWorld level({UnitAt(UnitKind::kEnemy, "e", 0, 0), UnitAt(UnitKind::kEnemy, "e2", 0, 0),
                         UnitAt(UnitKind::kPlayer, "p", 0, 0)});
  Enemy& boss = level.GetEnemy("e");
  level.Controller().m_selected = level.Find("e");
  boss.m_boss = boss.m_phase_change = true;
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_SHOOT), "");
  boss.m_alive = false;
  EXPECT_EQ(level.Turn(), "Enemy Shoot\n");
  EXPECT_EQ(level.State(), TURN_ENEMY_MOVE);
}

TEST(TurnMachine, AChangeHoldsUpNobodyButABoss) {
  const TurnWorld level;
  level.Controller().m_selected = level.Find("e");
  level.GetEnemy("e").m_phase_change = true;
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_SHOOT), "Enemy Shoot\n");
}

TEST(TurnMachine, ABossThatDoesNotChangeShootsAtOnce) {
  const TurnWorld level;
  level.Controller().m_selected = level.Find("e");
  level.GetEnemy("e").m_boss = true;
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_SHOOT), "Enemy Shoot\n");
  EXPECT_EQ(level.State(), TURN_ENEMY_MOVE);
}

TEST(TurnMachine, AnEnemyThatCannotMoveAimsAtOnce) {
  const TurnWorld level;
  level.Controller().m_selected = level.Find("e");
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_MOVE), "");
  EXPECT_EQ(level.State(), TURN_ENEMY_AIM);
  EXPECT_TRUE(level.GetEnemy("e").m_moved);
}

TEST(TurnMachine, AMoverMovesAnEnemyUntilItsTimeIsOver) {
  const TurnWorld level({UnitAt(UnitKind::kEnemy, "e", 0, 0,
                                R"({"m_waypoints": [[0, 0, 1], [500, 0, 1]], "m_move_speed": 2})"),
                         UnitAt(UnitKind::kPlayer, "p", 0, 0)});
  Enemy& enemy = level.GetEnemy("e");
  level.Find("e")->AddComponent<AIComp>();
  level.Find("e")->GetComponent<AIComp>()->m_dt = kStep;
  enemy.m_waypoint_index = 1;
  level.Controller().m_selected = level.Find("e");
  level.TurnFrom(TURN_ENEMY_MOVE);
  EXPECT_EQ(level.State(), TURN_ENEMY_MOVE);
  ASSERT_THAT(level.GetBody("e").m_forces, SizeIs(1));
  EXPECT_EQ(level.GetBody("e").m_forces[0]->magnitude, 200.0f);
  level.Turn();
  EXPECT_THAT(level.GetBody("e").m_forces, SizeIs(1));
  EXPECT_TRUE(enemy.m_moved);
  EXPECT_EQ(level.State(), TURN_ENEMY_AIM);
}

TEST(TurnMachine, AMoverWithoutAPathHoldsTheTurn) {
  const TurnWorld level;
  level.Find("e")->AddComponent<AIComp>();
  level.Controller().m_selected = level.Find("e");
  level.Controller().m_state = TURN_ENEMY_MOVE;
  EXPECT_EQ(level.Turn(100), "");
  EXPECT_EQ(level.State(), TURN_ENEMY_MOVE);
  level.GetEnemy("e").m_alive = false;
  level.Turn();
  EXPECT_EQ(level.State(), TURN_LEVEL_END);
}

TEST(TurnMachine, AWallInTheWayEndsTheMoveWhenItsTimeRunsOut) {
  const auto holder = [](const std::string& shape) {
    return R"({"m_active": true, "m_layer": 0, "m_collider_type": ")" + shape +
           R"(", "bitmask_category": "Default", "collider_vertices": [],
              "m_local_scale": [1, 1, 1], "m_local_pos": [0, 0, 1], "m_local_rot": 0})";
  };
  TurnWorld level({Record("e", {{"Transform", PlacedAt(0, 0, 40)},
                                {"ColliderHolder", holder("Circle")},
                                {"RigidBody", R"({"m_mass": 1, "m_inertia": 0, "m_drag": 1})"},
                                {"Render", "{}"},
                                {"iModel", "{}"},
                                {"Enemy", R"({"m_waypoints": [[0, 0, 1], [500, 0, 1]],
                                    "m_move_speed": 2, "m_move_limit": 0.05})"},
                                {"AIComp", "{}"}}),
                   Record("wall", {{"Transform", PlacedAt(100, 0, 40)},
                                   {"ColliderHolder", holder("Box")},
                                   {"RigidBody", R"({"m_mass": 0, "m_inertia": 0})"}}),
                   UnitAt(UnitKind::kPlayer, "p", -300, 0)});
  level.TurnFrom(TURN_ENEMY_SELECT);
  ASSERT_EQ(level.State(), TURN_ENEMY_MOVE);
  OutputOf([&] {
    for (int i = 0; i < 1800 && level.State() == TURN_ENEMY_MOVE; ++i) level.world.Step();
  });
  EXPECT_EQ(level.State(), TURN_ENEMY_AIM);
  EXPECT_TRUE(level.GetEnemy("e").m_moved);
  EXPECT_EQ(level.GetEnemy("e").m_waypoint_index, 1u) << "its waypoint was not reached";
  EXPECT_LT(TransformOf(level.Find("e")).m_local_pos.x, 80.0f) << "the wall's near side";
}

TEST(TurnMachine, EnemiesThatHaveAllActedEndTheirTurnInAMoveToo) {
  const TurnWorld level({UnitAt(UnitKind::kEnemy, "e", 0, 0),
                         UnitAt(UnitKind::kEnemy, "other", 0, 0),
                         UnitAt(UnitKind::kPlayer, "p", 0, 0)});
  level.Controller().m_selected = level.Find("e");
  level.GetEnemy("e").m_alive = false;
  level.GetEnemy("other").m_moved = true;
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_MOVE), "Enemy Turn End\n");
  EXPECT_EQ(level.State(), TURN_PLAYER_NEXT);
  EXPECT_FALSE(level.GetEnemy("other").m_moved);
}

TEST(TurnMachine, AFastMoveIsHeardWhileItLasts) {
  const TurnWorld level;
  level.Controller().m_selected = level.Find("e");
  const auto hears = [&](float x, float y) {
    level.Sounds().sounds.clear();
    level.GetBody("e").m_vel = Vector3D(x, y, 0);
    level.TurnFrom(TURN_ENEMY_MOVE);
    return level.IsAskedFor("tank_move.ogg");
  };
  EXPECT_TRUE(hears(10.5f, 0));
  EXPECT_TRUE(hears(-10.5f, 0));
  EXPECT_TRUE(hears(0, 10.5f));
  EXPECT_TRUE(hears(0, -10.5f));
  EXPECT_FALSE(hears(10, -10));
  level.GetEnemy("e").m_moved = true;
  EXPECT_FALSE(hears(10.5f, 0));
}

TEST(TurnMachine, ASelectedUnitWithoutABodyIsAThrow) {
  const TurnWorld level(
      {Record("e",
              {{"Transform", PlacedAt(0, 0)}, {"Render", "{}"}, {"iModel", "{}"}, {"Enemy", "{}"}}),
       UnitAt(UnitKind::kPlayer, "p", 0, 0)});
  level.Controller().m_selected = level.Find("e");
  level.Controller().m_state = TURN_ENEMY_MOVE;
  level.Disturb();
  EXPECT_THROW(level.Controller().Update(kStep), std::out_of_range);
}

TEST(TurnMachine, AnEnemyAimsAtAPlayerUnit) {
  const TurnWorld level;
  level.Controller().m_selected = level.Find("e");
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_AIM), "Enemy Aim\n");
  EXPECT_EQ(level.State(), TURN_ENEMY_NEXT);
  EXPECT_EQ(level.GetEnemy("e").m_target, level.Find("p"));
  EXPECT_TRUE(level.GetEnemy("e").m_turning);
  EXPECT_FLOAT_EQ(level.GetEnemy("e").m_aim_angle, -90.0f);
}

TEST(TurnMachine, TheAimIsTheAngleFromWorldPositionsAndUpIsZero) {
  const TurnWorld level;
  level.Controller().m_selected = level.Find("e");
  const auto aim_at = [&](float x, float y) {
    TransformOf(level.Find("p")).m_world_pos = Vector3D(x - 300, y, 1);
    level.TurnFrom(TURN_ENEMY_AIM);
    return level.GetEnemy("e").m_aim_angle;
  };
  EXPECT_NEAR(aim_at(0, 100), 0.0f, 1e-4f);
  EXPECT_NEAR(aim_at(-100, 0), 90.0f, 1e-4f);
  EXPECT_NEAR(aim_at(0, -100), -180.0f, 1e-4f);
  EXPECT_NEAR(aim_at(100, 100), -45.0f, 1e-4f);
}

TEST(TurnMachine, AnyLivingPlayerUnitMayBeTheTargetAndNoDeadOne) {
  const TurnWorld level({UnitAt(UnitKind::kEnemy, "e", 0, 0), UnitAt(UnitKind::kPlayer, "p1", 0, 0),
                         UnitAt(UnitKind::kPlayer, "dead", 0, 0),
                         UnitAt(UnitKind::kPlayer, "p2", 0, 0)});
  level.GetPlayer("dead").m_alive = false;
  level.Controller().m_selected = level.Find("e");
  std::set<GameObj*> targets;
  for (int i = 0; i < 60; ++i) {
    level.TurnFrom(TURN_ENEMY_AIM);
    targets.insert(level.GetEnemy("e").m_target);
  }
  EXPECT_EQ(targets, (std::set<GameObj*>{level.Find("p1"), level.Find("p2")}));
}

TEST(TurnMachine, TheTargetIsTheRandomNumberModuloTheNumberOfPlayers) {
  const TurnWorld level({UnitAt(UnitKind::kEnemy, "e", 0, 0), UnitAt(UnitKind::kPlayer, "p0", 0, 0),
                         UnitAt(UnitKind::kPlayer, "p1", 0, 0),
                         UnitAt(UnitKind::kPlayer, "p2", 0, 0)});
  level.Controller().m_selected = level.Find("e");
  for (std::uint32_t seed = 0; seed < 20; ++seed) {
    SeedRand(seed);
    const auto drawn = static_cast<std::size_t>(Rand() % 3);
    SeedRand(seed);
    level.TurnFrom(TURN_ENEMY_AIM);
    EXPECT_EQ(level.GetEnemy("e").m_target, level.Controller().m_players[drawn]);
  }
}

TEST(TurnMachine, APlayerUnitLeftToActIsToBeSelected) {
  const TurnWorld level;
  EXPECT_EQ(level.TurnFrom(TURN_PLAYER_NEXT), "Player Turn Begin\n");
  EXPECT_EQ(level.State(), TURN_PLAYER_SELECT);
  EXPECT_EQ(level.Controller().m_round, 0);
}

TEST(TurnMachine, WhenAllPlayerUnitsHaveActedARoundIsOver) {
  const TurnWorld level({UnitAt(UnitKind::kEnemy, "e", 0, 0), UnitAt(UnitKind::kPlayer, "p", 0, 0),
                         UnitAt(UnitKind::kPlayer, "dead", 0, 0)});
  level.GetPlayer("p").m_acted = level.GetPlayer("dead").m_acted = true;
  level.GetPlayer("dead").m_alive = false;
  EXPECT_EQ(level.TurnFrom(TURN_PLAYER_NEXT), "Player Turn End\n");
  EXPECT_EQ(level.State(), TURN_ENEMY_NEXT);
  EXPECT_EQ(level.Controller().m_round, 1);
  EXPECT_FALSE(level.GetPlayer("p").m_acted);
  EXPECT_TRUE(level.GetPlayer("dead").m_acted);
}

TEST(TurnMachine, ADeadPlayerUnitThatNeverActedDoesNotHoldTheRoundUp) {
  const TurnWorld level({UnitAt(UnitKind::kEnemy, "e", 0, 0),
                         UnitAt(UnitKind::kPlayer, "dead", 0, 0),
                         UnitAt(UnitKind::kPlayer, "p", 0, 0)});
  level.GetPlayer("dead").m_alive = false;
  level.GetPlayer("p").m_acted = true;
  EXPECT_EQ(level.TurnFrom(TURN_PLAYER_NEXT), "Player Turn End\n");
  EXPECT_EQ(level.State(), TURN_ENEMY_NEXT);
  EXPECT_EQ(level.Controller().m_round, 1);
}

TEST(TurnMachine, ASelectedPlayerUnitMovesWithFullEnergy) {
  const TurnWorld level;
  level.GetPlayer("p").m_movement_curr = 0.25f;
  level.GetPlayer("p").m_movement_limit = 7.0f;
  EXPECT_EQ(level.TurnFrom(TURN_PLAYER_SELECT), "Player Unit Select\n");
  EXPECT_EQ(level.State(), TURN_PLAYER_MOVE);
  EXPECT_EQ(level.GetPlayer("p").m_movement_curr, 7.0f);
  EXPECT_EQ(level.Controller().m_selected, level.Find("p"));
  EXPECT_FALSE(level.GetPlayer("p").m_acted);
}

TEST(TurnMachine, APlayerUnitThatItsDamageKillsLosesItsTurn) {
  const TurnWorld level;
  level.GetPlayer("p").m_status = "damaged";
  level.GetPlayer("p").m_movement_curr = 0.25f;
  level.TurnFrom(TURN_PLAYER_SELECT);
  EXPECT_EQ(level.State(), TURN_PLAYER_NEXT);
  EXPECT_EQ(level.GetPlayer("p").m_movement_curr, 0.25f);
}

TEST(TurnMachine, WithoutAPlayerUnitToSelectTheEnemiesAreNext) {
  const TurnWorld level;
  level.GetPlayer("p").m_acted = true;
  EXPECT_EQ(level.TurnFrom(TURN_PLAYER_SELECT), "Player Unit Select\n");
  EXPECT_EQ(level.State(), TURN_ENEMY_NEXT);
}

TEST(TurnMachine, WithAllPlayersDeadASelectionIsTheEnd) {
  const TurnWorld level;
  level.GetPlayer("p").m_alive = false;
  level.TurnFrom(TURN_PLAYER_SELECT);
  EXPECT_EQ(level.State(), TURN_LEVEL_END);
}

TEST(TurnMachine, AUnitHasActedFromItsFirstStepOfControl) {
  const TurnWorld level;
  level.GiveControl("p");
  level.Turn();
  EXPECT_EQ(level.State(), TURN_PLAYER_MOVE);
  EXPECT_TRUE(level.GetPlayer("p").m_acted);
}

TEST(TurnMachine, SpentEnergyLeavesTheAim) {
  const TurnWorld level;
  level.GiveControl("p");
  level.GetPlayer("p").m_movement_curr = 0.0f;
  level.Turn();
  EXPECT_EQ(level.State(), TURN_PLAYER_AIM);
  level.Turn(10);
  EXPECT_EQ(level.State(), TURN_PLAYER_AIM);
}

TEST(TurnMachine, ADeadUnitEndsItsTurnWhateverItsEnergy) {
  const TurnWorld level({UnitAt(UnitKind::kEnemy, "e", 0, 0), UnitAt(UnitKind::kPlayer, "p", 0, 0),
                         UnitAt(UnitKind::kPlayer, "other", 0, 0)});
  level.GiveControl("p");
  level.GetPlayer("p").m_alive = false;
  level.GetPlayer("p").m_movement_curr = 0.0f;
  level.Turn();
  EXPECT_EQ(level.State(), TURN_PLAYER_NEXT);
  level.TurnFrom(TURN_PLAYER_AIM);
  EXPECT_EQ(level.State(), TURN_PLAYER_NEXT);
}

TEST(TurnMachine, AUnitKilledInItsOwnTurnLosesControlAStepLater) {
  for (const std::uint32_t state : {TURN_PLAYER_MOVE, TURN_PLAYER_AIM}) {
    TurnWorld level({UnitAt(UnitKind::kEnemy, "e", 0, 0), UnitAt(UnitKind::kPlayer, "p", 0, 0),
                     UnitAt(UnitKind::kPlayer, "other", 0, 0)});
    level.GiveControl("p");
    level.Controller().m_state = state;
    level.GetPlayer("p").m_health = 0;
    OutputOf([&] { level.world.Step(); });
    EXPECT_FALSE(level.GetPlayer("p").m_alive);
    EXPECT_EQ(level.State(), state) << "the machine ran before the unit";
    OutputOf([&] { level.world.Step(); });
    EXPECT_EQ(level.State(), TURN_PLAYER_NEXT);
  }
}

TEST(TurnMachine, TheDeathOfOneSideEndsTheLevelFromEveryState) {
  const TurnWorld level;
  level.GiveControl("p");
  for (const bool players : {true, false}) {
    level.GetPlayer("p").m_alive = !players;
    level.GetEnemy("e").m_alive = players;
    for (std::uint32_t state = TURN_ENEMY_NEXT; state <= TURN_LEVEL_END; ++state) {
      EXPECT_EQ(level.TurnFrom(state), "") << state;
      EXPECT_EQ(level.State(), TURN_LEVEL_END) << state;
      EXPECT_EQ(level.Controller().m_ui_state, "ui_level_end");
    }
  }
}

TEST(TurnMachine, TheLinesOfTwoRounds) {
  const TurnWorld level;
  g_player_move_printed = false;
  EXPECT_EQ(level.Turn(9),
            "Enemy Turn Begin\nEnemy Unit Select\nEnemy Aim\nEnemy Turn End\n"
            "Player Turn Begin\nPlayer Unit Select\nPlayer Move\n");
  EXPECT_EQ(level.Key(70), "");
  EXPECT_EQ(level.Turn(), "Player Turn End\n");
  // From the second round on an enemy fires before it moves.
  EXPECT_EQ(level.Turn(9),
            "Enemy Turn Begin\nEnemy Unit Select\nEnemy Shoot\nEnemy Aim\nEnemy Turn End\n"
            "Player Turn Begin\nPlayer Unit Select\n");
  EXPECT_EQ(level.Controller().m_round, 1);
}

TEST(TurnMachine, InTheFirstRoundNoEnemyFires) {
  const TurnWorld level;
  level.GetEnemy("e").m_target = level.Find("p");
  for (int i = 0; i < 20 && level.State() != TURN_PLAYER_MOVE; ++i) {
    level.Turn();
    EXPECT_FALSE(level.GetEnemy("e").m_fired);
  }
  EXPECT_EQ(level.State(), TURN_PLAYER_MOVE);
}

TEST(TurnMachine, PlayerMoveIsPrintedOnceInARunOfTheProgram) {
  g_player_move_printed = false;
  for (const std::string line : {"Player Move\n", "", ""}) {
    const TurnWorld level;
    level.GiveControl("p");
    EXPECT_EQ(level.Turn(3), line);
  }
}

// Rest

TEST(TurnMachine, TheStatesBeforeControlWaitForRest) {
  const TurnWorld level;
  level.Controller().m_selected = level.Find("e");
  level.Disturb();
  for (std::uint32_t state = TURN_ENEMY_NEXT; state <= TURN_PLAYER_SELECT; ++state) {
    EXPECT_EQ(level.TurnFrom(state), "") << state;
    EXPECT_EQ(level.State(), state);
  }
  EXPECT_FALSE(level.GetEnemy("e").m_moved);
}

TEST(TurnMachine, ControlDoesNotWaitForRest) {
  const TurnWorld level;
  level.GiveControl("p");
  level.Disturb();
  level.GetPlayer("p").m_movement_curr = 0.0f;
  level.Turn();
  EXPECT_EQ(level.State(), TURN_PLAYER_AIM);
}

// Gates

TEST(TurnGates, AUnitOfTheInterfaceThatSpawnsHoldsTheTurn) {
  const TurnWorld level;
  GameObj* enemy = level.Find("e");
  level.Controller().m_selected = enemy;
  enemy->AddComponent<StateC>();
  enemy->GetComponent<StateC>()->m_state = "spawn";
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_NEXT), "Enemy Turn Begin\n") << "no interface";
  enemy->AddComponent<UIElement>();
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_NEXT), "");
  enemy->GetComponent<StateC>()->m_state = "default";
  EXPECT_EQ(level.Turn(), "Enemy Turn Begin\n");
}

TEST(TurnGates, ARingThatClosesInHoldsTheTurn) {
  const TurnWorld level(
      {UnitAt(UnitKind::kEnemy, "e", 0, 0, "{}", {ElementNamed("ui_selection_circle_off", 2.5f)}),
       UnitAt(UnitKind::kPlayer, "p", 0, 0)});
  level.Controller().m_selected = level.Find("e");
  UIElement& ring = *level.Find("element")->GetComponent<UIElement>();
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_NEXT), "Enemy Turn Begin\n") << "another name";
  ring.m_ui_element_name = "ui_selection_circle";
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_NEXT), "");
  TransformOf(level.Find("element")).m_local_scale.x = 2.01f;
  EXPECT_EQ(level.Turn(), "");
  TransformOf(level.Find("element")).m_local_scale.x = 2.0f;
  EXPECT_EQ(level.Turn(), "Enemy Turn Begin\n");
}

TEST(TurnGates, AnyRingAmongTheChildrenHoldsTheTurn) {
  const TurnWorld level({UnitAt(UnitKind::kEnemy, "e", 0, 0, "{}",
                                {ElementNamed("other", 5.0f), ElementNamed("ui_selection_circle"),
                                 ElementNamed("ui_selection_circle", 2.5f)}),
                         UnitAt(UnitKind::kPlayer, "p", 0, 0)});
  level.Controller().m_selected = level.Find("e");
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_NEXT), "");
  TransformOf(level.Find("e")->children[2]).m_local_scale.x = 2.0f;
  EXPECT_EQ(level.Turn(), "Enemy Turn Begin\n");
}

TEST(TurnGates, ABossThatDiesHoldsTheTurn) {
  const TurnWorld level;
  Enemy& enemy = level.GetEnemy("e");
  level.Controller().m_selected = level.Find("e");
  enemy.m_dying = true;
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_NEXT), "Enemy Turn Begin\n") << "no boss";
  enemy.m_boss = true;
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_NEXT), "");
  level.Controller().m_selected = level.Find("p");
  EXPECT_EQ(level.Turn(), "Enemy Turn Begin\n");
}

TEST(TurnGates, ADeadBossHoldsNothing) {
  const TurnWorld level({UnitAt(UnitKind::kEnemy, "e", 0, 0), UnitAt(UnitKind::kEnemy, "e2", 0, 0),
                         UnitAt(UnitKind::kPlayer, "p", 0, 0)});
  Enemy& boss = level.GetEnemy("e");
  level.Controller().m_selected = level.Find("e");
  boss.m_boss = boss.m_dying = true;
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_NEXT), "");
  boss.m_alive = false;
  EXPECT_EQ(level.Turn(), "Enemy Turn Begin\n");
}

TEST(TurnGates, TheEndOfTheLevelComesBeforeThem) {
  const TurnWorld level;
  level.Controller().m_selected = level.Find("e");
  level.GetEnemy("e").m_boss = level.GetEnemy("e").m_dying = true;
  level.GetEnemy("e").m_alive = false;
  level.TurnFrom(TURN_ENEMY_NEXT);
  EXPECT_EQ(level.State(), TURN_LEVEL_END);
}

// Aiming

TEST(Aiming, TheUnitTurnsToTheMouseInBothStatesOfControl) {
  TurnWorld level;
  level.GiveControl("p");
  level.PointAt(300, 300);
  level.Turn();
  EXPECT_NEAR(TransformOf(level.Find("p")).m_local_rotate, 0.0f, 1e-4f);
  level.PointAt(600, 0);
  level.TurnFrom(TURN_PLAYER_AIM);
  EXPECT_NEAR(TransformOf(level.Find("p")).m_local_rotate, -90.0f, 1e-4f);
}

TEST(Aiming, TheLineGoesFromTheUnitToTheMouseAsWideAsTheShot) {
  TurnWorld level({UnitAt(UnitKind::kEnemy, "e", 0, 0),
                   UnitAt(UnitKind::kPlayer, "p", 100, 50, "{}",
                          {Record("Weapon0Projectile", {{"Transform", PlacedAt(0, 0, 8)}}),
                           Record("Weapon1Projectile", {{"Transform", PlacedAt(0, 0, 16)}})})});
  level.GiveControl("p");
  TransformOf(level.Find("view")).m_world_pos = Vector3D(10, 20, 5);
  level.PointAt(300, -150);
  level.Turn();
  ASSERT_THAT(g_render_system->m_lines, SizeIs(1));
  const LineRecord line = g_render_system->m_lines[0];
  EXPECT_EQ(line.start, Vector3D(100, 50, 1));
  EXPECT_EQ(line.end, Vector3D(310, -130, 6));
  EXPECT_FLOAT_EQ(line.width, 8.0f / 1.6f);
  EXPECT_EQ(line.colour, (Colour{255.0f, 255.0f, 255.0f, 0.25f}));
  level.GetPlayer("p").m_selected_first_weapon = false;
  level.Turn();
  EXPECT_FLOAT_EQ(g_render_system->m_lines.back().width, 16.0f / 1.6f);
}

TEST(Aiming, TheLineGoesByTheWorldPlaceAndTheFirstShotsWorldWidth) {
  const TurnWorld level(
      {UnitAt(UnitKind::kEnemy, "e", 0, 0),
       UnitAt(UnitKind::kPlayer, "p", 100, 50, "{}",
              {Record("Weapon0Projectile", {{"Transform", PlacedAt(0, 0, 4)}}),
               Record("Weapon0Projectile", {{"Transform", PlacedAt(0, 0, 9)}})})});
  level.GiveControl("p");
  TransformOf(level.Find("Weapon0Projectile")).m_local_scale = Vector3D(2, 3, 1);
  TransformOf(level.Find("Weapon0Projectile")).m_world_scale = Vector3D(8, 5, 1);
  TransformOf(level.Find("p")).m_world_pos = Vector3D(70, 90, 4);
  level.Turn();
  ASSERT_THAT(g_render_system->m_lines, SizeIs(1));
  EXPECT_EQ(g_render_system->m_lines[0].start, Vector3D(70, 90, 4));
  EXPECT_FLOAT_EQ(g_render_system->m_lines[0].width, 8.0f / 1.6f);
}

TEST(Aiming, WithoutAShotTheLineIsThin) {
  const TurnWorld level;
  level.GiveControl("p");
  level.Turn();
  ASSERT_THAT(g_render_system->m_lines, SizeIs(1));
  EXPECT_FLOAT_EQ(g_render_system->m_lines[0].width, 1.0f / 1.6f);
}

TEST(Aiming, ALevelWithoutACameraIsAimedInFromItsOrigin) {
  TurnWorld level;
  level.GiveControl("p");
  level.Controller().m_camera = nullptr;
  level.PointAt(300, -150);
  level.Turn();
  ASSERT_THAT(g_render_system->m_lines, SizeIs(1));
  EXPECT_EQ(g_render_system->m_lines[0].end, Vector3D(300, -150, 1));
}

TEST(Aiming, ADeadUnitAimsNoMore) {
  const TurnWorld level({UnitAt(UnitKind::kEnemy, "e", 0, 0), UnitAt(UnitKind::kPlayer, "p", 0, 0),
                         UnitAt(UnitKind::kPlayer, "other", 0, 0)});
  level.GiveControl("p");
  level.GetPlayer("p").m_alive = false;
  level.TurnFrom(TURN_PLAYER_AIM);
  EXPECT_THAT(g_render_system->m_lines, IsEmpty());
}

TEST(Aiming, AUnitFoundDeadInItsMoveHasAimedOnceMore) {
  const TurnWorld level({UnitAt(UnitKind::kEnemy, "e", 0, 0), UnitAt(UnitKind::kPlayer, "p", 0, 0),
                         UnitAt(UnitKind::kPlayer, "other", 0, 0)});
  level.GiveControl("p");
  level.GetPlayer("p").m_alive = false;
  level.Turn();
  EXPECT_EQ(level.State(), TURN_PLAYER_NEXT);
  EXPECT_THAT(g_render_system->m_lines, SizeIs(1));
}

}  // namespace
}  // namespace ZOVEngine
