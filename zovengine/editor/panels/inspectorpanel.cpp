#include "editor/panels/inspectorpanel.h"

#include "leveleditorcomponentedit.h"

#include <imgui.h>
#include <imgui_internal.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "core/base/vector3d.h"
#include "editor/leveleditor.h"
#include "editor/panels/assetlist.h"
#include "editor/panels/fieldnotes.h"
#include "editor/panels/fieldrows.h"
#include "editor/panels/objectkind.h"
#include "editor/panels/textfield.h"
#include "gameobj.h"
#include "objects/gameobjfactory.h"

namespace ZOVEngine {
namespace {

constexpr int kRowColumns = 2, kVectorColumns = 4;
constexpr int kFixedColumns = 1;        // the flag of the rows' columns
constexpr float kLabelColumn = 195.0f;  // (unit: pixels)
constexpr float kVectorLabel = 4.0f;    // its label stands in a line of its own (unit: pixels)

std::string Text(const rttr::property& property, const char* key) {
  const rttr::variant value = property.get_metadata(std::string(key));
  return value.is_type<std::string>() ? value.get_value<std::string>() : "";
}

/// The key of a property in the component's record: its name, but for the places of a Transform.
std::string StoredKey(const std::string& component, const std::string& property) {
  constexpr std::array<std::pair<std::string_view, const char*>, 3> kPlaces = {
      {{"m_local_pos", "m_pos"}, {"m_local_scale", "m_scale"}, {"m_local_rotate", "m_rotate"}}};
  if (component != "Transform") return property;
  for (const auto& [name, key] : kPlaces) {
    if (name == property) return key;
  }
  return property;
}

/// True if the tables have a row that fits the property's type and says what it is.
bool HasRow(const rttr::property& property) {
  const std::string type = Text(property, "typeinfo");
  const auto row = g_property_editors.find(type);
  if (row == g_property_editors.end() || type == "double" || type == "Matrix4x4") return false;
  if (type == "Vector3" && property.get_type() != rttr::type::get<Vector3D>()) return false;
  return !Text(property, "name").empty() && property.get_metadata("is_inspect").to_bool();
}

/// True if the row of the table serves the author better than a list to choose from. The flag of a
/// collider is held off in a scene that is edited: the document tells it.
bool IsShownAsRow(const std::string& component, const rttr::property& property) {
  if (component == "ColliderHolder" && property.get_name() == "m_active") return false;
  const FieldWidget form =
      FormOfField(component, StoredKey(component, property.get_name().to_string()));
  return HasRow(property) && (form == FieldWidget::kPlain || form == FieldWidget::kFixed);
}

rttr::type TypeOfComponent(const std::string& name) {
  return rttr::type::get_by_name("ZOVEngine::" + name);
}

GameComponentBase* FindLive(GameObj* object, const std::string& name) {
  if (object == nullptr) return nullptr;
  for (const ComponentType type : object->components) {
    if (g_game_obj_factory->TypeName(type) == name) {
      return g_game_obj_factory->Table(type).Get(object);
    }
  }
  return nullptr;
}

bool IsListed(const std::vector<std::string>& names, const std::string& name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

/// Opens the columns that the property's row will find open, as wide as the panel needs them.
void OpenColumns(const rttr::property& property) {
  const bool vector = Text(property, "typeinfo") == "Vector3";
  const int count = vector ? kVectorColumns : kRowColumns;
  if (vector) ImGui::TextUnformatted(Text(property, "name").c_str());
  ImGui::BeginColumns((Text(property, "name") + "Column").c_str(), count, kFixedColumns);
  const float label = vector ? kVectorLabel : kLabelColumn;
  const float room = ImGui::GetWindowContentRegionMax().x - label;
  for (int i = 1; i < count; ++i) {
    const auto share = static_cast<float>(i - 1) / static_cast<float>(count - 1);
    ImGui::SetColumnOffset(i, label + room * share);
  }
}

/// Calls the function of the property's "DisplayMode", or of the default mode if the table has none
/// for it: the modes of some properties are names of types.
void DisplayRow(const rttr::property& property, const rttr::instance& instance) {
  OpenColumns(property);
  const auto mode = g_display_modes.find(Text(property, "DisplayMode"));
  const PropertyEditor& show =
      mode != g_display_modes.end() ? mode->second : g_display_modes.at("default");
  show(property, property.get_value(instance), instance);
}

}  // namespace

std::vector<std::string> AddableComponents(const LevelEditor& editor, const ObjectPath& path) {
  const std::vector<std::string> own = editor.document.Components(path);
  std::vector<std::string> names;
  for (const auto& [type, table] : *g_component_tables) {
    const std::string& name = g_game_obj_factory->TypeName(type);
    if (!IsListed(own, name)) names.push_back(name);
  }
  std::sort(names.begin(), names.end());
  return names;
}

bool AddDefaultComponent(LevelEditor& editor, const ObjectPath& path, const std::string& name) {
  const std::vector<std::string> own = editor.document.Components(path);
  for (const std::string& needed : ComponentNeeds(name)) {
    if (IsListed(own, needed)) continue;
    editor.log.Fault(std::string("A ")
                         .append(name)
                         .append(" needs a ")
                         .append(needed)
                         .append(" on its object; add that first."));
    return false;
  }
  GameObj* object = ObjectAt(path);
  if (object == nullptr || IsListed(own, name)) return false;
  for (const auto& [type, table] : *g_component_tables) {
    if (g_game_obj_factory->TypeName(type) != name) continue;
    JsonWriter writer;
    writer.Out().json->StartObject();
    table->Add(object)->Serialize(writer.Out());
    table->Remove(object);
    writer.Out().json->EndObject();
    editor.Do(editor.scene.AddComponent(path, name, writer.Text()));
    return true;
  }
  return false;
}

bool RemoveComponentIfFree(LevelEditor& editor, const ObjectPath& path, const std::string& name) {
  for (const std::string& other : editor.document.Components(path)) {
    if (!IsListed(ComponentNeeds(other), name)) continue;
    editor.log.Fault(std::string("The ")
                         .append(name)
                         .append(" stays: the object's ")
                         .append(other)
                         .append(" needs it."));
    return false;
  }
  editor.Do(editor.scene.RemoveComponent(path, name));
  return true;
}

void InspectorPanel::Show(LevelEditor& editor) {
  m_path = editor.IsOpen() ? editor.Primary() : ObjectPath();
  m_edit.BeginFrame(editor, m_path);
  if (m_path.empty() || !editor.document.Has(m_path)) {
    ImGui::TextWrapped("Select an object in the picture or in the list to see its fields.");
    m_edit.EndFrame(editor);
    return;
  }
  ShowHead(editor);
  ShowComponents(editor);
  ShowAdd(editor);
  m_edit.EndFrame(editor);
  if (!m_removed.empty()) RemoveComponentIfFree(editor, m_path, std::exchange(m_removed, ""));
  if (!m_added.empty()) AddDefaultComponent(editor, m_path, std::exchange(m_added, ""));
}

void InspectorPanel::ShowHead(LevelEditor& editor) {
  if (editor.selection.size() > 1) {
    ImGui::TextWrapped("%zu objects are selected; what is set here is set in all that have it.",
                       editor.selection.size());
  }
  const char* kind = KindWord(KindOfObject(editor.document.Components(m_path)));
  ImGui::PushID("object");
  for (const char* key : {"name", "active"}) {
    m_edit.StoredRow(editor, "", key,
                     [key](rapidjson::Document& value) { return ShowFieldRow("", key, &value); });
    if (std::string_view(key) == "active" && *kind != '\0') {
      ImGui::SameLine();
      ImGui::TextDisabled("%s", kind);
    }
  }
  ImGui::PopID();
}

void InspectorPanel::ShowComponents(LevelEditor& editor) {
  const std::vector<std::string> names = editor.document.Components(m_path);
  for (const std::string& name : names) {
    if (!editor.document.Has(m_path)) return;
    ImGui::PushID(name.c_str());
    bool stays = true;
    if (ImGui::CollapsingHeader(name.c_str(), &stays, ImGuiTreeNodeFlags_DefaultOpen)) {
      ShowComponent(editor, name);
    }
    if (!stays) m_removed = name;
    ImGui::PopID();
  }
}

void InspectorPanel::ShowComponent(LevelEditor& editor, const std::string& name) {
  if (name == "AudioSource") {
    m_edit.StoredRow(editor, name, "",
                     [](rapidjson::Document& fields) { return ShowSoundRows(&fields); });
    return;
  }
  GameComponentBase* component = FindLive(ObjectAt(m_path), name);
  if (component != nullptr) ShowReflected(editor, name, component);
  ShowStored(editor, name);
}

void InspectorPanel::ShowReflected(LevelEditor& editor, const std::string& name,
                                   GameComponentBase* component) {
  const rttr::type type = TypeOfComponent(name);
  if (!type.is_valid() || !type.get_metadata("isInspect").to_bool()) return;
  for (const rttr::property& property : type.get_properties()) {
    if (IsShownAsRow(name, property)) ShowProperty(editor, name, property, *component);
  }
}

void InspectorPanel::ShowProperty(LevelEditor& editor, const std::string& component,
                                  const rttr::property& property, const rttr::instance& instance) {
  const std::string name = property.get_name().to_string();
  const std::string key = StoredKey(component, name);
  const Value* record = editor.document.Find(m_path);
  const Value* fields = record != nullptr ? FindValue(*record, component.c_str()) : nullptr;
  const bool saved = fields != nullptr && HasKey(*fields, key.c_str()) &&
                     FormOfField(component, key) != FieldWidget::kFixed;
  ImGui::BeginDisabled(!saved);
  m_edit.LiveRow(editor, component, key, [&] { DisplayRow(property, instance); });
  ImGui::EndDisabled();
  if (!ImGui::IsItemHovered(ImGuiHoveredFlags_AllowWhenDisabled)) return;
  const std::string note = FieldNote(component, name);
  const std::string text = saved || !note.empty() ? note : "Not saved with the level.";
  if (!text.empty()) ImGui::SetTooltip("%s", text.c_str());
}

void InspectorPanel::ShowStored(LevelEditor& editor, const std::string& name) {
  const rttr::type type = TypeOfComponent(name);
  std::vector<std::string> shown;
  if (type.is_valid() && type.get_metadata("isInspect").to_bool()) {
    for (const rttr::property& property : type.get_properties()) {
      if (!IsShownAsRow(name, property)) continue;
      shown.push_back(StoredKey(name, property.get_name().to_string()));
    }
  }
  const Value* record = editor.document.Find(m_path);
  const Value* fields = record != nullptr ? FindValue(*record, name.c_str()) : nullptr;
  if (fields == nullptr || !fields->IsObject()) return;
  std::vector<std::string> keys;  // an edit replaces the record while the rows are shown
  for (const auto& field : fields->GetObject()) keys.emplace_back(field.name.GetString());
  for (const std::string& key : keys) {
    if (IsListed(shown, key)) continue;
    m_edit.StoredRow(editor, name, key,
                     [&](rapidjson::Document& value) { return ShowFieldRow(name, key, &value); });
  }
}

void InspectorPanel::ShowAdd(LevelEditor& editor) {
  ImGui::Separator();
  ImGui::SetNextItemWidth(-1.0f);
  std::string name = "Add a component";
  if (PickName("add", &name, AddableComponents(editor, m_path))) m_added = name;
}

}  // namespace ZOVEngine
