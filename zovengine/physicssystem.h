#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "core/contactinfo.h"
#include "core/system.h"
#include "objects/componentmanager.h"
#include "physics/colliderholder.h"
#include "physics/rigidbody.h"
#include "physics/transform.h"

namespace ZOVEngine {

/// Two objects in contact, with a copy of the contact.
struct ContactPair {
  std::uint32_t objectA = 0;
  std::uint32_t objectB = 0;
  ContactInfo contact;
};

/// The system that places objects in the world and keeps the lists of contacts.
///
/// World transforms are derived at the head of every fixed step, and at the entry and the exit of
/// this system's own step. `current` holds the contacts made in this step, `previous` those of the
/// step before; both name objects by id and are emptied when all objects are destroyed.
class PhysicsSystem final : public System {
  RTTR_ENABLE(System)

 public:
  /// Sets g_physics_system and registers the tables "Transform" and "RigidBody".
  PhysicsSystem();
  ~PhysicsSystem() override;

  /// Fetches the tables and derives the world transforms once.
  void Init() override;
  void Update(float dt) override;
  void PausedUpdate(float dt) override;
  /// Takes RotateObject and ScaleObject; the object they name must have a Transform.
  void SendMessage(Message* message) override;

  /// Derives the world set of every Transform from the local values, in table order.
  void UpdateWorldTransforms();

  std::vector<ContactPair> current;
  std::vector<ContactPair> previous;

 private:
  std::shared_ptr<ComponentManager<RigidBody>> m_bodies;
  std::shared_ptr<ComponentManager<ColliderHolder>> m_holders;
  std::shared_ptr<ComponentManager<Transform>> m_transforms;
};

extern PhysicsSystem* g_physics_system;

}  // namespace ZOVEngine
