#include "editor/twins.h"

#include <utility>

#include "editor/leveldocument.h"
#include "jsonunserializer.h"

namespace ZOVEngine {
namespace {

using Allocator = rapidjson::Document::AllocatorType;

constexpr const char* kEnding = "Twin";
constexpr const char* kHazardPrefix = "Environment";
/// What a twin has in common with its hazard; of a zone also what makes it lie beneath the units.
constexpr const char* kShared[] = {"Transform", "Render", "iModel", "Animation",
                                   "EnvironmentDamage"};

bool IsHazard(const Value& record) {
  if (HasKey(record, "UIElement")) return false;
  for (const auto& member : record.GetObject()) {
    if (std::string(member.name.GetString()).rfind(kHazardPrefix, 0) == 0) return true;
  }
  return false;
}

bool Loops(const Value& record) {
  const Value* animation = FindValue(record, "Animation");
  const Value* sheet = animation != nullptr ? FindValue(*animation, "m_loop") : nullptr;
  return sheet != nullptr && sheet->IsString() && sheet->GetStringLength() > 0;
}

std::string Name(const Value& record) {
  const Value* name = FindValue(record, "name");
  return name != nullptr && name->IsString() ? name->GetString() : "";
}

bool HasTwin(const Value& record) {
  return record.IsObject() && Loops(record) && IsHazard(record);
}

bool IsTwin(const Value& record, const Value& hazard) {
  return record.IsObject() && HasTwin(hazard) && Name(record) == Name(hazard) + kEnding;
}

Value* FindChildren(Value* record) {
  if (!record->IsObject()) return nullptr;
  const auto children = record->FindMember(kChildren);
  const bool list = children != record->MemberEnd() && children->value.IsArray();
  return list ? &children->value : nullptr;
}

void AddComponent(Value* record, const char* name, Value fields, Allocator& allocator) {
  (*record)["components"].PushBack(rapidjson::StringRef(name), allocator);
  record->AddMember(rapidjson::StringRef(name), std::move(fields), allocator);
}

Value MakeTwin(const Value& hazard, Allocator& allocator) {
  Value twin(rapidjson::kObjectType);
  const std::string name = Name(hazard) + kEnding;
  twin.AddMember("name", Value(name.c_str(), allocator), allocator);
  const Value* active = FindValue(hazard, "active");
  twin.AddMember("active", active != nullptr ? Value(*active, allocator) : Value(true), allocator);
  twin.AddMember("components", Value(rapidjson::kArrayType), allocator);
  for (const char* component : kShared) {
    const Value* fields = FindValue(hazard, component);
    if (fields != nullptr) AddComponent(&twin, component, Value(*fields, allocator), allocator);
  }
  Value state(rapidjson::kObjectType);
  state.AddMember("m_state", "loop", allocator);
  AddComponent(&twin, "StateC", std::move(state), allocator);
  twin.AddMember(rapidjson::StringRef(kChildren), Value(rapidjson::kArrayType), allocator);
  return twin;
}

void MakeInvisible(Value* twin) {
  const auto render = twin->FindMember("Render");
  if (render == twin->MemberEnd() || !render->value.IsObject()) return;
  const auto colour = render->value.FindMember("m_colour");
  if (colour == render->value.MemberEnd() || !colour->value.IsArray()) return;
  if (colour->value.Size() == 4) colour->value[3].SetDouble(0.0);
}

void UnfoldTwins(Value* records, Allocator& allocator) {
  Value all(rapidjson::kArrayType);
  for (Value& record : records->GetArray()) {
    if (Value* children = FindChildren(&record)) UnfoldTwins(children, allocator);
    if (HasTwin(record)) {
      Value twin = MakeTwin(record, allocator);
      MakeInvisible(&twin);
      all.PushBack(twin, allocator);
    }
    all.PushBack(record, allocator);
  }
  *records = std::move(all);
}

}  // namespace

void FoldTwins(Value* records) {
  for (auto record = records->Begin(); record != records->End();) {
    if (Value* children = FindChildren(record)) FoldTwins(children);
    const bool twin = record + 1 != records->End() && IsTwin(*record, record[1]);
    record = twin ? records->Erase(record) : record + 1;
  }
}

std::string TextWithTwins(const LevelDocument& document) {
  rapidjson::Document copy;
  copy.CopyFrom(document.Json(), copy.GetAllocator());
  UnfoldTwins(&copy[kRoots], copy.GetAllocator());
  return ToText(copy);
}

}  // namespace ZOVEngine
