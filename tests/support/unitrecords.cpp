#include "support/unitrecords.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <stdexcept>

#include "audio/audiosource.h"
#include "game/turns/gamecontroller.h"
#include "physicssystem.h"
#include "support/reports.h"

namespace carapace_test {

using namespace ZOVEngine;

namespace {

using Components = std::vector<std::pair<std::string, std::string>>;

constexpr const char* kBox = R"({"m_active": true, "m_layer": 0, "m_collider_type": "Box",
    "bitmask_category": "Default", "m_local_scale": [1, 1, 1], "m_local_pos": [0, 0, 1],
    "m_local_rot": 0})";

std::string Place(float x, float y, float width, float height) {
  std::ostringstream out;
  out << R"({"m_pos": [)" << x << ", " << y << R"(, 1], "m_scale": [)" << width << ", " << height
      << R"(, 1], "m_rotate": 0, "m_rotate_with_parent": true, "m_world_scale": [1, 1, 1],
          "m_world_rotate": 0, "m_world_pos": [0, 0, 1]})";
  return out.str();
}

std::string Picture(const std::string& name, float x, float y, float width, float height,
                    const Components& more = {}) {
  Components components = {
      {"Transform", Place(x, y, width, height)}, {"Render", "{}"}, {"iModel", "{}"}};
  components.insert(components.end(), more.begin(), more.end());
  return Record(name, components);
}

bool IsLeftOut(const UnitParts& parts, const std::string& name) {
  return std::find(parts.without.begin(), parts.without.end(), name) != parts.without.end();
}

/// The named children of a unit with their records.
Components ChildrenOf(const UnitParts& parts) {
  return {
      {"Weapon0Barrel", Picture("Weapon0Barrel", 0, 0, 1, 1.5f)},
      {"Weapon1Barrel", Picture("Weapon1Barrel", 0, 0, 1, 2)},
      {"Weapon0Projectile", ShotRecord("Weapon0Projectile", parts.weapons[0])},
      {"Weapon1Projectile", ShotRecord("Weapon1Projectile", parts.weapons[1])},
      {"electricvfx", SpriteRecord("electricvfx")},
      {"WeaponText", Picture("WeaponText", 0, 0, 1, 1)},
      {"unit_fire", SpriteRecord("unit_fire")},
      {"pierce_fire", SpriteRecord("pierce_fire")},
      {"ui_selected", Picture("ui_selected", 0, 0, 1, 1)},
      {"ui_hp_frame", Picture("ui_hp_frame", 0, 20, 3, 1)},
      {"ui_hp_frame_filled", Picture("ui_hp_frame_filled", 10, 20, 2, 1)},
      {"ui_hp_frame_empty", Picture("ui_hp_frame_empty", 0, 20, 3, 1)},
      {"hp_font", Record("hp_font", {{"Transform", Place(0, 0, 1, 1)}, {"Font", "{}"}})},
      {"turn_font", Record("turn_font", {{"Transform", Place(0, 0, 1, 1)}, {"Font", "{}"}})},
      {"unit_damaged", Record("unit_damaged", {{"Transform", Place(0, 0, 1, 1)},
                                               {"Render", "{}"},
                                               {"iModel", "{}"},
                                               {"ParticleSystemC", "{}"}})},
  };
}

}  // namespace

std::string SpriteRecord(const std::string& name, float x, float y,
                         const std::vector<std::string>& children) {
  return Record(name,
                {{"Transform", Place(x, y, 1, 1)},
                 {"Render", "{}"},
                 {"iModel", "{}"},
                 {"Animation", "{}"},
                 {"StateC", R"({"m_state": "default"})"}},
                children);
}

std::string ShotRecord(const std::string& name, const std::string& shot) {
  Components components = {
      {"Transform", Place(0, 0, 1, 1)}, {"Render", "{}"}, {"iModel", "{}"}, {"RigidBody", "{}"}};
  if (!shot.empty()) components.emplace_back(shot, "{}");
  return Record(name, components, {SpriteRecord("bullet_hit")});
}

