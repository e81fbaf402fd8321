#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <stdexcept>

#include "core/base/random.h"
#include "game/turns/turnworld.h"
#include "game/units/aicomp.h"
#include "objects/statec.h"
#include "physics/components/colliderholder.h"
#include "render/components/font.h"
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
  level.EnemyOf("e").m_moved = level.EnemyOf("e").m_fired = true;
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_NEXT), "Enemy Turn End\n");
  EXPECT_EQ(level.State(), TURN_PLAYER_NEXT);
  EXPECT_FALSE(level.EnemyOf("e").m_moved);
  EXPECT_FALSE(level.EnemyOf("e").m_fired);
}

TEST(TurnMachine, AnEnemyLeftToActIsToBeSelected) {
  const TurnWorld level;
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_NEXT), "Enemy Turn Begin\n");
  EXPECT_EQ(level.State(), TURN_ENEMY_SELECT);
}

TEST(TurnMachine, NoEnemyToSelectIsTheEnd) {
  const TurnWorld level;
  level.EnemyOf("e").m_moved = true;
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
  level.EnemyOf("dead").m_alive = false;
  level.EnemyOf("moved").m_moved = true;
  level.TurnFrom(TURN_ENEMY_SELECT);
  EXPECT_EQ(level.Controller().m_selected, level.Find("third"));
}

TEST(TurnMachine, AnEnemyThatItsDamageKillsLosesItsTurn) {
  const TurnWorld level;
  level.EnemyOf("e").m_status = "damaged";
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_SELECT), "Enemy Unit Select\n");
  EXPECT_EQ(level.EnemyOf("e").m_health, 0);
  EXPECT_EQ(level.State(), TURN_ENEMY_NEXT);
}

TEST(TurnMachine, AnEnemyShootsThenMoves) {
  const TurnWorld level;
  level.Controller().m_selected = level.Find("e");
  level.EnemyOf("e").m_target = level.Find("p");
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_SHOOT), "Enemy Shoot\n");
  EXPECT_EQ(level.State(), TURN_ENEMY_MOVE);
  EXPECT_TRUE(level.EnemyOf("e").m_fired);
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
  level.EnemyOf("e").m_target = level.Find("p");
  const std::string& fire = level.Find("unit_fire")->GetComponent<StateC>()->m_state;
  level.EnemyOf("e").m_fired = true;
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_SHOOT), "Enemy Shoot\n");
  EXPECT_EQ(fire, "off");
  level.EnemyOf("e").m_fired = false;
  level.TurnFrom(TURN_ENEMY_SHOOT);
  EXPECT_EQ(fire, "once");
}

TEST(TurnMachine, AShotWaitsForTheChangeOfABoss) {
  const TurnWorld level;
  Enemy& boss = level.EnemyOf("e");
  level.Controller().m_selected = level.Find("e");
  boss.m_boss = boss.m_phase_change = true;
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_SHOOT), "");
  EXPECT_EQ(level.State(), TURN_ENEMY_SHOOT);
  boss.m_phase_ready = true;
  EXPECT_EQ(level.Turn(), "Enemy Shoot\n");
  EXPECT_EQ(level.State(), TURN_ENEMY_MOVE);
}

TEST(TurnMachine, AChangeHoldsUpNobodyButABoss) {
  const TurnWorld level;
  level.Controller().m_selected = level.Find("e");
  level.EnemyOf("e").m_phase_change = true;
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_SHOOT), "Enemy Shoot\n");
}

TEST(TurnMachine, ABossThatDoesNotChangeShootsAtOnce) {
  const TurnWorld level;
  level.Controller().m_selected = level.Find("e");
  level.EnemyOf("e").m_boss = true;
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_SHOOT), "Enemy Shoot\n");
  EXPECT_EQ(level.State(), TURN_ENEMY_MOVE);
}

TEST(TurnMachine, AnEnemyThatCannotMoveAimsAtOnce) {
  const TurnWorld level;
  level.Controller().m_selected = level.Find("e");
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_MOVE), "");
  EXPECT_EQ(level.State(), TURN_ENEMY_AIM);
  EXPECT_TRUE(level.EnemyOf("e").m_moved);
}

