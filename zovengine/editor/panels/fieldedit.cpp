#include "editor/panels/fieldedit.h"

#include <imgui.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "editor/leveleditor.h"
#include "editor/leveltext.h"
#include "editor/panels/hierarchypanel.h"
#include "editor/scene.h"

namespace ZOVEngine {
namespace {

std::string StepName(const LevelEditor& editor, const ObjectPath& path,
                     const std::string& component, const std::string& key) {
  const std::string field = key.empty() ? component : key;
  return "Set " + field + " of " + editor.document.Name(path);
}

/// The stored value of a field, or null.
const Value* FindStored(const LevelEditor& editor, const ObjectPath& path,
                        const std::string& component, const std::string& key) {
  const Value* value = editor.document.Find(path);
  if (value != nullptr && !component.empty()) value = FindValue(*value, component.c_str());
  if (value != nullptr && !key.empty()) value = FindValue(*value, key.c_str());
  return value;
}

bool IsNameOf(const std::string& component, const std::string& key) {
  return component.empty() && key == "name";
}

/// Why the program would end over the level with these changes, as a sentence; empty if it would
/// not. The document is as before in the end.
std::string FindFault(LevelDocument* document, const std::vector<FieldChange>& changes) {
  for (const FieldChange& change : changes) {
    document->SetFields(change.path, change.component, change.after);
  }
  const LevelProblems fatal = FatalProblems(*document);
  for (const FieldChange& change : changes) {
    document->SetFields(change.path, change.component, change.before);
  }
  return fatal.empty() ? "" : fatal.front().text + ".";
}

/// The change of the shown object, and what follows from it for the others.
std::vector<FieldChange> AllChanges(const LevelEditor& editor, const OpenField& open,
                                    const FieldChange& own) {
  std::vector<FieldChange> changes = {own};
  if (open.key.empty() || IsNameOf(open.component, open.key)) return changes;
  for (const ObjectPath& path : open.others) {
    const std::string before = editor.document.Fields(path, open.component);
    if (before.empty()) continue;
    changes.push_back(
        {path, open.component, before, ApplyDifference(before, open.key, own.before, own.after)});
  }
  return changes;
}

/// Shows the fields of the document again in the live object.
void ShowStoredFields(const LevelEditor& editor, const OpenField& open) {
  GameObj* object = ObjectAt(open.path);
  const std::string fields = editor.document.Fields(open.path, open.component);
  if (object != nullptr && !fields.empty()) SetLiveFields(object, open.component, fields);
}

void Commit(LevelEditor& editor, const OpenField& open, const FieldChange& own) {
  const std::vector<FieldChange> changes = AllChanges(editor, open, own);
  const std::string fault = FindFault(&editor.document, changes);
  if (!fault.empty()) {
    editor.log.Fault(fault);
    ShowStoredFields(editor, open);
    return;
  }
  auto command = ChangeFields(&editor.document,
                              StepName(editor, open.path, open.component, open.key), changes);
  if (command != nullptr) editor.Do(std::move(command));
}

}  // namespace

std::string ApplyDifference(const std::string& fields, const std::string& key,
                            const std::string& before, const std::string& after) {
  rapidjson::Document all, old_fields, new_fields;
  ParseExactly(&all, fields);
  ParseExactly(&old_fields, before);
  ParseExactly(&new_fields, after);
  const Value* from = FindValue(old_fields, key.c_str());
  const Value* to = FindValue(new_fields, key.c_str());
  if (from == nullptr || to == nullptr || !HasKey(all, key.c_str())) return fields;
  Value& own = all[key.c_str()];
  const bool vectors = from->IsArray() && to->IsArray() && own.IsArray() &&
                       from->Size() == to->Size() && own.Size() == to->Size();
  if (!vectors) {
    own.CopyFrom(*to, all.GetAllocator());
    return ToText(all);
  }
  for (rapidjson::SizeType i = 0; i < own.Size(); ++i) {
    if ((*from)[i] != (*to)[i]) own[i].CopyFrom((*to)[i], all.GetAllocator());
  }
  return ToText(all);
}

std::string ReplaceField(const std::string& fields, const std::string& key,
                         const std::string& value) {
  if (key.empty()) return value;
  rapidjson::Document all, part;
  all.Parse(fields.c_str(), fields.size());
  part.Parse(value.c_str(), value.size());
  if (!all.IsObject() || part.HasParseError() || !all.HasMember(key.c_str())) return fields;
  all[key.c_str()].CopyFrom(part, all.GetAllocator());
  return ToText(all);
}

void FieldEdit::BeginFrame(LevelEditor& editor, const ObjectPath& shown) {
  m_shown = shown;
  if (!m_open) return;
  if (m_open->changes != editor.history.Changes()) {
    m_open.reset();
  } else if (m_open->path != shown) {
    End(editor);
  } else {
    m_open->seen = false;
  }
}

void FieldEdit::EndFrame(LevelEditor& editor) {
  if (m_open && !m_open->seen) End(editor);
}

bool FieldEdit::IsOpenFor(const std::string& component, const std::string& key) const {
  return m_open && m_open->component == component && m_open->key == key;
}

void FieldEdit::Start(const LevelEditor& editor, const std::string& component,
                      const std::string& key) {
  m_open.emplace();
  m_open->path = m_shown;
  m_open->component = component;
  m_open->key = key;
  m_open->changes = editor.history.Changes();
  m_open->others = editor.selection;
  std::erase(m_open->others, m_shown);
}

void FieldEdit::LiveRow(LevelEditor& editor, const std::string& component, const std::string& key,
                        const std::function<void()>& row) {
  // A click may change the value in the very frame in which it makes the widget active.
  ObjectGesture before;
  if (!m_open && ImGui::IsMouseClicked(ImGuiMouseButton_Left)) before.Begin({m_shown}, component);
  ImGui::BeginGroup();
  row();
  ImGui::EndGroup();
  if (!m_open && ImGui::IsItemActive()) {
    Start(editor, component, key);
    if (!before.IsOpen()) before.Begin({m_shown}, component);
    m_open->gesture = std::move(before);
  }
  if (!IsOpenFor(component, key)) return;
  m_open->seen = true;
  if (ImGui::IsItemDeactivated() || !ImGui::IsItemActive()) End(editor);
}

void FieldEdit::StoredRow(LevelEditor& editor, const std::string& component, const std::string& key,
                          const std::function<bool(rapidjson::Document&)>& row) {
  const Value* stored = FindStored(editor, m_shown, component, key);
  if (stored == nullptr) return;
  rapidjson::Document value;
  if (IsOpenFor(component, key) && m_open->stored) {
    value.Parse(m_open->stored->c_str());
  } else {
    value.CopyFrom(*stored, value.GetAllocator());
  }
  ImGui::BeginGroup();
  const bool changed = row(value);
  ImGui::EndGroup();
  const bool active = ImGui::IsItemActive();
  if (changed) {
    if (m_open && !IsOpenFor(component, key)) End(editor);
    if (!m_open) Start(editor, component, key);
    m_open->stored = ToText(value);
    if (!value.IsString()) Preview(editor, *m_open);
  }
  if (!IsOpenFor(component, key)) return;
  m_open->seen = true;
  if (!active) End(editor);
}

void FieldEdit::Preview(LevelEditor& editor, const OpenField& open) {
  GameObj* object = ObjectAt(open.path);
  if (object == nullptr) return;
  const std::string before = editor.document.Fields(open.path, open.component);
  const std::string after = ReplaceField(before, open.key, *open.stored);
  if (!FindFault(&editor.document, {{open.path, open.component, before, after}}).empty()) return;
  SetLiveFields(object, open.component, after);
}

void FieldEdit::End(LevelEditor& editor) {
  OpenField open = std::move(*std::exchange(m_open, std::nullopt));
  if (open.stored) {
    EndStored(editor, open);
  } else {
    EndLive(editor, open);
  }
}

/// The gesture brings into the document what its row did to the live object; this goes in as one
/// step with the changes of the others.
void FieldEdit::EndLive(LevelEditor& editor, OpenField& open) {
  const std::string before = editor.document.Fields(open.path, open.component);
  const auto command = open.gesture.End(&editor.document, "");
  if (command == nullptr) return;
  const std::string after = editor.document.Fields(open.path, open.component);
  command->Undo();
  Commit(editor, open, {open.path, open.component, before, after});
}

void FieldEdit::EndStored(LevelEditor& editor, const OpenField& open) {
  const std::string before = editor.document.Fields(open.path, open.component);
  const std::string after = ReplaceField(before, open.key, *open.stored);
  if (IsNameOf(open.component, open.key)) {
    rapidjson::Document name;
    name.Parse(open.stored->c_str());
    const std::string fault = FaultOfObjectName(name.IsString() ? name.GetString() : "");
    if (!fault.empty()) {
      editor.log.Fault(fault);
      return;
    }
  }
  Commit(editor, open, {open.path, open.component, before, after});
}

}  // namespace ZOVEngine
