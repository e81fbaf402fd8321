#include "support/physicsscene.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <random>

#include "support/world.h"

namespace carapace_test {
namespace {

/// Random numbers that are the same with every standard library.
class Dice {
 public:
  explicit Dice(std::uint32_t seed) : m_engine(seed) {}

  int Int(int low, int high) {
    return low + static_cast<int>(m_engine() % static_cast<std::uint32_t>(high - low + 1));
  }
  float Float(float low, float high) {
    return low + (high - low) * (static_cast<float>(m_engine() >> 8) / 16777216.0f);
  }
  bool Chance(float probability) { return Float(0.0f, 1.0f) < probability; }
  template <class T>
  const T& Of(const std::vector<T>& list) {
    return list[static_cast<std::size_t>(Int(0, static_cast<int>(list.size()) - 1))];
  }
  Vector3D Flat(float reach, float z) {
    const float x = Float(-reach, reach);
    return Vector3D(x, Float(-reach, reach), z);
  }

 private:
  std::mt19937 m_engine;
};

/// How the objects of a scene lie.
enum class Layout { kSpread, kCell, kLattice, kStack, kMidlines, kOutside, kMixed };

const std::vector<std::string> kCategories = {"Default", "Default", "Default",
                                              "Default", "Even",    "Odd"};

class Maker {
 public:
  Maker(std::uint32_t seed, int steps, int crowd) : m_dice(seed), m_steps(steps) {
    m_layout = static_cast<Layout>(m_dice.Int(0, 6));
    const float share = m_dice.Float(0.0f, 1.0f);
    m_count = 2 + static_cast<int>(static_cast<float>(crowd - 2) * share * share * share);
    // All objects in one place is work that grows with the square of their number.
    if (m_layout == Layout::kCell || m_layout == Layout::kStack) m_count = std::min(m_count, 40);
    m_largest = m_dice.Chance(0.5f) ? 40.0f : m_dice.Chance(0.5f) ? 120.0f : 400.0f;
    m_whole = m_dice.Chance(0.3f);
    m_fast = m_dice.Chance(0.3f);
    m_origin = m_dice.Flat(400.0f, 1.0f);
    m_moving = m_dice.Float(0.2f, 1.0f);
    m_odd = m_dice.Chance(0.3f);
  }

  PhysicsScene Make() {
    m_scene.masks = {{"Default", 1}, {"Even", 2}, {"Odd", 3}, {"None", 0}};
    if (m_dice.Chance(0.3f)) m_scene.masks[1].second = 5;
    for (int i = 0; i < m_count; ++i) m_scene.objects.push_back(Object(i));
    for (int step = 0; step < m_steps; ++step) PlanStep(step);
    return m_scene;
  }

 private:
  SceneObject Object(int index) {
    SceneObject object;
    PlainTransform& t = object.plain.transform;
    t.local_pos = t.prev_pos = Position(index);
    t.local_scale = Size();
    if (m_layout != Layout::kLattice && m_dice.Chance(0.6f)) t.local_rotate = Angle();
    t.prev_rotate = t.local_rotate;
    if (index > 0 && m_dice.Chance(0.06f)) MakeChild(index, &object);
    if (m_dice.Chance(m_moving)) object.plain.body = Body(&object);
    if (m_dice.Chance(0.97f)) object.plain.shape = Shape();
    object.plain.moves_while_paused = m_dice.Chance(0.4f);
    if (m_dice.Chance(0.25f)) object.reaction = static_cast<Reaction>(m_dice.Int(1, 7));
    return object;
  }

  /// Parents stand directly before their children, as records nest.
  void MakeChild(int index, SceneObject* object) {
    object->plain.parent = index - 1;
    object->plain.transform.rotate_with_parent = m_dice.Chance(0.5f);
    object->plain.transform.local_pos = m_dice.Flat(100.0f, m_dice.Chance(0.5f) ? 1.0f : 3.0f);
    object->plain.transform.prev_pos = object->plain.transform.local_pos;
    object->plain.transform.local_scale = Vector3D(m_dice.Float(0.5f, 1.5f), 1.0f, 1.0f);
  }

