#include "editor/panels/hierarchypanel.h"

#include <imgui.h>
#include <imgui_internal.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "editor/editordata.h"
#include "editor/leveleditor.h"
#include "editor/palette.h"
#include "editor/panels/textfield.h"

namespace ZOVEngine {
namespace {

constexpr const char* kDragged = "tree object";
constexpr float kIndent = 14.0f;      // of a level of the tree (unit: pixels)
constexpr float kCopyOffset = 30.0f;  // of a duplicate (unit: world units)
constexpr float kHoverTime = 0.7f;    // until a row says more (unit: seconds)
constexpr int kRenameKey = 59;        // F2, as the window counts keys
constexpr std::array<std::string_view, 4> kReservedNames = {"tile", "tile_collider",
                                                            "particle_test", "LECamera"};

ObjectPath ParentPath(ObjectPath path) {
  path.pop_back();
  return path;
}

ObjectPath ChildPath(ObjectPath path, std::uint32_t place) {
  path.push_back(place);
  return path;
}

std::uint32_t ChildCount(const LevelEditor& editor, const ObjectPath& path) {
  const Value* children = editor.document.Children(path);
  return children != nullptr ? children->Size() : 0;
}

/// The selected objects if the one at `path` is among them, else that one alone.
std::vector<ObjectPath> Concerned(const LevelEditor& editor, const ObjectPath& path) {
  return editor.IsSelected(path) ? editor.selection : std::vector<ObjectPath>{path};
}

void Rename(LevelEditor& editor, const ObjectPath& path, const std::string& name) {
  const std::string fault = FaultOfObjectName(name);
  if (!fault.empty()) {
    editor.log.Fault(fault);
    return;
  }
  const std::string before = editor.document.Fields(path, "");
  rapidjson::Document fields;
  fields.Parse(before.c_str(), before.size());
  if (!fields.IsObject()) return;
  fields["name"].SetString(name.c_str(), fields.GetAllocator());
  auto command =
      ChangeFields(&editor.document, "Rename to " + name, {{path, "", before, ToText(fields)}});
  if (command != nullptr) editor.Do(std::move(command));
}

/// True if the last node was clicked. With a key held, which makes Dear ImGui's node no button, the
/// press counts, otherwise the release, so that a drag leaves the selection.
bool IsPicked() {
  const ImGuiIO& io = ImGui::GetIO();
  if (io.KeyShift || io.KeyCtrl) return ImGui::IsItemClicked();
  return ImGui::IsItemDeactivated() && ImGui::IsItemHovered();
}

/// Writes the kind at the end of the row, unless the name reaches as far.
void ShowKindWord(ObjectKind kind, const std::string& name) {
  const char* word = KindWord(kind);
  const float width = ImGui::CalcTextSize(word).x;
  const float name_end = ImGui::GetItemRectMin().x + ImGui::GetTreeNodeToLabelSpacing() +
                         ImGui::CalcTextSize(name.c_str()).x;
  if (name_end > ImGui::GetWindowPos().x + ImGui::GetWindowContentRegionMax().x - width) return;
  ImGui::SameLine(ImGui::GetWindowContentRegionMax().x - width);
  ImGui::TextDisabled("%s", word);
}

std::string JoinComponents(const LevelEditor& editor, const ObjectPath& path) {
  std::string text;
  for (const std::string& component : editor.document.Components(path)) {
    text += (text.empty() ? "" : ", ") + component;
  }
  return text;
}

}  // namespace

std::string FaultOfObjectName(const std::string& name) {
  if (name.empty()) return "An object needs a name.";
  if (std::find(kReservedNames.begin(), kReservedNames.end(), name) == kReservedNames.end()) {
    return "";
  }
  return "\"" + name +
         "\" is a name that the game gives to objects of its own; an object of a "
         "level would not be saved with it.";
}

void HierarchyPanel::Show(LevelEditor& editor) {
  if (!editor.IsOpen()) {
    ImGui::TextWrapped("Open a level with the menu Level, or make a new one.");
    return;
  }
  ShowSearch();
  FollowSelection(editor);
  GatherRows(editor);
  ImGui::BeginChild("tree");
  TakeKeys(editor);
  ScrollToRoot(editor);
  ScrollToSelection(editor);
  ShowRows(editor);
  ShowTopLevel();
  ImGui::EndChild();
  Serve(editor);
}

void HierarchyPanel::ShowSearch() {
  ImGui::SetNextItemWidth(-1.0f);
  TextField("##search", &m_search, "Search name or component");
}

void HierarchyPanel::GatherRows(const LevelEditor& editor) {
  Key key = {editor.history.Changes(), g_editor.m_level_name, m_search};
  if (!m_stale && key == m_key) return;
  // The object that runs a level holds nearly all the others: closed it says nothing.
  if (key.level != m_key.level) {
    m_open = {FindLevelRoot(editor.document)};
    m_level_is_new = true;
  }
  m_key = std::move(key);
  m_stale = false;
  m_rows.clear();
  for (std::uint32_t i = 0; i < ChildCount(editor, {}); ++i) AppendRow(editor, {i});
}

void HierarchyPanel::AppendRow(const LevelEditor& editor, const ObjectPath& path) {
  const bool searching = !m_search.empty();
  const std::uint32_t children = ChildCount(editor, path);
  if (!searching || Matches(editor, path)) {
    Row row;
    row.path = path;
    row.name = editor.document.Name(path);
    row.kind = KindOfObject(editor.document.Components(path));
    row.has_children = !searching && children > 0;
    row.open = row.has_children && m_open.contains(path);
    m_rows.push_back(row);
  }
  if (!searching && !m_open.contains(path)) return;
  for (std::uint32_t i = 0; i < children; ++i) AppendRow(editor, ChildPath(path, i));
}

bool HierarchyPanel::Matches(const LevelEditor& editor, const ObjectPath& path) const {
  if (ContainsIgnoringCase(editor.document.Name(path), m_search)) return true;
  const std::vector<std::string> components = editor.document.Components(path);
  return std::any_of(components.begin(), components.end(), [this](const std::string& component) {
    return ContainsIgnoringCase(component, m_search);
  });
}

void HierarchyPanel::FollowSelection(const LevelEditor& editor) {
  const ObjectPath primary = editor.Primary();
  if (primary == m_followed) return;
  m_followed = primary;
  m_scroll = !primary.empty();
  for (ObjectPath path = primary; path.size() > 1;) {
    path = ParentPath(path);
    m_stale |= m_open.insert(path).second;
  }
}

void HierarchyPanel::ScrollToRoot(const LevelEditor& editor) {
  if (!std::exchange(m_level_is_new, false)) return;
  const ObjectPath root = FindLevelRoot(editor.document);
  const auto row =
      std::find_if(m_rows.begin(), m_rows.end(), [&](const Row& own) { return own.path == root; });
  if (row == m_rows.end()) return;
  const auto rows_above = static_cast<float>(row - m_rows.begin());
  ImGui::SetScrollY(rows_above * ImGui::GetFrameHeightWithSpacing());
}

void HierarchyPanel::ScrollToSelection(const LevelEditor& editor) {
  if (!std::exchange(m_scroll, false)) return;
  const ObjectPath primary = editor.Primary();
  const auto row = std::find_if(m_rows.begin(), m_rows.end(),
                                [&](const Row& own) { return own.path == primary; });
  if (row == m_rows.end()) return;
  const float height = ImGui::GetFrameHeightWithSpacing();
  const float top = static_cast<float>(row - m_rows.begin()) * height;
  const float room = ImGui::GetWindowHeight(), scroll = ImGui::GetScrollY();
  if (top < scroll || top + height > scroll + room) ImGui::SetScrollY(top - room / 2.0f);
}

void HierarchyPanel::ShowRows(LevelEditor& editor) {
  ImGuiListClipper clipper;
  clipper.Begin(static_cast<int>(m_rows.size()), ImGui::GetFrameHeightWithSpacing());
  while (clipper.Step()) {
    for (int i = clipper.DisplayStart; i < clipper.DisplayEnd; ++i) {
      ShowRow(editor, static_cast<std::size_t>(i));
    }
  }
}

void HierarchyPanel::ShowRow(LevelEditor& editor, std::size_t index) {
  const Row& row = m_rows[index];
  ImGui::PushID(static_cast<int>(index));
  const float indent = kIndent * static_cast<float>(row.path.size() - 1);
  if (indent > 0.0f) ImGui::Indent(indent);
  if (row.path == m_renamed) {
    ShowNameField(editor, row);
  } else {
    ShowNode(editor, index);
  }
  if (indent > 0.0f) ImGui::Unindent(indent);
  ImGui::PopID();
}

void HierarchyPanel::ShowNode(LevelEditor& editor, std::size_t index) {
  const Row& row = m_rows[index];
  ImGuiTreeNodeFlags flags = ImGuiTreeNodeFlags_NoTreePushOnOpen | ImGuiTreeNodeFlags_FramePadding |
                             ImGuiTreeNodeFlags_OpenOnArrow | ImGuiTreeNodeFlags_SpanAvailWidth;
  if (!row.has_children) flags |= ImGuiTreeNodeFlags_Leaf;
  if (editor.IsSelected(row.path)) flags |= ImGuiTreeNodeFlags_Selected;
  ImGui::SetNextItemOpen(row.open);
  ImGui::PushStyleColor(ImGuiCol_Text, KindColour(row.kind));
  ImGui::TreeNodeEx("node", flags, "%s", row.name.empty() ? "(no name)" : row.name.c_str());
  ImGui::PopStyleColor();
  if (GImGui->HoveredIdTimer > kHoverTime) {
    HoverText(row.name + "\n" + JoinComponents(editor, row.path));
  }
  if (ImGui::IsItemToggledOpen()) {
    if (m_open.erase(row.path) == 0) m_open.insert(row.path);
    m_stale = m_toggled = true;
  } else if (ImGui::IsItemHovered() && ImGui::IsMouseDoubleClicked(ImGuiMouseButton_Left)) {
    StartRenaming(editor, row.path);
  } else if (IsPicked() && m_dragged.empty()) {
    if (!std::exchange(m_toggled, false)) Select(editor, index);
  }
  DragRow(row);
  DropOnRow(row);
  ShowContextMenu(editor, row);
  ShowKindWord(row.kind, row.name);
}

void HierarchyPanel::ShowNameField(LevelEditor& editor, const Row& row) {
  if (std::exchange(m_name_is_new, false)) ImGui::SetKeyboardFocusHere();
  ImGui::SetNextItemWidth(-1.0f);
  TextField("##name", &m_name, "", ImGuiInputTextFlags_AutoSelectAll);
  if (!ImGui::IsItemDeactivated()) return;
  const bool given_up = ImGui::IsKeyPressed(ImGui::GetKeyIndex(ImGuiKey_Escape));
  if (!given_up && m_name != row.name) Rename(editor, row.path, m_name);
  m_renamed.clear();
}

void HierarchyPanel::ShowContextMenu(LevelEditor& editor, const Row& row) {
  if (!ImGui::BeginPopupContextItem("menu")) return;
  if (ImGui::MenuItem("Rename", "F2")) m_request = {Verb::kRename, row.path, {}};
  if (ImGui::MenuItem("Duplicate")) m_request = {Verb::kDuplicate, row.path, {}};
  if (ImGui::MenuItem("Move to the top level", nullptr, false, row.path.size() > 1)) {
    m_request = {Verb::kMoveToTop, row.path, {}};
  }
  const bool below = editor.Primary() != row.path && !editor.selection.empty();
  if (ImGui::MenuItem("Move below the selected object", nullptr, false, below)) {
    m_request = {Verb::kMoveBelow, row.path, editor.Primary()};
  }
  ImGui::Separator();
  if (ImGui::MenuItem("Delete", "Del")) m_request = {Verb::kDelete, row.path, {}};
  ImGui::EndPopup();
}

void HierarchyPanel::DragRow(const Row& row) {
  if (!ImGui::BeginDragDropSource()) return;
  m_dragged = row.path;
  // The path stays here; Dear ImGui wants bytes of its own.
  const char none = 0;
  ImGui::SetDragDropPayload(kDragged, &none, sizeof none);
  ImGui::TextUnformatted(row.name.c_str());
  ImGui::EndDragDropSource();
}

void HierarchyPanel::DropOnRow(const Row& row) {
  if (!ImGui::BeginDragDropTarget()) return;
  if (ImGui::AcceptDragDropPayload(kDragged) != nullptr) {
    m_request = {Verb::kMoveBelow, m_dragged, row.path};
  }
  ImGui::EndDragDropTarget();
}

void HierarchyPanel::ShowTopLevel() {
  const ImVec2 room = ImGui::GetContentRegionAvail();
  const float height = std::max(room.y, ImGui::GetFrameHeight());
  ImGui::InvisibleButton("top level", ImVec2(std::max(room.x, 1.0f), height));
  if (ImGui::BeginDragDropTarget()) {
    if (ImGui::AcceptDragDropPayload(kDragged) != nullptr) {
      m_request = {Verb::kMoveToTop, m_dragged, {}};
    }
    ImGui::EndDragDropTarget();
  }
  if (ImGui::GetDragDropPayload() == nullptr) m_dragged.clear();
}

void HierarchyPanel::TakeKeys(const LevelEditor& editor) {
  if (!ImGui::IsWindowFocused() || ImGui::GetIO().WantTextInput || editor.Primary().empty()) return;
  if (ImGui::IsKeyPressed(kRenameKey, false)) m_request = {Verb::kRename, editor.Primary(), {}};
  if (ImGui::IsKeyPressed(ImGui::GetKeyIndex(ImGuiKey_Delete), false)) {
    m_request = {Verb::kDelete, editor.Primary(), {}};
  }
}

void HierarchyPanel::Select(LevelEditor& editor, std::size_t index) {
  const ObjectPath& path = m_rows[index].path;
  const ImGuiIO& io = ImGui::GetIO();
  if (io.KeyShift && !m_anchor.empty()) {
    SelectRange(editor, index);
  } else if (io.KeyCtrl) {
    if (std::erase(editor.selection, path) == 0) editor.selection.push_back(path);
    m_anchor = path;
  } else {
    editor.selection = {path};
    m_anchor = path;
  }
  m_followed = editor.Primary();
}

void HierarchyPanel::SelectRange(LevelEditor& editor, std::size_t index) const {
  const auto anchor = std::find_if(m_rows.begin(), m_rows.end(),
                                   [this](const Row& row) { return row.path == m_anchor; });
  if (anchor == m_rows.end()) return;
  const auto from = static_cast<std::size_t>(anchor - m_rows.begin());
  editor.selection.clear();
  // Up to the row that was clicked, which so is the last.
  for (std::size_t i = from; i != index; i += from < index ? 1 : static_cast<std::size_t>(-1)) {
    editor.selection.push_back(m_rows[i].path);
  }
  editor.selection.push_back(m_rows[index].path);
}

void HierarchyPanel::StartRenaming(const LevelEditor& editor, const ObjectPath& path) {
  m_renamed = path;
  m_name = editor.document.Name(path);
  m_name_is_new = true;
}

void HierarchyPanel::Serve(LevelEditor& editor) {
  if (!m_request) return;
  const Request request = *std::exchange(m_request, std::nullopt);
  switch (request.verb) {
    case Verb::kRename:
      StartRenaming(editor, request.path);
      break;
    case Verb::kDuplicate:
      editor.Do(editor.scene.Duplicate(Concerned(editor, request.path), kCopyOffset, -kCopyOffset));
      break;
    case Verb::kDelete:
      editor.Do(editor.scene.Delete(Concerned(editor, request.path)));
      break;
    case Verb::kMoveToTop:
      editor.Do(editor.scene.Reparent(request.path, {}));
      break;
    case Verb::kMoveBelow:
      editor.Do(editor.scene.Reparent(request.path, request.parent));
      break;
  }
}

}  // namespace ZOVEngine
