#include "physicssystem.h"

#include <iostream>
#include <memory_resource>

#include "core/base/profile.h"
#include "core/messages.h"
#include "objects/gameobjfactory.h"
#include "objects/reflection.h"
#include "physics/contactresolution.h"
#include "physics/integration.h"

ZOV_REGISTRATION(PhysicsSystem) {
  using ZOVEngine::PhysicsSystem;
  ZOVEngine::SystemRegistration<PhysicsSystem>("PhysicsSystem");
}

namespace ZOVEngine {

PhysicsSystem* g_physics_system = nullptr;

PhysicsSystem::PhysicsSystem() {
  g_physics_system = this;
  g_game_obj_factory->RegisterComponents(TypeList<Transform, RigidBody>());
  // The factory may outlive this system.
  g_game_obj_factory->OnClear([] {
    if (g_physics_system == nullptr) return;
    g_physics_system->current.clear();
    g_physics_system->previous.clear();
  });
}

PhysicsSystem::~PhysicsSystem() {
  std::cout << "Destructor of PhysicsSystem" << '\n';
  g_physics_system = nullptr;
}

void PhysicsSystem::Init() {
  m_bodies = FetchTable<RigidBody>();
  m_holders = FetchTable<ColliderHolder>();
  m_transforms = FetchTable<Transform>();
  UpdateWorldTransforms();
}

namespace {

// With static storage, so that recording it allocates nothing.
const std::string kPhysicsRecord = "Physics";

GameObj* LevelObject(std::uint32_t id) {
  return g_game_obj_factory->m_objects.at(id);
}

/// A force or torque in memory that is used again: shots, holes and sparks push in every step. The
/// memory outlives all bodies.
template <class T>
std::shared_ptr<T> MakeForce() {
  static std::pmr::unsynchronized_pool_resource memory;
  return std::allocate_shared<T>(std::pmr::polymorphic_allocator<T>(&memory));
}

void AddForce(const AddForceToObject& message) {
  auto force = MakeForce<DirectionalForce>();
  force->lifetime = message.duration;
  force->direction = message.direction;
  force->magnitude = message.magnitude;
  LevelObject(message.objectId)->GetComponent<RigidBody>()->m_forces.push_back(std::move(force));
}

void AddTorque(const AddTorqueToObject& message) {
  auto torque = MakeForce<RotationalForce>();
  torque->lifetime = message.duration;
  torque->torque = message.torque;
  LevelObject(message.objectId)->GetComponent<RigidBody>()->m_torques.push_back(std::move(torque));
}

}  // namespace

void PhysicsSystem::Update(float dt) {
  const std::int64_t start = NowNanoseconds();
  DispatchExits();
  previous.swap(current);
  current.clear();
  MoveBodies(dt, false);
  RecordElapsed(kPhysicsRecord, start);
}

void PhysicsSystem::PausedUpdate(float dt) {
  const std::int64_t start = NowNanoseconds();
  MoveBodies(dt, true);
  RecordElapsed(kPhysicsRecord, start);
}

/// Integrates the active bodies, in a pause only those that are let move, and places all objects.
void PhysicsSystem::MoveBodies(float dt, bool paused) {
  for (RigidBody* body : m_bodies->Components()) {
    if (!body->m_active || (paused && !body->m_owner->movesWhilePaused)) continue;
    IntegrateBody(body, m_transforms->Get(body->m_owner), dt);
  }
  UpdateWorldTransforms();
}

/// Calls OnCollisionExit on both objects of each contact of the step before last that was not found
/// again, except on objects that were destroyed since. Only these calls can see the world
/// transforms before the bodies have moved, so they are derived here only if there is such a call.
void PhysicsSystem::DispatchExits() {
  bool derived = false;
  for (std::size_t i = 0; i < previous.size(); ++i) {
    const std::uint32_t ids[] = {previous[i].objectA, previous[i].objectB};
    if (current.Contains(ids[0], ids[1])) continue;
    for (const std::uint32_t id : ids) {
      // A callback that clears all objects empties the list.
      if (i >= previous.size() || id >= g_game_obj_factory->m_objects.size()) break;
      GameObj* object = LevelObject(id);
      if (object->logicComponents == 0) continue;
      if (!derived) UpdateWorldTransforms();
      derived = true;
      object->DispatchCollisionExit(&previous[i].contact);
    }
  }
}

void PhysicsSystem::SendMessage(Message* message) {
  switch (message->id) {
    case kAddForceToObject:
      AddForce(dynamic_cast<AddForceToObject&>(*message));
      break;
    case kAddTorqueToObject:
      AddTorque(dynamic_cast<AddTorqueToObject&>(*message));
      break;
    case kRotateObject: {
      const auto& rotate = dynamic_cast<RotateObject&>(*message);
      LevelObject(rotate.objectId)->GetComponent<Transform>()->m_local_rotate += rotate.delta;
      break;
    }
    case kScaleObject: {
      const auto& scale = dynamic_cast<ScaleObject&>(*message);
      LevelObject(scale.objectId)->GetComponent<Transform>()->m_local_scale += scale.delta;
      break;
    }
    case kCollidedObjects:
      ResolveContacts(&dynamic_cast<CollidedObjects&>(*message).contacts);
      break;
    default:
      break;
  }
}

/// In list order. Ends when a callback destroys all objects, whose contacts the rest are.
void PhysicsSystem::ResolveContacts(std::vector<ContactInfo>* contacts) {
  const std::uint64_t clears = g_game_obj_factory->ClearCount();
  const BodyTables tables = {*m_transforms, *m_bodies, *m_holders};
  constexpr std::size_t kAhead = 6;
  for (std::size_t i = 0; i < contacts->size(); ++i) {
    if (g_game_obj_factory->ClearCount() != clears) return;
    if (i + kAhead < contacts->size()) PrefetchContact(tables, (*contacts)[i + kAhead]);
    ResolveContact(tables, &(*contacts)[i], &current, &previous);
  }
}

void PhysicsSystem::UpdateWorldTransforms() {
  for (Transform* transform : m_transforms->Components()) transform->DeriveWorld();
}

}  // namespace ZOVEngine
