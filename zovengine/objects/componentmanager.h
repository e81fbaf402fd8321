#pragma once

#include <cstdint>
#include <stdexcept>
#include <type_traits>
#include <vector>

#include "core/base/noncopyable.h"
#include "gameobj.h"
#include "objects/componentarray.h"
#include "objects/gamecomponentbase.h"
#include "objects/idtable.h"
#include "objects/logiccomponent.h"

namespace ZOVEngine {

/// Base of every component table, with all that does not depend on the class of the components.
///
/// A table owns its components. It has two halves: the first holds the components of level objects,
/// the second those of archetypes; both are keyed by object id. Each half has a dense array: a
/// removal moves the last entry into the hole, so the order is that of creation until the first
/// removal. Systems walk a copy of the dense array (objects/tablewalk.h), so that a component may
/// create objects during the walk; nothing may destroy objects of the walked class meanwhile,
/// except a state change, after which the walk must not touch them.
class ComponentManagerBase : private NonCopyable {
 public:
  ComponentManagerBase() = default;

  /// Makes a component for `obj`, appends it to the dense array and returns it, the array's last.
  virtual GameComponentBase* Add(GameObj* obj) = 0;
  /// The component of the first half; throws std::out_of_range "invalid map<K, T> key" if absent.
  virtual GameComponentBase* Get(GameObj* obj) = 0;
  virtual GameComponentBase* Get(std::uint32_t id) = 0;
  /// Deletes the component of the first half and moves the last one into its place; throws as Get.
  virtual void Remove(std::uint32_t id);
  /// Deletes the component of `obj` from the half that `obj->isArchetype` tells.
  virtual void Remove(GameObj* obj);
  virtual ~ComponentManagerBase();
  /// An empty slot of the contract.
  virtual void Reserved() {}
  /// Deletes all components of the first half.
  virtual void Clear();
  /// Sets `m_active` of the component at the dense index `obj->id`, bounds-checked. Deliberately
  /// not through the map, so it is right only for an object whose id equals its component's index;
  /// nobody relies on it.
  virtual void SetActive(GameObj* obj, bool value);
  /// Re-keys an entry; the dense array stays. A missing key does nothing.
  virtual void ChangeId(std::uint32_t old_id, std::uint32_t new_id);
  virtual void ChangeArchetypeId(std::uint32_t old_id, std::uint32_t new_id);
  /// Add, Get and Remove for the second half.
  virtual GameComponentBase* AddArchetype(GameObj* obj) = 0;
  virtual GameComponentBase* GetArchetype(std::uint32_t id) = 0;
  virtual GameComponentBase* GetArchetype(GameObj* obj) = 0;
  /// Copies the component of `from`, an archetype, to the level object `to`; `m_init` is copied
  /// too.
  virtual void CloneFromArchetype(GameObj* to, GameObj* from) = 0;
  /// Copies the component of the level object `from` to the level object `to`.
  virtual void CloneFromObject(GameObj* to, GameObj* from) = 0;
  virtual void RemoveArchetype(std::uint32_t id);
  virtual void RemoveArchetype(GameObj* obj);

  /// The dense array of level components.
  const std::vector<GameComponentBase*>& Entries() const { return m_components; }

 protected:
  using Map = IdTable<GameComponentBase>;
  using Array = std::vector<GameComponentBase*>;

  /// Takes `component`, which was made for `obj`, into the first half or into the second.
  void Store(GameComponentBase* component, GameObj* obj);
  void StoreArchetype(GameComponentBase* component, GameObj* obj);

  Map m_map;
  Array m_components;
  Map m_archetypeMap;
  Array m_archetypes;
};

/// The table of all components of class T: makes and copies them, and hands them out as T.
///
/// T derives from GameComponentBase alone, is made from its owner, and its copy constructor makes a
/// clone.
template <class T>
class ComponentManager final : public ComponentManagerBase {
 public:
  T* Add(GameObj* obj) override {
    T* component = new T(obj);
    Store(component, obj);
    return component;
  }
  T* Get(GameObj* obj) override { return Get(obj->id); }
  T* Get(std::uint32_t id) override { return static_cast<T*>(m_map.At(id)); }
  T* AddArchetype(GameObj* obj) override {
    T* component = new T(obj);
    StoreArchetype(component, obj);
    return component;
  }
  T* GetArchetype(std::uint32_t id) override { return static_cast<T*>(m_archetypeMap.At(id)); }
  T* GetArchetype(GameObj* obj) override { return GetArchetype(obj->id); }
  void CloneFromArchetype(GameObj* to, GameObj* from) override {
    StoreCopy(*GetArchetype(from->id), to);
  }
  void CloneFromObject(GameObj* to, GameObj* from) override { StoreCopy(*Get(from->id), to); }

  /// The component of the level object `id`, or null if it has none.
  T* Find(std::uint32_t id) const { return static_cast<T*>(m_map.Find(id)); }
  /// The dense array of level components, in creation order until the first removal.
  ComponentArray<T> Components() const { return ComponentArray<T>(m_components); }
  ComponentArray<T> Archetypes() const { return ComponentArray<T>(m_archetypes); }

 private:
  void StoreCopy(const T& source, GameObj* to) {
    T* copy = new T(source);
    copy->m_owner = to;
    Store(copy, to);
  }
};

/// The registered table of T, or null. Set by the factory, so that GetComponent is one indexed
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
