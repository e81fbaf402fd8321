#include "physics/collidersystem.h"

#include <iostream>

#include "objects/gameobjfactory.h"
#include "objects/reflection.h"

RTTR_REGISTRATION {
  using ZOVEngine::ColliderSystem;
  ZOVEngine::SystemRegistration<ColliderSystem>("ColliderSystem")
      .Method("SetDebug", &ColliderSystem::SetDebug);
}

namespace ZOVEngine {

ColliderSystem* g_collider_system = nullptr;

namespace {

constexpr const char* kCollisionFile = "Resources/CollisionInfo.json";

/// Entry `index` of a list that may be shorter than the list of group names: then the file is
/// unsound.
template <class T>
const T& EntryOf(const std::vector<T>& list, std::size_t index, const char* key) {
  JsonTrail::EnterKey(key);
  if (index >= list.size()) FailReading("shorter than \"str_grp\"");
  return list[index];
}

void WriteTable(Writer& writer, const char* names_key, const char* values_key,
                const std::map<std::string, int>& table) {
  std::vector<std::string> names;
  std::vector<int> values;
  for (const auto& [name, value] : table) {
    names.push_back(name);
    values.push_back(value);
  }
  WriteStringArray(writer, names_key, names);
  WriteIntArray(writer, values_key, values);
}

}  // namespace

ColliderSystem::ColliderSystem() {
  g_collider_system = this;
  g_game_obj_factory->RegisterComponent<ColliderHolder>("ColliderHolder");
  ReadMasks();
}

ColliderSystem::~ColliderSystem() {
  std::cout << "Destructor of ColliderSystem" << '\n';
  WriteMasks();
  g_collider_system = nullptr;
}

void ColliderSystem::ReadMasks() {
  JsonDocument document;
  document.Open(kCollisionFile);
  document.Parse();
  std::vector<std::string> groups;
  std::vector<int> group_numbers;
  std::vector<std::string> categories;
  std::vector<int> masks;
  ReadStringArray(document.Root(), "str_grp", &groups);
  ReadIntArray(document.Root(), "int_grp", &group_numbers);
  ReadStringArray(document.Root(), "str_bm", &categories);
  ReadIntArray(document.Root(), "int_bm", &masks);
  m_groups.clear();
  m_masks.clear();
  for (std::size_t i = 0; i < groups.size(); ++i) {
    m_groups[groups[i]] = EntryOf(group_numbers, i, "int_grp");
    m_masks[EntryOf(categories, i, "str_bm")] = EntryOf(masks, i, "int_bm");
  }
}

void ColliderSystem::WriteMasks() const {
  JsonWriter file;
  file.Open(kCollisionFile);
  Writer& writer = file.Out();
  writer.json->StartObject();
  WriteTable(writer, "str_grp", "int_grp", m_groups);
  WriteTable(writer, "str_bm", "int_bm", m_masks);
  writer.json->EndObject();
  file.Close();
}

void ColliderSystem::Init() {
  m_holders = FetchTable<ColliderHolder>();
  m_transforms = FetchTable<Transform>();
}

void ColliderSystem::Update(float) {}

void ColliderSystem::SetDebug(bool debug) {
  for (ColliderHolder* holder : m_holders->Components()) holder->SetDebug(debug);
}

}  // namespace ZOVEngine
