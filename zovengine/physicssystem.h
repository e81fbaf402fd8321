#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "core/contactinfo.h"
#include "core/system.h"
#include "objects/componentmanager.h"
#include "physics/components/colliderholder.h"
#include "physics/components/rigidbody.h"
#include "physics/components/transform.h"
#include "physics/contactlist.h"

namespace ZOVEngine {

/// The system that moves every object with a RigidBody.
///
/// Each step it reports the contacts that ended, integrates the bodies and derives the world
/// transforms. Later in the step it receives the collider system's CollidedObjects message,
/// resolves the contacts and calls the logic components of both sides. There is no gravity and no
/// iteration: a body moves by its velocity, by timed forces and by its contacts, each of which is
/// resolved once, in the order of the message. `current` holds the contacts made in this step,
/// `previous` those of the step before; both name objects by id and are emptied when all objects
/// are destroyed. While the engine is paused the lists are not rotated, so a lasting contact begins
/// anew in every step.
class PhysicsSystem final : public System {
  RTTR_ENABLE(System)

 public:
  /// Sets g_physics_system and registers the tables "Transform" and "RigidBody".
  PhysicsSystem();
  ~PhysicsSystem() override;

  /// Fetches the tables and derives the world transforms once.
  void Init() override;
  void Update(float dt) override;
  /// Moves only what moves in a pause: bodies whose object has `movesWhilePaused` set.
  void PausedUpdate(float dt) override;
  /// Takes AddForceToObject, AddTorqueToObject, RotateObject, ScaleObject, whose object must have
  /// the component that is meant, and CollidedObjects.
  void SendMessage(Message* message) override;

  /// Derives the world set of every Transform from the local values, in table order.
  void UpdateWorldTransforms();

  ContactList current;
  ContactList previous;

 private:
  void DispatchExits();
  void MoveBodies(float dt, bool paused);
  void ResolveContacts(std::vector<ContactInfo>* contacts);

  std::shared_ptr<ComponentManager<RigidBody>> m_bodies;
  std::shared_ptr<ComponentManager<ColliderHolder>> m_holders;
  std::shared_ptr<ComponentManager<Transform>> m_transforms;
};

extern PhysicsSystem* g_physics_system;

}  // namespace ZOVEngine