TEST(TurnMachine, AMoverMovesAnEnemyUntilItsTimeIsOver) {
  const TurnWorld level({UnitAt(UnitKind::kEnemy, "e", 0, 0,
                                R"({"m_waypoints": [[0, 0, 1], [500, 0, 1]], "m_move_speed": 2})"),
                         UnitAt(UnitKind::kPlayer, "p", 0, 0)});
  Enemy& enemy = level.EnemyOf("e");
  level.Find("e")->AddComponent<AIComp>();
  level.Find("e")->GetComponent<AIComp>()->m_dt = kStep;
  enemy.m_waypoint_index = 1;
  level.Controller().m_selected = level.Find("e");
  level.TurnFrom(TURN_ENEMY_MOVE);
  EXPECT_EQ(level.State(), TURN_ENEMY_MOVE);
  ASSERT_THAT(level.BodyOf("e").m_forces, SizeIs(1));
  EXPECT_EQ(level.BodyOf("e").m_forces[0]->magnitude, 200.0f);
  level.Turn();
  EXPECT_THAT(level.BodyOf("e").m_forces, SizeIs(1));
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
  level.EnemyOf("e").m_alive = false;
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
  EXPECT_TRUE(level.EnemyOf("e").m_moved);
  EXPECT_EQ(level.EnemyOf("e").m_waypoint_index, 1u) << "its waypoint was not reached";
  EXPECT_LT(TransformOf(level.Find("e")).m_local_pos.x, 80.0f) << "the wall's near side";
}

TEST(TurnMachine, EnemiesThatHaveAllActedEndTheirTurnInAMoveToo) {
  const TurnWorld level({UnitAt(UnitKind::kEnemy, "e", 0, 0),
                         UnitAt(UnitKind::kEnemy, "other", 0, 0),
                         UnitAt(UnitKind::kPlayer, "p", 0, 0)});
  level.Controller().m_selected = level.Find("e");
  level.EnemyOf("e").m_alive = false;
  level.EnemyOf("other").m_moved = true;
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_MOVE), "Enemy Turn End\n");
  EXPECT_EQ(level.State(), TURN_PLAYER_NEXT);
  EXPECT_FALSE(level.EnemyOf("other").m_moved);
}

TEST(TurnMachine, AFastMoveIsHeardWhileItLasts) {
  const TurnWorld level;
  level.Controller().m_selected = level.Find("e");
  const auto hears = [&](float x, float y) {
    level.Sounds().sounds.clear();
    level.BodyOf("e").m_vel = Vector3D(x, y, 0);
    level.TurnFrom(TURN_ENEMY_MOVE);
    return level.IsAskedFor("tank_move.ogg");
  };
  EXPECT_TRUE(hears(10.5f, 0));
  EXPECT_TRUE(hears(-10.5f, 0));
  EXPECT_TRUE(hears(0, 10.5f));
  EXPECT_TRUE(hears(0, -10.5f));
  EXPECT_FALSE(hears(10, -10));
  level.EnemyOf("e").m_moved = true;
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
  EXPECT_EQ(level.EnemyOf("e").m_target, level.Find("p"));
  EXPECT_TRUE(level.EnemyOf("e").m_turning);
  EXPECT_FLOAT_EQ(level.EnemyOf("e").m_aim_angle, -90.0f);
}

