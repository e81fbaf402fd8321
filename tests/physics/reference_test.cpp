#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <memory>
#include <sstream>
#include <string>

#include "core/engine.h"
#include "core/messages.h"
#include "objects/gameobjfactory.h"
#include "objects/logiccomponent.h"
#include "physics/collidersystem.h"
#include "physicssystem.h"
#include "support/physicsscene.h"
#include "support/plainphysics.h"
#include "support/world.h"

namespace carapace_test {
namespace {

using namespace ZOVEngine;

// Comparing

/// The first difference between the engine and the plain reading, in words.
///
/// Positive and negative zero count as equal, and so do two values that are not numbers.
class Difference {
 public:
  void Enter(const char* list, std::size_t index = 0) {
    m_list = list;
    m_index = index;
  }
  void Check(const char* what, float engine, float plain) {
    if (engine == plain || (std::isnan(engine) && std::isnan(plain))) return;
    Report(what, engine, plain);
  }
  void Check(const char* what, const Vector3D& engine, const Vector3D& plain) {
    Check(what, engine.x, plain.x);
    Check(what, engine.y, plain.y);
    Check(what, engine.z, plain.z);
  }
  template <class T>
  void CheckValue(const char* what, const T& engine, const T& plain) {
    if (!(engine == plain)) Report(what, engine, plain);
  }
  bool Found() const { return !m_text.empty(); }
  const std::string& Text() const { return m_text; }

 private:
  template <class T>
  void Report(const char* what, const T& engine, const T& plain) {
    if (Found()) return;
    std::ostringstream out;
    out.precision(9);
    out << m_list << " " << m_index << ": " << what << " is " << engine << " in the engine and "
        << plain << " in the plain reading";
    m_text = out.str();
  }

