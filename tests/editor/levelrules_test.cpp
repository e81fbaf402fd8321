#include "editor/levelrules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <set>

#include "editor/leveldraft.h"

namespace carapace_test {
namespace {

using namespace ZOVEngine;
using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

const KnownAssets& Known() {
  static const KnownAssets known = DraftAssets();
  return known;
}

LevelProblems ProblemsOf(const LevelDraft& draft) {
  return CheckLevel(draft.Text(), Known());
}

std::vector<std::string> SentencesOf(const LevelProblems& problems) {
  std::vector<std::string> sentences;
  for (const LevelProblem& problem : problems) {
    sentences.push_back(std::string(problem.rule) + ": " + problem.text);
  }
  return sentences;
}

/// A change of the small level that breaks one rule, and what a problem says then.
struct Example {
  const char* rule;
  const char* words;
  std::function<void(LevelDraft&)> change;
};

constexpr const char* kPuck = R"({"name": "puck", "active": true,
  "components": ["Transform", "RigidBody", "ColliderHolder"],
  "Transform": {"m_pos": [0, 0, 1], "m_scale": [40, 40, 1], "m_rotate": 0, "m_world_scale": [40, 40, 1],
    "m_world_rotate": 0, "m_world_pos": [0, 0, 1], "m_rotate_with_parent": true},
  "RigidBody": {"m_vel": [0, 0, 0], "m_accel": [0, 0, 0], "m_mass": 1, "m_inertia": 1,
    "m_sleeper_vel": [0, 0, 0], "m_sleeper_rot_vel": 0, "m_drag": 1, "m_angular_drag": 1, "m_rest": 1},
  "ColliderHolder": {"m_active": true, "m_layer": 0, "m_collider_type": "Circle",
    "bitmask_category": "Default", "m_local_scale": [1, 1, 1], "m_local_pos": [0, 0, 1], "m_local_rot": 0},
  "Childs": []})";
constexpr const char* kWaypoint = R"({"m_draw": false, "m_reached": false, "m_lastIndex": 0,
  "m_snappingDist": 1, "m_speed": 1, "m_path": [[0, 0, 1], [90, 0, 1]], "m_limit": 5,
  "m_curr_movement": 0})";

constexpr const char* kTransform = R"({"m_pos": [0, 0, 1], "m_scale": [1, 1, 1], "m_rotate": 0,
  "m_world_scale": [1, 1, 1], "m_world_rotate": 0, "m_world_pos": [0, 0, 1],
  "m_rotate_with_parent": true})";
constexpr const char* kHoleFields = R"({"m_suction_force": 4, "m_suction_range": 200})";

/// A record with a place and one more component.
std::string Bare(const std::string& name, const std::string& component, const std::string& fields) {
  return R"({"name": ")" + name + R"(", "active": true, "components": ["Transform", ")" +
         component + "\"], \"Transform\": " + kTransform + ", \"" + component + "\": " + fields +
         R"(, "Childs": []})";
}

/// A change of one field of a component.
std::function<void(LevelDraft&)> Field(const char* object, const char* component, const char* key,
                                       const char* json) {
  return [=](LevelDraft& draft) { draft.Set(draft.Find(object)[component], key, json); };
}

std::function<void(LevelDraft&)> TileField(const char* component, const char* key,
                                           const char* json) {
  return [=](LevelDraft& draft) { draft.Set(draft.Tile(3)[component], key, json); };
}

/// A puck with one field changed.
std::function<void(LevelDraft&)> Puck(const char* component, const char* key, const char* json) {
  return [=](LevelDraft& draft) {
    draft.Add(kPuck);
    draft.Set(draft.Find("puck")[component], key, json);
  };
}

std::function<void(LevelDraft&)> Without(const char* object, const char* component) {
  return [=](LevelDraft& draft) { draft.DropComponent(draft.Find(object), component); };
}

std::function<void(LevelDraft&)> WithoutChild(const char* object, const char* child) {
  return [=](LevelDraft& draft) { draft.DropChild(object, child); };
}

std::function<void(LevelDraft&)> Map(const char* key, const char* json) {
  return [=](LevelDraft& draft) { draft.Set(draft.map, key, json); };
}

