#include "editor/palette.h"

#include "jsonunserializer.h"

#include <gtest/gtest.h>

#include "editor/leveldocument.h"

namespace ZOVEngine {
namespace {

/// A level whose root stands at (100, 20), with the given children.
LevelDocument Level(const std::string& children) {
  LevelDocument document;
  EXPECT_TRUE(document.SetText(
      R"({"GameObjFactory": [{"name": "lamp", "components": [], "Childs": []},)"
      R"({"name": "level", "components": ["Transform", "GameController"],)"
      R"("Transform": {"m_pos": [100.0, 20.0, 0.0]}, "GameController": {}, "Childs": [)" +
      children + "]}]}"));
  return document;
}

std::string Child(const std::string& name, const std::string& component) {
  return R"({"name": ")" + name + R"(", "components": [], ")" + component +
         R"(": {}, "Childs": []})";
}

TEST(Palette, UnitsFaceTheMiddle) {
  const auto facing = [](const char* side, float x) {
    const std::string unit = std::string(R"({"name": "unit", ")") + side +
                             R"(": {}, "Transform": {"m_pos": [0.0, 0.0, 0.0], "m_rotate": 0.0}})";
    rapidjson::Document json;
    json.Parse(FaceMiddle(unit, x).c_str());
    return json["Transform"]["m_rotate"].GetDouble();
  };
  EXPECT_EQ(facing("Player", -300.0f), -90.0);
  EXPECT_EQ(facing("Enemy", -300.0f), -90.0);
  EXPECT_EQ(facing("Player", 300.0f), 90.0);
  EXPECT_EQ(facing("Enemy", 300.0f), 90.0);
  EXPECT_EQ(facing("Player", 0.0f), -90.0);
  EXPECT_EQ(facing("Enemy", 0.0f), 90.0);
  const std::string hazard = R"({"name": "hole", "Transform": {"m_rotate": 0.0}})";
  EXPECT_EQ(FaceMiddle(hazard, 300.0f), hazard);
}

TEST(Palette, TheLevelsRootIsTheObjectWithTheController) {
  EXPECT_EQ(FindLevelRoot(Level("")), ObjectPath{1});
  EXPECT_EQ(FindLevelRoot(LevelDocument()), ObjectPath());
}

TEST(Palette, ARecordIsPlacedRelativeToItsParent) {
  const std::string placed =
      PlaceRecord(Level(""), {1}, R"({"Transform": {"m_pos": [0.0, 0.0, 1.0]}})", 130.0f, 25.0f);
  rapidjson::Document json;
  json.Parse(placed.c_str());
  EXPECT_EQ(json["Transform"]["m_pos"][0].GetFloat(), 30.0f);
  EXPECT_EQ(json["Transform"]["m_pos"][1].GetFloat(), 5.0f);
  EXPECT_EQ(json["Transform"]["m_pos"][2].GetFloat(), 1.0f);
}

TEST(Palette, NewObjectsStandBeforeTheInterface) {
  const LevelDocument empty = Level(Child("ui_energy_plate", "Render"));
  EXPECT_EQ(PlaceInLevel(empty, {1}, "Units"), 0u);
  EXPECT_EQ(PlaceInLevel(empty, {1}, "Hazards"), 0u);
  const LevelDocument full =
      Level(Child("hole", "EnvironmentBlackhole") + "," + Child("a", "Player") + "," +
            Child("b", "Enemy") + "," + Child("energy", "UIElement"));
  EXPECT_EQ(PlaceInLevel(full, {1}, "Units"), 3u);
  EXPECT_EQ(PlaceInLevel(full, {1}, "Hazards"), 1u);
  EXPECT_EQ(PlaceInLevel(full, {1}, "Decor"), 0u) << "under all else";
}

TEST(Palette, OnlyAUnitWithThatHandTakesAWeapon) {
  PaletteEntry weapon;
  weapon.records = {Child("Weapon0Projectile", "ProjectileSwap")};
  weapon.player_gun = "Gun_Swap_Green";
  EXPECT_EQ(EquipUnit(Child("rock", "RigidBody"), 0, weapon), "");
  EXPECT_EQ(EquipUnit(Child("bare", "Player"), 0, weapon), "");
  const std::string unit = R"({"name": "a", "Player": {}, "Childs": [)" +
                           Child("Weapon1Projectile", "ProjectileDefault") +
                           R"(, {"name": "Weapon1Barrel", "Childs": [],)"
                           R"("Render": {"m_tex": "x", "m_hl_tex": "x"}}]})";
  EXPECT_EQ(EquipUnit(unit, 0, weapon), "");
  const std::string equipped = EquipUnit(unit, 1, weapon);
  rapidjson::Document json;
  json.Parse(equipped.c_str());
  EXPECT_STREQ(json["Childs"][0]["name"].GetString(), "Weapon1Projectile");
  EXPECT_TRUE(json["Childs"][0].HasMember("ProjectileSwap"));
  EXPECT_STREQ(json["Childs"][1]["Render"]["m_tex"].GetString(), "Gun_Swap_Green");
}

}  // namespace
}  // namespace ZOVEngine
