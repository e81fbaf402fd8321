#include "game/turns/turninput.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "game/turns/turnworld.h"
#include "objects/statec.h"
#include "physics/components/colliderholder.h"
#include "support/unitrecords.h"
#include "ui/elements/uielement.h"

namespace ZOVEngine {
namespace {

using carapace_test::ElementNamed;
using carapace_test::OutputOf;
using carapace_test::PlacedAt;
using carapace_test::Record;
using carapace_test::ShotRecord;
using carapace_test::TransformOf;
using carapace_test::TurnWorld;
using carapace_test::UnitAt;
using carapace_test::UnitKind;
using ::testing::IsEmpty;
using ::testing::SizeIs;

// The click

TEST(FiringClick, ItEndsTheTurnOfTheUnit) {
  const TurnWorld level;
  for (const std::uint32_t state : {TURN_PLAYER_MOVE, TURN_PLAYER_AIM}) {
    level.GiveControl("p");
    level.Controller().m_state = state;
    EXPECT_EQ(level.Click(), "Player Shoot\n");
    EXPECT_TRUE(level.GetPlayer("p").m_acted);
    EXPECT_EQ(level.State(), TURN_PLAYER_NEXT);
  }
}

TEST(FiringClick, TheShotGoesToTheMouseInTheLevel) {
  TurnWorld level({UnitAt(UnitKind::kEnemy, "e", -300, 0),
                   UnitAt(UnitKind::kPlayer, "p", 0, 0, "{}",
                          {ShotRecord("Weapon0Projectile", "ProjectileDefault")})});
  level.GiveControl("p");
  TransformOf(level.Find("view")).m_world_pos = Vector3D(0, 100, 1);
  level.PointAt(300, 300);
  EXPECT_EQ(level.Click(), "Player Shoot\n");
  EXPECT_TRUE(level.Find("Weapon0Projectile")->active);
  ASSERT_THAT(level.GetBody("Weapon0Projectile").m_forces, SizeIs(1));
  const Vector3D& direction = level.GetBody("Weapon0Projectile").m_forces[0]->direction;
  EXPECT_FLOAT_EQ(direction.x, 0.6f);
  EXPECT_FLOAT_EQ(direction.y, 0.8f);
}

TEST(FiringClick, TheHeldButtonFiresOnce) {
  const TurnWorld level;
  level.GiveControl("p");
  EXPECT_EQ(level.Click(), "Player Shoot\n");
  EXPECT_EQ(level.Click(), "");
}

TEST(FiringClick, ItFiresWhileOtherBodiesMove) {
  const TurnWorld level;
  level.GiveControl("p");
  level.Disturb();
  ASSERT_FALSE(level.Controller().AllBodiesAtRest());
  EXPECT_EQ(level.Click(), "Player Shoot\n");
  EXPECT_EQ(level.State(), TURN_PLAYER_NEXT);
}

TEST(FiringClick, ADeadUnitFiresUntilTheMachineTakesItsTurn) {
  const TurnWorld level({UnitAt(UnitKind::kEnemy, "e", 0, 0), UnitAt(UnitKind::kPlayer, "p", 0, 0),
                         UnitAt(UnitKind::kPlayer, "other", 0, 0)});
  level.GiveControl("p");
  level.GetPlayer("p").m_alive = false;
  EXPECT_EQ(level.Click(), "Player Shoot\n");
  EXPECT_TRUE(level.GetPlayer("p").m_acted);
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

TEST(FiringClick, OnlyTheRingOfTheGatesHoldsIt) {
  const TurnWorld level;
  level.GiveControl("p");
  GameObj* unit = level.Find("p");
  unit->AddComponent<StateC>();
  unit->GetComponent<StateC>()->m_state = "spawn";
  unit->AddComponent<UIElement>();
  EXPECT_EQ(level.Turn(), "");
  ASSERT_FALSE(level.GetPlayer("p").m_acted) << "the machine itself is held";
  EXPECT_EQ(level.Click(), "Player Shoot\n");
}

TEST(FiringClick, AnotherScreenKeepsItFromFiring) {
  const TurnWorld level;
  level.GiveControl("p");
  for (const char* screen : {"ui_pause", "ui_options", "ui_how_to_play", "ui_level_end"}) {
    level.Controller().m_ui_state = screen;
    EXPECT_EQ(level.Click(), "") << screen;
    EXPECT_EQ(level.State(), TURN_PLAYER_MOVE) << screen;
  }
  level.Controller().m_ui_state = "ui_default";
  EXPECT_EQ(level.Click(), "Player Shoot\n");
}

TEST(FiringClick, AButtonUnderTheCursorDoesNotKeepItFromFiring) {
  TurnWorld level;
  level.GiveControl("p");
  OutputOf([&] {
    level.world.LoadObjects(
        Record("hovered", {{"Transform", PlacedAt(0, 0, 400)}, {"Button", "{}"}}));
    level.PointAt(0, 0);
    level.world.Step();
  });
  EXPECT_EQ(level.Click(), "Player Shoot\n");
}

// Movement

TEST(Movement, EachDirectionHasItsForce) {
  const TurnWorld level;
  const Vector3D directions[] = {{0, 1, 0}, {0, -1, 0}, {-1, 0, 0}, {1, 0, 0}};
  level.GiveControl("p");
  for (std::uint32_t direction = 0; direction < 4; ++direction) {
    level.Push(direction);
    ASSERT_THAT(level.GetBody("p").m_forces, SizeIs(direction + 1));
    const DirectionalForce& force = *level.GetBody("p").m_forces.back();
    EXPECT_EQ(force.direction, directions[direction]);
    EXPECT_EQ(force.magnitude, 25000.0f);
    EXPECT_EQ(force.lifetime, 0.1f);
  }
  EXPECT_TRUE(level.IsAskedFor("tank_move.ogg"));
}

TEST(Movement, TheForceIsTheUnitsOwn) {
  const TurnWorld level({UnitAt(UnitKind::kEnemy, "e", 0, 0),
                         UnitAt(UnitKind::kPlayer, "p", 0, 0, R"({"m_movement_mag": 1234})")});
  level.GiveControl("p");
  level.Push(3);
  ASSERT_THAT(level.GetBody("p").m_forces, SizeIs(1));
  EXPECT_EQ(level.GetBody("p").m_forces[0]->magnitude, 1234.0f);
}

TEST(Movement, ADirectionThatIsNoneDoesNothing) {
  const TurnWorld level;
  level.GiveControl("p");
  level.Push(4);
  EXPECT_THAT(level.GetBody("p").m_forces, IsEmpty());
  EXPECT_EQ(level.GetPlayer("p").m_movement_curr, 2.0f);
}

TEST(Movement, ASlowedUnitPaysTheSameForHalfThePush) {
  const TurnWorld level;
  level.GiveControl("p");
  level.GetPlayer("p").m_status = "slowed";
  level.Push(0);
  EXPECT_EQ(level.GetBody("p").m_forces.back()->lifetime, 0.05f);
  EXPECT_EQ(level.GetPlayer("p").m_movement_curr, 2.0f - 0.016f);
}

TEST(Movement, TheReleaseOfAKeyPushesAndCostsOnceMore) {
  const TurnWorld level;
  level.GiveControl("p");
  level.Push(0, 0);
  EXPECT_THAT(level.GetBody("p").m_forces, SizeIs(1));
  EXPECT_EQ(level.GetPlayer("p").m_movement_curr, 2.0f - 0.016f);
}

TEST(Movement, ItNeedsASelectedUnitInItsMove) {
  const TurnWorld level;
  level.Controller().m_state = TURN_PLAYER_MOVE;
  level.Push(0);
  level.GiveControl("p");
  level.Controller().m_state = TURN_PLAYER_AIM;
  level.Push(0);
  EXPECT_THAT(level.GetBody("p").m_forces, IsEmpty());
}

TEST(Movement, ADeadUnitIsPushedUntilTheMachineTakesItsTurn) {
  const TurnWorld level({UnitAt(UnitKind::kEnemy, "e", 0, 0), UnitAt(UnitKind::kPlayer, "p", 0, 0),
                         UnitAt(UnitKind::kPlayer, "other", 0, 0)});
  level.GiveControl("p");
  level.GetPlayer("p").m_alive = false;
  level.Push(0);
  EXPECT_THAT(level.GetBody("p").m_forces, SizeIs(1));
  EXPECT_EQ(level.GetPlayer("p").m_movement_curr, 2.0f - 0.016f);
}

TEST(Movement, TwoHeldKeysPushAlongBothAxesAndCostTwice) {
  TurnWorld level;
  level.GiveControl("p");
  level.world.native.Press('W');
  level.world.native.Press('D');
  OutputOf([&] { level.world.Step(5); });
  EXPECT_NEAR(level.GetPlayer("p").m_movement_curr, 2.0f - 5 * 0.032f, 1e-5f);
  EXPECT_GT(level.GetBody("p").m_vel.x, 100.0f);
  EXPECT_FLOAT_EQ(level.GetBody("p").m_vel.x, level.GetBody("p").m_vel.y);
}

TEST(Movement, WithoutEnergyTheUnitCoastsAndCanOnlyFire) {
  TurnWorld level;
  level.GiveControl("p");
  level.GetPlayer("p").m_movement_curr = 0.04f;
  level.world.native.Press('D');
  OutputOf([&] { level.world.Step(2); });
  EXPECT_EQ(level.State(), TURN_PLAYER_MOVE);
  OutputOf([&] { level.world.Step(); });
  EXPECT_EQ(level.State(), TURN_PLAYER_AIM) << "the update after the push that spent the rest";
  const float energy = level.GetPlayer("p").m_movement_curr;
  const float speed = level.GetBody("p").m_vel.x;
  OutputOf([&] { level.world.Step(); });
  EXPECT_EQ(level.GetPlayer("p").m_movement_curr, energy);
  EXPECT_GT(level.GetBody("p").m_vel.x, speed) << "the forces of the pushes go on";
  EXPECT_EQ(level.Click(), "Player Shoot\n");
}

TEST(Movement, UntilTheNextUpdateAnEmptyBarStillPushes) {
  const TurnWorld level;
  level.GiveControl("p");
  level.GetPlayer("p").m_movement_curr = 0.0f;
  level.Push(0);
  EXPECT_THAT(level.GetBody("p").m_forces, SizeIs(1));
  EXPECT_EQ(level.GetPlayer("p").m_movement_curr, -0.016f);
}

// The gate

TEST(TurnInput, AClosingRingHoldsClickAndMovement) {
  const TurnWorld level({UnitAt(UnitKind::kEnemy, "e", 0, 0),
                         UnitAt(UnitKind::kPlayer, "p", 0, 0, "{}",
                                {ElementNamed("ui_selection_circle_off", 2.5f)})});
  level.GiveControl("p");
  EXPECT_EQ(level.Click(), "");
  level.Push(0);
  EXPECT_THAT(level.GetBody("p").m_forces, IsEmpty());
  EXPECT_EQ(level.GetPlayer("p").m_movement_curr, 2.0f);
  TransformOf(level.Find("element")).m_local_scale.x = 1.0f;
  level.Push(0);
  EXPECT_THAT(level.GetBody("p").m_forces, SizeIs(1));
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

TEST(Keys, EscapeTogglesThePauseWhateverTheScreen) {
  const TurnWorld level;
  level.Controller().m_ui_state = "ui_level_end";
  level.Key(27);
  EXPECT_EQ(level.Controller().m_ui_state, "ui_default");
  EXPECT_TRUE(g_engine->paused);
  level.Key(27);
  EXPECT_EQ(level.Controller().m_ui_state, "ui_pause");
  EXPECT_FALSE(g_engine->paused);
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

TEST(Keys, InAPauseTheRestartOfSpaceWaitsForItsEnd) {
  TurnWorld level;
  level.Key(27);
  level.Key(32);
  OutputOf([&] { level.world.Step(2); });
  EXPECT_TRUE(level.Controller().m_restart);
  level.Key(27);
  OutputOf([&] { level.world.Step(2); });
  EXPECT_FALSE(level.Controller().m_restart);
  EXPECT_EQ(level.Controller().m_ui_state, "ui_default");
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
  EXPECT_TRUE(level.GetPlayer("p").m_acted);
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

TEST(Keys, FAfterTheEndLeavesItForAStepOnly) {
  const TurnWorld level;
  level.GiveControl("p");
  level.GetEnemy("e").m_alive = false;
  level.Turn();
  ASSERT_EQ(level.State(), TURN_LEVEL_END);
  level.Key(70);
  EXPECT_EQ(level.State(), TURN_PLAYER_NEXT);
  EXPECT_EQ(level.Turn(), "");
  EXPECT_EQ(level.State(), TURN_LEVEL_END);
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
  const TurnWorld level({UnitAt(UnitKind::kEnemy, "e", 0, 0), UnitAt(UnitKind::kEnemy, "e2", 0, 0),
                         UnitAt(UnitKind::kPlayer, "p", 0, 0),
                         UnitAt(UnitKind::kPlayer, "p2", 0, 0)});
  level.Key(71);
  level.Key(72);
  for (const char* name : {"p", "p2"}) {
    EXPECT_EQ(level.GetPlayer(name).m_health, 100);
    EXPECT_EQ(level.GetPlayer(name).m_max_health, 100);
  }
  for (const char* name : {"e", "e2"}) {
    EXPECT_EQ(level.GetEnemy(name).m_health, 0);
    EXPECT_EQ(level.GetEnemy(name).m_max_health, 1);
  }
}

TEST(Keys, GAndHReachTheDeadToo) {
  const TurnWorld level;
  level.GetPlayer("p").m_alive = level.GetEnemy("e").m_alive = false;
  level.Key(71);
  level.Key(72);
  EXPECT_EQ(level.GetPlayer("p").m_health, 100);
  EXPECT_EQ(level.GetEnemy("e").m_health, 0);
}

TEST(Keys, QSwitchesTheWeaponWhileAUnitIsControlled) {
  const TurnWorld level;
  level.GiveControl("p");
  level.Key(81);
  EXPECT_FALSE(level.GetPlayer("p").m_selected_first_weapon);
  EXPECT_TRUE(level.GetPlayer("p").m_show_weapon_label);
  EXPECT_TRUE(level.IsAskedFor("button_click.ogg"));
  level.Controller().m_state = TURN_PLAYER_AIM;
  level.Key(81);
  EXPECT_TRUE(level.GetPlayer("p").m_selected_first_weapon);
  level.Sounds().sounds.clear();
  level.Controller().m_state = TURN_PLAYER_NEXT;
  level.Key(81);
  EXPECT_TRUE(level.GetPlayer("p").m_selected_first_weapon);
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
    RigidBody& body = level.GetBody("p");
    ASSERT_LT(transform.m_local_pos.x, 299.0f);
    level.Key(82);
    EXPECT_EQ(transform.m_local_pos, Vector3D(300, 0, 1));
    EXPECT_EQ(transform.m_prev_pos, Vector3D(300, 0, 1));
    EXPECT_EQ(body.m_vel, Vector3D());
    EXPECT_EQ(body.m_prev_vel, Vector3D());
    EXPECT_FALSE(body.m_forces.empty()) << "forces go on";
    EXPECT_EQ(level.GetPlayer("p").m_movement_curr, 2.0f);
  }
}

TEST(Keys, RAfterTheEnergyRanOutGivesTheMoveBack) {
  const TurnWorld level;
  level.GiveControl("p");
  level.GetPlayer("p").m_movement_curr = -0.01f;
  level.Turn();
  ASSERT_EQ(level.State(), TURN_PLAYER_AIM);
  level.Key(82);
  EXPECT_EQ(level.State(), TURN_PLAYER_MOVE);
  EXPECT_EQ(level.GetPlayer("p").m_movement_curr, level.GetPlayer("p").m_movement_limit);
}

TEST(Keys, ROutsideControlDoesNothing) {
  const TurnWorld level;
  level.GiveControl("p");
  level.GetBody("p").m_vel = Vector3D(1, 0, 0);
  level.Controller().m_state = TURN_PLAYER_NEXT;
  level.Key(82);
  EXPECT_EQ(level.GetBody("p").m_vel, Vector3D(1, 0, 0));
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

TEST(Pause, TheMovementKeysNeitherPushNorCost) {
  const TurnWorld level;
  level.GiveControl("p");
  g_engine->paused = true;
  for (std::uint32_t direction = 0; direction < 4; ++direction) level.Push(direction);
  EXPECT_THAT(level.GetBody("p").m_forces, IsEmpty());
  EXPECT_EQ(level.GetPlayer("p").m_movement_curr, 2.0f);
  EXPECT_FALSE(level.IsAskedFor("tank_move.ogg"));
  g_engine->paused = false;
  level.Push(0);
  EXPECT_THAT(level.GetBody("p").m_forces, SizeIs(1));
}

TEST(Pause, HeldMovementKeysStoreNothingForItsEnd) {
  TurnWorld level;
  level.GiveControl("p");
  level.Key(27);
  level.world.native.Press('D');
  OutputOf([&] { level.world.Step(60); });
  level.world.native.Release('D');
  OutputOf([&] { level.world.Step(2); });
  level.Key(27);
  OutputOf([&] { level.world.Step(2); });
  EXPECT_EQ(level.GetPlayer("p").m_movement_curr, 2.0f);
  EXPECT_EQ(TransformOf(level.Find("p")).m_local_pos.x, 300.0f);
}

TEST(Pause, FQAndRDoNothing) {
  const TurnWorld level;
  level.GiveControl("p");
  level.GetPlayer("p").m_movement_curr = 1.0f;
  level.GetBody("p").m_vel = Vector3D(1, 0, 0);
  g_engine->paused = true;
  for (const std::uint64_t key : {70u, 81u, 82u}) level.Key(key);
  EXPECT_EQ(level.State(), TURN_PLAYER_MOVE);
  EXPECT_FALSE(level.GetPlayer("p").m_acted);
  EXPECT_TRUE(level.GetPlayer("p").m_selected_first_weapon);
  EXPECT_EQ(level.GetPlayer("p").m_movement_curr, 1.0f);
  EXPECT_EQ(level.GetBody("p").m_vel, Vector3D(1, 0, 0));
  EXPECT_THAT(level.Sounds().sounds, IsEmpty());
}

TEST(Pause, TheOtherKeysActAsEver) {
  const TurnWorld level;
  g_engine->paused = true;
  level.Key(66);
  EXPECT_TRUE(level.Controller().m_debug);
  level.Key(71);
  EXPECT_EQ(level.GetPlayer("p").m_health, 100);
  level.Key(72);
  EXPECT_EQ(level.GetEnemy("e").m_health, 0);
  level.Key(32);
  EXPECT_TRUE(level.Controller().m_restart);
  level.Key(27);
  EXPECT_FALSE(g_engine->paused);
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

}  // namespace
}  // namespace ZOVEngine
