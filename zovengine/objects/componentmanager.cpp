#include "objects/componentmanager.h"

namespace ZOVEngine {
namespace {

using Map = IdTable<GameComponentBase>;
using Array = std::vector<GameComponentBase*>;

void StoreIn(Map* map, Array* array, GameComponentBase* component, std::uint32_t id) {
  component->m_index = static_cast<std::uint32_t>(array->size());
  array->push_back(component);
  map->Insert(id, component);
}

void RemoveFrom(Map* map, Array* array, std::uint32_t id) {
  GameComponentBase* component = map->At(id);
  GameComponentBase* last = array->back();
  last->m_index = component->m_index;
  array->at(last->m_index) = last;
  array->pop_back();
  map->Erase(id);
  delete component;
}

void DeleteAll(Map* map, Array* array) {
  for (GameComponentBase* component : *array) delete component;
  array->clear();
  map->Clear();
}

}  // namespace

ComponentManagerBase::~ComponentManagerBase() {
  DeleteAll(&m_map, &m_components);
  DeleteAll(&m_archetypeMap, &m_archetypes);
}

void ComponentManagerBase::Remove(std::uint32_t id) {
  RemoveFrom(&m_map, &m_components, id);
}

void ComponentManagerBase::Remove(GameObj* obj) {
  if (obj->isArchetype) {
    RemoveArchetype(obj->id);
  } else {
    Remove(obj->id);
  }
}

void ComponentManagerBase::Clear() {
  DeleteAll(&m_map, &m_components);
}

void ComponentManagerBase::SetActive(GameObj* obj, bool value) {
  m_components.at(obj->id)->m_active = value;
}

void ComponentManagerBase::ChangeId(std::uint32_t old_id, std::uint32_t new_id) {
  m_map.Rekey(old_id, new_id);
}

void ComponentManagerBase::ChangeArchetypeId(std::uint32_t old_id, std::uint32_t new_id) {
  m_archetypeMap.Rekey(old_id, new_id);
}

void ComponentManagerBase::RemoveArchetype(std::uint32_t id) {
  RemoveFrom(&m_archetypeMap, &m_archetypes, id);
}

void ComponentManagerBase::RemoveArchetype(GameObj* obj) {
  RemoveArchetype(obj->id);
}

void ComponentManagerBase::Store(GameComponentBase* component, GameObj* obj) {
  StoreIn(&m_map, &m_components, component, obj->id);
}

void ComponentManagerBase::StoreArchetype(GameComponentBase* component, GameObj* obj) {
  StoreIn(&m_archetypeMap, &m_archetypes, component, obj->id);
}

}  // namespace ZOVEngine
