#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "core/random.h"
#include "game/aicomp.h"
#include "game/turnworld.h"
#include "game/unit.h"
#include "objects/statec.h"
#include "physics/colliderholder.h"
#include "render/font.h"
#include "render/light.h"
#include "render/render.h"
#include "ui/uielement.h"

namespace ZOVEngine {
namespace {

using carapace_test::ElementNamed;
using carapace_test::OutputOf;
using carapace_test::PlacedAt;
using carapace_test::Record;
using carapace_test::TransformOf;
using carapace_test::TurnWorld;
using carapace_test::UnitAt;
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
  const TurnWorld level({UnitAt("Enemy", "dead", 0, 0), UnitAt("Enemy", "moved", 0, 0),
                         UnitAt("Enemy", "third", 0, 0), UnitAt("Enemy", "fourth", 0, 0),
                         UnitAt("Player", "p", 0, 0)});
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
  const TurnWorld level({UnitAt("Enemy", "e", 0, 0, "{}",
                                {Record("unit_fire", {{"Transform", PlacedAt(0, 0)},
                                                      {"Render", R"({"m_visible": false})"},
                                                      {"iModel", "{}"},
                                                      {"Animation", "{}"},
                                                      {"StateC", R"({"m_state": "off"})"}})}),
                         UnitAt("Player", "p", 0, 0)});
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

TEST(TurnMachine, AnEnemyThatCannotMoveAimsAtOnce) {
  const TurnWorld level;
  level.Controller().m_selected = level.Find("e");
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_MOVE), "");
  EXPECT_EQ(level.State(), TURN_ENEMY_AIM);
  EXPECT_TRUE(level.EnemyOf("e").m_moved);
}

TEST(TurnMachine, AMoverMovesAnEnemyUntilItsTimeIsOver) {
  const TurnWorld level({UnitAt("Enemy", "e", 0, 0,
                                R"({"m_waypoints": [[0, 0, 1], [500, 0, 1]], "m_move_speed": 2})"),
                         UnitAt("Player", "p", 0, 0)});
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

TEST(TurnMachine, EnemiesThatHaveAllActedEndTheirTurnInAMoveToo) {
  const TurnWorld level(
      {UnitAt("Enemy", "e", 0, 0), UnitAt("Enemy", "other", 0, 0), UnitAt("Player", "p", 0, 0)});
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
  const TurnWorld level({UnitAt("Enemy", "e", 0, 0), UnitAt("Player", "p1", 0, 0),
                         UnitAt("Player", "dead", 0, 0), UnitAt("Player", "p2", 0, 0)});
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
  const TurnWorld level({UnitAt("Enemy", "e", 0, 0), UnitAt("Player", "p0", 0, 0),
                         UnitAt("Player", "p1", 0, 0), UnitAt("Player", "p2", 0, 0)});
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
  const TurnWorld level(
      {UnitAt("Enemy", "e", 0, 0), UnitAt("Player", "p", 0, 0), UnitAt("Player", "dead", 0, 0)});
  level.PlayerOf("p").m_acted = level.PlayerOf("dead").m_acted = true;
  level.PlayerOf("dead").m_alive = false;
  EXPECT_EQ(level.TurnFrom(TURN_PLAYER_NEXT), "Player Turn End\n");
  EXPECT_EQ(level.State(), TURN_ENEMY_NEXT);
  EXPECT_EQ(level.Controller().m_round, 1);
  EXPECT_FALSE(level.PlayerOf("p").m_acted);
  EXPECT_TRUE(level.PlayerOf("dead").m_acted);
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
  const TurnWorld level(
      {UnitAt("Enemy", "e", 0, 0), UnitAt("Player", "p", 0, 0), UnitAt("Player", "other", 0, 0)});
  level.GiveControl("p");
  level.PlayerOf("p").m_alive = false;
  level.PlayerOf("p").m_movement_curr = 0.0f;
  level.Turn();
  EXPECT_EQ(level.State(), TURN_PLAYER_NEXT);
  level.TurnFrom(TURN_PLAYER_AIM);
  EXPECT_EQ(level.State(), TURN_PLAYER_NEXT);
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
      {UnitAt("Enemy", "e", 0, 0, "{}", {ElementNamed("ui_selection_circle_off", 2.5f)}),
       UnitAt("Player", "p", 0, 0)});
  level.Controller().m_selected = level.Find("e");
  UIElement& ring = *level.Find("element")->GetComponent<UIElement>();
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_NEXT), "Enemy Turn Begin\n") << "another name";
  ring.m_ui_element_name = "ui_selection_circle";
  EXPECT_EQ(level.TurnFrom(TURN_ENEMY_NEXT), "");
  TransformOf(level.Find("element")).m_local_scale.x = 2.0f;
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
  const TurnWorld level(
      {UnitAt("Enemy", "e", 0, 0),
       UnitAt("Player", "p", 0, 0, "{}", {ElementNamed("ui_selection_circle_off", 2.5f)})});
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

