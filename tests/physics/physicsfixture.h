#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "core/engine.h"
#include "core/messages.h"
#include "objects/gameobjfactory.h"
#include "objects/logiccomponent.h"
#include "physics/collidersystem.h"
#include "physicssystem.h"
#include "support/world.h"

namespace carapace_test {

/// A logic component that records each call about a contact, as "name Enter".
class ContactListener final : public ZOVEngine::EmptyLogicComponent {
  RTTR_ENABLE(ZOVEngine::EmptyLogicComponent)

 public:
  using Hook = std::function<void(const std::string& call, ZOVEngine::ContactInfo* contact)>;

  using EmptyLogicComponent::EmptyLogicComponent;
  void OnCollisionEnter(ZOVEngine::ContactInfo* contact) override { Note(" Enter", contact); }
  void OnCollisionStay(ZOVEngine::ContactInfo* contact) override { Note(" Stay", contact); }
  void OnCollisionExit(ZOVEngine::ContactInfo* contact) override { Note(" Exit", contact); }

  inline static std::vector<std::string> calls;
  inline static Hook hook;  ///< what every call does besides

 private:
  void Note(const char* verb, ZOVEngine::ContactInfo* contact) {
    calls.push_back(m_owner->name + verb);
    if (hook) hook(calls.back(), contact);
  }
};

/// Sees the contacts of each step before they are resolved.
class ContactSpy final : public ZOVEngine::UnpausedSystem {
  RTTR_ENABLE(ZOVEngine::UnpausedSystem)

 public:
  void Init() override {}
  void Update(float) override {}
  void SendMessage(ZOVEngine::Message* message) override {
    if (message->id != ZOVEngine::kCollidedObjects) return;
    ++messages;
    contacts = dynamic_cast<ZOVEngine::CollidedObjects&>(*message).contacts;
  }

  int messages = 0;
  std::vector<ZOVEngine::ContactInfo> contacts;  ///< of the last message
};

/// How an object of a physics test is made. A body is the text of its record; none means that the
/// object has no RigidBody.
struct Piece {
  std::string name;
  ZOVEngine::Vector3D at{0.0f, 0.0f, 1.0f};
  ZOVEngine::Vector3D size{2.0f, 2.0f, 1.0f};
  std::string body = {};
  std::string shape = "Box";
  std::string category = "Default";
  std::string vertices = {};  ///< JSON, for a polygon
  float rotate = 0.0f;
  bool holder_active = true;
  bool object_active = true;
};

/// The record of a body with mass 1 that does not turn, moving at (x, y).
inline std::string Mover(float x = 0.0f, float y = 0.0f) {
  return "{\"m_vel\": [" + std::to_string(x) + ", " + std::to_string(y) +
         R"(, 0], "m_accel": [0, 0, 0], "m_mass": 1, "m_inertia": 0, "m_sleeper_vel": [0, 0, 0],
            "m_sleeper_rot_vel": 0, "m_drag": 0, "m_angular_drag": 0, "m_rest": 0})";
}

/// A world in which contacts are heard and seen.
class PhysicsFixture : public ::testing::Test {
 protected:
  PhysicsFixture() {
    ZOVEngine::g_game_obj_factory->RegisterComponent<ContactListener>("ContactListener");
    auto& systems = ZOVEngine::g_engine->systems;
    spy = new ContactSpy;
    systems.insert(systems.begin(), spy);
    ContactListener::calls.clear();
    ContactListener::hook = nullptr;
  }
  ~PhysicsFixture() override { ContactListener::hook = nullptr; }

  ZOVEngine::GameObj* Add(const Piece& piece) {
    std::vector<std::pair<std::string, std::string>> components;
    const auto number = [](float value) { return std::to_string(value); };
    components.emplace_back(
        "Transform",
        "{\"m_pos\": [" + number(piece.at.x) + ", " + number(piece.at.y) + ", " +
            number(piece.at.z) + "], \"m_scale\": [" + number(piece.size.x) + ", " +
            number(piece.size.y) + ", 1], \"m_rotate\": " + number(piece.rotate) +
            R"(, "m_rotate_with_parent": true, "m_world_scale": [1, 1, 1], "m_world_rotate": 0,
               "m_world_pos": [0, 0, 1]})");
    if (!piece.body.empty()) components.emplace_back("RigidBody", piece.body);
    std::string holder = std::string("{\"m_active\": ") + (piece.holder_active ? "true" : "false") +
                         ", \"m_layer\": 0, \"m_collider_type\": \"" + piece.shape +
                         "\", \"bitmask_category\": \"" + piece.category + "\"";
    if (!piece.vertices.empty()) holder += ", \"collider_vertices\": " + piece.vertices;
    holder += R"(, "m_local_scale": [1, 1, 1], "m_local_pos": [0, 0, 1], "m_local_rot": 0})";
    components.emplace_back("ColliderHolder", holder);
    components.emplace_back("ContactListener", "{}");
    world.LoadObjects(Record(piece.name, components, {}, piece.object_active));
    return ZOVEngine::g_game_obj_factory->m_objects.back();
  }

  template <class T>
  static T& Of(ZOVEngine::GameObj* object) {
    return *object->GetComponent<T>();
  }
  static ZOVEngine::RigidBody& GetBody(ZOVEngine::GameObj* object) {
    return Of<ZOVEngine::RigidBody>(object);
  }
  static ZOVEngine::Vector3D& LocalPosition(ZOVEngine::GameObj* object) {
    return Of<ZOVEngine::Transform>(object).m_local_pos;
  }

  /// The names of the pairs of the last message, as "A-B".
  std::vector<std::string> Pairs() const {
    std::vector<std::string> pairs;
    for (const ZOVEngine::ContactInfo& contact : spy->contacts) {
      const auto& objects = ZOVEngine::g_game_obj_factory->m_objects;
      pairs.push_back(objects[contact.objectA]->name + "-" + objects[contact.objectB]->name);
    }
    return pairs;
  }

  World world;
  ContactSpy* spy = nullptr;
};

}  // namespace carapace_test
