#include <algorithm>
#include <cmath>

#include "editor/levelrulesreport.h"

namespace ZOVEngine {
namespace {

struct Need {
  const char* component;
  const char* consequence;
};
constexpr Need kUnitNeeds[] = {
    {"Transform", "it would have no place"},
    {"RigidBody", "nothing could move it"},
    {"ColliderHolder", "no shot could hit it"},
    {"Render", "it would not be drawn"},
    {"iModel", "it would not be drawn"},
    {"StateC", "it would play no sheet"},
    {"Animation", "its spawn would never end, and it could never die"},
    {"AudioSource", "it would not be heard"},
};
constexpr const char* kUnitChildren[] = {"Weapon0Barrel",     "Weapon1Barrel",      "electricvfx",
                                         "WeaponText",        "unit_fire",          "ui_selected",
                                         "ui_hp_frame",       "ui_hp_frame_filled", "hp_font",
                                         "ui_hp_frame_empty", "unit_damaged",       "turn_font"};
constexpr const char* kShotChildren[] = {"Weapon0Projectile", "Weapon1Projectile"};
constexpr const char* kBossChildren[] = {"MiddleProj",     "LeftProjPhase1",  "RightProjPhase1",
                                         "LeftProjPhase2", "RightProjPhase2", "ShieldPhase1",
                                         "ShieldPhase2"};
constexpr int kExplosions = 11;           ///< of a boss that dies
constexpr float kForcePerSpeed = 100.0f;  ///< of an enemy's push, which lasts a second
constexpr float kStepsPerSecond = 60.0f;

float Distance(const Vector3D& a, const Vector3D& b) {
  return std::hypot(a.x - b.x, a.y - b.y);
}

std::string Number(float value) {
  std::string text = std::to_string(value);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return text;
}

/// The rules of one unit.
class UnitRules {
 public:
  UnitRules(const ObjectView& unit, LevelReport* report)
      : m_unit(unit), m_report(*report), m_side(unit.Has("Player") ? "Player" : "Enemy") {}

  void Check() {
    CheckPlace();
    CheckFields();
    CheckState();
    CheckParts();
    CheckChildren();
    if (m_unit.Has("Enemy")) CheckPatrol();
  }

 private:
  void Add(const char* rule, const std::string& fault) { m_report.Add(rule, m_unit, fault); }

  void CheckPlace() {
    if (m_unit.parent == nullptr || !m_unit.parent->Has("GameController")) {
      Add("unit-place", "is a unit, but no child of the object that runs the level");
    }
    if (m_unit.Has("Player") && m_unit.Has("Enemy")) {
      Add("unit-sides", "is a Player and an Enemy at once");
    }
  }

  bool IsBoss() const { return m_unit.Flag("Enemy", "m_boss", false); }

  void CheckFields() {
    if (m_unit.Whole(m_side, "m_health", 1) < 1 || m_unit.Whole(m_side, "m_max_health", 1) < 1) {
      Add("unit-health", "starts without health");
    }
    if (m_unit.Number("Player", "m_movement_limit", 2.0f) <= 0.0f) {
      Add("unit-energy", "has no energy to move with");
    }
    if (IsBoss() && m_unit.name != "Boss") {
      Add("boss-name", "is a boss, but not named Boss, so a DeathField does not find it");
    }
  }

  void CheckState() {
    if (!m_unit.active) {
      Add("unit-off", "is a unit that starts switched off, and could neither act nor die");
    }
    if (!m_unit.Flag(m_side, "m_alive", true)) Add("unit-dead", "is a unit that starts dead");
    const bool is_seen =
        m_unit.Flag("Render", "m_visible", true) && !m_unit.Flag("Render", "m_tile", false);
    if (!is_seen) {
      Add("unit-hidden",
          "is a unit whose image is hidden or a tile: its spawn would never end, "
          "and it could never die");
    }
    if (m_unit.Has("UIElement")) {
      Add("unit-element", "is a unit with a UIElement of its own, which would hold back its turn");
    }
  }

  void CheckParts() {
    for (const Need& need : kUnitNeeds) {
      if (m_unit.Has(need.component)) continue;
      Add("unit-parts",
          std::string("is a unit without ") + need.component + ": " + need.consequence);
    }
  }

  void CheckChildren() {
    for (const char* child : kUnitChildren) RequireChild(child);
    if (m_unit.Has("Player")) RequireChild("pierce_fire");
    if (!IsBoss()) {
      for (const char* child : kShotChildren) RequireChild(child);
      return;
    }
    for (const char* child : kBossChildren) RequireChild(child);
    for (int k = 0; k < kExplosions; ++k) {
      RequireChild((k < 10 ? "DeathExplosion0" : "DeathExplosion") + std::to_string(k));
    }
  }

  void RequireChild(const std::string& child) {
    if (!m_unit.HasChild(child)) Add("unit-children", "lacks its child " + child);
  }