TEST(TurnMachine, TheAimIsTheAngleFromWorldPositionsAndUpIsZero) {
  const TurnWorld level;
  level.Controller().m_selected = level.Find("e");
  const auto aim_at = [&](float x, float y) {
    TransformOf(level.Find("p")).m_world_pos = Vector3D(x - 300, y, 1);
    level.TurnFrom(TURN_ENEMY_AIM);
    return level.EnemyOf("e").m_aim_angle;
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
  level.PlayerOf("dead").m_alive = false;
  level.Controller().m_selected = level.Find("e");
  std::set<GameObj*> targets;
  for (int i = 0; i < 60; ++i) {
    level.TurnFrom(TURN_ENEMY_AIM);
    targets.insert(level.EnemyOf("e").m_target);
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
    EXPECT_EQ(level.EnemyOf("e").m_target, level.Controller().m_players[drawn]);
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
  level.PlayerOf("p").m_acted = level.PlayerOf("dead").m_acted = true;
  level.PlayerOf("dead").m_alive = false;
  EXPECT_EQ(level.TurnFrom(TURN_PLAYER_NEXT), "Player Turn End\n");
  EXPECT_EQ(level.State(), TURN_ENEMY_NEXT);
  EXPECT_EQ(level.Controller().m_round, 1);
  EXPECT_FALSE(level.PlayerOf("p").m_acted);
  EXPECT_TRUE(level.PlayerOf("dead").m_acted);
}

TEST(TurnMachine, ADeadPlayerUnitThatNeverActedDoesNotHoldTheRoundUp) {
  const TurnWorld level({UnitAt(UnitKind::kEnemy, "e", 0, 0),
                         UnitAt(UnitKind::kPlayer, "dead", 0, 0),
                         UnitAt(UnitKind::kPlayer, "p", 0, 0)});
  level.PlayerOf("dead").m_alive = false;
  level.PlayerOf("p").m_acted = true;
  EXPECT_EQ(level.TurnFrom(TURN_PLAYER_NEXT), "Player Turn End\n");
  EXPECT_EQ(level.State(), TURN_ENEMY_NEXT);
  EXPECT_EQ(level.Controller().m_round, 1);
}

TEST(TurnMachine, ASelectedPlayerUnitMovesWithFullEnergy) {
  const TurnWorld level;
  level.PlayerOf("p").m_movement_curr = 0.25f;
  level.PlayerOf("p").m_movement_limit = 7.0f;
  EXPECT_EQ(level.TurnFrom(TURN_PLAYER_SELECT), "Player Unit Select\n");
  EXPECT_EQ(level.State(), TURN_PLAYER_MOVE);
  EXPECT_EQ(level.PlayerOf("p").m_movement_curr, 7.0f);
  EXPECT_EQ(level.Controller().m_selected, level.Find("p"));
  EXPECT_FALSE(level.PlayerOf("p").m_acted);
}

TEST(TurnMachine, APlayerUnitThatItsDamageKillsLosesItsTurn) {
  const TurnWorld level;
  level.PlayerOf("p").m_status = "damaged";
  level.PlayerOf("p").m_movement_curr = 0.25f;
  level.TurnFrom(TURN_PLAYER_SELECT);
  EXPECT_EQ(level.State(), TURN_PLAYER_NEXT);
  EXPECT_EQ(level.PlayerOf("p").m_movement_curr, 0.25f);
}

TEST(TurnMachine, WithoutAPlayerUnitToSelectTheEnemiesAreNext) {
  const TurnWorld level;
  level.PlayerOf("p").m_acted = true;
  EXPECT_EQ(level.TurnFrom(TURN_PLAYER_SELECT), "Player Unit Select\n");
  EXPECT_EQ(level.State(), TURN_ENEMY_NEXT);
}

TEST(TurnMachine, WithAllPlayersDeadASelectionIsTheEnd) {
  const TurnWorld level;
  level.PlayerOf("p").m_alive = false;
  level.TurnFrom(TURN_PLAYER_SELECT);
  EXPECT_EQ(level.State(), TURN_LEVEL_END);
}

TEST(TurnMachine, AUnitHasActedFromItsFirstStepOfControl) {
  const TurnWorld level;
  level.GiveControl("p");
  level.Turn();
  EXPECT_EQ(level.State(), TURN_PLAYER_MOVE);
  EXPECT_TRUE(level.PlayerOf("p").m_acted);
}

TEST(TurnMachine, SpentEnergyLeavesTheAim) {
  const TurnWorld level;
  level.GiveControl("p");
  level.PlayerOf("p").m_movement_curr = 0.0f;
  level.Turn();
  EXPECT_EQ(level.State(), TURN_PLAYER_AIM);
  level.Turn(10);
  EXPECT_EQ(level.State(), TURN_PLAYER_AIM);
}

TEST(TurnMachine, ADeadUnitEndsItsTurnWhateverItsEnergy) {
  const TurnWorld level({UnitAt(UnitKind::kEnemy, "e", 0, 0), UnitAt(UnitKind::kPlayer, "p", 0, 0),
                         UnitAt(UnitKind::kPlayer, "other", 0, 0)});
  level.GiveControl("p");
  level.PlayerOf("p").m_alive = false;
  level.PlayerOf("p").m_movement_curr = 0.0f;
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
    level.PlayerOf("p").m_health = 0;
    OutputOf([&] { level.world.Step(); });
    EXPECT_FALSE(level.PlayerOf("p").m_alive);
    EXPECT_EQ(level.State(), state) << "the machine ran before the unit";
    OutputOf([&] { level.world.Step(); });
    EXPECT_EQ(level.State(), TURN_PLAYER_NEXT);
  }
}

TEST(TurnMachine, TheDeathOfOneSideEndsTheLevelFromEveryState) {
  const TurnWorld level;
  level.GiveControl("p");
  for (const bool players : {true, false}) {
    level.PlayerOf("p").m_alive = !players;
    level.EnemyOf("e").m_alive = players;
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
  level.EnemyOf("e").m_target = level.Find("p");
  for (int i = 0; i < 20 && level.State() != TURN_PLAYER_MOVE; ++i) {
    level.Turn();
    EXPECT_FALSE(level.EnemyOf("e").m_fired);
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
  EXPECT_FALSE(level.EnemyOf("e").m_moved);
}

TEST(TurnMachine, ControlDoesNotWaitForRest) {
  const TurnWorld level;
  level.GiveControl("p");
  level.Disturb();
  level.PlayerOf("p").m_movement_curr = 0.0f;
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
  Enemy& enemy = level.EnemyOf("e");
  level.Controller().m_selected = level.Find("e");
  enemy.m_dying = true;
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_NEXT), "Enemy Turn Begin\n") << "no boss";
  enemy.m_boss = true;
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_NEXT), "");
  level.Controller().m_selected = level.Find("p");
  EXPECT_EQ(level.Turn(), "Enemy Turn Begin\n");
}

