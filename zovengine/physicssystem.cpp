#include "physicssystem.h"

#include <iostream>

#include "core/messages.h"
#include "core/profile.h"
#include "objects/gameobjfactory.h"
#include "objects/reflection.h"

RTTR_REGISTRATION {
  using ZOVEngine::PhysicsSystem;
  ZOVEngine::SystemRegistration<PhysicsSystem>("PhysicsSystem");
}

namespace ZOVEngine {

PhysicsSystem* g_physics_system = nullptr;

PhysicsSystem::PhysicsSystem() {
  g_physics_system = this;
  g_game_obj_factory->RegisterComponent<Transform>("Transform");
  g_game_obj_factory->RegisterComponent<RigidBody>("RigidBody");
  g_game_obj_factory->OnClear([this] {
    current.clear();
    previous.clear();
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

void PhysicsSystem::Update(float) {
  const std::int64_t start = NowNanoseconds();
  UpdateWorldTransforms();
  UpdateWorldTransforms();
  RecordElapsed("Physics", start);
}

void PhysicsSystem::PausedUpdate(float dt) {
  Update(dt);
}

void PhysicsSystem::SendMessage(Message* message) {
  if (message->id == kRotateObject) {
    const auto& rotate = dynamic_cast<RotateObject&>(*message);
    GameObj* object = g_game_obj_factory->m_objects.at(rotate.objectId);
    object->GetComponent<Transform>()->m_local_rotate += rotate.delta;
  } else if (message->id == kScaleObject) {
    const auto& scale = dynamic_cast<ScaleObject&>(*message);
    GameObj* object = g_game_obj_factory->m_objects.at(scale.objectId);
    object->GetComponent<Transform>()->m_local_scale += scale.delta;
  }
}

void PhysicsSystem::UpdateWorldTransforms() {
  for (Transform* transform : m_transforms->Components()) transform->DeriveWorld();
}

}  // namespace ZOVEngine
