#include "editor/objectedit.h"

#include <utility>

#include "editor/leveldocument.h"
#include "editor/scene.h"
#include "gameobj.h"
#include "objects/gameobjfactory.h"
#include "physics/components/transform.h"

namespace ZOVEngine {
namespace {

class FieldCommand final : public EditCommand {
 public:
  FieldCommand(LevelDocument* document, std::string label, std::vector<FieldChange> changes)
      : m_document(document), m_label(std::move(label)), m_changes(std::move(changes)) {}
  void Undo() override { Apply(&FieldChange::before); }
  void Redo() override { Apply(&FieldChange::after); }
  std::string Label() const override { return m_label; }

 private:
  void Apply(std::string FieldChange::*side) {
    for (const FieldChange& change : m_changes) {
      m_document->SetFields(change.path, change.component, change.*side);
      if (GameObj* object = ObjectAt(change.path)) {
        SetLiveFields(object, change.component, change.*side);
      }
    }
  }

  LevelDocument* m_document;
  std::string m_label;
  std::vector<FieldChange> m_changes;
};

/// The fields of `document` with those values that differ between the two live texts replaced: what
/// the gesture changed comes in, and what the running editor changed before stays out.
std::string Merge(const std::string& document, const std::string& before,
                  const std::string& after) {
  rapidjson::Document merged, old_live, new_live;
  ParseExactly(&merged, document);
  ParseExactly(&old_live, before);
  ParseExactly(&new_live, after);
  if (!merged.IsObject() || !old_live.IsObject() || !new_live.IsObject()) return document;
  for (auto& field : new_live.GetObject()) {
    const auto was = old_live.FindMember(field.name);
    if (was != old_live.MemberEnd() && was->value == field.value) continue;
    const auto kept = merged.FindMember(field.name);
    if (kept == merged.MemberEnd()) continue;
    kept->value.CopyFrom(field.value, merged.GetAllocator());
  }
  return ToText(merged);
}

std::vector<std::string> FieldGroups(const std::string& component, GameObj* object) {
  if (!component.empty()) return {component};
  std::vector<std::string> groups = {""};
  for (const ComponentType type : object->components) {
    groups.push_back(g_game_obj_factory->TypeName(type));
  }
  return groups;
}

}  // namespace

std::unique_ptr<EditCommand> ChangeFields(LevelDocument* document, std::string label,
                                          std::vector<FieldChange> changes) {
  std::erase_if(changes, [](const FieldChange& change) { return change.before == change.after; });
  if (changes.empty()) return nullptr;
  auto command = std::make_unique<FieldCommand>(document, std::move(label), std::move(changes));
  command->Redo();
  return command;
}

void ObjectGesture::Begin(const std::vector<ObjectPath>& paths, const std::string& component) {
  m_before.clear();
  for (const ObjectPath& path : paths) {
    GameObj* object = ObjectAt(path);
    if (object == nullptr) continue;
    for (const std::string& group : FieldGroups(component, object)) {
      m_before.push_back({path, group, LiveFields(object, group), ""});
    }
  }
}

std::unique_ptr<EditCommand> ObjectGesture::End(LevelDocument* document, const std::string& label) {
  std::vector<FieldChange> changes;
  for (const FieldChange& live : std::exchange(m_before, {})) {
    GameObj* object = ObjectAt(live.path);
    if (object == nullptr) continue;
    if (object->HasComponent<Transform>()) object->GetComponent<Transform>()->DeriveWorld();
    const std::string after = LiveFields(object, live.component);
    if (after == live.before) continue;
    const std::string fields = document->Fields(live.path, live.component);
    changes.push_back({live.path, live.component, fields, Merge(fields, live.before, after)});
  }
  return ChangeFields(document, label, std::move(changes));
}

void ObjectGesture::Cancel() {
  for (const FieldChange& change : std::exchange(m_before, {})) {
    if (GameObj* object = ObjectAt(change.path)) {
      SetLiveFields(object, change.component, change.before);
    }
  }
}

}  // namespace ZOVEngine
