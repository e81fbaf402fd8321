#include "game/objectquery.h"

#include "audio/audiosource.h"
#include "core/messages.h"
#include "game/turns/gamecontroller.h"
#include "game/units/unit.h"
#include "objects/gameobjfactory.h"
#include "objects/statec.h"
#include "physics/components/colliderholder.h"
#include "physics/components/rigidbody.h"

namespace ZOVEngine {

GameObj* FirstChildNamed(GameObj* object, std::string_view name) {
  for (GameObj* child : object->children) {
    if (child->name == name) return child;
  }
  return nullptr;
}

GameController* FindController(GameObj* object) {
  CurrGC query;
  for (GameObj* at = object; at != nullptr; at = at->parent) at->SendToComponents(&query);
  const auto& objects = g_game_obj_factory->m_objects;
  // No answer reads as object 0, which may be anything.
  if (query.objectId >= objects.size()) return nullptr;
  return FindComponent<GameController>(objects[query.objectId]);
}

bool IsMovable(const GameObj& object) {
  return IsUnit(object) ||
         (object.HasComponent<RigidBody>() && object.HasComponent<ColliderHolder>());
}

void PlaySound(GameObj* object, const char* name) {
  if (auto* source = FindComponent<AudioSource>(object)) source->PlaySound(name);
}

void SetState(GameObj* object, const char* state) {
  if (auto* holder = FindComponent<StateC>(object)) holder->m_state = state;
}

}  // namespace ZOVEngine