TEST(TurnGates, TheEndOfTheLevelComesBeforeThem) {
  const TurnWorld level;
  level.Controller().m_selected = level.Find("e");
  level.EnemyOf("e").m_boss = level.EnemyOf("e").m_dying = true;
  level.EnemyOf("e").m_alive = false;
  level.TurnFrom(TURN_ENEMY_NEXT);
  EXPECT_EQ(level.State(), TURN_LEVEL_END);
}

TEST(TurnGates, AClosingRingHoldsClickAndMovement) {
  const TurnWorld level({UnitAt(UnitKind::kEnemy, "e", 0, 0),
                         UnitAt(UnitKind::kPlayer, "p", 0, 0, "{}",
                                {ElementNamed("ui_selection_circle_off", 2.5f)})});
  level.GiveControl("p");
  EXPECT_EQ(level.Click(), "");
  level.Push(0);
  EXPECT_THAT(level.BodyOf("p").m_forces, IsEmpty());
  EXPECT_EQ(level.PlayerOf("p").m_movement_curr, 2.0f);
  TransformOf(level.Find("element")).m_local_scale.x = 1.0f;
  level.Push(0);
  EXPECT_THAT(level.BodyOf("p").m_forces, SizeIs(1));
  EXPECT_EQ(level.Click(), "Player Shoot\n");
}

// The end

TEST(LevelEnd, WhenBothSidesDieTogetherItIsADefeat) {
  const TurnWorld level;
  level.PlayerOf("p").m_alive = level.EnemyOf("e").m_alive = false;
  level.Turn();
  EXPECT_TRUE(level.IsAskedFor("defeat.ogg"));
  EXPECT_FALSE(level.IsAskedFor("victory.ogg"));
  EXPECT_TRUE(level.Sounds().sounds["theme.ogg"].stop_request);
  EXPECT_TRUE(level.Sounds().sounds["victory.ogg"].stop_request);
}

TEST(LevelEnd, TheDeathOfTheEnemiesIsAVictory) {
  const TurnWorld level;
  level.EnemyOf("e").m_alive = false;
  level.Turn();
  EXPECT_TRUE(level.IsAskedFor("victory.ogg"));
  EXPECT_FALSE(level.IsAskedFor("defeat.ogg"));
  EXPECT_TRUE(level.Sounds().sounds["theme.ogg"].stop_request);
  EXPECT_TRUE(level.Sounds().sounds["defeat.ogg"].stop_request);
}

TEST(LevelEnd, TheSoundsAreAskedForInEveryStep) {
  const TurnWorld level;
  level.EnemyOf("e").m_alive = false;
  level.Turn();
  level.Sounds().sounds.clear();
  level.Turn();
  EXPECT_TRUE(level.IsAskedFor("victory.ogg"));
  EXPECT_TRUE(level.Sounds().sounds["theme.ogg"].stop_request);
}