void MakeBoss(LevelDraft& draft) {
  Json& enemy = draft.Find("enemy1");
  draft.Set(enemy["Enemy"], "m_boss", "true");
  std::vector<std::string> pieces = {"MiddleProj",     "LeftProjPhase1",  "RightProjPhase1",
                                     "LeftProjPhase2", "RightProjPhase2", "ShieldPhase1",
                                     "ShieldPhase2",   "DeathExplosion10"};
  for (int k = 0; k < 10; ++k) pieces.push_back("DeathExplosion0" + std::to_string(k));
  for (const std::string& piece : pieces) {
    draft.AddTo(enemy["Childs"],
                R"({"name": ")" + piece + R"(", "active": true, "components": [], "Childs": []})");
  }
}

void AddPlate(LevelDraft& draft) {
  Json plate = draft.Copy(draft.Tile(3));
  draft.Set(plate["Render"], "m_tex", "\"Tile_Floor\"");
  for (const char* key : {"m_scale", "m_world_scale"}) {
    draft.Set(plate["Transform"], key, "[120, 120, 1]");
  }
  for (const char* key : {"m_pos", "m_world_pos"}) {
    draft.Set(plate["Transform"], key, "[60, 0, 1]");
  }
  draft.AddTile(LevelDraft::TextOf(plate));
}

/// A wall on a cell; column and row count from the cell at the right and below the middle.
void AddWall(LevelDraft& draft, int column, int row) {
  Json tile = draft.Copy(draft.Tile(3));
  const std::string place =
      "[" + std::to_string(30 + 60 * column) + ", " + std::to_string(30 - 60 * row) + ", 1]";
  for (const char* key : {"m_pos", "m_world_pos"}) draft.Set(tile["Transform"], key, place);
  draft.AddTile(LevelDraft::TextOf(tile));
}

/// A wall of one tile amid open ground.
void AddThinCover(LevelDraft& draft) {
  AddWall(draft, 1, 0);
}

constexpr const char* kShot = "Weapon0Projectile";

/// The form of the files.
std::vector<Example> FormExamples() {
  return {
      {"json", "the map is absent", [](LevelDraft& draft) { draft.map.SetNull(); }},
      {"json", "the file of the tiles is absent",
       [](LevelDraft& draft) { draft.tiles.SetArray(); }},
      {"record", "has no \"Childs\"",
       [](LevelDraft& draft) { draft.Find("ui_turn").RemoveMember("Childs"); }},
      {"record", "is no object",
       [](LevelDraft& draft) { draft.AddTo(draft.objects["GameObjFactory"], "5"); }},
      {"record", "\"name\" that is no text",
       [](LevelDraft& draft) { draft.Set(draft.Find("lamp"), "name", "7"); }},
      {"record", "lists no components",
       [](LevelDraft& draft) { draft.Add(R"({"name": "a", "active": true, "Childs": []})"); }},
      {"record", "\"components\" that are no list",
       [](LevelDraft& draft) {
         draft.Add(R"({"name": "a", "active": true, "components": {}, "Childs": []})");
       }},
      {"record", "\"GameObjFactory\" is missing",
       [](LevelDraft& draft) { draft.tiles.RemoveMember("GameObjFactory"); }},
      {"component-unknown", "lamp has the component Lantern",
       [](LevelDraft& draft) { draft.AddComponent(draft.Find("lamp"), "Lantern", "{}"); }},
      {"component-unknown", "lamp has the component Shot",
       [](LevelDraft& draft) { draft.AddComponent(draft.Find("lamp"), "Shot", "{}"); }},
      {"component-twice", "lamp lists the component Light twice",
       [](LevelDraft& draft) { draft.AddTo(draft.Find("lamp")["components"], "\"Light\""); }},
      {"component-absent", "lamp lists the component Light",
       [](LevelDraft& draft) { draft.Find("lamp").RemoveMember("Light"); }},
      {"component-unlisted", "lamp has the key StateC",
       [](LevelDraft& draft) { draft.Set(draft.Find("lamp"), "StateC", "{}"); }},
      {"field-form", "m_diffuse that is not three numbers",
       Field("lamp", "Light", "m_diffuse", "[1, 1]")},
      {"field-form", "m_text that is not a text", Field("hp_font", "Font", "m_text", "5")},
      {"field-form", "m_diffuseStr that is not a number",
       Field("lamp", "Light", "m_diffuseStr", "\"bright\"")},
      {"field-form", "loop that is not a list of flags",
       Field("level", "AudioSource", "loop", "true")},
      {"field-form", "m_vertices that is not a list of rows",
       Field("ui_skip", "iModel", "m_vertices", "[[1, 2, 3]]")},
      {"field-whole", "m_layer that is not whole",
       Field("player1", "ColliderHolder", "m_layer", "1.0")},
      {"field-flag", "m_boss that is neither", Field("enemy1", "Enemy", "m_boss", "0")},
      {"field-absent", "has in Light no m_pos, m_ambientStr",
       [](LevelDraft& draft) {
         draft.Find("lamp")["Light"].RemoveMember("m_pos");
         draft.Find("lamp")["Light"].RemoveMember("m_ambientStr");
       }},
      {"sound-lists", "volume that is shorter", Field("level", "AudioSource", "volume", "[1]")},
      {"collider-type", "shape \"Star\"", Puck("ColliderHolder", "m_collider_type", "\"Star\"")},
      {"particle-rate", "minimum above the maximum",
       Field("unit_damaged", "ParticleSystemC", "m_emitter_num_particles", "[5, 4]")},
      {"particle-pool", "pool of 150001",
       Field("unit_damaged", "ParticleSystemC", "m_num_of_particles", "150001")},
  };
}