  Vector3D Position(int index) {
    Layout layout = m_layout;
    if (layout == Layout::kMixed) layout = static_cast<Layout>(m_dice.Int(0, 5));
    switch (layout) {
      case Layout::kCell:
        return Whole(m_origin + m_dice.Flat(30.0f, 0.0f));
      case Layout::kLattice: {
        const Vector3D cell(static_cast<float>(index % 8), static_cast<float>(index / 8), 0.0f);
        return Vector3D(-300.0f, -300.0f, 1.0f) + cell * 40.0f;
      }
      case Layout::kStack:
        return m_dice.Chance(0.7f) ? m_origin : Whole(m_origin + m_dice.Flat(60.0f, 0.0f));
      case Layout::kMidlines:
        return Vector3D(120.0f * static_cast<float>(m_dice.Int(-8, 8)),
                        67.5f * static_cast<float>(m_dice.Int(-8, 8)), 1.0f);
      case Layout::kOutside:
        return Whole(m_dice.Flat(2500.0f, 1.0f));
      default:
        return Whole(Vector3D(m_dice.Float(-900.0f, 900.0f), m_dice.Float(-500.0f, 500.0f), 1.0f));
    }
  }

  Vector3D Whole(const Vector3D& v) const {
    return m_whole ? Vector3D(std::round(v.x), std::round(v.y), v.z) : v;
  }

  Vector3D Size() {
    if (m_layout == Layout::kLattice && m_dice.Chance(0.9f)) return Vector3D(40.0f, 40.0f, 1.0f);
    if (m_odd && m_dice.Chance(0.03f)) return Vector3D(m_dice.Float(-60.0f, 0.0f), 20.0f, 1.0f);
    const float x = m_dice.Float(2.0f, m_largest);
    const float y = m_dice.Chance(0.5f) ? x : m_dice.Float(2.0f, m_largest);
    return Whole(Vector3D(x, y, 1.0f));
  }

  float Angle() {
    return m_dice.Chance(0.3f) ? 45.0f * static_cast<float>(m_dice.Int(-8, 8))
                               : m_dice.Float(-400.0f, 400.0f);
  }

  PlainBody Body(SceneObject* object) {
    PlainBody body;
    if (m_dice.Chance(0.8f)) body.vel = m_dice.Flat(m_fast ? 900.0f : 150.0f, 0.0f);
    if (m_odd && m_dice.Chance(0.1f)) body.vel.z = m_dice.Float(-5.0f, 5.0f);
    if (m_dice.Chance(0.4f)) body.rot_vel = m_dice.Float(-360.0f, 360.0f);
    if (m_dice.Chance(0.3f)) body.drag = m_dice.Float(0.0f, 3.0f);
    if (m_dice.Chance(0.03f)) body.drag = static_cast<float>(m_dice.Int(58, 62));
    if (m_dice.Chance(0.3f)) body.angular_drag = m_dice.Float(0.0f, 3.0f);
    if (m_dice.Chance(0.03f)) body.angular_drag = static_cast<float>(m_dice.Int(58, 62));
    body.rest = m_dice.Chance(0.3f) ? 1.0f : m_dice.Float(0.0f, 1.0f);
    object->mass = m_dice.Chance(0.5f) ? 1.0f : m_dice.Float(0.1f, 50.0f);
    if (m_dice.Chance(0.06f)) object->mass = static_cast<float>(m_dice.Int(-1, 0));
    object->inertia = m_dice.Chance(0.5f) ? 1.0f : m_dice.Float(0.1f, 5000.0f);
    if (m_dice.Chance(0.3f)) object->inertia = 0.0f;
    body.inv_mass = object->mass > 0.0f ? 1.0f / object->mass : 0.0f;
    body.inv_inertia = object->inertia > 0.0f ? 1.0f / object->inertia : 0.0f;
    body.active = !m_dice.Chance(0.04f);
    return body;
  }

