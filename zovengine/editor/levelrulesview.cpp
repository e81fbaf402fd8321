#include "editor/levelrulesview.h"

#include <algorithm>
#include <iterator>

namespace ZOVEngine {
namespace {

constexpr const char* kShots[] = {"ProjectileDefault", "ProjectileBounce", "ProjectileExplosion",
                                  "ProjectilePierce",  "ProjectilePush",   "ProjectileSwap",
                                  "ProjectileVacuum"};
constexpr const char* kRecordChildren = "Childs";

const Value* ArrayIn(const Value& object, const char* key) {
  const Value* value = FindValue(object, key);
  return value != nullptr && value->IsArray() ? value : nullptr;
}

std::string_view View(const Value& text) {
  return {text.GetString(), text.GetStringLength()};
}

std::vector<std::pair<std::string_view, const Value*>> ListedParts(const Value& record) {
  std::vector<std::pair<std::string_view, const Value*>> parts;
  const Value* listed = ArrayIn(record, "components");
  if (listed == nullptr) return parts;
  parts.reserve(listed->Size());
  for (const Value& name : listed->GetArray()) {
    if (!name.IsString()) continue;
    if (const Value* part = FindValue(record, name.GetString()))
      parts.emplace_back(View(name), part);
  }
  return parts;
}

Vector3D ToVector(const Value& value) {
  return Vector3D(NumberIn(&value[0], 0.0f), NumberIn(&value[1], 0.0f), NumberIn(&value[2], 0.0f));
}

}  // namespace

float NumberIn(const Value* value, float otherwise) {
  return value != nullptr && value->IsNumber() ? ToFloat(*value) : otherwise;
}

int WholeIn(const Value* value, int otherwise) {
  return value != nullptr && value->IsNumber() ? ToInt(*value) : otherwise;
}

bool IsVector(const Value& value) {
  if (!value.IsArray() || value.Size() != 3) return false;
  return value[0].IsNumber() && value[1].IsNumber() && value[2].IsNumber();
}

std::string_view TextIn(const Value& object, const char* key, std::string_view otherwise) {
  const Value* value = FindValue(object, key);
  return value != nullptr && value->IsString() ? View(*value) : otherwise;
}

ObjectView::ObjectView(const Value& value, LevelFile in_file, std::uint32_t place,
                       const ObjectView* above)
    : record(&value),
      name(TextIn(value, "name", "")),
      active(FindValue(value, "active") != nullptr && FindValue(value, "active")->IsTrue()),
      parent(above),
      file(in_file),
      index(place),
      m_parts(ListedParts(value)) {}

const Value* ObjectView::Part(std::string_view component) const {
  for (const auto& [listed, part] : m_parts) {
    if (listed == component) return part;
  }
  return nullptr;
}

float ObjectView::Number(const char* component, const char* key, float otherwise) const {
  const Value* part = Part(component);
  return part == nullptr ? otherwise : NumberIn(FindValue(*part, key), otherwise);
}

int ObjectView::Whole(const char* component, const char* key, int otherwise) const {
  const Value* part = Part(component);
  return part == nullptr ? otherwise : WholeIn(FindValue(*part, key), otherwise);
}

bool ObjectView::Flag(const char* component, const char* key, bool otherwise) const {
  const Value* part = Part(component);
  const Value* value = part == nullptr ? nullptr : FindValue(*part, key);
  return value == nullptr ? otherwise : value->IsTrue();
}

std::string_view ObjectView::Text(const char* component, const char* key,
                                  const char* otherwise) const {
  const Value* part = Part(component);
  return part == nullptr ? otherwise : TextIn(*part, key, otherwise);
}

Vector3D ObjectView::Vector(const char* component, const char* key,
                            const Vector3D& otherwise) const {
  const Value* part = Part(component);
  const Value* value = part == nullptr ? nullptr : FindValue(*part, key);
  return value == nullptr || !IsVector(*value) ? otherwise : ToVector(*value);
}

std::vector<Vector3D> ObjectView::Vectors(const char* component, const char* key) const {
  std::vector<Vector3D> points;
  const Value* part = Part(component);
  const Value* list = part == nullptr ? nullptr : ArrayIn(*part, key);
  if (list == nullptr) return points;
  for (const Value& point : list->GetArray()) {
    if (IsVector(point)) points.push_back(ToVector(point));
  }
  return points;
}

std::vector<std::string> ObjectView::Texts(const char* component, const char* key) const {
  std::vector<std::string> texts;
  const Value* part = Part(component);
  const Value* list = part == nullptr ? nullptr : ArrayIn(*part, key);
  if (list == nullptr) return texts;
  for (const Value& text : list->GetArray()) {
    texts.push_back(text.IsString() ? std::string(View(text)) : std::string());
  }
  return texts;
}

bool ObjectView::IsShot() const {
  return std::any_of(std::begin(kShots), std::end(kShots),
                     [this](const char* shot) { return Has(shot); });
}

Vector3D ObjectView::Place() const {
  Vector3D place = Vector("Transform", "m_pos", Vector3D(0.0f, 0.0f, 1.0f));
  for (const ObjectView* above = parent; above != nullptr; above = above->parent) {
    const Vector3D offset = above->Vector("Transform", "m_pos", Vector3D());
    place.x += offset.x;
    place.y += offset.y;
  }
  return place;
}

std::vector<const Value*> ObjectView::Children() const {
  std::vector<const Value*> children;
  const Value* list = ArrayIn(*record, kRecordChildren);
  if (list == nullptr) return children;
  for (const Value& child : list->GetArray()) children.push_back(&child);
  return children;
}

bool ObjectView::HasChild(std::string_view child) const {
  const Value* list = ArrayIn(*record, kRecordChildren);
  if (list == nullptr) return false;
  return std::any_of(list->Begin(), list->End(), [child](const Value& own) {
    const Value* own_name = FindValue(own, "name");
    return own_name != nullptr && own_name->IsString() && View(*own_name) == child;
  });
}

std::string ObjectView::Title() const {
  return parent == nullptr ? name : parent->name + "/" + name;
}

std::vector<std::uint32_t> ObjectView::Address() const {
  std::vector<std::uint32_t> address;
  for (const ObjectView* own = this; own != nullptr; own = own->parent) {
    address.push_back(own->index);
  }
  std::reverse(address.begin(), address.end());
  return address;
}

ObjectsView::ObjectsView(const std::string& text, LevelFile file) {
  m_document.ParseText(text, "");
  const Value* records = ArrayIn(m_document.Root(), "GameObjFactory");
  if (records == nullptr) return;
  Count(*records);
  // With room for all, since children point to their parents.
  m_objects.reserve(m_count);
  Add(*records, nullptr, file);
}

void ObjectsView::Count(const Value& records) {
  m_count += records.Size();
  for (const Value& record : records.GetArray()) {
    if (const Value* children = ArrayIn(record, kRecordChildren)) Count(*children);
  }
}

void ObjectsView::Add(const Value& records, const ObjectView* parent, LevelFile file) {
  std::uint32_t index = 0;
  for (const Value& record : records.GetArray()) {
    const ObjectView& own = m_objects.emplace_back(record, file, index++, parent);
    if (const Value* children = ArrayIn(record, kRecordChildren)) Add(*children, &own, file);
  }
}

LevelView::LevelView(const LevelText& text)
    : name(text.name),
      tiles(text.tiles, LevelFile::kTiles),
      objects(text.objects, LevelFile::kObjects) {
  level.ParseText(text.level, "");
  map.ParseText(text.map, "");
  if (!level.Root().IsObject()) broken.push_back(LevelFile::kLevel);
  if (!map.Root().IsObject()) broken.push_back(LevelFile::kMap);
  if (!tiles.Root().IsObject()) broken.push_back(LevelFile::kTiles);
  if (!objects.Root().IsObject()) broken.push_back(LevelFile::kObjects);
  for (const ObjectView& object : objects.All()) {
    if (root == nullptr && object.Has("GameController")) root = &object;
    has_units = has_units || object.IsUnit();
  }
}

}  // namespace ZOVEngine