/// The level as a whole, and its map.
std::vector<Example> LevelExamples() {
  return {
      {"one-controller", "has 2 objects with a GameController",
       [](LevelDraft& draft) {
         draft.Add(Bare("second", "GameController", R"({"m_level_theme": "", "m_level_map": ""})"));
       }},
      {"controller-parts", "has no Transform", Without("level", "Transform")},
      {"controller-parts", "has no AudioSource", Without("level", "AudioSource")},
      {"one-camera", "has 0 cameras", Without("camera", "Camera")},
      {"both-sides", "has no Enemy", WithoutChild("level", "enemy1")},
      {"level-paths", "Tiles is not its own file",
       [](LevelDraft& draft) { draft.Set(draft.level, "Tiles", "\"tiles.json\""); }},
      {"level-paths", "level has a m_level_map",
       Field("level", "GameController", "m_level_map", "\"Level02.json\"")},
      {"map-size", "no whole Width", Map("Width", "\"wide\"")},
      {"map-size", "no whole Height", Map("Height", "18.0")},
      {"map-size", "TileSize 16385 is not within", Map("TileSize", "16385")},
      {"map-size", "Width 4294967295 is not within", Map("Width", "-1")},
      {"map-size", "no cells", Map("TileSize", "0")},
      {"map-grid", "TileMap is not of its sizes", Map("TileMap", "[[1], [\"wall\"]]")},
      {"map-grid", "TileObjects are no names", Map("TileObjects", "{\"1\": 2}")},
      {"tile-kind", "rock lies among the tiles",
       [](LevelDraft& draft) {
         draft.AddTile(R"({"name": "rock", "active": true, "components": [], "Childs": []})");
       }},
      {"tile-grid", "tile lies at (15, 510)",
       TileField("Transform", "m_world_pos", "[15, 510, 1]")},
      {"tile-grid", "tile lies at (30, 570)",
       TileField("Transform", "m_world_pos", "[30, 570, 1]")},
      {"tile-twice", "where another tile lies",
       [](LevelDraft& draft) { draft.AddTile(LevelDraft::TextOf(draft.Tile(3))); }},
      {"place-free", "player1 stands or walks at (0, 510)",
       Field("player1", "Transform", "m_pos", "[0, 510, 1]")},
      {"place-free", "player1 stands or walks at (5000, 0)",
       Field("player1", "Transform", "m_pos", "[5000, 0, 1]")},
      {"place-free", "enemy1 stands or walks at (660, 510)",
       Field("enemy1", "Enemy", "m_waypoints", "[[660, 510, 1], [660, 120, 1]]")},
      {"hull", "row 8, column 16 lies open", AddPlate},
      {"cover-thin", "row 8, column 17 has ground on two opposite sides", AddThinCover},
      {"interface-element", "clock is an element of the unknown name ui_clock",
       [](LevelDraft& draft) {
         draft.Add(Bare("clock", "UIElement", R"({"m_ui_element_name": "ui_clock"})"));
       }},
      {"interface-button", "bell is a button of the unknown name ui_ring",
       [](LevelDraft& draft) {
         draft.Add(LevelDraft::TextOf(draft.Find("ui_skip")));
         Json& bell = draft.objects["GameObjFactory"][2];
         draft.Set(bell, "name", "\"bell\"");
         draft.Set(bell["Button"], "m_click_name", "\"ui_ring\"");
       }},
      {"interface-missing", "no element ui_turn", WithoutChild("level", "ui_turn")},
      {"interface-missing", "no hint ui_skip", WithoutChild("level", "ui_skip")},
      {"interface-missing", "no button ui_pause_resume", WithoutChild("camera", "ui_pause_resume")},
      {"interface-missing", "no closing sprite ui_closing", WithoutChild("camera", "ui_closing")},
      {"interface-missing", "piece of the glossary below its root or beside its tabs EnvDamage",
       [](LevelDraft& draft) {
         draft.DropChild("camera", "EnvDamage"), draft.DropChild("camera", "EnvDamage");
       }},
  };
}