  PlainShape Shape() {
    PlainShape shape;
    shape.SetType(m_dice.Of(std::vector<std::string>{"Box", "Circle", "Polygon"}));
    if (m_layout == Layout::kLattice && m_dice.Chance(0.7f)) shape.SetType("Box");
    if (shape.type == "Polygon") shape.local_vertices = Vertices();
    shape.category = m_dice.Chance(0.03f) ? "Unknown" + std::to_string(m_dice.Int(0, 2))
                                          : m_dice.Of(kCategories);
    shape.active = !m_dice.Chance(0.05f);
    if (m_dice.Chance(0.15f)) shape.local_rot = Angle();
    if (m_dice.Chance(0.15f)) shape.local_scale = Vector3D(m_dice.Float(0.3f, 2.0f), 0.8f, 1.0f);
    if (m_dice.Chance(0.15f)) shape.local_pos = m_dice.Flat(20.0f, 1.0f);
    return shape;
  }

  /// Points on an ellipse in turn, either way round; seldom not convex, or without an area.
  std::vector<Vector3D> Vertices() {
    const int count = m_dice.Int(3, 8);
    const float turn = m_dice.Float(0.0f, 6.0f);
    const float height = m_dice.Chance(0.03f) ? 0.0f : m_dice.Float(0.2f, 0.5f);
    const float z = m_odd && m_dice.Chance(0.1f) ? 2.5f : 1.0f;
    std::vector<Vector3D> vertices;
    for (int i = 0; i < count; ++i) {
      const float at = turn + 6.2831853f * static_cast<float>(i) / static_cast<float>(count);
      vertices.emplace_back(0.5f * std::cos(at), height * std::sin(at), z);
      if (m_odd && m_dice.Chance(0.03f)) vertices.back() = m_dice.Flat(0.5f, z);
    }
    if (m_odd && m_dice.Chance(0.03f)) vertices[1] = vertices[0];
    if (m_odd && m_dice.Chance(0.02f)) vertices.clear();
    if (m_dice.Chance(0.5f)) std::reverse(vertices.begin(), vertices.end());
    return vertices;
  }

  void PlanStep(int step) {
    m_pausing = m_dice.Chance(m_pausing ? 0.7f : 0.03f);
    m_scene.paused.push_back(m_pausing);
    if (!m_dice.Chance(0.3f)) return;
    for (int i = m_dice.Int(1, 3); i > 0; --i) PlanAction(step);
  }

  void PlanAction(int step) {
    SceneAction action;
    action.step = step;
    action.object = static_cast<std::uint32_t>(m_dice.Int(0, m_count - 1));
    const SceneObject& object = m_scene.objects[action.object];
    using Kind = SceneAction::Kind;
    const auto shapes = static_cast<int>(Kind::kSwitchShape);
    action.kind = static_cast<Kind>(m_dice.Int(0, m_dice.Chance(0.3f) ? 10 : shapes));
    action.vector = m_dice.Flat(1.0f, m_odd ? m_dice.Float(-1.0f, 1.0f) : 0.0f);
    action.amount = m_dice.Float(-1500.0f, 1500.0f);
    action.duration = m_dice.Float(-0.02f, 0.3f);
    action.on = m_dice.Chance(0.7f);
    switch (action.kind) {
      case Kind::kForce:
      case Kind::kTorque:
      case Kind::kSwitchBody:
      case Kind::kVelocity:
        if (!object.plain.body) return;
        break;
      case Kind::kSwitchShape:
      case Kind::kCategory:
      case Kind::kMoveLocal:
      case Kind::kType:
        if (!object.plain.shape) return;
        action.name = action.kind == Kind::kCategory
                          ? m_dice.Of(std::vector<std::string>{"Default", "Odd", "Late"})
                          : m_dice.Of(std::vector<std::string>{"Box", "Circle", "Polygon"});
        break;
      case Kind::kPlace:
        action.vector = Position(static_cast<int>(action.object));
        break;
      default:
        break;
    }
    m_scene.actions.push_back(action);
  }

