#include "editor/twins.h"

#include <utility>

#include "editor/leveldocument.h"
#include "jsonunserializer.h"

namespace ZOVEngine {
namespace {

using Allocator = rapidjson::Document::AllocatorType;

constexpr const char* kEnding = "Twin";
constexpr const char* kHazardPrefix = "Environment";
/// What a twin has in common with its sprite; of a zone also what makes it lie beneath the units.
constexpr const char* kShared[] = {"Transform", "Render", "iModel", "Animation",
                                   "EnvironmentDamage"};

bool IsHazard(const Value& record) {
  for (const auto& member : record.GetObject()) {
    if (std::string(member.name.GetString()).rfind(kHazardPrefix, 0) == 0) return true;
  }
  return false;
}

/// The sheet of a record's looping animation; empty without one.
std::string LoopSheet(const Value& record) {
  const Value* animation = record.IsObject() ? FindValue(record, "Animation") : nullptr;
  const Value* sheet = animation != nullptr ? FindValue(*animation, "m_loop") : nullptr;
  return sheet != nullptr && sheet->IsString() ? sheet->GetString() : "";
}

std::string Name(const Value& record) {
  const Value* name = FindValue(record, "name");
  return name != nullptr && name->IsString() ? name->GetString() : "";
}

Value* FindColour(Value* record) {
  const auto render = record->FindMember("Render");
  if (render == record->MemberEnd() || !render->value.IsObject()) return nullptr;
  const auto colour = render->value.FindMember("m_colour");
  if (colour == render->value.MemberEnd() || !colour->value.IsArray()) return nullptr;
  return colour->value.Size() == 4 ? &colour->value : nullptr;
}

bool MayHaveTwin(const Value& record) {
  return !LoopSheet(record).empty() && !HasKey(record, "UIElement");
}

bool IsTwin(const Value& record, const Value& sprite) {
  return record.IsObject() && MayHaveTwin(sprite) && Name(record) == Name(sprite) + kEnding;
}

/// A hazard's neighbours may go, so that only a twin of its own is sure to be drawn before it.
bool NeedsTwin(const Value& record, const std::string& sheet_before) {
  return MayHaveTwin(record) && (IsHazard(record) || LoopSheet(record) != sheet_before);
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

Value MakeTwin(const Value& sprite, Allocator& allocator) {
  Value twin(rapidjson::kObjectType);
  const std::string name = Name(sprite) + kEnding;
  twin.AddMember("name", Value(name.c_str(), allocator), allocator);
  const Value* active = FindValue(sprite, "active");
  twin.AddMember("active", active != nullptr ? Value(*active, allocator) : Value(true), allocator);
  twin.AddMember("components", Value(rapidjson::kArrayType), allocator);
  for (const char* component : kShared) {
    const Value* fields = FindValue(sprite, component);
    if (fields != nullptr) AddComponent(&twin, component, Value(*fields, allocator), allocator);
  }
  Value state(rapidjson::kObjectType);
  state.AddMember("m_state", "loop", allocator);
  AddComponent(&twin, "StateC", std::move(state), allocator);
  twin.AddMember(rapidjson::StringRef(kChildren), Value(rapidjson::kArrayType), allocator);
  return twin;
}

/// A sprite that is switched off is not drawn at all; a twin is, with an alpha of 0.
void MakeInvisible(Value* twin) {
  Value* colour = FindColour(twin);
  if (colour == nullptr) return;
  (*colour)[3].SetDouble(0.0);
  const auto visible = (*twin)["Render"].FindMember("m_visible");
  if (visible != (*twin)["Render"].MemberEnd()) visible->value.SetBool(true);
}

void UnfoldTwins(Value* records, Allocator& allocator) {
  Value all(rapidjson::kArrayType);
  std::string sheet_before;
  for (Value& record : records->GetArray()) {
    if (Value* children = FindChildren(&record)) UnfoldTwins(children, allocator);
    if (NeedsTwin(record, sheet_before)) {
      Value twin = MakeTwin(record, allocator);
      MakeInvisible(&twin);
      all.PushBack(twin, allocator);
    }
    sheet_before = LoopSheet(record);
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