  /// The moves of an enemy end when its pushes are spent, and each point that it reaches gives them
  /// back.
  void CheckPatrol() {
    const std::vector<Vector3D> path = m_unit.Vectors("Enemy", "m_waypoints");
    const bool walks = m_unit.Has("AIComp");
    if (walks && path.empty()) {
      Add("walker-path", "has an AIComp without a path, and its move would never end");
    }
    if (!walks && !path.empty()) {
      Add("path-walker", "has a path without an AIComp to walk it");
    }
    if (path.size() == 1) {
      Add("walker-path", "has one waypoint only, and its move would never end");
    }
    if (path.size() > 1) CheckLegs(path);
  }

  void CheckLegs(const std::vector<Vector3D>& path) {
    const float arrival = m_unit.Number("Enemy", "m_snap_range", 10.0f);
    float shortest = Distance(path[0], path[1]);
    float longest = shortest;
    for (std::size_t i = 1; i + 1 < path.size(); ++i) {
      shortest = std::min(shortest, Distance(path[i], path[i + 1]));
      longest = std::max(longest, Distance(path[i], path[i + 1]));
    }
    if (shortest <= arrival) {
      return Add("walker-path", "has neighbouring waypoints within " + Number(arrival) +
                                    " units, its arrival distance");
    }
    const float limit = m_unit.Number("Enemy", "m_move_limit", 0.001f);
    const float pushes = std::ceil(limit * kStepsPerSecond);
    // It counts as at a point from the arrival distance on, and sets off from there.
    if (pushes > 0.0f && longest - pushes * PushLength() < 2.0f * arrival) {
      Add("walker-legs",
          "reaches each next waypoint before its pushes are spent, and its move would never end");
    }
  }

  /// How far one push carries the enemy until drag has stopped it, less the 1 unit that it never
  /// gets to go.
  float PushLength() const {
    const float drag = m_unit.Number("RigidBody", "m_drag", 0.0f);
    const float resistance = m_unit.Number("RigidBody", "m_mass", 1.0f) * drag;
    if (resistance <= 0.0f) return 0.0f;
    const float force = m_unit.Number("Enemy", "m_move_speed", 1000.0f) * kForcePerSpeed;
    return force / resistance * (1.0f - drag / kStepsPerSecond) - 1.0f;
  }

  const ObjectView& m_unit;
  LevelReport& m_report;
  const char* m_side;
};

/// The circle around the shape of a unit (unit: world units).
float Reach(const ObjectView& unit) {
  const Vector3D scale = unit.Vector("Transform", "m_scale", Vector3D(1.0f, 1.0f, 1.0f));
  const Vector3D own = unit.Vector("ColliderHolder", "m_local_scale", Vector3D(1.0f, 1.0f, 1.0f));
  const float width = std::abs(scale.x * own.x);
  const bool is_circle = unit.Text("ColliderHolder", "m_collider_type", "Box") == "Circle";
  return (is_circle ? width : std::max(width, std::abs(scale.y * own.y))) / 2.0f;
}

void CheckOverlaps(const LevelView& level, LevelReport* report) {
  std::vector<const ObjectView*> units;
  for (const ObjectView& object : level.objects.All()) {
    if (object.IsUnit() && object.Has("ColliderHolder")) units.push_back(&object);
  }
  for (std::size_t i = 0; i < units.size(); ++i) {
    for (std::size_t k = i + 1; k < units.size(); ++k) {
      const float apart = Distance(units[i]->Place(), units[k]->Place());
      if (apart >= Reach(*units[i]) + Reach(*units[k])) continue;
      report->Add("unit-overlap", *units[k], "overlaps " + units[i]->Title());
    }
  }
}

bool TurnsWithParent(const Value& record) {
  const Value* transform = FindValue(record, "Transform");
  const Value* turns =
      transform == nullptr ? nullptr : FindValue(*transform, "m_rotate_with_parent");
  return transform != nullptr && (turns == nullptr || turns->IsTrue());
}

void CheckShot(const ObjectView& shot, LevelReport* report) {
  if (shot.parent == nullptr || !shot.parent->IsUnit()) {
    report->Add("shot-place", shot, "is a shot, but no child of a unit");
  }
  for (const char* component : {"Transform", "RigidBody"}) {
    if (!shot.Has(component)) {
      report->Add("shot-parts", shot, std::string("is a shot without ") + component);
    }
  }
  std::vector<const Value*> parts = shot.Children();
  parts.insert(parts.begin(), shot.record);
  for (const Value* part : parts) {
    if (!TurnsWithParent(*part)) continue;
    report->Add("shot-turns", shot,
                "turns " + std::string(TextIn(*part, "name", "")) +
                    " with the unit, which would carry it off its path");
  }
  if (shot.Number("RigidBody", "m_drag", 0.0f) > 0.0f) {
    report->Add("shot-drag", shot,
                "is a shot that drag would stop before its range is out, and the turn with it");
  }
}

}  // namespace

void CheckUnits(const LevelView& level, LevelReport* report) {
  for (const ObjectView& object : level.objects.All()) {
    if (object.IsUnit()) UnitRules(object, report).Check();
    if (object.IsShot()) CheckShot(object, report);
  }
  CheckOverlaps(level, report);
}

}  // namespace ZOVEngine
