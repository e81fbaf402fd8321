#include "support/unitrecords.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "game/turns/gamecontroller.h"
#include "support/reports.h"

namespace carapace_test {

using namespace ZOVEngine;

std::string UnitClass(UnitKind kind) {
  return kind == UnitKind::kPlayer ? "Player" : "Enemy";
}

std::string HolderOf(const std::string& shape) {
  return R"({"m_active": true, "m_layer": 0, "m_collider_type": ")" + shape +
         R"(", "bitmask_category": "Default", "m_local_scale": [1, 1, 1], "m_local_pos": [0, 0, 1],
          "m_local_rot": 0})";
}

namespace {

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
      {"Transform", Place(x, y, 10, 10)}, {"RigidBody", "{}"}, {"ColliderHolder", HolderOf("Box")}};
  components.insert(components.end(), more.begin(), more.end());
  return Record(name, components);
}

namespace {

void Append(Components* all, const Components& more) {
  all->insert(all->end(), more.begin(), more.end());
}

/// What a boss has besides: its shields, shots and explosions.
Components BossChildren() {
  Components children = {{"ShieldPhase1", Picture("ShieldPhase1", 0, 0, 3, 3)},
                         {"ShieldPhase2", Picture("ShieldPhase2", 0, 0, 3, 3)},
                         {"MiddleProj", ShotRecord("MiddleProj", "ProjectileExplosion")},
                         {"LeftProjPhase1", ShotRecord("LeftProjPhase1", "ProjectileDefault")},
                         {"RightProjPhase1", ShotRecord("RightProjPhase1", "ProjectileDefault")},
                         {"LeftProjPhase2", ShotRecord("LeftProjPhase2", "ProjectileExplosion")},
                         {"RightProjPhase2", ShotRecord("RightProjPhase2", "ProjectileExplosion")}};
  for (int i = 0; i <= 10; ++i) {
    const std::string child =
        std::string("DeathExplosion") + (i < 10 ? "0" : "") + std::to_string(i);
    children.emplace_back(child, Record(child, {{"Transform", Place(0, 0, 1, 1)},
                                                {"Render", "{}"},
                                                {"iModel", "{}"},
                                                {"Animation", "{}"},
                                                {"StateC", R"({"m_state": "once"})"},
                                                {"AudioSource", "{}"}}));
  }
  return children;
}

/// Appends those of `children` that the unit is to have.
void AppendChildren(const Components& children, const UnitParts& parts,
                    std::vector<std::string>* records) {
  for (const auto& [child, record] : children) {
    if (!IsLeftOut(parts, child)) records->push_back(record);
  }
}

}  // namespace

std::string UnitRecord(UnitKind kind, const std::string& name, const UnitParts& parts) {
  const Components own = {{"Transform", Place(parts.x, parts.y, 24, 36)},
                          {"RigidBody", "{}"},
                          {"ColliderHolder", HolderOf("Box")},
                          {"Render", "{}"},
                          {"iModel", "{}"},
                          {"StateC", R"({"m_state": "default"})"},
                          {"Animation", "{}"},
                          {"AudioSource", "{}"},
                          {UnitClass(kind), parts.fields}};
  Components components;
  for (const auto& part : own) {
    if (!IsLeftOut(parts, part.first)) components.push_back(part);
  }
  Append(&components, parts.components);
  std::vector<std::string> children;
  AppendChildren(ChildrenOf(parts), parts, &children);
  children.insert(children.end(), parts.more.begin(), parts.more.end());
  if (kind == UnitKind::kBoss) AppendChildren(BossChildren(), parts, &children);
  return Record(name, components, children);
}

std::string SolidUnitAt(UnitKind kind, const std::string& name, float x, float y,
                        const std::vector<std::string>& shots) {
  std::vector<std::string> children = shots;
  for (const char* barrel : {"Weapon0Barrel", "Weapon1Barrel"}) {
    children.push_back(
        Record(barrel, {{"Transform", TransformAt(0, 0)}, {"Render", "{}"}, {"iModel", "{}"}}));
  }
  const std::string boss = kind == UnitKind::kBoss ? "true" : "false";
  return Record(
      name,
      {{"Transform", TransformAt(x, y, 1, 40)},
       {"ColliderHolder", HolderOf("Box")},
       {"RigidBody", kLively},
       {"Render", "{}"},
       {"iModel", "{}"},
       {"StateC", R"({"m_state": "default"})"},
       {"AudioSource", "{}"},
       {UnitClass(kind), R"({"m_health": 5, "m_max_health": 5, "m_boss": )" + boss + "}"}},
      children);
}

std::string UnitAt(UnitKind kind, const std::string& name, float x, float y,
                   const std::string& fields, const std::vector<std::string>& children) {
  return Record(name,
                {{"Transform", TransformAt(x, y)},
                 {"RigidBody", R"({"m_mass": 1, "m_drag": 1})"},
                 {"Render", "{}"},
                 {"iModel", "{}"},
                 {"Light", R"({"m_diffuseStr": 3})"},
                 {UnitClass(kind), fields}},
                children);
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

}  // namespace carapace_test