  const char* m_list = "";
  std::size_t m_index = 0;
  std::string m_text;
};

struct LoggedEvent {
  std::uint32_t object;
  PlainEvent event;
  PlainContact contact;
};

PlainContact PlainCopy(const ContactInfo& contact) {
  PlainContact copy;
  copy.collided = contact.collided;
  copy.a = contact.objectA;
  copy.b = contact.objectB;
  copy.normal = contact.normal;
  copy.penetration = contact.penetration;
  copy.points.assign(contact.contactPoints.begin(), contact.contactPoints.end());
  copy.relative_velocity = contact.relativeVelocity;
  copy.normal_velocity = contact.normalVelocity;
  copy.ignored = contact.ignored;
  return copy;
}

void CompareContact(const PlainContact& engine, const PlainContact& plain, Difference* out) {
  out->CheckValue("objectA", engine.a, plain.a);
  out->CheckValue("objectB", engine.b, plain.b);
  out->CheckValue("collided", engine.collided, plain.collided);
  out->CheckValue("ignored", engine.ignored, plain.ignored);
  out->Check("the normal", engine.normal, plain.normal);
  out->Check("the penetration", engine.penetration, plain.penetration);
  out->CheckValue("the number of points", engine.points.size(), plain.points.size());
  if (out->Found()) return;
  for (std::size_t i = 0; i < plain.points.size(); ++i) {
    out->Check(i == 0 ? "the first point" : "the second point", engine.points[i], plain.points[i]);
  }
  out->Check("relativeVelocity", engine.relative_velocity, plain.relative_velocity);
  out->Check("normalVelocity", engine.normal_velocity, plain.normal_velocity);
}

void CompareContacts(const std::vector<PlainContact>& engine,
                     const std::vector<PlainContact>& plain, Difference* out) {
  for (std::size_t i = 0; i < std::min(engine.size(), plain.size()) && !out->Found(); ++i) {
    out->Enter("contact of the message", i);
    CompareContact(engine[i], plain[i], out);
  }
  out->Enter("message");
  out->CheckValue("the number of contacts", engine.size(), plain.size());
}

void ComparePairs(const char* list, const ContactList& engine, const std::vector<PlainPair>& plain,
                  Difference* out) {
  for (std::size_t i = 0; i < std::min(engine.size(), plain.size()) && !out->Found(); ++i) {
    out->Enter(list, i);
    out->CheckValue("the pair's first id", engine[i].objectA, plain[i].a);
    out->CheckValue("the pair's second id", engine[i].objectB, plain[i].b);
    CompareContact(PlainCopy(engine[i].contact), plain[i].contact, out);
  }
  out->Enter(list);
  out->CheckValue("the number of records", engine.size(), plain.size());
}

void CompareEvents(const std::vector<LoggedEvent>& engine, const std::vector<LoggedEvent>& plain,
                   Difference* out) {
  for (std::size_t i = 0; i < std::min(engine.size(), plain.size()) && !out->Found(); ++i) {
    out->Enter("callback", i);
    out->CheckValue("the object", engine[i].object, plain[i].object);
    out->CheckValue("the kind (0 exit, 1 stay, 2 enter)", static_cast<int>(engine[i].event),
                    static_cast<int>(plain[i].event));
    CompareContact(engine[i].contact, plain[i].contact, out);
  }
  out->Enter("callbacks");
  out->CheckValue("the number of calls", engine.size(), plain.size());
}

void CompareTransform(const Transform& engine, const PlainTransform& plain, Difference* out) {
  out->Check("m_local_pos", engine.m_local_pos, plain.local_pos);
  out->Check("m_prev_pos", engine.m_prev_pos, plain.prev_pos);
  out->Check("m_local_rotate", engine.m_local_rotate, plain.local_rotate);
  out->Check("m_prev_rotate", engine.m_prev_rotate, plain.prev_rotate);
  out->Check("m_world_pos", engine.m_world_pos, plain.world_pos);
  out->Check("m_world_scale", engine.m_world_scale, plain.world_scale);
  out->Check("m_world_rotate", engine.m_world_rotate, plain.world_rotate);
}

void CompareBody(const RigidBody& engine, const PlainBody& plain, Difference* out) {
  out->Check("m_vel", engine.m_vel, plain.vel);
  out->Check("m_prev_vel", engine.m_prev_vel, plain.prev_vel);
  out->Check("m_accel", engine.m_accel, plain.accel);
  out->Check("m_rot_vel", engine.m_rot_vel, plain.rot_vel);
  out->Check("m_rot_accel", engine.m_rot_accel, plain.rot_accel);
  out->CheckValue("the number of forces", engine.m_forces.size(), plain.forces.size());
  out->CheckValue("the number of torques", engine.m_torques.size(), plain.torques.size());
  if (out->Found()) return;
  for (std::size_t i = 0; i < plain.forces.size(); ++i) {
    out->Check("a force's age", engine.m_forces[i]->age, plain.forces[i].age);
    out->CheckValue("a force's active", engine.m_forces[i]->active, plain.forces[i].active);
  }
  for (std::size_t i = 0; i < plain.torques.size(); ++i) {
    out->Check("a torque's age", engine.m_torques[i]->age, plain.torques[i].age);
    out->CheckValue("a torque's active", engine.m_torques[i]->active, plain.torques[i].active);
  }
}

void CompareShape(const iCollider& engine, const PlainShape& plain, Difference* out) {
  out->Check("m_center", engine.m_center, plain.center);
  out->Check("m_min", engine.m_min, plain.min);
  out->Check("m_max", engine.m_max, plain.max);
  if (const auto* circle = dynamic_cast<const CircleCollider*>(&engine)) {
    out->Check("m_radius", circle->m_radius, plain.radius);
    return;
  }
  const auto& vertices = dynamic_cast<const PolygonCollider&>(engine).m_world_vertices;
  out->CheckValue("the number of vertices", vertices.size(), plain.world_vertices.size());
  if (out->Found()) return;
  for (std::size_t i = 0; i < vertices.size(); ++i) {
    out->Check("a world vertex", vertices[i], plain.world_vertices[i]);
  }
}

// One scene in both readings

class Duel;
Duel* g_duel = nullptr;

/// Tells the running duel of its object's contacts.
class ContactProbe final : public EmptyLogicComponent {
  RTTR_ENABLE(EmptyLogicComponent)

 public:
  using EmptyLogicComponent::EmptyLogicComponent;
  void OnCollisionEnter(ContactInfo* contact) override { Tell(PlainEvent::kEnter, contact); }
  void OnCollisionStay(ContactInfo* contact) override { Tell(PlainEvent::kStay, contact); }
  void OnCollisionExit(ContactInfo* contact) override { Tell(PlainEvent::kExit, contact); }

 private:
  void Tell(PlainEvent event, ContactInfo* contact);
};

/// Stands before all other systems and so sees the contacts before they are resolved.
class ContactCatcher final : public UnpausedSystem {
  RTTR_ENABLE(UnpausedSystem)

