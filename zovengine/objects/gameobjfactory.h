#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "core/system.h"
#include "gameobj.h"
#include "jsonunserializer.h"
#include "objects/componentmanager.h"
#include "objects/typelist.h"

namespace ZOVEngine {

/// A strategy that builds one kind of object in code.
class GameObjCreator {
 public:
  /// Makes the object with `id`; the caller owns it.
  virtual GameObj* Create(std::uint32_t id) = 0;
  virtual ~GameObjCreator() = default;
};

/// Adds the component of one class to an object.
using AddFunction = void (*)(GameObj*);

/// The tables by component type.
using TableMap = std::unordered_map<ComponentType, std::shared_ptr<ComponentManagerBase>>;

/// The system that owns every game object and every archetype, and knows every component table.
///
/// An archetype is a template read once at start-up; level objects come from object files, and
/// objects made at run time are clones of archetypes. An object's id is its index in `m_objects`.
/// During play nothing is destroyed one by one: objects are switched off, and a state change clears
/// them all.
class GameObjFactory final : public System {
  RTTR_ENABLE(System)

 public:
  /// Sets g_game_obj_factory and g_component_tables.
  GameObjFactory();
  /// Clears the objects, then deletes the archetypes, then releases the tables.
  // NOLINTNEXTLINE(bugprone-exception-escape): the tables have every component of its own objects.
  ~GameObjFactory() override;

  /// Makes the table of T under the class name `name`, in place of one that was there.
  template <class T>
  void RegisterComponent(const std::string& name);
  /// Makes the tables of all listed classes, each under the name of its class.
  template <class... T>
  void RegisterComponents(TypeList<T...>) {
    (RegisterComponent<T>(ClassName<T>()), ...);
  }

  /// Registers the creators and the factory's own tables.
  void Init() override;
  /// Records the number of level objects as "GameObject".
  void Update(float dt) override;
  /// Takes ObjectOrder.
  void SendMessage(Message* message) override;

  /// Builds an object with the creator of `creatorType`, which must exist, and appends it.
  GameObj* Create(std::uint32_t creatorType);
  /// Reads the archetype file at `path` and stores it under `name`, unless the name is taken.
  void LoadArchetype(const std::string& name, const std::string& path);
  /// Makes an archetype with its descendants from an object record.
  GameObj* ReadArchetype(const Value& record);
  /// Makes a level object with its descendants from an object record.
  GameObj* ReadObject(const Value& record);
  /// Reads all objects of an object file. A root that is no JSON object prints the path and
  /// " Not Object" and loads nothing.
  void LoadObjects(const std::string& path);
  /// Clones the archetype `archetypeName`, which must exist, and switches the clone on or off.
  GameObj* Instantiate(const std::string& archetypeName, bool active);
  /// Copies `source` and its descendants to new level objects, parents before children; the new
  /// root has no parent.
  GameObj* Clone(GameObj* source, bool active);
  /// Destroys a level object and its descendants. The last object takes the freed id, so ids that
  /// were kept across a call may name another object.
  void Destroy(std::uint32_t id);
  /// Destroys all level objects and lets the listeners of OnClear forget them.
  void ClearObjects();

  /// Calls `forget` in every ClearObjects; it lives as long as the factory.
  void OnClear(std::function<void()> forget) { m_clear_listeners.push_back(std::move(forget)); }

  /// The table of a component type; throws std::out_of_range "invalid unordered_map<K, T> key" when
  /// the type was never registered.
  ComponentManagerBase& Table(ComponentType type) const;
  /// The class name of a component type, for files; throws as Table.
  const std::string& TypeName(ComponentType type) const;
  /// Grows with every ClearObjects, for ClearWatch.
  std::uint64_t ClearCount() const { return m_clear_count; }
  bool HasArchetype(const std::string& name) const { return m_archetypes.count(name) != 0; }

  std::vector<GameObj*> m_objects;           ///< level objects; the index is the id
  std::vector<GameObj*> m_archetypeObjects;  ///< archetypes, children too; the index is the id

 private:
  /// Registers the tables that belong to no other system. Stands in core/app, where their classes
  /// are known.
  void RegisterBuiltInTables();
  void AddTable(ComponentType type, const std::string& name, ComponentManagerBase* table,
                AddFunction add);
  GameObj* ReadRecord(const Value& record, bool archetype);
  void ReadComponents(const Value& record, const std::vector<std::string>& names, GameObj* object);
  void ReadChildren(const Value& record, GameObj* object);
  AddFunction FindAddFunction(const std::string& name, bool archetype) const;
  void RemoveComponents(GameObj* object);
  void MoveLastTo(std::uint32_t id);

  std::unordered_map<std::uint32_t, std::shared_ptr<GameObjCreator>> m_creators;
  TableMap m_tables;
  std::unordered_map<ComponentType, std::string> m_typeNames;
  std::unordered_map<std::string, AddFunction> m_addFunctions;
  std::unordered_map<std::string, GameObj*> m_archetypes;
  std::vector<std::function<void()>> m_clear_listeners;
  std::vector<void (*)()> m_forget_tables;
  std::uint64_t m_clear_count = 0;
};

extern GameObjFactory* g_game_obj_factory;
extern TableMap* g_component_tables;

/// The registered table of a component type with shared ownership; throws as GameObjFactory::Table.
const std::shared_ptr<ComponentManagerBase>& FetchTable(ComponentType type);

template <class T>
void GameObjFactory::RegisterComponent(const std::string& name) {
  auto* table = new ComponentManager<T>;
  AddTable(&typeid(T), name, table, &AddComponent<T>);
  g_component_table<T> = table;
  m_forget_tables.push_back([] { g_component_table<T> = nullptr; });
}

/// The registered table of T with shared ownership, as systems hold it; throws as
/// GameObjFactory::Table.
template <class T>
std::shared_ptr<ComponentManager<T>> FetchTable() {
  return std::static_pointer_cast<ComponentManager<T>>(FetchTable(&typeid(T)));
}

/// Tells whether all objects were destroyed since it was made: then nothing may be touched any
/// more.
class ClearWatch {
 public:
  bool Cleared() const { return g_game_obj_factory->ClearCount() != m_before; }

 private:
  std::uint64_t m_before = g_game_obj_factory->ClearCount();
};

/// Writes an object record: name, active, components, one key a component, and the children.
void WriteObject(Writer& writer, GameObj* object);

}  // namespace ZOVEngine