/// Units and their shots.
std::vector<Example> UnitExamples() {
  return {
      {"unit-place", "enemy1 is a unit, but no child",
       [](LevelDraft& draft) {
         const std::string enemy = LevelDraft::TextOf(draft.Find("enemy1"));
         draft.DropChild("level", "enemy1");
         draft.Add(enemy);
       }},
      {"unit-sides", "player1 is a Player and an Enemy",
       [](LevelDraft& draft) {
         Json fields = draft.Copy(draft.Find("enemy1")["Enemy"]);
         draft.Set(fields, "m_waypoints", "[]");
         draft.AddComponent(draft.Find("player1"), "Enemy", LevelDraft::TextOf(fields));
       }},
      {"unit-health", "player1 starts without health", Field("player1", "Player", "m_health", "0")},
      {"unit-health", "enemy1 starts without health",
       Field("enemy1", "Enemy", "m_max_health", "0")},
      {"unit-energy", "player1 has no energy", Field("player1", "Player", "m_movement_limit", "0")},
      {"unit-off", "player1 is a unit that starts switched off",
       [](LevelDraft& draft) { draft.Set(draft.Find("player1"), "active", "false"); }},
      {"unit-dead", "player1 is a unit that starts dead",
       Field("player1", "Player", "m_alive", "false")},
      {"unit-hidden", "player1 is a unit whose image is hidden",
       Field("player1", "Render", "m_visible", "false")},
      {"unit-element", "player1 is a unit with a UIElement",
       [](LevelDraft& draft) {
         draft.AddComponent(draft.Find("player1"), "UIElement",
                            R"({"m_ui_element_name": "ui_font"})");
       }},
      {"unit-parts", "player1 is a unit without RigidBody", Without("player1", "RigidBody")},
      {"unit-parts", "player1 is a unit without Animation", Without("player1", "Animation")},
      {"unit-children", "player1 lacks its child WeaponText",
       WithoutChild("player1", "WeaponText")},
      {"unit-children", "enemy1 lacks its child Weapon0Projectile", WithoutChild("enemy1", kShot)},
      {"unit-overlap", "player2 overlaps level/player1",
       Field("player2", "Transform", "m_pos", "[-720, 150, 1]")},
      {"boss-name", "enemy1 is a boss, but not named Boss", MakeBoss},
      {"walker-path", "enemy1 has an AIComp without a path",
       Field("enemy1", "Enemy", "m_waypoints", "[]")},
      {"walker-path", "enemy1 has one waypoint only",
       Field("enemy1", "Enemy", "m_waypoints", "[[660, 120, 1]]")},
      {"walker-path", "within 60 units, its arrival distance",
       Field("enemy1", "Enemy", "m_waypoints", "[[660, 120, 1], [660, 180, 1], [0, 180, 1]]")},
      // A push carries it nearly 90 units. It arrives 60 units before a point, and sets off from as
      // far behind one.
      {"walker-legs", "enemy1 reaches each next waypoint",
       Field("enemy1", "Enemy", "m_waypoints", "[[660, 329, 1], [660, 120, 1]]")},
      {"walker-legs", "enemy1 reaches each next waypoint",
       Field("enemy1", "Enemy", "m_move_limit", "0.0283")},
      {"path-walker", "enemy1 has a path without an AIComp", Without("enemy1", "AIComp")},
      {"shot-place", "Weapon0Projectile is a shot, but no child",
       [](LevelDraft& draft) { draft.Add(LevelDraft::TextOf(draft.Find(kShot))); }},
      {"shot-parts", "is a shot without RigidBody", Without(kShot, "RigidBody")},
      {"shot-turns", "turns Weapon0Projectile with the unit",
       Field(kShot, "Transform", "m_rotate_with_parent", "true")},
      {"shot-turns", "turns bullet_trail with the unit",
       Field("bullet_trail", "Transform", "m_rotate_with_parent", "true")},
      {"shot-drag", "is a shot that drag would stop", Field(kShot, "RigidBody", "m_drag", "0.1")},
  };
}