 public:
  void Init() override {}
  void Update(float) override {}
  void SendMessage(Message* message) override;
};

struct Tally {
  std::size_t contacts = 0, sensors = 0, one_point = 0, two_points = 0;
  std::size_t exits = 0, stays = 0, enters = 0, deep_nodes = 0, paused_steps = 0, ended = 0;
};

/// A scene in the engine and in the plain reading, stepped side by side.
class Duel {
 public:
  explicit Duel(const PhysicsScene& scene) : m_scene(scene), m_plain(PlainOf(scene)) {
    g_duel = this;
    g_game_obj_factory->ClearObjects();
    g_collider_system->m_masks = {scene.masks.begin(), scene.masks.end()};
  }
  ~Duel() { g_duel = nullptr; }
  Duel(const Duel&) = delete;
  Duel& operator=(const Duel&) = delete;

  void Load(World* world) {
    m_world = world;
    world->LoadObjects(RecordsOf(m_scene));
    for (std::uint32_t id = 0; id < m_scene.objects.size(); ++id) FinishObject(id);
    m_plain.on_event = [this](std::uint32_t object, PlainEvent event, PlainContact* contact) {
      const Reaction reaction = m_scene.objects[object].reaction;
      if (reaction == Reaction::kDeaf) return;
      m_plain_events.push_back({object, event, *contact});
      ReactPlain(reaction, object, event, contact);
    };
  }

  /// Runs a step of both; false when the scene ends here.
  bool Step(int step, Tally* tally) {
    for (const SceneAction& action : m_scene.actions) {
      if (action.step == step) Act(action);
    }
    const bool paused = m_scene.paused[static_cast<std::size_t>(step)];
    m_plain_events.clear();
    m_plain.Step(paused);
    Count(paused, tally);
    if (m_plain.nan_normal) {
      ++tally->ended;
      return false;
    }
    m_engine_events.clear();
    g_engine->paused = paused;
    m_world->Step();
    Compare();
    return !difference.Found();
  }

  void Catch(const std::vector<ContactInfo>& contacts) {
    m_contacts.clear();
    for (const ContactInfo& contact : contacts) m_contacts.push_back(PlainCopy(contact));
  }

  void Hear(std::uint32_t object, PlainEvent event, ContactInfo* contact) {
    m_engine_events.push_back({object, event, PlainCopy(*contact)});
    ReactEngine(m_scene.objects[object].reaction, object, event, contact);
  }

  Difference difference;

 private:
  GameObj* Object(std::uint32_t id) const { return g_game_obj_factory->m_objects[id]; }
  template <class T>
  T& Engine(std::uint32_t id) const {
    return *Object(id)->GetComponent<T>();
  }

  /// What records do not hold.
  void FinishObject(std::uint32_t id) {
    const PlainObject& plain = m_plain.objects[id];
    Object(id)->movesWhilePaused = plain.moves_while_paused;
    if (!plain.body) return;
    Engine<RigidBody>(id).m_rot_vel = plain.body->rot_vel;
    Engine<RigidBody>(id).m_active = plain.body->active;
  }

  void ReactPlain(Reaction reaction, std::uint32_t id, PlainEvent event, PlainContact* contact) {
    PlainObject& object = m_plain.objects[id];
    if (Ghostly(reaction, event)) contact->ignored = true;
    if (reaction == Reaction::kJump && event == PlainEvent::kEnter && object.body) {
      m_plain.AddForce(id, kJumpDirection, kJumpMagnitude, kJumpDuration);
    }
    if (reaction == Reaction::kStop && event == PlainEvent::kStay && object.body) {
      object.body->vel = Vector3D();
    }
    if (reaction == Reaction::kSwitchOff && event == PlainEvent::kEnter) {
      object.shape->active = false;
    }
    if (reaction == Reaction::kReturn && event == PlainEvent::kExit) {
      object.transform.local_pos = object.transform.prev_pos = Vector3D(0.0f, 0.0f, 1.0f);
    }
  }

  void ReactEngine(Reaction reaction, std::uint32_t id, PlainEvent event, ContactInfo* contact) {
    const bool body = m_plain.objects[id].body.has_value();
    if (Ghostly(reaction, event)) contact->ignored = true;
    if (reaction == Reaction::kJump && event == PlainEvent::kEnter && body) {
      m_world->Send(AddForceToObject(id, kJumpDirection, kJumpMagnitude, kJumpDuration));
    }
    if (reaction == Reaction::kStop && event == PlainEvent::kStay && body) {
      Engine<RigidBody>(id).m_vel = Vector3D();
    }
    if (reaction == Reaction::kSwitchOff && event == PlainEvent::kEnter) {
      Engine<ColliderHolder>(id).m_active = false;
    }
    if (reaction == Reaction::kReturn && event == PlainEvent::kExit) {
      Engine<Transform>(id).SetLocalPosition(Vector3D(0.0f, 0.0f, 1.0f));
    }
  }

