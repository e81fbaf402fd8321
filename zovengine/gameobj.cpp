#include "gameobj.h"

#include "objects/gameobjfactory.h"
#include "objects/logiccomponent.h"

namespace ZOVEngine {
namespace {

/// Calls `visit` with each logic component of a level object, in the order of its component list.
/// Ends when a visit changes the state and so destroys the object.
template <class Visitor>
void ForEachLogicComponent(GameObj* object, Visitor visit) {
  if (object->logicComponents == 0) return;
  const ClearWatch watch;
  const std::size_t count = object->components.size();
  for (std::size_t i = 0; i < count && !watch.Cleared(); ++i) {
    GameComponentBase* component = g_game_obj_factory->Table(object->components[i]).Get(object);
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
  const ClearWatch watch;
  SendToComponents(message);
  for (std::size_t i = 0; !watch.Cleared() && i < children.size(); ++i) {
    children[i]->SendToComponentsRecursive(message);
  }
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