/// What objects need, the names that they use, and bodies that never rest.
std::vector<Example> PartExamples() {
  return {
      {"component-needs", "ui_skip has a Render without iModel", Without("ui_skip", "iModel")},
      {"component-needs", "ui_skip has a Render without Transform",
       Without("ui_skip", "Transform")},
      {"component-needs", "tile has a Render without Transform",
       [](LevelDraft& draft) { draft.DropComponent(draft.Tile(3), "Transform"); }},
      {"component-needs", "unit_damaged has a ParticleSystemC without Transform",
       Without("unit_damaged", "Transform")},
      {"component-needs", "lamp has a Light without Transform", Without("lamp", "Transform")},
      {"sheet-frames", "has a spawn sheet of 11 frames",
       Field("player1", "Animation", "m_spawn_frames", "11")},
      {"texture", "player1 shows Nothing", Field("player1", "Render", "m_tex", "\"Nothing\"")},
      {"texture", "ui_skip shows Nothing",
       Field("ui_skip", "Button", "m_click_tex", "\"Nothing\"")},
      {"texture", "tile shows Nothing", TileField("Render", "m_tex", "\"Nothing\"")},
      {"sound", "player1 lists the sound a.ogg",
       Field("player1", "AudioSource", "sounds",
             R"(["a.ogg", "unit_fire.ogg", "unit_spawn.ogg"])")},
      {"category", "puck has the category Fog",
       Puck("ColliderHolder", "bitmask_category", "\"Fog\"")},
      {"field-parent", "field is a DeathField without a parent",
       [](LevelDraft& draft) { draft.Add(Bare("field", "DeathField", R"({"m_damage": 1})")); }},
      {"tile-object", "ui_skip is a tile", Field("ui_skip", "Render", "m_tile", "true")},
      {"body-drag", "puck is a body without drag", Puck("RigidBody", "m_drag", "0")},
      {"body-spin", "puck is a body without angular drag",
       Puck("RigidBody", "m_angular_drag", "0")},
      {"body-shape", "puck is a body without a ColliderHolder",
       [](LevelDraft& draft) {
         draft.Add(kPuck);
         draft.DropComponent(draft.Find("puck"), "ColliderHolder");
         draft.Add(Bare("hole", "EnvironmentBlackhole", kHoleFields));
       }},
      {"body-waypoint", "puck is a Waypoint that never stands still",
       [](LevelDraft& draft) {
         draft.Add(kPuck);
         draft.AddComponent(draft.Find("puck"), "Waypoint", kWaypoint);
       }},
  };
}

std::vector<Example> Examples() {
  std::vector<Example> all = FormExamples();
  for (const auto& more : {LevelExamples(), UnitExamples(), PartExamples()}) {
    all.insert(all.end(), more.begin(), more.end());
  }
  return all;
}

TEST(LevelRules, TheSmallLevelHasNoProblems) {
  EXPECT_THAT(SentencesOf(ProblemsOf(LevelDraft())), IsEmpty());
}

