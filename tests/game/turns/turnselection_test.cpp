#include "game/turns/turnselection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "game/turns/turnworld.h"
#include "objects/statec.h"
#include "render/components/light.h"
#include "render/components/render.h"
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
  const TurnWorld level({UnitAt(UnitKind::kEnemy, "e", 0, 0, "{}", rings),
                         UnitAt(UnitKind::kPlayer, "p", 0, 0, "{}", rings)});
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

TEST(Selection, AUnitThatIsSelectedAgainIsReleasedFirst) {
  const TurnWorld level(
      {UnitAt(UnitKind::kEnemy, "e", 0, 0, "{}", {ElementNamed("ui_selection_circle_off")}),
       UnitAt(UnitKind::kPlayer, "p", 0, 0)});
  level.TurnFrom(TURN_ENEMY_SELECT);
  level.TurnFrom(TURN_ENEMY_SELECT);
  EXPECT_FLOAT_EQ(level.Find("e")->GetComponent<Light>()->m_diffuseStr,
                  3.0f * 1.5f * 0.6666667f * 1.5f);
  EXPECT_EQ(level.Find("element")->GetComponent<UIElement>()->m_ui_element_name,
            "ui_selection_circle");
}

TEST(Selection, ItIsBroadcastWithTheUnit) {
  const TurnWorld level;
  level.TurnFrom(TURN_ENEMY_SELECT);
  EXPECT_EQ(g_render_system->m_selected_id, static_cast<std::int32_t>(level.Find("e")->id));
  EXPECT_EQ(level.world.Send(SelectedUnit()).objectId, level.Find("e")->id);
}

TEST(Selection, TheStartOfTheTurnIsRemembered) {
  const TurnWorld level;
  level.GiveControl("p");
  EXPECT_EQ(level.Controller().m_turn_start_pos, Vector3D(300, 0, 1));
}

TEST(Selection, TheStartOfTheTurnIsAWorldPosition) {
  const TurnWorld level;
  TransformOf(level.Find("p")).m_world_pos = Vector3D(7, 8, 1);
  level.GiveControl("p");
  EXPECT_EQ(level.Controller().m_turn_start_pos, Vector3D(7, 8, 1));
}

TEST(Selection, ADamagedUnitBurnsAndLosesHealth) {
  const TurnWorld level(
      {UnitAt(UnitKind::kEnemy, "e", 0, 0),
       UnitAt(UnitKind::kPlayer, "p", 0, 0, R"({"m_health": 5, "m_max_health": 5})",
              {Record("Weapon1Barrel",
                      {{"Transform", PlacedAt(0, 0)}, {"Render", "{}"}, {"iModel", "{}"}})})});
  level.GetPlayer("p").m_status = "damaged";
  level.GiveControl("p");
  EXPECT_EQ(level.GetPlayer("p").m_health, 4);
  EXPECT_EQ(level.State(), TURN_PLAYER_MOVE);
  for (const char* name : {"p", "Weapon1Barrel"}) {
    const Render& render = *level.Find(name)->GetComponent<Render>();
    EXPECT_EQ(render.m_colour[0], 100000.0f) << name;
    EXPECT_EQ(render.m_colour[2], 100000.0f) << name;
    EXPECT_EQ(render.m_colour[3], 1.0f) << name;
  }
}

TEST(Selection, ADamagedUnitWithOneHealthLeftKeepsItsTurn) {
  const std::string two = R"({"m_health": 2, "m_max_health": 2})";
  const TurnWorld level(
      {UnitAt(UnitKind::kEnemy, "e", 0, 0, two), UnitAt(UnitKind::kPlayer, "p", 0, 0, two)});
  level.GetEnemy("e").m_status = "damaged";
  level.GetPlayer("p").m_status = "damaged";
  level.TurnFrom(TURN_ENEMY_SELECT);
  EXPECT_EQ(level.GetEnemy("e").m_health, 1);
  EXPECT_EQ(level.State(), TURN_ENEMY_MOVE);
  level.TurnFrom(TURN_PLAYER_SELECT);
  EXPECT_EQ(level.GetPlayer("p").m_health, 1);
  EXPECT_EQ(level.State(), TURN_PLAYER_MOVE);
}

TEST(Selection, OtherStatusDoesNotHurt) {
  const TurnWorld level;
  level.GetPlayer("p").m_status = "slowed";
  level.GiveControl("p");
  EXPECT_EQ(level.GetPlayer("p").m_health, 1);
}

TEST(Selection, TheLeastHealthStaysTheLeast) {
  const TurnWorld level({UnitAt(UnitKind::kEnemy, "e", 0, 0), UnitAt(UnitKind::kPlayer, "p", 0, 0),
                         UnitAt(UnitKind::kPlayer, "other", 0, 0)});
  level.GetPlayer("p").m_status = "damaged";
  level.GetPlayer("p").m_health = std::numeric_limits<int>::min();
  level.GiveControl("p");
  EXPECT_EQ(level.GetPlayer("p").m_health, std::numeric_limits<int>::min());
  EXPECT_EQ(level.State(), TURN_PLAYER_NEXT);
}

TEST(Selection, AUnitKilledByItsDamageGetsNoRingAndTheOldOneIsOff) {
  const std::vector<std::string> ring = {ElementNamed("ui_selection_circle_off")};
  TurnWorld level({UnitAt(UnitKind::kEnemy, "e", 0, 0),
                   UnitAt(UnitKind::kPlayer, "first", 0, 0, "{}", ring),
                   UnitAt(UnitKind::kPlayer, "doomed", 0, 0, "{}", ring),
                   UnitAt(UnitKind::kPlayer, "last", 0, 0, "{}", ring)});
  const auto ring_of = [&](const char* unit) {
    return level.Find(unit)->children[0]->GetComponent<UIElement>()->m_ui_element_name;
  };
  level.GetPlayer("doomed").m_status = "damaged";
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
  EXPECT_FALSE(level.GetPlayer("doomed").m_alive);
  EXPECT_EQ(level.Controller().m_selected, level.Find("last"));
}

TEST(Selection, AUnitKilledByItsDamageIsSelectedAndLitButNotAnnounced) {
  const TurnWorld level;
  level.TurnFrom(TURN_ENEMY_SELECT);
  level.GetPlayer("p").m_status = "damaged";
  level.TurnFrom(TURN_PLAYER_SELECT);
  EXPECT_EQ(level.Controller().m_selected, level.Find("p"));
  EXPECT_EQ(level.Find("p")->GetComponent<Light>()->m_diffuseStr, 4.5f);
  EXPECT_EQ(level.Find("p")->GetComponent<Render>()->m_colour[0], 100000.0f);
  EXPECT_EQ(g_render_system->m_selected_id, static_cast<std::int32_t>(level.Find("e")->id));
}

}  // namespace
}  // namespace ZOVEngine