  static bool Ghostly(Reaction reaction, PlainEvent event) {
    return (reaction == Reaction::kGhost && event == PlainEvent::kStay) ||
           (reaction == Reaction::kGhostOnEnter && event == PlainEvent::kEnter);
  }

  void Act(const SceneAction& action) {
    ActOnMotion(action);
    ActOnShape(action);
  }

  void ActOnMotion(const SceneAction& action) {
    const std::uint32_t id = action.object;
    PlainObject& plain = m_plain.objects[id];
    switch (action.kind) {
      case SceneAction::Kind::kForce:
        m_plain.AddForce(id, action.vector, action.amount, action.duration);
        m_world->Send(AddForceToObject(id, action.vector, action.amount, action.duration));
        break;
      case SceneAction::Kind::kTorque:
        m_plain.AddTorque(id, action.amount, action.duration);
        m_world->Send(AddTorqueToObject(id, action.amount, action.duration));
        break;
      case SceneAction::Kind::kRotate:
        plain.transform.local_rotate += action.amount;
        m_world->Send(RotateObject(id, action.amount));
        break;
      case SceneAction::Kind::kScale:
        plain.transform.local_scale += action.vector;
        m_world->Send(ScaleObject(id, action.vector));
        break;
      case SceneAction::Kind::kPlace:
        plain.transform.local_pos = plain.transform.prev_pos = action.vector;
        Engine<Transform>(id).SetLocalPosition(action.vector);
        break;
      case SceneAction::Kind::kVelocity:
        plain.body->vel = Engine<RigidBody>(id).m_vel = action.vector * 300.0f;
        break;
      case SceneAction::Kind::kSwitchBody:
        plain.body->active = Engine<RigidBody>(id).m_active = action.on;
        break;
      default:
        break;
    }
  }

  void ActOnShape(const SceneAction& action) {
    const std::uint32_t id = action.object;
    if (!m_plain.objects[id].shape) return;
    PlainShape& plain = *m_plain.objects[id].shape;
    ColliderHolder& holder = Engine<ColliderHolder>(id);
    switch (action.kind) {
      case SceneAction::Kind::kSwitchShape:
        plain.active = holder.m_active = action.on;
        break;
      case SceneAction::Kind::kCategory:
        plain.category = holder.bitmask_category = action.name;
        break;
      case SceneAction::Kind::kMoveLocal: {
        const Vector3D to = action.vector * 20.0f;
        const Vector3D by = to - plain.local_pos;
        for (Vector3D& vertex : plain.local_vertices) vertex += by;
        plain.local_pos += by;
        holder.m_collider->MoveLocal(to);
        break;
      }
      case SceneAction::Kind::kType: {
        PlainShape fresh;
        fresh.SetType(action.name);
        fresh.active = plain.active;
        fresh.category = plain.category;
        plain = fresh;
        holder.SetType(action.name);
        break;
      }
      default:
        break;
    }
  }

  void Count(bool paused, Tally* tally) const {
    tally->contacts += m_plain.contacts.size();
    for (const PlainContact& contact : m_plain.contacts) {
      std::size_t* const counts[] = {&tally->sensors, &tally->one_point, &tally->two_points};
      ++*counts[contact.points.size()];
    }
    for (const LoggedEvent& event : m_plain_events) {
      std::size_t* const counts[] = {&tally->exits, &tally->stays, &tally->enters};
      ++*counts[static_cast<std::size_t>(event.event)];
    }
    tally->deep_nodes += DeepNodes(m_plain.tree);
    tally->paused_steps += paused ? 1 : 0;
  }

  /// Nodes of the last level with more than ten objects.
  static std::size_t DeepNodes(const PlainNode& node) {
    std::size_t count = node.level == 5 && node.objects.size() > 10 ? 1 : 0;
    for (const PlainNode& child : node.children) count += DeepNodes(child);
    return count;
  }

  void Compare() {
    CompareContacts(m_contacts, m_plain.contacts, &difference);
    CompareEvents(m_engine_events, m_plain_events, &difference);
    ComparePairs("current", g_physics_system->current, m_plain.current, &difference);
    ComparePairs("previous", g_physics_system->previous, m_plain.previous, &difference);
    for (std::uint32_t id = 0; id < m_plain.objects.size() && !difference.Found(); ++id) {
      CompareObject(id);
    }
    difference.Enter("masks");
    difference.CheckValue("equality", g_collider_system->m_masks == m_plain.masks, true);
  }