TEST(LevelRules, EachExampleBreaksItsRuleAlone) {
  for (const Example& example : Examples()) {
    LevelDraft draft;
    example.change(draft);
    const std::vector<std::string> sentences = SentencesOf(ProblemsOf(draft));
    EXPECT_THAT(sentences, Each(StartsWith(example.rule + std::string(": ")))) << example.words;
    EXPECT_THAT(sentences, Contains(HasSubstr(example.words)));
  }
}

TEST(LevelRules, EveryRuleHasAnExampleAndANameOfItsOwn) {
  std::set<std::string> shown = {"archetype"};  // a test of its own: no level breaks it
  for (const Example& example : Examples()) shown.insert(example.rule);
  std::set<std::string> names;
  for (const LevelRule& rule : LevelRules()) names.insert(rule.name);
  EXPECT_EQ(shown, names);
  EXPECT_EQ(names.size(), LevelRules().size());
}

TEST(LevelRules, ATemplateThatIsAbsentIsAnError) {
  KnownAssets known = Known();
  known.archetypes.clear();
  const LevelProblems problems = CheckLevel(LevelDraft().Text(), known);
  EXPECT_THAT(SentencesOf(problems), ElementsAre(HasSubstr("needs the archetype particle_test"),
                                                 HasSubstr("needs the archetype tilecollider")));
  EXPECT_TRUE(HasError(problems));
}

TEST(LevelRules, AWarningIsNoError) {
  LevelDraft draft;
  Without("enemy1", "AIComp")(draft);
  EXPECT_FALSE(HasError(ProblemsOf(draft)));
}

TEST(LevelRules, APatrolWithOneLongLegEndsItsMoves) {
  LevelDraft draft;
  Field("enemy1", "Enemy", "m_waypoints", "[[660, 360, 1], [660, 270, 1], [660, 50, 1]]")(draft);
  EXPECT_THAT(SentencesOf(ProblemsOf(draft)), IsEmpty());
}

TEST(LevelRules, WhatCannotTurnNeedsNoAngularDragAndWhatNoHolePullsNoShape) {
  LevelDraft draft;
  draft.Add(kPuck);
  draft.Set(draft.Find("puck")["RigidBody"], "m_angular_drag", "0");
  draft.Set(draft.Find("puck")["RigidBody"], "m_inertia", "0");
  draft.DropComponent(draft.Find("puck"), "ColliderHolder");
  draft.Add(Bare("hole", "EnvironmentBlackhole", kHoleFields));
  draft.Set(draft.Find("hole")["EnvironmentBlackhole"], "m_suction_range", "0");
  EXPECT_THAT(SentencesOf(ProblemsOf(draft)), IsEmpty());
}

TEST(LevelRules, AWalkWithoutTimeStandsStill) {
  LevelDraft draft;
  draft.Add(kPuck);
  draft.AddComponent(draft.Find("puck"), "Waypoint", kWaypoint);
  draft.Set(draft.Find("puck")["Waypoint"], "m_limit", "0");
  EXPECT_THAT(SentencesOf(ProblemsOf(draft)), IsEmpty());
}

TEST(LevelRules, FloorWithWallsAroundIsClosed) {
  LevelDraft draft;
  AddPlate(draft);
  for (int row = -1; row <= 2; ++row) {
    for (int column = -1; column <= 2; ++column) {
      if (row < 0 || row > 1 || column < 0 || column > 1) AddWall(draft, column, row);
    }
  }
  EXPECT_THAT(SentencesOf(ProblemsOf(draft)), IsEmpty());
}

TEST(LevelRules, CoverOfTwoTilesIsThickEnough) {
  LevelDraft draft;
  for (const int column : {2, 3}) AddWall(draft, column, 0), AddWall(draft, column, 1);
  EXPECT_THAT(SentencesOf(ProblemsOf(draft)), IsEmpty());
}

/// The record at an address.
const Json& At(const rapidjson::Document& file, const std::vector<std::uint32_t>& address) {
  const Json* record = &file["GameObjFactory"][address.front()];
  for (std::size_t i = 1; i < address.size(); ++i) record = &(*record)["Childs"][address[i]];
  return *record;
}