// Selection

TEST(Selection, TheLightMovesWithTheControl) {
  const TurnWorld level;
  const auto light_of = [&](const char* name) {
    return level.Find(name)->GetComponent<Light>()->m_diffuseStr;
  };
  level.TurnFrom(TURN_ENEMY_SELECT);
  EXPECT_EQ(light_of("e"), 4.5f);
  level.TurnFrom(TURN_PLAYER_SELECT);
  EXPECT_EQ(light_of("e"), 4.5f * 0.6666667f);
  EXPECT_EQ(light_of("p"), 4.5f);
}

TEST(Selection, RingsAreRenamed) {
  const std::vector<std::string> rings = {ElementNamed("ui_selection_circle_off"),
                                          ElementNamed("other"),
                                          ElementNamed("ui_selection_circle_off")};
  const TurnWorld level(
      {UnitAt("Enemy", "e", 0, 0, "{}", rings), UnitAt("Player", "p", 0, 0, "{}", rings)});
  const auto names_of = [&](const char* unit) {
    std::vector<std::string> names;
    for (GameObj* child : level.Find(unit)->children) {
      names.push_back(child->GetComponent<UIElement>()->m_ui_element_name);
    }
    return names;
  };
  using Names = std::vector<std::string>;
  level.TurnFrom(TURN_ENEMY_SELECT);
  EXPECT_EQ(names_of("e"), (Names{"ui_selection_circle", "other", "ui_selection_circle"}));
  level.Controller().m_selected = level.Find("e");
  level.TurnFrom(TURN_PLAYER_SELECT);
  EXPECT_EQ(names_of("p"), (Names{"ui_selection_circle", "other", "ui_selection_circle"}));
  EXPECT_EQ(names_of("e"), (Names{"ui_selection_circle_off", "other", "ui_selection_circle"}))
      << "only the first goes off";
}

TEST(Selection, ItIsBroadcastWithTheUnit) {
  const TurnWorld level;
  level.TurnFrom(TURN_ENEMY_SELECT);
  EXPECT_EQ(g_render_system->m_selected_id, static_cast<std::int32_t>(level.Find("e")->id));
  EXPECT_EQ(level.world.Send(SelectedUnit()).objectId, level.Find("e")->id);
}

TEST(Selection, WithoutASelectedUnitTheQueryStaysAsItIs) {
  const TurnWorld level;
  SelectedUnit query;
  query.objectId = 777;
  EXPECT_EQ(level.world.Send(query).objectId, 777u);
}

TEST(Selection, TheStartOfTheTurnIsRemembered) {
  const TurnWorld level;
  level.GiveControl("p");
  EXPECT_EQ(level.Controller().m_turn_start_pos, Vector3D(300, 0, 1));
}