TEST(LevelEnd, ABossIsBeatenWhenItsDeathIsOverAndNotBefore) {
  TurnWorld level({UnitAt(UnitKind::kEnemy, "e", -300, 0, R"({"m_boss": true})"),
                   UnitAt(UnitKind::kPlayer, "p", 300, 0)});
  level.Key(72);
  OutputOf([&] { level.world.Step(290); });
  EXPECT_TRUE(level.EnemyOf("e").m_alive);
  EXPECT_TRUE(level.EnemyOf("e").m_dying);
  EXPECT_EQ(level.Controller().m_ui_state, "ui_default");
  OutputOf([&] { level.world.Step(20); });
  EXPECT_FALSE(level.EnemyOf("e").m_alive);
  EXPECT_EQ(level.State(), TURN_LEVEL_END);
}

TEST(LevelEnd, NothingWaitsForAShotInTheAir) {
  const TurnWorld level;
  level.Disturb();
  level.EnemyOf("e").m_alive = false;
  level.TurnFrom(TURN_ENEMY_MOVE);
  EXPECT_EQ(level.State(), TURN_LEVEL_END);
}

TEST(LevelEnd, WhatIsInTheAirFliesOn) {
  TurnWorld level;
  level.Disturb();
  level.EnemyOf("e").m_alive = false;
  const float start = TransformOf(level.Find("stone")).m_local_pos.x;
  OutputOf([&] { level.world.Step(10); });
  EXPECT_EQ(level.State(), TURN_LEVEL_END);
  EXPECT_NEAR(TransformOf(level.Find("stone")).m_local_pos.x - start, 0.5f, 1e-3f);
}

// Labels

TEST(UnitLabels, LivingUnitsAreNumberedBySideInOrder) {
  const auto label = [](const std::string& name) {
    return std::vector<std::string>{
        Record("turn_font",
               {{"Transform", PlacedAt(0, 0)}, {"Font", R"({"m_text": ")" + name + "\"}"}}),
        Record("other_font", {{"Transform", PlacedAt(0, 0)}, {"Font", R"({"m_text": "other"})"}})};
  };
  const TurnWorld level(
      {UnitAt(UnitKind::kEnemy, "e", 0, 0, "{}", label("e")),
       UnitAt(UnitKind::kPlayer, "p", 0, 0, "{}", label("p")),
       UnitAt(UnitKind::kPlayer, "dead", 0, 0, R"({"m_alive": false})", label("dead")),
       UnitAt(UnitKind::kPlayer, "off", 0, 0, "{}", label("off")),
       UnitAt(UnitKind::kPlayer, "p2", 0, 0, "{}", label("p2")),
       UnitAt(UnitKind::kEnemy, "e2", 0, 0, "{}", label("e2"))});
  level.Find("off")->active = false;
  for (GameObj* unit : level.Controller().m_players) {
    unit->children[0]->GetComponent<Font>()->m_text = "old";
  }
  level.Turn();
  const auto text_of = [&](const char* unit, std::size_t child) {
    return level.Find(unit)->children[child]->GetComponent<Font>()->m_text;
  };
  EXPECT_EQ(text_of("p", 0), "1");
  EXPECT_EQ(text_of("p2", 0), "2");
  EXPECT_EQ(text_of("e", 0), "1");
  EXPECT_EQ(text_of("e2", 0), "2");
  EXPECT_EQ(text_of("dead", 0), "old");
  EXPECT_EQ(text_of("off", 0), "old");
  EXPECT_EQ(text_of("p", 1), "other");
}

TEST(UnitLabels, ADeadEnemyIsNotCountedAndEachLabelOfAUnitIsWritten) {
  const std::string font =
      Record("turn_font", {{"Transform", PlacedAt(0, 0)}, {"Font", R"({"m_text": "old"})"}});
  const TurnWorld level({UnitAt(UnitKind::kEnemy, "dead", 0, 0, R"({"m_alive": false})", {font}),
                         UnitAt(UnitKind::kEnemy, "e", 0, 0, "{}", {font, font}),
                         UnitAt(UnitKind::kPlayer, "p", 0, 0)});
  level.Turn();
  const auto text_of = [&](const char* unit, std::size_t child) {
    return level.Find(unit)->children[child]->GetComponent<Font>()->m_text;
  };
  EXPECT_EQ(text_of("dead", 0), "old");
  EXPECT_EQ(text_of("e", 0), "1");
  EXPECT_EQ(text_of("e", 1), "1");
}

}  // namespace
}  // namespace ZOVEngine
