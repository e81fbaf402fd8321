#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rttr/type>

#include <string>
#include <vector>

#include "game/units/aicomp.h"
#include "game/units/enemy.h"
#include "game/units/player.h"
#include "support/reports.h"

namespace ZOVEngine {
namespace {

using carapace_test::KeysOf;
using carapace_test::OutputOf;
using carapace_test::ReadRecord;
using carapace_test::RecordOf;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// "name|typeinfo|label" of the inspectable fields of the class itself.
std::vector<std::string> FieldsOf(const std::string& name) {
  const rttr::type type = rttr::type::get_by_name("ZOVEngine::" + name);
  std::vector<std::string> fields;
  for (const rttr::property& property : type.get_properties()) {
    if (property.get_declaring_type() != type) continue;
    if (!property.get_metadata("is_inspect").to_bool()) continue;
    fields.push_back(property.get_name().to_string() + "|" +
                     property.get_metadata("typeinfo").get_value<std::string>() + "|" +
                     property.get_metadata("name").get_value<std::string>());
  }
  return fields;
}

TEST(PlayerRecord, ANewPlayerHasItsDefaults) {
  const Player player(nullptr);
  EXPECT_EQ(player.m_health, 1);
  EXPECT_EQ(player.m_max_health, 1);
  EXPECT_FALSE(player.m_acted);
  EXPECT_EQ(player.m_movement_curr, 2.0f);
  EXPECT_EQ(player.m_movement_limit, 2.0f);
  EXPECT_EQ(player.m_movement_mag, 25000.0f);
  EXPECT_TRUE(player.m_alive);
  EXPECT_FALSE(player.m_show_weapon_label);
  EXPECT_EQ(player.m_weapon_label_tex, "BASIC");
  EXPECT_THAT(player.m_weapon_label_size, ElementsAre(0.0f, 0.0f));
  EXPECT_EQ(player.m_status, "default");
  EXPECT_TRUE(player.m_selected_first_weapon);
  EXPECT_FALSE(player.m_pierce_pending);
  for (const float zero :
       {player.m_dt, player.m_flash_timer, player.m_label_timer, player.m_hp_bar_width,
        player.m_hp_bar_scale, player.m_hp_bar_left, player.m_hp_bar_x, player.m_pierce_timer}) {
    EXPECT_EQ(zero, 0.0f);
  }
}

TEST(PlayerRecord, SevenKeysAreReadAndWrittenInTheirOrder) {
  Player player(nullptr);
  const std::string text = R"({"m_health": 3, "m_max_health": 9, "m_movement_curr": 1.5,
      "m_movement_limit": 4.5, "m_movement_mag": 100.5, "m_alive": false,
      "m_selected_first_weapon": false, "m_acted": true, "m_status": "slowed"})";
  EXPECT_EQ(OutputOf([&] { ReadRecord(text, player); }), "");
  EXPECT_EQ(player.m_health, 3);
  EXPECT_EQ(player.m_max_health, 9);
  EXPECT_EQ(player.m_movement_curr, 1.5f);
  EXPECT_EQ(player.m_movement_limit, 4.5f);
  EXPECT_EQ(player.m_movement_mag, 100.5f);
  EXPECT_FALSE(player.m_alive);
  EXPECT_FALSE(player.m_selected_first_weapon);
  EXPECT_FALSE(player.m_acted) << "not part of a file";
  EXPECT_EQ(player.m_status, "default") << "not part of a file";
  EXPECT_THAT(KeysOf(RecordOf(player)),
              ElementsAre("m_health", "m_max_health", "m_movement_curr", "m_movement_limit",
                          "m_movement_mag", "m_alive", "m_selected_first_weapon"));
  Player copy(nullptr);
  ReadRecord(RecordOf(player), copy);
  EXPECT_EQ(RecordOf(copy), RecordOf(player));
}

TEST(PlayerRecord, EachFieldIsWrittenUnderItsOwnKey) {
  Player player(nullptr);
  player.m_health = 3;
  player.m_max_health = 9;
  player.m_movement_curr = 1.5f;
  player.m_movement_limit = 4.5f;
  player.m_movement_mag = 100.5f;
  player.m_alive = false;
  Player copy(nullptr);
  ReadRecord(RecordOf(player), copy);
  EXPECT_EQ(copy.m_health, 3);
  EXPECT_EQ(copy.m_max_health, 9);
  EXPECT_EQ(copy.m_movement_curr, 1.5f);
  EXPECT_EQ(copy.m_movement_limit, 4.5f);
  EXPECT_EQ(copy.m_movement_mag, 100.5f);
  EXPECT_FALSE(copy.m_alive);
  EXPECT_TRUE(copy.m_selected_first_weapon);
}

