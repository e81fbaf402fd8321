#include "editor/panels/fieldedit.h"

#include <imgui.h>

#include <utility>
#include <vector>

#include "editor/leveleditor.h"
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

}  // namespace

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

void FieldEdit::Preview(LevelEditor& editor, const OpenField& open) const {
  GameObj* object = ObjectAt(open.path);
  if (object == nullptr) return;
  const std::string fields = editor.document.Fields(open.path, open.component);
  SetLiveFields(object, open.component, ReplaceField(fields, open.key, *open.stored));
}

void FieldEdit::End(LevelEditor& editor) {
  OpenField open = std::move(*std::exchange(m_open, std::nullopt));
  if (open.stored) {
    EndStored(editor, open);
    return;
  }
  auto command =
      open.gesture.End(&editor.document, StepName(editor, open.path, open.component, open.key));
  if (command != nullptr) editor.Do(std::move(command));
}

void FieldEdit::EndStored(LevelEditor& editor, const OpenField& open) const {
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
  auto command =
      ChangeFields(&editor.document, StepName(editor, open.path, open.component, open.key),
                   {{open.path, open.component, before, after}});
  if (command != nullptr) editor.Do(std::move(command));
}

}  // namespace ZOVEngine