TEST(Selection, ADamagedUnitBurnsAndLosesHealth) {
  const TurnWorld level(
      {UnitAt("Enemy", "e", 0, 0),
       UnitAt("Player", "p", 0, 0, R"({"m_health": 5, "m_max_health": 5})",
              {Record("Weapon1Barrel",
                      {{"Transform", PlacedAt(0, 0)}, {"Render", "{}"}, {"iModel", "{}"}})})});
  level.PlayerOf("p").m_status = "damaged";
  level.GiveControl("p");
  EXPECT_EQ(level.PlayerOf("p").m_health, 4);
  EXPECT_EQ(level.State(), TURN_PLAYER_MOVE);
  for (const char* name : {"p", "Weapon1Barrel"}) {
    const Render& render = *level.Find(name)->GetComponent<Render>();
    EXPECT_EQ(render.m_colour[0], 100000.0f) << name;
    EXPECT_EQ(render.m_colour[2], 100000.0f) << name;
    EXPECT_EQ(render.m_colour[3], 1.0f) << name;
  }
}

TEST(Selection, OtherStatusDoesNotHurt) {
  const TurnWorld level;
  level.PlayerOf("p").m_status = "slowed";
  level.GiveControl("p");
  EXPECT_EQ(level.PlayerOf("p").m_health, 1);
}