TEST(PlayerRecord, AFileWithoutAnyKeyKeepsTheDefaultsAndPrintsALineForEach) {
  Player player(nullptr);
  player.m_health = 7;
  EXPECT_EQ(OutputOf([&] { ReadRecord("{}", player); }),
            "Cant find Key: m_health\nCant find Key: m_max_health\nCant find Key: m_movement_curr\n"
            "Cant find Key: m_movement_limit\nCant find Key: m_movement_mag\n"
            "Cant find Key: m_alive\nCant find Key: m_selected_first_weapon\n");
  EXPECT_EQ(player.m_health, 7);
  EXPECT_EQ(player.m_max_health, 1);
  EXPECT_EQ(player.m_movement_mag, 25000.0f);
  EXPECT_TRUE(player.m_alive);
}

TEST(PlayerRecord, TheInspectorShowsAllSeven) {
  EXPECT_THAT(
      FieldsOf("Player"),
      ElementsAre("m_health|int|Curr HP", "m_max_health|int|Max HP",
                  "m_movement_curr|float|Curr Movement", "m_movement_limit|float|Movement Limit",
                  "m_movement_mag|float|Movement Mag", "m_alive|bool|Alive",
                  "m_selected_first_weapon|bool|Selected First Weapon"));
}

TEST(EnemyRecord, ANewEnemyHasItsDefaults) {
  const Enemy enemy(nullptr);
  EXPECT_EQ(enemy.m_health, 1);
  EXPECT_EQ(enemy.m_max_health, 1);
  EXPECT_TRUE(enemy.m_alive);
  EXPECT_EQ(enemy.m_weapon_label_tex, "BASIC");
  EXPECT_THAT(enemy.m_weapon_label_size, ElementsAre(0.0f, 0.0f));
  EXPECT_EQ(enemy.m_status, "default");
  EXPECT_TRUE(enemy.m_selected_first_weapon);
  EXPECT_EQ(enemy.m_snap_range, 10.0f);
  EXPECT_EQ(enemy.m_move_limit, 0.001f);
  EXPECT_EQ(enemy.m_move_speed, 1000.0f);
  EXPECT_THAT(enemy.m_waypoints, IsEmpty());
  EXPECT_EQ(enemy.m_waypoint_index, 0u);
  EXPECT_EQ(enemy.m_target, nullptr);
  for (const bool flag :
       {enemy.m_show_weapon_label, enemy.m_turning, enemy.m_pierce_pending, enemy.m_fired,
        enemy.m_boss, enemy.m_phase_two, enemy.m_phase_change, enemy.m_phase_ready, enemy.m_dying,
        enemy.m_death_done, enemy.m_moved, enemy.m_waypoints_off}) {
    EXPECT_FALSE(flag);
  }
  for (const float zero :
       {enemy.m_dt, enemy.m_flash_timer, enemy.m_label_timer, enemy.m_hp_bar_width,
        enemy.m_hp_bar_scale, enemy.m_hp_bar_left, enemy.m_hp_bar_x, enemy.m_aim_angle,
        enemy.m_death_timer, enemy.m_move_timer}) {
    EXPECT_EQ(zero, 0.0f);
  }
}

TEST(EnemyRecord, NineKeysAreReadAndWrittenInTheirOrder) {
  Enemy enemy(nullptr);
  const std::string text = R"({"m_health": 3, "m_max_health": 9, "m_alive": false,
      "m_selected_first_weapon": false, "m_boss": true, "m_waypoints": [[1, 2, 3], [4, 5, 6]],
      "m_move_speed": 12.5, "m_move_limit": 0.5, "m_snap_range": 7.5, "m_moved": true})";
  EXPECT_EQ(OutputOf([&] { ReadRecord(text, enemy); }), "");
  EXPECT_EQ(enemy.m_health, 3);
  EXPECT_EQ(enemy.m_max_health, 9);
  EXPECT_FALSE(enemy.m_alive);
  EXPECT_FALSE(enemy.m_selected_first_weapon);
  EXPECT_TRUE(enemy.m_boss);
  EXPECT_THAT(enemy.m_waypoints, ElementsAre(Vector3D(1, 2, 3), Vector3D(4, 5, 6)));
  EXPECT_EQ(enemy.m_move_speed, 12.5f);
  EXPECT_EQ(enemy.m_move_limit, 0.5f);
  EXPECT_EQ(enemy.m_snap_range, 7.5f);
  EXPECT_FALSE(enemy.m_moved) << "not part of a file";
  EXPECT_THAT(KeysOf(RecordOf(enemy)),
              ElementsAre("m_health", "m_max_health", "m_alive", "m_selected_first_weapon",
                          "m_boss", "m_waypoints", "m_move_speed", "m_move_limit", "m_snap_range"));
}