  Dice m_dice;
  int m_steps;
  Layout m_layout;
  int m_count;
  float m_largest;
  bool m_whole;
  bool m_fast;
  Vector3D m_origin;
  float m_moving;
  bool m_odd;
  bool m_pausing = false;
  PhysicsScene m_scene;
};

// Records

std::string Number(float value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.9g", static_cast<double>(value));
  return text;
}

std::string Vector(const Vector3D& v) {
  return std::string("[") + Number(v.x) + ", " + Number(v.y) + ", " + Number(v.z) + "]";
}

std::string TransformRecord(const PlainTransform& t) {
  return "{\"m_pos\": " + Vector(t.local_pos) + ", \"m_scale\": " + Vector(t.local_scale) +
         ", \"m_rotate\": " + Number(t.local_rotate) +
         ", \"m_rotate_with_parent\": " + (t.rotate_with_parent ? "true" : "false") +
         R"(, "m_world_scale": [1, 1, 1], "m_world_rotate": 0, "m_world_pos": [0, 0, 1]})";
}

std::string BodyRecord(const SceneObject& object) {
  const PlainBody& body = *object.plain.body;
  return "{\"m_vel\": " + Vector(body.vel) +
         ", \"m_accel\": [0, 0, 0], \"m_mass\": " + Number(object.mass) +
         ", \"m_inertia\": " + Number(object.inertia) +
         ", \"m_sleeper_vel\": [0, 0, 0], \"m_sleeper_rot_vel\": 0, \"m_drag\": " +
         Number(body.drag) + ", \"m_angular_drag\": " + Number(body.angular_drag) +
         ", \"m_rest\": " + Number(body.rest) + "}";
}

std::string ShapeRecord(const PlainShape& shape) {
  std::string out = std::string("{\"m_active\": ") + (shape.active ? "true" : "false") +
                    ", \"m_layer\": 0, \"m_collider_type\": \"" + shape.type +
                    "\", \"bitmask_category\": \"" + shape.category + "\"";
  if (shape.type == "Polygon") {
    out += ", \"collider_vertices\": [";
    for (std::size_t i = 0; i < shape.local_vertices.size(); ++i) {
      out += (i == 0 ? "" : ", ") + Vector(shape.local_vertices[i]);
    }
    out += "]";
  }
  return out + ", \"m_local_scale\": " + Vector(shape.local_scale) +
         ", \"m_local_pos\": " + Vector(shape.local_pos) +
         ", \"m_local_rot\": " + Number(shape.local_rot) + "}";
}

std::string RecordOf(const PhysicsScene& scene, std::size_t index) {
  const SceneObject& object = scene.objects[index];
  std::vector<std::pair<std::string, std::string>> components;
  components.emplace_back("Transform", TransformRecord(object.plain.transform));
  if (object.plain.body) components.emplace_back("RigidBody", BodyRecord(object));
  if (object.plain.shape) {
    components.emplace_back("ColliderHolder", ShapeRecord(*object.plain.shape));
  }
  if (object.reaction != Reaction::kDeaf) components.emplace_back("ContactProbe", "{}");
  std::vector<std::string> children;
  const std::size_t next = index + 1;
  if (next < scene.objects.size() && scene.objects[next].plain.parent == static_cast<int>(index)) {
    children.push_back(RecordOf(scene, next));
  }
  return Record("object" + std::to_string(index), components, children);
}

}  // namespace

PhysicsScene RandomPhysicsScene(std::uint32_t seed, int steps, int crowd) {
  return Maker(seed, steps, crowd).Make();
}

PlainPhysics PlainOf(const PhysicsScene& scene) {
  PlainPhysics plain;
  for (const SceneObject& object : scene.objects) plain.objects.push_back(object.plain);
  for (const auto& [name, mask] : scene.masks) plain.masks[name] = mask;
  return plain;
}

std::string RecordsOf(const PhysicsScene& scene) {
  std::string records;
  for (std::size_t i = 0; i < scene.objects.size(); ++i) {
    if (scene.objects[i].plain.parent != -1) continue;
    if (!records.empty()) records += ",";
    records += RecordOf(scene, i);
  }
  return records;
}

std::string CollisionFileOf(const PhysicsScene& scene) {
  std::string names, values;
  for (const auto& [name, mask] : scene.masks) {
    if (!names.empty()) {
      names += ", ";
      values += ", ";
    }
    names += "\"" + name + "\"";
    values += std::to_string(mask);
  }
  return "{\"str_grp\": [" + names + "], \"int_grp\": [" + values + "], \"str_bm\": [" + names +
         "], \"int_bm\": [" + values + "]}";
}

}  // namespace carapace_test
