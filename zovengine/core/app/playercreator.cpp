#include "objects/playercreator.h"

#include "physics/components/collider.h"
#include "physics/components/rigidbody.h"
#include "physics/components/transform.h"
#include "render/components/render.h"

namespace ZOVEngine {

GameObj* PlayerCreator::Create(std::uint32_t id) {
  // Looked up first, so that the failure leaves nothing behind.
  ComponentManagerBase& boxes = g_game_obj_factory->Table(&typeid(BoxCollider));
  auto object = std::make_unique<GameObj>();
  object->id = id;
  object->AddComponent<Transform>();
  boxes.Add(object.get());
  object->AddComponent<RigidBody>();
  object->AddComponent<Render>();
  return object.release();
}

}  // namespace ZOVEngine