TEST(Selection, AUnitKilledByItsDamageGetsNoRingAndTheOldOneIsOff) {
  const std::vector<std::string> ring = {ElementNamed("ui_selection_circle_off")};
  TurnWorld level({UnitAt("Enemy", "e", 0, 0), UnitAt("Player", "first", 0, 0, "{}", ring),
                   UnitAt("Player", "doomed", 0, 0, "{}", ring),
                   UnitAt("Player", "last", 0, 0, "{}", ring)});
  const auto ring_of = [&](const char* unit) {
    return level.Find(unit)->children[0]->GetComponent<UIElement>()->m_ui_element_name;
  };
  level.PlayerOf("doomed").m_status = "damaged";
  level.TurnFrom(TURN_PLAYER_SELECT);
  EXPECT_EQ(ring_of("first"), "ui_selection_circle");
  level.Turn();
  level.Key(70);
  const Vector3D start = level.Controller().m_turn_start_pos;
  level.Turn(2);
  EXPECT_EQ(level.State(), TURN_PLAYER_NEXT);
  EXPECT_EQ(ring_of("first"), "ui_selection_circle_off");
  EXPECT_EQ(ring_of("doomed"), "ui_selection_circle_off");
  EXPECT_EQ(level.Controller().m_turn_start_pos, start);
  OutputOf([&] { level.world.Step(4); });
  EXPECT_FALSE(level.PlayerOf("doomed").m_alive);
  EXPECT_EQ(level.Controller().m_selected, level.Find("last"));
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
  TurnWorld level({UnitAt("Enemy", "e", 0, 0),
                   UnitAt("Player", "p", 100, 50, "{}",
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
  level.PlayerOf("p").m_selected_first_weapon = false;
  level.Turn();
  EXPECT_FLOAT_EQ(g_render_system->m_lines.back().width, 16.0f / 1.6f);
}

TEST(Aiming, WithoutAShotTheLineIsThin) {
  const TurnWorld level;
  level.GiveControl("p");
  level.Turn();
  ASSERT_THAT(g_render_system->m_lines, SizeIs(1));
  EXPECT_FLOAT_EQ(g_render_system->m_lines[0].width, 1.0f / 1.6f);
}

TEST(Aiming, ADeadUnitAimsNoMore) {
  const TurnWorld level(
      {UnitAt("Enemy", "e", 0, 0), UnitAt("Player", "p", 0, 0), UnitAt("Player", "other", 0, 0)});
  level.GiveControl("p");
  level.PlayerOf("p").m_alive = false;
  level.TurnFrom(TURN_PLAYER_AIM);
  EXPECT_THAT(g_render_system->m_lines, IsEmpty());
}

// The click

TEST(FiringClick, ItEndsTheTurnOfTheUnit) {
  const TurnWorld level;
  for (const std::uint32_t state : {TURN_PLAYER_MOVE, TURN_PLAYER_AIM}) {
    level.GiveControl("p");
    level.Controller().m_state = state;
    EXPECT_EQ(level.Click(), "Player Shoot\n");
    EXPECT_TRUE(level.PlayerOf("p").m_acted);
    EXPECT_EQ(level.State(), TURN_PLAYER_NEXT);
  }
}

TEST(FiringClick, TheHeldButtonFiresOnce) {
  const TurnWorld level;
  level.GiveControl("p");
  EXPECT_EQ(level.Click(), "Player Shoot\n");
  EXPECT_EQ(level.Click(), "");
}

TEST(FiringClick, OtherButtonsAndReleasesDoNotFire) {
  const TurnWorld level;
  level.GiveControl("p");
  EXPECT_EQ(level.Click(1, 1), "");
  EXPECT_EQ(level.Click(0, 0), "");
  EXPECT_EQ(level.State(), TURN_PLAYER_MOVE);
}

TEST(FiringClick, OutsideControlItDoesNothing) {
  const TurnWorld level;
  level.GiveControl("p");
  for (std::uint32_t state = TURN_ENEMY_NEXT; state <= TURN_LEVEL_END; ++state) {
    if (state == TURN_PLAYER_MOVE || state == TURN_PLAYER_AIM) continue;
    level.Controller().m_state = state;
    EXPECT_EQ(level.Click(), "");
    EXPECT_EQ(level.State(), state);
  }
}

TEST(FiringClick, OnlyAnotherScreenKeepsItFromFiring) {
  TurnWorld level;
  level.GiveControl("p");
  level.Controller().m_ui_state = "ui_pause";
  EXPECT_EQ(level.Click(), "");
  level.world.LoadObjects(
      Record("hovered", {{"Transform", PlacedAt(0, 0, 400)}, {"Button", "{}"}}));
  level.Controller().m_ui_state = "ui_default";
  EXPECT_EQ(level.Click(), "Player Shoot\n") << "a button under the cursor does not";
}

// Movement

TEST(Movement, EachDirectionHasItsForce) {
  const TurnWorld level;
  const Vector3D directions[] = {{0, 1, 0}, {0, -1, 0}, {-1, 0, 0}, {1, 0, 0}};
  level.GiveControl("p");
  for (std::uint32_t direction = 0; direction < 4; ++direction) {
    level.Push(direction);
    ASSERT_THAT(level.BodyOf("p").m_forces, SizeIs(direction + 1));
    const DirectionalForce& force = *level.BodyOf("p").m_forces.back();
    EXPECT_EQ(force.direction, directions[direction]);
    EXPECT_EQ(force.magnitude, 25000.0f);
    EXPECT_EQ(force.lifetime, 0.1f);
  }
  EXPECT_TRUE(level.IsAskedFor("tank_move.ogg"));
}

TEST(Movement, ADirectionThatIsNoneDoesNothing) {
  const TurnWorld level;
  level.GiveControl("p");
  level.Push(4);
  EXPECT_THAT(level.BodyOf("p").m_forces, IsEmpty());
  EXPECT_EQ(level.PlayerOf("p").m_movement_curr, 2.0f);
}

TEST(Movement, ASlowedUnitPaysTheSameForHalfThePush) {
  const TurnWorld level;
  level.GiveControl("p");
  level.PlayerOf("p").m_status = "slowed";
  level.Push(0);
  EXPECT_EQ(level.BodyOf("p").m_forces.back()->lifetime, 0.05f);
  EXPECT_EQ(level.PlayerOf("p").m_movement_curr, 2.0f - 0.016f);
}

TEST(Movement, ItNeedsASelectedUnitInItsMove) {
  const TurnWorld level;
  level.Controller().m_state = TURN_PLAYER_MOVE;
  level.Push(0);
  level.GiveControl("p");
  level.Controller().m_state = TURN_PLAYER_AIM;
  level.Push(0);
  EXPECT_THAT(level.BodyOf("p").m_forces, IsEmpty());
}

TEST(Movement, TwoHeldKeysPushAlongBothAxesAndCostTwice) {
  TurnWorld level;
  level.GiveControl("p");
  level.world.native.Press('W');
  level.world.native.Press('D');
  OutputOf([&] { level.world.Step(5); });
  EXPECT_NEAR(level.PlayerOf("p").m_movement_curr, 2.0f - 5 * 0.032f, 1e-5f);
  EXPECT_GT(level.BodyOf("p").m_vel.x, 100.0f);
  EXPECT_FLOAT_EQ(level.BodyOf("p").m_vel.x, level.BodyOf("p").m_vel.y);
}

TEST(Movement, WithoutEnergyTheUnitCoastsAndCanOnlyFire) {
  TurnWorld level;
  level.GiveControl("p");
  level.PlayerOf("p").m_movement_curr = 0.04f;
  level.world.native.Press('D');
  OutputOf([&] { level.world.Step(2); });
  EXPECT_EQ(level.State(), TURN_PLAYER_MOVE);
  OutputOf([&] { level.world.Step(); });
  EXPECT_EQ(level.State(), TURN_PLAYER_AIM) << "the update after the push that spent the rest";
  const float energy = level.PlayerOf("p").m_movement_curr;
  const float speed = level.BodyOf("p").m_vel.x;
  OutputOf([&] { level.world.Step(); });
  EXPECT_EQ(level.PlayerOf("p").m_movement_curr, energy);
  EXPECT_GT(level.BodyOf("p").m_vel.x, speed) << "the forces of the pushes go on";
  EXPECT_EQ(level.Click(), "Player Shoot\n");
}

// Keys

TEST(Keys, EscapePausesAndGoesBackFromAnyScreen) {
  const TurnWorld level;
  level.Key(27);
  EXPECT_EQ(level.Controller().m_ui_state, "ui_pause");
  EXPECT_TRUE(g_engine->paused);
  EXPECT_TRUE(level.IsAskedFor("button_click.ogg"));
  level.Sounds().sounds.clear();
  level.Controller().m_ui_state = "ui_pause_credits";
  level.Key(27);
  EXPECT_EQ(level.Controller().m_ui_state, "ui_default");
  EXPECT_FALSE(g_engine->paused);
  EXPECT_FALSE(level.IsAskedFor("button_click.ogg"));
}

TEST(Keys, SpaceRestartsTheLevelInAnyState) {
  TurnWorld level;
  level.Controller().m_state = TURN_LEVEL_END;
  level.Controller().m_round = 3;
  level.Sounds().sounds["theme.ogg"].start_play = false;
  level.Key(32);
  EXPECT_TRUE(level.Controller().m_restart);
  EXPECT_TRUE(level.Sounds().sounds["theme.ogg"].stop_request);
  OutputOf([&] { level.world.Step(2); });
  EXPECT_EQ(level.Controller().m_round, 0);
  EXPECT_EQ(level.State(), TURN_ENEMY_SELECT) << "its first step is over";
}

TEST(Keys, BShowsAndHidesTheShapes) {
  TurnWorld level;
  level.world.LoadObjects(
      Record("shape", {{"Transform", PlacedAt(0, 0)}, {"ColliderHolder", R"({"m_active": true,
          "m_layer": 0, "m_collider_type": "Box", "bitmask_category": "Default",
          "collider_vertices": [], "m_local_scale": [1, 1, 1], "m_local_pos": [0, 0, 1],
          "m_local_rot": 0})"}}));
  const ColliderHolder& shape = *level.Find("shape")->GetComponent<ColliderHolder>();
  level.Key(66);
  EXPECT_TRUE(level.Controller().m_debug);
  EXPECT_TRUE(shape.m_debug);
  level.Key(66);
  EXPECT_FALSE(level.Controller().m_debug);
  EXPECT_FALSE(shape.m_debug);
}

TEST(Keys, FSkipsAPlayerUnitWithAClick) {
  const TurnWorld level;
  level.GiveControl("p");
  level.Key(70);
  EXPECT_TRUE(level.PlayerOf("p").m_acted);
  EXPECT_EQ(level.State(), TURN_PLAYER_NEXT);
  EXPECT_TRUE(level.IsAskedFor("button_click.ogg"));
}

TEST(Keys, FInAStateOfTheEnemiesJumpsToThePlayersIfAPlayerUnitIsSelected) {
  const TurnWorld level;
  level.GiveControl("p");
  for (const std::uint32_t state : {TURN_ENEMY_NEXT, TURN_ENEMY_SELECT, TURN_ENEMY_AIM}) {
    level.Controller().m_state = state;
    level.Key(70);
    EXPECT_EQ(level.State(), TURN_PLAYER_NEXT);
  }
}

TEST(Keys, FOnAnEnemyOnlyClicks) {
  const TurnWorld level;
  level.Key(70);
  EXPECT_TRUE(level.IsAskedFor("button_click.ogg")) << "nothing is selected";
  level.Sounds().sounds.clear();
  level.TurnFrom(TURN_ENEMY_SELECT);
  level.Key(70);
  EXPECT_EQ(level.State(), TURN_ENEMY_MOVE);
  EXPECT_TRUE(level.IsAskedFor("button_click.ogg"));
}

TEST(Keys, GHealsThePlayersAndHKillsTheEnemies) {
  const TurnWorld level({UnitAt("Enemy", "e", 0, 0), UnitAt("Enemy", "e2", 0, 0),
                         UnitAt("Player", "p", 0, 0), UnitAt("Player", "p2", 0, 0)});
  level.Key(71);
  level.Key(72);
  for (const char* name : {"p", "p2"}) {
    EXPECT_EQ(level.PlayerOf(name).m_health, 100);
    EXPECT_EQ(level.PlayerOf(name).m_max_health, 100);
  }
  for (const char* name : {"e", "e2"}) {
    EXPECT_EQ(level.EnemyOf(name).m_health, 0);
    EXPECT_EQ(level.EnemyOf(name).m_max_health, 1);
  }
}

TEST(Keys, QSwitchesTheWeaponWhileAUnitIsControlled) {
  const TurnWorld level;
  level.GiveControl("p");
  level.Key(81);
  EXPECT_FALSE(level.PlayerOf("p").m_selected_first_weapon);
  EXPECT_TRUE(level.PlayerOf("p").m_show_weapon_label);
  EXPECT_TRUE(level.IsAskedFor("button_click.ogg"));
  level.Controller().m_state = TURN_PLAYER_AIM;
  level.Key(81);
  EXPECT_TRUE(level.PlayerOf("p").m_selected_first_weapon);
  level.Sounds().sounds.clear();
  level.Controller().m_state = TURN_PLAYER_NEXT;
  level.Key(81);
  EXPECT_TRUE(level.PlayerOf("p").m_selected_first_weapon);
  EXPECT_FALSE(level.IsAskedFor("button_click.ogg"));
}

TEST(Keys, RUndoesTheMoveAsOftenAsOneLikes) {
  TurnWorld level;
  level.GiveControl("p");
  for (int i = 0; i < 3; ++i) {
    level.world.native.Press('A');
    OutputOf([&] { level.world.Step(3); });
    level.world.native.Release('A');
    Transform& transform = TransformOf(level.Find("p"));
    RigidBody& body = level.BodyOf("p");
    ASSERT_LT(transform.m_local_pos.x, 299.0f);
    level.Key(82);
    EXPECT_EQ(transform.m_local_pos, Vector3D(300, 0, 1));
    EXPECT_EQ(transform.m_prev_pos, Vector3D(300, 0, 1));
    EXPECT_EQ(body.m_vel, Vector3D());
    EXPECT_EQ(body.m_prev_vel, Vector3D());
    EXPECT_FALSE(body.m_forces.empty()) << "forces go on";
    EXPECT_EQ(level.PlayerOf("p").m_movement_curr, 2.0f);
  }
}

TEST(Keys, RAfterTheEnergyRanOutGivesTheMoveBack) {
  const TurnWorld level;
  level.GiveControl("p");
  level.PlayerOf("p").m_movement_curr = -0.01f;
  level.Turn();
  ASSERT_EQ(level.State(), TURN_PLAYER_AIM);
  level.Key(82);
  EXPECT_EQ(level.State(), TURN_PLAYER_MOVE);
  EXPECT_EQ(level.PlayerOf("p").m_movement_curr, level.PlayerOf("p").m_movement_limit);
}

TEST(Keys, ROutsideControlDoesNothing) {
  const TurnWorld level;
  level.GiveControl("p");
  level.BodyOf("p").m_vel = Vector3D(1, 0, 0);
  level.Controller().m_state = TURN_PLAYER_NEXT;
  level.Key(82);
  EXPECT_EQ(level.BodyOf("p").m_vel, Vector3D(1, 0, 0));
  EXPECT_EQ(level.State(), TURN_PLAYER_NEXT);
}

TEST(Keys, OtherKeysDoNothing) {
  const TurnWorld level;
  level.GiveControl("p");
  for (std::uint64_t key = 0; key < 256; ++key) {
    if (std::set<std::uint64_t>{27, 32, 66, 70, 71, 72, 81, 82, 117}.count(key) != 0) continue;
    EXPECT_EQ(level.Key(key), "");
  }
  EXPECT_EQ(level.State(), TURN_PLAYER_MOVE);
  EXPECT_EQ(level.Controller().m_ui_state, "ui_default");
  EXPECT_THAT(level.Sounds().sounds, IsEmpty());
}

TEST(Keys, ALostFocusPauses) {
  const TurnWorld level;
  GameLoseFocus message;
  message.lost = 0;
  level.world.Send(message);
  EXPECT_FALSE(g_engine->paused);
  level.world.Send(GameLoseFocus());
  EXPECT_TRUE(g_engine->paused);
  EXPECT_EQ(level.Controller().m_ui_state, "ui_pause");
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

TEST(LevelEnd, NothingWaitsForAShotInTheAir) {
  const TurnWorld level;
  level.Disturb();
  level.EnemyOf("e").m_alive = false;
  level.TurnFrom(TURN_ENEMY_MOVE);
  EXPECT_EQ(level.State(), TURN_LEVEL_END);
  EXPECT_EQ(level.BodyOf("stone").m_vel.x, 3.0f);
}

TEST(LevelEnd, ALevelWithoutUnitsOfOneSideEndsInItsFirstStep) {
  const TurnWorld no_players({UnitAt("Enemy", "e", 0, 0)});
  no_players.Turn();
  EXPECT_EQ(no_players.State(), TURN_LEVEL_END);
  EXPECT_TRUE(no_players.IsAskedFor("defeat.ogg"));
}

TEST(LevelEnd, ALevelWithoutEnemiesIsWonInItsFirstStep) {
  const TurnWorld no_enemies({UnitAt("Player", "p", 0, 0)});
  no_enemies.Turn();
  EXPECT_EQ(no_enemies.State(), TURN_LEVEL_END);
  EXPECT_TRUE(no_enemies.IsAskedFor("victory.ogg"));
}

// Labels

TEST(UnitLabels, LivingUnitsAreNumberedBySideInOrder) {
  const auto label = [](const std::string& name) {
    return std::vector<std::string>{
        Record("turn_font",
               {{"Transform", PlacedAt(0, 0)}, {"Font", R"({"m_text": ")" + name + "\"}"}}),
        Record("other_font", {{"Transform", PlacedAt(0, 0)}, {"Font", R"({"m_text": "other"})"}})};
  };
  const TurnWorld level({UnitAt("Enemy", "e", 0, 0, "{}", label("e")),
                         UnitAt("Player", "p", 0, 0, "{}", label("p")),
                         UnitAt("Player", "dead", 0, 0, R"({"m_alive": false})", label("dead")),
                         UnitAt("Player", "off", 0, 0, "{}", label("off")),
                         UnitAt("Player", "p2", 0, 0, "{}", label("p2")),
                         UnitAt("Enemy", "e2", 0, 0, "{}", label("e2"))});
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

}  // namespace
}  // namespace ZOVEngine
