#include "editor/leveldocument.h"

#include <utility>

namespace ZOVEngine {
namespace {

constexpr const char* kOwnFields[] = {"name", "active"};
constexpr std::size_t kWaste = 8;  ///< a document may use this many times its own memory

bool IsObjectFile(const rapidjson::Document& json) {
  if (json.HasParseError()) return false;
  const Value* roots = FindValue(json, kRoots);
  return roots != nullptr && roots->IsArray();
}

Value* FindMutable(rapidjson::Document& json, const ObjectPath& path) {
  Value* list = &json[kRoots];
  Value* record = nullptr;
  for (const std::uint32_t place : path) {
    if (list == nullptr || place >= list->Size()) return nullptr;
    record = &(*list)[place];
    const auto children = record->FindMember(kChildren);
    list = children != record->MemberEnd() ? &children->value : nullptr;
  }
  return record;
}

}  // namespace

void ParseExactly(rapidjson::Document* document, const std::string& text) {
  constexpr unsigned kFlags = rapidjson::kParseIterativeFlag | rapidjson::kParseFullPrecisionFlag;
  document->Parse<kFlags>(text.c_str(), text.size());
}

std::string ToText(const Value& value) {
  JsonWriter writer;
  value.Accept(*writer.Out().json);
  return writer.Text();
}

LevelDocument::LevelDocument() {
  SetText(kNoObjects);
}

bool LevelDocument::SetText(const std::string& text) {
  rapidjson::Document json;
  ParseExactly(&json, text);
  if (!IsObjectFile(json)) return false;
  m_json = std::move(json);
  m_compact_size = m_json.GetAllocator().Capacity();
  return true;
}

std::string LevelDocument::Text() const {
  return ToText(m_json);
}

const Value* LevelDocument::Children(const ObjectPath& path) const {
  if (path.empty()) return &m_json[kRoots];
  const Value* record = Find(path);
  return record != nullptr ? FindValue(*record, kChildren) : nullptr;
}

const Value* LevelDocument::Find(const ObjectPath& path) const {
  const Value* list = &m_json[kRoots];
  const Value* record = nullptr;
  for (const std::uint32_t place : path) {
    if (list == nullptr || place >= list->Size()) return nullptr;
    record = &(*list)[place];
    list = FindValue(*record, kChildren);
  }
  return record;
}

std::string LevelDocument::Name(const ObjectPath& path) const {
  const Value* record = Find(path);
  const Value* name = record != nullptr ? FindValue(*record, "name") : nullptr;
  return name != nullptr && name->IsString() ? name->GetString() : "";
}

std::vector<std::string> LevelDocument::Components(const ObjectPath& path) const {
  std::vector<std::string> names;
  const Value* record = Find(path);
  const Value* list = record != nullptr ? FindValue(*record, "components") : nullptr;
  if (list == nullptr) return names;
  for (const Value& name : list->GetArray()) names.emplace_back(name.GetString());
  return names;
}

std::string LevelDocument::Fields(const ObjectPath& path, const std::string& component) const {
  const Value* record = Find(path);
  if (record == nullptr) return "";
  if (!component.empty()) {
    const Value* fields = FindValue(*record, component.c_str());
    return fields != nullptr ? ToText(*fields) : "";
  }
  rapidjson::Document own(rapidjson::kObjectType);
  for (const char* key : kOwnFields) {
    const Value* value = FindValue(*record, key);
    if (value == nullptr) continue;
    own.AddMember(rapidjson::StringRef(key), Value(*value, own.GetAllocator()), own.GetAllocator());
  }
  return ToText(own);
}

void LevelDocument::SetFields(const ObjectPath& path, const std::string& component,
                              const std::string& fields) {
  Value* record = FindMutable(m_json, path);
  if (record == nullptr) return;
  rapidjson::Document value(&m_json.GetAllocator());
  ParseExactly(&value, fields);
  if (value.HasParseError()) return;
  if (!component.empty()) {
    const auto old = record->FindMember(component.c_str());
    if (old != record->MemberEnd()) old->value = static_cast<Value&>(value);
  } else {
    for (const char* key : kOwnFields) {
      if (value.HasMember(key)) (*record)[key] = value[key];
    }
  }
  Compact();
}

void LevelDocument::Compact() {
  if (m_json.GetAllocator().Size() < kWaste * m_compact_size) return;
  rapidjson::Document fresh;
  fresh.CopyFrom(m_json, fresh.GetAllocator());
  m_json = std::move(fresh);
  m_compact_size = m_json.GetAllocator().Capacity();
}

}  // namespace ZOVEngine
