#include "gameobj.h"

#include "objects/gameobjfactory.h"
#include "objects/logiccomponent.h"

namespace ZOVEngine {
namespace {

/// Calls `visit` with each logic component of a level object, in the order of its component list.
template <class Visitor>
void ForEachLogicComponent(GameObj* object, Visitor visit) {
  const std::vector<ComponentType> types = object->components;
  for (const ComponentType type : types) {
    GameComponentBase* component = g_game_obj_factory->Table(type).Get(object);
    if (auto* logic = dynamic_cast<LogicComponent*>(component)) visit(logic);
  }
}

}  // namespace

void GameObj::SetActive(bool value) {
  active = value;
  for (const ComponentType type : components) {
    ComponentManagerBase& table = g_game_obj_factory->Table(type);
    table.Get(this)->m_active = value;
    GameComponentBase* own = isArchetype ? table.GetArchetype(this) : table.Get(this);
    own->OwnerSetActive(value);
  }
  for (GameObj* child : children) child->SetActive(value);
}

void GameObj::SendToComponents(Message* message) {
  ForEachLogicComponent(this, [message](LogicComponent* logic) { logic->OnMessage(message); });
}

void GameObj::SendToComponentsRecursive(Message* message) {
  SendToComponents(message);
  for (GameObj* child : children) child->SendToComponentsRecursive(message);
}

void GameObj::DispatchCollisionEnter(ContactInfo* contact) {
  ForEachLogicComponent(this,
                        [contact](LogicComponent* logic) { logic->OnCollisionEnter(contact); });
}

void GameObj::DispatchCollisionStay(ContactInfo* contact) {
  ForEachLogicComponent(this,
                        [contact](LogicComponent* logic) { logic->OnCollisionStay(contact); });
}

void GameObj::DispatchCollisionExit(ContactInfo* contact) {
  ForEachLogicComponent(this,
                        [contact](LogicComponent* logic) { logic->OnCollisionExit(contact); });
}

}  // namespace ZOVEngine
