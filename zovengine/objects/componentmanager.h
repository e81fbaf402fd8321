#pragma once

#include <cstdint>
#include <stdexcept>
#include <type_traits>
#include <vector>

#include "gameobj.h"
#include "objects/gamecomponentbase.h"
#include "objects/idtable.h"
#include "objects/logiccomponent.h"

namespace ZOVEngine {

/// Base of every component table. A table has two halves: the first holds the components of level
/// objects, the second those of archetypes; both are keyed by object id.
class ComponentManagerBase {
 public:
  ComponentManagerBase() = default;
  ComponentManagerBase(const ComponentManagerBase&) = delete;
  ComponentManagerBase& operator=(const ComponentManagerBase&) = delete;

  /// Makes a component for `obj`, appends it to the dense array and returns it, the array's last.
  virtual GameComponentBase* Add(GameObj* obj) = 0;
  /// The component of the first half; throws std::out_of_range "invalid map<K, T> key" if absent.
  virtual GameComponentBase* Get(GameObj* obj) = 0;
  virtual GameComponentBase* Get(std::uint32_t id) = 0;
  /// Deletes the component of the first half and moves the last one into its place; throws as Get.
  virtual void Remove(std::uint32_t id) = 0;
  /// Deletes the component of `obj` from the half that `obj->isArchetype` tells.
  virtual void Remove(GameObj* obj) = 0;
  virtual ~ComponentManagerBase() = default;
  /// An empty slot of the contract.
  virtual void Reserved() {}
  /// Deletes all components of the first half.
  virtual void Clear() = 0;
  /// Sets `m_active` of the component at the dense index `obj->id`, bounds-checked. Deliberately
  /// not through the map: right only for an object whose id equals its component's index.
  virtual void SetActive(GameObj* obj, bool value) = 0;
  /// Re-keys an entry; the dense array stays. A missing key does nothing.
  virtual void ChangeId(std::uint32_t old_id, std::uint32_t new_id) = 0;
  virtual void ChangeArchetypeId(std::uint32_t old_id, std::uint32_t new_id) = 0;
  /// Add, Get and Remove for the second half.
  virtual GameComponentBase* AddArchetype(GameObj* obj) = 0;
  virtual GameComponentBase* GetArchetype(std::uint32_t id) = 0;
  virtual GameComponentBase* GetArchetype(GameObj* obj) = 0;
  /// Copies the component of `from`, an archetype, to the level object `to`; `m_init` is copied
  /// too.
  virtual void CloneFromArchetype(GameObj* to, GameObj* from) = 0;
  /// Copies the component of the level object `from` to the level object `to`.
  virtual void CloneFromObject(GameObj* to, GameObj* from) = 0;
  virtual void RemoveArchetype(std::uint32_t id) = 0;
  virtual void RemoveArchetype(GameObj* obj) = 0;
};

/// The table of all components of type T, which it owns.
///
/// `m_components` and `m_archetypes` are dense: a removal moves the last entry into the hole, so
/// their order is not stable across removals. Systems walk a copy of the dense array, so that a
/// component may create objects during the walk; nothing may destroy objects of the walked type
/// meanwhile, except a state change, after which the walk must not touch them.
template <class T>
class ComponentManager final : public ComponentManagerBase {
 public:
  using Array = std::vector<T*>;

  ~ComponentManager() override {
    Clear();
    DeleteAll(&m_archetypeMap, &m_archetypes);
  }

  T* Add(GameObj* obj) override { return Store(new T(obj), obj, &m_map, &m_components); }
  T* Get(GameObj* obj) override { return m_map.At(obj->id); }
  T* Get(std::uint32_t id) override { return m_map.At(id); }
  void Remove(std::uint32_t id) override { RemoveFrom(id, &m_map, &m_components); }
  void Remove(GameObj* obj) override {
    if (obj->isArchetype) {
      RemoveArchetype(obj->id);
    } else {
      Remove(obj->id);
    }
  }
  void Clear() override { DeleteAll(&m_map, &m_components); }
  void SetActive(GameObj* obj, bool value) override { m_components.at(obj->id)->m_active = value; }
  void ChangeId(std::uint32_t old_id, std::uint32_t new_id) override {
    m_map.Rekey(old_id, new_id);
  }
  void ChangeArchetypeId(std::uint32_t old_id, std::uint32_t new_id) override {
    m_archetypeMap.Rekey(old_id, new_id);
  }
  T* AddArchetype(GameObj* obj) override {
    return Store(new T(obj), obj, &m_archetypeMap, &m_archetypes);
  }
  T* GetArchetype(std::uint32_t id) override { return m_archetypeMap.At(id); }
  T* GetArchetype(GameObj* obj) override { return m_archetypeMap.At(obj->id); }
  void CloneFromArchetype(GameObj* to, GameObj* from) override {
    StoreCopy(*GetArchetype(from->id), to);
  }
  void CloneFromObject(GameObj* to, GameObj* from) override { StoreCopy(*Get(from->id), to); }
  void RemoveArchetype(std::uint32_t id) override {
    RemoveFrom(id, &m_archetypeMap, &m_archetypes);
  }
  void RemoveArchetype(GameObj* obj) override { RemoveArchetype(obj->id); }

  /// The component of the level object `id`, or null if it has none.
  T* Find(std::uint32_t id) const { return m_map.Find(id); }
  /// The dense array of level components, in creation order until the first removal.
  const Array& Components() const { return m_components; }
  const Array& Archetypes() const { return m_archetypes; }

 private:
  using Map = IdTable<T>;

  static T* Store(T* component, GameObj* obj, Map* map, Array* array) {
    component->m_index = static_cast<std::uint32_t>(array->size());
    array->push_back(component);
    map->Insert(obj->id, component);
    return component;
  }

  void StoreCopy(const T& source, GameObj* to) {
    T* copy = new T(source);
    copy->m_owner = to;
    Store(copy, to, &m_map, &m_components);
  }

  static void RemoveFrom(std::uint32_t id, Map* map, Array* array) {
    T* component = map->At(id);
    T* last = array->back();
    last->m_index = component->m_index;
    array->at(last->m_index) = last;
    array->pop_back();
    map->Erase(id);
    delete component;
  }

  static void DeleteAll(Map* map, Array* array) {
    for (T* component : *array) delete component;
    array->clear();
    map->Clear();
  }

  Map m_map;
  Array m_components;
  Map m_archetypeMap;
  Array m_archetypes;
};

/// The registered table of T, or null. Set by the factory; what makes GetComponent one indexed
/// load.
template <class T>
inline ComponentManager<T>* g_component_table = nullptr;

/// The registered table of T; throws std::out_of_range "invalid unordered_map<K, T> key" if there
/// is none.
template <class T>
ComponentManager<T>& ComponentTable() {
  if (g_component_table<T> == nullptr) throw std::out_of_range("invalid unordered_map<K, T> key");
  return *g_component_table<T>;
}

template <class T>
T* GameObj::GetComponent() {
  ComponentManager<T>& table = ComponentTable<T>();
  return isArchetype ? table.GetArchetype(id) : table.Get(id);
}

template <class T>
void GameObj::AddComponent() {
  ComponentManager<T>& table = ComponentTable<T>();
  components.push_back(&typeid(T));
  if (std::is_base_of_v<LogicComponent, T>) ++logicComponents;
  if (isArchetype) {
    table.AddArchetype(this);
  } else {
    table.Add(this);
  }
}

}  // namespace ZOVEngine