TEST(EnemyRecord, EachFieldIsWrittenUnderItsOwnKey) {
  for (const bool boss : {false, true}) {
    Enemy enemy(nullptr);
    enemy.m_health = 3;
    enemy.m_max_health = 9;
    enemy.m_alive = false;
    enemy.m_selected_first_weapon = !boss;
    enemy.m_boss = boss;
    enemy.m_move_speed = 12.5f;
    enemy.m_move_limit = 0.5f;
    enemy.m_snap_range = 7.5f;
    Enemy copy(nullptr);
    ReadRecord(RecordOf(enemy), copy);
    EXPECT_EQ(copy.m_health, 3);
    EXPECT_EQ(copy.m_max_health, 9);
    EXPECT_FALSE(copy.m_alive);
    EXPECT_EQ(copy.m_selected_first_weapon, !boss);
    EXPECT_EQ(copy.m_boss, boss);
    EXPECT_EQ(copy.m_move_speed, 12.5f);
    EXPECT_EQ(copy.m_move_limit, 0.5f);
    EXPECT_EQ(copy.m_snap_range, 7.5f);
  }
}

TEST(EnemyRecord, WaypointsComeBackInTheirOrder) {
  Enemy enemy(nullptr);
  enemy.m_waypoints = {Vector3D(3, 1, 1), Vector3D(-2, 0.5f, 1), Vector3D(3, 1, 1)};
  const std::string written = RecordOf(enemy);
  Enemy copy(nullptr);
  copy.m_waypoints = {Vector3D(9, 9, 9)};
  ReadRecord(written, copy);
  EXPECT_EQ(copy.m_waypoints, enemy.m_waypoints);
}

TEST(EnemyRecord, AFileWithoutAnyKeyKeepsTheDefaultsAndPrintsALineForEach) {
  Enemy enemy(nullptr);
  EXPECT_EQ(OutputOf([&] { ReadRecord("{}", enemy); }),
            "Cant find Key: m_health\nCant find Key: m_max_health\nCant find Key: m_alive\n"
            "Cant find Key: m_selected_first_weapon\nCant find Key: m_boss\n"
            "Cant find Key: m_waypoints\nCant find Key: m_move_speed\n"
            "Cant find Key: m_move_limit\nCant find Key: m_snap_range\n");
  EXPECT_EQ(enemy.m_max_health, 1);
  EXPECT_EQ(enemy.m_move_limit, 0.001f);
}

TEST(EnemyRecord, TheInspectorShowsAllNineAndTheWaypointsAsAList) {
  EXPECT_THAT(FieldsOf("Enemy"),
              ElementsAre("m_health|int|Curr HP", "m_max_health|int|Max HP", "m_alive|bool|Alive",
                          "m_selected_first_weapon|bool|Selected First Weapon", "m_boss|bool|Boss",
                          "m_waypoints|Vector3|Waypoints", "m_move_speed|float|Move Speed",
                          "m_move_limit|float|Move Limit", "m_snap_range|float|Snap Range"));
  Enemy enemy(nullptr);
  enemy.m_waypoints = {Vector3D(1, 2, 3), Vector3D(4, 5, 6)};
  const rttr::variant list =
      rttr::type::get_by_name("ZOVEngine::Enemy").get_property("m_waypoints").get_value(enemy);
  ASSERT_TRUE(list.is_sequential_container());
  const rttr::variant_sequential_view view = list.create_sequential_view();
  ASSERT_EQ(view.get_size(), 2u);
  EXPECT_EQ(view.get_value(1).extract_wrapped_value().get_value<Vector3D>(), Vector3D(4, 5, 6));
}

TEST(AICompRecord, HasNoKeysAndKeepsTheLastStep) {
  AIComp ai(nullptr);
  EXPECT_EQ(OutputOf([&] { ReadRecord(R"({"m_dt": 3})", ai); }), "");
  EXPECT_EQ(ai.m_dt, 0.0f);
  EXPECT_THAT(KeysOf(RecordOf(ai)), IsEmpty());
  ai.Update(0.25f);
  EXPECT_EQ(ai.m_dt, 0.25f);
  EXPECT_FALSE(ai.m_init);
}

}  // namespace
}  // namespace ZOVEngine
