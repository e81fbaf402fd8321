#include "objects/gameobjfactory.h"

#include <algorithm>
#include <iostream>

#include "core/base/profile.h"
#include "core/messages.h"
#include "objects/playercreator.h"
#include "objects/reflection.h"

ZOV_REGISTRATION(GameObjFactory) {
  using ZOVEngine::GameObjFactory;
  ZOVEngine::SystemRegistration<GameObjFactory>("GameObjFactory");
}

namespace ZOVEngine {

GameObjFactory* g_game_obj_factory = nullptr;
TableMap* g_component_tables = nullptr;

namespace {

template <class Entry>
const Entry& AtOrThrow(const std::unordered_map<ComponentType, Entry>& map, ComponentType type) {
  const auto found = map.find(type);
  if (found == map.end()) throw std::out_of_range("invalid unordered_map<K, T> key");
  return found->second;
}

}  // namespace

GameObjFactory::GameObjFactory() {
  g_game_obj_factory = this;
  g_component_tables = &m_tables;
}

// NOLINTNEXTLINE(bugprone-exception-escape): the tables have every component of its own objects.
GameObjFactory::~GameObjFactory() {
  ClearObjects();
  for (GameObj* archetype : m_archetypeObjects) {
    RemoveComponents(archetype);
    delete archetype;
  }
  for (void (*forget)() : m_forget_tables) forget();
  g_component_tables = nullptr;
  g_game_obj_factory = nullptr;
}

void GameObjFactory::Init() {
  m_creators[kPlayerCreator] = std::make_shared<PlayerCreator>();
  RegisterBuiltInTables();
}

void GameObjFactory::Update(float) {
  RecordProfile("GameObject", static_cast<float>(m_objects.size()), false);
}

void GameObjFactory::SendMessage(Message* message) {
  if (message->id != kObjectOrder) return;
  for (const ObjectOrder::Entry& entry : dynamic_cast<ObjectOrder&>(*message).entries) {
    for (std::uint32_t i = 0; i < entry.count; ++i) Create(entry.creatorType);
  }
}

void GameObjFactory::AddTable(ComponentType type, const std::string& name,
                              ComponentManagerBase* table, AddFunction add) {
  m_tables[type] = std::shared_ptr<ComponentManagerBase>(table);
  m_typeNames[type] = name;
  m_addFunctions[name] = add;
}

GameObj* GameObjFactory::Create(std::uint32_t creatorType) {
  const auto creator = m_creators.find(creatorType);
  ZOV_ASSERT(creator != m_creators.end(), "No creator of type " + std::to_string(creatorType));
  GameObj* object = creator->second->Create(static_cast<std::uint32_t>(m_objects.size()));
  m_objects.push_back(object);
  return object;
}

void GameObjFactory::LoadArchetype(const std::string& name, const std::string& path) {
  if (HasArchetype(name)) return;
  JsonDocument document;
  document.Open(path);
  document.Parse();
  m_archetypes[name] = ReadArchetype(document.Root());
}

void GameObjFactory::LoadObjects(const std::string& path) {
  JsonDocument document;
  document.Open(path);
  document.Parse();
  if (!document.Root().IsObject()) {
    std::cout << path << " Not Object" << '\n';
    return;
  }
  const Value& records = RequireValue(document.Root(), "GameObjFactory");
  if (!records.IsArray()) FailReading("expected an array");
  for (const Value& record : records.GetArray()) ReadObject(record);
}

GameObj* GameObjFactory::ReadArchetype(const Value& record) {
  return ReadRecord(record, true);
}

GameObj* GameObjFactory::ReadObject(const Value& record) {
  return ReadRecord(record, false);
}

GameObj* GameObjFactory::ReadRecord(const Value& record, bool archetype) {
  std::string name;
  ReadValue(record, "name", &name);
  const JsonTrail::ObjectScope scope(name);
  std::vector<GameObj*>& home = archetype ? m_archetypeObjects : m_objects;

  auto owned = std::make_unique<GameObj>();
  GameObj* object = owned.get();
  object->id = static_cast<std::uint32_t>(home.size());
  object->name = name;
  object->isArchetype = archetype;
  if (!archetype) {
    // Now, while there are no components: a file's "active" marks the object alone, and its
    // components stay active and visible until the next call of SetActive. Level data relies on it.
    bool active = false;
    ReadValue(record, "active", &active);
    object->SetActive(active);
  }
  std::vector<std::string> names;
  ReadStringArray(record, "components", &names);
  home.push_back(owned.release());
  ReadComponents(record, names, object);
  ReadChildren(record, object);
  return object;
}

AddFunction GameObjFactory::FindAddFunction(const std::string& name, bool archetype) const {
  const auto found = m_addFunctions.find(name);
  if (found != m_addFunctions.end()) return found->second;
  // An archetype may name components of another version; a level may not.
  if (!archetype) {
    FailReading("component \"" + name + "\" is unknown: invalid unordered_map<K, T> key");
  }
  return nullptr;
}

void GameObjFactory::ReadComponents(const Value& record, const std::vector<std::string>& names,
                                    GameObj* object) {
  for (const std::string& name : names) {
    JsonTrail::EnterComponent(name.c_str());
    const AddFunction add = FindAddFunction(name, object->isArchetype);
    if (add == nullptr) continue;
    const Value* fields = FindValue(record, name.c_str());
    if (fields == nullptr) FailReading("the component is listed but its key is missing");
    if (std::count(names.begin(), names.end(), name) > 1)
      FailReading("the component is listed twice");
    add(object);
    ComponentManagerBase& table = Table(object->components.back());
    GameComponentBase* component =
        object->isArchetype ? table.GetArchetype(object) : table.Get(object);
    component->Unserialize(*fields);
  }
  JsonTrail::EnterComponent("");
}

void GameObjFactory::ReadChildren(const Value& record, GameObj* object) {
  const Value& children = RequireValue(record, "Childs");
  if (!children.IsArray()) FailReading("expected an array");
  for (const Value& child_record : children.GetArray()) {
    GameObj* child = ReadRecord(child_record, object->isArchetype);
    object->children.push_back(child);
    child->parent = object;
  }
}

GameObj* GameObjFactory::Instantiate(const std::string& archetypeName, bool active) {
  const auto archetype = m_archetypes.find(archetypeName);
  ZOV_ASSERT(archetype != m_archetypes.end(),
             "Resources/Archetypes/GameObjects: no archetype \"" + archetypeName + "\"");
  return Clone(archetype->second, active);
}

GameObj* GameObjFactory::Clone(GameObj* source, bool active) {
  auto* copy = new GameObj(*source);
  copy->id = static_cast<std::uint32_t>(m_objects.size());
  copy->isArchetype = false;
  m_objects.push_back(copy);
  for (const ComponentType type : source->components) {
    if (source->isArchetype) {
      Table(type).CloneFromArchetype(copy, source);
    } else {
      Table(type).CloneFromObject(copy, source);
    }
  }
  for (std::size_t i = 0; i < source->children.size(); ++i) {
    copy->children[i] = Clone(source->children[i], active);
    copy->children[i]->parent = copy;
  }
  copy->parent = nullptr;
  copy->SetActive(active);
  return copy;
}

void GameObjFactory::Destroy(std::uint32_t id) {
  GameObj* object = m_objects.at(id);
  if (object->parent != nullptr) {
    std::vector<GameObj*>& siblings = object->parent->children;
    siblings.erase(std::remove(siblings.begin(), siblings.end(), object), siblings.end());
  }
  // A destroy moves ids, its own object's included, so the object is found by its own id each
  // round.
  while (!object->children.empty()) {
    GameObj* child = object->children.front();
    object->children.erase(object->children.begin());
    child->parent = nullptr;
    Destroy(child->id);
  }
  const std::uint32_t own_id = object->id;
  RemoveComponents(object);
  delete object;
  MoveLastTo(own_id);
}

void GameObjFactory::RemoveComponents(GameObj* object) {
  for (const ComponentType type : object->components) Table(type).Remove(object);
}

void GameObjFactory::MoveLastTo(std::uint32_t id) {
  const auto last = static_cast<std::uint32_t>(m_objects.size() - 1);
  if (id != last) {
    GameObj* moved = m_objects[last];
    m_objects[id] = moved;
    moved->id = id;
    for (const ComponentType type : moved->components) Table(type).ChangeId(last, id);
  }
  m_objects.pop_back();
}

void GameObjFactory::ClearObjects() {
  for (GameObj*& object : m_objects) {
    if (object == nullptr) continue;
    RemoveComponents(object);
    delete object;
    object = nullptr;
  }
  for (const auto& forget : m_clear_listeners) forget();
  m_objects.clear();
  ++m_clear_count;
}

const std::shared_ptr<ComponentManagerBase>& FetchTable(ComponentType type) {
  return AtOrThrow(*g_component_tables, type);
}

ComponentManagerBase& GameObjFactory::Table(ComponentType type) const {
  return *AtOrThrow(m_tables, type);
}

const std::string& GameObjFactory::TypeName(ComponentType type) const {
  return AtOrThrow(m_typeNames, type);
}

namespace {

void WriteComponentNames(Writer& writer, const GameObj& object) {
  WriteKey(writer, "components");
  writer.json->StartArray();
  for (const ComponentType type : object.components) {
    writer.json->String(g_game_obj_factory->TypeName(type));
  }
  writer.json->EndArray();
}

void WriteComponents(Writer& writer, GameObj* object) {
  for (const ComponentType type : object->components) {
    ComponentManagerBase& table = g_game_obj_factory->Table(type);
    WriteKey(writer, g_game_obj_factory->TypeName(type).c_str());
    writer.json->StartObject();
    (object->isArchetype ? table.GetArchetype(object) : table.Get(object))->Serialize(writer);
    writer.json->EndObject();
  }
}

}  // namespace

void WriteObject(Writer& writer, GameObj* object) {
  writer.json->StartObject();
  WriteValue(writer, "name", object->name);
  WriteValue(writer, "active", object->active);
  WriteComponentNames(writer, *object);
  WriteComponents(writer, object);
  WriteKey(writer, "Childs");
  writer.json->StartArray();
  for (GameObj* child : object->children) WriteObject(writer, child);
  writer.json->EndArray();
  writer.json->EndObject();
}

}  // namespace ZOVEngine