  void CompareObject(std::uint32_t id) {
    const PlainObject& plain = m_plain.objects[id];
    difference.Enter("object", id);
    if (plain.body) CompareBody(Engine<RigidBody>(id), *plain.body, &difference);
    CompareTransform(Engine<Transform>(id), plain.transform, &difference);
    if (!plain.shape) return;
    const ColliderHolder& holder = Engine<ColliderHolder>(id);
    difference.CheckValue("the holder's m_active", holder.m_active, plain.shape->active);
    // The world fields of a shape that takes no part are left over from its making.
    if (plain.shape->active) CompareShape(*holder.m_collider, *plain.shape, &difference);
  }

  static constexpr Vector3D kJumpDirection{0.3f, 0.7f, 0.0f};
  static constexpr float kJumpMagnitude = 900.0f;
  static constexpr float kJumpDuration = 0.1f;

  const PhysicsScene& m_scene;
  PlainPhysics m_plain;
  World* m_world = nullptr;
  std::vector<PlainContact> m_contacts;
  std::vector<LoggedEvent> m_engine_events;
  std::vector<LoggedEvent> m_plain_events;
};

void ContactProbe::Tell(PlainEvent event, ContactInfo* contact) {
  if (g_duel != nullptr) g_duel->Hear(m_owner->id, event, contact);
}

void ContactCatcher::SendMessage(Message* message) {
  if (message->id != kCollidedObjects || g_duel == nullptr) return;
  g_duel->Catch(dynamic_cast<CollidedObjects&>(*message).contacts);
}

std::unique_ptr<World> NewWorld() {
  auto world = std::make_unique<World>();
  g_engine->systems.insert(g_engine->systems.begin(), new ContactCatcher);
  g_game_obj_factory->RegisterComponent<ContactProbe>("ContactProbe");
  return world;
}

/// Steps a scene in both readings; the first difference in words, or an empty text.
std::string RunScene(World* world, const PhysicsScene& scene, Tally* tally) {
  Duel duel(scene);
  duel.Load(world);
  for (int step = 0; step < static_cast<int>(scene.paused.size()); ++step) {
    if (duel.Step(step, tally)) continue;
    if (!duel.difference.Found()) return "";
    return "step " + std::to_string(step) + ", " + duel.difference.Text();
  }
  return "";
}

/// A number from the environment, which the long run sets.
int NumberFromEnvironment(const char* name, int otherwise) {
  const char* const text = std::getenv(name);
  return text == nullptr ? otherwise : std::atoi(text);
}

constexpr int kScenesPerWorld = 25;
constexpr int kMostFailures = 3;

/// Runs the scenes of the seeds `from` to `to`.
Tally RunScenes(int from, int to, int steps, int crowd) {
  Tally tally;
  std::unique_ptr<World> world;
  int failures = 0;
  for (int seed = from; seed < to && failures < kMostFailures; ++seed) {
    if ((seed - from) % kScenesPerWorld == 0) {
      world.reset();
      world = NewWorld();
    }
    const PhysicsScene scene = RandomPhysicsScene(static_cast<std::uint32_t>(seed), steps, crowd);
    const std::string difference = RunScene(world.get(), scene, &tally);
    if (difference.empty()) continue;
    ++failures;
    ADD_FAILURE() << "scene of seed " << seed << " with " << scene.objects.size() << " objects, "
                  << difference;
  }
  return tally;
}

TEST(PhysicsReference, RandomScenesMoveAsInThePlainReading) {
  const int scenes = NumberFromEnvironment("CARAPACE_PHYSICS_SCENES", 300);
  const int steps = NumberFromEnvironment("CARAPACE_PHYSICS_STEPS", 60);
  const int first = NumberFromEnvironment("CARAPACE_PHYSICS_SEED", 1);
  const Tally tally = RunScenes(first, first + scenes, steps, 200);
  RecordProperty("contacts", std::to_string(tally.contacts));
  std::cout << "contacts " << tally.contacts << ": sensors " << tally.sensors << ", one point "
            << tally.one_point << ", two points " << tally.two_points << "; callbacks: exit "
            << tally.exits << ", stay " << tally.stays << ", enter " << tally.enters
            << "; full nodes at the last level " << tally.deep_nodes << ", paused steps "
            << tally.paused_steps << ", scenes ended by a normal that is no number " << tally.ended
            << '\n';
  if (scenes < 100) return;
  // Scenes in which nothing meets would compare nothing.
  for (const std::size_t count :
       {tally.sensors, tally.one_point, tally.two_points, tally.exits, tally.stays, tally.enters}) {
    EXPECT_GT(count, 1000u);
  }
  EXPECT_GT(tally.deep_nodes, 0u);
  EXPECT_GT(tally.paused_steps, 0u);
}

}  // namespace
}  // namespace carapace_test
