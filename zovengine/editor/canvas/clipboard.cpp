#include "editor/canvas/clipboard.h"

#include <algorithm>
#include <utility>

#include "editor/leveleditor.h"
#include "jsonunserializer.h"
#include "physics/components/transform.h"

namespace ZOVEngine {
namespace {

/// The record with its object at `place`, relative to its parent.
std::string Placed(const std::string& record, const Vector3D& place) {
  rapidjson::Document json;
  json.Parse(record.c_str(), record.size());
  const auto transform = json.FindMember("Transform");
  if (transform == json.MemberEnd()) return record;
  rapidjson::Value& position = transform->value["m_pos"];
  position[0].SetFloat(place.x);
  position[1].SetFloat(place.y);
  return ToText(json);
}

/// The level's own root, or null.
const SceneEntry* FindLevelRoot(const SceneIndex& index) {
  const auto& entries = index.Entries();
  const auto found = std::find_if(entries.begin(), entries.end(),
                                  [](const SceneEntry& entry) { return entry.is_level; });
  return found != entries.end() ? &*found : nullptr;
}

/// A point of the level as a child of `parent` has it.
Vector3D InParent(const SceneEntry* parent, const Vector3D& point) {
  if (parent == nullptr || parent->transform == nullptr) return point;
  const Vector3D offset = point - parent->transform->m_local_pos;
  const float turn = DegreesToRadians(-parent->transform->m_local_rotate);
  return Vector3D(offset.x * std::cos(turn) - offset.y * std::sin(turn),
                  offset.x * std::sin(turn) + offset.y * std::cos(turn), point.z);
}

}  // namespace

void Clipboard::Copy(const LevelEditor& editor, const std::vector<const SceneEntry*>& objects) {
  std::vector<Item> items;
  for (const SceneEntry* entry : objects) {
    const Value* record = editor.document.Find(entry->path);
    if (record == nullptr || entry->is_level) continue;
    const Vector3D world = entry->transform != nullptr ? entry->transform->m_world_pos : Vector3D();
    items.push_back({entry->object->name, ToText(*record), world});
  }
  if (!items.empty()) m_items = std::move(items);
}

void Clipboard::Paste(LevelEditor& editor, const SceneIndex& index, const Vector3D& place) const {
  if (m_items.empty()) return;
  Vector3D middle;
  for (const Item& item : m_items) middle += item.world / static_cast<float>(m_items.size());
  const SceneEntry* root = FindLevelRoot(index);
  std::vector<std::string> records;
  for (const Item& item : m_items) {
    records.push_back(Placed(item.record, InParent(root, place + (item.world - middle))));
  }
  const std::string what =
      m_items.size() == 1 ? m_items.front().name : std::to_string(m_items.size()) + " objects";
  const ObjectPath parent = root != nullptr ? root->path : ObjectPath();
  editor.Do(editor.scene.Insert(parent, records, "Paste " + what));
}

}  // namespace ZOVEngine