TEST(LevelRules, ALevelWithoutUnitsMissesNothingThatUnitsBring) {
  LevelDraft draft;
  for (const char* unit : {"player1", "player2", "enemy1"}) draft.DropChild("level", unit);
  const std::vector<std::string> sentences = SentencesOf(ProblemsOf(draft));
  EXPECT_THAT(sentences, Contains(HasSubstr("the level has no Player")));
  EXPECT_THAT(sentences, Not(Contains(HasSubstr("no element"))));
}

TEST(LevelRules, TheAddressOfAProblemLeadsToItsObject) {
  LevelDraft draft;
  Field("bullet_hit", "Render", "m_tex", "\"Nothing\"")(draft);
  Field("lamp", "Light", "m_pos", "5")(draft);
  TileField("Transform", "m_rotate", "true")(draft);
  const LevelProblems problems = ProblemsOf(draft);
  ASSERT_EQ(problems.size(), 3u);
  EXPECT_EQ(At(draft.objects, problems[0].address)["name"], "lamp");
  EXPECT_EQ(problems[1].file, LevelFile::kTiles);
  EXPECT_THAT(problems[1].address, ElementsAre(3u));
  EXPECT_EQ(problems[2].address.size(), 4u) << "of a shot of a unit of the level";
  EXPECT_EQ(At(draft.objects, problems[2].address)["name"], "bullet_hit");
}

TEST(LevelRules, TheShippedLevelsHaveNoProblems) {
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(CARAPACE_SOURCE_DIR);
  const KnownAssets known = ReadKnownAssets();
  std::filesystem::current_path(before);
  EXPECT_GT(known.textures.size(), 100u);
  for (const char* name : {"Level00", "Level01", "Level02", "Level03", "Level04"}) {
    const LevelPaths paths(name);
    const LevelText level = {name, ShippedFile(paths.level), ShippedFile(paths.tile_map),
                             ShippedFile(paths.tiles), ShippedFile(paths.objects)};
    EXPECT_THAT(SentencesOf(CheckLevel(level, known)), IsEmpty()) << name;
  }
}

TEST(LevelRules, NoTextEndsTheProgram) {
  const LevelText good = LevelDraft().Text();
  for (const std::string text :
       {"", " ", "null", "[]", "5", "\"text\"", "{", "{}", "{\"GameObjFactory\": 5}",
        "{\"GameObjFactory\": [[], 5, null, {}, {\"Childs\": [7]}]}"}) {
    for (std::string LevelText::*file :
         {&LevelText::level, &LevelText::map, &LevelText::tiles, &LevelText::objects}) {
      LevelText level = good;
      level.*file = text;
      EXPECT_TRUE(HasError(CheckLevel(level, Known()))) << text;
    }
  }
}

TEST(KnownAssets, AreNoneWhereThereAreNoFiles) {
  const TempDirectory empty;
  const KnownAssets known = ReadKnownAssets();
  EXPECT_THAT(known.textures, IsEmpty());
  EXPECT_THAT(known.music, IsEmpty());
  EXPECT_THAT(known.categories, IsEmpty());
  EXPECT_THAT(known.archetypes, IsEmpty());
  EXPECT_TRUE(known.handlers.contains("ui_end_restart")) << "the program's own tables";
  EXPECT_TRUE(known.behaviours.contains("ui_energy"));
}

TEST(KnownAssets, AreReadFromTheFiles) {
  TempDirectory directory;
  directory.Write("Resources/Textures/graphics.json",
                  R"({"texPath": ["Resources/Textures/Wall_A.png", 5]})");
  directory.Write("Resources/CollisionInfo.json", R"({"str_bm": ["Fog"]})");
  directory.Write("Resources/Sound/BGM/song.ogg", "x");
  directory.Write("Resources/Sound/SFX/bang.ogg", "x");
  directory.Write("Resources/Archetypes/GameObjects/rock.json", "x");
  directory.Write("Resources/Archetypes/GameObjects/rock.old.json", "x");
  const KnownAssets known = ReadKnownAssets();
  EXPECT_THAT(known.textures, ElementsAre("Wall_A"));
  EXPECT_THAT(known.categories, ElementsAre("Fog"));
  EXPECT_THAT(known.music, ElementsAre("song.ogg"));
  EXPECT_THAT(known.effects, ElementsAre("bang.ogg"));
  EXPECT_THAT(known.archetypes, ElementsAre("rock"));
}

}  // namespace
}  // namespace carapace_test
