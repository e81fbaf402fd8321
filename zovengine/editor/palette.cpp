#include "editor/palette.h"

#include "core/base/wholefile.h"
#include "jsonunserializer.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <iterator>
#include <string_view>

#include "editor/leveldocument.h"
#include "editor/twins.h"

namespace ZOVEngine {
namespace {

namespace fs = std::filesystem;
using rapidjson::Document;

constexpr const char* kFolder = "Resources/Archetypes/Palette";
constexpr const char* kNewLevel = "Resources/Archetypes/Palette/newlevel.json";
constexpr std::array<std::string_view, 6> kCategories = {"Units",  "Weapons", "Hazards",
                                                         "Lights", "Things",  "Decor"};
constexpr std::array<const char*, 4> kInterfaceParts = {"UIElement", "Button", "Font", "Camera"};

Document ReadJson(const std::string& path) {
  const std::string text = ReadWholeFile(path).value_or("");
  Document json;
  json.Parse<rapidjson::kParseIterativeFlag>(text.c_str(), text.size());
  return json;
}

std::string ReadText(const Value& object, const char* key) {
  const Value* value = FindValue(object, key);
  return value != nullptr && value->IsString() ? value->GetString() : "";
}

/// Reads an entry; false if the file has none of the palette's form.
bool ReadEntry(Document json, PaletteEntry* entry) {
  const Value* found = FindValue(json, "Objects");
  if (found == nullptr || !found->IsArray() || found->Empty()) return false;
  Value* objects = &json["Objects"];
  FoldTwins(objects);
  entry->name = ReadText(json, "Name");
  entry->category = ReadText(json, "Category");
  entry->image = ReadText(json, "Image");
  entry->player_gun = ReadText(json, "PlayerGun");
  entry->enemy_gun = ReadText(json, "EnemyGun");
  const Value* frames = FindValue(json, "Frames");
  if (frames != nullptr && frames->IsInt()) entry->frames = std::max(1, frames->GetInt());
  for (const Value& record : objects->GetArray()) entry->records.push_back(ToText(record));
  return !entry->name.empty() && !entry->category.empty();
}

std::vector<std::string> PaletteFiles() {
  std::vector<std::string> paths;
  std::error_code failed;
  for (const fs::directory_entry& file : fs::directory_iterator(kFolder, failed)) {
    const std::string path = std::string(kFolder) + "/" + file.path().filename().string();
    if (file.path().extension() == ".json" && path != kNewLevel) paths.push_back(path);
  }
  std::sort(paths.begin(), paths.end());
  return paths;
}

/// The place of a category in the list; those that are not known come last.
std::size_t Rank(const PaletteEntry& entry) {
  return static_cast<std::size_t>(
      std::find(kCategories.begin(), kCategories.end(), entry.category) - kCategories.begin());
}

bool IsUnitRecord(const Value& record) {
  return HasKey(record, "Player") || HasKey(record, "Enemy");
}

/// A piece of the interface, or an image among its pieces, which has their names' start.
bool IsInterface(const Value& record) {
  if (ReadText(record, "name").compare(0, 3, "ui_") == 0) return true;
  return std::any_of(kInterfaceParts.begin(), kInterfaceParts.end(),
                     [&record](const char* part) { return HasKey(record, part); });
}

/// The sum of the places of the object at `path` and of those above it, along one axis.
float PlaceOfParents(const LevelDocument& document, ObjectPath path, rapidjson::SizeType axis) {
  float sum = 0.0f;
  for (; !path.empty(); path.pop_back()) {
    const Value* transform = FindValue(*document.Find(path), "Transform");
    if (transform != nullptr) sum += ToFloat((*transform)["m_pos"][axis]);
  }
  return sum;
}

Value* FindChild(Value& record, const std::string& name) {
  for (Value& child : record["Childs"].GetArray()) {
    if (ReadText(child, "name") == name) return &child;
  }
  return nullptr;
}

void SetTexture(Value& record, const std::string& key, Document::AllocatorType& allocator) {
  const auto render = record.FindMember("Render");
  if (render == record.MemberEnd()) return;
  for (const char* field : {"m_tex", "m_hl_tex"}) {
    render->value[field].SetString(key.c_str(), allocator);
  }
}

}  // namespace

std::vector<PaletteEntry> LoadPalette(std::vector<std::string>* faults) {
  std::vector<PaletteEntry> entries;
  for (const std::string& path : PaletteFiles()) {
    PaletteEntry entry;
    if (ReadEntry(ReadJson(path), &entry)) {
      entries.push_back(std::move(entry));
    } else {
      faults->push_back(path + " is no entry of the palette.");
    }
  }
  std::stable_sort(entries.begin(), entries.end(),
                   [](const PaletteEntry& a, const PaletteEntry& b) { return Rank(a) < Rank(b); });
  return entries;
}

std::string NewLevelText(const std::string& level_path) {
  Document json = ReadJson(kNewLevel);
  const Value* objects = FindValue(json, "Objects");
  if (objects == nullptr || !objects->IsArray()) return kNoObjects;
  Document level(rapidjson::kObjectType);
  auto& allocator = level.GetAllocator();
  level.AddMember("GameObjFactory", Value(*objects, allocator), allocator);
  for (Value& record : level["GameObjFactory"].GetArray()) {
    const auto controller = record.FindMember("GameController");
    if (controller == record.MemberEnd()) continue;
    controller->value["m_level_map"].SetString(level_path.c_str(), allocator);
  }
  return ToText(level);
}

ObjectPath FindLevelRoot(const LevelDocument& document) {
  const Value* roots = document.Children({});
  for (std::uint32_t i = 0; i < roots->Size(); ++i) {
    if (HasKey((*roots)[i], "GameController")) return {i};
  }
  return {};
}

std::size_t PlaceInLevel(const LevelDocument& document, const ObjectPath& root,
                         const std::string& category) {
  const Value* children = document.Children(root);
  if (children == nullptr || category == "Decor") return 0;
  const auto list = children->GetArray();
  const auto front = std::find_if(list.begin(), list.end(), IsInterface);
  auto place = std::find_if(list.begin(), front, IsUnitRecord);
  if (category == "Units") {
    for (auto unit = place; unit != front; ++unit) {
      if (IsUnitRecord(*unit)) place = unit + 1;
    }
  }
  return static_cast<std::size_t>(place - list.begin());
}

std::string PlaceRecord(const LevelDocument& document, const ObjectPath& parent,
                        const std::string& record, float x, float y) {
  Document json;
  json.Parse(record.c_str(), record.size());
  const auto transform = json.FindMember("Transform");
  if (transform == json.MemberEnd()) return record;
  Value& position = transform->value["m_pos"];
  position[0].SetDouble(x - PlaceOfParents(document, parent, 0));
  position[1].SetDouble(y - PlaceOfParents(document, parent, 1));
  return ToText(json);
}

std::string FaceMiddle(const std::string& record, float x) {
  constexpr double kRight = -90.0, kLeft = 90.0;  // (unit: degrees)
  Document json;
  ParseExactly(&json, record);
  if (!json.IsObject() || !IsUnitRecord(json) || !HasKey(json, "Transform")) return record;
  const bool right = x < 0.0f || (x == 0.0f && HasKey(json, "Player"));
  Value& transform = json["Transform"];
  for (const char* key : {"m_rotate", "m_world_rotate"}) {
    const auto field = transform.FindMember(key);
    if (field != transform.MemberEnd()) field->value.SetDouble(right ? kRight : kLeft);
  }
  return ToText(json);
}

std::string EquipUnit(const std::string& unit, int hand, const PaletteEntry& weapon) {
  Document json;
  json.Parse(unit.c_str(), unit.size());
  if (!json.IsObject() || !IsUnitRecord(json) || weapon.records.empty()) return "";
  const std::string number = std::to_string(hand);
  const std::string shot_name = "Weapon" + number + "Projectile";
  Value* shot = FindChild(json, shot_name);
  Value* gun = FindChild(json, "Weapon" + number + "Barrel");
  if (shot == nullptr || gun == nullptr) return "";
  auto& allocator = json.GetAllocator();
  Document fresh(&allocator);
  fresh.Parse(weapon.records.front().c_str(), weapon.records.front().size());
  *shot = static_cast<Value&>(fresh);
  (*shot)["name"].SetString(shot_name.c_str(), allocator);
  SetTexture(*gun, HasKey(json, "Player") ? weapon.player_gun : weapon.enemy_gun, allocator);
  return ToText(json);
}

}  // namespace ZOVEngine