std::string BodyRecord(const std::string& name, float x, float y, const Components& more) {
  Components components = {
      {"Transform", Place(x, y, 10, 10)}, {"RigidBody", "{}"}, {"ColliderHolder", kBox}};
  components.insert(components.end(), more.begin(), more.end());
  return Record(name, components);
}

std::string UnitRecord(const std::string& name, const std::string& component,
                       const UnitParts& parts) {
  const Components own = {{"Transform", Place(parts.x, parts.y, 24, 36)},
                          {"RigidBody", "{}"},
                          {"ColliderHolder", kBox},
                          {"Render", "{}"},
                          {"iModel", "{}"},
                          {"StateC", R"({"m_state": "default"})"},
                          {"Animation", "{}"},
                          {"AudioSource", "{}"},
                          {component, parts.fields}};
  Components components;
  for (const auto& part : own) {
    if (!IsLeftOut(parts, part.first)) components.push_back(part);
  }
  components.insert(components.end(), parts.components.begin(), parts.components.end());
  std::vector<std::string> children;
  for (const auto& [child, record] : ChildrenOf(parts)) {
    if (!IsLeftOut(parts, child)) children.push_back(record);
  }
  children.insert(children.end(), parts.more.begin(), parts.more.end());
  return Record(name, components, children);
}

std::string BossRecord(const std::string& name, const UnitParts& parts) {
  Components own = {{"ShieldPhase1", Picture("ShieldPhase1", 0, 0, 3, 3)},
                    {"ShieldPhase2", Picture("ShieldPhase2", 0, 0, 3, 3)},
                    {"MiddleProj", ShotRecord("MiddleProj", "ProjectileExplosion")},
                    {"LeftProjPhase1", ShotRecord("LeftProjPhase1", "ProjectileDefault")},
                    {"RightProjPhase1", ShotRecord("RightProjPhase1", "ProjectileDefault")},
                    {"LeftProjPhase2", ShotRecord("LeftProjPhase2", "ProjectileExplosion")},
                    {"RightProjPhase2", ShotRecord("RightProjPhase2", "ProjectileExplosion")}};
  for (int i = 0; i <= 10; ++i) {
    const std::string child =
        std::string("DeathExplosion") + (i < 10 ? "0" : "") + std::to_string(i);
    own.emplace_back(child, Record(child, {{"Transform", Place(0, 0, 1, 1)},
                                           {"Render", "{}"},
                                           {"iModel", "{}"},
                                           {"Animation", "{}"},
                                           {"StateC", R"({"m_state": "once"})"},
                                           {"AudioSource", "{}"}}));
  }
  UnitParts whole = parts;
  for (const auto& [child, record] : own) {
    if (!IsLeftOut(parts, child)) whole.more.push_back(record);
  }
  return UnitRecord(name, "Enemy", whole);
}

UnitStage::UnitStage(const std::vector<std::string>& children, bool with_controller) {
  Components root = {{"Transform", Place(0, 0, 1, 1)}, {"AudioSource", "{}"}};
  if (with_controller) root.emplace_back("GameController", "{}");
  // The missing keys of the short records print a line each. The root is not object 0, which a
  // query without an answer names.
  OutputOf(
      [&] { world.LoadObjects(Record("first", {}) + ", " + Record("level", root, children)); });
  Derive();
  if (with_controller) Of<GameController>("level").m_rigid_bodies = FetchTable<RigidBody>();
}

GameObj* UnitStage::Find(const std::string& name) const {
  GameObj* object = world.Find(name);
  if (object == nullptr) throw std::out_of_range("no object \"" + name + "\"");
  return object;
}

void UnitStage::Derive() {
  g_physics_system->UpdateWorldTransforms();
}

bool AsksFor(GameObj* object, const std::string& sound) {
  const auto& sounds = object->GetComponent<AudioSource>()->sounds;
  const auto found = sounds.find(sound);
  return found != sounds.end() && found->second.start_play;
}

void Hush(GameObj* object) {
  object->GetComponent<AudioSource>()->sounds.clear();
}

void ExpectNear(const Vector3D& actual, float x, float y) {
  EXPECT_NEAR(actual.x, x, 1e-3f);
  EXPECT_NEAR(actual.y, y, 1e-3f);
}

}  // namespace carapace_test
